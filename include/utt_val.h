/* utt_val.h - the value cell of the utterance model: reference-counted atoms
 * (numbers, wide strings, typed pointers) and cons cells for Lisp-style lists.
 *
 * A cell is two machine words. An atom starts with its 16-bit type code,
 * which is always odd; a cons starts with its `car` pointer, which is word
 * aligned (or null) and so always reads as an even 16-bit number. Hence:
 * a cell is a cons exactly when the signed 16-bit value at its start is even.
 *
 * Ownership:
 *   - makers return a new cell with ref_count 0, allocated zero-filled from
 *     the local allocator (bsr_safe_alloc); allocation is not checked;
 *   - a container that stores a value raises its count (feat_set, cons_val);
 *     delete_val gives one reference back and frees the value when no holder
 *     is left (a value with count 0 or 1 is freed by one delete_val);
 *   - constants (ref_count -1: val_int_0..val_int_60 and the strings behind
 *     val_string_n) are read-only and are never counted or freed;
 *   - cons cells are not counted: a list must not share cells with another.
 *
 * Counts are plain 16-bit fields: a value must not be shared between threads
 * that may release it. Every reader accepts null and returns 0, 0.0 or null.
 * */
#ifndef UTILS_UTT_VAL_H
#define UTILS_UTT_VAL_H

#include <stdio.h>

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* The model objects that a value can point to (defined in utt_features.h and
 * utterance.h; a classification tree is defined with the decision trees). */
typedef struct val val;
typedef struct features features;
typedef struct utterance utterance;
typedef struct relation relation;
typedef struct item item;
typedef struct cart cart;

/* A feature function answers a feature name for an item (see utt_ffeature.h);
 * it returns a value the caller does not release (typically a constant). */
typedef const val *(*ffunc)(const item *i);
/* Functions on a whole utterance and on an item, carried as typed values. */
typedef utterance *(*uttfunc)(utterance *u);
typedef val *(*itemfunc)(item *i);

/* An atom: type code, count, then one payload word. */
typedef struct val_atom {
  int16_t type;      /* odd: 2 * row of bsr_val_defs + 1 */
  int16_t ref_count; /* 0 when fresh, -1 for a constant */
  union {
    int32_t i; /* "int" */
    float f;   /* "float" */
    void *p;   /* strings and typed pointers */
  } payload;
} val_atom;

/* A cons: two cell pointers. */
typedef struct val_cons {
  val *car;
  val *cdr;
} val_cons;

struct val {
  union {
    val_atom atom;
    val_cons cons;
  } c;
};

/* One row of the type table: the type's name and what releasing the last
 * reference does to the payload (null: nothing beyond freeing the cell,
 * except that a "wstring" frees its string). */
typedef struct bsr_val_def {
  const char *name;
  void (*delete_function)(void *payload);
} bsr_val_def;

/* Type codes of the atoms. A type code is 2 * index + 1 where index is the
 * row in bsr_val_defs: int 1, float 3, string 5, wstring 7, utterance 9,
 * uttfunc 11, ffunc 13, relation 15, item 17, cart 19, userdata 21,
 * itemfunc 23, features 25. */
#define BSR_VAL_INT 1
#define BSR_VAL_FLOAT 3
#define BSR_VAL_STRING 5
#define BSR_VAL_WSTRING 7
#define BSR_VAL_TYPE_COUNT 13

/* The 13 rows "int", "float", "string", "wstring", "utterance", "uttfunc",
 * "ffunc", "relation", "item", "cart", "userdata", "itemfunc", "features". */
UTILS_API extern const bsr_val_def bsr_val_defs[BSR_VAL_TYPE_COUNT];

/* Codes of the typed (pointer) atoms, for val_new_typed and val_generic. */
UTILS_API extern const int32_t bsr_val_type_utterance; /* 9 */
UTILS_API extern const int32_t bsr_val_type_uttfunc;   /* 11 */
UTILS_API extern const int32_t bsr_val_type_ffunc;     /* 13 */
UTILS_API extern const int32_t bsr_val_type_relation;  /* 15 */
UTILS_API extern const int32_t bsr_val_type_item;      /* 17 */
UTILS_API extern const int32_t bsr_val_type_cart;      /* 19 */
UTILS_API extern const int32_t bsr_val_type_userdata;  /* 21 */
UTILS_API extern const int32_t bsr_val_type_itemfunc;  /* 23 */
UTILS_API extern const int32_t bsr_val_type_features;  /* 25 */

