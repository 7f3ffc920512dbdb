/* hreplacer.h - the rule-set replacer: ordered regular-expression rules that
 * cut matches out of the text of a Mini-XML document and wrap them in elements.
 *
 * Rule-set text, one rule per line (LF ends a line, CR bytes are dropped):
 *
 *     pattern <TAB> template
 *
 *   - empty lines are ignored; a line with a TAB whose first byte is '#' is a
 *     comment; a non-empty line without a TAB is rejected (even "# ...");
 *   - the pattern is RE2 syntax (default options, UTF-8);
 *   - the template builds the element that replaces the matched stretch:
 *       "text ?0 text"            element x holding the text; ?N is capture
 *                                 group N+1 (?0 the first group)
 *       "?num:0 ..."              a child element num holding group 1
 *       name{ "..." name2{...} }  an element of the given name with children
 *     A backslash takes the next character literally (\" \? \\).
 *   - lines over 1023 bytes, patterns or templates over 255 bytes are
 *     rejected.
 *
 * Only the stretch from the first to the last non-empty capture group is cut
 * out (the whole match when no group took part); it is recorded in the new
 * element's "src" attribute. Text inside elements named x..., sub or say-as
 * is never touched, nor is white-space-only text. Rules run in load order and
 * never look inside elements that an earlier rule made.
 *
 * One replacer is used by one thread at a time while rules are added; after
 * one HReplacer_replace has returned, several threads may replace at once. */
#ifndef UTILS_HREPLACER_H
#define UTILS_HREPLACER_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

typedef struct HReplacer HReplacer;

/* New replacer without rules, or null when memory is exhausted.
 * Release it with HReplacer_delete. */
UTILS_API HReplacer *HReplacer_create(void);

/* Frees the replacer with every rule, pattern and template. Null is ignored. */
UTILS_API void HReplacer_delete(HReplacer *replacer);

/* Adds the rules of a rule-set text of `length` bytes (no terminator needed)
 * after those already loaded. Returns the number of rejected lines: 0 when
 * every line loaded. A null replacer or text, or a negative length, adds
 * nothing and returns 0. Rejected lines are skipped; the others still load. */
UTILS_API int HReplacer_addRuleSet(HReplacer *replacer, const char *text, int length);

/* Applies every rule, in load order, to the text under `node` (a document or
 * any element), rewriting the tree in place. Null arguments do nothing. */
UTILS_API void HReplacer_replace(HReplacer *replacer, mxml_node_t *node);

UTILS_END_DECLS

#endif /* UTILS_HREPLACER_H */
