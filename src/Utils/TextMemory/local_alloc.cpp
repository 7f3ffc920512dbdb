// local_alloc.cpp - the local allocator: zero-filled blocks whose size is
// remembered in a small header, so that growing a block can zero exactly its
// new tail.
#include "Utils/TextMemory/block_cache.h"
#include "bsr_string.h"

#include <pthread.h>

#include <cstdlib>
#include <cstring>

namespace {

// The header keeps the block size and preserves malloc's 16-byte alignment.
struct alignas(16) BlockHeader {
  size_t size;
};

inline BlockHeader *header_of(void *ptr) { return static_cast<BlockHeader *>(ptr) - 1; }

inline size_t at_least_one(uint32_t size) { return size == 0 ? 1 : size; }

// The model makes and frees small blocks all the time (value cells, feature
// pairs, names), and the C library's allocator costs more than the work done
// with them. Each thread keeps a few freed small blocks per size class and
// hands them out again, zero-filled. Blocks of a class are allocated with the
// class's full size, so any request of the class fits. Sanitizer builds skip
// the cache, so that every use after free is still caught.
#if defined(__SANITIZE_ADDRESS__)
#define UTILS_BLOCK_CACHE 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer)
#define UTILS_BLOCK_CACHE 0
#endif
#endif
#ifndef UTILS_BLOCK_CACHE
#define UTILS_BLOCK_CACHE 1
#endif

constexpr size_t kClasses = 4;  // 16, 32, 48 and 64 bytes

struct FreeBlock {
  FreeBlock *next;
};

// Plain data, so that reaching it costs one thread-pointer load and no
// initialisation check.
struct BlockCache {
  FreeBlock *heads[kClasses];
  int counts[kClasses];
  bool registered;  // the thread's exit releases the cache
};

#if UTILS_BLOCK_CACHE
constexpr size_t kClassBytes = 16;
constexpr int kBlocksPerClass = 32;

// The class of a size (0 for 1..16 bytes ...), kClasses when too large.
inline size_t class_of(size_t n) { return (n - 1) / kClassBytes; }

__attribute__((tls_model("initial-exec"))) thread_local BlockCache block_cache;

pthread_key_t exit_key;
pthread_once_t exit_key_once = PTHREAD_ONCE_INIT;

// Runs when a thread that kept blocks ends (the main thread's blocks stay
// reachable until the process ends).
void release_cache(void *) {
  for (size_t c = 0; c < kClasses; ++c) {
    for (FreeBlock *b = block_cache.heads[c]; b != nullptr; b = block_cache.heads[c]) {
      block_cache.heads[c] = b->next;
      std::free(header_of(b));
    }
    block_cache.counts[c] = 0;
  }
}

void make_exit_key() { pthread_key_create(&exit_key, release_cache); }

// Keeps a block of class c; false when the class is full or the thread's
// exit cannot be told to release it.
bool keep_block(size_t c, void *ptr) {
  BlockCache &cache = block_cache;
  if (cache.counts[c] == kBlocksPerClass) return false;
  if (!cache.registered) {
    pthread_once(&exit_key_once, make_exit_key);
    if (pthread_setspecific(exit_key, &cache) != 0) return false;
    cache.registered = true;
  }
  auto *b = static_cast<FreeBlock *>(ptr);
  b->next = cache.heads[c];
  cache.heads[c] = b;
  ++cache.counts[c];
  return true;
}

void *take_block(size_t c) {
  BlockCache &cache = block_cache;
  FreeBlock *b = cache.heads[c];
  if (b == nullptr) return nullptr;
  cache.heads[c] = b->next;
  --cache.counts[c];
  return b;
}
#endif

void *alloc_block(size_t n) {
#if UTILS_BLOCK_CACHE
  const size_t c = class_of(n);
  if (c < kClasses) {
    n = (c + 1) * kClassBytes;  // room for any request of the class later
    if (void *p = take_block(c); p != nullptr) {
      header_of(p)->size = n;
      auto *bytes = static_cast<unsigned char *>(p);
      for (size_t k = 0; k <= c; ++k) std::memset(bytes + k * kClassBytes, 0, kClassBytes);
      return p;
    }
  }
#endif
  auto *h = static_cast<BlockHeader *>(std::calloc(1, sizeof(BlockHeader) + n));
  if (h == nullptr) return nullptr;
  h->size = n;
  return h + 1;
}

void free_block(void *ptr) {
#if UTILS_BLOCK_CACHE
  // A block's class follows from its recorded size; one grown or shrunk by
  // realloc no longer has its class's full room and is not kept.
  const size_t size = header_of(ptr)->size, c = class_of(size);
  if (c < kClasses && size == (c + 1) * kClassBytes && keep_block(c, ptr)) return;
#endif
  std::free(header_of(ptr));
}

}  // namespace

namespace utils::text {

void release_block_cache() {
#if UTILS_BLOCK_CACHE
  release_cache(nullptr);
#endif
}

}  // namespace utils::text

extern "C" {

UTILS_API void *bsr_safe_alloc(uint32_t size) { return alloc_block(at_least_one(size)); }

UTILS_API void *bsr_safe_calloc(uint32_t size) { return bsr_safe_alloc(size); }

UTILS_API void *bsr_safe_realloc(void *ptr, uint32_t size) {
  if (ptr == nullptr) return bsr_safe_alloc(size);
  size_t n = at_least_one(size);
  BlockHeader *old = header_of(ptr);
  size_t old_size = old->size;
  auto *h = static_cast<BlockHeader *>(std::realloc(old, sizeof(BlockHeader) + n));
  if (h == nullptr) return nullptr;  // the old block is untouched
  if (n > old_size) std::memset(reinterpret_cast<char *>(h + 1) + old_size, 0, n - old_size);
  h->size = n;
  return h + 1;
}

UTILS_API void bsr_free(void *ptr) {
  if (ptr != nullptr) free_block(ptr);
}

UTILS_API char *tts_strdup(const char *s) {
  if (s == nullptr) return nullptr;
  uint32_t len = bsr_strlen(s);
  auto *copy = static_cast<char *>(bsr_safe_alloc(len + 1));
  if (copy != nullptr) std::memcpy(copy, s, len);
  return copy;
}

UTILS_API bsr_wchar *tts_wcsdup(const bsr_wchar *s) {
  if (s == nullptr) return nullptr;
  uint32_t len = bsr_wcslen(s);
  auto *copy = static_cast<bsr_wchar *>(bsr_safe_alloc((len + 1) * sizeof(bsr_wchar)));
  if (copy != nullptr) std::memcpy(copy, s, len * sizeof(bsr_wchar));
  return copy;
}

}  // extern "C"
