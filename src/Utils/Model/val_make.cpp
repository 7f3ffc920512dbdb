// val_make.cpp - making values: atoms of every type, cons cells, and the
// clamped lookups of the constant integers and strings.
#include <cstring>

#include "Utils/Model/val_cell.h"
#include "bsr_string.h"

using utils::model::cell_mut;
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
using utils::model::wstring_in_cell_block;

namespace {

val *new_atom(int32_t type) {
  auto *v = static_cast<val *>(bsr_safe_alloc(sizeof(val)));
  if (v != nullptr) v->c.atom.type = static_cast<int16_t>(type);  // count 0: zero fill
  return v;
}

// Function pointers travel in the payload word like any other pointer.
template <typename Fn>
void *fn_payload(Fn fn) {
  return reinterpret_cast<void *>(fn);
}

int clamp_constant(int32_t n) { return n < 0 ? 0 : (n > 60 ? 60 : n); }

}  // namespace

extern "C" {

UTILS_API val *int_val(int32_t i) {
  val *v = new_atom(kValInt);
  if (v != nullptr) v->c.atom.payload.i = i;
  return v;
}

UTILS_API val *float_val(float f) {
  val *v = new_atom(kValFloat);
  if (v != nullptr) v->c.atom.payload.f = f;
  return v;
}

// The copy shares the cell's block: one allocation instead of two, and
// delete_val tells such a string from a separately allocated one.
UTILS_API val *wstring_val(const bsr_wchar *s) {
  if (s == nullptr) return new_atom(kValWstring);
  uint32_t units = bsr_wcslen(s) + 1;
  val *v = utils::model::wstring_val_with_room(units);
  if (v != nullptr) memcpy(v->c.atom.payload.p, s, (units - 1) * sizeof(bsr_wchar));
  return v;
}

UTILS_API val *val_new_typed(int32_t type, void *payload) {
  val *v = new_atom(type);
  if (v != nullptr) v->c.atom.payload.p = payload;
  return v;
}

UTILS_API val *utterance_val(utterance *u) { return val_new_typed(kValUtterance, u); }
UTILS_API val *uttfunc_val(uttfunc f) { return val_new_typed(kValUttfunc, fn_payload(f)); }
UTILS_API val *ffunc_val(ffunc f) { return val_new_typed(kValFfunc, fn_payload(f)); }
UTILS_API val *relation_val(relation *r) { return val_new_typed(kValRelation, r); }
UTILS_API val *item_val(item *i) { return val_new_typed(kValItem, i); }
UTILS_API val *cart_val(cart *c) { return val_new_typed(kValCart, c); }
UTILS_API val *userdata_val(void *p) { return val_new_typed(kValUserdata, p); }
UTILS_API val *itemfunc_val(itemfunc f) { return val_new_typed(kValItemfunc, fn_payload(f)); }
UTILS_API val *features_val(features *f) { return val_new_typed(kValFeatures, f); }

UTILS_API val *cons_val(const val *car, const val *cdr) {
  auto *v = static_cast<val *>(bsr_safe_alloc(sizeof(val)));
  if (v == nullptr) return nullptr;
  // Atoms gain a holder; conses are taken over as they are.
  if (car != nullptr) val_inc_refcount(car);
  if (cdr != nullptr) val_inc_refcount(cdr);
  v->c.cons.car = cell_mut(car);
  v->c.cons.cdr = cell_mut(cdr);
  return v;
}

UTILS_API const val *val_int_n(int32_t n) { return utils_val_int_table[clamp_constant(n)]; }

UTILS_API const val *val_string_n(int32_t n) { return utils_val_string_table[clamp_constant(n)]; }

}  // extern "C"

namespace utils::model {

// Sizes that could overflow 32 bits are refused.
val *wstring_val_with_room(uint32_t units) {
  uint64_t bytes = sizeof(val) + static_cast<uint64_t>(units) * sizeof(bsr_wchar);
  if (bytes > 0x7FFFFFF0u) return nullptr;
  auto *v = static_cast<val *>(bsr_safe_alloc(static_cast<uint32_t>(bytes)));
  if (v == nullptr) return nullptr;
  v->c.atom.type = kValWstring;
  v->c.atom.payload.p = v + 1;
  return v;
}

val *wstring_val_fit(val *v, uint32_t units) {
  uint64_t bytes = sizeof(val) + static_cast<uint64_t>(units) * sizeof(bsr_wchar);
  if (v == nullptr || !wstring_in_cell_block(v) || bytes > 0x7FFFFFF0u) return v;
  auto *fitted = static_cast<val *>(bsr_safe_realloc(v, static_cast<uint32_t>(bytes)));
  if (fitted == nullptr) return v;
  fitted->c.atom.payload.p = fitted + 1;
  return fitted;
}

}  // namespace utils::model
