// dict_break.cpp - NLPDIC_DictBreak: the lattice of candidate words of a text
// (every run of 1 to 6 units, or the space-separated tokens), the best path
// through it by class-pair scores, and the chain of chosen words.
#include <cstring>

#include "NLP/NLP_Dict/best_path.h"
#include "NLP/NLP_Dict/dict_image.h"
#include "NLP/NLP_Dict/lattice_pool.h"
#include "bsr_string.h"

namespace utils::nlpdict {
namespace {

// Every node passes through the helpers marked so: a call apiece would cost
// more than most of them do.
#define UTILS_HOT_INLINE __attribute__((always_inline)) inline

constexpr uint32_t kMaxCandidate = 6;  // longest candidate in character mode
static_assert(kMaxCandidate == kIndexedUnits, "every candidate length is indexed");
constexpr uint32_t kMaxUnknown = 3;       // longest unknown candidate entered there
constexpr uint32_t kTokenLimit = 256;     // more tokens than this fail the split
constexpr float kUnknownScore = -100.0f;  // score of a word not in the dictionary

const bsr_wchar kBegin[] = u"BEGTOK";
const bsr_wchar kEnd[] = u"ENDTOK";

struct Span {
  uint32_t start, units;
};

// What every node of one class copies and carries: the class name (null
// for none, with no room) and the class's row in the score square.
struct ClassInfo {
  int32_t id;
  const bsr_wchar *name;
  uint32_t name_units, name_room;
  uint32_t row;
};

// The state of one lattice build.
struct Builder {
  NLPDIC *dict = nullptr;
  const NLPDIC_PairTable *square = nullptr;  // the pair table when it has a score square
  const WordFilter *filter = nullptr;
  RecentRuns *recent = nullptr;  // the dictionary's recent runs, if it has them
  LatticePool *pool = nullptr;
  NLPDIC_Node **begin = nullptr, **end = nullptr;
  NLPDIC_Node *head = nullptr;         // the "BEGTOK" node
  NLPDIC_Node *last_first = nullptr;   // first node of the last occupied start column
  uint32_t last_column = 0;            // that column
  NLPDIC_Node *column_tail = nullptr;  // last node of that column
  bool failed = false;
  int32_t default_class = -1;  // the class of unknown words
  bool decoded = false;        // the class names are decoded: nodes copy them from there
  ClassInfo unknown{};         // then what nodes of the default class copy and carry
  bool padded_words = false;   // words are copied from text readable eight units past them
  // The last node of each end column still being filled: nodes end at most
  // six positions after the start being entered, so eight slots by end
  // position suffice. tail_end holds the end position + 1 (0: none).
  uint32_t tail_end[8] = {};
  NLPDIC_Node *tail[8] = {};
  // Each node is searched as it is made: its predecessors all end before
  // its start, and starts (tokens) are entered in order, so their column is
  // complete by then, and nodes are made in the order a search of the
  // finished lattice would take them. That search stops after the first
  // column whose first node is "ENDTOK"; in character mode that is the last
  // column (every other begins with one unit), in token mode it may be a
  // token of that spelling. Later columns are not searched.
  uint32_t stop_after = UINT32_MAX;
  NLPDIC_Node *best_pred = nullptr;
  // The end columns still being filled, with what the search needs of their
  // nodes, which are added as they are searched; by end position like
  // `tail`, ending_at holding the end position + 1 (0: none).
  uint32_t ending_at[8] = {};
  Predecessors ending[8];  // filled before they are read: left uninitialised
};

// Adds a searched node that ends at `e` to its end column.
UTILS_HOT_INLINE void add_ending(Builder &b, NLPDIC_Node *n, uint32_t e) {
  const uint32_t slot = e & 7;
  if (b.ending_at[slot] != e + 1) {
    // As in place(): a new end in the slot means an empty end column.
    b.ending_at[slot] = e + 1;
    b.ending[slot].count = 0;
  }
  add_predecessor(b.square, b.ending[slot], n);
}

// Searches node `n`, which starts at `s` and ends at `e`, as it is made:
// through the score square and the gathered end columns when the
// dictionary has the square, else through the pair table and the end list.
UTILS_HOT_INLINE void search_new_node(Builder &b, NLPDIC_Node *n, uint32_t s, uint32_t e) {
  if (s > b.stop_after) return;
  if (b.square == nullptr) {
    score_listed(b.dict, b.end[s - 1], n, b.best_pred);
    return;
  }
  const uint32_t slot = (s - 1) & 7;
  if (b.ending_at[slot] == s && b.ending[slot].count != kTooMany)
    score_gathered(b.ending[slot], n, b.best_pred);
  else
    score_listed(b.dict, b.end[s - 1], n, b.best_pred);
  add_ending(b, n, e);
}

NLPDIC_Node *make_sentinel(Builder &b, const bsr_wchar *name) {
  LatticeNode *n = pool_node(b.pool);
  if (n == nullptr) return nullptr;
  n->node.Word = pool_string(b.pool, name, 6);
  n->node.ClassName = pool_string(b.pool, name, 6);
  n->node.ClassId = -1;
  if (b.square != nullptr) n->row = square_row(b.square, -1);
  if (n->node.Word == nullptr || n->node.ClassName == nullptr) return nullptr;
  return &n->node;
}

// Places a new node that starts at `s` and ends at `e` in both columns.
// Neither column is read: starts are entered in increasing order (in token
// mode a token's readings come together), so a start other than the last
// one entered opens an empty column after it, and an end column's slot
// below is taken by a later end only once no node can end at the earlier
// one (a node ending eight positions later starts at least three after
// it), so a slot not holding `e` means the end column is still empty.
UTILS_HOT_INLINE void place(Builder &b, NLPDIC_Node *n, uint32_t s, uint32_t e) {
  if (s != b.last_column) {
    b.begin[s] = n;
    b.last_first->NextColumn = n;
    b.last_first = n;
    b.last_column = s;
  } else {
    b.column_tail->NextInColumn = n;
  }
  b.column_tail = n;
  // The last node of each end column still being filled, by end position.
  const uint32_t slot = e & 7;
  if (b.tail_end[slot] == e + 1) {
    b.tail[slot]->NextEnding = n;
  } else {
    b.end[e] = n;
    b.tail_end[slot] = e + 1;
  }
  b.tail[slot] = n;
}

// A node of a word whose class name is read from the image (the decoded
// names could not be made).
NLPDIC_Node *new_word_node_from_image(Builder &b, const bsr_wchar *word, uint32_t units,
                                      int32_t class_id) {
  LatticeNode *n = pool_node(b.pool);
  if (n == nullptr) return nullptr;
  n->node.Word = pool_string(b.pool, word, units);
  if (n->node.Word == nullptr) return nullptr;
  n->node.Length = static_cast<int32_t>(units);
  n->node.ClassId = class_id;
  if (b.square != nullptr) n->row = square_row(b.square, class_id);
  uint32_t name_units = 0;
  if (const uint8_t *name = class_name(b.dict->Monogram, class_id, &name_units); name != nullptr) {
    n->node.ClassName = pool_image_string(b.pool, name, name_units);
    if (n->node.ClassName == nullptr) return nullptr;
  }
  return &n->node;
}

// Copies `units` code units; the destination's terminator is already 0.
// Words and class names are short: their copies are a few moves.
UTILS_HOT_INLINE void copy_units(bsr_wchar *to, const bsr_wchar *from, uint32_t units) {
  switch (units) {
    case 0:
      return;
    case 1:
      std::memcpy(to, from, 2);
      return;
    case 2:
      std::memcpy(to, from, 4);
      return;
    case 3:
      std::memcpy(to, from, 6);
      return;
    case 4:
      std::memcpy(to, from, 8);
      return;
    default:
      std::memcpy(to, from, units * sizeof(bsr_wchar));
  }
}

// Bytes of a zero-terminated copy of `units` code units in the pool.
inline uint32_t string_room(uint32_t units) { return ((units + 1) * 2 + 7) & ~7u; }

// Call only when the class names are decoded.
UTILS_HOT_INLINE ClassInfo class_info(const Builder &b, int32_t class_id) {
  const NLPDIC_ClassTable *classes = b.dict->Monogram;
  ClassInfo c{class_id, nullptr, 0, 0, 0};
  if (class_id >= 0 && class_id < 255 && classes->name_at[class_id] != 0) {
    c.name = classes->decoded + classes->decoded_at[class_id];
    c.name_units = classes->name_units[class_id];
    c.name_room = string_room(c.name_units);
  }
  if (b.square != nullptr) c.row = square_row(b.square, class_id);
  return c;
}

// Copies a word of `units` units from text that is readable for eight
// units past it (the padded copy of the text), as whole 8-byte words masked
// past its end, into room of string_room(units) bytes. Little-endian words
// hold the first unit lowest; other byte orders copy unit by unit.
UTILS_HOT_INLINE void copy_padded_word(bsr_wchar *to, const bsr_wchar *from, uint32_t units) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  if (units <= 7) {
    uint64_t low, high;
    std::memcpy(&low, from, 8);
    if (units < 4) {
      low &= (uint64_t{1} << (16 * units)) - 1;
      std::memcpy(to, &low, 8);
      return;
    }
    std::memcpy(&high, from + 4, 8);
    high &= (uint64_t{1} << (16 * (units - 4))) - 1;
    std::memcpy(to, &low, 8);
    std::memcpy(to + 4, &high, 8);
    return;
  }
#endif
  copy_units(to, from, units);
}

// A node of a word, with its copies of the word and of its class name taken
// from the pool together with it.
UTILS_HOT_INLINE NLPDIC_Node *new_word_node(Builder &b, const bsr_wchar *word, uint32_t units,
                                            const ClassInfo &c) {
  const uint32_t word_room = string_room(units);
  auto *n =
      static_cast<LatticeNode *>(pool_take(b.pool, sizeof(LatticeNode) + word_room + c.name_room));
  if (n == nullptr) return nullptr;
  auto *strings = reinterpret_cast<bsr_wchar *>(n + 1);
  n->node.Word = strings;
  if (b.padded_words)
    copy_padded_word(strings, word, units);
  else
    copy_units(strings, word, units);
  if (c.name != nullptr) {
    // The padded name, terminator and zeros included, word by word.
    bsr_wchar *name = strings + word_room / 2;
    n->node.ClassName = name;
    for (uint32_t k = 0; k < c.name_room / 2; k += 4) std::memcpy(name + k, c.name + k, 8);
  }
  n->node.Length = static_cast<int32_t>(units);
  n->node.ClassId = c.id;
  n->row = c.row;
  return &n->node;
}

// Gives a new node (null: memory ran out) its score and mark, places it
// and searches it; false when memory ran out.
UTILS_HOT_INLINE bool add_node(Builder &b, uint32_t s, uint32_t e, NLPDIC_Node *n, float score,
                               float mark) {
  if (n == nullptr) {
    b.failed = true;
    return false;
  }
  n->Score = score;
  n->Mark = mark;
  place(b, n, s, e);
  search_new_node(b, n, s, e);
  return true;
}

// Enters the readings of the word `word` (`units` long, not necessarily
// terminated) starting at position s: those of local index `local` of
// `list`, or, for a null list, one unknown node, left out in character mode
// when it is longer than three units.
UTILS_HOT_INLINE void enter(Builder &b, const bsr_wchar *word, uint32_t units, uint32_t s,
                            bool characters, const NLPDIC_WordList *list, uint32_t local) {
  if (b.failed) return;
  const uint32_t e = characters ? s + units - 1 : s;
  if (list == nullptr) {
    if (characters && units > kMaxUnknown) return;
    NLPDIC_Node *n = b.decoded ? new_word_node(b, word, units, b.unknown)
                               : new_word_node_from_image(b, word, units, b.default_class);
    add_node(b, s, e, n, kUnknownScore, -1.0f);
    return;
  }
  // Most lists give every word one reading: their records are in word
  // order, and no search of the multi-reading words is needed.
  uint32_t first_record = local, readings = 1;
  if (list->MultiCount != 0) {
    WordEntry entry;
    describe_word(list, local, &entry);
    first_record = entry.first_record;
    readings = entry.readings;
  }
  for (uint32_t r = 0; r < readings; ++r) {
    const uint32_t record = first_record + r;
    const int32_t class_id = reading_class(list, record);
    NLPDIC_Node *n = b.decoded ? new_word_node(b, word, units, class_info(b, class_id))
                               : new_word_node_from_image(b, word, units, class_id);
    if (!add_node(b, s, e, n, reading_score(list, record), 0.0f)) return;
  }
}

// The same for a word (zero-terminated) looked up through the dictionary's
// cache. `known` false: the word is certainly not in the dictionary and is
// not looked up.
void add_candidate(Builder &b, const bsr_wchar *word, uint32_t units, uint32_t s, bool characters,
                   bool known = true) {
  if (b.failed) return;
  const int32_t id = known ? lookup_word_id(b.dict, word, units) : -1;
  uint32_t local = 0;
  const NLPDIC_WordList *list = id < 0 ? nullptr : locate_word_entry(b.dict, id, &local);
  enter(b, word, units, s, characters, list, local);
}

// The local index of the word text[0..units) among the words that begin
// with its unit (`slot` in the index), or -1; through the recent runs when
// the run is of a length they keep.
UTILS_HOT_INLINE int32_t find_candidate(const Builder &b, const FirstUnitIndex &index,
                                        uint32_t slot, const bsr_wchar *text, uint32_t units) {
  RecentRuns *recent = b.recent;
  if (recent == nullptr || !recent_length(units))
    return find_indexed(b.dict, index, slot, text, units);
  const uint64_t key = recent_key(text, units);
  const uint32_t at = recent_slot(key);
  if (recent->key[at] != key) {
    recent->key[at] = key;
    recent->local[at] = find_indexed(b.dict, index, slot, text, units);
  }
  return recent->local[at];
}

// Leaves the lookup cache as a lookup of every candidate in turn would:
// holding the last one, the text's last unit. Its identifier is its local
// index in the one-unit list, which no shorter list precedes.
void remember_last_unit(NLPDIC *dict, const FirstUnitIndex &index, bsr_wchar unit) {
  const uint32_t slot = index.slot_of[static_cast<uint16_t>(unit)];
  dict->LastWord[0] = unit;
  dict->LastWord[1] = 0;
  dict->LastId = slot == 0 ? -1 : find_indexed(dict, index, slot - 1, &unit, 1);
}

// Character mode through the first-unit index: the candidates of each
// start are searched among the words that begin with its unit.
void add_indexed(Builder &b, const FirstUnitIndex &index, const bsr_wchar *text, uint32_t n) {
  for (uint32_t i = 0; i < n && !b.failed; ++i) {
    const uint32_t slot = index.slot_of[static_cast<uint16_t>(text[i])];
    // Once no word begins with the candidate, the longer ones are not
    // words either: only unknown runs of up to three units remain. The
    // word filter says so for most candidates without a search.
    bool extends = slot != 0;
    uint64_t h = filter_step(kFilterSeed, static_cast<uint16_t>(text[i]));
    // The next start's first probes are nearly always made: their memory is
    // asked for now, while this start's candidates are entered.
    if (i + 2 < n) {
      const uint64_t next2 =
          filter_step(filter_step(kFilterSeed, static_cast<uint16_t>(text[i + 1])),
                      static_cast<uint16_t>(text[i + 2]));
      filter_prefetch(*b.filter, next2, 2);
      if (i + 3 < n)
        filter_prefetch(*b.filter, filter_step(next2, static_cast<uint16_t>(text[i + 3])), 3);
    }
    for (uint32_t len = 1; len <= kMaxCandidate && len <= n - i; ++len) {
      if (len > 1) h = filter_step(h, static_cast<uint16_t>(text[i + len - 1]));
      if (!extends && len > kMaxUnknown) break;
      const unsigned said = !extends ? 0 : len == 1 ? 3 : filter_probe(*b.filter, h, len);
      const int32_t local =
          (said & 1) == 0 ? -1 : find_candidate(b, index, slot - 1, text + i, len);
      if (local < 0)
        enter(b, text + i, len, i + 1, true, nullptr, 0);
      else
        enter(b, text + i, len, i + 1, true, b.dict->WordTable[len], static_cast<uint32_t>(local));
      extends = (said & 2) != 0;
    }
  }
}

// Splits `text` at spaces into at most 258 spans; an ASCII punctuation mark
// followed by a space becomes a token of its own. Returns the count, or 0
// when the text holds no token or the scan goes on past 256 tokens.
uint32_t split_tokens(const bsr_wchar *text, uint32_t length, Span *tokens) {
  uint32_t count = 0, start = 0, units = 0;
  auto emit = [&](uint32_t at, uint32_t n) { tokens[count++] = Span{at, n}; };
  for (uint32_t k = 0; k < length; ++k) {
    if (count > kTokenLimit) return 0;
    const bsr_wchar c = text[k];
    if (c == u' ') {
      if (units > 0) emit(start, units);
      units = 0;
      continue;
    }
    const bool mark = (c >= 0x21 && c <= 0x2F) || (c >= 0x3A && c <= 0x40) ||
                      (c >= 0x5B && c <= 0x60) || (c >= 0x7B && c <= 0x7F);
    if (mark && k + 1 < length && text[k + 1] == u' ') {
      if (units > 0) emit(start, units);
      emit(k, 1);
      units = 0;
      continue;
    }
    if (units == 0) start = k;
    ++units;
  }
  if (units > 0) emit(start, units);
  return count;
}

// The working columns live in the lattice's pool; between calls the
// dictionary does not point at them.
void release_columns(NLPDIC *dict) { dict->BeginColumns = dict->EndColumns = nullptr; }

}  // namespace
}  // namespace utils::nlpdict

