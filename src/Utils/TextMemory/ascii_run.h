// Moves runs of ASCII between bytes and 16-bit units sixteen at a time, for
// the fast paths of the UTF-8 <-> UTF-16 converters (SSE2 or plain words).
#ifndef UTILS_ASCII_RUN_H
#define UTILS_ASCII_RUN_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "utils_types.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define UTILS_ASCII_RUN_SSE2 1
#endif

namespace bsr {

// Both functions below look at exactly 16 units of the source and may write
// up to 16 units of the target: the caller guarantees that much on each side.
// They write only the ASCII prefix they report, nothing after it, so a
// conversion that stops right behind the run leaves the rest of the target
// untouched. The first source unit must be ASCII; the result is the length
// of the ASCII prefix, 1 to 16.
constexpr size_t kAsciiBlock = 16;

inline unsigned lowest_set_bit(uint64_t x) {
  return static_cast<unsigned>(__builtin_ctzll(x));
}

#if UTILS_ASCII_RUN_SSE2

inline size_t widen_ascii_run(const unsigned char *s, bsr_wchar *d) {
  const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  const __m128i zero = _mm_setzero_si128();
  const unsigned high = static_cast<unsigned>(_mm_movemask_epi8(v));
  if (high == 0) {
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d), _mm_unpacklo_epi8(v, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d + 8), _mm_unpackhi_epi8(v, zero));
    return kAsciiBlock;
  }
  const size_t n = lowest_set_bit(high);
  size_t i = 0;
  if (n >= 8) {
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d), _mm_unpacklo_epi8(v, zero));
    i = 8;
  }
  for (; i < n; ++i) d[i] = s[i];
  return n;
}

inline size_t narrow_ascii_run(const bsr_wchar *s, unsigned char *d) {
  const __m128i lo = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  const __m128i hi = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s + 8));
  // A unit is ASCII when its bits above the low seven are all clear.
  const __m128i above = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i zero = _mm_setzero_si128();
  const __m128i ok_lo = _mm_cmpeq_epi16(_mm_and_si128(lo, above), zero);
  const __m128i ok_hi = _mm_cmpeq_epi16(_mm_and_si128(hi, above), zero);
  const unsigned ok = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(ok_lo, ok_hi)));
  const __m128i bytes = _mm_packus_epi16(lo, hi);
  if (ok == 0xFFFF) {
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d), bytes);
    return kAsciiBlock;
  }
  const size_t n = lowest_set_bit(~ok & 0xFFFFu);
  size_t i = 0;
  if (n >= 8) {
    _mm_storel_epi64(reinterpret_cast<__m128i *>(d), bytes);
    i = 8;
  }
  for (; i < n; ++i) d[i] = static_cast<unsigned char>(s[i]);
  return n;
}

#else  // Portable form: eight bytes or four units tested with one mask.

inline size_t widen_ascii_run(const unsigned char *s, bsr_wchar *d) {
  for (size_t i = 0; i < kAsciiBlock; i += 8) {
    uint64_t w;
    std::memcpy(&w, s + i, 8);
    const uint64_t high = w & 0x8080808080808080ull;
    if (high != 0) {
      // Byte order only matters for finding the first non-ASCII byte.
      size_t n = 0;
      while (s[i + n] < 0x80) {
        d[i + n] = s[i + n];
        ++n;
      }
      return i + n;
    }
    for (size_t k = 0; k < 8; ++k) d[i + k] = s[i + k];
  }
  return kAsciiBlock;
}

inline size_t narrow_ascii_run(const bsr_wchar *s, unsigned char *d) {
  for (size_t i = 0; i < kAsciiBlock; i += 4) {
    uint64_t w;
    std::memcpy(&w, s + i, 8);
    if ((w & 0xFF80FF80FF80FF80ull) != 0) {
      size_t n = 0;
      while (s[i + n] < 0x80) {
        d[i + n] = static_cast<unsigned char>(s[i + n]);
        ++n;
      }
      return i + n;
    }
    for (size_t k = 0; k < 4; ++k) d[i + k] = static_cast<unsigned char>(s[i + k]);
  }
  return kAsciiBlock;
}

#endif

}  // namespace bsr

#endif  // UTILS_ASCII_RUN_H
