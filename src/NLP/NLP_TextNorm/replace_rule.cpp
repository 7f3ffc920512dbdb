// replace_rule.cpp - making and freeing replacement rules.
#include "NLP/NLP_TextNorm/replace_rule.h"

#include <memory>
#include <new>

#include "NLP/NLP_TextNorm/template_parser.h"

namespace utils::textnorm {

namespace {

// RE2's default options, except that a rejected pattern is not reported on
// standard error: the library writes no log, and the rejection is already
// counted in the result of adding the rule set.
re2::RE2::Options quiet_defaults() {
  re2::RE2::Options options;
  options.set_log_errors(false);
  return options;
}

}  // namespace

// RE2 may throw std::bad_alloc from inside its constructor whatever the
// allocation of the object itself does; the rule is held by a unique_ptr so
// that it goes with the exception to the exported function's boundary.
ReplaceRule *ReplaceRule::make(re2::StringPiece pattern, re2::StringPiece rewrite) {
  std::unique_ptr<ReplaceRule> rule(new ReplaceRule());  // the local allocator: null on failure
  if (rule == nullptr) return nullptr;
  rule->pattern = new (std::nothrow) re2::RE2(pattern, quiet_defaults());
  if (rule->pattern == nullptr || !rule->pattern->ok()) return nullptr;
  rule->rewrite = parse_template(rewrite, rule->pattern->NumberOfCapturingGroups());
  if (rule->rewrite == nullptr) return nullptr;
  return rule.release();
}

ReplaceRule::~ReplaceRule() {
  delete rewrite;
  delete pattern;
}

}  // namespace utils::textnorm
