// string_replace.cpp - replacing every occurrence of a substring, in two
// passes: one that only measures (so the caller can size the target) and one
// that writes.
#include <cstring>

#include "Utils/TextMemory/string_unit.h"
#include "bsr_string.h"

namespace {

// Occurrence of find (length find_len >= 1) at or after s, or null.
template <typename Unit>
const Unit *find_from(const Unit *s, const Unit *find, size_t find_len) {
  for (; *s != 0; ++s) {
    if (*s != find[0]) continue;
    size_t k = 1;
    while (k < find_len && s[k] == find[k]) ++k;
    if (k == find_len) return s;
  }
  return nullptr;
}

template <typename Unit>
uint32_t replace_all(const Unit *src, const Unit *find, const Unit *repl, Unit *dst) {
  if (src == nullptr || find == nullptr || find[0] == 0 || repl == nullptr) return 0;
  const size_t find_len = utils::text::length(find), repl_len = utils::text::length(repl);
  if (dst == nullptr) {
    int64_t count = 0;
    for (const Unit *at = find_from(src, find, find_len); at != nullptr;
         at = find_from(at + find_len, find, find_len))
      ++count;
    int64_t len = static_cast<int64_t>(utils::text::length(src)) +
                  (static_cast<int64_t>(repl_len) - static_cast<int64_t>(find_len)) * count;
    return static_cast<uint32_t>(len);
  }
  Unit *out = dst;
  const Unit *from = src;
  for (const Unit *at = find_from(src, find, find_len); at != nullptr;
       at = find_from(from, find, find_len)) {
    size_t keep = static_cast<size_t>(at - from);
    std::memcpy(out, from, keep * sizeof(Unit));
    out += keep;
    std::memcpy(out, repl, repl_len * sizeof(Unit));
    out += repl_len;
    from = at + find_len;
  }
  size_t rest = utils::text::length(from);
  std::memcpy(out, from, (rest + 1) * sizeof(Unit));
  return static_cast<uint32_t>(out - dst + rest);
}

}  // namespace

extern "C" {

UTILS_API uint32_t bsr_strrep(const char *src, const char *find, const char *repl, char *dst) {
  return replace_all(src, find, repl, dst);
}
UTILS_API uint32_t bsr_wcsrep(const bsr_wchar *src, const bsr_wchar *find, const bsr_wchar *repl,
                              bsr_wchar *dst) {
  return replace_all(src, find, repl, dst);
}

}  // extern "C"
