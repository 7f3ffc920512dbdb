// ipa_predicates_test.cpp - what the per-symbol sweep of the inventory test
// does not reach: codes above 16 bits, symbol strings with diacritics or more
// than one symbol, and empty or null strings.
#include <gtest/gtest.h>

#include <cstdint>

#include "ipa_phoneme.h"

namespace {

// Their low 16 bits are an inventory symbol and a diacritic.
TEST(IpaPredicates, CodesAboveSixteenBitsAreNothing) {
  EXPECT_EQ(IsIPAPhoneme(0x10061), 0);
  EXPECT_EQ(IsIPADiacritics(0x1030A), 0);
  EXPECT_EQ(GetIPAPhonemeFeat(0x10061), nullptr);
  EXPECT_EQ(GetIPAPhonemeFeat(0xFFFFFFFFu), nullptr);
  EXPECT_EQ(GetIPAPhonemeFeat(0x0269), nullptr);
  EXPECT_EQ(GetIPAPhonemeFeat(0), nullptr);
}

TEST(IpaPredicates, VoicingReadsTheFirstDiacritic) {
  struct Voiced {
    const char16_t *symbol;
    int expected;
  };
  const Voiced kVoiced[] = {
      {u"", 0},
      {u"a\u0325", 0},        // ring below
      {u"a\u030A", 0},        // ring above
      {u"a\u0303", 1},        // tilde
      {u"a\u0303\u0325", 1},  // only the first diacritic counts
      {u"b\u02B0", 1},
      {u"p\u032C", 0},  // a voicing mark does not voice a voiceless consonant
      {u"#\u0303", 0},
  };
  for (const Voiced &v : kVoiced)
    EXPECT_EQ(IsIPAVoiced(v.symbol), v.expected) << ::testing::PrintToString(v.symbol);
  EXPECT_EQ(IsIPAVoiced(nullptr), 0);
}

TEST(IpaPredicates, SyllableHasAVowelAnywhere) {
  EXPECT_EQ(IsIPASyllable(u"str\u0259"), 1);
  EXPECT_EQ(IsIPASyllable(u"pst"), 0);
  EXPECT_EQ(IsIPASyllable(u""), 0);
  EXPECT_EQ(IsIPASyllable(nullptr), 0);
}

}  // namespace
