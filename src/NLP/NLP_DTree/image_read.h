// image_read.h - little-endian reads from memory images at any alignment,
// and the 4-byte padding of image layouts.
#ifndef UTILS_NLP_DTREE_IMAGE_READ_H
#define UTILS_NLP_DTREE_IMAGE_READ_H

#include <cstddef>
#include <cstdint>

#include "dtree.h"

namespace utils::dtree {

inline uint32_t load_u32(const unsigned char *p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 |
         static_cast<uint32_t>(p[2]) << 16 | static_cast<uint32_t>(p[3]) << 24;
}

inline int16_t load_i16(const unsigned char *p) {
  return static_cast<int16_t>(static_cast<uint16_t>(p[0] | p[1] << 8));
}

inline DTreeNode load_node(const unsigned char *p) {
  return DTreeNode{load_i16(p), load_i16(p + 2), load_i16(p + 4), load_i16(p + 6)};
}

// The distance `offset` rounded up to a multiple of 4.
inline size_t pad4(size_t offset) { return (offset + 3) & ~static_cast<size_t>(3); }

// `p` advanced so that its distance from `origin` is a multiple of 4.
inline const unsigned char *align_from(const unsigned char *origin, const unsigned char *p) {
  return origin + pad4(static_cast<size_t>(p - origin));
}

constexpr size_t kNodeBytes = 8;

}  // namespace utils::dtree

#endif  // UTILS_NLP_DTREE_IMAGE_READ_H