/* Constant integer atoms 0..60, laid out consecutively in read-only memory
 * (val_int_0 + n is val_int_n inside the library image). Never freed. */
UTILS_API extern const val val_int_0, val_int_1, val_int_2, val_int_3, val_int_4, val_int_5,
    val_int_6, val_int_7, val_int_8, val_int_9, val_int_10, val_int_11, val_int_12, val_int_13,
    val_int_14, val_int_15, val_int_16, val_int_17, val_int_18, val_int_19, val_int_20, val_int_21,
    val_int_22, val_int_23, val_int_24, val_int_25, val_int_26, val_int_27, val_int_28, val_int_29,
    val_int_30, val_int_31, val_int_32, val_int_33, val_int_34, val_int_35, val_int_36, val_int_37,
    val_int_38, val_int_39, val_int_40, val_int_41, val_int_42, val_int_43, val_int_44, val_int_45,
    val_int_46, val_int_47, val_int_48, val_int_49, val_int_50, val_int_51, val_int_52, val_int_53,
    val_int_54, val_int_55, val_int_56, val_int_57, val_int_58, val_int_59, val_int_60;

/* ---- Makers (new cell, ref_count 0, allocation not checked) ---------- */

UTILS_API val *int_val(int32_t i);
UTILS_API val *float_val(float f);
/* Copies `s` with tts_wcsdup; null gives a "wstring" atom with null payload. */
UTILS_API val *wstring_val(const bsr_wchar *s);
/* Any atom type, payload taken as is (the only maker for "string" atoms,
 * whose narrow string is never freed by the value). */
UTILS_API val *val_new_typed(int32_t type, void *payload);

/* Typed atoms. An "utterance" or "features" value owns what it wraps and
 * deletes it with the last reference; the others own nothing. */
UTILS_API val *utterance_val(utterance *u);
UTILS_API val *uttfunc_val(uttfunc f);
UTILS_API val *ffunc_val(ffunc f);
UTILS_API val *relation_val(relation *r);
UTILS_API val *item_val(item *i);
UTILS_API val *cart_val(cart *c);
UTILS_API val *userdata_val(void *p);
UTILS_API val *itemfunc_val(itemfunc f);
UTILS_API val *features_val(features *f);

/* New cons. Atom arguments (non-null) have their count raised; cons
 * arguments are linked as they are (the new cell takes over the list). */
UTILS_API val *cons_val(const val *car, const val *cdr);

/* The constant integer n, clamped: val_int_0 for n < 0, val_int_60 for
 * n > 60. Never a fresh value. */
UTILS_API const val *val_int_n(int32_t n);
/* The constant wide string "n" under the same clamping ("0".."60"). */
UTILS_API const val *val_string_n(int32_t n);

/* ---- Readers (null in: 0, 0.0 or null out) --------------------------- */

/* int: the value; float: truncated toward zero; wstring: bsr_wtoi of it;
 * anything else 0. */
UTILS_API int32_t val_int(const val *v);
/* int: converted; float: the value; anything else (strings too) 0.0. */
UTILS_API float val_float(const val *v);
/* The string of a "wstring" atom (still owned by the atom), else null. */
UTILS_API const bsr_wchar *val_wstring(const val *v);
/* The fields of a cons; null for an atom. */
UTILS_API val *val_car(const val *v);
UTILS_API val *val_cdr(const val *v);
/* The payload when v is an atom of type `type`, else null. */
UTILS_API void *val_generic(const val *v, int32_t type);
UTILS_API utterance *val_utterance(const val *v);
UTILS_API uttfunc val_uttfunc(const val *v);
UTILS_API ffunc val_ffunc(const val *v);
UTILS_API relation *val_relation(const val *v);
UTILS_API item *val_item(const val *v);
UTILS_API cart *val_cart(const val *v);
UTILS_API void *val_userdata(const val *v);
UTILS_API itemfunc val_itemfunc(const val *v);
UTILS_API features *val_features(const val *v);
/* The payload of any atom but int and float (null for those and for null);
 * for a cons, null when its car is null, else its cdr. */
