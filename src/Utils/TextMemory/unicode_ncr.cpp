// unicode_ncr.cpp - renders wide text as printable ASCII: units 32-126 stand
// for themselves, every other unit becomes "&(0x<hex>)" (our own form, not an
// XML reference).
#include "bsr_string.h"
#include "bsr_unicode.h"

namespace {

constexpr char kOpen[] = "&(0x";  // then lower-case hex digits, then ')'
constexpr int32_t kOpenLength = 4;
constexpr int32_t kFixedLength = kOpenLength + 1;

inline bool is_printable_ascii(bsr_wchar c) { return c >= 32 && c <= 126; }

// Appends the reference for c at dst[pos] if it fits with the terminator
// after it; returns the new position, or -1 when it does not fit.
int32_t append_reference(bsr_wchar c, char *dst, int32_t pos, int32_t dstsize) {
  char hex[8];
  bsr_itoa(static_cast<int32_t>(c), hex, 16);
  const int32_t digits = static_cast<int32_t>(bsr_strlen(hex));
  if (digits + pos + kFixedLength >= dstsize) return -1;
  for (int32_t i = 0; i < kOpenLength; ++i) dst[pos++] = kOpen[i];
  for (int32_t i = 0; i < digits; ++i) dst[pos++] = hex[i];
  dst[pos++] = ')';
  return pos;
}

}  // namespace

extern "C" {

// A target size below 1 cannot hold even the terminator: nothing is written.
UTILS_API const char *bsr_UnicodeToNCR(const bsr_wchar *src, char *dst, int32_t dstsize) {
  static const char kEmpty[] = "";
  if (dst == nullptr) return kEmpty;
  if (dstsize < 1) return dst;
  dst[0] = 0;
  if (src == nullptr) return dst;
  int32_t pos = 0;
  for (; *src != 0; ++src) {
    if (is_printable_ascii(*src)) {
      if (pos + 1 >= dstsize) break;
      dst[pos++] = static_cast<char>(*src);
    } else {
      const int32_t next = append_reference(*src, dst, pos, dstsize);
      if (next < 0) break;
      pos = next;
    }
  }
  dst[pos] = 0;
  return dst;
}

}  // extern "C"
