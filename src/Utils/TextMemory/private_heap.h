// private_heap.h - the private heap behind each utterance: zero-filled
// records carved from large chunks, recycled through per-size free lists,
// released all at once.
#ifndef UTILS_TEXTMEMORY_PRIVATE_HEAP_H
#define UTILS_TEXTMEMORY_PRIVATE_HEAP_H

#include <cstddef>

#include "utils_types.h"

namespace utils::text {

// Creates an empty heap; its first chunk is taken on the first allocation.
// Null when memory is exhausted.
bsr_heap *heap_create();

// Returns `size` zero bytes (size 0 is taken as 1), 8-byte aligned, or null
// when memory is exhausted. `heap` must not be null.
void *heap_alloc(bsr_heap *heap, size_t size);

// Returns a block to its heap for reuse. Null `ptr` is ignored.
void heap_free(bsr_heap *heap, void *ptr);

// Releases every chunk and block of the heap, then the heap. Null is ignored.
void heap_destroy(bsr_heap *heap);

// Bytes the heap currently holds from the system (chunks and large blocks).
size_t heap_footprint(const bsr_heap *heap);

// Allocate from `heap`, or from the local allocator when `heap` is null; free
// the same way. Records that may live on either use these.
void *alloc_on(bsr_heap *heap, size_t size);
void free_on(bsr_heap *heap, void *ptr);

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_PRIVATE_HEAP_H
