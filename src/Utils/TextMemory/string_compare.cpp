// string_compare.cpp - position-valued comparison of narrow and wide strings:
// the result tells where the strings first differ (its magnitude) and which is
// greater (sign).
#include "Utils/TextMemory/first_difference.h"
#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

// Nulls sort first; the same pointer twice is equal without being read.
// Returns true with *result set when the pointers alone decide.
template <typename Unit>
bool decided_by_pointers(const Unit *a, const Unit *b, int32_t *result) {
  if (a == b)
    *result = 0;
  else if (a == nullptr)
    *result = -1;
  else if (b == nullptr)
    *result = 1;
  else
    return false;
  return true;
}

inline int32_t position_result(size_t i, bool a_greater) {
  int32_t pos = static_cast<int32_t>(i + 1);
  return a_greater ? pos : -pos;
}

template <typename Unit>
int32_t compare_exact(const Unit *a, const Unit *b) {
  int32_t r;
  if (decided_by_pointers(a, b, &r)) return r;
  size_t i = utils::text::first_difference(a, b);
  if (a[i] == b[i]) return 0;
  return position_result(i, utils::text::unit_order(a[i]) > utils::text::unit_order(b[i]));
}

// The general walk: optional ASCII folding, optional bound (limit < 0 means
// none), and the narrow bounded-folded form's "always negative" mismatch.
template <typename Unit>
int32_t compare_walk(const Unit *a, const Unit *b, bool fold, int64_t limit, bool always_negative) {
  int32_t r;
  if (decided_by_pointers(a, b, &r)) return r;
  for (size_t i = 0; limit < 0 || static_cast<int64_t>(i) < limit; ++i) {
    Unit x = fold ? utils::text::fold_lower(a[i]) : a[i];
    Unit y = fold ? utils::text::fold_lower(b[i]) : b[i];
    if (x != y)
      return position_result(
          i, !always_negative && utils::text::unit_order(x) > utils::text::unit_order(y));
    if (x == 0) return 0;
  }
  return 0;
}

}  // namespace

extern "C" {

UTILS_API int32_t bsr_strcmp(const char *a, const char *b) { return compare_exact(a, b); }
UTILS_API int32_t bsr_wcscmp(const bsr_wchar *a, const bsr_wchar *b) { return compare_exact(a, b); }

UTILS_API int32_t bsr_strncmp(const char *a, const char *b, int32_t n) {
  return compare_walk(a, b, false, n < 1 ? 0 : n, false);
}
UTILS_API int32_t bsr_wcsncmp(const bsr_wchar *a, const bsr_wchar *b, int32_t n) {
  return compare_walk(a, b, false, n < 1 ? 0 : n, false);
}

UTILS_API int32_t bsr_stricmp(const char *a, const char *b) {
  return compare_walk(a, b, true, -1, false);
}
UTILS_API int32_t bsr_wcsicmp(const bsr_wchar *a, const bsr_wchar *b) {
  return compare_walk(a, b, true, -1, false);
}

UTILS_API int32_t bsr_wcsnicmp(const bsr_wchar *a, const bsr_wchar *b, int32_t n) {
  return compare_walk(a, b, true, n < 1 ? 0 : n, false);
}
// A mismatch always reads as "a is smaller" here; long-standing callers
// depend on it, so it is kept apart from bsr_wcsnicmp on purpose.
UTILS_API int32_t bsr_strnicmp(const char *a, const char *b, int32_t n) {
  return compare_walk(a, b, true, n < 1 ? 0 : n, true);
}

}  // extern "C"
