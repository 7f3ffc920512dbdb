// hreplacer_exports.cpp - the exported HReplacer_* functions: each forwards
// to the replacer object, and those that reach RE2 or the standard
// containers turn an exhausted-memory exception into their failure result.
#include "hreplacer.h"

#include "NLP/NLP_TextNorm/hreplacer_class.h"
#include "Utils/Markup/mxml_safe.h"
#include "Utils/TextMemory/guarded.h"

extern "C" {

// Making the replacer may meet exhausted memory: null then.
UTILS_API HReplacer *HReplacer_create(void) {
  return utils::guarded(static_cast<HReplacer *>(nullptr), [] { return new HReplacer(); });
}

UTILS_API void HReplacer_delete(HReplacer *replacer) { delete replacer; }

// When memory runs out part way, the rules read so far stay loaded and at
// least the line being read is not: it is counted as rejected.
UTILS_API int HReplacer_addRuleSet(HReplacer *replacer, const char *text, int length) {
  if (replacer == nullptr) return 0;
  return utils::guarded(1, [&] { return replacer->add_rule_set(text, length); });
}

// When memory runs out part way, the rules applied so far keep their effect.
UTILS_API void HReplacer_replace(HReplacer *replacer, mxml_node_t *node) {
  if (replacer == nullptr || !utils::markup::prepare_mxml_copies()) return;
  utils::guarded_void([&] { replacer->replace(node); });
}

}  // extern "C"
