// ipa_predicates_test.cpp - the questions asked of single symbols and of
// symbol strings: manners, heights, voicing with diacritics, silence, and
// symbols outside the inventory.
#include <gtest/gtest.h>

#include <cstdint>

#include "ipa_phoneme.h"

namespace {

using Predicate = int (*)(uint32_t);

struct Case {
  const char *what;
  Predicate predicate;
  uint32_t code;
  int expected;
};

const Case kCases[] = {
    {"a is a vowel", IsIPAVowel, 0x61, 1},
    {"b is not a vowel", IsIPAVowel, 0x62, 0},
    {"b is a consonant", IsIPAConsonant, 0x62, 1},
    {"a is not a consonant", IsIPAConsonant, 0x61, 0},
    {"click is a consonant", IsIPAConsonant, 0x01C0, 1},
    {"i is close", IsIPAVowelClose, 0x69, 1},
    {"small capital I is near-close", IsIPAVowelNearClose, 0x026A, 1},
    {"e is close-mid", IsIPAVowelCloseMid, 0x65, 1},
    {"schwa is mid", IsIPAVowelMid, 0x0259, 1},
    {"open e is open-mid", IsIPAVowelOpenMid, 0x025B, 1},
    {"ash is near-open", IsIPAVowelNearOpen, 0xE6, 1},
    {"script a is open", IsIPAVowelOpen, 0x0251, 1},
    {"i is not open", IsIPAVowelOpen, 0x69, 0},
    {"m is a nasal", IsIPANasal, 0x6D, 1},
    {"eng is a nasal", IsIPANasal, 0x014B, 1},
    {"p is not a nasal", IsIPANasal, 0x70, 0},
    {"glottal stop is a plosive", IsIPAPlosive, 0x0294, 1},
    {"implosive b is a plosive", IsIPAPlosive, 0x0253, 1},
    {"eng is not a plosive", IsIPAPlosive, 0x014B, 0},
    {"click is not a plosive", IsIPAPlosive, 0x01C0, 0},
    {"s is a fricative", IsIPAFricative, 0x73, 1},
    {"theta is a fricative", IsIPAFricative, 0x03B8, 1},
    {"w is an approximant", IsIPAApproximant, 0x77, 1},
    {"r is a trill", IsIPATrill, 0x72, 1},
    {"fish-hook r is a tap", IsIPATapOrFlap, 0x027E, 1},
    {"t-esh ligature is an affricate", IsIPAAffricate, 0x02A7, 1},
    {"l is lateral", IsIPALateral, 0x6C, 1},
    {"lateral click is lateral", IsIPALateral, 0x01C1, 1},
    {"n is not lateral", IsIPALateral, 0x6E, 0},
    {"click is no fricative", IsIPAFricative, 0x01C0, 0},
    {"click is no approximant", IsIPAApproximant, 0x01C0, 0},
    {"click is no affricate", IsIPAAffricate, 0x01C0, 0},
    {"silence is a phoneme", IsIPAPhoneme, 0x23, 1},
    {"silence is silence", IsIPASilence, 0x23, 1},
    {"a is not silence", IsIPASilence, 0x61, 0},
    {"silence is no vowel", IsIPAVowel, 0x23, 0},
    {"silence is no consonant", IsIPAConsonant, 0x23, 0},
    {"silence is no plosive", IsIPAPlosive, 0x23, 0},
    {"silence is not close", IsIPAVowelClose, 0x23, 0},
    {"gap U+0269 is not a phoneme", IsIPAPhoneme, 0x0269, 0},
    {"gap U+0277 is not a phoneme", IsIPAPhoneme, 0x0277, 0},
    {"gap U+0269 is not a vowel", IsIPAVowel, 0x0269, 0},
    {"upper-case A is not a phoneme", IsIPAPhoneme, 0x41, 0},
    {"a code above 16 bits is not a phoneme", IsIPAPhoneme, 0x10061, 0},
    {"a code above 16 bits is not a diacritic", IsIPADiacritics, 0x1030A, 0},
    {"ring below is a diacritic", IsIPADiacritics, 0x0325, 1},
    {"superscript n is a diacritic", IsIPADiacritics, 0x207F, 1},
    {"primary stress is not a diacritic", IsIPADiacritics, 0x02C8, 0},
};

TEST(IpaPredicates, Table) {
  for (const Case &c : kCases) EXPECT_EQ(c.predicate(c.code), c.expected) << c.what;
}

struct Getter {
  const char *what;
  int (*get)(uint32_t);
  uint32_t code;
  int expected;
};

const Getter kGetters[] = {
    {"script a height", IPAVowelHeight, 0x0251, 7},
    {"script a backness", IPAVowelBackness, 0x0251, 5},
    {"script a rounding", IPAVowelRoundedness, 0x0251, 2},
    {"schwa height", IPAVowelHeight, 0x0259, 4},
    {"schwa backness", IPAVowelBackness, 0x0259, 3},
    {"schwa rounding", IPAVowelRoundedness, 0x0259, 0},
    {"o rounding", IPAVowelRoundedness, 0x6F, 1},
    {"consonant height", IPAVowelHeight, 0x62, 0},
    {"absent height", IPAVowelHeight, 0x0269, 0},
    {"absent backness", IPAVowelBackness, 0x0269, 0},
    {"absent rounding", IPAVowelRoundedness, 0x0269, 0},
};

TEST(IpaPredicates, VowelFieldGetters) {
  for (const Getter &g : kGetters) EXPECT_EQ(g.get(g.code), g.expected) << g.what;
}

TEST(IpaPredicates, WIsAVoicedLabialVelarApproximant) {
  const IPAPhonemeFeat *w = GetIPAPhonemeFeat(0x77);
  ASSERT_NE(w, nullptr);
  EXPECT_EQ(w->Place, 129);
  EXPECT_EQ(w->Voicing, 1);
  EXPECT_EQ(w->Manner, 3);
}

TEST(IpaPredicates, AbsentSymbolsHaveNoRow) {
  EXPECT_EQ(GetIPAPhonemeFeat(0x0269), nullptr);
  EXPECT_EQ(GetIPAPhonemeFeat(0), nullptr);
  EXPECT_EQ(GetIPAPhonemeFeat(0xFFFFFFFFu), nullptr);
}

struct Voiced {
  const char *what;
  const char16_t *symbol;
  int expected;
};

const Voiced kVoiced[] = {
    {"silence", u"#", 0},
    {"empty", u"", 0},
    {"absent symbol", u"\u0269", 0},
    {"vowel", u"a", 1},
    {"vowel ring below", u"a\u0325", 0},
    {"vowel ring above", u"a\u030A", 0},
    {"vowel tilde", u"a\u0303", 1},
    {"vowel tilde then ring", u"a\u0303\u0325", 1},
    {"voiced consonant", u"b", 1},
    {"voiced consonant aspirated", u"b\u02B0", 1},
    {"voiceless consonant", u"p", 0},
    {"voiceless consonant with voicing mark", u"p\u032C", 0},
    {"click", u"\u01C0", 0},
    {"epiglottal plosive", u"\u02A1", 0},
};

TEST(IpaPredicates, Voicing) {
  for (const Voiced &v : kVoiced) EXPECT_EQ(IsIPAVoiced(v.symbol), v.expected) << v.what;
  EXPECT_EQ(IsIPAVoiced(nullptr), 0);
}

TEST(IpaPredicates, SyllableHasAVowelAnywhere) {
  EXPECT_EQ(IsIPASyllable(u"str\u0259"), 1);
  EXPECT_EQ(IsIPASyllable(u"pst"), 0);
  EXPECT_EQ(IsIPASyllable(u"#"), 0);
  EXPECT_EQ(IsIPASyllable(u""), 0);
  EXPECT_EQ(IsIPASyllable(nullptr), 0);
}

}  // namespace
