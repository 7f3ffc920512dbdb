// widen.cpp - byte-to-unit widening that does not decode UTF-8 (each byte is a
// signed char, so 0x80-0xFF become 0xFF80-0xFFFF), and the plain unit copy.
#include "bsr_unicode.h"

namespace {

inline bsr_wchar widen_byte(char c) {
  return static_cast<bsr_wchar>(static_cast<int16_t>(static_cast<signed char>(c)));
}

}  // namespace

extern "C" {

UTILS_API void bsr_Char2Word(const char *src, bsr_wchar *dst, int32_t n) {
  if (src == nullptr || dst == nullptr || n <= 0) return;
  for (int32_t i = 0; i < n; ++i) dst[i] = widen_byte(src[i]);
}

// A target size of 0 cannot hold even the terminator: nothing is written.
UTILS_API bsr_wchar *bsr_Char2Unicode(const char *src, bsr_wchar *dst, uint32_t dstsize) {
  if (dst == nullptr || dstsize == 0) return dst;
  uint32_t i = 0;
  if (src != nullptr)
    for (; i < dstsize - 1 && src[i] != 0; ++i) dst[i] = widen_byte(src[i]);
  dst[i] = 0;
  return dst;
}

UTILS_API void bsr_Unicode2Word(const bsr_wchar *src, bsr_wchar *dst, int32_t n) {
  if (src == nullptr || dst == nullptr || n < 1) return;
  for (int32_t i = 0; i < n; ++i) dst[i] = src[i];
}

}  // extern "C"
