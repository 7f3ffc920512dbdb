/* bsr_unicode.h - strict UTF-8 <-> UTF-16 conversion, byte widening, and the
 * printable "&(0x..)" rendering of wide text. Nothing here allocates.
 *
 * Target sizes count units of the target (bytes for UTF-8, 16-bit units for
 * UTF-16) and include the terminator: at most size-1 units of text are
 * written, then a terminator; the target after the terminator is left as it
 * was. A size of at least 1 is required (with 0 nothing is written). A
 * source length of (uint32_t)-1 means "zero-terminated, measure it"; a null
 * source is empty. No function reports an error other than by converting
 * less text. */
#ifndef UTILS_BSR_UNICODE_H
#define UTILS_BSR_UNICODE_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* Length value meaning "the source is zero-terminated". */
#define BSR_ZERO_TERMINATED ((uint32_t)-1)

/* Converts until the source ends, the target is full, or an ill-formed
 * sequence (overlong form, surrogate code point, value above U+10FFFF, bad
 * trailing byte, 5- or 6-byte form) is met. A sequence cut off by the end of
 * a counted source is not converted, and a supplementary character is never
 * split across a full target. dst is always terminated where conversion
 * stopped; the text before the stop is kept. A counted source may contain
 * zero bytes, which become zero units. Returns dst (null if dst is null). */
UTILS_API bsr_wchar *bsr_UTF8ToUTF16(const char *src, uint32_t srclen, bsr_wchar *dst,
                                     uint32_t dstsize);

/* The reverse, with the same rules: a lone or unpaired surrogate stops the
 * conversion (so does a high surrogate that ends a counted source); a
 * character is written whole or not at all. Returns dst (null if dst is
 * null). */
UTILS_API char *bsr_UTF16ToUTF8(const bsr_wchar *src, uint32_t srclen, char *dst, uint32_t dstsize);

/* Widens exactly n bytes, each sign-extended (0xE9 becomes 0xFFE9). Writes
 * no terminator; zero bytes are copied like any other. No-op for null
 * pointers or n <= 0. This does not decode UTF-8. */
UTILS_API void bsr_Char2Word(const char *src, bsr_wchar *dst, int32_t n);

/* Widens a zero-terminated byte string as bsr_Char2Word does, into at most
 * dstsize-1 units, and terminates. A null src gives the empty string; a
 * dstsize of 0 writes nothing. Returns dst (null when dst is null). */
UTILS_API bsr_wchar *bsr_Char2Unicode(const char *src, bsr_wchar *dst, uint32_t dstsize);

/* Copies exactly n units, no terminator. No-op for null pointers or n < 1. */
UTILS_API void bsr_Unicode2Word(const bsr_wchar *src, bsr_wchar *dst, int32_t n);

/* Renders wide text as printable ASCII: units 32..126 as themselves, every
 * other unit (surrogate halves one by one) as "&(0x<hex>)" with lower-case
 * digits and no leading zeros, e.g. U+4E2D as "&(0x4e2d)" and a line feed as
 * "&(0xa)". This is not an XML character reference. Stops before the first
 * unit that would not fit whole with the terminator after it (a shorter
 * unit after it is not taken instead); dst is always terminated, and a
 * dstsize below 1 writes nothing. Returns dst, or a static empty string
 * when dst is null. */
UTILS_API const char *bsr_UnicodeToNCR(const bsr_wchar *src, char *dst, int32_t dstsize);

UTILS_END_DECLS

#endif /* UTILS_BSR_UNICODE_H */