using namespace utils::nlpdict;

extern "C" UTILS_API NLPDIC_Node *NLPDIC_DictBreak(NLPDIC *dict, const bsr_wchar *text,
                                                   int32_t mode) {
  if (dict == nullptr || text == nullptr) return nullptr;
  const uint32_t m = bsr_wcslen(text);
  if (m == 0) return nullptr;
  const bool characters = mode != 0;
  Span tokens[kTokenLimit + 2];
  uint32_t n = m;
  if (!characters) {
    n = split_tokens(text, m, tokens);
    if (n == 0) return nullptr;
  }
  release_columns(dict);
  const uint64_t slots = (uint64_t{n} + 2) * sizeof(NLPDIC_Node *);
  if (slots > UINT32_MAX / 4) return nullptr;
  // Real text makes about three nodes per position, each with a word and a
  // class name of a few units; the two sentinels and the columns come on top.
  const uint64_t padded_bytes = (uint64_t{n} + 8) * sizeof(bsr_wchar);
  LatticePool *pool =
      make_pool((uint64_t{n} * 3 + 2) * (sizeof(LatticeNode) + 24) + 2 * slots + padded_bytes);
  if (pool != nullptr) {
    dict->BeginColumns = static_cast<NLPDIC_Node **>(pool_take(pool, static_cast<uint32_t>(slots)));
    dict->EndColumns = static_cast<NLPDIC_Node **>(pool_take(pool, static_cast<uint32_t>(slots)));
  }
  // Candidates are copied out zero-terminated; a token may be longer than
  // the usual buffer.
  bsr_wchar small[1024];
  bsr_wchar *candidate = small;
  if (!characters && m + 1 > 1024)
    candidate = static_cast<bsr_wchar *>(bsr_safe_alloc((m + 1) * sizeof(bsr_wchar)));
  if (dict->BeginColumns == nullptr || dict->EndColumns == nullptr || pool == nullptr ||
      candidate == nullptr) {
    release_columns(dict);
    free_pool(pool);
    if (candidate != small) bsr_free(candidate);
    return nullptr;
  }

  const NLPDIC_PairTable *pairs = dict->Bigram;
  Builder b;
  b.dict = dict;
  b.square = pairs != nullptr && pairs->scores != nullptr ? pairs : nullptr;
  b.pool = pool;
  b.begin = dict->BeginColumns;
  b.end = dict->EndColumns;
  b.filter = &reinterpret_cast<const DictObject *>(dict)->filter;
  b.recent = reinterpret_cast<DictObject *>(dict)->recent;
  b.default_class = NLPDIC_GetDefaultID(dict);
  b.decoded = dict->Monogram != nullptr && dict->Monogram->decoded != nullptr;
  if (b.decoded) b.unknown = class_info(b, b.default_class);
  b.head = make_sentinel(b, kBegin);
  if (b.head == nullptr) {
    release_columns(dict);
    free_pool(pool);
    if (candidate != small) bsr_free(candidate);
    return nullptr;
  }
  b.begin[0] = b.end[0] = b.head;
  reinterpret_cast<LatticeNode *>(b.head)->pool = pool;
  b.last_first = b.column_tail = b.head;
  if (b.square != nullptr) add_ending(b, b.head, 0);
  if (characters && reinterpret_cast<DictObject *>(dict)->first.slot_of != nullptr) {
    // Candidates are read from a copy of the text with eight zero units
    // after it, so that each word is copied as whole words of memory.
    auto *padded = static_cast<bsr_wchar *>(pool_take(pool, static_cast<uint32_t>(padded_bytes)));
    if (padded == nullptr) {
      free_pool(pool);
      release_columns(dict);
      return nullptr;
    }
    std::memcpy(padded, text, n * sizeof(bsr_wchar));
    b.padded_words = true;
    add_indexed(b, reinterpret_cast<DictObject *>(dict)->first, padded, n);
    remember_last_unit(dict, reinterpret_cast<DictObject *>(dict)->first, text[n - 1]);
  } else if (characters) {
    for (uint32_t i = 0; i < n && !b.failed; ++i) {
      // Once no word begins with the candidate, the longer ones are not
      // words either: only unknown runs of up to three units remain.
      bool extends = true;
      uint64_t h = kFilterSeed;
      for (uint32_t len = 1; len <= kMaxCandidate && len <= n - i; ++len) {
        if (!extends && len > kMaxUnknown) break;
        std::memcpy(candidate, text + i, len * sizeof(bsr_wchar));
        candidate[len] = 0;
        h = filter_step(h, static_cast<uint16_t>(text[i + len - 1]));
        // Nearly every single unit of real text is a word or begins one, and
        // the one-unit list is small: it is searched without asking.
        const unsigned said = !extends ? 0 : len == 1 ? 3 : filter_probe(*b.filter, h, len);
        add_candidate(b, candidate, len, i + 1, true, (said & 1) != 0);
        extends = (said & 2) != 0;
      }
    }
    // The lookup cache ends as a lookup of every candidate in turn would
    // leave it: holding the last one, the text's last unit.
    lookup_word_id(dict, text + n - 1, 1);
  } else {
    for (uint32_t t = 0; t < n && !b.failed; ++t) {
      std::memcpy(candidate, text + tokens[t].start, tokens[t].units * sizeof(bsr_wchar));
      candidate[tokens[t].units] = 0;
      add_candidate(b, candidate, tokens[t].units, t + 1, false);
      const NLPDIC_Node *first = b.begin[t + 1];
      if (b.stop_after == UINT32_MAX && first != nullptr && bsr_wcscmp(first->Word, kEnd) == 0)
        b.stop_after = t + 1;
    }
    if (candidate != small) bsr_free(candidate);
  }

  NLPDIC_Node *end_node = b.failed ? nullptr : make_sentinel(b, kEnd);
  if (end_node == nullptr) {
    release_columns(dict);
    free_pool(pool);
    return nullptr;
  }
  b.begin[n + 1] = b.end[n + 1] = end_node;
  b.last_first->NextColumn = end_node;
  search_new_node(b, end_node, n + 1, n + 1);

  // Turn the chain of best predecessors, read from the end, into the chain
  // of next words read from the start.
  NLPDIC_Node *from = end_node;
  NLPDIC_Node *p = end_node->Link;
  while (p != nullptr) {
    NLPDIC_Node *before = p->Link;
    p->Link = from;
    if (p->Word[0] == kBegin[0] && bsr_wcscmp(p->Word, kBegin) == 0) break;
    from = p;
    p = before;
  }
  NLPDIC_Node *head = b.head;
  release_columns(dict);
  return head;
}
