// ipa_inventory_test.cpp - the IPA inventory against a table of its own: each
// symbol described by its phonetic name ("voiced bilabial plosive"), the
// names translated into the expected fields here, so that a mistyped number
// in the library's rows shows up as a disagreement with the name.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ipa_phoneme.h"

namespace {

struct Named {
  uint32_t code;
  std::string name;
};

// The sj-sound U+0267 has no place bit in the inventory: "unplaced".
// Clicks and the epiglottal plosive carry no voicing word.
const char kNamedText[] = R"(
0061 open front unrounded vowel; 0062 voiced bilabial plosive; 0063 voiceless palatal plosive;
0064 voiced alveolar plosive; 0065 close-mid front unrounded vowel;
0066 voiceless labiodental fricative; 0067 voiced velar plosive;
0068 voiceless glottal fricative; 0069 close front unrounded vowel;
006A voiced palatal approximant; 006B voiceless velar plosive;
006C voiced alveolar lateral approximant; 006D voiced bilabial nasal;
006E voiced alveolar nasal; 006F close-mid back rounded vowel;
0070 voiceless bilabial plosive; 0071 voiceless uvular plosive; 0072 voiced alveolar trill;
0073 voiceless alveolar fricative; 0074 voiceless alveolar plosive;
0075 close back rounded vowel; 0076 voiced labiodental fricative;
0077 voiced labial-velar approximant; 0078 voiceless velar fricative;
0079 close front rounded vowel; 007A voiced alveolar fricative;
00E6 near-open front unrounded vowel; 00E7 voiceless palatal fricative;
00F0 voiced dental fricative; 00F8 close-mid front rounded vowel;
0127 voiceless pharyngeal fricative; 014B voiced velar nasal;
0153 open-mid front rounded vowel; 01C0 dental click; 01C1 alveolar lateral click;
01C2 postalveolar click; 01C3 alveolar click; 0250 near-open central vowel;
0251 open back unrounded vowel; 0252 open back rounded vowel; 0253 voiced bilabial implosive;
0254 open-mid back rounded vowel; 0255 voiceless alveolo-palatal fricative;
0256 voiced retroflex plosive; 0257 voiced alveolar implosive;
0258 close-mid central unrounded vowel; 0259 mid central vowel;
025A open-mid central unrounded vowel; 025B open-mid front unrounded vowel;
025C open-mid central unrounded vowel; 025D open-mid central unrounded vowel;
025E open-mid central rounded vowel; 025F voiced palatal plosive; 0260 voiced velar implosive;
0261 voiced velar plosive; 0262 voiced uvular plosive; 0263 voiced velar fricative;
0264 close-mid back unrounded vowel; 0265 voiced labial-palatal approximant;
0266 voiced glottal fricative; 0267 voiceless unplaced fricative;
0268 close central unrounded vowel; 026A near-close near-front unrounded vowel;
026C voiceless alveolar lateral fricative; 026D voiced retroflex lateral approximant;
026E voiced alveolar lateral fricative; 026F close back unrounded vowel;
0270 voiced velar approximant; 0271 voiced labiodental nasal; 0272 voiced palatal nasal;
0273 voiced retroflex nasal; 0274 voiced uvular nasal; 0275 close-mid central rounded vowel;
0276 open front rounded vowel; 0278 voiceless bilabial fricative;
0279 voiced alveolar approximant; 027A voiced alveolar lateral tap;
027B voiced retroflex approximant; 027D voiced retroflex tap; 027E voiced alveolar tap;
0280 voiced uvular trill; 0281 voiced uvular fricative; 0282 voiceless retroflex fricative;
0283 voiceless postalveolar fricative; 0284 voiced palatal implosive;
0288 voiceless retroflex plosive; 0289 close central rounded vowel;
028A near-close near-back rounded vowel; 028B voiced labiodental approximant;
028C open-mid back unrounded vowel; 028D voiceless labial-velar approximant;
028E voiced palatal lateral approximant; 028F near-close near-front rounded vowel;
0290 voiced retroflex fricative; 0291 voiced alveolo-palatal fricative;
0292 voiced postalveolar fricative; 0294 voiceless glottal plosive;
0295 voiced pharyngeal fricative; 0298 bilabial click; 0299 voiced bilabial trill;
029B voiced uvular implosive; 029C voiceless epiglottal fricative;
029D voiced palatal fricative; 029F voiced velar lateral approximant; 02A1 epiglottal plosive;
02A2 voiced epiglottal fricative; 02A3 voiced alveolar affricate;
02A4 voiced postalveolar affricate; 02A5 voiced alveolo-palatal affricate;
02A6 voiceless alveolar affricate; 02A7 voiceless postalveolar affricate;
02A8 voiceless alveolo-palatal affricate; 03B2 voiced bilabial fricative;
03B8 voiceless dental fricative; 03C7 voiceless uvular fricative;
)";

