// mlpg_test.cpp - streams and parameter generation: tracks against an
// independent double-precision solver and, bit for bit, against the four steps
// run one after the other, on every window shape.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "hts_pstream.h"

namespace {

// Offsets and one coefficient array per window, element 0 at the left offset.
struct Windows {
  std::vector<int> left, right;
  std::vector<std::vector<float>> coefs;
  std::vector<float *> pointers;

  Windows &add(int l, std::vector<float> c) {
    left.push_back(l);
    right.push_back(l + static_cast<int>(c.size()) - 1);
    coefs.push_back(std::move(c));
    return *this;
  }
  float **coefficients() {  // valid while this object lives unchanged
    pointers.clear();
    for (auto &v : coefs) pointers.push_back(v.data());
    return pointers.data();
  }
  // Static; delta -0.5, 0, 0.5; acceleration 1, -2, 1.
  static Windows usual() {
    return Windows().add(0, {1}).add(-1, {-0.5f, 0, 0.5f}).add(-1, {1, -2, 1});
  }
};

struct Stream {
  Windows windows;
  PStream *ps;

  // half < 0: the band the windows need.
  Stream(Windows w, int dims, int frames, int half = -1) : windows(std::move(w)) {
    int n = static_cast<int>(windows.left.size()), need = 0;
    for (int i = 0; i < n; ++i) need = std::max({need, -windows.left[i], windows.right[i]});
    ps = PStream_Create(n, windows.left.data(), windows.right.data(), windows.coefficients(),
                        dims * n, half < 0 ? need : half, frames);
  }
  ~Stream() { PStream_Destroy(ps); }
  Stream(const Stream &) = delete;

