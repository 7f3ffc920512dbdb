// cstr_layout.h - the size of the CStr record as this library lays it out;
// published under the data symbol CStr (see cstr_layout.cpp) and checked
// against the header.
#ifndef UTILS_TEXTMEMORY_CSTR_LAYOUT_H
#define UTILS_TEXTMEMORY_CSTR_LAYOUT_H

#include <cstdint>

namespace utils::text {

constexpr uint32_t kCStrRecordSize = sizeof(char *) + 2 * sizeof(uint32_t);

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_CSTR_LAYOUT_H
