// private_heap.cpp - the private heap: blocks are bumped out of large zeroed
// chunks; a freed block goes on the free list of its size class; destruction
// frees chunks.
#include "Utils/TextMemory/private_heap.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "bsr_string.h"

namespace {

// Every block starts with one 8-byte word telling its size class, so that
// freeing needs no size from the caller. Class 0 marks a large block that
// lives outside the chunks.
constexpr size_t kGrain = 8;
constexpr size_t kMaxSmall = 1024;
constexpr size_t kClasses = kMaxSmall / kGrain + 1;
// Chunks stay below the C library's mmap threshold (128 KiB), so that the
// chunks of a deleted utterance are reused by the next one instead of going
// back to the kernel and faulting in again. A typical sentence fits in one.
constexpr size_t kChunk = 60 * 1024;

struct BlockTag {
  uint64_t size_class;
};

struct FreeBlock {
  FreeBlock *next;
};

struct Chunk {
  Chunk *next;
  size_t size;  // bytes after this header
};

struct LargeBlock {
  LargeBlock *prev;
  LargeBlock *next;
  size_t size;
  BlockTag tag;  // immediately before the user's bytes, like every block
};

inline size_t class_of(size_t size) { return (size + kGrain - 1) / kGrain; }

}  // namespace

// The heap record is the interface's opaque bsr_heap.
struct bsr_heap {
  Chunk *chunks;
  char *bump;      // next free byte of the newest chunk
  char *bump_end;  // end of the newest chunk
  size_t footprint;
  LargeBlock *large;
  FreeBlock *free_lists[kClasses];
};

namespace {

// Small blocks always fit a chunk; larger ones never come here.
bool add_chunk(bsr_heap *heap) {
  const size_t size = kChunk;
  auto *chunk = static_cast<Chunk *>(std::calloc(1, sizeof(Chunk) + size));
  if (chunk == nullptr) return false;
  chunk->next = heap->chunks;
  chunk->size = size;
  heap->chunks = chunk;
  heap->bump = reinterpret_cast<char *>(chunk + 1);
  heap->bump_end = heap->bump + size;
  heap->footprint += sizeof(Chunk) + size;
  return true;
}

void *alloc_large(bsr_heap *heap, size_t size) {
  auto *block = static_cast<LargeBlock *>(std::calloc(1, sizeof(LargeBlock) + size));
  if (block == nullptr) return nullptr;
  block->next = heap->large;
  if (heap->large != nullptr) heap->large->prev = block;
  heap->large = block;
  block->size = size;
  block->tag.size_class = 0;
  heap->footprint += sizeof(LargeBlock) + size;
  return block + 1;
}

}  // namespace

namespace utils::text {

bsr_heap *heap_create() { return static_cast<bsr_heap *>(std::calloc(1, sizeof(bsr_heap))); }

void *heap_alloc(bsr_heap *heap, size_t size) {
  if (size == 0) size = 1;
  if (size > kMaxSmall) return alloc_large(heap, size);
  size_t cls = class_of(size);
  size_t bytes = cls * kGrain;
  if (FreeBlock *reused = heap->free_lists[cls]; reused != nullptr) {
    heap->free_lists[cls] = reused->next;
    std::memset(reused, 0, bytes);
    return reused;
  }
  size_t whole = sizeof(BlockTag) + bytes;
  if (static_cast<size_t>(heap->bump_end - heap->bump) < whole && !add_chunk(heap)) return nullptr;
  auto *tag = reinterpret_cast<BlockTag *>(heap->bump);
  heap->bump += whole;
  tag->size_class = cls;
  return tag + 1;  // chunk memory is still zero from calloc
}

void heap_free(bsr_heap *heap, void *ptr) {
  if (ptr == nullptr || heap == nullptr) return;
  BlockTag *tag = static_cast<BlockTag *>(ptr) - 1;
  if (tag->size_class == 0) {
    LargeBlock *block = static_cast<LargeBlock *>(ptr) - 1;
    if (block->prev != nullptr)
      block->prev->next = block->next;
    else
      heap->large = block->next;
    if (block->next != nullptr) block->next->prev = block->prev;
    heap->footprint -= sizeof(LargeBlock) + block->size;
    std::free(block);
    return;
  }
  auto *freed = static_cast<FreeBlock *>(ptr);
  freed->next = heap->free_lists[tag->size_class];
  heap->free_lists[tag->size_class] = freed;
}

void heap_destroy(bsr_heap *heap) {
  if (heap == nullptr) return;
  for (Chunk *c = heap->chunks; c != nullptr;) {
    Chunk *next = c->next;
    std::free(c);
    c = next;
  }
  for (LargeBlock *b = heap->large; b != nullptr;) {
    LargeBlock *next = b->next;
    std::free(b);
    b = next;
  }
  std::free(heap);
}

size_t heap_footprint(const bsr_heap *heap) { return heap != nullptr ? heap->footprint : 0; }

void *alloc_on(bsr_heap *heap, size_t size) {
  if (heap != nullptr) return heap_alloc(heap, size);
  return size > UINT32_MAX ? nullptr : bsr_safe_alloc(static_cast<uint32_t>(size));
}

void free_on(bsr_heap *heap, void *ptr) {
  if (heap != nullptr)
    heap_free(heap, ptr);
  else
    bsr_free(ptr);
}

}  // namespace utils::text
