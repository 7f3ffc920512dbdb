// val_release.cpp - reference counting and release of values: constants are
// never touched, conses release their contents, atoms release their payload
// with the last reference as the type table says.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"

using utils::model::cell_is_cons;
using utils::model::cell_mut;
using utils::model::cell_start;
using utils::model::kValWstring;
using utils::model::wstring_in_cell_block;

namespace {

void release_payload(val *v) {
  int16_t type = cell_start(v);
  if (type == kValWstring) {
    if (!wstring_in_cell_block(v)) bsr_free(v->c.atom.payload.p);
    return;
  }
  int row = (type - 1) / 2;
  if (type > 0 && row < BSR_VAL_TYPE_COUNT && bsr_val_defs[row].delete_function != nullptr)
    bsr_val_defs[row].delete_function(v->c.atom.payload.p);
}

}  // namespace

extern "C" {

UTILS_API void val_inc_refcount(const val *v) {
  if (v == nullptr || cell_is_cons(v) || v->c.atom.ref_count == -1) return;
  ++cell_mut(v)->c.atom.ref_count;
}

UTILS_API int val_dec_refcount(const val *v) {
  if (v == nullptr || cell_is_cons(v)) return 0;
  int16_t count = v->c.atom.ref_count;
  if (count == -1) return -1;
  if (count == 0) return 0;
  cell_mut(v)->c.atom.ref_count = --count;
  return count;
}

// Lists are released iteratively along their cdr chain, so that a long list
// cannot exhaust the stack; cars are released recursively (nesting depth).
UTILS_API void delete_val(const val *v) {
  while (v != nullptr) {
    val *cell = cell_mut(v);
    if (cell_is_cons(cell)) {
      delete_val(cell->c.cons.car);
      v = cell->c.cons.cdr;
      bsr_free(cell);
      continue;
    }
    if (val_dec_refcount(cell) == 0) {
      release_payload(cell);
      bsr_free(cell);
    }
    return;
  }
}

UTILS_API void delete_val_list(val *list) {
  if (list != nullptr && !cell_is_cons(list)) {
    delete_val(list);
    return;
  }
  while (list != nullptr && cell_is_cons(list)) {
    val *next = list->c.cons.cdr;
    bsr_free(list);
    list = next;
  }
  // A list ending in an atom cdr: that atom is not an element; leave it.
}

}  // extern "C"
