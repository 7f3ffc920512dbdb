// block_cache.h - control over the small blocks the local allocator keeps
// for reuse on each thread.
#ifndef UTILS_TEXTMEMORY_BLOCK_CACHE_H
#define UTILS_TEXTMEMORY_BLOCK_CACHE_H

namespace utils::text {

// Frees the blocks the calling thread keeps for reuse. Nothing needs it for
// correctness; a test that counts the blocks still allocated calls it first,
// so that kept blocks are not taken for leaks.
void release_block_cache();

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_BLOCK_CACHE_H
