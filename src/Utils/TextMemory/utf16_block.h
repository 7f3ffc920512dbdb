// utf16_block.h - encodes eight UTF-16 units as UTF-8 at once with SSE2: every
// unit's bytes and their places are computed in parallel, then stored four at a
// time.
#ifndef UTILS_TEXTMEMORY_UTF16_BLOCK_H
#define UTILS_TEXTMEMORY_UTF16_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "Utils/TextMemory/ascii_block.h"

namespace utils::text {

// What one block step did: `used` source units gave `bytes` target bytes.
// used == 0: nothing was converted, because an unpaired surrogate lies
// within the block (or the block encoder is not built on this machine).
struct Utf16BlockResult {
  unsigned used;
  unsigned bytes;
};

// The step reads kUtf16BlockReads units from s and may touch
// kUtf16BlockWrites bytes at d; the caller guarantees both. Bytes after the
// converted text are left as they were.
constexpr ptrdiff_t kUtf16BlockReads = 8;
constexpr ptrdiff_t kUtf16BlockWrites = 28;

#if UTILS_TEXT_SSE2

namespace utf16_block {

inline __m128i lanes(int v) { return _mm_set1_epi16(static_cast<short>(v)); }

inline __m128i select(__m128i mask, __m128i yes, __m128i no) {
  return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}

// One bit per lane whose mask is set.
inline unsigned lane_bits(__m128i mask) {
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(mask, _mm_setzero_si128())));
}

inline __m128i is(__m128i u, int mask, int value) {
  return _mm_cmpeq_epi16(_mm_and_si128(u, lanes(mask)), lanes(value));
}

// Where each lane's bytes go: the lengths of the lanes before it. Also
// returns, in end, where each lane's bytes end.
inline __m128i places(__m128i length, __m128i &end) {
  end = length;
  end = _mm_add_epi16(end, _mm_slli_si128(end, 2));
  end = _mm_add_epi16(end, _mm_slli_si128(end, 4));
  end = _mm_add_epi16(end, _mm_slli_si128(end, 8));
  return _mm_sub_epi16(end, length);
}

// Eight units all below 0x800, of one or two bytes each. Each lane stores
// two bytes; the second byte of a one-byte lane is overwritten by the next
// lane, or after the last lane lies at the next free place.
inline Utf16BlockResult encode_short_lanes(__m128i u, __m128i from_80, unsigned char *d) {
  const __m128i length = _mm_sub_epi16(lanes(1), from_80);
  const __m128i first = select(from_80, _mm_or_si128(_mm_srli_epi16(u, 6), lanes(0xC0)), u);
  const __m128i second = _mm_or_si128(_mm_and_si128(u, lanes(0x3F)), lanes(0x80));
  __m128i end;
  alignas(16) uint16_t place[8];
  alignas(16) uint16_t bytes[8];
  _mm_store_si128(reinterpret_cast<__m128i *>(place), places(length, end));
  _mm_store_si128(reinterpret_cast<__m128i *>(bytes),
                  _mm_or_si128(first, _mm_slli_epi16(second, 8)));
  std::memcpy(d + place[0], &bytes[0], 2);
  std::memcpy(d + place[1], &bytes[1], 2);
  std::memcpy(d + place[2], &bytes[2], 2);
  std::memcpy(d + place[3], &bytes[3], 2);
  std::memcpy(d + place[4], &bytes[4], 2);
  std::memcpy(d + place[5], &bytes[5], 2);
  std::memcpy(d + place[6], &bytes[6], 2);
  std::memcpy(d + place[7], &bytes[7], 2);
  return {8, static_cast<unsigned>(_mm_extract_epi16(end, 7))};
}

}  // namespace utf16_block

