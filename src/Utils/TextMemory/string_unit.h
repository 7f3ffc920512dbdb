// string_unit.h - what the narrow and wide string routines share: one template
// per routine over the code unit, and the few ways the two kinds of unit
// differ.
#ifndef UTILS_TEXTMEMORY_STRING_UNIT_H
#define UTILS_TEXTMEMORY_STRING_UNIT_H

#include <cstddef>
#include <cstdint>

#include "utils_types.h"

namespace utils::text {

// A narrow unit is read as a signed char where it is taken as a number
// (character search, delimiter sets); a wide unit is an unsigned 16-bit value.
inline int32_t unit_value(char c) { return static_cast<signed char>(c); }
inline int32_t unit_value(bsr_wchar c) { return static_cast<uint16_t>(c); }

// Units compare unsigned: bytes as 0..255, wide units as 0..65535.
inline uint32_t unit_order(char c) { return static_cast<unsigned char>(c); }
inline uint32_t unit_order(bsr_wchar c) { return static_cast<uint16_t>(c); }

// ASCII-only folding; nothing outside A-Z changes.
template <typename Unit>
inline Unit fold_lower(Unit c) {
  int32_t v = unit_value(c);
  return (v >= 'A' && v <= 'Z') ? static_cast<Unit>(v + 32) : c;
}
template <typename Unit>
inline Unit fold_upper(Unit c) {
  int32_t v = unit_value(c);
  return (v >= 'a' && v <= 'z') ? static_cast<Unit>(v - 32) : c;
}

template <typename Unit>
inline size_t length(const Unit *s) {
  size_t n = 0;
  while (s[n] != 0) ++n;
  return n;
}

// First unit of s equal to c; the terminator never matches.
template <typename Unit>
inline Unit *find_unit(const Unit *s, int32_t c) {
  if (s == nullptr) return nullptr;
  for (; *s != 0; ++s)
    if (unit_value(*s) == c) return const_cast<Unit *>(s);
  return nullptr;
}

template <typename Unit>
inline bool in_set(const Unit *set, Unit c) {
  return find_unit(set, unit_value(c)) != nullptr;
}

}  // namespace utils::text

#endif  // UTILS_TEXTMEMORY_STRING_UNIT_H
