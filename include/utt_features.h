/* utt_features.h - feature sets: ordered lists of (narrow name, value) pairs,
 * the property lists of items, relations and utterances.
 *
 * Order: a new name goes to the head, so walking (and printing and copying)
 * runs from the newest name to the oldest; replacing a value keeps its place.
 * Names are compared byte for byte (case-sensitive); lookups are a linear walk.
 *
 * Ownership: a set holds one reference on each value it stores (raised by
 * feat_set, given back with delete_val on replace, remove and delete). Names
 * are copied with tts_strdup onto the local allocator. The record and its
 * pairs come from the set's private heap when it has one, else from the local
 * allocator. A set on a private heap must be deleted before the heap is
 * destroyed, or be released wholesale with the heap.
 *
 * Every reader accepts a null set; feat_set and its typed forms need a set.
 * */
#ifndef UTILS_UTT_FEATURES_H
#define UTILS_UTT_FEATURES_H

#include "utt_val.h"

UTILS_BEGIN_DECLS

/* One (name, value) pair. */
typedef struct feature_pair {
  char *name; /* owned, local allocator */
  val *value; /* counted: the set holds one reference */
  struct feature_pair *next;
} feature_pair;

struct features {
  feature_pair *head; /* newest pair first; null when empty */
  bsr_heap *heap;     /* where the record and pairs live; null: local allocator */
};

/* New empty set on the local allocator; null if memory is exhausted. */
UTILS_API features *new_features(void);
/* New empty set whose record and pairs come from `heap` (the local
 * allocator when null). */
UTILS_API features *new_features_local(bsr_heap *heap);
/* Releases every value, name and pair (newest first), then the record.
 * Null is ignored. */
UTILS_API void delete_features(features *f);

/* Sets `name` to v. A null v does nothing. An existing pair keeps its place:
 * its old value is released with delete_val, then v's count is raised and v
 * stored (so re-setting a value held only by this pair onto itself frees
 * it: don't). A new name gets a new pair at the head; if the pair cannot be
 * allocated nothing changes. */
UTILS_API void feat_set(features *f, const char *name, const val *v);
UTILS_API void feat_set_int(features *f, const char *name, int32_t i);
UTILS_API void feat_set_float(features *f, const char *name, float x);
/* Stores a copy of s (see wstring_val). */
UTILS_API void feat_set_wstring(features *f, const char *name, const bsr_wchar *s);

/* The value of `name` (still owned by the set), or null. */
UTILS_API const val *feat_val(const features *f, const char *name);
/* val_int / val_float of feat_val: 0 or 0.0 when absent. */
UTILS_API int32_t feat_int(const features *f, const char *name);
UTILS_API float feat_float(const features *f, const char *name);
/* The string when the value is a "wstring" atom; null otherwise. */
UTILS_API const bsr_wchar *feat_wstring(const features *f, const char *name);
/* 1 if `name` is present, else 0. */
UTILS_API int feat_present(const features *f, const char *name);
/* Unlinks `name`, releasing its value; 1 if it was there, else 0. */
UTILS_API int feat_remove(features *f, const char *name);
/* Number of pairs. */
UTILS_API int feat_length(const features *f);
/* feat_set(to, name, value) for each pair of `from` in its order (values are
 * shared, not copied; new names end up reversed in `to`). Returns the number
 * of pairs visited. */
UTILS_API int feat_copy_into(const features *from, features *to);
/* For each pair in order except one named "tag": a blank, name, '=', '"',
 * the value by val_print, '"'. No newline. Returns 0. */
UTILS_API int feat_print(FILE *stream, const features *f);

/* Readers with the caller's default for an absent name. A present value of
 * another type reads as val_int / val_float would read it (0, not def). */
UTILS_API int32_t get_param_int(const features *f, const char *name, int32_t def);
UTILS_API float get_param_float(const features *f, const char *name, float def);
UTILS_API const val *get_param_val(const features *f, const char *name, const val *def);
/* def when absent; the string when a "wstring"; null for another type. */
UTILS_API const bsr_wchar *get_param_wstring(const features *f, const char *name,
                                             const bsr_wchar *def);

UTILS_END_DECLS

#endif /* UTILS_UTT_FEATURES_H */
