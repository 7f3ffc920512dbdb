// Size of the CStr record as this library lays it out; published under the
// data symbol CStr (see cstr_layout.cpp) and checked against the header.
#ifndef UTILS_CSTR_LAYOUT_H
#define UTILS_CSTR_LAYOUT_H

#include <cstdint>

constexpr uint32_t kCStrRecordSize = sizeof(char *) + 2 * sizeof(uint32_t);

#endif  // UTILS_CSTR_LAYOUT_H
