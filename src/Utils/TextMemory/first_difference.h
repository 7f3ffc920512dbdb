// first_difference.h - where two zero-terminated strings first differ: the
// index of the first unit that differs or of the terminator the two share.
#ifndef UTILS_TEXTMEMORY_FIRST_DIFFERENCE_H
#define UTILS_TEXTMEMORY_FIRST_DIFFERENCE_H

#include <cstddef>

#include "utils_types.h"

namespace utils::text {

// Both strings must be non-null. The comparisons of the string family are
// built on these, so long equal prefixes are scanned many bytes at a time.
size_t first_difference(const char *a, const char *b);
size_t first_difference(const bsr_wchar *a, const bsr_wchar *b);

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_FIRST_DIFFERENCE_H
