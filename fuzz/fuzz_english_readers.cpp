// fuzz_english_readers.cpp - fuzzes the English readers of the front end:
// arbitrary bytes (up to the first NUL) are handed to every element reader,
// to the say-as reader with every kind and date format, and, as plain text
// or SSML, to the whole normalisation with the bundled rules.
#include <mxml.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "bsr_cstr.h"
#include "utts/english_readers.h"
#include "utts/text_normalizer.h"

namespace {

void check_prints(mxml_node_t *tree) {
  if (char *text = mxmlSaveAllocString(tree, MXML_NO_CALLBACK); text != nullptr) std::free(text);
}

utts::TextNormalizer &english() {
  static utts::TextNormalizer normalizer;
  static const bool loaded =
      normalizer.add_rules(std::string(utts::kEnglishRules, utts::kEnglishRulesSize)).empty();
  if (!loaded) std::abort();
  return normalizer;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > 1 << 14) return 0;
  // The readers get zero-terminated text, as the converter hands it over.
  const std::string text(reinterpret_cast<const char *>(data), size);
  const char *c_text = text.c_str();

  CStr *out = CStrCreate(16);
  if (out == nullptr) return 0;
  for (const utts::ReaderEntry *r = utts::english_readers(); r->element != nullptr; ++r) {
    CStrErase(out, 0);
    r->read(c_text, out);
  }
  const char *const kinds[] = {"cardinal",  "number", "ordinal", "digits", "characters",
                               "telephone", "date",   "time",    "letters"};
  const char *const formats[] = {nullptr, "mdy", "dmy", "ymd", "ym", "md", "y", "dm", "q"};
  for (const char *kind : kinds) {
    for (const char *format : formats) {
      CStrErase(out, 0);
      utts::read_say_as(c_text, out, kind, format, nullptr);
    }
  }
  CStrDestroy(out);

  // The whole normalisation over the text as a speak element's content, and
  // over it as a document of its own when it parses as one.
  mxml_node_t *speak = mxmlNewElement(MXML_NO_PARENT, "speak");
  mxmlNewOpaque(speak, c_text);
  english().normalize(speak);
  check_prints(speak);
  mxmlDelete(speak);
  mxml_node_t *holder = mxmlNewElement(MXML_NO_PARENT, "holder");
  if (mxmlLoadString(holder, c_text, MXML_OPAQUE_CALLBACK) != nullptr) {
    english().normalize(holder);
    check_prints(holder);
  }
  mxmlDelete(holder);
  return 0;
}
