// fuzz_replace_convert.cpp - fuzzes the whole normalisation: input = rule-set
// text, a NUL byte, then an SSML document (or plain text when it does not
// parse). The rules rewrite the document, the converter turns the result into
// sub elements, and the tree must still print.
#include <mxml.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "NLP/NLP_TextNorm/hreplacer_class.h"
#include "Utils/Markup/mxml_safe.h"
#include "guarded_input.h"
#include "hconverter.h"
#include "hreplacer.h"

namespace {

int echo(const char *text, CStr *out) { return text != nullptr ? CStrAppend(out, text) : 1; }

int spell_bytes(const char *text, CStr *out) {
  if (text == nullptr) return 2;
  for (const char *c = text; *c; ++c) {
    if (int rc = CStrAppendC(out, *c)) return rc;
    if (int rc = CStrAppendC(out, ' ')) return rc;
  }
  return 0;
}

int refuse(const char *, CStr *out) {
  CStrAppend(out, "partial");
  return -1;
}

// Splits the number in the text, and refuses every other say-as.
int say_as(const char *text, CStr *out, const char *interpret_as, const char *format,
           const char *detail) {
  if (interpret_as == nullptr || std::strcmp(interpret_as, "cardinal") != 0) return 1;
  CStr *sign = CStrCreate(0), *integer = CStrCreate(0), *fraction = CStrCreate(0);
  const char *point = format != nullptr ? format : ".";
  const char *group = detail != nullptr ? detail : ",";
  int rc = SayAsCardinal(text, point, group, sign, integer, fraction);
  if (rc == 0) rc = CStrAppend(out, CStrStr(integer));
  if (rc == 0) rc = CStrAppend(out, CStrStr(fraction));
  CStrDestroy(sign);
  CStrDestroy(integer);
  CStrDestroy(fraction);
  return rc;
}

HConverter *make_converter() {
  HConverter *converter = HConverter_create();
  HConverter_add(converter, "x", echo);
  HConverter_add(converter, "xnum", spell_bytes);
  HConverter_add(converter, "xbad", refuse);
  HConverter_setSayAs(converter, say_as);
  return converter;
}

void check_prints(mxml_node_t *tree) {
  if (char *text = mxmlSaveAllocString(tree, MXML_NO_CALLBACK); text != nullptr) std::free(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > 1 << 16) return 0;
  const char *bytes = reinterpret_cast<const char *>(data);
  const char *nul = static_cast<const char *>(std::memchr(bytes, 0, size));
  size_t rules_size = nul != nullptr ? static_cast<size_t>(nul - bytes) : size;
  HReplacer *replacer = HReplacer_create();
  HReplacer_addRuleSet(replacer, fuzz_support::guarded_c_string(data, rules_size),
                       static_cast<int>(rules_size));
  // The document after the rules, up to a zero byte, ends at an unreadable page.
  const char *document = nul != nullptr ? fuzz_support::guarded_c_string(data + rules_size + 1,
                                                                         size - rules_size - 1, 1)
                                        : "";
  HConverter *converter = make_converter();

  // Parsed under a holder node: Mini-XML frees a half-built tree on a parse
  // error only when it has a parent to hang it on.
  mxml_node_t *tree = mxmlNewElement(MXML_NO_PARENT, "holder");
  if (utils::markup::load_string_safely(tree, document, MXML_OPAQUE_CALLBACK) == nullptr) {
    mxmlDelete(tree);
    tree = replacer->replace_text(document);
  } else {
    HReplacer_replace(replacer, tree);
  }
  HConverter_convert(converter, tree);
  check_prints(tree);
  // A second round over converted text must be as safe as the first.
  HReplacer_replace(replacer, tree);
  HConverter_convert(converter, tree);
  check_prints(tree);
  mxmlDelete(tree);

  HConverter_delete(converter);
  HReplacer_delete(replacer);
  return 0;
}
