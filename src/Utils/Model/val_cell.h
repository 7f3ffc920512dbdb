// val_cell.h - inside view of a value cell: telling atoms from conses,
// reading the type and count, and the constants that are not exported by
// name.
#ifndef UTILS_MODEL_VAL_CELL_H
#define UTILS_MODEL_VAL_CELL_H

#include "utt_val.h"

#ifdef __cplusplus
#include <cstring>
#endif

#ifdef __cplusplus
extern "C" {
#endif

// Defined in val_constants.c, hence C linkage. The wide-string constants
// "0".."60" behind val_string_n, the integer constants behind val_int_n
// (both indexed 0..60), the constant "x" that structural features answer
// when an item lacks the asked-for structure, and the default answer of a
// feature path (a "0" of its own, told apart from val_string_n(0) by its
// address only).
extern const val *const utils_val_int_table[61];
extern const val *const utils_val_string_table[61];
extern const val utils_val_string_x;
extern const val utils_val_ffeature_default;

#ifdef __cplusplus
}
#endif

#ifdef __cplusplus

namespace utils::model {

// Type codes: 2 * row of bsr_val_defs + 1.
enum ValType : int16_t {
  kValInt = 1,
  kValFloat = 3,
  kValString = 5,
  kValWstring = 7,
  kValUtterance = 9,
  kValUttfunc = 11,
  kValFfunc = 13,
  kValRelation = 15,
  kValItem = 17,
  kValCart = 19,
  kValUserdata = 21,
  kValItemfunc = 23,
  kValFeatures = 25,
};

// A "wstring" atom whose string is carried in the same block, right after
// the cell: zeroed room for `units` wide characters (the terminator
// included), reached through the payload. One allocation instead of two;
// releasing the atom frees both at once. Null when memory runs out.
val *wstring_val_with_room(uint32_t units);

// Gives back unused room of such an atom, keeping `units` characters; the
// atom may move. Returns the atom (the old one when it cannot shrink).
val *wstring_val_fit(val *v, uint32_t units);

// True when `v`'s string is carried in its own block (see above).
inline bool wstring_in_cell_block(const val *v) {
  return v->c.atom.payload.p == static_cast<const void *>(v + 1);
}

// val_int and val_float as the library itself calls them (see val_read.cpp).
int32_t int_of(const val *v);
float float_of(const val *v);

// The first 16 bits of a cell: an odd type code for an atom, the low bits of
// the (aligned) car pointer for a cons.
inline int16_t cell_start(const val *v) {
  int16_t start;
  std::memcpy(&start, v, sizeof start);
  return start;
}
inline bool cell_is_cons(const val *v) { return (cell_start(v) & 1) == 0; }
inline bool cell_is_atom_of(const val *v, int16_t type) {
  return v != nullptr && cell_start(v) == type;
}
// Counts are changed through const pointers: only cells with a count other
// than -1 are ever written, and those come from the allocator, never from
// read-only data.
inline val *cell_mut(const val *v) { return const_cast<val *>(v); }

}  // namespace utils::model

#endif

#endif  // UTILS_MODEL_VAL_CELL_H
