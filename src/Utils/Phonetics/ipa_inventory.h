// ipa_inventory.h - inside view of the IPA inventory: the rows in code-point
// order and the constant-time lookups that the predicates are built on.
#ifndef UTILS_PHONETICS_IPA_INVENTORY_H
#define UTILS_PHONETICS_IPA_INVENTORY_H

#include "ipa_phoneme.h"

namespace utils::phonetics {

constexpr int kIpaRowCount = 115;
constexpr uint32_t kIpaSilence = 0x0023;
constexpr uint32_t kIpaSyllableBreak = 0x002E;
constexpr uint32_t kIpaWordBreak = 0x2223;
constexpr uint32_t kIpaPrimaryStress = 0x02C8;
constexpr uint32_t kIpaSecondaryStress = 0x02CC;

// The 115 rows, ascending by code point.
extern const IPAPhonemeFeat kIpaRows[kIpaRowCount];

// The row of `c` (the silence row for "#"), or null; one indexed load.
const IPAPhonemeFeat *ipa_row(uint32_t c);

// Whether `c` is one of the diacritics; one indexed load or a comparison.
bool ipa_is_diacritic(uint32_t c);

}  // namespace utils::phonetics

#endif  // UTILS_PHONETICS_IPA_INVENTORY_H
