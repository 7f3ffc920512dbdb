// Block-wise search for the first difference of two strings: 32-byte AVX2
// blocks where the processor has them, 8-byte words elsewhere.
//
// Blocks may read past a string's terminator, but never across a page
// boundary that the string itself does not reach, so the reads cannot fault.
// Near a page end the last block is taken so that it ends exactly at the
// boundary, overlapping bytes already known equal. Such reads of bytes past
// the terminator are deliberate, so address checking is turned off here.
#include "Utils/TextMemory/first_difference.h"

#include <cstdint>

#if (defined(__x86_64__) || defined(__i386__)) && !defined(UTILS_NO_AVX2)
#include <immintrin.h>
#define UTILS_HAVE_AVX2_PATH 1
#endif

#if defined(__clang__) || defined(__GNUC__)
#define NO_ADDRESS_CHECK __attribute__((no_sanitize_address))
#else
#define NO_ADDRESS_CHECK
#endif

namespace {

constexpr uintptr_t kPage = 4096;

inline size_t bytes_to_page_end(const void *p) {
  return kPage - (reinterpret_cast<uintptr_t>(p) & (kPage - 1));
}

// Bytes from a+i and b+i up to the nearer page end.
inline size_t safe_room(const uint8_t *a, const uint8_t *b) {
  size_t ra = bytes_to_page_end(a), rb = bytes_to_page_end(b);
  return ra < rb ? ra : rb;
}

template <typename Unit>
size_t scalar_scan(const Unit *a, const Unit *b, size_t from, size_t count) {
  for (size_t i = from; i < from + count; ++i)
    if (a[i] != b[i] || a[i] == 0) return i;
  return SIZE_MAX;
}

#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
// Word of flags, high bit of each unit set where the unit is "bad": it
// differs between the strings or is the terminator. The lowest flag is exact.
template <typename Unit>
inline uint64_t word_flags(uint64_t x, uint64_t y) {
  constexpr uint64_t ones = sizeof(Unit) == 1 ? 0x0101010101010101ull : 0x0001000100010001ull;
  constexpr uint64_t highs = ones << (8 * sizeof(Unit) - 1);
  constexpr uint64_t lows = highs - ones;  // every bit but the high one of each unit
  uint64_t zero = (x - ones) & ~x & highs;
  uint64_t d = x ^ y;
  uint64_t nonzero = (((d & lows) + lows) | d) & highs;
  return zero | nonzero;
}

// A plain unaligned load, not a library call, so it stays unchecked.
typedef uint64_t __attribute__((may_alias, aligned(1))) unaligned_u64;
NO_ADDRESS_CHECK inline uint64_t load_word(const uint8_t *p) {
  return *reinterpret_cast<const unaligned_u64 *>(p);
}

template <typename Unit>
NO_ADDRESS_CHECK size_t word_scan(const Unit *a, const Unit *b) {
  constexpr size_t W = 8;  // bytes per step
  const auto *pa = reinterpret_cast<const uint8_t *>(a);
  const auto *pb = reinterpret_cast<const uint8_t *>(b);
  size_t i = 0;  // in bytes
  for (;;) {
    size_t room = safe_room(pa + i, pb + i);
    size_t at = i;
    if (room < W) {
      if (i + room < W) {
        size_t hit = scalar_scan(a, b, i / sizeof(Unit), room / sizeof(Unit));
        if (hit != SIZE_MAX) return hit;
        i += room;
        continue;
      }
      at = i + room - W;  // a block ending at the page boundary
    }
    if (uint64_t flags = word_flags<Unit>(load_word(pa + at), load_word(pb + at)))
      return (at + __builtin_ctzll(flags) / 8) / sizeof(Unit);
    i = room < W ? i + room : i + W;
  }
}
#else
template <typename Unit>
size_t word_scan(const Unit *a, const Unit *b) {
  return scalar_scan(a, b, 0, SIZE_MAX - 1);
}
#endif

#ifdef UTILS_HAVE_AVX2_PATH
__attribute__((target("avx2"))) NO_ADDRESS_CHECK inline __m256i load(const uint8_t *p) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i *>(p));
}

// Per unit: zero where the unit is bad (differs, or is the terminator),
// non-zero elsewhere, so several blocks combine with one unsigned min.
template <typename Unit>
__attribute__((target("avx2"))) inline __m256i goodness(__m256i x, __m256i y) {
  if (sizeof(Unit) == 1) return _mm256_min_epu8(x, _mm256_cmpeq_epi8(x, y));
  return _mm256_min_epu16(x, _mm256_cmpeq_epi16(x, y));
}

