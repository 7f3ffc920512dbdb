// rule_set_reader.h - splitting a rule-set text into rules: one "pattern TAB
// template" per line, with the counting rules for comments and rejected lines.
#ifndef UTILS_NLP_TEXTNORM_RULE_SET_READER_H
#define UTILS_NLP_TEXTNORM_RULE_SET_READER_H

#include <re2/re2.h>

#include <functional>

namespace utils::textnorm {

// Longest line, pattern and template a rule set may hold, in bytes (CRs not
// counted). Longer ones are rejected like malformed lines.
constexpr int kMaxLineBytes = 1023;
constexpr int kMaxPatternBytes = 255;
constexpr int kMaxTemplateBytes = 255;

// Called with each rule line's pattern and template; returns whether the
// rule was accepted.
using RuleSink = std::function<bool(re2::StringPiece pattern, re2::StringPiece rewrite)>;

// Reads `length` bytes of rule-set text and hands every rule line to `sink`.
// Returns the number of rejected lines: lines without a TAB (even comments),
// lines with an empty or overlong pattern or template, overlong lines, and
// lines the sink refused. Empty lines and "#...TAB..." comments are skipped
// without counting. A null text or a length below 1 reads nothing.
int read_rule_set(const char *text, int length, const RuleSink &sink);

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_RULE_SET_READER_H
