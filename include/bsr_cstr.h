/* bsr_cstr.h - CStr, a small growable zero-terminated narrow string used to
 * accumulate output text (spoken forms) without managing buffer sizes.
 *
 * Results: 0 success, CSTR_EBADARG (-10) for a null CStr or text,
 * CSTR_ENOMEM (-9) when growing fails. After CSTR_ENOMEM the buffer is gone
 * and CStrDestroy is the only safe call.
 *
 * The library also exports a read-only uint32_t data symbol named `CStr`
 * holding sizeof(CStr) as it was built, for engines that check their headers
 * at start-up. C cannot declare it beside the typedef below; declare it in a
 * file of its own as `extern const uint32_t CStr;` to read it. */
#ifndef UTILS_BSR_CSTR_H
#define UTILS_BSR_CSTR_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

#define CSTR_OK 0
#define CSTR_ENOMEM (-9)
#define CSTR_EBADARG (-10)

/* Fields are public; keep them consistent through the functions below.
 * Invariant: used <= capacity and buffer[used - 1] == 0. */
typedef struct CStr {
  char *buffer;      /* storage from the local allocator, zero-terminated */
  uint32_t capacity; /* size of buffer in bytes */
  uint32_t used;     /* bytes in use including the terminator (length + 1) */
} CStr;

/* New empty string with `initial` bytes of room (1 when 0); null on failure. */
UTILS_API CStr *CStrCreate(uint32_t initial);
/* Frees the buffer and the record; null is ignored. */
UTILS_API void CStrDestroy(CStr *s);
/* Text length (used - 1); 0 for null. */
UTILS_API uint32_t CStrLength(const CStr *s);
/* The text, owned by s and valid until it grows or is destroyed; null for null. */
UTILS_API char *CStrStr(const CStr *s);
/* Appends text. Grows to exactly the size needed, with no slack. */
UTILS_API int32_t CStrAppend(CStr *s, const char *text);
/* Appends one byte (0 is a no-op). Grows in steps of 64 bytes. */
UTILS_API int32_t CStrAppendC(CStr *s, char c);
/* Last byte of the text as a signed char; 0 for null or empty. */
UTILS_API char CStrLastC(const CStr *s);
/* Truncates to the first pos bytes when pos <= length; the buffer is kept. */
UTILS_API void CStrErase(CStr *s, uint32_t pos);

UTILS_END_DECLS

#endif /* UTILS_BSR_CSTR_H */