UTILS_API void *val_void(const val *v);
/* 1 if v (not null) is a cons, else 0. */
UTILS_API int bsr_val_consp(const val *v);
/* 1 if v (not null) is a "wstring" atom, else 0. */
UTILS_API int val_wstringp(const val *v);

/* ---- Reference counts and release ------------------------------------ */

/* Adds 1 to the count of a non-constant atom; no effect on cons/constant. */
UTILS_API void val_inc_refcount(const val *v);
/* Constant: -1, unchanged. Cons or count 0: 0, unchanged. Otherwise
 * subtracts 1 and returns the new count. Never frees. */
UTILS_API int val_dec_refcount(const val *v);
/* Releases one reference. Null is ignored. A cons releases its car, then
 * its cdr, then frees the cell. An atom whose count falls to 0 (or was 0)
 * releases its payload as bsr_val_defs says and frees the cell. */
UTILS_API void delete_val(const val *v);
/* Frees the cons cells of a list without releasing the elements; an atom
 * is released with delete_val. */
UTILS_API void delete_val_list(val *list);

/* ---- Lists ------------------------------------------------------------ */

/* Cons cells along cdr links; 0 for null, 1 for an atom. */
UTILS_API int val_length(const val *list);
/* Reverses the cdr links in place; returns the new head. */
UTILS_API val *val_reverse(val *list);
/* Sets the cdr of a's last cell to b and returns a (b when a is null). */
UTILS_API val *val_append(val *a, val *b);
/* Replace the car/cdr of a cons: the old one's count is lowered (it is never
 * freed: the caller keeps it), v is stored without raising its count.
 * Returns the cons, or null when the first argument is not a cons. */
UTILS_API val *set_car(val *cons, const val *v);
UTILS_API val *set_cdr(val *cons, const val *v);
/* 1 if some element of list is val_equal to v, else 0. */
UTILS_API int val_member(const val *v, const val *list);
/* 1 if some element is a wide string equal to s (non-strings compare as a
 * null string), else 0. */
UTILS_API int val_member_wstring(const bsr_wchar *s, const val *list);
/* The first pair (element cons) of alist whose car is a wide string equal
 * to s, else null. */
UTILS_API val *val_assoc_wstring(const bsr_wchar *s, const val *alist);

/* ---- Comparison ------------------------------------------------------- */

/* 1 if a == b; 0 if a is null (b must not be null when a is not). Then the
 * 16-bit words at the start of both cells must agree (for lists this means
 * the car pointers agree in their low 16 bits), and: cons cells compare car
 * and cdr recursively; ints by value; floats by ==; wide strings by
 * content; other atoms by identical payload. */
UTILS_API int val_equal(const val *a, const val *b);
/* val_float(a) < val_float(b), and >; strings count as 0.0. */
UTILS_API int val_less(const val *a, const val *b);
UTILS_API int val_greater(const val *a, const val *b);

/* ---- Printing --------------------------------------------------------- */

/* Prints v: "[null]"; ints "%d"; floats "%f"; wide strings as UTF-8; other
 * atoms "[Val <type name> 0x<payload>]"; a list "(a b c)" (a final atom cdr
 * is not printed). No newline. */
UTILS_API void val_print(FILE *stream, const val *v);

/* ---- Payload releasers of bsr_val_defs -------------------------------- */

UTILS_API void val_delete_utterance(void *payload); /* delete_utterance */
UTILS_API void val_delete_features(void *payload);  /* delete_features */
/* These do nothing: a value never owns these payloads. */
UTILS_API void val_delete_uttfunc(void *payload);
UTILS_API void val_delete_ffunc(void *payload);
UTILS_API void val_delete_relation(void *payload);
UTILS_API void val_delete_item(void *payload);
UTILS_API void val_delete_cart(void *payload);
UTILS_API void val_delete_userdata(void *payload);
UTILS_API void val_delete_itemfunc(void *payload);

UTILS_END_DECLS

#endif /* UTILS_UTT_VAL_H */