// The table as records: "XXXX name" entries separated by ';'.
std::vector<Named> named_symbols() {
  std::vector<Named> out;
  std::istringstream in(kNamedText);
  for (std::string entry; std::getline(in, entry, ';');) {
    const size_t at = entry.find_first_not_of(" \n");
    if (at == std::string::npos) continue;
    out.push_back({static_cast<uint32_t>(std::stoul(entry.substr(at, 4), nullptr, 16)),
                   entry.substr(at + 5)});
  }
  return out;
}

const std::vector<Named> kNamed = named_symbols();

const uint32_t kDiacritics[] = {
    0x02BC, 0x0329, 0x032F, 0x02B0, 0x207F, 0x02E1, 0x031A, 0x030A, 0x0325, 0x032D, 0x032C, 0x0324,
    0x0330, 0x033C, 0x032A, 0x033A, 0x033B, 0x031F, 0x0320, 0x0308, 0x033D, 0x031E, 0x031D, 0x0339,
    0x031C, 0x02B7, 0x02B2, 0x02E0, 0x1DA3, 0x02E4, 0x0334, 0x0318, 0x0319, 0x0303, 0x02DE, 0x02B4};

struct Fields {
  int klass = 0, height = 0, backness = 0, rounding = 0, manner = 0, place = 0;
  int voicing = 0, nasality = 0, laterality = 0, airstream = 0;
};

// Translates a phonetic name into the inventory's numbers.
Fields fields_of(const std::string &name) {
  static const std::map<std::string, int> kHeight = {
      {"close", 1},    {"near-close", 2}, {"close-mid", 3}, {"mid", 4},
      {"open-mid", 5}, {"near-open", 6},  {"open", 7}};
  static const std::map<std::string, int> kBackness = {
      {"front", 1}, {"near-front", 2}, {"central", 3}, {"near-back", 4}, {"back", 5}};
  static const std::map<std::string, int> kPlace = {
      {"bilabial", 1},       {"labiodental", 2},     {"dental", 4},           {"alveolar", 8},
      {"postalveolar", 16},  {"retroflex", 32},      {"palatal", 64},         {"velar", 128},
      {"uvular", 256},       {"pharyngeal", 512},    {"epiglottal", 1024},    {"glottal", 2048},
      {"labial-velar", 129}, {"labial-palatal", 65}, {"alveolo-palatal", 72}, {"unplaced", 0}};
  static const std::map<std::string, int> kManner = {
      {"plosive", 1}, {"nasal", 1}, {"implosive", 1}, {"fricative", 2}, {"approximant", 3},
      {"trill", 4},   {"tap", 5},   {"click", 6},     {"affricate", 7}};
  Fields f;
  std::istringstream words(name);
  std::string w;
  bool lateral = false;
  while (words >> w) {
    if (w == "vowel") {
      f.klass = 1;
    } else if (kHeight.count(w) != 0 && f.height == 0) {
      f.height = kHeight.at(w);
    } else if (kBackness.count(w) != 0) {
      f.backness = kBackness.at(w);
    } else if (w == "rounded") {
      f.rounding = 1;
    } else if (w == "unrounded") {
      f.rounding = 2;
    } else if (w == "voiced") {
      f.voicing = 1;
    } else if (w == "voiceless") {
      f.voicing = 2;
    } else if (w == "lateral") {
      lateral = true;
    } else if (kPlace.count(w) != 0) {
      f.place = kPlace.at(w);
    } else if (kManner.count(w) != 0) {
      f.klass = 2;
      f.manner = kManner.at(w);
      f.nasality = w == "nasal" ? 2 : w == "click" ? 3 : 1;
      f.airstream = w == "implosive" ? 6 : w == "click" ? 4 : 1;
    } else {
      ADD_FAILURE() << "unknown word " << w << " in " << name;
    }
  }
  if (f.klass == 2) {
    const bool throat = f.place == 512 || f.place == 1024 || f.place == 2048;
    f.laterality = lateral ? 2 : throat ? 0 : 1;
  }
  return f;
}

