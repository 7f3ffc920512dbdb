/* utils_types.h - the few definitions every libUtils header shares: the
 * export marker, C linkage, the 16-bit wide character, the heap handle and
 * Mini-XML's node type. */
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

/* Mini-XML's document node, which the markup and text normalisation
 * functions exchange with the caller. Declared here exactly as Mini-XML 3's
 * own mxml.h declares it, so that a program needs <mxml.h> (and its include
 * path) only when it calls Mini-XML itself; C11 and C++ both accept the
 * identical typedef twice, whichever header comes first. */
typedef struct _mxml_node_s mxml_node_t;

#endif /* UTILS_UTILS_TYPES_H */
