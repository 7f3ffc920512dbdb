// Two solvers to check generated tracks against: an independent
// double-precision one (W'U^-1 W summed from the window rows, banded
// Cholesky), and a plain single-precision run of the four stated steps one
// after the other, which the library must match bit for bit.
#ifndef TESTS_HMM_MLPG_REFERENCE_H
#define TESTS_HMM_MLPG_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <vector>

#include "hts_pstream.h"

namespace hmm_test {

inline double coefficient(const PStream *ps, int w, int k) {
  if (k < ps->win_l_width[w] || k > ps->win_r_width[w]) return 0.0;
  return ps->win_coefficient[w][k - ps->win_l_width[w]];
}

// Symmetric band matrix, upper half, half-bandwidth p.
struct BandMatrix {
  int n, p;
  std::vector<double> cells;
  BandMatrix(int n_, int p_) : n(n_), p(p_), cells(static_cast<size_t>(n_) * (p_ + 1), 0.0) {}
  double &at(int i, int j) { return cells[static_cast<size_t>(i) * (p + 1) + (j - i)]; }
};

// Solves (W'U^-1 W) c = W'U^-1 mu for dimension m in double precision.
// Each frame tau and window w contributes the outer product of its window
// row (coefficients on frames tau+k inside the utterance) weighted by its
// inverse variance. Returns an empty vector when the matrix is not positive
// definite (a frame no window reaches).
inline std::vector<double> reference_track(const PStream *ps, int m) {
  const int n = ps->length;
  int p = 0;
  for (int w = 0; w < ps->num_windows; ++w) p = std::max(p, ps->win_r_width[w] - ps->win_l_width[w]);
  BandMatrix a(n, p);
  std::vector<double> b(n, 0.0);
  for (int tau = 0; tau < n; ++tau) {
    for (int w = 0; w < ps->num_windows; ++w) {
      const int e = w * ps->vector_length + m;
      const double u = ps->ivar[tau][e], mu = ps->mean[tau][e];
      for (int k1 = ps->win_l_width[w]; k1 <= ps->win_r_width[w]; ++k1) {
        const int i = tau + k1;
        if (i < 0 || i >= n) continue;
        b[i] += coefficient(ps, w, k1) * u * mu;
        for (int k2 = k1; k2 <= ps->win_r_width[w]; ++k2) {
          const int j = tau + k2;
          if (j >= n) break;
          a.at(i, j) += coefficient(ps, w, k1) * coefficient(ps, w, k2) * u;
        }
      }
    }
  }
  // A = U'U in place, then U'y = b and U x = y.
  for (int i = 0; i < n; ++i) {
    const int hi = std::min(n - 1, i + p);
    for (int j = i; j <= hi; ++j) {
      double v = a.at(i, j);
      for (int k = std::max(0, j - p); k < i; ++k) v -= a.at(k, i) * a.at(k, j);
      if (j == i) {
        if (!(v > 0.0)) return {};
        a.at(i, i) = std::sqrt(v);
      } else {
        a.at(i, j) = v / a.at(i, i);
      }
    }
  }
  std::vector<double> x(b);
  for (int i = 0; i < n; ++i) {
    for (int k = std::max(0, i - p); k < i; ++k) x[i] -= a.at(k, i) * x[k];
    x[i] /= a.at(i, i);
  }
  for (int i = n - 1; i >= 0; --i) {
    for (int j = i + 1; j <= std::min(n - 1, i + p); ++j) x[i] -= a.at(i, j) * x[j];
    x[i] /= a.at(i, i);
  }
  return x;
}

// Rounds to float here and now, so no compiler may fuse a product into the
// following sum: the comparison is bit for bit.
inline float f(float x) {
  volatile float v = x;
  return v;
}

// The four steps in single precision, each over all frames before the
// next, starting from `par` as the stream's output held it before the call.
inline std::vector<float> stated_order_track(const PStream *ps, int m, std::vector<float> par) {
  const int n = ps->length, width = ps->width;
  std::vector<std::vector<float>> wuw(n, std::vector<float>(width, 0.0f));
  std::vector<float> wum(n, 0.0f), g(n, 0.0f);
  auto c = [&](int w, int k) { return static_cast<float>(coefficient(ps, w, k)); };
  for (int t = 0; t < n; ++t)  // build
    for (int w = 0; w < ps->num_windows; ++w)
      for (int s = ps->win_l_width[w]; s <= ps->win_r_width[w]; ++s) {
        if (t + s < 0 || t + s >= n || c(w, -s) == 0.0f) continue;
        const int e = w * ps->vector_length + m;
        const float wu = f(static_cast<float>(ps->ivar[t + s][e]) * c(w, -s));
        wum[t] = f(wum[t] + f(static_cast<float>(ps->mean[t + s][e]) * wu));
        for (int j = 0; j < width && t + j < n; ++j)
          if (j - s <= ps->win_r_width[w] && c(w, j - s) != 0.0f)
            wuw[t][j] = f(wuw[t][j] + f(c(w, j - s) * wu));
      }
  for (int t = 0; t < n; ++t) {  // factorise
    for (int i = 1; i < width && i <= t; ++i)
      wuw[t][0] = f(wuw[t][0] - f(f(wuw[t - i][i] * wuw[t - i][i]) * wuw[t - i][0]));
    for (int i = 1; i < width; ++i) {
      for (int j = 1; i + j < width && j <= t; ++j)
        wuw[t][i] = f(wuw[t][i] - f(f(wuw[t - j][j] * wuw[t - j][i + j]) * wuw[t - j][0]));
      if (wuw[t][i] != 0.0f) wuw[t][i] = f(wuw[t][i] / wuw[t][0]);
    }
  }
  for (int t = 0; t < n; ++t) {  // forward
    g[t] = wum[t];
    for (int i = 1; i < width && i <= t; ++i) g[t] = f(g[t] - f(wuw[t - i][i] * g[t - i]));
  }
  for (int t = n - 1; t >= 0; --t) {  // backward
    if (g[t] != 0.0f) par[t] = f(g[t] / wuw[t][0]);
    for (int i = 1; i < width && t + i < n; ++i) par[t] = f(par[t] - f(wuw[t][i] * par[t + i]));
  }
  return par;
}

}  // namespace hmm_test

#endif  // TESTS_HMM_MLPG_REFERENCE_H