// One bit per byte, set on the bytes of bad units.
template <typename Unit>
__attribute__((target("avx2"))) inline uint32_t bad_bytes(__m256i good) {
  const __m256i zero = _mm256_setzero_si256();
  __m256i bad = sizeof(Unit) == 1 ? _mm256_cmpeq_epi8(good, zero) : _mm256_cmpeq_epi16(good, zero);
  return static_cast<uint32_t>(_mm256_movemask_epi8(bad));
}

template <typename Unit>
__attribute__((target("avx2"))) NO_ADDRESS_CHECK inline uint32_t block_flags(const uint8_t *a,
                                                                             const uint8_t *b) {
  return bad_bytes<Unit>(goodness<Unit>(load(a), load(b)));
}

template <typename Unit>
__attribute__((target("avx2"))) NO_ADDRESS_CHECK size_t avx2_scan(const Unit *a, const Unit *b) {
  constexpr size_t W = 32;
  const auto *pa = reinterpret_cast<const uint8_t *>(a);
  const auto *pb = reinterpret_cast<const uint8_t *>(b);
  size_t i = 0;  // in bytes
  for (;;) {
    size_t room = safe_room(pa + i, pb + i);
    if (room >= W) {
      // One block first: most strings end inside it.
      if (uint32_t f = block_flags<Unit>(pa + i, pb + i)) return (i + __builtin_ctz(f)) / sizeof(Unit);
      // Then step to a 32-byte boundary of `a`, so that its loads never
      // straddle cache lines (the step keeps wide units whole).
      size_t step = W - (reinterpret_cast<uintptr_t>(pa + i) & (W - 1));
      i += step;
      room -= step;
      // Long equal runs: four blocks per step, located only on a hit.
      for (; room >= 4 * W; i += 4 * W, room -= 4 * W) {
        __m256i g = _mm256_setzero_si256();
        g = goodness<Unit>(load(pa + i), load(pb + i));
        g = sizeof(Unit) == 1 ? _mm256_min_epu8(g, goodness<Unit>(load(pa + i + W), load(pb + i + W)))
                              : _mm256_min_epu16(g, goodness<Unit>(load(pa + i + W), load(pb + i + W)));
        __m256i h = goodness<Unit>(load(pa + i + 2 * W), load(pb + i + 2 * W));
        h = sizeof(Unit) == 1 ? _mm256_min_epu8(h, goodness<Unit>(load(pa + i + 3 * W), load(pb + i + 3 * W)))
                              : _mm256_min_epu16(h, goodness<Unit>(load(pa + i + 3 * W), load(pb + i + 3 * W)));
        g = sizeof(Unit) == 1 ? _mm256_min_epu8(g, h) : _mm256_min_epu16(g, h);
        if (bad_bytes<Unit>(g) != 0) break;
      }
      for (; room >= W; i += W, room -= W)
        if (uint32_t f = block_flags<Unit>(pa + i, pb + i)) return (i + __builtin_ctz(f)) / sizeof(Unit);
      if (room == 0) continue;
    }
    if (i + room < W) {  // only at the very start: too little behind us for a window
      size_t hit = scalar_scan(a, b, i / sizeof(Unit), room / sizeof(Unit));
      if (hit != SIZE_MAX) return hit;
    } else {
      size_t at = i + room - W;  // a block ending at the page boundary
      if (uint32_t f = block_flags<Unit>(pa + at, pb + at)) return (at + __builtin_ctz(f)) / sizeof(Unit);
    }
    i += room;
  }
}

inline bool have_avx2() { return __builtin_cpu_supports("avx2"); }
#endif

template <typename Unit>
size_t first_difference(const Unit *a, const Unit *b) {
  // A wide string is 2-byte aligned, so every block boundary stays on a unit.
#ifdef UTILS_HAVE_AVX2_PATH
  if (have_avx2()) return avx2_scan(a, b);
#endif
  return word_scan(a, b);
}

}  // namespace

size_t bsr_first_difference(const char *a, const char *b) { return first_difference(a, b); }

size_t bsr_first_difference(const bsr_wchar *a, const bsr_wchar *b) {
  return first_difference(a, b);
}
