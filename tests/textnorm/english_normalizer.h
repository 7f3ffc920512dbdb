// english_normalizer.h - the bundled English rules and readers, loaded once,
// for the tests that read realistic English text through them.
#ifndef UTILS_TEXTNORM_ENGLISH_NORMALIZER_H
#define UTILS_TEXTNORM_ENGLISH_NORMALIZER_H

#include <gtest/gtest.h>

#include <string>

#include "utts/text_normalizer.h"

namespace textnorm_test {

inline utts::TextNormalizer &english() {
  static utts::TextNormalizer normalizer;
  static const bool loaded =
      normalizer.add_rules(std::string(utts::kEnglishRules, utts::kEnglishRulesSize)).empty();
  EXPECT_TRUE(loaded) << "every bundled rule loads";
  return normalizer;
}

}  // namespace textnorm_test

#endif  // UTILS_TEXTNORM_ENGLISH_NORMALIZER_H
