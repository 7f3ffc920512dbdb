// local_alloc.cpp - the local allocator: zero-filled blocks whose size is
// remembered in a small header, so that growing a block can zero exactly its
// new tail.
#include "bsr_string.h"

#include <cstdlib>
#include <cstring>

namespace {

// The header keeps the block size and preserves malloc's 16-byte alignment.
struct alignas(16) BlockHeader {
  size_t size;
};

inline BlockHeader *header_of(void *ptr) { return static_cast<BlockHeader *>(ptr) - 1; }

inline size_t at_least_one(uint32_t size) { return size == 0 ? 1 : size; }

}  // namespace

extern "C" {

UTILS_API void *bsr_safe_alloc(uint32_t size) {
  size_t n = at_least_one(size);
  auto *h = static_cast<BlockHeader *>(std::calloc(1, sizeof(BlockHeader) + n));
  if (h == nullptr) return nullptr;
  h->size = n;
  return h + 1;
}

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
  if (ptr != nullptr) std::free(header_of(ptr));
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
