// item_features.cpp - an item's features are its contents' set, seen the same
// from every relation holding the object; these forward to the feature-set
// functions.
#include "utterance.h"

#include "Utils/Model/val_cell.h"

using utils::model::float_of;
using utils::model::int_of;

namespace {

features *feats_of(const item *i) {
  return i != nullptr && i->contents != nullptr ? i->contents->features : nullptr;
}

}  // namespace

extern "C" {

UTILS_API features *item_feats(const item *i) { return feats_of(i); }

UTILS_API const val *item_feat(const item *i, const char *name) {
  return feat_val(feats_of(i), name);
}

UTILS_API int item_feat_present(const item *i, const char *name) {
  return feat_present(feats_of(i), name);
}

UTILS_API int item_feat_remove(item *i, const char *name) { return feat_remove(feats_of(i), name); }

UTILS_API int32_t item_feat_int(const item *i, const char *name) {
  return int_of(feat_val(feats_of(i), name));
}

UTILS_API float item_feat_float(const item *i, const char *name) {
  return float_of(feat_val(feats_of(i), name));
}

UTILS_API const bsr_wchar *item_feat_wstring(const item *i, const char *name) {
  return feat_wstring(feats_of(i), name);
}

// Setters need an item; a null one is ignored rather than dereferenced.
UTILS_API void item_set(item *i, const char *name, const val *v) {
  if (features *f = feats_of(i); f != nullptr) feat_set(f, name, v);
}

UTILS_API void item_set_int(item *i, const char *name, int32_t n) {
  if (features *f = feats_of(i); f != nullptr) feat_set_int(f, name, n);
}

UTILS_API void item_set_float(item *i, const char *name, float x) {
  if (features *f = feats_of(i); f != nullptr) feat_set_float(f, name, x);
}

UTILS_API void item_set_wstring(item *i, const char *name, const bsr_wchar *s) {
  if (features *f = feats_of(i); f != nullptr) feat_set_wstring(f, name, s);
}

}  // extern "C"
