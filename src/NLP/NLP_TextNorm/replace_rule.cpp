// replace_rule.cpp - making and freeing replacement rules.
#include "NLP/NLP_TextNorm/replace_rule.h"

#include <new>

#include "NLP/NLP_TextNorm/template_parser.h"

namespace utils::textnorm {

// RE2's default options, except that a rejected pattern is not reported on
// standard error: the library writes no log, and the rejection is already
// counted in the result of adding the rule set.
static re2::RE2::Options quiet_defaults() {
  re2::RE2::Options options;
  options.set_log_errors(false);
  return options;
}

ReplaceRule *ReplaceRule::make(re2::StringPiece pattern, re2::StringPiece rewrite) {
  ReplaceRule *rule = new ReplaceRule();  // the local allocator: null on failure
  if (rule == nullptr) return nullptr;
  rule->pattern = new (std::nothrow) re2::RE2(pattern, quiet_defaults());
  if (rule->pattern == nullptr || !rule->pattern->ok()) {
    delete rule;
    return nullptr;
  }
  rule->rewrite = parse_template(rewrite, rule->pattern->NumberOfCapturingGroups());
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

}  // namespace utils::textnorm
