// string_tokenize.cpp - tokenising with a caller-held index, splitting into a
// caller's array, and trimming a set of units from both ends, all in place.
#include <cstring>

#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

template <typename Unit>
Unit *next_token(Unit *s, uint32_t *pos, const Unit *delims) {
  if (s == nullptr || pos == nullptr || delims == nullptr) return nullptr;
  uint32_t i = *pos;
  while (s[i] != 0 && utils::text::in_set(delims, s[i])) ++i;
  if (s[i] == 0) {
    *pos = i;
    return nullptr;
  }
  uint32_t start = i;
  while (s[i] != 0 && !utils::text::in_set(delims, s[i])) ++i;
  if (s[i] != 0) {
    s[i] = 0;
    *pos = i + 1;
  } else {
    *pos = i;
  }
  return s + start;
}

template <typename Unit>
int32_t split(Unit *s, const Unit *delims, Unit **out) {
  if (out == nullptr) return 0;
  uint32_t pos = 0;
  int32_t count = 0;
  for (Unit *token = next_token(s, &pos, delims); token != nullptr;
       token = next_token(s, &pos, delims))
    out[count++] = token;
  return count;
}

template <typename Unit>
uint32_t trim(Unit *s, const Unit *set) {
  if (s == nullptr) return 0;  // documented as not allowed; answered cheaply
  size_t begin = 0;
  while (s[begin] != 0 && utils::text::in_set(set, s[begin])) ++begin;
  size_t end = begin + utils::text::length(s + begin);
  while (end > begin && utils::text::in_set(set, s[end - 1])) --end;
  size_t len = end - begin;
  if (begin > 0) std::memmove(s, s + begin, len * sizeof(Unit));
  s[len] = 0;
  return static_cast<uint32_t>(len);
}

}  // namespace

extern "C" {

UTILS_API char *bsr_strtok(char *s, uint32_t *pos, const char *delims) {
  return next_token(s, pos, delims);
}
UTILS_API bsr_wchar *bsr_wcstok(bsr_wchar *s, uint32_t *pos, const bsr_wchar *delims) {
  return next_token(s, pos, delims);
}

UTILS_API int32_t bsr_strsplit(char *s, const char *delims, char **out) {
  return split(s, delims, out);
}
UTILS_API int32_t bsr_wcssplit(bsr_wchar *s, const bsr_wchar *delims, bsr_wchar **out) {
  return split(s, delims, out);
}

UTILS_API uint32_t bsr_strtrim(char *s, const char *set) { return trim(s, set); }
UTILS_API uint32_t bsr_wcstrim(bsr_wchar *s, const bsr_wchar *set) { return trim(s, set); }

}  // extern "C"
