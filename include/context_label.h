/* context_label.h - context features of items in the prosodic hierarchy and
 * the label strings that select acoustic models.
 *
 * A feature is read off an item by name or by a short path. Twenty-one
 * built-in names answer structural questions (positions among siblings and
 * cousins, numbers of descendants); they answer with the constant wide
 * strings "0".."60" (larger numbers read "60") or "x" when the item lacks
 * the structure asked about. No result is ever owned by the caller.
 *
 * Paths here are not those of utt_ffeature.h: segments are separated by "."
 * only; the steps are "n", "p", "parent", "daughter" and "R:<relation>"; a
 * step that finds no item answers "x", a path that ends in a step answers
 * "0"; the first segment that is not a step is the feature name. When the
 * item carries a feature of that name, the rest of the path is part of the
 * name (so "parent.NumDaughter" counts the parent's daughters, while a
 * feature the item carries is never followed by further steps); otherwise
 * the built-in of that name answers, or "0".
 *
 * Nothing here allocates.
 * */
#ifndef UTILS_CONTEXT_LABEL_H
#define UTILS_CONTEXT_LABEL_H

#include "utterance.h"

UTILS_BEGIN_DECLS

/* The built-in feature function of `name`, or null. The names, exactly:
 *   "PositionFW1" or "PositionFW": 1-based place among the parent's
 *       daughters; "PositionFW2"/"PositionGrandFW",
 *       "PositionFW3"/"PositionGreatGrandFW", "PositionFW4": the place among
 *       the grandparent's (great-grandparent's, ...) descendants two (three,
 *       four) levels down, daughter by daughter;
 *   "PositionBW1"/"PositionBW" ... "PositionBW4": the same counted from the
 *       last daughter backwards at every level;
 *   "NumDaughter1"/"NumDaughter", "NumDaughter2"/"NumGrandDaughter",
 *       "NumDaughter3"/"NumGreatGrandDaughter", "NumDaughter4": the number
 *       of descendants one to four levels down ("x" for a null item).
 * A missing ancestor gives "x". The one-level positions give "0" when the
 * parent has no daughter and the number of daughters when the item is not
 * among them; the deeper ones give "x" when the item is not found. */
UTILS_API ffunc GetFeatFunc(const char *name);

/* The value of `path` on `i` as described above: "x" for a null item, "0"
 * for a null or unknown path. Never null. */
UTILS_API const val *GetFeature(const item *i, const char *path);

/* The longest value a label field prints, in bytes: a wide string is
 * written as at most this much UTF-8, an integer takes at most 11. */
#define UTILS_LABEL_VALUE_MAX 127

/* Writes into `out` the NUL-terminated label of `i`: for each of the `count`
 * fields, prefixes[j], the value, suffixes[j], with nothing in between. The
 * value is "0" when names[j] is "0" (nothing is evaluated), else
 * GetFeature(i, names[j]) printed: an integer in decimal, a wide string as
 * UTF-8 (at most UTILS_LABEL_VALUE_MAX bytes), anything else as nothing. A
 * null prefix or suffix is empty; a null name prints "0".
 * The buffer is the caller's to size: the lengths of all prefixes and
 * suffixes, plus UTILS_LABEL_VALUE_MAX bytes a field, plus 1 always suffice.
 * Returns 0. A null `out` is left alone; a null table or a count below 1
 * writes the empty label. */
UTILS_API int MakeFeatureLabel(const item *i, const char *const *names, const char *const *prefixes,
                               const char *const *suffixes, int count, char *out);

UTILS_END_DECLS

#endif /* UTILS_CONTEXT_LABEL_H */
