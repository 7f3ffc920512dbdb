// dict_image.h - the section descriptors of a dictionary image and the word,
// class and class-pair lookups over them.
#ifndef UTILS_NLP_DICT_DICT_IMAGE_H
#define UTILS_NLP_DICT_DICT_IMAGE_H

#include <cstdint>
#include <cstring>

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

// Where a reading of a known word is: its list, local index and reading count.
struct WordEntry {
  const NLPDIC_WordList *list;
  uint32_t local;
  uint32_t readings;  // the number of readings (1 for a word not in MultiIndex)
  uint32_t first_record;
};

// A Bloom filter over the words and their proper prefixes, built when the
// dictionary is created, that lets segmentation skip the binary searches
// of candidates that cannot be words and stop extending a candidate that
// no longer word begins with. A "no" is certain; a "yes" is then searched.
struct WordFilter {
  uint64_t *bits;  // null: no filter (every candidate is searched)
  uint64_t mask;   // 64-bit words - 1
};

// The dictionary object as NLPDIC_Create makes it: the record callers see,
// then what only the library reads.
struct DictObject {
  NLPDIC dict;
  WordFilter filter;
};

// The filter's hash of a run of units, extended one unit at a time:
// filter_step(filter_step(kFilterSeed, a), b) for the run "ab".
inline constexpr uint64_t kFilterSeed = 1469598103934665603ull;
inline uint64_t filter_step(uint64_t h, uint16_t unit) { return (h ^ unit) * 1099511628211ull; }

// What the filter says of the run whose hash is `h` and length `units`:
// bit 0 set when it may be a word, bit 1 when it may be a proper prefix of
// a longer word. Both set when there is no filter.
unsigned filter_probe(const NLPDIC *dict, uint64_t h, uint32_t units);

// The identifier of `word` (`units` code units, zero-terminated), or -1,
// through the one-entry cache of the dictionary.
int32_t lookup_word_id(NLPDIC *dict, const bsr_wchar *word, uint32_t units);

// The list holding identifier `id` and the local index there, or null.
const NLPDIC_WordList *locate_word_entry(const NLPDIC *dict, int32_t id, uint32_t *local);

// Fills `entry` for local index `local` of `list`.
void describe_word(const NLPDIC_WordList *list, uint32_t local, WordEntry *entry);

// Class code and dequantised score of record `record` of `list`.
uint8_t reading_class(const NLPDIC_WordList *list, uint32_t record);
float reading_score(const NLPDIC_WordList *list, uint32_t record);

// The name of class `code` (in the image) and its length in units, or null.
const uint8_t *class_name(const NLPDIC_ClassTable *classes, int32_t code, uint32_t *units);

// The first class-pair record for (prev, next), or null.
const uint8_t *pair_entry(const NLPDIC_PairTable *pairs, uint16_t prev, uint16_t next);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_DICT_IMAGE_H
