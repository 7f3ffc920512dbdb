// val_list.cpp - Lisp-style lists of values: length, in-place reverse and
// append, replacing car and cdr, and membership and association searches.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"

using utils::model::cell_is_atom_of;
using utils::model::cell_is_cons;
using utils::model::cell_mut;
using utils::model::kValWstring;

namespace {

bool is_cons(const val *v) { return v != nullptr && cell_is_cons(v); }

// The string of an element for string comparisons: non-strings read as null.
const bsr_wchar *element_wstring(const val *v) {
  return cell_is_atom_of(v, kValWstring) ? static_cast<const bsr_wchar *>(v->c.atom.payload.p)
                                         : nullptr;
}

}  // namespace

extern "C" {

UTILS_API int val_length(const val *list) {
  if (list == nullptr) return 0;
  if (!cell_is_cons(list)) return 1;
  int n = 0;
  for (const val *p = list; is_cons(p); p = p->c.cons.cdr) ++n;
  return n;
}

UTILS_API val *val_reverse(val *list) {
  val *reversed = nullptr;
  while (is_cons(list)) {
    val *next = list->c.cons.cdr;
    list->c.cons.cdr = reversed;
    reversed = list;
    list = next;
  }
  return reversed != nullptr ? reversed : list;
}

UTILS_API val *val_append(val *a, val *b) {
  if (a == nullptr) return b;
  if (!cell_is_cons(a)) return a;  // an atom has no cdr to set
  val *last = a;
  while (is_cons(last->c.cons.cdr)) last = last->c.cons.cdr;
  last->c.cons.cdr = b;
  return a;
}

// The old field loses a count but is never freed here: the caller keeps it.
UTILS_API val *set_car(val *cons, const val *v) {
  if (!is_cons(cons)) return nullptr;
  val_dec_refcount(cons->c.cons.car);
  cons->c.cons.car = cell_mut(v);
  return cons;
}

UTILS_API val *set_cdr(val *cons, const val *v) {
  if (!is_cons(cons)) return nullptr;
  val_dec_refcount(cons->c.cons.cdr);
  cons->c.cons.cdr = cell_mut(v);
  return cons;
}

UTILS_API int val_member(const val *v, const val *list) {
  for (const val *p = list; is_cons(p); p = p->c.cons.cdr)
    if (val_equal(p->c.cons.car, v)) return 1;
  return 0;
}

UTILS_API int val_member_wstring(const bsr_wchar *s, const val *list) {
  for (const val *p = list; is_cons(p); p = p->c.cons.cdr)
    if (bsr_wcscmp(element_wstring(p->c.cons.car), s) == 0) return 1;
  return 0;
}

UTILS_API val *val_assoc_wstring(const bsr_wchar *s, const val *alist) {
  for (const val *p = alist; is_cons(p); p = p->c.cons.cdr) {
    val *pair = p->c.cons.car;
    if (is_cons(pair) && cell_is_atom_of(pair->c.cons.car, kValWstring) &&
        bsr_wcscmp(element_wstring(pair->c.cons.car), s) == 0)
      return pair;
  }
  return nullptr;
}

}  // extern "C"
