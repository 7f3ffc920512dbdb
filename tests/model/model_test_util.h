// model_test_util.h - helpers shared by the utterance-model tests: capturing
// what a print function writes, and reading wide strings.
#ifndef UTILS_MODEL_MODEL_TEST_UTIL_H
#define UTILS_MODEL_MODEL_TEST_UTIL_H

#include <cstdio>
#include <cstdlib>
#include <string>

#include "utt_ffeature.h"

// Runs fn(stream) on an in-memory stream and returns what it wrote.
template <typename Fn>
std::string printed(Fn fn) {
  char *buf = nullptr;
  size_t size = 0;
  FILE *stream = open_memstream(&buf, &size);
  fn(stream);
  std::fclose(stream);
  std::string out(buf, size);
  std::free(buf);
  return out;
}

inline std::string printed_val(const val *v) {
  return printed([&](FILE *o) { val_print(o, v); });
}

inline std::u16string wide(const bsr_wchar *s) {
  return s != nullptr ? std::u16string(s) : u"<null>";
}

#endif  // UTILS_MODEL_MODEL_TEST_UTIL_H