TEST(IpaInventory, EveryRowAgreesWithThePhoneticName) {
  ASSERT_EQ(kNamed.size(), 115u);
  for (const Named &n : kNamed) {
    SCOPED_TRACE(n.name);
    const IPAPhonemeFeat *row = GetIPAPhonemeFeat(n.code);
    ASSERT_NE(row, nullptr);
    const Fields f = fields_of(n.name);
    EXPECT_EQ(row->CodePoint, n.code);
    EXPECT_EQ(row->Class, f.klass);
    EXPECT_EQ(row->Height, f.height);
    EXPECT_EQ(row->Backness, f.backness);
    EXPECT_EQ(row->Rounding, f.rounding);
    EXPECT_EQ(row->Manner, f.manner);
    EXPECT_EQ(row->Reserved, 0);
    EXPECT_EQ(row->Place, f.place);
    EXPECT_EQ(row->Voicing, f.voicing);
    EXPECT_EQ(row->Nasality, f.nasality);
    EXPECT_EQ(row->Laterality, f.laterality);
    EXPECT_EQ(row->Airstream, f.airstream);
  }
}

TEST(IpaInventory, RowFieldsLieInTheirOrder) {
  EXPECT_EQ(offsetof(IPAPhonemeFeat, CodePoint), 0u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Class), 2u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Height), 3u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Backness), 4u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Rounding), 5u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Manner), 6u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Reserved), 7u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Place), 8u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Voicing), 10u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Nasality), 11u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Laterality), 12u);
  EXPECT_EQ(offsetof(IPAPhonemeFeat, Airstream), 13u);
}

TEST(IpaInventory, OnlyTheNamedSymbolsAndSilenceHaveRows) {
  std::set<uint32_t> named;
  for (const Named &n : kNamed) named.insert(n.code);
  for (uint32_t c = 0; c <= 0x10000; ++c) {
    const bool expected = named.count(c) != 0 || c == 0x23;
    ASSERT_EQ(IsIPAPhoneme(c), expected ? 1 : 0) << std::hex << c;
  }
}

