// dict_image.h - the section descriptors of a dictionary image and the word,
// class and class-pair lookups over them.
#ifndef UTILS_NLP_DICT_DICT_IMAGE_H
#define UTILS_NLP_DICT_DICT_IMAGE_H

#include <cstdint>
#include <cstring>

#include "NLP/NLP_Dict/recent_runs.h"
#include "NLP/NLP_Dict/word_filter.h"
#include "nlp_dict.h"

// The descriptors are named in the public header (NLPDIC's fields point at
// them) and defined here; everything they point at is the caller's image.

// "MONOGRAM": the class inventory.
struct NLPDIC_ClassTable {
  uint32_t ClassCount;
  int32_t DefaultClass;
  const uint8_t *Names;     // ClassCount NUL-terminated UTF-16 names
  const uint8_t *Codes;     // one class code byte per name
  const uint8_t *CodesEnd;  // one past the code block
  const uint8_t *NamesEnd;  // one past the name block
  // Byte offset + 1 of the name of each code below 255 in Names, 0 for a
  // code that no byte carries: found once here, not per lattice node.
  uint32_t name_at[255];
  uint32_t name_units[255];  // the length of that name in units
  // The names of the codes as aligned UTF-16, each at decoded_at[code]
  // (in units, a multiple of four) and zero-filled to a whole number of
  // 8-byte words past its terminator, so that a node's copy of its class
  // name is a word or two; null when it could not be made (the names are
  // then read from the image).
  bsr_wchar *decoded;
  uint32_t decoded_at[255];
};

// "BIGRAM": the class-pair table, searched as if linearly (the first entry
// of a pair wins) through an index built when the dictionary is created.
struct NLPDIC_PairTable {
  uint32_t PairCount;
  const uint8_t *Entries;  // PairCount records of 12 bytes
  // The usual index: the classes that the table names numbered densely
  // (dense_of[code] = number + 1, 0 for a code it does not name) and a
  // square of entry number + 1 (0: no entry) over them, small enough to
  // stay in cache. Null when the table names too many classes.
  uint16_t *dense_of;
  uint32_t code_limit;  // codes below this have a dense_of slot
  uint32_t dense_count;
  uint32_t *square;
  // The transition scores themselves over the same numbering, for the
  // best-path search: (dense_count + 2) rows and columns, row and column 0
  // for a class the table does not name, the last for the "BEGTOK" and
  // "ENDTOK" sentinels. Null when the square is null or memory ran out
  // (the search then asks pair_entry).
  float *scores;
  // Otherwise open addressing: slot = (key, entry number + 1), 0 marking an
  // empty slot; null when that could not be made either (lookups scan).
  uint32_t *index;
  uint32_t index_mask;
};

// "WordClass": the words of one length and their readings.
struct NLPDIC_WordList {
  uint32_t L;
  uint32_t WordCount;
  const uint8_t *Words;  // WordCount words of L UTF-16 units, sorted
  uint32_t MultiCount;
  const uint8_t *MultiIndex;     // MultiCount u32 local indexes, ascending
  const uint8_t *MultiReadings;  // MultiCount u8 reading counts
  uint32_t Unread;
  float ScoreMax;
  float ScoreMin;
  const uint8_t *Readings;  // 4-byte reading records
  // For each multi-reading word, the sum of (readings - 1) over the multi
  // entries before it; null when it could not be made (then summed anew).
  uint32_t *extra_before;
};

