// utf8_three_byte_run.h - Chinese and Japanese text in UTF-8 is runs of three-
// byte characters; these convert such runs to UTF-16 two characters per step,
// with one mask check.
#ifndef UTILS_TEXTMEMORY_UTF8_THREE_BYTE_RUN_H
#define UTILS_TEXTMEMORY_UTF8_THREE_BYTE_RUN_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "utils_types.h"

namespace utils::text {

// Four three-byte leads in a row (each byte 1110xxxx): a run worth the
// pairwise loop below, which beats decoding blocks of which two thirds of
// the lanes are dropped. The caller guarantees ten readable bytes.
inline bool starts_three_byte_run(const unsigned char *s) {
  return ((s[0] & s[3] & s[6] & s[9]) & 0xF0) == 0xE0 && ((s[0] | s[3] | s[6] | s[9]) & 0x10) == 0;
}

inline uint64_t load_le64(const unsigned char *s) {
  uint64_t w;
  std::memcpy(&w, s, sizeof w);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
  w = __builtin_bswap64(w);
#endif
  return w;
}

// The value of the three-byte form in the low 24 bits of w (first byte
// lowest), which the caller has checked to read 1110xxxx 10xxxxxx 10xxxxxx.
inline uint32_t three_byte_value(uint64_t w) {
  return static_cast<uint32_t>((w & 0x0F) << 12 | (w & 0x3F00) >> 2 | (w >> 16 & 0x3F));
}

// A three-byte value must be neither overlong (below 0x800) nor a
// surrogate: its top five bits are neither 00000 nor 11011.
constexpr uint32_t kBadThreeByteTop = (1u << 0x00) | (1u << 0x1B);

// Converts three-byte characters two at a time while they last, checking
// both leads and all four trailing bytes with one mask. Leaves anything
// else, an ill-formed pair included, to the block decoder. Returns whether
// it converted anything.
inline bool convert_three_byte_run(const unsigned char *&s, const unsigned char *end, bsr_wchar *&d,
                                   bsr_wchar *dend) {
  const unsigned char *const start = s;
  ptrdiff_t pairs = (end - s - 2) / 6;  // each step reads eight bytes
  if ((dend - d) / 2 < pairs) pairs = (dend - d) / 2;
  for (; pairs > 0; --pairs) {
    const uint64_t w = load_le64(s);
    if ((w & 0xC0C0F0C0C0F0ull) != 0x8080E08080E0ull) break;
    const uint32_t first = three_byte_value(w), second = three_byte_value(w >> 24);
    if (((kBadThreeByteTop >> (first >> 11)) | (kBadThreeByteTop >> (second >> 11))) & 1) break;
    d[0] = static_cast<bsr_wchar>(first);
    d[1] = static_cast<bsr_wchar>(second);
    d += 2;
    s += 6;
  }
  return s != start;
}

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_UTF8_THREE_BYTE_RUN_H
