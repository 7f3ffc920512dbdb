// Reference counting and release of values: constants are never touched,
// conses release their contents, atoms release their payload with the last
// reference as the type table says.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "utterance.h"

namespace {

// The entry naming an item in its contents' relation table is carried in
// the item's own block, right after the item (see item_contents.h); that
// cell is never freed on its own. No separately allocated cell can sit at
// that address, which lies inside the item's block.
bool lives_in_its_item(const val *v) {
  if (cell_start(v) != kValItem || v->c.atom.payload.p == nullptr) return false;
  return v == reinterpret_cast<const val *>(static_cast<const item *>(v->c.atom.payload.p) + 1);
}

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
      if (!lives_in_its_item(cell)) bsr_free(cell);
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
