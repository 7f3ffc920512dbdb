// replace_rule.h - one rule of a replacer: a compiled pattern and the template
// of the element that replaces each match.
#ifndef UTILS_NLP_TEXTNORM_REPLACE_RULE_H
#define UTILS_NLP_TEXTNORM_REPLACE_RULE_H

#include <re2/re2.h>

#include "NLP/NLP_TextNorm/local_object.h"
#include "NLP/NLP_TextNorm/node_template.h"

namespace utils::textnorm {

struct ReplaceRule : LocalObject {
  // Compiles `pattern` (default options, errors not logged) and parses `rewrite` against its
  // capture groups. Null when either fails or memory runs out.
  static ReplaceRule *make(re2::StringPiece pattern, re2::StringPiece rewrite);
  ~ReplaceRule();

  re2::RE2 *pattern = nullptr;         // owned
  ElementTemplate *rewrite = nullptr;  // owned
  ReplaceRule *prev = nullptr;         // neighbours in the replacer's list
  ReplaceRule *next = nullptr;
};

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_REPLACE_RULE_H
