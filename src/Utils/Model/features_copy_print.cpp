// features_copy_print.cpp - feature sets beyond the basics: copying into
// another set (values shared), printing as markup attributes, and readers with
// the caller's default.
#include <cstdio>

#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "utt_features.h"

using utils::model::float_of;
using utils::model::int_of;

extern "C" {

UTILS_API int feat_copy_into(const features *from, features *to) {
  if (from == nullptr || to == nullptr) return 0;
  // Copying a set into itself would re-set each value onto itself, which
  // frees values held only by this set; it is taken as the no-op it means.
  if (from == to) return feat_length(from);
  int n = 0;
  for (const feature_pair *p = from->head; p != nullptr; p = p->next, ++n)
    feat_set(to, p->name, p->value);
  return n;
}

// The "tag" feature names the element when an item is written as markup, so
// it is not an attribute.
UTILS_API int feat_print(FILE *stream, const features *f) {
  if (stream == nullptr || f == nullptr) return 0;
  for (const feature_pair *p = f->head; p != nullptr; p = p->next) {
    if (bsr_strcmp(p->name, "tag") == 0) continue;
    std::fprintf(stream, " %s=\"", p->name);
    val_print(stream, p->value);
    std::fputc('"', stream);
  }
  return 0;
}

UTILS_API int32_t get_param_int(const features *f, const char *name, int32_t def) {
  const val *v = feat_val(f, name);
  return v != nullptr ? int_of(v) : def;
}

UTILS_API float get_param_float(const features *f, const char *name, float def) {
  const val *v = feat_val(f, name);
  return v != nullptr ? float_of(v) : def;
}

UTILS_API const val *get_param_val(const features *f, const char *name, const val *def) {
  const val *v = feat_val(f, name);
  return v != nullptr ? v : def;
}

UTILS_API const bsr_wchar *get_param_wstring(const features *f, const char *name,
                                             const bsr_wchar *def) {
  const val *v = feat_val(f, name);
  return v != nullptr ? val_wstring(v) : def;
}

}  // extern "C"
