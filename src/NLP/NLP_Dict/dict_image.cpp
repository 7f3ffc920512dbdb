// dict_image.cpp - NLPDIC_Create and NLPDIC_Destroy: the image's sections
// parsed in place into descriptors, and the word, class and class-pair
// lookups that segmentation and phrase breaks make over them.
#include "NLP/NLP_Dict/dict_image.h"

#include <initializer_list>

#include "NLP/NLP_Dict/model_holder.h"
#include "bsr_string.h"

namespace utils::nlpdict {
namespace {

// The keyword field: the keyword, its NUL and zero padding to 4 bytes.
uint32_t keyword_field(const char *keyword) { return (bsr_strlen(keyword) + 1 + 3) & ~3u; }

uint32_t pad4(uint64_t n) { return static_cast<uint32_t>((n + 3) & ~uint64_t{3}); }

// Requests are 32-bit; a larger one is refused like exhausted memory.
void *zeroed(uint64_t size) {
  if (size > UINT32_MAX) return nullptr;
  return bsr_safe_calloc(static_cast<uint32_t>(size == 0 ? 1 : size));
}

// Units of a name's padded copy: its units and terminator, rounded up to
// whole 8-byte words.
uint32_t padded_units(uint32_t units) { return (units + 1 + 3) & ~3u; }

void decode_names(NLPDIC_ClassTable *t) {
  uint64_t total = 0;
  for (uint32_t c = 0; c < 255; ++c)
    if (t->name_at[c] != 0) total += padded_units(t->name_units[c]);
  t->decoded = static_cast<bsr_wchar *>(zeroed((total == 0 ? 1 : total) * sizeof(bsr_wchar)));
  if (t->decoded == nullptr) return;
  uint32_t at = 0;
  for (uint32_t c = 0; c < 255; ++c) {
    if (t->name_at[c] == 0) continue;
    t->decoded_at[c] = at;
    const uint8_t *name = t->Names + t->name_at[c] - 1;
    for (uint32_t k = 0; k < t->name_units[c]; ++k) t->decoded[at + k] = read_u16(name + 2 * k);
    at += padded_units(t->name_units[c]);
  }
}

NLPDIC_ClassTable *make_class_table(const uint8_t *body) {
  auto *t = static_cast<NLPDIC_ClassTable *>(zeroed(sizeof(NLPDIC_ClassTable)));
  if (t == nullptr) return nullptr;
  t->ClassCount = read_u32(body);
  t->DefaultClass = static_cast<int32_t>(read_u32(body + 4));
  const uint32_t names_bytes = read_u32(body + 8);
  const uint32_t codes_bytes = read_u32(body + 12);
  t->Names = body + 20;
  t->NamesEnd = t->Names + names_bytes;
  t->Codes = t->NamesEnd;
  t->CodesEnd = t->Codes + codes_bytes;
  // The name of code c is the j-th name for the first code byte j equal to
  // c; walk the names once, stopping at the end of the name block.
  const uint8_t *name = t->Names;
  for (const uint8_t *code = t->Codes; code < t->CodesEnd; ++code) {
    if (name == nullptr) break;
    const uint8_t *p = name;
    while (p + 1 < t->NamesEnd && read_u16(p) != 0) p += 2;
    if (*code < 255 && t->name_at[*code] == 0) {
      t->name_at[*code] = static_cast<uint32_t>(name - t->Names) + 1;
      t->name_units[*code] = static_cast<uint32_t>(p - name) / 2;
    }
    name = (p + 1 < t->NamesEnd) ? p + 2 : nullptr;
  }
  if (names_bytes < (1u << 20)) decode_names(t);
  return t;
}

uint32_t hash_pair(uint32_t key) { return (key * 2654435761u) >> 7; }

// Classes a square index may number; beyond this the square would not stay
// in cache, and the hashed index serves.
constexpr uint32_t kMaxDenseClasses = 256;

void make_score_square(NLPDIC_PairTable *t) {
  const uint32_t side = t->dense_count + 2;
  t->scores = static_cast<float *>(zeroed(uint64_t{side} * side * sizeof(float)));
  if (t->scores == nullptr) return;
  for (uint32_t a = 0; a < side; ++a)
    for (uint32_t c = 0; c < side; ++c) {
      float score = kMissingPair;
      if (a == side - 1 || c == side - 1) {
        score = kSentinelPair;
      } else if (a > 0 && c > 0) {
        const uint32_t found = t->square[(a - 1) * t->dense_count + c - 1];
        if (found != 0) score = read_f32(t->Entries + uint64_t{found - 1} * 12 + 4);
      }
      t->scores[a * side + c] = score;
    }
}

bool make_square(NLPDIC_PairTable *t) {
  uint32_t limit = 0;
  for (uint32_t e = 0; e < t->PairCount; ++e) {
    const uint8_t *entry = t->Entries + uint64_t{e} * 12;
    const uint32_t a = read_u16(entry), b = read_u16(entry + 2);
    if (a + 1 > limit) limit = a + 1;
    if (b + 1 > limit) limit = b + 1;
  }
  t->dense_of = static_cast<uint16_t *>(zeroed(uint64_t{limit} * 2));
  if (t->dense_of == nullptr) return false;
  t->code_limit = limit;
  uint32_t count = 0;
  for (uint32_t e = 0; e < t->PairCount && count <= kMaxDenseClasses; ++e) {
    const uint8_t *entry = t->Entries + uint64_t{e} * 12;
    for (const uint16_t code : {read_u16(entry), read_u16(entry + 2)})
      if (t->dense_of[code] == 0 && ++count <= kMaxDenseClasses)
        t->dense_of[code] = static_cast<uint16_t>(count);
  }
  if (count > kMaxDenseClasses) return false;
  t->dense_count = count;
  t->square = static_cast<uint32_t *>(zeroed(uint64_t{count} * count * 4));
  if (t->square == nullptr) return false;
  for (uint32_t e = 0; e < t->PairCount; ++e) {
    const uint8_t *entry = t->Entries + uint64_t{e} * 12;
    uint32_t &slot = t->square[(t->dense_of[read_u16(entry)] - 1u) * count +
                               t->dense_of[read_u16(entry + 2)] - 1u];
    if (slot == 0) slot = e + 1;  // an earlier entry of the pair wins
  }
  make_score_square(t);
  return true;
}

NLPDIC_PairTable *make_pair_table(const uint8_t *body) {
  auto *t = static_cast<NLPDIC_PairTable *>(zeroed(sizeof(NLPDIC_PairTable)));
  if (t == nullptr) return nullptr;
  t->PairCount = read_u32(body);
  t->Entries = body + 4;
  if (make_square(t)) return t;
  bsr_free(t->dense_of);
  bsr_free(t->square);
  bsr_free(t->scores);
  t->dense_of = nullptr;
  t->square = nullptr;
  t->scores = nullptr;
  // A table of at least twice the pairs keeps probe runs short; without
  // memory for it the lookups scan, with the same results.
  uint64_t slots = 16;
  while (slots < uint64_t{t->PairCount} * 2) slots <<= 1;
  if (slots <= (uint64_t{1} << 28)) t->index = static_cast<uint32_t *>(zeroed(slots * 8));
  if (t->index != nullptr) {
    t->index_mask = static_cast<uint32_t>(slots - 1);
    for (uint32_t e = 0; e < t->PairCount; ++e) {
      const uint8_t *entry = t->Entries + uint64_t{e} * 12;
      const uint32_t key = static_cast<uint32_t>(read_u16(entry)) << 16 | read_u16(entry + 2);
      for (uint32_t s = hash_pair(key) & t->index_mask;; s = (s + 1) & t->index_mask) {
        if (t->index[2 * s + 1] == 0) {
          t->index[2 * s] = key;
          t->index[2 * s + 1] = e + 1;
          break;
        }
        if (t->index[2 * s] == key) break;  // an earlier entry of the pair wins
      }
    }
  }
  return t;
}

NLPDIC_WordList *make_word_list(uint32_t length, const uint8_t *body) {
  auto *w = static_cast<NLPDIC_WordList *>(zeroed(sizeof(NLPDIC_WordList)));
  if (w == nullptr) return nullptr;
  const uint8_t *p = body;
  w->L = length;
  w->WordCount = read_u32(p);
  w->Words = p + 4;
  p = w->Words + pad4(uint64_t{w->WordCount} * length * 2);
  w->MultiCount = read_u32(p);
  w->MultiIndex = p + 4;
  w->MultiReadings = w->MultiIndex + uint64_t{w->MultiCount} * 4;
  p = w->MultiReadings + pad4(w->MultiCount);
  w->Unread = read_u32(p);
  w->ScoreMax = read_f32(p + 4);
  w->ScoreMin = read_f32(p + 8);
  w->Readings = p + 12;
  if (w->MultiCount > 0) {
    w->extra_before = static_cast<uint32_t *>(zeroed(uint64_t{w->MultiCount} * 4));
    if (w->extra_before != nullptr) {
      uint32_t sum = 0;
      for (uint32_t m = 0; m < w->MultiCount; ++m) {
        w->extra_before[m] = sum;
        sum += static_cast<uint32_t>(w->MultiReadings[m]) - 1;
      }
    }
  }
  return w;
}

void free_word_list(NLPDIC_WordList *w) {
  if (w == nullptr) return;
  bsr_free(w->extra_before);
  bsr_free(w);
}

void free_pair_table(NLPDIC_PairTable *t) {
  if (t == nullptr) return;
  bsr_free(t->dense_of);
  bsr_free(t->square);
  bsr_free(t->scores);
  bsr_free(t->index);
  bsr_free(t);
}

void free_word_table(NLPDIC *dict) {
  const uint32_t slots = table_slots(dict);
  for (uint32_t l = 0; l < slots; ++l) free_word_list(dict->WordTable[l]);
  bsr_free(dict->WordTable);
  dict->WordTable = nullptr;
}

// The first unit of word `w` of `list`.
uint16_t first_unit(const NLPDIC_WordList *list, uint32_t w) {
  return read_u16(list->Words + uint64_t{w} * list->L * 2);
}

// True when the words of `list` ascend strictly (compared unit by unit as
// unsigned 16-bit values, as the lookup compares them).
bool strictly_ascending(const NLPDIC_WordList *list) {
  const uint32_t units = list->L;
  for (uint32_t w = 1; w < list->WordCount; ++w) {
    const uint8_t *a = list->Words + (uint64_t{w} - 1) * units * 2;
    const uint8_t *b = a + units * 2;
    uint32_t k = 0;
    while (k < units && read_u16(a + 2 * k) == read_u16(b + 2 * k)) ++k;
    if (k == units || read_u16(a + 2 * k) > read_u16(b + 2 * k)) return false;
  }
  return true;
}

void build_first_index(DictObject *object) {
  NLPDIC *dict = &object->dict;
  FirstUnitIndex &index = object->first;
  const uint32_t slots = table_slots(dict);
  uint64_t base = 0;
  for (uint32_t l = 1; l < slots; ++l) {
    const NLPDIC_WordList *list = dict->WordTable[l];
    if (list == nullptr) continue;
    if (l <= kIndexedUnits && !strictly_ascending(list)) return;
    base += list->WordCount;
  }
  // Identifiers beyond 31 bits would not be found by the lookup.
  if (base > static_cast<uint64_t>(INT32_MAX)) return;
  index.slot_of = static_cast<uint16_t *>(zeroed(65536 * sizeof(uint16_t)));
  if (index.slot_of == nullptr) return;
  // Mark the units that begin an indexed word, then number them in order.
  for (uint32_t l = 1; l < slots && l <= kIndexedUnits; ++l) {
    const NLPDIC_WordList *list = dict->WordTable[l];
    if (list == nullptr) continue;
    for (uint32_t w = 0; w < list->WordCount; ++w) index.slot_of[first_unit(list, w)] = 1;
  }
  uint32_t count = 0;
  for (uint32_t u = 0; u < 65536; ++u) {
    if (index.slot_of[u] == 0) continue;
    if (count == 65535) {  // a slot number must fit beside the "none" mark
      bsr_free(index.slot_of);
      index.slot_of = nullptr;
      return;
    }
    index.slot_of[u] = static_cast<uint16_t>(++count);
  }
  index.starts = static_cast<uint32_t *>(zeroed((uint64_t{count} + 1) * kIndexedUnits * 4));
  if (index.starts == nullptr) {
    bsr_free(index.slot_of);
    index.slot_of = nullptr;
    return;
  }
  for (uint32_t l = 1; l <= kIndexedUnits; ++l) {
    const NLPDIC_WordList *list = l < slots ? dict->WordTable[l] : nullptr;
    const uint32_t words = list == nullptr ? 0 : list->WordCount;
    uint32_t w = 0;
    for (uint32_t u = 0; u < 65536; ++u) {
      if (index.slot_of[u] == 0) continue;
      while (w < words && first_unit(list, w) < u) ++w;
      index.starts[(index.slot_of[u] - 1u) * kIndexedUnits + (l - 1)] = w;
    }
    index.starts[uint64_t{count} * kIndexedUnits + (l - 1)] = words;
  }
}

}  // namespace

int32_t lookup_word_id(NLPDIC *dict, const bsr_wchar *word, uint32_t units) {
  if (dict == nullptr) return -1;
  if (word == nullptr || units == 0) return dict->LastId = -1;
  if (bsr_wcscmp(word, dict->LastWord) == 0) return dict->LastId;
  // The cache holds words that fit it; a longer one is looked up every time.
  constexpr uint32_t kCacheUnits = sizeof dict->LastWord / sizeof dict->LastWord[0];
  if (units < kCacheUnits)
    std::memcpy(dict->LastWord, word, (units + 1) * sizeof(bsr_wchar));
  else
    dict->LastWord[0] = 0;
  dict->LastId = -1;
  if (units > static_cast<uint32_t>(INT32_MAX) || static_cast<int32_t>(units) > dict->MaxWordLength)
    return -1;
  const NLPDIC_WordList *list = dict->WordTable != nullptr ? dict->WordTable[units] : nullptr;
  if (list == nullptr || list->WordCount == 0) return -1;
  int64_t lo = 0, hi = static_cast<int64_t>(list->WordCount) - 1;
  while (lo <= hi) {
    const int64_t mid = (lo + hi) >> 1;
    const uint8_t *entry = list->Words + static_cast<uint64_t>(mid) * units * 2;
    int order = 0;
    for (uint32_t k = 0; k < units && order == 0; ++k) {
      const uint16_t a = static_cast<uint16_t>(word[k]);
      const uint16_t b = read_u16(entry + 2 * k);
      order = a < b ? -1 : (a > b ? 1 : 0);
    }
    if (order > 0) {
      lo = mid + 1;
    } else if (order < 0) {
      hi = mid - 1;
    } else {
      uint32_t id = static_cast<uint32_t>(mid);
      for (uint32_t l = 1; l < units; ++l)
        if (dict->WordTable[l] != nullptr) id += dict->WordTable[l]->WordCount;
      return dict->LastId = static_cast<int32_t>(id);
    }
  }
  return -1;
}

const NLPDIC_WordList *locate_word_entry(const NLPDIC *dict, int32_t id, uint32_t *local) {
  uint32_t rest = static_cast<uint32_t>(id);
  if (local != nullptr) *local = rest;
  if (dict == nullptr || dict->WordTable == nullptr || id < 0) return nullptr;
  for (int32_t l = 1; l <= dict->MaxWordLength; ++l) {
    const NLPDIC_WordList *list = dict->WordTable[l];
    if (list == nullptr) continue;
    if (rest < list->WordCount) {
      if (local != nullptr) *local = rest;
      return list;
    }
    rest -= list->WordCount;
    if (local != nullptr) *local = rest;
  }
  return nullptr;
}

void describe_word(const NLPDIC_WordList *list, uint32_t local, WordEntry *entry) {
  entry->list = list;
  entry->local = local;
  entry->readings = 1;
  // MultiIndex is ascending: the entries below `local` are a prefix of it.
  uint32_t lo = 0, hi = list->MultiCount;
  while (lo < hi) {
    const uint32_t mid = lo + (hi - lo) / 2;
    if (read_u32(list->MultiIndex + uint64_t{mid} * 4) < local)
      lo = mid + 1;
    else
      hi = mid;
  }
  uint32_t extra = 0;
  if (list->extra_before != nullptr && lo < list->MultiCount) {
    extra = list->extra_before[lo];
  } else {
    for (uint32_t m = 0; m < lo; ++m) extra += static_cast<uint32_t>(list->MultiReadings[m]) - 1;
  }
  if (lo < list->MultiCount && read_u32(list->MultiIndex + uint64_t{lo} * 4) == local)
    entry->readings = list->MultiReadings[lo];
  entry->first_record = local + extra;
}

const uint8_t *class_name(const NLPDIC_ClassTable *classes, int32_t code, uint32_t *units) {
  *units = 0;
  if (classes == nullptr || code < 0 || code >= 255 || classes->name_at[code] == 0) return nullptr;
  const uint8_t *name = classes->Names + classes->name_at[code] - 1;
  const uint8_t *p = name;
  while (p + 1 < classes->NamesEnd && read_u16(p) != 0) p += 2;
  *units = static_cast<uint32_t>(p - name) / 2;
  return name;
}

void free_class_table(NLPDIC_ClassTable *classes) {
  if (classes == nullptr) return;
  bsr_free(classes->decoded);
  bsr_free(classes);
}

const uint8_t *pair_entry(const NLPDIC_PairTable *pairs, uint16_t prev, uint16_t next) {
  if (pairs == nullptr) return nullptr;
  if (pairs->square != nullptr) {
    const uint32_t a = prev < pairs->code_limit ? pairs->dense_of[prev] : 0;
    const uint32_t b = next < pairs->code_limit ? pairs->dense_of[next] : 0;
    if (a == 0 || b == 0) return nullptr;
    const uint32_t found = pairs->square[(a - 1) * pairs->dense_count + b - 1];
    return found == 0 ? nullptr : pairs->Entries + uint64_t{found - 1} * 12;
  }
  const uint32_t key = static_cast<uint32_t>(prev) << 16 | next;
  if (pairs->index != nullptr) {
    for (uint32_t s = hash_pair(key) & pairs->index_mask;; s = (s + 1) & pairs->index_mask) {
      const uint32_t found = pairs->index[2 * s + 1];
      if (found == 0) return nullptr;
      if (pairs->index[2 * s] == key) return pairs->Entries + uint64_t{found - 1} * 12;
    }
  }
  for (uint32_t e = 0; e < pairs->PairCount; ++e) {
    const uint8_t *entry = pairs->Entries + uint64_t{e} * 12;
    if (read_u16(entry) == prev && read_u16(entry + 2) == next) return entry;
  }
  return nullptr;
}

}  // namespace utils::nlpdict

