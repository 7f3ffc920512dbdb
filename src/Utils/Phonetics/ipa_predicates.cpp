// ipa_predicates.cpp - the exported questions about IPA symbols, each one
// lookup in the inventory's index followed by a field test.
#include "Utils/Phonetics/ipa_inventory.h"

using utils::phonetics::ipa_row;

namespace {

// Stop manner covers plosives and nasals; Nasality tells them apart.
constexpr int8_t kClassVowel = 1;
constexpr int8_t kClassConsonant = 2;
constexpr int8_t kMannerStop = 1;
constexpr int8_t kMannerFricative = 2;
constexpr int8_t kMannerApproximant = 3;
constexpr int8_t kMannerTrill = 4;
constexpr int8_t kMannerTapOrFlap = 5;
constexpr int8_t kMannerAffricate = 7;
constexpr int8_t kNasal = 2;
constexpr int8_t kLateral = 2;
constexpr int8_t kVoiced = 1;
constexpr uint32_t kRingAbove = 0x030A;
constexpr uint32_t kRingBelow = 0x0325;

// An absent symbol has no row and the silence row is all zero, so every
// field test below answers 0 for both.
int8_t class_of(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr ? row->Class : 0;
}

int height_of(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr ? row->Height : 0;
}

bool manner_is(uint32_t c, int8_t manner) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr && row->Manner == manner;
}

}  // namespace

extern "C" {

UTILS_API const IPAPhonemeFeat *GetIPAPhonemeFeat(uint32_t c) { return ipa_row(c); }

UTILS_API int IsIPAPhoneme(uint32_t c) { return ipa_row(c) != nullptr; }

UTILS_API int IsIPASilence(uint32_t c) { return c == utils::phonetics::kIpaSilence; }

UTILS_API int IsIPADiacritics(uint32_t c) { return utils::phonetics::ipa_is_diacritic(c); }

UTILS_API int IsIPASyllable(const bsr_wchar *s) {
  if (s == nullptr) return 0;
  for (; *s != 0; ++s) {
    if (class_of(*s) == kClassVowel) return 1;
  }
  return 0;
}

UTILS_API int IsIPAVowel(uint32_t c) { return class_of(c) == kClassVowel; }

UTILS_API int IsIPAConsonant(uint32_t c) { return class_of(c) == kClassConsonant; }

UTILS_API int IPAVowelHeight(uint32_t c) { return height_of(c); }

UTILS_API int IPAVowelBackness(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr ? row->Backness : 0;
}

UTILS_API int IPAVowelRoundedness(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr ? row->Rounding : 0;
}

UTILS_API int IsIPAVowelClose(uint32_t c) { return height_of(c) == 1; }
UTILS_API int IsIPAVowelNearClose(uint32_t c) { return height_of(c) == 2; }
UTILS_API int IsIPAVowelCloseMid(uint32_t c) { return height_of(c) == 3; }
UTILS_API int IsIPAVowelMid(uint32_t c) { return height_of(c) == 4; }
UTILS_API int IsIPAVowelOpenMid(uint32_t c) { return height_of(c) == 5; }
UTILS_API int IsIPAVowelNearOpen(uint32_t c) { return height_of(c) == 6; }
UTILS_API int IsIPAVowelOpen(uint32_t c) { return height_of(c) == 7; }

UTILS_API int IsIPANasal(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr && row->Manner == kMannerStop && row->Nasality == kNasal;
}

UTILS_API int IsIPAPlosive(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr && row->Manner == kMannerStop && row->Nasality != kNasal;
}

UTILS_API int IsIPAFricative(uint32_t c) { return manner_is(c, kMannerFricative); }
UTILS_API int IsIPAApproximant(uint32_t c) { return manner_is(c, kMannerApproximant); }
UTILS_API int IsIPATrill(uint32_t c) { return manner_is(c, kMannerTrill); }
UTILS_API int IsIPATapOrFlap(uint32_t c) { return manner_is(c, kMannerTapOrFlap); }
UTILS_API int IsIPAAffricate(uint32_t c) { return manner_is(c, kMannerAffricate); }

UTILS_API int IsIPALateral(uint32_t c) {
  const IPAPhonemeFeat *row = ipa_row(c);
  return row != nullptr && row->Laterality == kLateral;
}

UTILS_API int IsIPAVoiced(const bsr_wchar *s) {
  if (s == nullptr || s[0] == 0 || s[0] == utils::phonetics::kIpaSilence) return 0;
  const IPAPhonemeFeat *row = ipa_row(s[0]);
  if (row == nullptr) return 0;
  if (row->Class != kClassVowel && row->Voicing != kVoiced) return 0;
  if (s[1] == 0) return 1;
  // Only the first diacritic decides: a ring marks the symbol voiceless.
  return s[1] != kRingAbove && s[1] != kRingBelow;
}

UTILS_API uint32_t IPASilence(void) { return utils::phonetics::kIpaSilence; }
UTILS_API uint32_t IPASyllableBreak(void) { return utils::phonetics::kIpaSyllableBreak; }
UTILS_API uint32_t IPAWordBreak(void) { return utils::phonetics::kIpaWordBreak; }
UTILS_API uint32_t IPAPrimaryStress(void) { return utils::phonetics::kIpaPrimaryStress; }
UTILS_API uint32_t IPASecondaryStress(void) { return utils::phonetics::kIpaSecondaryStress; }

UTILS_API int GetNumIPAPhoneme(void) { return utils::phonetics::kIpaRowCount; }

UTILS_API void GetIPAPhonemeSet(bsr_wchar *buf) {
  if (buf == nullptr) return;
  for (int r = 0; r < utils::phonetics::kIpaRowCount; ++r) {
    buf[r] = utils::phonetics::kIpaRows[r].CodePoint;
  }
  buf[utils::phonetics::kIpaRowCount] = 0;
}

}  // extern "C"
