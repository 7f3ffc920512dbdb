// pattern_match.h - the wildcard match of tree questions: "*" any run, "?"
// any one character, anchored at the start of the label only.
#ifndef UTILS_NLP_DTREE_PATTERN_MATCH_H
#define UTILS_NLP_DTREE_PATTERN_MATCH_H

namespace utils::dtree {

// True when `label` matches `pattern` (neither null). An exhausted label or
// pattern at the top of the loop fails, so an empty label matches nothing
// and a trailing "*" needs a character.
bool pattern_match(const char *label, const char *pattern);

}  // namespace utils::dtree

#endif  // UTILS_NLP_DTREE_PATTERN_MATCH_H
