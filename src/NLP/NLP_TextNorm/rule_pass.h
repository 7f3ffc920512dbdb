// rule_pass.h - one rule applied to every queued text node: matches are cut out
// of the text and replaced by the elements the rule's template builds.
#ifndef UTILS_NLP_TEXTNORM_RULE_PASS_H
#define UTILS_NLP_TEXTNORM_RULE_PASS_H

#include "NLP/NLP_TextNorm/replace_rule.h"
#include "NLP/NLP_TextNorm/text_collector.h"

namespace utils::textnorm {

// Takes as many nodes from the front of `queue` as it holds now, rewrites
// each with `rule`, and pushes the text nodes that remain (untouched nodes
// and the leftover pieces of rewritten ones) to the back in document order.
void apply_rule(const ReplaceRule &rule, TextQueue &queue);

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_RULE_PASS_H