// Every predicate and getter over the whole 16-bit range, answered from the
// phonetic names: a symbol outside the table answers 0 everywhere, silence
// answers only the two questions about silence.
TEST(IpaInventory, EveryPredicateAgreesWithThePhoneticNames) {
  std::map<uint32_t, Fields> rows;
  for (const Named &n : kNamed) rows[n.code] = fields_of(n.name);
  using Question = int (*)(uint32_t);
  struct Asked {
    const char *what;
    Question ask;
    int (*expect)(const Fields &);
  };
  const Asked kAsked[] = {
      {"vowel", IsIPAVowel, [](const Fields &f) { return int{f.klass == 1}; }},
      {"consonant", IsIPAConsonant, [](const Fields &f) { return int{f.klass == 2}; }},
      {"height", IPAVowelHeight, [](const Fields &f) { return f.height; }},
      {"backness", IPAVowelBackness, [](const Fields &f) { return f.backness; }},
      {"rounding", IPAVowelRoundedness, [](const Fields &f) { return f.rounding; }},
      {"close", IsIPAVowelClose, [](const Fields &f) { return int{f.height == 1}; }},
      {"near-close", IsIPAVowelNearClose, [](const Fields &f) { return int{f.height == 2}; }},
      {"close-mid", IsIPAVowelCloseMid, [](const Fields &f) { return int{f.height == 3}; }},
      {"mid", IsIPAVowelMid, [](const Fields &f) { return int{f.height == 4}; }},
      {"open-mid", IsIPAVowelOpenMid, [](const Fields &f) { return int{f.height == 5}; }},
      {"near-open", IsIPAVowelNearOpen, [](const Fields &f) { return int{f.height == 6}; }},
      {"open", IsIPAVowelOpen, [](const Fields &f) { return int{f.height == 7}; }},
      {"nasal", IsIPANasal, [](const Fields &f) { return int{f.manner == 1 && f.nasality == 2}; }},
      {"plosive", IsIPAPlosive,
       [](const Fields &f) { return int{f.manner == 1 && f.nasality != 2}; }},
      {"fricative", IsIPAFricative, [](const Fields &f) { return int{f.manner == 2}; }},
      {"approximant", IsIPAApproximant, [](const Fields &f) { return int{f.manner == 3}; }},
      {"trill", IsIPATrill, [](const Fields &f) { return int{f.manner == 4}; }},
      {"tap", IsIPATapOrFlap, [](const Fields &f) { return int{f.manner == 5}; }},
      {"affricate", IsIPAAffricate, [](const Fields &f) { return int{f.manner == 7}; }},
      {"lateral", IsIPALateral, [](const Fields &f) { return int{f.laterality == 2}; }},
      {"silence", IsIPASilence, [](const Fields &) { return 0; }},
  };
  for (uint32_t c = 0; c <= 0x10000; ++c) {
    const auto row = rows.find(c);
    for (const Asked &a : kAsked) {
      int expected = row != rows.end() ? a.expect(row->second) : 0;
      if (c == 0x23 && a.ask == IsIPASilence) expected = 1;
      ASSERT_EQ(a.ask(c), expected) << a.what << " of " << std::hex << c;
    }
    if (c == 0 || c > 0xFFFF) continue;
    // The one-symbol strings: voiced when a vowel or Voicing 1, a
    // syllable when a vowel.
    const char16_t alone[2] = {static_cast<char16_t>(c), 0};
    const bool vowel = row != rows.end() && row->second.klass == 1;
    const bool voiced = vowel || (row != rows.end() && row->second.voicing == 1);
    ASSERT_EQ(IsIPAVoiced(alone), voiced ? 1 : 0) << std::hex << c;
    ASSERT_EQ(IsIPASyllable(alone), vowel ? 1 : 0) << std::hex << c;
  }
}

TEST(IpaInventory, SilenceRowIsZeroButItsCodePoint) {
  const IPAPhonemeFeat *row = GetIPAPhonemeFeat(0x23);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->CodePoint, 0x23);
  EXPECT_EQ(row->Class, 0);
  EXPECT_EQ(row->Manner, 0);
  EXPECT_EQ(row->Place, 0);
  EXPECT_EQ(row->Airstream, 0);
}

TEST(IpaInventory, SetListsTheRowsInAscendingOrder) {
  bsr_wchar set[117];
  set[116] = 0x7777;  // must stay untouched
  GetIPAPhonemeSet(set);
  EXPECT_EQ(GetNumIPAPhoneme(), 115);
  for (int r = 0; r < 115; ++r) EXPECT_EQ(set[r], kNamed[r].code) << r;
  EXPECT_EQ(set[115], 0);
  EXPECT_EQ(set[116], 0x7777);
}

TEST(IpaInventory, DiacriticsAreExactlyTheThirtySix) {
  std::set<uint32_t> listed(std::begin(kDiacritics), std::end(kDiacritics));
  ASSERT_EQ(listed.size(), 36u);
  for (uint32_t c = 0; c <= 0x10000; ++c) {
    ASSERT_EQ(IsIPADiacritics(c), listed.count(c) != 0 ? 1 : 0) << std::hex << c;
  }
}

TEST(IpaInventory, SpecialSymbols) {
  EXPECT_EQ(IPASilence(), 0x0023u);
  EXPECT_EQ(IPASyllableBreak(), 0x002Eu);
  EXPECT_EQ(IPAWordBreak(), 0x2223u);
  EXPECT_EQ(IPAPrimaryStress(), 0x02C8u);
  EXPECT_EQ(IPASecondaryStress(), 0x02CCu);
}

}  // namespace
