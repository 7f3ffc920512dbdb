// string_copy.cpp - length, copy, concatenation and the runtime-heap duplicates
// of narrow and wide strings.
#include <cstdlib>
#include <cstring>

#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

template <typename Unit>
void copy(Unit *dst, const Unit *src) {
  if (dst == nullptr || dst == src) return;
  dst[0] = 0;
  if (src == nullptr) return;
  size_t n = utils::text::length(src);
  std::memmove(dst, src, (n + 1) * sizeof(Unit));
}

// Never pads and never terminates a copy cut at n units.
template <typename Unit>
void copy_bounded(Unit *dst, const Unit *src, int32_t n) {
  if (dst == nullptr || dst == src) return;
  dst[0] = 0;
  if (src == nullptr) return;
  for (int32_t i = 0; i < n; ++i) {
    dst[i] = src[i];
    if (src[i] == 0) break;
  }
}

template <typename Unit>
void append(Unit *dst, const Unit *src) {
  if (dst == nullptr || src == nullptr) return;
  copy(dst + utils::text::length(dst), src);
}

template <typename Unit>
Unit *heap_copy(const Unit *s, size_t units_to_allocate, size_t units_to_copy) {
  auto *out = static_cast<Unit *>(std::malloc(units_to_allocate * sizeof(Unit)));
  if (out == nullptr) return nullptr;
  std::memcpy(out, s, units_to_copy * sizeof(Unit));
  return out;
}

template <typename Unit>
Unit *duplicate(const Unit *s) {
  if (s == nullptr) return nullptr;
  size_t n = utils::text::length(s) + 1;
  return heap_copy(s, n, n);
}

// Always n+1 units; a longer s is cut at n and terminated there.
template <typename Unit>
Unit *duplicate_bounded(const Unit *s, uint32_t n) {
  if (s == nullptr) return nullptr;
  size_t cap = static_cast<size_t>(n) + 1;
  size_t len = 0;
  while (len < n && s[len] != 0) ++len;  // never reads past n units
  Unit *out = heap_copy(s, cap, len);
  if (out != nullptr) out[len] = 0;
  return out;
}

}  // namespace

extern "C" {

UTILS_API uint32_t bsr_strlen(const char *s) {
  return s != nullptr ? static_cast<uint32_t>(std::strlen(s)) : 0;
}
UTILS_API uint32_t bsr_wcslen(const bsr_wchar *s) {
  return s != nullptr ? static_cast<uint32_t>(utils::text::length(s)) : 0;
}

UTILS_API void bsr_strcpy(char *dst, const char *src) { copy(dst, src); }
UTILS_API void bsr_wcscpy(bsr_wchar *dst, const bsr_wchar *src) { copy(dst, src); }

UTILS_API void bsr_strncpy(char *dst, const char *src, int32_t n) { copy_bounded(dst, src, n); }
UTILS_API void bsr_wcsncpy(bsr_wchar *dst, const bsr_wchar *src, int32_t n) {
  copy_bounded(dst, src, n);
}

UTILS_API void bsr_strcat(char *dst, const char *src) { append(dst, src); }
UTILS_API void bsr_wcscat(bsr_wchar *dst, const bsr_wchar *src) { append(dst, src); }

UTILS_API char *bsr_strdup(const char *s) { return duplicate(s); }
UTILS_API bsr_wchar *bsr_wcsdup(const bsr_wchar *s) { return duplicate(s); }

UTILS_API char *bsr_strndup(const char *s, uint32_t n) { return duplicate_bounded(s, n); }
UTILS_API bsr_wchar *bsr_wcsndup(const bsr_wchar *s, uint32_t n) { return duplicate_bounded(s, n); }

}  // extern "C"
