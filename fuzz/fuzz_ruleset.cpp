// fuzz_ruleset.cpp - fuzzes rule-set loading: arbitrary bytes as a rule-set
// text, then the loaded rules applied to a short fixed document.
#include <mxml.h>

#include <cstdint>

#include "guarded_input.h"
#include "hreplacer.h"

namespace {

const char kDocument[] =
    "<speak><p>On 11/21/2026 at 7:05 pm Dr. Smith paid $12.50 for 5 kg.</p>"
    "<sub alias=\"x\">1</sub><xnum>2</xnum>  <s>a-1,234.5% \xC3\xA9 no5</s></speak>";

// The number of lines the reader can count as rejected.
int line_count(const uint8_t *data, size_t size) {
  int lines = size > 0 ? 1 : 0;
  for (size_t i = 0; i < size; ++i) lines += data[i] == '\n';
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > 1 << 16) return 0;
  HReplacer *replacer = HReplacer_create();
  const auto *text = reinterpret_cast<const char *>(fuzz_support::guarded_bytes(data, size));
  int rejected = HReplacer_addRuleSet(replacer, text, static_cast<int>(size));
  if (rejected < 0 || rejected > line_count(data, size)) __builtin_trap();
  mxml_node_t *tree = mxmlLoadString(nullptr, kDocument, MXML_OPAQUE_CALLBACK);
  HReplacer_replace(replacer, tree);
  mxmlDelete(tree);
  HReplacer_delete(replacer);
  return 0;
}
