// rule_set_reader.cpp - line splitting and classification of rule-set texts.
#include "NLP/NLP_TextNorm/rule_set_reader.h"

#include <string>

namespace utils::textnorm {

namespace {

// Result of one line: whether it counts as rejected.
bool line_rejected(const std::string &line, const RuleSink &sink) {
  std::string::size_type tab = line.find('\t');
  if (tab == std::string::npos) return true;
  if (line[0] == '#') return false;
  if (line.size() > static_cast<std::string::size_type>(kMaxLineBytes)) return true;
  re2::StringPiece pattern(line.data(), tab);
  re2::StringPiece rewrite(line.data() + tab + 1, line.size() - tab - 1);
  if (pattern.empty() || rewrite.empty()) return true;
  if (pattern.size() > kMaxPatternBytes || rewrite.size() > kMaxTemplateBytes) return true;
  return !sink(pattern, rewrite);
}

}  // namespace

int read_rule_set(const char *text, int length, const RuleSink &sink) {
  if (text == nullptr || length <= 0) return 0;
  int rejected = 0;
  std::string line;
  const char *end = text + length;
  for (const char *at = text; at < end; ++at) {
    if (*at == '\n') {
      if (!line.empty() && line_rejected(line, sink)) ++rejected;
      line.clear();
    } else if (*at != '\r') {
      line.push_back(*at);
    }
  }
  if (!line.empty() && line_rejected(line, sink)) ++rejected;
  return rejected;
}

}  // namespace utils::textnorm
