// lattice_pool.h - the memory of one segmentation lattice: its nodes and
// their strings come from a few growing blocks that the lattice's first node
// owns, so that a segmentation allocates per call, not per character, and
// one release frees the whole lattice.
#ifndef UTILS_NLP_DICT_LATTICE_POOL_H
#define UTILS_NLP_DICT_LATTICE_POOL_H

#include <cstddef>
#include <cstdint>

#include "nlp_dict.h"

namespace utils::nlpdict {

struct PoolBlock;

struct LatticePool {
  PoolBlock *blocks;   // newest first
  uint32_t next_size;  // bytes of the next block
};

// A lattice node as the library makes it: the public record, then the pool
// that the lattice's first node owns (null on every other node).
struct LatticeNode {
  NLPDIC_Node node;
  LatticePool *pool;
};

// A pool whose first block holds about `first_bytes`; null when memory is
// exhausted.
LatticePool *make_pool(uint64_t first_bytes);
void free_pool(LatticePool *pool);

// A zero-filled node, or null when memory is exhausted.
LatticeNode *pool_node(LatticePool *pool);
// A zero-terminated copy of `units` code units, or null.
bsr_wchar *pool_string(LatticePool *pool, const bsr_wchar *text, uint32_t units);
// The same from UTF-16 text in an image (no alignment assumed).
bsr_wchar *pool_image_string(LatticePool *pool, const uint8_t *text, uint32_t units);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_LATTICE_POOL_H
