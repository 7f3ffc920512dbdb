// utf8_block.h - decodes sixteen bytes of UTF-8 at once with SSE2: classifies
// the bytes, checks the sequences and their values in parallel, then packs the
// units.
#ifndef UTILS_TEXTMEMORY_UTF8_BLOCK_H
#define UTILS_TEXTMEMORY_UTF8_BLOCK_H

#include <cstddef>
#include <cstdint>

#include "Utils/TextMemory/ascii_block.h"

namespace utils::text {

// What one block step did: `used` source bytes gave `units` target units.
// used == 0: nothing was converted, because an ill-formed sequence starts
// within the block (or the block decoder is not built on this machine).
struct Utf8BlockResult {
  unsigned used;
  unsigned units;
};

// The step reads kUtf8BlockReads bytes from s and writes at most
// kUtf8BlockWrites units to d; the caller guarantees both.
constexpr ptrdiff_t kUtf8BlockReads = 18;
constexpr ptrdiff_t kUtf8BlockWrites = 16;

#if UTILS_TEXT_SSE2

namespace utf8_block {

// Where each of eight lanes goes when only the lanes whose bit is set in a
// mask are kept: the number of kept lanes below it. A dropped lane goes to
// the same place as the next kept one, which overwrites it.
struct PackPlan {
  uint8_t dest[256][8];
};

constexpr PackPlan make_pack_plan() {
  PackPlan plan{};
  for (unsigned mask = 0; mask < 256; ++mask) {
    uint8_t kept = 0;
    for (unsigned lane = 0; lane < 8; ++lane) {
      plan.dest[mask][lane] = kept;
      kept = static_cast<uint8_t>(kept + ((mask >> lane) & 1));
    }
  }
  return plan;
}

inline constexpr PackPlan kPackPlan = make_pack_plan();

// Stores the kept lanes of eight units contiguously at d; returns how many.
inline unsigned pack_units(const uint16_t *unit, unsigned keep, bsr_wchar *d) {
  const uint8_t *dest = kPackPlan.dest[keep & 0xFF];
  // Written out: the stores are independent, and a loop would not be.
  d[dest[0]] = unit[0];
  d[dest[1]] = unit[1];
  d[dest[2]] = unit[2];
  d[dest[3]] = unit[3];
  d[dest[4]] = unit[4];
  d[dest[5]] = unit[5];
  d[dest[6]] = unit[6];
  d[dest[7]] = unit[7];
  return dest[7] + ((keep >> 7) & 1);
}

inline unsigned mask_of(__m128i m) { return static_cast<unsigned>(_mm_movemask_epi8(m)); }

inline __m128i select(__m128i mask, __m128i yes, __m128i no) {
  return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}

inline __m128i lanes(int v) { return _mm_set1_epi16(static_cast<short>(v)); }

// The decoders below work on eight 16-bit lanes; lane i is the character
// that would start at byte i, and x0, x1, x2 hold bytes i, i+1, i+2. Each
// stores the unit every lane would give; lanes of trailing bytes give
// garbage, which packing drops.

// Text of one- and two-byte characters only.
inline void decode_short_lanes(__m128i x0, __m128i x1, uint16_t *out) {
  // 110aaaaa 10bbbbbb: aaaaabbbbbb.
  const __m128i two = _mm_and_si128(
      _mm_or_si128(_mm_slli_epi16(x0, 6), _mm_and_si128(x1, lanes(0x3F))), lanes(0x7FF));
  const __m128i unit = select(_mm_cmpgt_epi16(x0, lanes(0xBF)), two, x0);
  _mm_store_si128(reinterpret_cast<__m128i *>(out), unit);
}

// A three-byte value may be neither overlong (below 0x800) nor a surrogate:
// its top five bits are neither 00000 nor 11011.
inline __m128i bad_three_byte_value(__m128i three) {
  const __m128i top = _mm_and_si128(three, lanes(0xF800));
  return _mm_or_si128(_mm_cmpeq_epi16(top, _mm_setzero_si128()),
                      _mm_cmpeq_epi16(top, lanes(0xD800)));
}

// Characters of one to three bytes (the Basic Multilingual Plane). Returns
// the lanes whose value is not allowed: overlong or an encoded surrogate.
inline __m128i decode_bmp_lanes(__m128i x0, __m128i x1, __m128i x2, uint16_t *out) {
  // y holds the lead's payload followed by the first trailing byte's six bits.
  const __m128i y = _mm_or_si128(_mm_slli_epi16(x0, 6), _mm_and_si128(x1, lanes(0x3F)));
  const __m128i two = _mm_and_si128(y, lanes(0x7FF));
  // Three bytes: the 16-bit shift drops what is left of the lead's marker.
  const __m128i three = _mm_or_si128(_mm_slli_epi16(y, 6), _mm_and_si128(x2, lanes(0x3F)));
  const __m128i from_e0 = _mm_cmpgt_epi16(x0, lanes(0xDF));
  const __m128i unit = select(from_e0, three, select(_mm_cmpgt_epi16(x0, lanes(0xBF)), two, x0));
  _mm_store_si128(reinterpret_cast<__m128i *>(out), unit);
  return _mm_and_si128(from_e0, bad_three_byte_value(three));
}

// Any length. Returns the lanes whose value is not allowed: an overlong
// three- or four-byte form, an encoded surrogate, a value past U+10FFFF.
inline __m128i decode_any_lanes(__m128i x0, __m128i x1, __m128i x2, uint16_t *out) {
  const __m128i t2 = _mm_and_si128(x2, lanes(0x3F));
  // y holds the lead's payload followed by the first trailing byte's six bits.
  const __m128i y = _mm_or_si128(_mm_slli_epi16(x0, 6), _mm_and_si128(x1, lanes(0x3F)));
  const __m128i two = _mm_and_si128(y, lanes(0x7FF));
  // Three bytes: the 16-bit shift drops what is left of the lead's marker.
  const __m128i three = _mm_or_si128(_mm_slli_epi16(y, 6), t2);
  // Four bytes: q is the value shifted right by ten, in range when
  // 0x40 <= q <= 0x43F, and the lead lane gives the high surrogate.
  const __m128i q =
      _mm_and_si128(_mm_or_si128(_mm_slli_epi16(y, 2), _mm_srli_epi16(t2, 4)), lanes(0x7FF));
  const __m128i high = _mm_add_epi16(q, lanes(0xD7C0));
  // The lane of the first trailing byte of a four-byte form gives the low
  // surrogate from the two bytes after it.
  const __m128i low = _mm_or_si128(
      _mm_and_si128(_mm_or_si128(_mm_slli_epi16(x1, 6), t2), lanes(0x3FF)), lanes(0xDC00));

  const __m128i from_80 = _mm_cmpgt_epi16(x0, lanes(0x7F));
  const __m128i from_c0 = _mm_cmpgt_epi16(x0, lanes(0xBF));
  const __m128i from_e0 = _mm_cmpgt_epi16(x0, lanes(0xDF));
  const __m128i from_f0 = _mm_cmpgt_epi16(x0, lanes(0xEF));
  __m128i unit = select(from_80, low, x0);
  unit = select(from_c0, two, unit);
  unit = select(from_e0, three, unit);
  unit = select(from_f0, high, unit);
  _mm_store_si128(reinterpret_cast<__m128i *>(out), unit);

  const __m128i bad3 =
      _mm_andnot_si128(from_f0, _mm_and_si128(from_e0, bad_three_byte_value(three)));
  const __m128i bad4 = _mm_and_si128(
      from_f0, _mm_or_si128(_mm_cmplt_epi16(q, lanes(0x40)), _mm_cmpgt_epi16(q, lanes(0x43F))));
  return _mm_or_si128(bad3, bad4);
}

}  // namespace utf8_block

// Inlined into the conversion loop, whose one call site it is.
__attribute__((always_inline)) inline Utf8BlockResult decode_utf8_block(const unsigned char *s,
                                                                        bsr_wchar *d) {
  using namespace utf8_block;
  const __m128i b0 = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s));
  const __m128i b1 = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s + 1));

  // Byte classes, one bit per byte. Read as signed, 80-BF are -128..-65,
  // C0-DF -64..-33, E0-EF -32..-17, F0-FF -16..-1.
  const unsigned high_bit = mask_of(b0);
  const unsigned trailing = mask_of(_mm_cmplt_epi8(b0, _mm_set1_epi8(-64)));
  const unsigned from_c2 = mask_of(_mm_cmpgt_epi8(b0, _mm_set1_epi8(-63))) & high_bit;
  const unsigned from_e0 = mask_of(_mm_cmpgt_epi8(b0, _mm_set1_epi8(-33))) & high_bit;
  const unsigned from_f0 = mask_of(_mm_cmpgt_epi8(b0, _mm_set1_epi8(-17))) & high_bit;
  const unsigned from_f5 = mask_of(_mm_cmpgt_epi8(b0, _mm_set1_epi8(-12))) & high_bit;
  const unsigned lead2 = from_c2 & ~from_e0;
  const unsigned lead3 = from_e0 & ~from_f0;
  const unsigned lead4 = from_f0 & ~from_f5;
  // C0, C1 and F5-FF never start a sequence.
  if (((high_bit & ~trailing & ~from_c2) | from_f5) != 0) return {0, 0};

  // Exactly the bytes that the leads announce must be trailing bytes. What a
  // lead near the end announces beyond the block is checked next time.
  const uint32_t announced =
      (lead2 << 1) | (lead3 << 1) | (lead3 << 2) | (lead4 << 1) | (lead4 << 2) | (lead4 << 3);
  if (trailing != (announced & 0xFFFFu)) return {0, 0};
  const unsigned cut = (lead2 & 0x8000u) | (lead3 & 0xC000u) | (lead4 & 0xE000u);
  const unsigned used = static_cast<unsigned>(__builtin_ctz(cut | 0x10000u));  // 16 if none
  const unsigned within = (1u << used) - 1;

  const __m128i zero = _mm_setzero_si128();
  alignas(16) uint16_t unit[16];
  if ((lead3 | lead4) == 0) {
    decode_short_lanes(_mm_unpacklo_epi8(b0, zero), _mm_unpacklo_epi8(b1, zero), unit);
    decode_short_lanes(_mm_unpackhi_epi8(b0, zero), _mm_unpackhi_epi8(b1, zero), unit + 8);
  } else {
    const __m128i b2 = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s + 2));
    const __m128i x0_lo = _mm_unpacklo_epi8(b0, zero), x0_hi = _mm_unpackhi_epi8(b0, zero);
    const __m128i x1_lo = _mm_unpacklo_epi8(b1, zero), x1_hi = _mm_unpackhi_epi8(b1, zero);
    const __m128i x2_lo = _mm_unpacklo_epi8(b2, zero), x2_hi = _mm_unpackhi_epi8(b2, zero);
    __m128i bad_lo, bad_hi;
    if (lead4 == 0) {
      bad_lo = decode_bmp_lanes(x0_lo, x1_lo, x2_lo, unit);
      bad_hi = decode_bmp_lanes(x0_hi, x1_hi, x2_hi, unit + 8);
    } else {
      bad_lo = decode_any_lanes(x0_lo, x1_lo, x2_lo, unit);
      bad_hi = decode_any_lanes(x0_hi, x1_hi, x2_hi, unit + 8);
    }
    if ((mask_of(_mm_packs_epi16(bad_lo, bad_hi)) & within) != 0) return {0, 0};
  }

  // Keep one unit per character, two for a four-byte form. Each lane is
  // stored at the next free place, which only a kept lane advances: dropped
  // lanes are overwritten, and nothing lands after the next free place.
  const unsigned keep = (~trailing | (lead4 << 1)) & within;
  const unsigned low_units = pack_units(unit, keep, d);
  const unsigned units = low_units + pack_units(unit + 8, keep >> 8, d + low_units);
  return {used, units};
}

#else

inline Utf8BlockResult decode_utf8_block(const unsigned char *, bsr_wchar *) { return {0, 0}; }

#endif

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_UTF8_BLOCK_H
