// string_search.cpp - character and substring search in narrow and wide
// strings, exact and with ASCII case folding.
#include <cstring>

#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

struct Exact {
  template <typename Unit>
  static Unit apply(Unit c) {
    return c;
  }
};
struct Folded {
  template <typename Unit>
  static Unit apply(Unit c) {
    return utils::text::fold_lower(c);
  }
};

// First occurrence of needle; an empty needle matches at the start, an empty
// haystack matches nothing.
template <typename Fold, typename Unit>
Unit *search(const Unit *haystack, const Unit *needle) {
  if (haystack == nullptr || needle == nullptr || haystack[0] == 0) return nullptr;
  if (needle[0] == 0) return const_cast<Unit *>(haystack);
  const Unit first = Fold::apply(needle[0]);
  for (const Unit *start = haystack; *start != 0; ++start) {
    if (Fold::apply(*start) != first) continue;
    size_t k = 1;
    while (needle[k] != 0 && start[k] != 0 && Fold::apply(start[k]) == Fold::apply(needle[k])) ++k;
    if (needle[k] == 0) return const_cast<Unit *>(start);
    if (start[k] == 0) return nullptr;  // the haystack ended inside a partial match
  }
  return nullptr;
}

}  // namespace

extern "C" {

UTILS_API char *bsr_strchr(const char *s, int32_t c) { return utils::text::find_unit(s, c); }
UTILS_API bsr_wchar *bsr_wcschr(const bsr_wchar *s, int32_t c) {
  return utils::text::find_unit(s, c);
}

UTILS_API char *bsr_strstr(const char *haystack, const char *needle) {
  if (haystack == nullptr || needle == nullptr || haystack[0] == 0) return nullptr;
  return const_cast<char *>(std::strstr(haystack, needle));  // same first match
}
UTILS_API bsr_wchar *bsr_wcsstr(const bsr_wchar *haystack, const bsr_wchar *needle) {
  return search<Exact>(haystack, needle);
}

UTILS_API char *bsr_stristr(const char *haystack, const char *needle) {
  return search<Folded>(haystack, needle);
}
UTILS_API bsr_wchar *bsr_wcsistr(const bsr_wchar *haystack, const bsr_wchar *needle) {
  return search<Folded>(haystack, needle);
}

}  // extern "C"
