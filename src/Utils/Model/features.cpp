// features.cpp - feature sets: making and deleting them, setting, finding and
// removing named values (newest name first; a replaced value keeps its place).
#include <cstring>

#include "Utils/Model/feature_store.h"
#include "Utils/Model/val_cell.h"
#include "Utils/TextMemory/private_heap.h"
#include "bsr_string.h"
#include "utt_features.h"

namespace {

using utils::model::cell_mut;

// Exactly when bsr_strcmp(a, b) == 0 (null equals only null), but with the
// first byte tested inline and the C library's compare for the rest: names
// are short and most of them differ early.
inline bool names_equal(const char *a, const char *b) {
  if (a == b) return true;
  if (a == nullptr || b == nullptr || a[0] != b[0]) return false;
  return std::strcmp(a, b) == 0;
}

feature_pair *find_pair(const features *f, const char *name) {
  if (f == nullptr) return nullptr;
  for (feature_pair *p = f->head; p != nullptr; p = p->next)
    if (names_equal(p->name, name)) return p;
  return nullptr;
}

void free_pair(features *f, feature_pair *p) {
  delete_val(p->value);
  bsr_free(p->name);
  utils::text::free_on(f->heap, p);
}

}  // namespace

namespace utils::model {

bool store_value(features *f, const char *name, const val *v) {
  if (f == nullptr || v == nullptr) return false;
  if (feature_pair *p = find_pair(f, name); p != nullptr) {
    // Released first, then raised: re-setting a value held only here onto
    // itself frees it (callers must not do that).
    delete_val(p->value);
    val_inc_refcount(v);
    p->value = cell_mut(v);
    return true;
  }
  auto *p = static_cast<feature_pair *>(text::alloc_on(f->heap, sizeof(feature_pair)));
  if (p == nullptr) return false;
  p->name = tts_strdup(name);
  if (p->name == nullptr && name != nullptr) {
    text::free_on(f->heap, p);
    return false;
  }
  val_inc_refcount(v);
  p->value = cell_mut(v);
  p->next = f->head;
  f->head = p;
  return true;
}

bool adopt_value(features *f, const char *name, val *v) {
  if (store_value(f, name, v)) return true;
  delete_val(v);  // nobody holds it: freed
  return false;
}

}  // namespace utils::model

extern "C" {

UTILS_API features *new_features(void) { return new_features_local(nullptr); }

UTILS_API features *new_features_local(bsr_heap *heap) {
  auto *f = static_cast<features *>(utils::text::alloc_on(heap, sizeof(features)));
  if (f != nullptr) f->heap = heap;
  return f;
}

UTILS_API void delete_features(features *f) {
  if (f == nullptr) return;
  for (feature_pair *p = f->head; p != nullptr;) {
    feature_pair *next = p->next;
    free_pair(f, p);
    p = next;
  }
  utils::text::free_on(f->heap, f);
}

UTILS_API void feat_set(features *f, const char *name, const val *v) {
  utils::model::store_value(f, name, v);
}

UTILS_API void feat_set_int(features *f, const char *name, int32_t i) {
  utils::model::adopt_value(f, name, int_val(i));
}

UTILS_API void feat_set_float(features *f, const char *name, float x) {
  utils::model::adopt_value(f, name, float_val(x));
}

UTILS_API void feat_set_wstring(features *f, const char *name, const bsr_wchar *s) {
  utils::model::adopt_value(f, name, wstring_val(s));
}

UTILS_API const val *feat_val(const features *f, const char *name) {
  feature_pair *p = find_pair(f, name);
  return p != nullptr ? p->value : nullptr;
}

UTILS_API int32_t feat_int(const features *f, const char *name) {
  return utils::model::int_of(feat_val(f, name));
}

UTILS_API float feat_float(const features *f, const char *name) {
  return utils::model::float_of(feat_val(f, name));
}

UTILS_API const bsr_wchar *feat_wstring(const features *f, const char *name) {
  return val_wstring(feat_val(f, name));
}

UTILS_API int feat_present(const features *f, const char *name) {
  return find_pair(f, name) != nullptr ? 1 : 0;
}

UTILS_API int feat_remove(features *f, const char *name) {
  if (f == nullptr) return 0;
  for (feature_pair **link = &f->head; *link != nullptr; link = &(*link)->next) {
    feature_pair *p = *link;
    if (!names_equal(p->name, name)) continue;
    *link = p->next;
    free_pair(f, p);
    return 1;
  }
  return 0;
}

UTILS_API int feat_length(const features *f) {
  int n = 0;
  for (const feature_pair *p = f != nullptr ? f->head : nullptr; p != nullptr; p = p->next) ++n;
  return n;
}

}  // extern "C"