// Inlined into the conversion loop, whose one call site it is.
__attribute__((always_inline)) inline Utf16BlockResult encode_utf16_block(const bsr_wchar *s,
                                                                          unsigned char *d) {
  using namespace utf16_block;
  const __m128i u = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  // Encoded lengths: 1 below 0x80, 2 below 0x800, 3 above; each half of a
  // surrogate pair takes two of the pair's four bytes.
  const __m128i from_80 = _mm_xor_si128(is(u, 0xFF80, 0), lanes(-1));
  const __m128i below_800 = is(u, 0xF800, 0);
  if (lane_bits(below_800) == 0xFF) return encode_short_lanes(u, from_80, d);

  const __m128i high = is(u, 0xFC00, 0xD800);
  const __m128i low = is(u, 0xFC00, 0xDC00);
  // Every high surrogate must be followed by a low one and every low one
  // preceded by a high one. A high surrogate in the last lane waits for the
  // next block.
  const unsigned high_bits = lane_bits(high), low_bits = lane_bits(low);
  if (low_bits != ((high_bits << 1) & 0xFF)) return {0, 0};
  const unsigned cut = high_bits >> 7;
  const __m128i from_800 = _mm_xor_si128(below_800, lanes(-1));
  const __m128i surrogate = _mm_or_si128(high, low);
  const __m128i length =
      _mm_add_epi16(_mm_sub_epi16(_mm_sub_epi16(lanes(1), from_80), from_800), surrogate);

  // The bytes of each lane: first, second, third, as needed.
  const __m128i last6 = _mm_or_si128(_mm_and_si128(u, lanes(0x3F)), lanes(0x80));
  const __m128i mid6 = _mm_or_si128(_mm_and_si128(_mm_srli_epi16(u, 6), lanes(0x3F)), lanes(0x80));
  // A pair encodes the value ((high & 0x3FF) + 0x40) << 10 | (low & 0x3FF);
  // w holds its top eleven bits, of which the low lane needs the last two.
  const __m128i w = _mm_add_epi16(_mm_and_si128(u, lanes(0x3FF)), lanes(0x40));
  const __m128i before = _mm_slli_si128(u, 2);  // the unit before each lane
  __m128i first = select(from_80, _mm_or_si128(_mm_srli_epi16(u, 6), lanes(0xC0)), u);
  first = select(from_800, _mm_or_si128(_mm_srli_epi16(u, 12), lanes(0xE0)), first);
  first = select(high, _mm_or_si128(_mm_srli_epi16(w, 8), lanes(0xF0)), first);
  first = select(low,
                 _mm_or_si128(_mm_or_si128(_mm_slli_epi16(_mm_and_si128(before, lanes(3)), 4),
                                           _mm_and_si128(_mm_srli_epi16(u, 6), lanes(0x0F))),
                              lanes(0x80)),
                 first);
  __m128i second = select(from_800, mid6, last6);
  second = select(high, _mm_or_si128(_mm_and_si128(_mm_srli_epi16(w, 2), lanes(0x3F)), lanes(0x80)),
                  second);
  second = select(low, last6, second);
  const __m128i first_two = _mm_or_si128(first, _mm_slli_epi16(second, 8));

  __m128i end;
  alignas(16) uint16_t place[8];
  alignas(16) uint32_t bytes[8];
  _mm_store_si128(reinterpret_cast<__m128i *>(place), places(length, end));
  _mm_store_si128(reinterpret_cast<__m128i *>(bytes), _mm_unpacklo_epi16(first_two, last6));
  _mm_store_si128(reinterpret_cast<__m128i *>(bytes + 4), _mm_unpackhi_epi16(first_two, last6));
  // A waiting high surrogate in the last lane is not counted.
  const unsigned total = static_cast<unsigned>(_mm_extract_epi16(end, 7)) - 2 * cut;

  // Each lane stores four bytes; what it writes beyond its own length is
  // overwritten by the next lane. The last lane's excess, and the bytes of a
  // waiting high surrogate, fall after the converted text: those four bytes
  // are saved first and put back after.
  unsigned char saved[4];
  std::memcpy(saved, d + total, 4);
  std::memcpy(d + place[0], &bytes[0], 4);
  std::memcpy(d + place[1], &bytes[1], 4);
  std::memcpy(d + place[2], &bytes[2], 4);
  std::memcpy(d + place[3], &bytes[3], 4);
  std::memcpy(d + place[4], &bytes[4], 4);
  std::memcpy(d + place[5], &bytes[5], 4);
  std::memcpy(d + place[6], &bytes[6], 4);
  std::memcpy(d + place[7], &bytes[7], 4);
  std::memcpy(d + total, saved, 4);
  return {8 - cut, total};
}

#else

inline Utf16BlockResult encode_utf16_block(const bsr_wchar *, unsigned char *) { return {0, 0}; }

#endif

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_UTF16_BLOCK_H
