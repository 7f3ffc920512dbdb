// val_compare.cpp - comparing values: structural equality with its start-word
// shortcut, and the numeric orderings (strings read as 0.0).
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"

using utils::model::cell_is_cons;
using utils::model::cell_start;
using utils::model::float_of;
using utils::model::int_of;
using utils::model::kValFloat;
using utils::model::kValInt;
using utils::model::kValWstring;

extern "C" {

// The start words are compared before anything else, for conses too: two
// lists are equal only if their car pointers agree in their low 16 bits.
// Callers depend on this shortcut. A null b (not allowed by the contract) is
// answered 0 rather than dereferenced.
UTILS_API int val_equal(const val *a, const val *b) {
  while (true) {
    if (a == b) return 1;
    if (a == nullptr || b == nullptr) return 0;
    if (cell_start(a) != cell_start(b)) return 0;
    if (cell_is_cons(a)) {
      if (!val_equal(a->c.cons.car, b->c.cons.car)) return 0;
      a = a->c.cons.cdr;  // the tail is walked in a loop, not by recursion
      b = b->c.cons.cdr;
      continue;
    }
    switch (cell_start(a)) {
      case kValInt:
        return int_of(a) == int_of(b) ? 1 : 0;
      case kValFloat:
        return a->c.atom.payload.f == b->c.atom.payload.f ? 1 : 0;
      case kValWstring:
        return bsr_wcscmp(val_wstring(a), val_wstring(b)) == 0 ? 1 : 0;
      default:
        return a->c.atom.payload.p == b->c.atom.payload.p ? 1 : 0;
    }
  }
}

UTILS_API int val_less(const val *a, const val *b) { return float_of(a) < float_of(b) ? 1 : 0; }

UTILS_API int val_greater(const val *a, const val *b) { return float_of(a) > float_of(b) ? 1 : 0; }

}  // extern "C"
