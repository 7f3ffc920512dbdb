// mlpg.cpp - maximum-likelihood parameter generation for one dimension of a
// stream: builds the band system W'U^-1 W c = W'U^-1 mu, factorises it as L D
// L' and solves it, all in single precision.
//
// The steps run fused in one pass over the frames (row t is built, then
// factorised, then forward-substituted, since each needs only rows up to t),
// followed by the backward pass. Every element sees exactly the operations,
// in exactly the order, of doing the four steps one after the other: sums
// accumulate in float in window, shift, band order, and each product is
// formed left to right (coefficient times coefficient before the pivot).
// This file is compiled without floating-point contraction so that no
// product-and-sum is fused into one rounding.
//
// Rows are built by whichever routine fits the windows, all giving the same
// sums: three-tap windows in a band of width 3 (the usual static, delta and
// acceleration set) by a routine written out for them (mlpg_tap3.h); other
// windows from a precomputed list of their non-zero products, or, when the
// list would not fit, straight from the windows (mlpg_rows.h).
#include "hts_pstream.h"

#include "Hmm/mlpg_plan.h"
#include "Hmm/mlpg_rows.h"
#include "Hmm/mlpg_tap3.h"

namespace {

using utils::hmm::Plan;

// ---- Any band width: rows read back from memory --------------------------

// In-place L D L' step for row t, whose rows above are already factorised:
// entry 0 becomes the pivot D, entries 1.. the row of L'. An entry that is
// exactly 0 is not divided, so a zero pivot with a zero row makes no 0/0.
void factorise_row(float *const *wuw, int t, int width) {
  float *row = wuw[t];
  const int reach = t < width - 1 ? t : width - 1;
  for (int i = 1; i <= reach; ++i) {
    const float *above = wuw[t - i];
    row[0] -= above[i] * above[i] * above[0];
  }
  for (int i = 1; i < width; ++i) {
    for (int j = 1; i + j < width && j <= reach; ++j) {
      const float *above = wuw[t - j];
      row[i] -= above[j] * above[i + j] * above[0];
    }
    if (row[i] != 0.0f) row[i] /= row[0];
  }
}

// g[t] from W'U^-1 mu and the L rows above.
float forward_row(float *const *wuw, const float *g, float wum, int t, int width) {
  const int reach = t < width - 1 ? t : width - 1;
  float value = wum;
  for (int i = 1; i <= reach; ++i) value -= wuw[t - i][i] * g[t - i];
  return value;
}

// par[t] from g[t], the pivot and the values already solved after it. When
// g[t] is exactly 0 there is no division: par[t] starts from the value it
// already holds (a frame with no statistics has a zero pivot).
void backward_any(PStream *ps, int frames) {
  const int width = ps->width;
  for (int t = frames - 1; t >= 0; --t) {
    const float *row = ps->wuw[t];
    float value = ps->par[t];
    if (ps->g[t] != 0.0f) value = ps->g[t] / row[0];
    for (int i = 1; i < width && t + i < frames; ++i) value -= row[i] * ps->par[t + i];
    ps->par[t] = value;
  }
}

void generate_any(PStream *ps, int m, int frames, const Plan *plan) {
  for (int t = 0; t < frames; ++t) {
    const float wum = utils::hmm::build_row<0>(ps, plan, m, t, frames);
    ps->wum[t] = wum;
    factorise_row(ps->wuw, t, ps->width);
    ps->g[t] = forward_row(ps->wuw, ps->g, wum, t, ps->width);
  }
  backward_any(ps, frames);
}

// ---- Band width K known at compile time ----------------------------------
// The same arithmetic, with the K - 1 factorised rows above and the values
// solved next to the current frame kept in registers instead of being read
// back from memory on the chain from one frame to the next.

template <int K>
struct RowsAbove {
  float row[K > 1 ? K - 1 : 1][K];  // row[i - 1] is frame t - i, factorised
  float g[K > 1 ? K - 1 : 1];       // g[i - 1] is g[t - i]

