// utf8_sequence.h - the well-formedness rules of UTF-8 sequences, in one place:
// sequence length by lead byte and the checked decoding of two-, three- and
// four-byte forms.
#ifndef UTILS_TEXTMEMORY_UTF8_SEQUENCE_H
#define UTILS_TEXTMEMORY_UTF8_SEQUENCE_H

#include <cstdint>

namespace utils::text {

// Returned by the decoders for an ill-formed sequence; no scalar value has it.
constexpr uint32_t kIllFormed = 0xFFFFFFFFu;

// Length of the sequence a non-ASCII lead byte starts, or 0 when the byte
// cannot start one: a trailing byte (80-BF), a lead of an overlong two-byte
// form (C0, C1), or a lead above F4 (values past U+10FFFF and the old five-
// and six-byte forms).
inline unsigned utf8_sequence_length(unsigned lead) {
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  if (lead < 0xF5) return 4;
  return 0;
}

// The decoders take the lead byte and its trailing bytes. A trailing byte
// must be 80-BF: xor-ing it with 0x80 leaves its six payload bits, and
// anything else gives a value of 0x40 or more.
inline uint32_t utf8_decode2(unsigned lead, unsigned b1) {
  const uint32_t t1 = b1 ^ 0x80u;
  if (t1 > 0x3F) return kIllFormed;
  return ((lead & 0x1Fu) << 6) | t1;  // C2 and above cannot be overlong
}

// Rejects the overlong forms (E0 80-9F ..) and the encoded surrogates
// (ED A0-BF ..) by the value they decode to.
inline uint32_t utf8_decode3(unsigned lead, unsigned b1, unsigned b2) {
  const uint32_t t1 = b1 ^ 0x80u, t2 = b2 ^ 0x80u;
  if ((t1 | t2) > 0x3F) return kIllFormed;
  const uint32_t v = ((lead & 0x0Fu) << 12) | (t1 << 6) | t2;
  if (v < 0x800 || v - 0xD800u < 0x800) return kIllFormed;
  return v;
}

// Rejects the overlong forms (F0 80-8F ..) and values past U+10FFFF
// (F4 90-BF ..) by the value they decode to.
inline uint32_t utf8_decode4(unsigned lead, unsigned b1, unsigned b2, unsigned b3) {
  const uint32_t t1 = b1 ^ 0x80u, t2 = b2 ^ 0x80u, t3 = b3 ^ 0x80u;
  if ((t1 | t2 | t3) > 0x3F) return kIllFormed;
  const uint32_t v = ((lead & 0x07u) << 18) | (t1 << 12) | (t2 << 6) | t3;
  if (v - 0x10000u > 0xFFFFFu) return kIllFormed;
  return v;
}

// The two UTF-16 units of a supplementary character (0x10000-0x10FFFF).
inline char16_t high_surrogate_of(uint32_t v) {
  return static_cast<char16_t>(0xD800u + ((v - 0x10000u) >> 10));
}
inline char16_t low_surrogate_of(uint32_t v) {
  return static_cast<char16_t>(0xDC00u + ((v - 0x10000u) & 0x3FFu));
}

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_UTF8_SEQUENCE_H
