// pattern_info.h - what DTree_Create works out once per pattern for the
// lookups: the field it asks about and whether it carries the "!" marks.
// The words sit in the same allocation as the Patterns table, right after
// its PatternCount pointers, so the public record keeps its shape.
#ifndef UTILS_NLP_DTREE_PATTERN_INFO_H
#define UTILS_NLP_DTREE_PATTERN_INFO_H

#include <cstdint>

#include "dtree.h"

namespace utils::dtree {

constexpr uint32_t kFieldMask = (1u << 30) - 1;
constexpr uint32_t kLeadMark = 1u << 30;   // pattern starts with "*"
constexpr uint32_t kTrailMark = 1u << 31;  // pattern ends with "*"

// The per-pattern words of a tree made by DTree_Create.
inline const uint32_t *pattern_info(const DTree *tree) {
  return reinterpret_cast<const uint32_t *>(tree->Patterns + tree->PatternCount);
}

}  // namespace utils::dtree

#endif  // UTILS_NLP_DTREE_PATTERN_INFO_H
