// language_packs.cpp - the table of language packs: add a language with one
// row here, its rules in data/ and its readers.
#include "utts/language_packs.h"

#include "utts/chinese_readers.h"
#include "utts/english_readers.h"
#include "utts/text_normalizer.h"

namespace utts {

namespace {

void add_english_readers(HConverter *converter) {
  for (const ReaderEntry *r = english_readers(); r->element != nullptr; ++r)
    HConverter_add(converter, r->element, r->read);
  HConverter_setSayAs(converter, read_say_as);
}

// The primary subtag of a language tag, lower case; "cmn" (Mandarin) is
// taken for "zh".
std::string primary_subtag(const std::string &tag) {
  std::string primary;
  for (char c : tag) {
    if (c == '-' || c == '_') break;
    primary += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return primary == "cmn" ? "zh" : primary;
}

}  // namespace

const LanguagePack *language_packs() {
  // The sizes are read when the table is first used, after the rule texts
  // (defined in other sources) are initialised.
  static const LanguagePack kPacks[] = {
      {"en", kEnglishRules, kEnglishRulesSize, add_english_readers},
      {"zh", kChineseRules, kChineseRulesSize, chinese::add_readers},
      {nullptr, nullptr, 0, nullptr},
  };
  return kPacks;
}

const LanguagePack &language_pack(const std::string &tag) {
  const std::string primary = primary_subtag(tag);
  const LanguagePack *packs = language_packs();
  for (const LanguagePack *p = packs; p->language != nullptr; ++p)
    if (primary == p->language) return *p;
  return packs[0];
}

}  // namespace utts
