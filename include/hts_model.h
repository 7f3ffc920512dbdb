/* hts_model.h - one HTS model section mapped from a memory image: the label
 * fields, the delta windows, the context-clustering trees and the tables of
 * 16-bit statistics that the trees' leaves index.
 *
 * Section layout (little-endian 32-bit words; "align" pads to a multiple
 * of 4 counted from the origin named):
 *   u32 F; F x (name, prefix, suffix), each NUL-terminated; align from the
 *     section start;
 *   u32 W; when W > 0: i32 left[W], i32 right[W], per window right - left
 *     + 1 floats (the first for offset left), u32 window value; align from
 *     the u32 W;
 *   u32 stream value; u32 K (trees, at most 16); u32 per-tree value [K];
 *   u32 P (statistics rows); the tree image (see dtree.h) with K trees;
 *   u32 B (trailing block bytes; 0 ends the section here); u32 V;
 *     P rows of 256 x 16 bits (means); when V != 0 P more rows (inverse
 *     variances); B bytes; align from the u32 B.
 *
 * Nothing is copied: the model points into the image, which must stay alive
 * and unchanged until HTSModel_Destroy. The window arrays go unchanged to
 * PStream_Create (hts_pstream.h), which reads them as int and float: give
 * it a section that starts 4-aligned in memory.
 * */
#ifndef UTILS_HTS_MODEL_H
#define UTILS_HTS_MODEL_H

#include "dtree.h"

UTILS_BEGIN_DECLS

/* The most delta windows and trees a section holds. */
#define HTS_MODEL_MAX_WINDOWS 32
#define HTS_MODEL_MAX_TREES 16
/* 16-bit values in one statistics row (512 bytes). */
#define HTS_MODEL_ROW_VALUES 256

typedef struct HTSModel {
  int32_t num_windows;                           /* W */
  int *win_l_width;                              /* [W] left offsets, in the image */
  int *win_r_width;                              /* [W] right offsets, in the image */
  float *win_coefficient[HTS_MODEL_MAX_WINDOWS]; /* first coefficient of each window */
  uint32_t window_value;                         /* the word after the windows */
  uint32_t stream_value;                         /* the word after that */
  uint32_t has_ivar;                             /* V */
  uint32_t num_rows;                             /* P */
  uint32_t tree_value[HTS_MODEL_MAX_TREES];      /* per-tree values */
  const void *extra;                             /* trailing block, or null */
  const int16_t **mean_rows;                     /* [P] rows in the image, or null */
  const uint16_t **ivar_rows;                    /* [P] rows, or null when V = 0 */
  int32_t num_trees;                             /* K */
  DTree *trees;                                  /* owned */
  const char **feature_names;                    /* [F] in the image */
  const char **feature_prefixes;                 /* [F] in the image */
  const char **feature_suffixes;                 /* [F] in the image */
  int32_t num_features;                          /* F */
} HTSModel;

/* Maps the section at `image`. Writes to *consumed (when not null) the
 * bytes from the image start to the end of the section (after its final
 * align), so that a caller steps to the next section. B = 0 stops after
 * the trees: no row tables, extra null, consumed counting the zero word.
 * A null image returns null with *consumed untouched; exhausted memory, W
 * above 32 or K above 16 return null with *consumed 0. The image is
 * trusted: check images from outside with HTSModel_Check first. */
UTILS_API HTSModel *HTSModel_Create(const void *image, int *consumed);

/* Destroys the trees, frees the pointer tables and the object; the image is
 * the caller's. Null is ignored. */
UTILS_API void HTSModel_Destroy(HTSModel *model);

/* Checks a section of `size` bytes before HTSModel_Create trusts it: the
 * strings, window arrays and coefficient counts (right >= left), the limits
 * on W and K, the tree image (as DTree_Check), the rows and the trailing
 * block, and the final padding all inside the size. Nothing outside
 * [image, image + size) is read; bytes after the section are allowed.
 * Returns 0 for a sound section, else the byte offset of the first fault:
 * the field whose value is wrong, or where a read would pass the end. A
 * null image, or a fault at offset 0 (too short for F, or an F that no
 * image of this size can hold), returns 1 (0 always means sound). */
UTILS_API size_t HTSModel_Check(const void *image, size_t size);

UTILS_END_DECLS

#endif /* UTILS_HTS_MODEL_H */
