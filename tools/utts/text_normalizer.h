// text_normalizer.h - text normalisation as the front end runs it: rule sets
// applied by the library's replacer, then the converter with the English
// readers.
#ifndef UTILS_UTTS_TEXT_NORMALIZER_H
#define UTILS_UTTS_TEXT_NORMALIZER_H

#include <mxml.h>

#include <cstddef>
#include <string>
#include <vector>

#include "hconverter.h"
#include "hreplacer.h"

namespace utts {

struct LanguagePack;

// The bundled English rule set (data/english.rules), built into the program.
extern const char kEnglishRules[];
extern const std::size_t kEnglishRulesSize;

class TextNormalizer {
 public:
  // A normaliser without rules, with the English readers registered.
  TextNormalizer();
  // A normaliser without rules, with the readers of `pack` registered.
  explicit TextNormalizer(const LanguagePack &pack);
  ~TextNormalizer();
  TextNormalizer(const TextNormalizer &) = delete;
  TextNormalizer &operator=(const TextNormalizer &) = delete;

  // False when the library could not create its objects.
  bool ok() const { return replacer_ != nullptr && converter_ != nullptr; }

  // Adds the rules of a rule-set text after those already loaded. Returns
  // the 1-based numbers of the lines that were rejected (empty: all loaded).
  std::vector<int> add_rules(const std::string &text);

  // Rewrites the text under `tree` in place: rules, then readers.
  void normalize(mxml_node_t *tree) const;

 private:
  HReplacer *replacer_;
  HConverter *converter_;
};

}  // namespace utts

#endif  // UTILS_UTTS_TEXT_NORMALIZER_H