namespace utils::nlpdict {

// Little-endian reads that need no alignment.
inline uint32_t read_u32(const uint8_t *p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 |
         static_cast<uint32_t>(p[2]) << 16 | static_cast<uint32_t>(p[3]) << 24;
}
inline uint16_t read_u16(const uint8_t *p) { return static_cast<uint16_t>(p[0] | p[1] << 8); }
inline float read_f32(const uint8_t *p) {
  const uint32_t bits = read_u32(p);
  float f;
  std::memcpy(&f, &bits, sizeof f);
  return f;
}

// The transition score of a class pair that the table does not hold, and
// of any pair with a "BEGTOK" or "ENDTOK" sentinel (that rule goes first).
inline constexpr float kMissingPair = -100.0f;
inline constexpr float kSentinelPair = -0.3f;

// Where a reading of a known word is: its list, local index and reading count.
struct WordEntry {
  const NLPDIC_WordList *list;
  uint32_t local;
  uint32_t readings;  // the number of readings (1 for a word not in MultiIndex)
  uint32_t first_record;
};

// The words of lengths 1..kIndexedUnits by their first unit, built when the
// dictionary is created so that segmentation searches, for each candidate,
// only the few words that begin like it. Built only when every indexed list
// is strictly ascending (then any search finds what the binary search
// would) and the identifiers fit 31 bits.
inline constexpr uint32_t kIndexedUnits = 6;
struct FirstUnitIndex {
  uint16_t
      *slot_of;  // by unit: its slot + 1, 0 when no indexed word begins with it; null: no index
  // Slot-major, kIndexedUnits entries a slot and one more slot at the end:
  // the local index, in the list of length L, of the first word that begins
  // with the slot's unit (entry L - 1); the next slot's entry ends the range.
  uint32_t *starts;
};

// The dictionary object as NLPDIC_Create makes it: the record callers see,
// then what only the library reads.
struct DictObject {
  NLPDIC dict;
  WordFilter filter;
  FirstUnitIndex first;
  RecentRuns *recent;  // null: segmentation searches every candidate
};

// Units 1..4 of a word of `units` units (at most 5), packed so that
// comparing the packed values compares the units in order.
inline uint64_t packed_tail(const uint8_t *word, uint32_t units) {
  uint64_t key = 0;
  for (uint32_t k = 1; k < units; ++k) key = key << 16 | read_u16(word + 2 * k);
  return key;
}

// Searches the words of length `units` (at most kIndexedUnits) that begin
// with word[0], through the index: the local index in that list, or -1.
// Call only when the index exists and slot_of[word[0]] is not 0.
inline int32_t find_indexed(const NLPDIC *dict, const FirstUnitIndex &index, uint32_t slot,
                            const bsr_wchar *word, uint32_t units) {
  const uint32_t *row = index.starts + uint64_t{slot} * kIndexedUnits + (units - 1);
  uint32_t lo = row[0], hi = row[kIndexedUnits];
  if (lo == hi) return -1;
  const uint8_t *words = dict->WordTable[units]->Words;
  const uint32_t stride = units * 2;
  if (units <= 5) {
    // The first unit is shared by the whole range; the rest fit 64 bits.
    uint64_t key = 0;
    for (uint32_t k = 1; k < units; ++k) key = key << 16 | static_cast<uint16_t>(word[k]);
    uint32_t base = lo, n = hi - lo;
    while (n > 1) {
      const uint32_t half = n / 2;
      base = packed_tail(words + uint64_t{base + half} * stride, units) <= key ? base + half : base;
      n -= half;
    }
    return packed_tail(words + uint64_t{base} * stride, units) == key ? static_cast<int32_t>(base)
                                                                      : -1;
  }
  while (lo < hi) {
    const uint32_t mid = lo + (hi - lo) / 2;
    const uint8_t *entry = words + uint64_t{mid} * stride;
    int order = 0;
    for (uint32_t k = 1; k < units && order == 0; ++k) {
      const uint16_t a = static_cast<uint16_t>(word[k]);
      const uint16_t b = read_u16(entry + 2 * k);
      order = a < b ? -1 : (a > b ? 1 : 0);
    }
    if (order == 0) return static_cast<int32_t>(mid);
    if (order > 0)
      lo = mid + 1;
    else
      hi = mid;
  }
  return -1;
}

// The slots of the dictionary's word table: MaxWordLength + 1, or 0 when
// there is no table.
inline uint32_t table_slots(const NLPDIC *dict) {
  return dict->WordTable == nullptr || dict->MaxWordLength < 0
             ? 0
             : static_cast<uint32_t>(dict->MaxWordLength) + 1;
}

// The identifier of `word` (`units` code units, zero-terminated), or -1,
// through the one-entry cache of the dictionary.
int32_t lookup_word_id(NLPDIC *dict, const bsr_wchar *word, uint32_t units);

// The list holding identifier `id` and the local index there, or null.
const NLPDIC_WordList *locate_word_entry(const NLPDIC *dict, int32_t id, uint32_t *local);

// Fills `entry` for local index `local` of `list`.
void describe_word(const NLPDIC_WordList *list, uint32_t local, WordEntry *entry);

// Class code and dequantised score of record `record` of `list`.
inline uint8_t reading_class(const NLPDIC_WordList *list, uint32_t record) {
  return list->Readings[uint64_t{record} * 4 + 1];
}
inline float reading_score(const NLPDIC_WordList *list, uint32_t record) {
  const float quant = static_cast<float>(list->Readings[uint64_t{record} * 4 + 2]);
  const float fraction = quant * 0.003921569f;
  const float scaled = (list->ScoreMax - list->ScoreMin) * fraction;
  return list->ScoreMin + scaled;
}

// The name of class `code` (in the image) and its length in units, or null.
const uint8_t *class_name(const NLPDIC_ClassTable *classes, int32_t code, uint32_t *units);

void free_class_table(NLPDIC_ClassTable *classes);

// The first class-pair record for (prev, next), or null.
const uint8_t *pair_entry(const NLPDIC_PairTable *pairs, uint16_t prev, uint16_t next);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_DICT_IMAGE_H
