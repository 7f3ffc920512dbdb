// string_numbers.cpp - integer to text in any radix up to 36, and decimal text
// to integer, for narrow and wide strings.
#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

// Radix 1 would never terminate the digit loop; like radix 0 it gives "".
// The magnitude is taken in 64 bits, so INT32_MIN prints correctly too.
template <typename Unit>
Unit *format_integer(int32_t value, Unit *buf, int32_t radix) {
  if (buf == nullptr) return nullptr;
  buf[0] = 0;
  if (radix < 2) return buf;
  int64_t magnitude = value < 0 ? -static_cast<int64_t>(value) : value;
  size_t n = 0;
  do {
    int d = static_cast<int>(magnitude % radix);
    buf[n++] = static_cast<Unit>(d < 10 ? '0' + d : 'a' + d - 10);
    magnitude /= radix;
  } while (magnitude != 0);
  if (value < 0) buf[n++] = '-';
  for (size_t k = 0; k < n / 2; ++k) {
    Unit t = buf[k];
    buf[k] = buf[n - 1 - k];
    buf[n - 1 - k] = t;
  }
  buf[n] = 0;
  return buf;
}

template <typename Unit>
int32_t parse_integer(const Unit *s) {
  if (s == nullptr) return 0;
  while (*s == ' ' || *s == '\t') ++s;
  bool negative = false;
  if (*s == '-') {
    negative = true;
    ++s;
  }
  uint32_t value = 0;  // unsigned, so that overflow wraps without undefined behaviour
  for (; *s >= '0' && *s <= '9'; ++s) value = value * 10u + static_cast<uint32_t>(*s - '0');
  return static_cast<int32_t>(negative ? 0u - value : value);
}

}  // namespace

extern "C" {

UTILS_API char *bsr_itoa(int32_t value, char *buf, int32_t radix) {
  return format_integer(value, buf, radix);
}
UTILS_API bsr_wchar *bsr_itow(int32_t value, bsr_wchar *buf, int32_t radix) {
  return format_integer(value, buf, radix);
}

UTILS_API int32_t bsr_atoi(const char *s) { return parse_integer(s); }
UTILS_API int32_t bsr_wtoi(const bsr_wchar *s) { return parse_integer(s); }

}  // extern "C"
