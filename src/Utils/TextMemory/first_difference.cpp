// first_difference.cpp - block-wise search for the first difference of two
// strings: 32-byte AVX2 blocks where the processor has them, 8-byte words
// elsewhere.
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
#define UTILS_NO_ADDRESS_CHECK __attribute__((no_sanitize_address))
#else
#define UTILS_NO_ADDRESS_CHECK
#endif

namespace {

constexpr uintptr_t kPage = 4096;
constexpr size_t kWordBytes = 8;    // bytes per step of the word scan
constexpr size_t kBlockBytes = 32;  // bytes per AVX2 block
constexpr size_t kQuadBytes = 4 * kBlockBytes;

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
  constexpr uint64_t kOnes = sizeof(Unit) == 1 ? 0x0101010101010101ull : 0x0001000100010001ull;
  constexpr uint64_t kHighs = kOnes << (8 * sizeof(Unit) - 1);
  constexpr uint64_t kLows = kHighs - kOnes;  // every bit but the high one of each unit
  uint64_t zero = (x - kOnes) & ~x & kHighs;
  uint64_t d = x ^ y;
  uint64_t nonzero = (((d & kLows) + kLows) | d) & kHighs;
  return zero | nonzero;
}

// A plain unaligned load, not a library call, so it stays unchecked.
typedef uint64_t __attribute__((may_alias, aligned(1))) UnalignedWord;
UTILS_NO_ADDRESS_CHECK inline uint64_t load_word(const uint8_t *p) {
  return *reinterpret_cast<const UnalignedWord *>(p);
}

template <typename Unit>
UTILS_NO_ADDRESS_CHECK size_t word_scan(const Unit *a, const Unit *b) {
  const auto *pa = reinterpret_cast<const uint8_t *>(a);
  const auto *pb = reinterpret_cast<const uint8_t *>(b);
  size_t i = 0;  // in bytes
  for (;;) {
    size_t room = safe_room(pa + i, pb + i);
    size_t at = i;
    if (room < kWordBytes) {
      if (i + room < kWordBytes) {
        size_t hit = scalar_scan(a, b, i / sizeof(Unit), room / sizeof(Unit));
        if (hit != SIZE_MAX) return hit;
        i += room;
        continue;
      }
      at = i + room - kWordBytes;  // a block ending at the page boundary
    }
    if (uint64_t flags = word_flags<Unit>(load_word(pa + at), load_word(pb + at)))
      return (at + __builtin_ctzll(flags) / 8) / sizeof(Unit);
    i = room < kWordBytes ? i + room : i + kWordBytes;
  }
}
#else
template <typename Unit>
size_t word_scan(const Unit *a, const Unit *b) {
  return scalar_scan(a, b, 0, SIZE_MAX - 1);
}
#endif

