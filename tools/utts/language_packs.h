// language_packs.h - the language packs of the front end's normaliser: for
// each language, its bundled rule set and the readers it registers.
#ifndef UTILS_UTTS_LANGUAGE_PACKS_H
#define UTILS_UTTS_LANGUAGE_PACKS_H

#include <cstddef>
#include <string>

#include "hconverter.h"

namespace utts {

struct LanguagePack {
  const char *language;  // primary language subtag, lower case: "en", "zh"
  const char *rules;     // the bundled rule-set text
  std::size_t rules_size;
  // Registers the pack's readers and its say-as reader with the converter.
  void (*add_readers)(HConverter *converter);
};

// The pack for a language tag (en-US, zh-CN, zh-Hans, cmn ...), chosen by its
// primary subtag without regard to case. A tag that names no pack gets the
// English one, which reads the digits and signs of any text.
const LanguagePack &language_pack(const std::string &tag);

// The packs, ending with an entry whose language is null.
const LanguagePack *language_packs();

}  // namespace utts

#endif  // UTILS_UTTS_LANGUAGE_PACKS_H
