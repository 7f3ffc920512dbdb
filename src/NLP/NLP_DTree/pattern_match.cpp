// pattern_match.cpp - PatternMatch: literal segments compared in place,
// "*" followed by the leftmost full match of the next segment.
#include "NLP/NLP_DTree/pattern_match.h"

#include "dtree.h"

namespace utils::dtree {

namespace {

// Characters of the segment at `p` (up to the next "*" or the end) that
// match `s` from its start, stopping at the first mismatch or at the end of
// `s`; `length` receives the segment's length.
size_t matched_prefix(const char *s, const char *p, size_t &length) {
  size_t k = 0;
  while (p[k] != '\0' && p[k] != '*' && s[k] != '\0' && (p[k] == '?' || p[k] == s[k])) ++k;
  length = k;
  while (p[length] != '\0' && p[length] != '*') ++length;
  return k;
}

}  // namespace

bool pattern_match(const char *s, const char *p) {
  for (;;) {
    if (*s == '\0' || *p == '\0') return false;
    if (*p != '*') {
      size_t length = 0;
      const size_t k = matched_prefix(s, p, length);
      if (k != length) return false;
      if (p[length] == '\0') return true;
      s += length;
      p += length;
      continue;
    }
    ++p;  // the "*"
    if (*p == '\0') return true;
    // Leftmost position of s where the next segment matches in full: the
    // leftmost one leaves the most text for whatever follows.
    bool found = false;
    for (; *s != '\0'; ++s) {
      size_t length = 0;
      if (matched_prefix(s, p, length) == length) {
        if (p[length] == '\0') return true;
        s += length;
        p += length;
        found = true;
        break;
      }
    }
    if (!found) return false;
  }
}

}  // namespace utils::dtree

extern "C" UTILS_API int PatternMatch(const char *label, const char *pattern) {
  if (label == nullptr || pattern == nullptr) return 0;
  return utils::dtree::pattern_match(label, pattern) ? 1 : 0;
}
