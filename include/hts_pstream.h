/* hts_pstream.h - one acoustic parameter stream (spectrum, pitch, ...) of an
 * utterance, and maximum-likelihood parameter generation (MLPG) over it.
 *
 * Usage:
 *   PStream *ps = PStream_Create(3, left, right, coefs, 3 * dims, 1, frames);
 *   for each frame t: fill ps->mean[t][...] and ps->ivar[t][...];
 *   for (m = 0; m < ps->vector_length; ++m) {
 *     HTS_PStream_mlpg(ps, m);
 *     copy ps->par[0 .. frames-1] out;   (the next call overwrites it)
 *   }
 *   PStream_Destroy(ps);
 *
 * The statistics are 16-bit integers used as plain numbers (no scaling), so
 * the track comes out in the units the means were quantised in. All
 * arithmetic is single-precision float.
 * */
#ifndef UTILS_HTS_PSTREAM_H
#define UTILS_HTS_PSTREAM_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* Per-frame rows are indexed [frame][entry]. In `mean` and `ivar` a frame's
 * entries are window-major: entry w * vector_length + m belongs to window w,
 * static dimension m. The caller writes `mean` and `ivar` and reads `par`;
 * the other arrays are the solver's own. */
typedef struct PStream {
  int vector_size;         /* entries per frame over all windows */
  int vector_length;       /* static dimensions = vector_size / num_windows */
  int length;              /* frames T; fixed at creation */
  int alloc_length;        /* frame rows allocated (T) */
  int width;               /* band width = 2 * max_half_width + 1 */
  float *par;              /* [T] generated track of the dimension last solved */
  int16_t **mean;          /* [T][vector_size] means */
  uint16_t **ivar;         /* [T][vector_size] inverse variances */
  float *g;                /* [T] work vector of the substitutions */
  float **wuw;             /* [T][width] band of W'U^-1 W, then its factors:
                              entry 0 the diagonal D, entries 1.. the row of L' */
  float *wum;              /* [T] W'U^-1 mu */
  int num_windows;         /* delta windows, the static one included */
  int *win_l_width;        /* [num_windows] leftmost offset (<= 0); caller's */
  int *win_r_width;        /* [num_windows] rightmost offset; caller's */
  float **win_coefficient; /* [num_windows] coefficient arrays; caller's.
                              Window w has win_r_width[w] - win_l_width[w] + 1
                              coefficients; element 0 is the one for offset
                              win_l_width[w]. */
} PStream;

/* Creates a zero-filled stream of `length` frames. The three window arrays
 * are kept by pointer, not copied: they stay the caller's and must outlive
 * the stream. `max_half_width` is normally the largest |offset| of any
 * window; a window reaching further than that loses the band entries
 * beyond the width.
 * Windows are expected to reach as far left as right (win_l_width[w] ==
 * -win_r_width[w]), as delta windows do: frame t draws on the statistics of
 * frames t + s for s in the window's own offsets. A one-sided window (a
 * forward difference at offsets 0..1, say) is written centred, with zero
 * coefficients on the short side (offsets -1..1: 0, -1, 1).
 * Returns null when memory is exhausted (nothing is leaked), and for
 * arguments no stream can be made from: num_windows < 1, a null window array,
 * a window offset beyond +-65536, or a negative vector_size, max_half_width
 * or length. A length of 0 gives a valid, empty stream. */
UTILS_API PStream *PStream_Create(int num_windows, int *win_l_width, int *win_r_width,
                                  float **win_coefficient, int vector_size, int max_half_width,
                                  int length);

/* Frees the stream and every array it owns; the window arrays are left
 * alone. Null is ignored. */
UTILS_API void PStream_Destroy(PStream *ps);

/* Generates static dimension m (0 <= m < vector_length) of every frame into
 * ps->par, from the means and inverse variances of dimension m in every
 * window. Does nothing for a null stream, an m out of range, or 0 frames.
 *
 * A frame with no statistics (all its inverse variances 0) next to frames
 * that have them is interpolated through the delta windows. No division by
 * a zero pivot is made: a band entry that is 0 is not divided, and a frame
 * whose forward-substituted value is exactly 0 is not divided either; its
 * par entry then starts from the value it held before the call (0 in a new
 * stream, otherwise the previous dimension's value) before the
 * back-substitution terms are taken off. Frames out of reach of every
 * window's statistics therefore keep their old value. */
UTILS_API void HTS_PStream_mlpg(PStream *ps, int m);

UTILS_END_DECLS

#endif /* UTILS_HTS_PSTREAM_H */
