// dtree.cpp - DTree_Create, DTree_Lookup and DTree_Destroy: trees read in
// place from their image, walked from a label field per question.
#include <climits>
#include <cstring>

#include "NLP/NLP_DTree/field_text.h"
#include "NLP/NLP_DTree/image_read.h"
#include "NLP/NLP_DTree/pattern_info.h"
#include "NLP/NLP_DTree/pattern_match.h"
#include "bsr_string.h"
#include "dtree.h"

namespace utils::dtree {

namespace {

// Fields from this index on are neither cached nor given lasting marks.
constexpr int kCacheFields = 256;
// Room for the values of the fields one lookup reads; values that do not
// fit are evaluated again when asked for again.
constexpr size_t kValueArena = 4096;
// A label field longer than this (prefix and suffix of some hundreds of
// bytes) is built in an allocated buffer instead.
constexpr size_t kLabelBytes = 512;

// The state of one lookup, all on the stack: the value of each field read
// so far (features do not change during a lookup, so a value read at one
// node serves the next), and the marks each field received at the current
// node, where the first pattern that reaches a field decides them.
struct LookupCache {
  uint32_t marks_node[kCacheFields];  // node counter when the marks were set
  uint32_t marks[kCacheFields];
  uint16_t value_at[kCacheFields];  // offset in arena + 1; 0: not read yet
  uint8_t value_length[kCacheFields];
  char arena[kValueArena];
  size_t arena_used;
};

// Whether the label field of pattern k (at node number `node`) matches it.
bool pattern_holds(const DTree *tree, const item *i, int k, uint32_t node, LookupCache &cache) {
  const uint32_t info = pattern_info(tree)[k];
  const int j = static_cast<int>(info & kFieldMask);
  if (j >= tree->FeatureCount) return false;
  uint32_t marks = info & (kLeadMark | kTrailMark);
  const char *value;
  size_t value_length;
  char fresh[kValueBytes];
  if (j < kCacheFields) {
    if (cache.marks_node[j] == node)
      marks = cache.marks[j];
    else {
      cache.marks_node[j] = node;
      cache.marks[j] = marks;
    }
    if (cache.value_at[j] != 0) {
      value = cache.arena + cache.value_at[j] - 1;
      value_length = cache.value_length[j];
    } else {
      value_length = field_value(i, tree->FeatureNames[j], fresh);
      value = fresh;
      if (cache.arena_used + value_length <= kValueArena) {
        std::memcpy(cache.arena + cache.arena_used, fresh, value_length);
        cache.value_at[j] = static_cast<uint16_t>(cache.arena_used + 1);
        cache.value_length[j] = static_cast<uint8_t>(value_length);
        cache.arena_used += value_length;
      }
    }
  } else {
    value_length = field_value(i, tree->FeatureNames[j], fresh);
    value = fresh;
  }
  const char *prefix = tree->FeaturePrefixes[j];
  const char *suffix = tree->FeatureSuffixes[j] != nullptr ? tree->FeatureSuffixes[j] : "";
  const size_t prefix_length = std::strlen(prefix);
  const size_t suffix_length = std::strlen(suffix);
  const size_t need = prefix_length + value_length + suffix_length + 3;
  char local[kLabelBytes];
  char *label = local;
  if (need > sizeof local) {
    label = static_cast<char *>(bsr_safe_alloc(static_cast<uint32_t>(need)));
    if (label == nullptr) return false;
  }
  char *o = label;
  if ((marks & kLeadMark) != 0) *o++ = '!';
  std::memcpy(o, prefix, prefix_length);
  o += prefix_length;
  std::memcpy(o, value, value_length);
  o += value_length;
  std::memcpy(o, suffix, suffix_length);
  o += suffix_length;
  if ((marks & kTrailMark) != 0) *o++ = '!';
  *o = '\0';
  const bool holds = pattern_match(label, tree->Patterns[k]);
  if (label != local) bsr_free(label);
  return holds;
}

// Whether any pattern of question q holds, tried in order.
bool question_holds(const DTree *tree, const item *i, int q, uint32_t node, LookupCache &cache) {
  if (q < 0 || q >= tree->QuestionCount) return false;
  const auto *record = reinterpret_cast<const unsigned char *>(tree->Questions[q]);
  const int n = load_i16(record);
  for (int k = 0; k < n; ++k) {
    const int pattern = load_i16(record + 2 + 2 * k);
    if (pattern < 0 || pattern >= tree->PatternCount) continue;
    if (pattern_holds(tree, i, pattern, node, cache)) return true;
  }
  return false;
}

}  // namespace

}  // namespace utils::dtree

using utils::dtree::align_from;
using utils::dtree::kNodeBytes;
using utils::dtree::load_i16;
using utils::dtree::load_node;
using utils::dtree::load_u32;

