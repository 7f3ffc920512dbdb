// word_filter.cpp - building the word filter: every word's runs of its first
// one to six units, as "word" for the whole word and "prefix" for the rest.
#include "NLP/NLP_Dict/word_filter.h"

#include "NLP/NLP_Dict/dict_image.h"
#include "bsr_string.h"

namespace utils::nlpdict {

void build_filter(const NLPDIC *dict, WordFilter *filter) {
  filter->bits = nullptr;
  filter->mask = 0;
  uint64_t keys = 0;
  const uint32_t slots = table_slots(dict);
  for (uint32_t l = 1; l < slots; ++l)
    if (dict->WordTable[l] != nullptr)
      keys += uint64_t{dict->WordTable[l]->WordCount} * (l < kFilteredUnits ? l : kFilteredUnits);
  if (keys == 0) return;
  // About sixteen bits a key: a "yes" for a non-member a few times in a
  // hundred. The count of 64-bit words is a power of two, at most 2^21
  // (16 MB), so the request fits 32 bits.
  uint64_t words = 16;
  while (words * 64 < keys * 16 && words < (uint64_t{1} << 21)) words <<= 1;
  filter->bits = static_cast<uint64_t *>(bsr_safe_calloc(static_cast<uint32_t>(words * 8)));
  if (filter->bits == nullptr) return;
  filter->mask = words - 1;
  for (uint32_t l = 1; l < slots; ++l) {
    const NLPDIC_WordList *list = dict->WordTable[l];
    if (list == nullptr) continue;
    for (uint32_t w = 0; w < list->WordCount; ++w) {
      const uint8_t *word = list->Words + uint64_t{w} * l * 2;
      uint64_t h = kFilterSeed;
      for (uint32_t p = 1; p <= l && p <= kFilteredUnits; ++p) {
        h = filter_step(h, read_u16(word + 2 * (p - 1)));
        const uint64_t mixed = filter_mix(h, p);
        filter->bits[mixed & filter->mask] |= filter_bits(mixed, p < l);
      }
    }
  }
}

}  // namespace utils::nlpdict
