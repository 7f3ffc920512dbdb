// mlpg_tap3.h - row building for the common case of windows that reach at most
// one frame either side (static, delta and acceleration windows of three taps)
// with a band of width 3: the same sums as the general plan, with the three
// frames' rows fetched once and the window loop written out shift by shift.
#ifndef UTILS_HMM_MLPG_TAP3_H
#define UTILS_HMM_MLPG_TAP3_H

#include "Hmm/mlpg_plan.h"
#include "hts_pstream.h"

namespace utils::hmm {

constexpr int kMaxTap3Windows = 8;

struct Tap3Window {
  int entry;     // w * vector_length + m
  float c[3];    // c(-1), c(0), c(1); 0 outside the window
  bool take[3];  // shift s = -1, 0, 1 lies in the window and c(-s) != 0
};

struct Tap3Plan {
  int num_windows;
  Tap3Window windows[kMaxTap3Windows];
};

// False unless the band width is 3 and every window lies within -1..1.
inline bool make_tap3_plan(const PStream *ps, int m, Tap3Plan *plan) {
  if (ps->width != 3 || ps->num_windows > kMaxTap3Windows) return false;
  plan->num_windows = ps->num_windows;
  for (int w = 0; w < ps->num_windows; ++w) {
    if (ps->win_l_width[w] < -1 || ps->win_r_width[w] > 1) return false;
    Tap3Window &v = plan->windows[w];
    v.entry = w * ps->vector_length + m;
    for (int k = -1; k <= 1; ++k) v.c[k + 1] = window_coefficient(ps, w, k);
    for (int s = -1; s <= 1; ++s)
      v.take[s + 1] = s >= ps->win_l_width[w] && s <= ps->win_r_width[w] && v.c[1 - s] != 0.0f;
  }
  return true;
}

// Row t (0 < t < frames - 1) into row[0..2]; returns W'U^-1 mu. Shift s
// draws on frame t + s with centre c(-s) and adds c(j - s) to column j.
inline float build_row_tap3(const PStream *ps, const Tap3Plan &plan, int t, float *row) {
  const int16_t *mean_prev = ps->mean[t - 1], *mean_here = ps->mean[t],
                *mean_next = ps->mean[t + 1];
  const uint16_t *ivar_prev = ps->ivar[t - 1], *ivar_here = ps->ivar[t],
                 *ivar_next = ps->ivar[t + 1];
  float wum = 0.0f, b0 = 0.0f, b1 = 0.0f, b2 = 0.0f;
  for (int w = 0; w < plan.num_windows; ++w) {
    const Tap3Window &v = plan.windows[w];
    const int e = v.entry;
    const float c_left = v.c[0], c_mid = v.c[1], c_right = v.c[2];
    if (v.take[0]) {  // s = -1: centre c(1); column 0 only (c(2) is outside)
      const float wu = static_cast<float>(ivar_prev[e]) * c_right;
      wum += static_cast<float>(mean_prev[e]) * wu;
      b0 += c_right * wu;
    }
    if (v.take[1]) {  // s = 0: centre c(0); columns 0 and 1
      const float wu = static_cast<float>(ivar_here[e]) * c_mid;
      wum += static_cast<float>(mean_here[e]) * wu;
      b0 += c_mid * wu;
      if (c_right != 0.0f) b1 += c_right * wu;
    }
    if (v.take[2]) {  // s = 1: centre c(-1); columns 0, 1 and 2
      const float wu = static_cast<float>(ivar_next[e]) * c_left;
      wum += static_cast<float>(mean_next[e]) * wu;
      b0 += c_left * wu;
      if (c_mid != 0.0f) b1 += c_mid * wu;
      if (c_right != 0.0f) b2 += c_right * wu;
    }
  }
  row[0] = b0;
  row[1] = b1;
  row[2] = b2;
  return wum;
}

}  // namespace utils::hmm

#endif  // UTILS_HMM_MLPG_TAP3_H