  void load(const PStream *ps, int t) {
    for (int i = 1; i < K; ++i) {
      for (int k = 0; k < K; ++k) row[i - 1][k] = ps->wuw[t - i][k];
      g[i - 1] = ps->g[t - i];
    }
  }
  void push(const float (&current)[K], float g_current) {
    for (int i = K - 2; i > 0; --i) {
      for (int k = 0; k < K; ++k) row[i][k] = row[i - 1][k];
      g[i] = g[i - 1];
    }
    if (K > 1) {
      for (int k = 0; k < K; ++k) row[0][k] = current[k];
      g[0] = g_current;
    }
  }
};

// factorise_row and forward_row for a frame t >= K - 1, whose K - 1 rows
// above all exist.
template <int K>
inline float factorise_and_forward(const RowsAbove<K> &above, float (&row)[K], float wum) {
  for (int i = 1; i < K; ++i) {
    const float *a = above.row[i - 1];
    row[0] -= a[i] * a[i] * a[0];
  }
  for (int i = 1; i < K; ++i) {
    for (int j = 1; i + j < K; ++j) {
      const float *a = above.row[j - 1];
      row[i] -= a[j] * a[i + j] * a[0];
    }
    if (row[i] != 0.0f) row[i] /= row[0];
  }
  float value = wum;
  for (int i = 1; i < K; ++i) value -= above.row[i - 1][i] * above.g[i - 1];
  return value;
}

template <int K>
void backward_fixed(PStream *ps, int frames) {
  float after[K];  // after[i] = par[t + i] once t + i < frames
  for (int i = 0; i < K; ++i) after[i] = 0.0f;
  for (int t = frames - 1; t >= 0; --t) {
    const float *row = ps->wuw[t];
    float value = ps->par[t];
    if (ps->g[t] != 0.0f) value = ps->g[t] / row[0];
    for (int i = 1; i < K; ++i)
      if (t + i < frames) value -= row[i] * after[i];
    ps->par[t] = value;
    for (int i = K - 1; i > 1; --i) after[i] = after[i - 1];
    if (K > 1) after[1] = value;
  }
}

// build(t) zeroes and builds row t and returns W'U^-1 mu for frame t.
template <int K, class Build>
void generate_fixed(PStream *ps, int frames, Build build) {
  const int head = frames < K - 1 ? frames : K - 1;
  for (int t = 0; t < head; ++t) {  // rows with fewer than K - 1 rows above
    const float wum = build(t);
    ps->wum[t] = wum;
    factorise_row(ps->wuw, t, K);
    ps->g[t] = forward_row(ps->wuw, ps->g, wum, t, K);
  }
  RowsAbove<K> above;
  if (head == K - 1 && frames > head) above.load(ps, head);
  for (int t = head; t < frames; ++t) {
    const float wum = build(t);
    ps->wum[t] = wum;
    float *stored = ps->wuw[t];
    float row[K];
    for (int k = 0; k < K; ++k) row[k] = stored[k];
    const float g = factorise_and_forward<K>(above, row, wum);
    for (int k = 0; k < K; ++k) stored[k] = row[k];
    ps->g[t] = g;
    above.push(row, g);
  }
  backward_fixed<K>(ps, frames);
}

template <int K>
void generate_planned(PStream *ps, int m, int frames, const Plan *plan) {
  generate_fixed<K>(ps, frames,
                    [=](int t) { return utils::hmm::build_row<K>(ps, plan, m, t, frames); });
}

// The first and last frames, where a shift leaves the utterance, are built
// the general way.
void generate_tap3(PStream *ps, int m, int frames, const utils::hmm::Tap3Plan &plan) {
  generate_fixed<3>(ps, frames, [&](int t) {
    if (t == 0 || t == frames - 1) return utils::hmm::build_row<3>(ps, nullptr, m, t, frames);
    const int ahead = t + utils::hmm::kPrefetchFrames + 1;
    if (ahead < frames) utils::hmm::prefetch_statistics(ps, m, ahead);
    return utils::hmm::build_row_tap3(ps, plan, t, ps->wuw[t]);
  });
}

}  // namespace

extern "C" {

UTILS_API void HTS_PStream_mlpg(PStream *ps, int m) {
  if (ps == nullptr || m < 0 || m >= ps->vector_length) return;
  // Never walk past the rows that exist, whatever a caller did to length.
  const int frames = ps->length < ps->alloc_length ? ps->length : ps->alloc_length;
  if (frames <= 0 || ps->width < 1) return;

  utils::hmm::Tap3Plan tap3;
  if (utils::hmm::make_tap3_plan(ps, m, &tap3)) {
    generate_tap3(ps, m, frames, tap3);
    return;
  }
  Plan plan;
  const Plan *use = utils::hmm::make_plan(ps, m, &plan) ? &plan : nullptr;
  switch (ps->width) {
    case 1:
      generate_planned<1>(ps, m, frames, use);
      break;
    case 3:
      generate_planned<3>(ps, m, frames, use);
      break;
    case 5:
      generate_planned<5>(ps, m, frames, use);
      break;
    default:
      generate_any(ps, m, frames, use);
      break;
  }
}

}  // extern "C"
