/* utt_walk.h - document-order walks over a tree-shaped relation (such as the
 * "ssml" markup tree), attributes inherited from ancestors, and the span
 * selected by an utterance's start and end marks.
 *
 * A walk is bounded by a top item: it never leaves the top's subtree and never
 * returns the top itself. Tags are the wide "tag" features of element items,
 * compared exactly (case-sensitive). Nothing here allocates, and every
 * function uses constant space; all accept null items and then return null
 * or 0. */
#ifndef UTILS_UTT_WALK_H
#define UTILS_UTT_WALK_H

#include "utils_types.h"
#include "utterance.h"

UTILS_BEGIN_DECLS

/* Pre-order successor of `i` within `top`'s subtree, or null when the walk
 * ends. With `descend` nonzero the first daughter of `i` comes next; with
 * `descend` zero the daughters of `i` are skipped, so the call returns the
 * item after `i`'s whole subtree. From `top` itself: its first daughter when
 * descending, else null. */
UTILS_API item *utt_walk_next(item *i, item *top, int descend);

/* Pre-order predecessor of `i` within `top`'s subtree, or null (in particular
 * for `top` and for top's first daughter). With `descend` nonzero, from an
 * item whose previous sibling has daughters this goes to that sibling's
 * deepest last descendant; repeated calls then visit exactly what repeated
 * utt_walk_next(.., 1) visits, in reverse, each parent after its daughters.
 * With `descend` zero the result is the previous sibling, or the parent. */
UTILS_API item *utt_walk_prev(item *i, item *top, int descend);

/* Steps as utt_walk_next / utt_walk_prev and returns the first item whose
 * "tag" equals `tag`; null when the walk ends. `i` itself is not tested:
 * utt_walk_next_tag(e, e, 1, tag) searches the subtree below `e`. */
UTILS_API item *utt_walk_next_tag(item *i, item *top, int descend, const bsr_wchar *tag);
UTILS_API item *utt_walk_prev_tag(item *i, item *top, int descend, const bsr_wchar *tag);

/* The wide-string value of feature `name` on `i` or on its nearest ancestor
 * that has one; null when none does, or when `i` or `name` is null or empty.
 * The string stays owned by the item. */
UTILS_API const bsr_wchar *GetInheritAtt(item *i, const char *name);

/* 1 when `name` is inherited by `i` (as GetInheritAtt finds it) and, when
 * `value` is not null, the nearest value equals `value`; else 0. A farther
 * ancestor holding `value` does not count when a nearer one holds another. */
UTILS_API int IsHasInheritAtt(item *i, const char *name, const bsr_wchar *value);

/* The nearest item, starting with `i` itself and going up, whose "tag" equals
 * `tag`; null when none does. An item without a parent (a root) gives null
 * even when its own tag matches. With a null or empty `tag` the result is the
 * parent of `i`. */
UTILS_API item *GetItemAncestor(item *i, const bsr_wchar *tag);

/* 1 when `i` lies inside the span that `top`'s "startmark" and "endmark"
 * features select, else 0. Marks are elements tagged "mark" in `top`'s
 * subtree whose "name" feature equals the start or end mark's name. `i` is
 * outside when a start mark comes after `i`'s subtree, or when an end mark
 * comes before `i` (an enclosing mark counts as before). Without either
 * feature every item is inside. 0 for a null `top` or `i`. The cost is one
 * walk of the subtree per matching mark. */
UTILS_API int IsBetweenMark(item *top, item *i);

UTILS_END_DECLS

#endif /* UTILS_UTT_WALK_H */