extern "C" UTILS_API DTree *DTree_Create(const void **image, int tree_count,
                                         const char *const *feature_names,
                                         const char *const *feature_prefixes,
                                         const char *const *feature_suffixes, int feature_count) {
  if (image == nullptr || *image == nullptr) return nullptr;
  if (tree_count < 0 || tree_count > DTREE_MAX_TREES) return nullptr;
  if (feature_count < 0 || static_cast<uint32_t>(feature_count) > utils::dtree::kFieldMask)
    return nullptr;
  if (feature_count > 0 &&
      (feature_names == nullptr || feature_prefixes == nullptr || feature_suffixes == nullptr))
    return nullptr;
  const auto *base = static_cast<const unsigned char *>(*image);
  const unsigned char *p = base + 4;
  const uint32_t pattern_count = load_u32(p);
  p += 4;
  // Each pattern takes a pointer and an info word.
  constexpr uint32_t kPatternEntry = sizeof(char *) + sizeof(uint32_t);
  if (pattern_count > INT32_MAX / kPatternEntry) return nullptr;

  auto *tree = static_cast<DTree *>(bsr_safe_alloc(sizeof(DTree)));
  if (tree == nullptr) return nullptr;
  tree->FeatureNames = feature_names;
  tree->FeaturePrefixes = feature_prefixes;
  tree->FeatureSuffixes = feature_suffixes;
  tree->FeatureCount = feature_count;
  tree->TreeCount = tree_count;
  tree->PatternCount = static_cast<int32_t>(pattern_count);
  const uint32_t pattern_bytes = pattern_count * kPatternEntry;
  tree->Patterns =
      static_cast<const char **>(bsr_safe_alloc(pattern_bytes > 0 ? pattern_bytes : 1));
  if (tree->Patterns == nullptr) {
    DTree_Destroy(tree);
    return nullptr;
  }
  auto *info = const_cast<uint32_t *>(utils::dtree::pattern_info(tree));
  for (uint32_t k = 0; k < pattern_count; ++k) {
    const char *pattern = reinterpret_cast<const char *>(p);
    const size_t length = std::strlen(pattern);
    tree->Patterns[k] = pattern;
    uint32_t word = static_cast<uint32_t>(
        utils::dtree::field_of_pattern(pattern, feature_prefixes, feature_count));
    if (pattern[0] == '*') word |= utils::dtree::kLeadMark;
    if (length > 0 && pattern[length - 1] == '*') word |= utils::dtree::kTrailMark;
    info[k] = word;
    p += length + 1;
  }
  p = align_from(base, p);

  const uint32_t question_count = load_u32(p);
  p += 4;
  if (question_count > INT32_MAX / sizeof(int16_t *)) {
    DTree_Destroy(tree);
    return nullptr;
  }
  tree->QuestionCount = static_cast<int32_t>(question_count);
  const uint32_t question_bytes = question_count * static_cast<uint32_t>(sizeof(int16_t *));
  tree->Questions =
      static_cast<const int16_t **>(bsr_safe_alloc(question_bytes > 0 ? question_bytes : 1));
  if (tree->Questions == nullptr) {
    DTree_Destroy(tree);
    return nullptr;
  }
  for (uint32_t q = 0; q < question_count; ++q) {
    tree->Questions[q] = reinterpret_cast<const int16_t *>(p);
    const int n = load_i16(p);
    p += utils::dtree::pad4(2 + 2 * static_cast<size_t>(n > 0 ? n : 0));
  }
  for (int t = 0; t < tree_count; ++t) {
    const uint32_t size = load_u32(p);
    tree->Trees[t] = reinterpret_cast<const DTreeNode *>(p + 4);
    p = align_from(base, p + 4 + size);
  }
  *image = p;
  return tree;
}

extern "C" UTILS_API int32_t DTree_Lookup(const DTree *tree, int tree_index, const item *i) {
  if (tree == nullptr || tree_index < 0 || tree_index >= tree->TreeCount) return 0;
  const auto *at = reinterpret_cast<const unsigned char *>(tree->Trees[tree_index]);
  if (at == nullptr) return 0;
  utils::dtree::LookupCache cache;
  std::memset(cache.marks_node, 0, sizeof cache.marks_node);
  std::memset(cache.value_at, 0, sizeof cache.value_at);
  cache.arena_used = 0;
  int16_t current = 0;
  for (uint32_t node = 1;; ++node) {
    // Children follow their parents, so the next node is found further on.
    DTreeNode n = load_node(at);
    while (n.Id != current) {
      at += kNodeBytes;
      n = load_node(at);
    }
    const bool yes = utils::dtree::question_holds(tree, i, n.Question, node, cache);
    const int16_t next = yes ? n.Yes : n.No;
    if (next > 0) return next;
    current = next;
    at += kNodeBytes;
  }
}

extern "C" UTILS_API void DTree_Destroy(DTree *tree) {
  if (tree == nullptr) return;
  bsr_free(static_cast<void *>(tree->Patterns));
  bsr_free(static_cast<void *>(tree->Questions));
  bsr_free(tree);
}
