// utf8_to_utf16.cpp - strict UTF-8 to UTF-16 conversion into a caller's buffer:
// converts whole, well-formed characters up to the first one that is bad, cut
// off or too big.
#include "bsr_string.h"
#include "bsr_unicode.h"

#include "Utils/TextMemory/ascii_block.h"
#include "Utils/TextMemory/utf8_block.h"
#include "Utils/TextMemory/utf8_sequence.h"
#include "Utils/TextMemory/utf8_three_byte_run.h"

namespace {

using utils::text::kIllFormed;
using Byte = unsigned char;

// Room in the fast part: a whole block, ASCII or not, and any one character
// (at most four bytes in, two units out) fit without a bounds check.
inline bool fast_room(const Byte *s, const Byte *end, const bsr_wchar *d, const bsr_wchar *dend) {
  return end - s >= utils::text::kUtf8BlockReads && dend - d >= utils::text::kUtf8BlockWrites;
}

// Every stop looks the same to the caller (the text before it is kept), so
// an ill-formed, cut-off or oversized character ends the conversion alike.
// Returns the position where the converted text ends.
bsr_wchar *convert_tail(const Byte *s, const Byte *end, bsr_wchar *d, bsr_wchar *dend) {
  while (s < end) {
    const unsigned c = s[0];
    if (c < 0x80) {
      if (d == dend) break;
      *d++ = static_cast<bsr_wchar>(c);
      ++s;
      continue;
    }
    const unsigned len = utils::text::utf8_sequence_length(c);
    if (len == 0 || static_cast<ptrdiff_t>(len) > end - s) break;
    uint32_t v;
    if (len == 2)
      v = utils::text::utf8_decode2(c, s[1]);
    else if (len == 3)
      v = utils::text::utf8_decode3(c, s[1], s[2]);
    else
      v = utils::text::utf8_decode4(c, s[1], s[2], s[3]);
    if (v == kIllFormed) break;
    if (v <= 0xFFFF) {
      if (d == dend) break;
      *d++ = static_cast<bsr_wchar>(v);
    } else {
      if (dend - d < 2) break;  // never half a pair
      d[0] = utils::text::high_surrogate_of(v);
      d[1] = utils::text::low_surrogate_of(v);
      d += 2;
    }
    s += len;
  }
  return d;
}

#if UTILS_TEXT_SSE2

// Decodes one character of two to four bytes at s into d; false (nothing
// written) when it is ill-formed.
inline bool convert_character(const Byte *&s, bsr_wchar *&d) {
  const unsigned c = s[0];
  const unsigned len = utils::text::utf8_sequence_length(c);
  uint32_t v;
  if (len == 2)
    v = utils::text::utf8_decode2(c, s[1]);
  else if (len == 3)
    v = utils::text::utf8_decode3(c, s[1], s[2]);
  else if (len == 4)
    v = utils::text::utf8_decode4(c, s[1], s[2], s[3]);
  else
    return false;
  if (v == kIllFormed) return false;
  if (v <= 0xFFFF) {
    *d++ = static_cast<bsr_wchar>(v);
  } else {
    d[0] = utils::text::high_surrogate_of(v);
    d[1] = utils::text::low_surrogate_of(v);
    d += 2;
  }
  s += len;
  return true;
}

// Characters that stand between ASCII words alone or a few together (an
// accented letter, an emoji, a short Chinese word in English text) are
// decoded one by one: cheaper than a block step that keeps few of its lanes.
// Stops at ASCII, after kShortRun characters, in front of an ill-formed one,
// or where less than one character's room is left (at most five bytes read,
// the lead of the next one included, and two units written). Returns
// whether the run ended in ASCII, that is, whether it was short.
constexpr int kShortRun = 8;

inline bool convert_short_run(const Byte *&s, const Byte *end, bsr_wchar *&d,
                              const bsr_wchar *dend) {
  for (int k = 0; k < kShortRun && end - s >= 5 && dend - d >= 2; ++k) {
    if (!convert_character(s, d)) return false;
    if (s[0] < 0x80) return true;
  }
  return false;
}

// The bulk of the text, block by block. An ASCII stretch is widened sixteen
// bytes at a time; a block that starts with ASCII is widened whole and only
// its ASCII part kept. Then a character that stands alone is decoded
// directly, a run of three-byte characters pairwise, and anything denser
// by the block decoder. A block that the block decoder refuses holds an
// ill-formed sequence, and convert_tail then stops exactly in front of it.
bsr_wchar *convert(const Byte *s, const Byte *end, bsr_wchar *d, bsr_wchar *dend) {
  while (fast_room(s, end, d, dend)) {
    if (s[0] < 0x80) {
      const unsigned ascii = utils::text::widen_ascii_prefix(s, d);
      // A whole block advances by a constant, which keeps the next load
      // off the critical path of this one.
      if (ascii == utils::text::kAsciiBlock) {
        s += utils::text::kAsciiBlock;
        d += utils::text::kAsciiBlock;
        continue;
      }
      s += ascii;
      d += ascii;
      if (!fast_room(s, end, d, dend)) break;
    }
    if (convert_short_run(s, end, d, dend)) continue;
    if (!fast_room(s, end, d, dend)) break;
    if (utils::text::starts_three_byte_run(s) &&
        utils::text::convert_three_byte_run(s, end, d, dend))
      continue;
    const utils::text::Utf8BlockResult step = utils::text::decode_utf8_block(s, d);
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
      if (utils::text::widen_ascii_block(s, d)) {
        s += utils::text::kAsciiBlock;
        d += utils::text::kAsciiBlock;
      } else {
        do *d++ = *s++;
        while (*s < 0x80);
      }
    } else if (c < 0xE0) {
      do {
        const uint32_t v = s[0] < 0xC2 ? kIllFormed : utils::text::utf8_decode2(s[0], s[1]);
        if (v == kIllFormed) return d;
        *d++ = static_cast<bsr_wchar>(v);
        s += 2;
      } while (fast_room(s, end, d, dend) && (s[0] & 0xE0) == 0xC0);
    } else if (c < 0xF0) {
      if (utils::text::starts_three_byte_run(s) &&
          utils::text::convert_three_byte_run(s, end, d, dend))
        continue;
      do {
        const uint32_t v = utils::text::utf8_decode3(s[0], s[1], s[2]);
        if (v == kIllFormed) return d;
        *d++ = static_cast<bsr_wchar>(v);
        s += 3;
      } while (fast_room(s, end, d, dend) && (s[0] & 0xF0) == 0xE0);
    } else {
      do {
        const uint32_t v =
            s[0] > 0xF4 ? kIllFormed : utils::text::utf8_decode4(s[0], s[1], s[2], s[3]);
        if (v == kIllFormed) return d;
        d[0] = utils::text::high_surrogate_of(v);
        d[1] = utils::text::low_surrogate_of(v);
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
