/* utils_types.h - the few definitions every libUtils header shares: the
 * export marker, C linkage, the 16-bit wide character and the heap handle. */
#ifndef UTILS_UTILS_TYPES_H
#define UTILS_UTILS_TYPES_H

#include <stddef.h>
#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

#if defined(UTILS_BUILDING)
#define UTILS_API __attribute__((visibility("default")))
#else
#define UTILS_API
#endif

#ifdef __cplusplus
#define UTILS_BEGIN_DECLS extern "C" {
#define UTILS_END_DECLS }
#else
#define UTILS_BEGIN_DECLS
#define UTILS_END_DECLS
#endif

/* A wide string is a zero-terminated run of UTF-16 code units in native byte
 * order. char16_t is 16 bits in C11 and C++11 alike, so u"..." literals can
 * be passed directly; wchar_t (32 bits on Linux) is never used. */
typedef char16_t bsr_wchar;

/* A private heap: many small zero-filled records carved from large chunks and
 * released all at once. Each utterance owns one; feature sets may be placed
 * on one (new_features_local). Its functions are internal to the library. */
typedef struct bsr_heap bsr_heap;

#endif /* UTILS_UTILS_TYPES_H */
