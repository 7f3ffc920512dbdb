// text_normalizer.cpp - the front end's normaliser: owns one replacer and one
// converter.
#include "utts/text_normalizer.h"

#include "utts/english_readers.h"
#include "utts/language_packs.h"

namespace utts {

TextNormalizer::TextNormalizer() : replacer_(HReplacer_create()), converter_(HConverter_create()) {
  for (const ReaderEntry *r = english_readers(); r->element != nullptr; ++r)
    HConverter_add(converter_, r->element, r->read);
  HConverter_setSayAs(converter_, read_say_as);
}

TextNormalizer::TextNormalizer(const LanguagePack &pack)
    : replacer_(HReplacer_create()), converter_(HConverter_create()) {
  if (converter_ != nullptr) pack.add_readers(converter_);
}

TextNormalizer::~TextNormalizer() {
  HConverter_delete(converter_);
  HReplacer_delete(replacer_);
}

std::vector<int> TextNormalizer::add_rules(const std::string &text) {
  // Line by line, so that a rejected line can be named.
  std::vector<int> rejected;
  int number = 0;
  for (size_t start = 0; start < text.size();) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    ++number;
    if (HReplacer_addRuleSet(replacer_, text.data() + start, static_cast<int>(end - start)) != 0)
      rejected.push_back(number);
    start = end + 1;
  }
  return rejected;
}

void TextNormalizer::normalize(mxml_node_t *tree) const {
  HReplacer_replace(replacer_, tree);
  HConverter_convert(converter_, tree);
}

}  // namespace utts
