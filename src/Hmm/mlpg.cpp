// Maximum-likelihood parameter generation for one dimension of a stream:
// builds the band system W'U^-1 W c = W'U^-1 mu, factorises it as L D L'
// and solves it, all in single precision.
//
// The steps run fused in one pass over the frames (row t is built, then
// factorised, then forward-substituted, since each needs only rows up to t),
// followed by the backward pass. Every element sees exactly the operations,
// in exactly the order, of doing the four steps one after the other: sums
// accumulate in float in window, shift, band order, and each product is
// formed left to right (coefficient times coefficient before the pivot).
// This file is compiled without floating-point contraction so that no
// product-and-sum is fused into one rounding.
#include "hts_pstream.h"

#include "Hmm/mlpg_plan.h"

namespace {

using utils_mlpg::BandTerm;
using utils_mlpg::Plan;
using utils_mlpg::Shift;

// Row t of the band and W'U^-1 mu from the plan. kChecked is for the frames
// near either end, where a shift may leave the frames or a band column pass
// the last frame; such contributions are skipped.
template <bool kChecked>
inline float build_row_planned(const PStream *ps, const Plan &plan, int t, int frames, float *row) {
  float wum = 0.0f;
  for (int n = 0; n < plan.num_shifts; ++n) {
    const Shift &shift = plan.shifts[n];
    int u = t + shift.s;
    if (kChecked && (u < 0 || u >= frames)) continue;
    float wu = static_cast<float>(ps->ivar[u][shift.entry]) * shift.centre;
    wum += static_cast<float>(ps->mean[u][shift.entry]) * wu;
    for (int k = shift.first_term; k < shift.end_term; ++k) {
      const BandTerm &term = plan.terms[k];
      if (kChecked && t + term.j >= frames) break;
      row[term.j] += term.c * wu;
    }
  }
  return wum;
}

// The same row straight from the windows, for window sets too large for a
// plan.
float build_row_plain(const PStream *ps, int m, int t, int frames, float *row) {
  float wum = 0.0f;
  for (int w = 0; w < ps->num_windows; ++w) {
    int entry = w * ps->vector_length + m;
    for (int s = ps->win_l_width[w]; s <= ps->win_r_width[w]; ++s) {
      float centre = utils_mlpg::window_coefficient(ps, w, -s);
      if (t + s < 0 || t + s >= frames || centre == 0.0f) continue;
      float wu = static_cast<float>(ps->ivar[t + s][entry]) * centre;
      wum += static_cast<float>(ps->mean[t + s][entry]) * wu;
      for (int j = 0; j < ps->width && t + j < frames; ++j) {
        float c = utils_mlpg::window_coefficient(ps, w, j - s);
        if (j - s <= ps->win_r_width[w] && c != 0.0f) row[j] += c * wu;
      }
    }
  }
  return wum;
}

// In-place L D L' step for row t, whose rows above are already factorised:
// entry 0 becomes the pivot D, entries 1.. the row of L'. An entry that is
// exactly 0 is not divided, so a zero pivot with a zero row stays 0/0-free.
// kWidth is the band width when known at compile time, else 0.
template <int kWidth>
inline void factorise_row(float *const *wuw, int t, int width) {
  const int n = kWidth > 0 ? kWidth : width;
  float *row = wuw[t];
  const int reach = t < n - 1 ? t : n - 1;
  for (int i = 1; i <= reach; ++i) {
    const float *above = wuw[t - i];
    row[0] -= above[i] * above[i] * above[0];
  }
  for (int i = 1; i < n; ++i) {
    for (int j = 1; i + j < n && j <= reach; ++j) {
      const float *above = wuw[t - j];
      row[i] -= above[j] * above[i + j] * above[0];
    }
    if (row[i] != 0.0f) row[i] /= row[0];
  }
}

// g[t] from W'U^-1 mu and the L rows above.
template <int kWidth>
inline float forward_row(float *const *wuw, const float *g, float wum, int t, int width) {
  const int n = kWidth > 0 ? kWidth : width;
  const int reach = t < n - 1 ? t : n - 1;
  float value = wum;
  for (int i = 1; i <= reach; ++i) value -= wuw[t - i][i] * g[t - i];
  return value;
}

// par[t] from g[t], the pivot and the values already solved below it. When
// g[t] is exactly 0 there is no division and par[t] starts from the value it
// already holds (a frame with no statistics has a zero pivot).
template <int kWidth>
inline void backward(PStream *ps, int frames, int width) {
  const int n = kWidth > 0 ? kWidth : width;
  float *par = ps->par;
  for (int t = frames - 1; t >= 0; --t) {
    const float *row = ps->wuw[t];
    float value = par[t];
    if (ps->g[t] != 0.0f) value = ps->g[t] / row[0];
    for (int i = 1; i < n && t + i < frames; ++i) value -= row[i] * par[t + i];
    par[t] = value;
  }
}

template <int kWidth>
void generate(PStream *ps, int m, int frames, const Plan *plan) {
  const int width = kWidth > 0 ? kWidth : ps->width;
  // Frames whose shifts and band columns all stay inside 0..frames-1.
  const int first_inner = plan != nullptr ? -plan->min_s : frames;
  const int end_inner = plan != nullptr ? frames - plan->max_reach : 0;
  for (int t = 0; t < frames; ++t) {
    float *row = ps->wuw[t];
    for (int i = 0; i < width; ++i) row[i] = 0.0f;
    float wum;
    if (plan == nullptr)
      wum = build_row_plain(ps, m, t, frames, row);
    else if (t >= first_inner && t < end_inner)
      wum = build_row_planned<false>(ps, *plan, t, frames, row);
    else
      wum = build_row_planned<true>(ps, *plan, t, frames, row);
    ps->wum[t] = wum;
    factorise_row<kWidth>(ps->wuw, t, width);
    ps->g[t] = forward_row<kWidth>(ps->wuw, ps->g, wum, t, width);
  }
  backward<kWidth>(ps, frames, width);
}

}  // namespace

extern "C" {

UTILS_API void HTS_PStream_mlpg(PStream *ps, int m) {
  if (ps == nullptr || m < 0 || m >= ps->vector_length) return;
  // Never walk past the rows that exist, whatever a caller did to length.
  int frames = ps->length < ps->alloc_length ? ps->length : ps->alloc_length;
  if (frames <= 0 || ps->width < 1) return;

  Plan plan;
  const Plan *use = utils_mlpg::make_plan(ps, m, &plan) ? &plan : nullptr;
  switch (ps->width) {
    case 1: generate<1>(ps, m, frames, use); break;
    case 3: generate<3>(ps, m, frames, use); break;
    case 5: generate<5>(ps, m, frames, use); break;
    default: generate<0>(ps, m, frames, use); break;
  }
}

}  // extern "C"
