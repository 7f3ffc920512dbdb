// Shared helpers of the stream tests: the usual delta windows, a stream that
// owns its windows, and random quantised statistics.
#ifndef TESTS_HMM_STREAM_FIXTURE_H
#define TESTS_HMM_STREAM_FIXTURE_H

#include <cstdint>
#include <random>
#include <vector>

#include "hts_pstream.h"

namespace hmm_test {

// A window set laid out the way a model hands it over: offsets and one
// coefficient array per window, element 0 at the left offset.
struct Windows {
  std::vector<int> left, right;
  std::vector<std::vector<float>> coefs;
  std::vector<float *> pointers;

  void add(int l, std::vector<float> c) {
    left.push_back(l);
    right.push_back(l + static_cast<int>(c.size()) - 1);
    coefs.push_back(std::move(c));
    pointers.clear();
    for (auto &v : coefs) pointers.push_back(v.data());
  }
  int count() const { return static_cast<int>(left.size()); }
  int max_half_width() const {
    int h = 0;
    for (int w = 0; w < count(); ++w) {
      if (-left[w] > h) h = -left[w];
      if (right[w] > h) h = right[w];
    }
    return h;
  }
  // Static; delta -0.5, 0, 0.5; acceleration 1, -2, 1.
  static Windows usual() {
    Windows w;
    w.add(0, {1.0f});
    w.add(-1, {-0.5f, 0.0f, 0.5f});
    w.add(-1, {1.0f, -2.0f, 1.0f});
    return w;
  }
};

// A stream over windows that it keeps alive; released at scope exit.
struct Stream {
  Windows windows;
  PStream *ps = nullptr;

  Stream(Windows w, int dims, int frames) : windows(std::move(w)) {
    ps = PStream_Create(windows.count(), windows.left.data(), windows.right.data(),
                        windows.pointers.data(), dims * windows.count(),
                        windows.max_half_width(), frames);
  }
  ~Stream() { PStream_Destroy(ps); }
  Stream(const Stream &) = delete;
  Stream &operator=(const Stream &) = delete;

  int frames() const { return ps->length; }
  int16_t &mean(int t, int w, int m) { return ps->mean[t][w * ps->vector_length + m]; }
  uint16_t &ivar(int t, int w, int m) { return ps->ivar[t][w * ps->vector_length + m]; }
  std::vector<float> track() const { return std::vector<float>(ps->par, ps->par + ps->length); }
  std::vector<float> generate(int m) {
    HTS_PStream_mlpg(ps, m);
    return track();
  }
};

// Statistics of the size quantised models give: static means of a few
// thousand units, smaller dynamic means, inverse variances 1..2000.
inline void fill_random(Stream &s, uint32_t seed) {
  std::mt19937 rng(seed);
  const int mean_range[] = {3000, 300, 100};
  for (int t = 0; t < s.frames(); ++t)
    for (int w = 0; w < s.ps->num_windows; ++w)
      for (int m = 0; m < s.ps->vector_length; ++m) {
        int r = mean_range[w < 3 ? w : 2];
        s.mean(t, w, m) = static_cast<int16_t>(std::uniform_int_distribution<int>(-r, r)(rng));
        s.ivar(t, w, m) = static_cast<uint16_t>(std::uniform_int_distribution<int>(1, 2000)(rng));
      }
}

inline void clear_frame(Stream &s, int t) {
  for (int i = 0; i < s.ps->vector_size; ++i) s.ps->ivar[t][i] = 0;
}

}  // namespace hmm_test

#endif  // TESTS_HMM_STREAM_FIXTURE_H