using namespace utils::nlpdict;

extern "C" {

UTILS_API NLPDIC *NLPDIC_Create(const void *image) {
  if (image == nullptr) return nullptr;
  auto *object = static_cast<DictObject *>(bsr_safe_calloc(sizeof(DictObject)));
  if (object == nullptr) return nullptr;
  NLPDIC *dict = &object->dict;
  dict->LastId = -1;
  const uint8_t *p = static_cast<const uint8_t *>(image);
  for (;;) {
    const char *keyword = reinterpret_cast<const char *>(p);
    const uint8_t *s = p + keyword_field(keyword);
    if (bsr_strcmp(keyword, "MONOGRAM") == 0) {
      // A repeated section replaces the earlier one, which is released.
      free_class_table(dict->Monogram);
      dict->Monogram = make_class_table(s + 4);
      p = s + 4 + read_u32(s);
    } else if (bsr_strcmp(keyword, "BIGRAM") == 0) {
      free_pair_table(dict->Bigram);
      dict->Bigram = make_pair_table(s + 4);
      p = s + 4 + read_u32(s);
    } else if (bsr_strcmp(keyword, "word-table") == 0) {
      free_word_table(dict);
      dict->MaxWordLength = static_cast<int32_t>(read_u32(s));
      if (dict->MaxWordLength >= 0)
        dict->WordTable = static_cast<NLPDIC_WordList **>(
            zeroed((uint64_t{static_cast<uint32_t>(dict->MaxWordLength)} + 1) * sizeof(void *)));
      p = s + 4;
    } else if (bsr_strcmp(keyword, "WordClass") == 0) {
      const uint32_t length = read_u32(s);
      // A length the table has no slot for (no "word-table" yet, or longer
      // than its maximum) is left out rather than written past the table.
      if (length >= 1 && length < table_slots(dict)) {
        free_word_list(dict->WordTable[length]);
        dict->WordTable[length] = make_word_list(length, s + 8);
      }
      p = s + 8 + read_u32(s + 4);
    } else if (bsr_strcmp(keyword, "PHRASEBREAK") == 0) {
      // The size counts itself: the next section is `size` bytes after it.
      destroy_model_holder(static_cast<ModelHolder *>(dict->PhraseBreakModel));
      dict->PhraseBreakModel = create_model_holder(s + 4, kPhraseBreakKeyword);
      p = s + read_u32(s);
    } else if (bsr_strcmp(keyword, "STRESS") == 0) {
      destroy_model_holder(static_cast<ModelHolder *>(dict->StressModel));
      dict->StressModel = create_model_holder(s + 4, kStressKeyword);
      p = s + read_u32(s);
    } else {
      break;
    }
  }
  build_filter(dict, &object->filter);
  build_first_index(object);
  // The recent runs serve the searches through the first-unit index only.
  if (object->first.slot_of != nullptr)
    object->recent = static_cast<RecentRuns *>(zeroed(sizeof(RecentRuns)));
  return dict;
}

UTILS_API void NLPDIC_Destroy(NLPDIC *dict) {
  if (dict == nullptr) return;
  free_class_table(dict->Monogram);
  free_pair_table(dict->Bigram);
  free_word_table(dict);
  // The working columns belong to a lattice's pool and are null between
  // segmentations: nothing to release here.
  destroy_model_holder(static_cast<ModelHolder *>(dict->PhraseBreakModel));
  destroy_model_holder(static_cast<ModelHolder *>(dict->StressModel));
  bsr_free(reinterpret_cast<DictObject *>(dict)->filter.bits);
  bsr_free(reinterpret_cast<DictObject *>(dict)->first.slot_of);
  bsr_free(reinterpret_cast<DictObject *>(dict)->first.starts);
  bsr_free(reinterpret_cast<DictObject *>(dict)->recent);
  bsr_free(dict);
}

UTILS_API int32_t NLPDIC_GetDefaultID(const NLPDIC *dict) {
  if (dict == nullptr || dict->Monogram == nullptr) return -1;
  return dict->Monogram->DefaultClass;
}

UTILS_API void *NLPDIC_GetPhraseBreakPointer(const NLPDIC *dict) {
  return dict == nullptr ? nullptr : dict->PhraseBreakModel;
}

UTILS_API void *NLPDIC_GetStressPointer(const NLPDIC *dict) {
  return dict == nullptr ? nullptr : dict->StressModel;
}

}  // extern "C"
