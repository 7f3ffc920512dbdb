// feature_store.h - setting a value in a feature set with the outcome known:
// the model's own writers use these, so that a value made for a set never
// leaks when the set cannot take it.
#ifndef UTILS_MODEL_FEATURE_STORE_H
#define UTILS_MODEL_FEATURE_STORE_H

#include "utt_features.h"

namespace utils::model {

// feat_set that tells whether `v` is now the value of `name` in `f` (false
// for a null set or value, and when no pair could be allocated).
bool store_value(features *f, const char *name, const val *v);

// Stores a value that was made for the set and that nobody else holds yet,
// or, when the set cannot take it, releases it. Either way the caller no
// longer owns `v`. Returns whether it was stored.
bool adopt_value(features *f, const char *name, val *v);

}  // namespace utils::model

#endif  // UTILS_MODEL_FEATURE_STORE_H
