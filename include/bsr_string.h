/* bsr_string.h - allocation and the narrow/wide string routines.
 *
 * These look like their C library namesakes but differ on purpose, and
 * callers rely on the differences:
 *   - every routine accepts null pointers and gives a neutral result;
 *   - comparisons return the 1-based position of the first difference,
 *     signed by which side is greater, not a plain sign;
 *   - case folding is ASCII only;
 *   - the tokenisers keep their position in a caller-owned index.
 *
 * Two allocators, never mixed:
 *   - the local allocator (zero-filled): bsr_safe_alloc, bsr_safe_calloc,
 *     bsr_safe_realloc, tts_strdup, tts_wcsdup; release with bsr_free.
 *   - the C runtime heap: bsr_strdup, bsr_wcsdup, bsr_strndup, bsr_wcsndup;
 *     release with free().
 * */
#ifndef UTILS_BSR_STRING_H
#define UTILS_BSR_STRING_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* ---- Local allocator ------------------------------------------------- */

/* Returns `size` zero bytes, or null when memory is exhausted. A size of 0
 * is taken as 1, so the result for 0 is a real, freeable block. */
UTILS_API void *bsr_safe_alloc(uint32_t size);

/* Same as bsr_safe_alloc: one argument, a byte count. */
UTILS_API void *bsr_safe_calloc(uint32_t size);

/* Resizes a block from the local allocator; the grown tail is zero-filled.
 * A null `ptr` allocates; a size of 0 is taken as 1. On failure returns null
 * and `ptr` stays valid and owned by the caller. */
UTILS_API void *bsr_safe_realloc(void *ptr, uint32_t size);

/* Releases a block from the local allocator. Null is ignored. */
UTILS_API void bsr_free(void *ptr);

/* Copies a string into the local allocator (free with bsr_free).
 * Null in, null out; null also when memory is exhausted. */
UTILS_API char *tts_strdup(const char *s);
UTILS_API bsr_wchar *tts_wcsdup(const bsr_wchar *s);

/* ---- Runtime-heap copies (free with free()) ------------------------- */

UTILS_API char *bsr_strdup(const char *s);
UTILS_API bsr_wchar *bsr_wcsdup(const bsr_wchar *s);

/* Always allocates n+1 units; copies at most n and terminates. */
UTILS_API char *bsr_strndup(const char *s, uint32_t n);
UTILS_API bsr_wchar *bsr_wcsndup(const bsr_wchar *s, uint32_t n);

/* ---- Length, copy, concatenate, search ------------------------------- */

/* Units before the terminator; 0 for null. */
UTILS_API uint32_t bsr_strlen(const char *s);
UTILS_API uint32_t bsr_wcslen(const bsr_wchar *s);

/* No-op when dst is null or dst == src. A null src makes dst empty. */
UTILS_API void bsr_strcpy(char *dst, const char *src);
UTILS_API void bsr_wcscpy(bsr_wchar *dst, const bsr_wchar *src);

/* Copies up to n units, stopping after a copied terminator. Never pads, and
 * when src has n or more units the result is NOT terminated. dst[0] is
 * zeroed first even when nothing else is copied. */
UTILS_API void bsr_strncpy(char *dst, const char *src, int32_t n);
UTILS_API void bsr_wcsncpy(bsr_wchar *dst, const bsr_wchar *src, int32_t n);

/* Appends src; no-op when either is null. */
UTILS_API void bsr_strcat(char *dst, const char *src);
UTILS_API void bsr_wcscat(bsr_wchar *dst, const bsr_wchar *src);

/* First unit equal to c, or null. The terminator is never matched. The
 * narrow form compares bytes read as signed char: the byte 0xE9 is found by
 * c == -23, not by c == 0xE9. The wide form compares unsigned units. */
UTILS_API char *bsr_strchr(const char *s, int32_t c);
UTILS_API bsr_wchar *bsr_wcschr(const bsr_wchar *s, int32_t c);

/* First occurrence of needle. Null when either is null or haystack is empty;
 * an empty needle matches at the start. The i-forms fold ASCII A-Z only. */
UTILS_API char *bsr_strstr(const char *haystack, const char *needle);
UTILS_API bsr_wchar *bsr_wcsstr(const bsr_wchar *haystack, const bsr_wchar *needle);
UTILS_API char *bsr_stristr(const char *haystack, const char *needle);
UTILS_API bsr_wchar *bsr_wcsistr(const bsr_wchar *haystack, const bsr_wchar *needle);