#ifdef UTILS_HAVE_AVX2_PATH
__attribute__((target("avx2"))) UTILS_NO_ADDRESS_CHECK inline __m256i load(const uint8_t *p) {
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
__attribute__((target("avx2"))) UTILS_NO_ADDRESS_CHECK inline uint32_t block_flags(
    const uint8_t *a, const uint8_t *b) {
  return bad_bytes<Unit>(goodness<Unit>(load(a), load(b)));
}

template <typename Unit>
__attribute__((target("avx2"))) inline __m256i min(__m256i x, __m256i y) {
  return sizeof(Unit) == 1 ? _mm256_min_epu8(x, y) : _mm256_min_epu16(x, y);
}

// True when all 128 bytes from `a` and `b` are good; on a false answer
// locate_in_quad finds the first bad unit.
template <typename Unit>
__attribute__((target("avx2"))) UTILS_NO_ADDRESS_CHECK inline bool quad_is_good(const uint8_t *a,
                                                                                const uint8_t *b) {
  __m256i g = min<Unit>(goodness<Unit>(load(a), load(b)),
                        goodness<Unit>(load(a + kBlockBytes), load(b + kBlockBytes)));
  __m256i h = min<Unit>(goodness<Unit>(load(a + 2 * kBlockBytes), load(b + 2 * kBlockBytes)),
                        goodness<Unit>(load(a + 3 * kBlockBytes), load(b + 3 * kBlockBytes)));
  return bad_bytes<Unit>(min<Unit>(g, h)) == 0;
}

// Index (in units) of the first bad unit of the 128 bytes at `at`, at least
// one of which is bad.
template <typename Unit>
__attribute__((target("avx2"))) UTILS_NO_ADDRESS_CHECK size_t locate_in_quad(const uint8_t *pa,
                                                                             const uint8_t *pb,
                                                                             size_t at) {
  for (;; at += kBlockBytes)
    if (uint32_t f = block_flags<Unit>(pa + at, pb + at))
      return (at + __builtin_ctz(f)) / sizeof(Unit);
}

template <typename Unit>
__attribute__((target("avx2"))) UTILS_NO_ADDRESS_CHECK size_t avx2_scan(const Unit *a,
                                                                        const Unit *b) {
  const auto *pa = reinterpret_cast<const uint8_t *>(a);
  const auto *pb = reinterpret_cast<const uint8_t *>(b);
  size_t i = 0;  // in bytes; everything before i is known equal and non-zero
  size_t room = safe_room(pa, pb);
  if (room >= kBlockBytes) {
    // One block first: most strings end inside it. Then step to a 32-byte
    // boundary of `a`, so that its loads never straddle cache lines (the
    // step keeps wide units whole).
    if (uint32_t f = block_flags<Unit>(pa, pb)) return __builtin_ctz(f) / sizeof(Unit);
    i = kBlockBytes - (reinterpret_cast<uintptr_t>(pa) & (kBlockBytes - 1));
  }
  for (;;) {
    room = safe_room(pa + i, pb + i);
    for (; room >= kQuadBytes; i += kQuadBytes, room -= kQuadBytes)
      if (!quad_is_good<Unit>(pa + i, pb + i)) return locate_in_quad<Unit>(pa, pb, i);
    if (room == 0) continue;
    // Near a page end: the last blocks are taken so that they end exactly at
    // the boundary, overlapping bytes already known good.
    if (i + room >= kQuadBytes) {
      size_t at = i + room - kQuadBytes;
      if (!quad_is_good<Unit>(pa + at, pb + at)) return locate_in_quad<Unit>(pa, pb, at);
    } else if (i + room >= kBlockBytes) {
      for (size_t at = i; at < i + room; at += kBlockBytes) {
        size_t start = at + kBlockBytes <= i + room ? at : i + room - kBlockBytes;
        if (uint32_t f = block_flags<Unit>(pa + start, pb + start))
          return (start + __builtin_ctz(f)) / sizeof(Unit);
      }
    } else {  // only at the very start: too little behind us for a window
      size_t hit = scalar_scan(a, b, i / sizeof(Unit), room / sizeof(Unit));
      if (hit != SIZE_MAX) return hit;
    }
    i += room;
  }
}

inline bool have_avx2() { return __builtin_cpu_supports("avx2"); }
#endif

template <typename Unit>
size_t scan(const Unit *a, const Unit *b) {
  // A wide string is 2-byte aligned, so every block boundary stays on a unit.
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  // Names and other short keys are mostly decided by their first word.
  const auto *pa = reinterpret_cast<const uint8_t *>(a);
  const auto *pb = reinterpret_cast<const uint8_t *>(b);
  if (safe_room(pa, pb) >= 8)
    if (uint64_t flags = word_flags<Unit>(load_word(pa), load_word(pb)))
      return __builtin_ctzll(flags) / 8 / sizeof(Unit);
#endif
#ifdef UTILS_HAVE_AVX2_PATH
  if (have_avx2()) return avx2_scan(a, b);
#endif
  return word_scan(a, b);
}

}  // namespace

namespace utils::text {

size_t first_difference(const char *a, const char *b) { return scan(a, b); }

size_t first_difference(const bsr_wchar *a, const bsr_wchar *b) { return scan(a, b); }

}  // namespace utils::text
