// Strict UTF-8 to UTF-16 conversion into a caller's buffer: converts whole,
// well-formed characters up to the first one that is bad, cut off or too big.
#include "bsr_string.h"
#include "bsr_unicode.h"

#include <cstring>

#include "Utils/TextMemory/ascii_run.h"
#include "Utils/TextMemory/utf8_block.h"
#include "Utils/TextMemory/utf8_sequence.h"

namespace {

using bsr::kIllFormed;
using Byte = unsigned char;

// Room in the fast part: a whole block, ASCII or not, and any one character
// (at most four bytes in, two units out) fit without a bounds check.
inline bool fast_room(const Byte *s, const Byte *end, const bsr_wchar *d,
                      const bsr_wchar *dend) {
  return end - s >= bsr::kUtf8BlockReads && dend - d >= bsr::kUtf8BlockWrites;
}

// Every stop looks the same to the caller (the text before it is kept), so
// an ill-formed, cut-off or oversized character ends the conversion alike.
// Returns the position where the converted text ends.
bsr_wchar *convert_tail(const Byte *s, const Byte *end, bsr_wchar *d,
                        bsr_wchar *dend) {
  while (s < end) {
    const unsigned c = s[0];
    if (c < 0x80) {
      if (d == dend) break;
      *d++ = static_cast<bsr_wchar>(c);
      ++s;
      continue;
    }
    const unsigned len = bsr::utf8_sequence_length(c);
    if (len == 0 || static_cast<ptrdiff_t>(len) > end - s) break;
    uint32_t v;
    if (len == 2)
      v = bsr::utf8_decode2(c, s[1]);
    else if (len == 3)
      v = bsr::utf8_decode3(c, s[1], s[2]);
    else
      v = bsr::utf8_decode4(c, s[1], s[2], s[3]);
    if (v == kIllFormed) break;
    if (v <= 0xFFFF) {
      if (d == dend) break;
      *d++ = static_cast<bsr_wchar>(v);
    } else {
      if (dend - d < 2) break;  // never half a pair
      d[0] = bsr::high_surrogate_of(v);
      d[1] = bsr::low_surrogate_of(v);
      d += 2;
    }
    s += len;
  }
  return d;
}

#if UTILS_ASCII_RUN_SSE2

// Four three-byte leads in a row: Chinese or Japanese text, where one
// character per step beats decoding blocks of which two thirds are dropped.
inline bool starts_three_byte_run(const Byte *s) {
  return ((s[0] & s[3] & s[6] & s[9]) & 0xF0) == 0xE0 && ((s[0] | s[3] | s[6] | s[9]) & 0x10) == 0;
}

inline uint64_t load_le64(const Byte *s) {
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
bool convert_three_byte_run(const Byte *&s, const Byte *end, bsr_wchar *&d, bsr_wchar *dend) {
  const Byte *const start = s;
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

// The bulk of the text, block by block: sixteen ASCII bytes at a time, or
// whatever whole characters sixteen bytes hold. A block that the block
// decoder refuses holds an ill-formed sequence, and convert_tail then stops
// exactly in front of it.
bsr_wchar *convert(const Byte *s, const Byte *end, bsr_wchar *d, bsr_wchar *dend) {
  while (fast_room(s, end, d, dend)) {
    if (bsr::widen_ascii_block(s, d)) {
      s += bsr::kAsciiBlock;
      d += bsr::kAsciiBlock;
      continue;
    }
    if (starts_three_byte_run(s) && convert_three_byte_run(s, end, d, dend)) continue;
    const bsr::Utf8BlockResult step = bsr::decode_utf8_block(s, d);
    if (step.used == 0) break;
    s += step.used;
    d += step.units;
  }
  return convert_tail(s, end, d, dend);
}

#else

// The bulk of the text: ASCII in blocks, and each multi-byte length in a
// loop of its own while the same length repeats (as in Chinese or Greek
// text). Leaves the last few bytes or units to convert_tail.
bsr_wchar *convert(const Byte *s, const Byte *end, bsr_wchar *d, bsr_wchar *dend) {
  while (fast_room(s, end, d, dend)) {
    const unsigned c = s[0];
    if (c < 0x80) {
      if (bsr::widen_ascii_block(s, d)) {
        s += bsr::kAsciiBlock;
        d += bsr::kAsciiBlock;
      } else {
        do *d++ = *s++; while (*s < 0x80);
      }
    } else if (c < 0xE0) {
      do {
        const uint32_t v = s[0] < 0xC2 ? kIllFormed : bsr::utf8_decode2(s[0], s[1]);
        if (v == kIllFormed) return d;
        *d++ = static_cast<bsr_wchar>(v);
        s += 2;
      } while (fast_room(s, end, d, dend) && (s[0] & 0xE0) == 0xC0);
    } else if (c < 0xF0) {
      do {
        const uint32_t v = bsr::utf8_decode3(s[0], s[1], s[2]);
        if (v == kIllFormed) return d;
        *d++ = static_cast<bsr_wchar>(v);
        s += 3;
      } while (fast_room(s, end, d, dend) && (s[0] & 0xF0) == 0xE0);
    } else {
      do {
        const uint32_t v = s[0] > 0xF4 ? kIllFormed
                                       : bsr::utf8_decode4(s[0], s[1], s[2], s[3]);
        if (v == kIllFormed) return d;
        d[0] = bsr::high_surrogate_of(v);
        d[1] = bsr::low_surrogate_of(v);
        d += 2;
        s += 4;
      } while (fast_room(s, end, d, dend) && (s[0] & 0xF8) == 0xF0);
    }
  }
  return convert_tail(s, end, d, dend);
}

#endif

}  // namespace

extern "C" {

// A target size of 0 cannot hold even the terminator: nothing is written.
UTILS_API bsr_wchar *bsr_UTF8ToUTF16(const char *src, uint32_t srclen, bsr_wchar *dst,
                                     uint32_t dstsize) {
  if (dst == nullptr || dstsize == 0) return dst;
  if (srclen == BSR_ZERO_TERMINATED) srclen = bsr_strlen(src);
  if (src == nullptr) srclen = 0;
  const Byte *s = reinterpret_cast<const Byte *>(src);
  bsr_wchar *end = convert(s, s + srclen, dst, dst + (dstsize - 1));
  *end = 0;
  return dst;
}

}  // extern "C"
