// lattice_pool.h - the memory of one segmentation lattice: its nodes and
// their strings come from a few growing blocks that the lattice's first node
// owns, so that a segmentation allocates per call, not per character, and
// one release frees the whole lattice.
#ifndef UTILS_NLP_DICT_LATTICE_POOL_H
#define UTILS_NLP_DICT_LATTICE_POOL_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "nlp_dict.h"

namespace utils::nlpdict {

struct PoolBlock;

struct LatticePool {
  PoolBlock *blocks;              // newest first
  uint32_t next_size;             // bytes of the next block
  unsigned char *cursor, *limit;  // the free bytes of the newest block
};

// A lattice node as the library makes it: the public record, then the pool
// that the lattice's first node owns (null on every other node) and what
// the best-path search needs of it.
struct LatticeNode {
  NLPDIC_Node node;
  LatticePool *pool;
  uint32_t row;  // the row of the node's class in the dictionary's score square, if it has one
};

// A pool whose first block holds `first_bytes` (at least a small minimum);
// null when memory is exhausted.
LatticePool *make_pool(uint64_t first_bytes);
void free_pool(LatticePool *pool);

// `bytes` zero-filled bytes from a new block, or null.
void *take_from_new_block(LatticePool *pool, uint32_t bytes);

// `bytes` zero-filled bytes, 8-aligned, or null when memory is exhausted.
inline void *pool_take(LatticePool *pool, uint32_t bytes) {
  bytes = (bytes + 7) & ~7u;
  if (static_cast<size_t>(pool->limit - pool->cursor) < bytes)
    return take_from_new_block(pool, bytes);
  void *at = pool->cursor;
  pool->cursor += bytes;
  return at;
}

// A zero-filled node, or null when memory is exhausted.
inline LatticeNode *pool_node(LatticePool *pool) {
  // Blocks come zero-filled and their bytes are handed out once.
  return static_cast<LatticeNode *>(pool_take(pool, sizeof(LatticeNode)));
}

// A zero-terminated copy of `units` code units, or null.
inline bsr_wchar *pool_string(LatticePool *pool, const bsr_wchar *text, uint32_t units) {
  auto *s = static_cast<bsr_wchar *>(pool_take(pool, (units + 1) * sizeof(bsr_wchar)));
  if (s == nullptr) return nullptr;
  std::memcpy(s, text, units * sizeof(bsr_wchar));
  s[units] = 0;
  return s;
}
// The same from UTF-16 text in an image (no alignment assumed).
bsr_wchar *pool_image_string(LatticePool *pool, const uint8_t *text, uint32_t units);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_LATTICE_POOL_H
