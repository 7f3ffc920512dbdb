// mlpg_rows.h - building one row of the MLPG band system: row t of W'U^-1 W and
// entry t of W'U^-1 mu, summed in window, shift, band order in single
// precision.
#ifndef UTILS_HMM_MLPG_ROWS_H
#define UTILS_HMM_MLPG_ROWS_H

#include "Hmm/mlpg_plan.h"
#include "hts_pstream.h"

namespace utils::hmm {

// Each function adds into `row` (zeroed by the caller) and returns the
// W'U^-1 mu entry. A contribution whose source frame t + s or band column
// t + j lies outside 0..frames-1 is skipped.

// From the plan, for frames near either end.
inline float build_row_edge(const PStream *ps, const Plan &plan, int t, int frames, float *row) {
  float wum = 0.0f;
  for (int n = 0; n < plan.num_shifts; ++n) {
    const Shift &shift = plan.shifts[n];
    const int u = t + shift.s;
    if (u < 0 || u >= frames) continue;
    const float wu = static_cast<float>(ps->ivar[u][shift.entry]) * shift.centre;
    wum += static_cast<float>(ps->mean[u][shift.entry]) * wu;
    for (int k = shift.first_term; k < shift.end_term; ++k) {
      const BandTerm &term = plan.terms[k];
      if (t + term.j >= frames) break;
      row[term.j] += term.c * wu;
    }
  }
  return wum;
}

// From the plan, for a frame whose shifts and band columns all lie inside
// the frames. Summed column by column so that each sum stays in a register;
// the order of the terms within each sum is the same.
inline float build_row_inner(const PStream *ps, const Plan &plan, int t, float *row) {
  float wu[kMaxShifts];
  float wum = 0.0f;
  for (int n = 0; n < plan.num_shifts; ++n) {
    const Shift &shift = plan.shifts[n];
    const int u = t + shift.s;
    wu[n] = static_cast<float>(ps->ivar[u][shift.entry]) * shift.centre;
    wum += static_cast<float>(ps->mean[u][shift.entry]) * wu[n];
  }
  for (int j = 0; j < plan.num_columns; ++j) {
    float sum = 0.0f;
    for (int k = plan.column_begin[j]; k < plan.column_begin[j + 1]; ++k)
      sum += plan.columns[k].c * wu[plan.columns[k].shift];
    row[j] = sum;
  }
  return wum;
}

// Straight from the windows, for window sets too large for a plan.
inline float build_row_plain(const PStream *ps, int m, int t, int frames, float *row) {
  float wum = 0.0f;
  for (int w = 0; w < ps->num_windows; ++w) {
    const int entry = w * ps->vector_length + m;
    for (int s = ps->win_l_width[w]; s <= ps->win_r_width[w]; ++s) {
      const float centre = window_coefficient(ps, w, -s);
      if (t + s < 0 || t + s >= frames || centre == 0.0f) continue;
      const float wu = static_cast<float>(ps->ivar[t + s][entry]) * centre;
      wum += static_cast<float>(ps->mean[t + s][entry]) * wu;
      for (int j = 0; j < ps->width && t + j < frames; ++j) {
        const float c = window_coefficient(ps, w, j - s);
        if (j - s <= ps->win_r_width[w] && c != 0.0f) row[j] += c * wu;
      }
    }
  }
  return wum;
}

// A pass over one dimension reads a few bytes from each frame's statistics
// rows, which are separate blocks; on long streams the rows are fetched
// this many frames ahead so that the pass does not wait on memory.
constexpr int kPrefetchFrames = 16;

inline void prefetch_statistics(const PStream *ps, int m, int frame) {
  for (int w = 0; w < ps->num_windows; ++w) {
    __builtin_prefetch(ps->mean[frame] + w * ps->vector_length + m);
    __builtin_prefetch(ps->ivar[frame] + w * ps->vector_length + m);
  }
}

// Zeroes row t and builds it by whichever method fits the frame. K is the
// band width when known at compile time, else 0.
template <int K>
inline float build_row(const PStream *ps, const Plan *plan, int m, int t, int frames) {
  float *row = ps->wuw[t];
  const int width = K > 0 ? K : ps->width;
  for (int i = 0; i < width; ++i) row[i] = 0.0f;
  if (plan == nullptr) return build_row_plain(ps, m, t, frames, row);
  const bool inner = t + plan->min_s >= 0 && t + plan->max_reach < frames;
  if (!inner) return build_row_edge(ps, *plan, t, frames, row);
  const int ahead = t + kPrefetchFrames + plan->max_reach;
  if (ahead < frames) prefetch_statistics(ps, m, ahead);
  return build_row_inner(ps, *plan, t, row);
}

}  // namespace utils::hmm

#endif  // UTILS_HMM_MLPG_ROWS_H