  std::vector<float> track() const { return std::vector<float>(ps->par, ps->par + ps->length); }
  std::vector<float> generate(int m) {
    HTS_PStream_mlpg(ps, m);
    return track();
  }
  // Statistics of the size quantised models give, inverse variances 1..2000.
  void fill_random(uint32_t seed) {
    std::mt19937 rng(seed);
    for (int t = 0; t < ps->length; ++t)
      for (int e = 0; e < ps->vector_size; ++e) {  // window-major: e = w * vector_length + m
        const int w = e / ps->vector_length, r = w == 0 ? 3000 : w == 1 ? 300 : 100;
        ps->mean[t][e] = static_cast<int16_t>(std::uniform_int_distribution<int>(-r, r)(rng));
        ps->ivar[t][e] = static_cast<uint16_t>(std::uniform_int_distribution<int>(1, 2000)(rng));
      }
  }
  void clear_frame(int t) { std::fill(ps->ivar[t], ps->ivar[t] + ps->vector_size, 0); }
};

double coefficient(const PStream *ps, int w, int k) {
  const int l = ps->win_l_width[w];
  return k < l || k > ps->win_r_width[w] ? 0.0 : ps->win_coefficient[w][k - l];
}

// (W'U^-1 W) c = W'U^-1 mu for dimension m in double precision, the band summed from each
// frame's window rows, by banded Cholesky. Empty when not positive definite.
std::vector<double> reference_track(const PStream *ps, int m) {
  int n = ps->length, p = 0;
  for (int w = 0; w < ps->num_windows; ++w)
    p = std::max(p, ps->win_r_width[w] - ps->win_l_width[w]);
  std::vector<double> band(static_cast<size_t>(n) * (p + 1), 0.0), x(n, 0.0);
  auto a = [&](int i, int j) -> double & {
    return band[static_cast<size_t>(i) * (p + 1) + (j - i)];
  };
  for (int tau = 0; tau < n; ++tau)
    for (int w = 0; w < ps->num_windows; ++w) {
      const int e = w * ps->vector_length + m;
      const double u = ps->ivar[tau][e];
      for (int k1 = ps->win_l_width[w]; k1 <= ps->win_r_width[w]; ++k1) {
        if (tau + k1 < 0 || tau + k1 >= n) continue;
        x[tau + k1] += coefficient(ps, w, k1) * u * ps->mean[tau][e];
        for (int k2 = k1; k2 <= ps->win_r_width[w] && tau + k2 < n; ++k2)
          a(tau + k1, tau + k2) += coefficient(ps, w, k1) * coefficient(ps, w, k2) * u;
      }
    }
  for (int i = 0; i < n; ++i) {  // A = U'U in place, and U'y = b
    for (int j = i; j <= std::min(n - 1, i + p); ++j) {
      double v = a(i, j);
      for (int k = std::max(0, j - p); k < i; ++k) v -= a(k, i) * a(k, j);
      if (j == i && !(v > 0.0)) return {};
      a(i, j) = j == i ? std::sqrt(v) : v / a(i, i);
    }
    for (int k = std::max(0, i - p); k < i; ++k) x[i] -= a(k, i) * x[k];
    x[i] /= a(i, i);
  }
  for (int i = n - 1; i >= 0; --i) {  // U x = y
    for (int j = i + 1; j <= std::min(n - 1, i + p); ++j) x[i] -= a(i, j) * x[j];
    x[i] /= a(i, i);
  }
  return x;
}

// Rounds to float here, so no compiler fuses a product into the next sum.
float f(volatile float x) { return x; }

// Build, factorise, forward and backward in single precision, each over all frames before
// the next, from `par` as the stream held it: the library must match this bit for bit.
std::vector<float> stated_order_track(const PStream *ps, int m, std::vector<float> par) {
  const int n = ps->length, width = ps->width;
  std::vector<std::vector<float>> wuw(n, std::vector<float>(width, 0.0f));
  std::vector<float> wum(n, 0.0f), g(n, 0.0f);
  auto c = [&](int w, int k) { return static_cast<float>(coefficient(ps, w, k)); };
  for (int t = 0; t < n; ++t)
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
  for (int t = 0; t < n; ++t) {
    for (int i = 1; i < width && i <= t; ++i)
      wuw[t][0] = f(wuw[t][0] - f(f(wuw[t - i][i] * wuw[t - i][i]) * wuw[t - i][0]));
    for (int i = 1; i < width; ++i) {
      for (int j = 1; i + j < width && j <= t; ++j)
        wuw[t][i] = f(wuw[t][i] - f(f(wuw[t - j][j] * wuw[t - j][i + j]) * wuw[t - j][0]));
      if (wuw[t][i] != 0.0f) wuw[t][i] = f(wuw[t][i] / wuw[t][0]);
    }
  }
  for (int t = 0; t < n; ++t) {
    g[t] = wum[t];
    for (int i = 1; i < width && i <= t; ++i) g[t] = f(g[t] - f(wuw[t - i][i] * g[t - i]));
  }
  for (int t = n - 1; t >= 0; --t) {
    if (g[t] != 0.0f) par[t] = f(g[t] / wuw[t][0]);
    for (int i = 1; i < width && t + i < n; ++i) par[t] = f(par[t] - f(wuw[t][i] * par[t + i]));
  }
  return par;
}

TEST(PStream, ZeroFilledRecordOrNullForBadArguments) {
  Windows win = Windows::usual();
  int *l = win.left.data(), *r = win.right.data();
  float **c = win.coefficients();
  PStream *ps = PStream_Create(3, l, r, c, 7, 2, 11);
  ASSERT_NE(ps, nullptr);
  EXPECT_EQ(ps->vector_length, 2);  // 7 / 3, rounded down
  EXPECT_EQ(ps->alloc_length, 11);
  EXPECT_EQ(ps->width, 5);
  // The caller's windows, held by pointer.
  EXPECT_EQ(ps->win_l_width, l);
  EXPECT_EQ(ps->win_r_width, r);
  EXPECT_EQ(ps->win_coefficient, c);
  for (int t = 0; t < 11; ++t) {
    EXPECT_EQ(ps->par[t], 0.0f);
    for (int i = 0; i < 7; ++i) {
      EXPECT_EQ(ps->mean[t][i], 0) << t << "," << i;
      EXPECT_EQ(ps->ivar[t][i], 0) << t << "," << i;
    }
  }
  PStream_Destroy(ps);

  // Arguments no stream can be made from.
  float *missing[3] = {c[0], nullptr, c[2]};
  int runaway_right[3] = {0, 1, 2147483647}, runaway_left[3] = {0, -1, -2147483647 - 1};
  EXPECT_EQ(PStream_Create(0, l, r, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, nullptr, r, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, nullptr, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, nullptr, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, missing, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, runaway_right, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, runaway_left, r, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, -6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, 6, -1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, 6, 1, -5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, 3, 1, 1 << 30), nullptr);  // beyond the allocator
  PStream_Destroy(nullptr);
}

// Generates dimension m: bit for bit the stated steps and, for least-squares window sets,
// the double solution within single precision of the static means' scale (3000).
std::vector<float> check_dimension(Stream &s, int m, bool least_squares) {
  std::vector<float> expected = stated_order_track(s.ps, m, s.track());
  std::vector<float> got = s.generate(m);
  EXPECT_EQ(got, expected) << "dimension " << m;
  std::vector<double> reference = reference_track(s.ps, m);
  EXPECT_TRUE(!least_squares || reference.size() == got.size()) << "not positive definite";
  for (size_t t = 0; least_squares && t < reference.size(); ++t)
    EXPECT_NEAR(got[t], reference[t], 5e-6 * 3000) << "dimension " << m << ", frame " << t;
  return got;
}

// Static, slope and curvature windows of half-width h.
Windows polynomial(int h) {
  std::vector<float> slope, curve;
  for (int k = -h; k <= h; ++k) {
    slope.push_back(k / (h * (h + 1) * (2 * h + 1) / 3.0f));
    curve.push_back((k * k - h * (h + 1) / 3.0f) / (h * h * (h + 1) * (h + 1) / 2.0f));
  }
  return Windows().add(0, {1}).add(-h, slope).add(-h, curve);
}

TEST(Mlpg, TracksForEveryWindowShapeAndLength) {
  Windows nine = Windows().add(0, {1});  // more windows than the three-tap routine keeps
  for (int w = 1; w < 9; ++w) nine.add(-1, {0.1f * w, -0.3f, 0.05f * w});
  // half: the band's half-width (-1: what the windows need); least_squares false: the
  // windows are not centred and only the stated steps are compared.
  struct Case {
    const char *name;
    Windows windows;
    int half;
    std::vector<int> frames;
    bool least_squares;
  };
  Case cases[] = {
      {"usual", Windows::usual(), -1, {1, 2, 3, 4, 5, 8, 31, 200, 1000}, true},
      {"static alone", Windows().add(0, {1}), -1, {1, 6}, true},
      {"usual in a band of 5", Windows::usual(), 2, {1, 40}, true},
      {"usual in a band of 7", Windows::usual(), 3, {1, 40}, true},
      {"five taps, reaching past both ends", polynomial(2), -1, {1, 2, 3, 4, 5, 6, 50}, true},
      {"31 taps, too many for a plan", polynomial(15), -1, {5, 40}, true},
      {"forward difference padded to the centre",
       Windows().add(0, {1}).add(-1, {0, -1, 1}),
       -1,
       {1, 2, 7},
       true},
      {"nine three-tap windows", nine, -1, {1, 3, 60}, true},
      {"one-sided, not padded",
       Windows().add(0, {1}).add(0, {-1, 1}).add(-2, {1, -2, 1}),
       -1,
       {1, 2, 3, 9},
       false},
      {"three taps of every shape",
       Windows()
           .add(0, {1})
           .add(0, {-1, 1})
           .add(-1, {1, -1})
           .add(-1, {0, -1, 1})
           .add(-1, {0.25f, 0.5f, 0}),
       -1,
       {1, 2, 3, 40},
       false},
      {"five taps in a band of 3", polynomial(2), 1, {1, 4, 30}, false},
  };
  uint32_t seed = 1;
  for (Case &c : cases)
    for (int frames : c.frames) {
      SCOPED_TRACE(testing::Message() << c.name << ", " << frames << " frames");
      Stream s(c.windows, 3, frames, c.half);
      ASSERT_NE(s.ps, nullptr);
      s.fill_random(seed++);
      for (int m = 0; m < 3; ++m) check_dimension(s, m, c.least_squares);
    }
}

// Frames with all inverse variances 0: short gaps are interpolated; in a long one the middle
// frames have zero pivots, are not divided, and keep what par held.
TEST(Mlpg, GapsWithoutStatistics) {
  for (int gap : {1, 2, 7}) {
    SCOPED_TRACE(testing::Message() << "gap of " << gap);
    Stream s(Windows::usual(), 2, 25);
    s.fill_random(30u + static_cast<uint32_t>(gap));
    for (int t = 9; t < 9 + gap; ++t) s.clear_frame(t);
    std::fill(s.ps->par, s.ps->par + 25, 42.0f);
    std::vector<float> track = check_dimension(s, 1, gap < 3);
    for (float v : track) EXPECT_TRUE(std::isfinite(v));
    for (int t = 11; gap == 7 && t <= 13; ++t) {
      EXPECT_EQ(s.ps->wuw[t][0], 0.0f) << "pivot of frame " << t;
      EXPECT_EQ(track[t], 42.0f) << "frame " << t;
    }
  }
}

TEST(Mlpg, ExactZeroAfterForwardSubstitutionKeepsThePreviousValue) {
  Stream s(Windows().add(0, {1}), 2, 4);  // g[t] = mean * ivar: 0 for a zero mean
  for (int t = 0; t < 4; ++t) {
    s.ps->mean[t][0] = 7;
    s.ps->mean[t][1] = t == 2 ? 0 : 5;
    s.ps->ivar[t][0] = s.ps->ivar[t][1] = 3;
  }
  EXPECT_EQ(s.generate(1), (std::vector<float>{5, 5, 0, 5}));  // the zero it was created with
  EXPECT_EQ(s.generate(0), (std::vector<float>{7, 7, 7, 7}));
  EXPECT_EQ(s.generate(1), (std::vector<float>{5, 5, 7, 5}));
}

TEST(Mlpg, CallsWithNothingToGenerate) {
  Stream s(Windows::usual(), 2, 5);
  s.fill_random(2u);
  std::fill(s.ps->par, s.ps->par + 5, 42.0f);
  HTS_PStream_mlpg(s.ps, -1);
  HTS_PStream_mlpg(s.ps, 2);  // vector_length is 2
  HTS_PStream_mlpg(nullptr, 0);
  EXPECT_EQ(s.track(), std::vector<float>(5, 42.0f));
  std::vector<float> expected = stated_order_track(s.ps, 0, s.track());
  s.ps->length = 1000;  // a caller's mistake: only the 5 rows allocated are used
  HTS_PStream_mlpg(s.ps, 0);
  EXPECT_EQ(std::vector<float>(s.ps->par, s.ps->par + 5), expected);

  Stream no_frames(Windows::usual(), 1, 0), no_dims(Windows::usual(), 0, 4);
  ASSERT_NE(no_frames.ps, nullptr);
  ASSERT_NE(no_dims.ps, nullptr);
  EXPECT_TRUE(no_frames.generate(0).empty());
  EXPECT_EQ(no_dims.generate(0), std::vector<float>(4, 0.0f));
}

}  // namespace
