// The private heap behind each utterance: zero-filled records carved from
// large chunks, recycled through per-size free lists, released all at once.
#ifndef UTILS_PRIVATE_HEAP_H
#define UTILS_PRIVATE_HEAP_H

#include <cstddef>

#include "utils_types.h"

// Creates an empty heap; its first chunk is taken on the first allocation.
// Null when memory is exhausted.
bsr_heap *bsr_heap_create();

// Returns `size` zero bytes (size 0 is taken as 1), 8-byte aligned, or null
// when memory is exhausted. `heap` must not be null.
void *bsr_heap_alloc(bsr_heap *heap, size_t size);

// Returns a block to its heap for reuse. Null `ptr` is ignored.
void bsr_heap_free(bsr_heap *heap, void *ptr);

// Releases every chunk and block of the heap, then the heap. Null is ignored.
void bsr_heap_destroy(bsr_heap *heap);

// Bytes the heap currently holds from the system (chunks and large blocks).
size_t bsr_heap_footprint(const bsr_heap *heap);

// Allocate from `heap`, or from the local allocator when `heap` is null; free
// the same way. Records that may live on either use these.
void *bsr_alloc_on(bsr_heap *heap, size_t size);
void bsr_free_on(bsr_heap *heap, void *ptr);

#endif  // UTILS_PRIVATE_HEAP_H
