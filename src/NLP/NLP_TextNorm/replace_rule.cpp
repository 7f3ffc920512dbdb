// Making and freeing replacement rules.
#include "NLP/NLP_TextNorm/replace_rule.h"

#include <new>

#include "NLP/NLP_TextNorm/template_parser.h"

namespace textnorm {

ReplaceRule *ReplaceRule::make(re2::StringPiece pattern, re2::StringPiece rewrite) {
  ReplaceRule *rule = new ReplaceRule();
  if (rule == nullptr) return nullptr;
  rule->pattern = new (std::nothrow) re2::RE2(pattern);
  if (rule->pattern == nullptr || !rule->pattern->ok()) {
    delete rule;
    return nullptr;
  }
  rule->rewrite = parseTemplate(rewrite, rule->pattern->NumberOfCapturingGroups());
  if (rule->rewrite == nullptr) {
    delete rule;
    return nullptr;
  }
  return rule;
}

ReplaceRule::~ReplaceRule() {
  delete rewrite;
  delete pattern;
}

}  // namespace textnorm
