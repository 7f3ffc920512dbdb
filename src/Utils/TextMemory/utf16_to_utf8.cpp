// utf16_to_utf8.cpp - strict UTF-16 to UTF-8 conversion into a caller's buffer:
// a character is written whole or not at all, and an unpaired surrogate ends
// the text.
#include "bsr_string.h"
#include "bsr_unicode.h"

#include "Utils/TextMemory/ascii_block.h"
#include "Utils/TextMemory/utf16_block.h"

namespace {

using Byte = unsigned char;

// Room in the fast part: a whole block, ASCII or not, and any one character
// (at most two units in, four bytes out) fit without a bounds check.
constexpr ptrdiff_t kFastRead = static_cast<ptrdiff_t>(utils::text::kAsciiBlock);
constexpr ptrdiff_t kFastWrite = utils::text::kUtf16BlockWrites;
static_assert(kFastRead >= utils::text::kUtf16BlockReads && kFastWrite >= kFastRead, "block room");

inline bool fast_room(const bsr_wchar *s, const bsr_wchar *end, const Byte *d, const Byte *dend) {
  return end - s >= kFastRead && dend - d >= kFastWrite;
}

inline bool is_high_surrogate(uint32_t u) { return u - 0xD800u < 0x400; }
inline bool is_low_surrogate(uint32_t u) { return u - 0xDC00u < 0x400; }
inline bool is_surrogate(uint32_t u) { return u - 0xD800u < 0x800; }

inline uint32_t pair_value(uint32_t high, uint32_t low) {
  return ((high - 0xD800u) << 10) + (low - 0xDC00u) + 0x10000u;
}

inline unsigned encoded_length(uint32_t v) {
  return v < 0x80 ? 1 : v < 0x800 ? 2 : v < 0x10000 ? 3 : 4;
}

// Writes v (a scalar value, not a surrogate) as `len` bytes: the lead byte
// carries the length marker, each trailing byte six bits, high bits first.
inline Byte *put_utf8(Byte *d, uint32_t v, unsigned len) {
  switch (len) {
    case 1:
      d[0] = static_cast<Byte>(v);
      break;
    case 2:
      d[0] = static_cast<Byte>(0xC0 | (v >> 6));
      d[1] = static_cast<Byte>(0x80 | (v & 0x3F));
      break;
    case 3:
      d[0] = static_cast<Byte>(0xE0 | (v >> 12));
      d[1] = static_cast<Byte>(0x80 | ((v >> 6) & 0x3F));
      d[2] = static_cast<Byte>(0x80 | (v & 0x3F));
      break;
    default:
      d[0] = static_cast<Byte>(0xF0 | (v >> 18));
      d[1] = static_cast<Byte>(0x80 | ((v >> 12) & 0x3F));
      d[2] = static_cast<Byte>(0x80 | ((v >> 6) & 0x3F));
      d[3] = static_cast<Byte>(0x80 | (v & 0x3F));
      break;
  }
  return d + len;
}

// Every stop looks the same to the caller: the text before it is kept.
Byte *convert_tail(const bsr_wchar *s, const bsr_wchar *end, Byte *d, Byte *dend) {
  while (s < end) {
    uint32_t v = s[0];
    unsigned used = 1;
    if (is_surrogate(v)) {
      if (!is_high_surrogate(v) || end - s < 2 || !is_low_surrogate(s[1])) break;
      v = pair_value(v, s[1]);
      used = 2;
    }
    const unsigned len = encoded_length(v);
    if (dend - d < static_cast<ptrdiff_t>(len)) break;
    d = put_utf8(d, v, len);
    s += used;
  }
  return d;
}

#if UTILS_TEXT_SSE2

// The bulk of the text, block by block: sixteen ASCII units at a time, or
// eight units of anything. A block that the block encoder refuses holds an
// unpaired surrogate, and convert_tail then stops exactly in front of it.
Byte *convert(const bsr_wchar *s, const bsr_wchar *end, Byte *d, Byte *dend) {
  while (fast_room(s, end, d, dend)) {
    if (utils::text::narrow_ascii_block(s, d)) {
      s += utils::text::kAsciiBlock;
      d += utils::text::kAsciiBlock;
      continue;
    }
    // In text that mixes scripts, half or a quarter of a block is often
    // ASCII though the whole is not.
    if (const unsigned ascii = utils::text::narrow_ascii_half_block(s, d); ascii != 0) {
      s += ascii;
      d += ascii;
      continue;
    }
    const utils::text::Utf16BlockResult step = utils::text::encode_utf16_block(s, d);
    if (step.used == 0) break;
    s += step.used;
    d += step.bytes;
  }
  return convert_tail(s, end, d, dend);
}

#else

// The bulk of the text: ASCII in blocks, and runs of two- or three-byte
// characters in loops of their own. Leaves the last units to convert_tail.
Byte *convert(const bsr_wchar *s, const bsr_wchar *end, Byte *d, Byte *dend) {
  while (fast_room(s, end, d, dend)) {
    uint32_t v = s[0];
    if (v < 0x80) {
      if (utils::text::narrow_ascii_block(s, d)) {
        s += utils::text::kAsciiBlock;
        d += utils::text::kAsciiBlock;
      } else {
        do *d++ = static_cast<Byte>(*s++);
        while (*s < 0x80);
      }
    } else if (v < 0x800) {
      do {
        d = put_utf8(d, v, 2);
        ++s;
        v = s[0];
      } while (v - 0x80u < 0x780u && fast_room(s, end, d, dend));
    } else if (!is_surrogate(v)) {
      do {
        d = put_utf8(d, v, 3);
        ++s;
        v = s[0];
      } while (v >= 0x800 && !is_surrogate(v) && fast_room(s, end, d, dend));
    } else {
      if (!is_high_surrogate(v) || !is_low_surrogate(s[1])) return d;
      d = put_utf8(d, pair_value(v, s[1]), 4);
      s += 2;
    }
  }
  return convert_tail(s, end, d, dend);
}

#endif

}  // namespace

extern "C" {

// A target size of 0 cannot hold even the terminator: nothing is written.
UTILS_API char *bsr_UTF16ToUTF8(const bsr_wchar *src, uint32_t srclen, char *dst,
                                uint32_t dstsize) {
  if (dst == nullptr || dstsize == 0) return dst;
  if (srclen == BSR_ZERO_TERMINATED) srclen = bsr_wcslen(src);
  if (src == nullptr) srclen = 0;
  Byte *d = reinterpret_cast<Byte *>(dst);
  Byte *end = convert(src, src + srclen, d, d + (dstsize - 1));
  *end = 0;
  return dst;
}

}  // extern "C"
