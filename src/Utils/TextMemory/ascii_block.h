// ascii_block.h - moves blocks of sixteen ASCII units between bytes and 16-bit
// units in one step, for the fast paths of the UTF-8 <-> UTF-16 converters.
#ifndef UTILS_TEXTMEMORY_ASCII_BLOCK_H
#define UTILS_TEXTMEMORY_ASCII_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "utils_types.h"

// UTILS_TEXT_PORTABLE builds the plain C++ paths on x86 too, to test them.
#if defined(__SSE2__) && !defined(UTILS_TEXT_PORTABLE)
#include <emmintrin.h>
#define UTILS_TEXT_SSE2 1
#endif

namespace utils::text {

// Both functions look at exactly kAsciiBlock source units. When all of them
// are ASCII they write kAsciiBlock target units and return true; otherwise
// they write nothing and return false. The caller guarantees the room.
constexpr size_t kAsciiBlock = 16;

#if UTILS_TEXT_SSE2

inline bool widen_ascii_block(const unsigned char *s, bsr_wchar *d) {
  const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  if (_mm_movemask_epi8(v) != 0) return false;  // some byte has its top bit set
  const __m128i zero = _mm_setzero_si128();
  _mm_storeu_si128(reinterpret_cast<__m128i *>(d), _mm_unpacklo_epi8(v, zero));
  _mm_storeu_si128(reinterpret_cast<__m128i *>(d + 8), _mm_unpackhi_epi8(v, zero));
  return true;
}

// Widens the ASCII bytes at the start of the sixteen at s into d and
// returns how many they are (kAsciiBlock when all are). Exactly that many
// units are written, so nothing lands behind the text even where the
// conversion stops next: a short prefix is written as two overlapping
// stores that end where it ends.
inline unsigned widen_ascii_prefix(const unsigned char *s, bsr_wchar *d) {
  const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  const unsigned high = static_cast<unsigned>(_mm_movemask_epi8(v));
  const unsigned ascii = static_cast<unsigned>(__builtin_ctz(high | 0x10000u));
  const __m128i zero = _mm_setzero_si128();
  if (ascii == kAsciiBlock) {
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d), _mm_unpacklo_epi8(v, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d + 8), _mm_unpackhi_epi8(v, zero));
  } else if (ascii >= 8) {
    const __m128i last = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(s + ascii - 8));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d), _mm_unpacklo_epi8(v, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(d + ascii - 8), _mm_unpacklo_epi8(last, zero));
  } else if (ascii >= 4) {
    int32_t tail;
    std::memcpy(&tail, s + ascii - 4, sizeof tail);
    _mm_storel_epi64(reinterpret_cast<__m128i *>(d), _mm_unpacklo_epi8(v, zero));
    _mm_storel_epi64(reinterpret_cast<__m128i *>(d + ascii - 4),
                     _mm_unpacklo_epi8(_mm_cvtsi32_si128(tail), zero));
  } else {
    for (unsigned k = 0; k < ascii; ++k) d[k] = s[k];
  }
  return ascii;
}

inline bool narrow_ascii_block(const bsr_wchar *s, unsigned char *d) {
  const __m128i lo = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  const __m128i hi = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s + 8));
  // A unit is ASCII when no bit above the low seven is set.
  const __m128i above = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i high_bits = _mm_and_si128(_mm_or_si128(lo, hi), above);
  if (_mm_movemask_epi8(_mm_cmpeq_epi16(high_bits, _mm_setzero_si128())) != 0xFFFF) return false;
  _mm_storeu_si128(reinterpret_cast<__m128i *>(d), _mm_packus_epi16(lo, hi));
  return true;
}

// Narrows the first eight units, or else the first four, when they are
// ASCII, and returns how many it narrowed (8, 4 or 0); it writes exactly
// that many bytes.
inline unsigned narrow_ascii_half_block(const bsr_wchar *s, unsigned char *d) {
  const __m128i u = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  const __m128i high_bits = _mm_and_si128(u, _mm_set1_epi16(static_cast<short>(0xFF80)));
  const unsigned ascii =
      static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi16(high_bits, _mm_setzero_si128())));
  const __m128i bytes = _mm_packus_epi16(u, u);
  if (ascii == 0xFFFF) {
    _mm_storel_epi64(reinterpret_cast<__m128i *>(d), bytes);
    return 8;
  }
  if ((ascii & 0xFF) == 0xFF) {
    const int32_t four = _mm_cvtsi128_si32(bytes);
    std::memcpy(d, &four, sizeof four);
    return 4;
  }
  return 0;
}

#else  // Portable form: 64-bit words tested with one mask each.

inline bool widen_ascii_block(const unsigned char *s, bsr_wchar *d) {
  uint64_t w[2];
  std::memcpy(w, s, sizeof w);
  if (((w[0] | w[1]) & 0x8080808080808080ull) != 0) return false;
  for (size_t k = 0; k < kAsciiBlock; ++k) d[k] = s[k];
  return true;
}

inline bool narrow_ascii_block(const bsr_wchar *s, unsigned char *d) {
  uint64_t w[4];
  std::memcpy(w, s, sizeof w);
  if (((w[0] | w[1] | w[2] | w[3]) & 0xFF80FF80FF80FF80ull) != 0) return false;
  for (size_t k = 0; k < kAsciiBlock; ++k) d[k] = static_cast<unsigned char>(s[k]);
  return true;
}

#endif

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_ASCII_BLOCK_H