/* ---- Comparison --------------------------------------------------------
 * 0 when equal. At the first differing position i (from 0) the result is
 * i+1 when a's unit is greater, -(i+1) otherwise, so |result|-1 is the
 * length of the common prefix. Units compare unsigned. Null sorts first:
 * (null, null) = 0, (null, s) = -1, (s, null) = 1. Bounded forms return 0
 * for n < 1 and when the first n units agree. */
UTILS_API int32_t bsr_strcmp(const char *a, const char *b);
UTILS_API int32_t bsr_wcscmp(const bsr_wchar *a, const bsr_wchar *b);
UTILS_API int32_t bsr_strncmp(const char *a, const char *b, int32_t n);
UTILS_API int32_t bsr_wcsncmp(const bsr_wchar *a, const bsr_wchar *b, int32_t n);
/* Fold ASCII A-Z to lower case on both sides first. */
UTILS_API int32_t bsr_stricmp(const char *a, const char *b);
UTILS_API int32_t bsr_wcsicmp(const bsr_wchar *a, const bsr_wchar *b);
UTILS_API int32_t bsr_wcsnicmp(const bsr_wchar *a, const bsr_wchar *b, int32_t n);
/* Unlike bsr_wcsnicmp, a mismatch at i always gives -(i+1), whichever side
 * is greater. Callers depend on this; it is kept. */
UTILS_API int32_t bsr_strnicmp(const char *a, const char *b, int32_t n);

/* ---- ASCII case ------------------------------------------------------ */

UTILS_API void bsr_strupr(char *s);
UTILS_API void bsr_wcsupr(bsr_wchar *s);
UTILS_API void bsr_strlwr(char *s);
UTILS_API void bsr_wcslwr(bsr_wchar *s);
UTILS_API int32_t bsr_tolower(int32_t c);
UTILS_API int32_t bsr_toupper(int32_t c);

/* ---- Tokenise, split, trim, replace --------------------------------- */

/* Next token of s starting at s[*pos], skipping units of delims first. The
 * delimiter that ends a token is overwritten with a terminator and *pos is
 * left just past it. Returns null (with *pos at the end) when no token is
 * left, or when any argument is null. Start with *pos = 0. */
UTILS_API char *bsr_strtok(char *s, uint32_t *pos, const char *delims);
UTILS_API bsr_wchar *bsr_wcstok(bsr_wchar *s, uint32_t *pos, const bsr_wchar *delims);

/* Tokenises all of s into out[0..count-1] and returns count (0 when out is
 * null). out is not bounded: size it for the worst case. */
UTILS_API int32_t bsr_strsplit(char *s, const char *delims, char **out);
UTILS_API int32_t bsr_wcssplit(bsr_wchar *s, const bsr_wchar *delims, bsr_wchar **out);

/* Strips leading and trailing units found in set, moves the rest to the
 * start of s and returns its length. s must not be null. */
UTILS_API uint32_t bsr_strtrim(char *s, const char *set);
UTILS_API uint32_t bsr_wcstrim(bsr_wchar *s, const bsr_wchar *set);

/* Replaces every non-overlapping find with repl (left to right). With a null
 * dst, returns the length the result needs (allocate it plus one); with a
 * dst (not overlapping src), writes the result and returns its length.
 * 0 when src, find or repl is null or find is empty. */
UTILS_API uint32_t bsr_strrep(const char *src, const char *find, const char *repl, char *dst);
UTILS_API uint32_t bsr_wcsrep(const bsr_wchar *src, const bsr_wchar *find, const bsr_wchar *repl,
                              bsr_wchar *dst);

/* ---- Numbers --------------------------------------------------------- */

/* Writes value in radix (lower-case letters above 9, '-' for negatives, no
 * prefix) and returns buf; null buf gives null. A radix below 2 gives the
 * empty string. 33 units are enough for any radix. */
UTILS_API char *bsr_itoa(int32_t value, char *buf, int32_t radix);
UTILS_API bsr_wchar *bsr_itow(int32_t value, bsr_wchar *buf, int32_t radix);

/* Skips spaces and tabs, takes one optional '-', then decimal digits up to
 * the first non-digit. '+' is not accepted (gives 0). 0 for null. Overflow
 * wraps. */
UTILS_API int32_t bsr_atoi(const char *s);
UTILS_API int32_t bsr_wtoi(const bsr_wchar *s);

UTILS_END_DECLS

#endif /* UTILS_BSR_STRING_H */
