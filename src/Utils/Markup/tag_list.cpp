// tag_list.cpp - membership of a tag name in a space-delimited tag list, as
// used to decide where a new element may stand and what it may enclose.
#include "Utils/Markup/tag_list.h"

#include "bsr_string.h"

namespace utils::markup {

namespace {

// Room for the longest schema name ("syllable") many times over; a longer
// name is tested by scanning its occurrences instead (same answer).
constexpr uint32_t kSpacedNameRoom = 64;

bool spaced_at(const bsr_wchar *list, const bsr_wchar *hit, uint32_t len) {
  return hit > list && hit[-1] == u' ' && hit[len] == u' ';
}

bool occurs_spaced(const bsr_wchar *list, const bsr_wchar *name, uint32_t len) {
  for (const bsr_wchar *hit = bsr_wcsstr(list, name); hit != nullptr;
       hit = bsr_wcsstr(hit + 1, name)) {
    if (spaced_at(list, hit, len)) return true;
  }
  return false;
}

}  // namespace

bool tag_in_list(const bsr_wchar *list, const bsr_wchar *name) {
  if (list == nullptr || name == nullptr || !name[0]) return false;
  uint32_t len = bsr_wcslen(name);
  if (len + 3 > kSpacedNameRoom) return occurs_spaced(list, name, len);
  // " name " as one needle: a member is bounded by spaces on both sides.
  bsr_wchar spaced[kSpacedNameRoom];
  spaced[0] = u' ';
  bsr_wcscpy(spaced + 1, name);
  spaced[len + 1] = u' ';
  spaced[len + 2] = 0;
  return bsr_wcsstr(list, spaced) != nullptr;
}

}  // namespace utils::markup
