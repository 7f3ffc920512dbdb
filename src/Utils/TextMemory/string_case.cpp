// string_case.cpp - ASCII-only case conversion of narrow and wide strings and
// single codes; bytes and units outside A-Z / a-z are never changed.
#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

template <typename Unit>
void to_upper(Unit *s) {
  if (s == nullptr) return;
  for (; *s != 0; ++s) *s = utils::text::fold_upper(*s);
}

template <typename Unit>
void to_lower(Unit *s) {
  if (s == nullptr) return;
  for (; *s != 0; ++s) *s = utils::text::fold_lower(*s);
}

}  // namespace

extern "C" {

UTILS_API void bsr_strupr(char *s) { to_upper(s); }
UTILS_API void bsr_wcsupr(bsr_wchar *s) { to_upper(s); }
UTILS_API void bsr_strlwr(char *s) { to_lower(s); }
UTILS_API void bsr_wcslwr(bsr_wchar *s) { to_lower(s); }

UTILS_API int32_t bsr_tolower(int32_t c) { return (c >= 65 && c <= 90) ? c + 32 : c; }
UTILS_API int32_t bsr_toupper(int32_t c) { return (c >= 97 && c <= 122) ? c - 32 : c; }

}  // extern "C"
