// val_read.cpp - reading values: numbers (with the int/float asymmetry for
// strings), wide strings, cons fields and the payloads of typed atoms.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"

using utils::model::cell_is_atom_of;
using utils::model::cell_is_cons;
using utils::model::cell_start;
using utils::model::kValCart;
using utils::model::kValFeatures;
using utils::model::kValFfunc;
using utils::model::kValFloat;
using utils::model::kValInt;
using utils::model::kValItem;
using utils::model::kValItemfunc;
using utils::model::kValRelation;
using utils::model::kValUserdata;
using utils::model::kValUtterance;
using utils::model::kValUttfunc;
using utils::model::kValWstring;

namespace {

template <typename Fn>
Fn fn_from_payload(void *p) {
  return reinterpret_cast<Fn>(p);
}

}  // namespace

namespace utils::model {

// Library code reads numbers through these, never through the exported
// names: a program may link another library that also defines `val_int` or
// `val_float` (the Edinburgh Speech Tools define both as data), and the
// library must not call into whichever definition wins the lookup.
int32_t int_of(const val *v) {
  if (v == nullptr) return 0;
  switch (cell_start(v)) {
    case kValInt:
      return v->c.atom.payload.i;
    case kValFloat: {
      float f = v->c.atom.payload.f;
      // Truncate toward zero; out-of-range floats saturate instead of
      // invoking undefined conversion.
      if (!(f > -2147483648.0f)) return f < 0 ? INT32_MIN : 0;
      if (f >= 2147483648.0f) return INT32_MAX;
      return static_cast<int32_t>(f);
    }
    case kValWstring:
      return bsr_wtoi(static_cast<const bsr_wchar *>(v->c.atom.payload.p));
    default:
      return 0;
  }
}

// Strings read as 0.0 here although val_int parses them: numeric comparisons
// of strings therefore compare zeros. Callers rely on this.
float float_of(const val *v) {
  if (v == nullptr) return 0.0f;
  if (cell_start(v) == kValInt) return static_cast<float>(v->c.atom.payload.i);
  if (cell_start(v) == kValFloat) return v->c.atom.payload.f;
  return 0.0f;
}

}  // namespace utils::model

extern "C" {

UTILS_API int32_t val_int(const val *v) { return utils::model::int_of(v); }

UTILS_API float val_float(const val *v) { return utils::model::float_of(v); }

UTILS_API const bsr_wchar *val_wstring(const val *v) {
  return static_cast<const bsr_wchar *>(val_generic(v, kValWstring));
}

UTILS_API val *val_car(const val *v) {
  return v != nullptr && cell_is_cons(v) ? v->c.cons.car : nullptr;
}

UTILS_API val *val_cdr(const val *v) {
  return v != nullptr && cell_is_cons(v) ? v->c.cons.cdr : nullptr;
}

UTILS_API void *val_generic(const val *v, int32_t type) {
  // Only odd codes name atoms: an even one could match the start of a cons.
  if (v == nullptr || (type & 1) == 0 || cell_start(v) != type) return nullptr;
  return v->c.atom.payload.p;
}

UTILS_API utterance *val_utterance(const val *v) {
  return static_cast<utterance *>(val_generic(v, kValUtterance));
}
UTILS_API uttfunc val_uttfunc(const val *v) {
  return fn_from_payload<uttfunc>(val_generic(v, kValUttfunc));
}
UTILS_API ffunc val_ffunc(const val *v) {
  return fn_from_payload<ffunc>(val_generic(v, kValFfunc));
}
UTILS_API relation *val_relation(const val *v) {
  return static_cast<relation *>(val_generic(v, kValRelation));
}
UTILS_API item *val_item(const val *v) { return static_cast<item *>(val_generic(v, kValItem)); }
UTILS_API cart *val_cart(const val *v) { return static_cast<cart *>(val_generic(v, kValCart)); }
UTILS_API void *val_userdata(const val *v) { return val_generic(v, kValUserdata); }
UTILS_API itemfunc val_itemfunc(const val *v) {
  return fn_from_payload<itemfunc>(val_generic(v, kValItemfunc));
}
UTILS_API features *val_features(const val *v) {
  return static_cast<features *>(val_generic(v, kValFeatures));
}

// For a cons the second word is answered, which is its cdr; a cons whose
// start reads 0 (null car) answers null like an int.
UTILS_API void *val_void(const val *v) {
  if (v == nullptr) return nullptr;
  int16_t start = cell_start(v);
  if (start == kValInt || start == kValFloat || start == 0) return nullptr;
  if (cell_is_cons(v)) return v->c.cons.cdr;
  return v->c.atom.payload.p;
}

UTILS_API int bsr_val_consp(const val *v) { return v != nullptr && cell_is_cons(v) ? 1 : 0; }

UTILS_API int val_wstringp(const val *v) { return cell_is_atom_of(v, kValWstring) ? 1 : 0; }

}  // extern "C"
