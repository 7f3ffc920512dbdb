// hreplacer_exports.cpp - the exported HReplacer_* functions: each forwards to the replacer object.
#include "hreplacer.h"

#include "NLP/NLP_TextNorm/hreplacer_class.h"

extern "C" {

UTILS_API HReplacer *HReplacer_create(void) { return new HReplacer(); }

UTILS_API void HReplacer_delete(HReplacer *replacer) { delete replacer; }

UTILS_API int HReplacer_addRuleSet(HReplacer *replacer, const char *text, int length) {
  return replacer != nullptr ? replacer->add_rule_set(text, length) : 0;
}

UTILS_API void HReplacer_replace(HReplacer *replacer, mxml_node_t *node) {
  if (replacer != nullptr) replacer->replace(node);
}

}  // extern "C"
