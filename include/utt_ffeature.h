/* utt_ffeature.h - reading features along paths through the relation
 * structure, and per-utterance feature functions that answer names.
 *
 * A path is a narrow string of tokens separated by '.' or ':'. Every token but
 * the last is a step: "n", "p", "nn", "pp", "parent", "daughter",
 * "daughter1", "daughtern", or "R" followed by a relation name token (the
 * item of the same contents in that relation). The last token names the
 * feature. Only the first 199 bytes of a path are read; a path with more than
 * 98 separators is refused like an unknown step (null result).
 *
 * The answer to a feature name is, in order: the feature function registered
 * under that name on the item's utterance (its result, or the default when it
 * returns null), the item's own feature, or the default value. The default is
 * a constant wide string "0" of its own (not the one val_string_n(0) gives).
 * Walking off the structure also gives the default; an unknown step gives
 * null. Results are never owned by the caller: do not release them.
 *
 * The walk allocates nothing and is reentrant.
 * */
#ifndef UTILS_UTT_FFEATURE_H
#define UTILS_UTT_FFEATURE_H

#include "utterance.h"

UTILS_BEGIN_DECLS

/* The value answering `path` from `i`, the default value, or null for an
 * unknown step or an over-long token list. */
UTILS_API const val *ffeature(const item *i, const char *path);
/* val_int of ffeature (0 for the default and for an unknown step). */
UTILS_API int32_t ffeature_int(const item *i, const char *path);
/* val_float of ffeature (0.0 for strings, the default and unknown steps). */
UTILS_API float ffeature_float(const item *i, const char *path);
/* The wide string of a "wstring" answer ("0" for the default); null for any
 * other type and for an unknown step. */
UTILS_API const bsr_wchar *ffeature_wstring(const item *i, const char *path);
/* The item reached by taking every token as a step; null when a step leads
 * nowhere or is unknown (an empty path is an unknown step). */
UTILS_API item *path_to_item(const item *i, const char *path);

/* Registers fn under `name` in a feature-function set (an utterance's
 * `ffunctions`). The first registration of a name wins; later ones are
 * ignored. */
UTILS_API void ff_register(features *ffunctions, const char *name, ffunc fn);
/* Removes the registration; 1 if it existed, else 0. */
UTILS_API int ff_unregister(features *ffunctions, const char *name);

UTILS_END_DECLS

#endif /* UTILS_UTT_FFEATURE_H */
