// feature_label2.cpp - MakeFeatureLabel2: the one label field a pattern
// asks about, with the "!" marks and the caller's per-node field cache.
#include <cstring>

#include "NLP/NLP_DTree/field_text.h"
#include "bsr_string.h"
#include "dtree.h"

namespace {

// Fields whose index reaches this are built every time, not cached.
constexpr int kCacheFields = 256;

}  // namespace

extern "C" UTILS_API int MakeFeatureLabel2(const item *i, const char *pattern,
                                           const char *const *names, const char *const *prefixes,
                                           const char *const *suffixes, int count, char *out,
                                           char **cache) {
  if (out == nullptr) return -1;
  out[0] = '\0';
  if (pattern == nullptr || count < 0) return -1;
  if (count > 0 && (names == nullptr || prefixes == nullptr || suffixes == nullptr)) return -1;
  const int j = utils::dtree::field_of_pattern(pattern, prefixes, count);
  // A pattern that starts no "[" prefix gets an empty field, which no
  // pattern matches, rather than a field one past the tables.
  if (j == count) return -1;
  if (cache != nullptr && j < kCacheFields && cache[j] != nullptr) {
    std::strcpy(out, cache[j]);
    return 0;
  }
  char value[utils::dtree::kValueBytes];
  const size_t value_length = utils::dtree::field_value(i, names[j], value);
  char *o = out;
  if (pattern[0] == '*') *o++ = '!';
  if (prefixes[j] != nullptr) {
    const size_t n = std::strlen(prefixes[j]);
    std::memcpy(o, prefixes[j], n);
    o += n;
  }
  std::memcpy(o, value, value_length);
  o += value_length;
  if (suffixes[j] != nullptr) {
    const size_t n = std::strlen(suffixes[j]);
    std::memcpy(o, suffixes[j], n);
    o += n;
  }
  const size_t pattern_length = std::strlen(pattern);
  if (pattern_length > 0 && pattern[pattern_length - 1] == '*') *o++ = '!';
  *o = '\0';
  // An allocation that fails leaves the field uncached; it is rebuilt with
  // the marks of the pattern that asks next.
  if (cache != nullptr && j < kCacheFields) cache[j] = tts_strdup(out);
  return 0;
}
