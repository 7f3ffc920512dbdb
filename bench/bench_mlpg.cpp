// bench_mlpg.cpp - MLPG speed of libUtils beside LAPACK's banded positive-
// definite solver, on a 40-dimensional stream with static, delta and
// acceleration windows.
//
// One iteration generates every dimension of 1,000 or 10,000 frames:
//   Utils         HTS_PStream_mlpg per dimension, copying the track out;
//   LAPACK        the same band matrix W'U^-1 W and vector W'U^-1 mu built
//                 from the same 16-bit statistics, then spbsv;
//   LAPACK-solve  spbtrf + spbtrs alone on the prebuilt bands (the build
//                 left out, a bound on what any LAPACK-based code can do).
// Counters give frames per second (all 40 dimensions); a closing table gives
// the ratios, the same per dimension, and the stream's memory per frame.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "bench_runner.h"
#include "hts_pstream.h"

extern "C" {
// Reference LAPACK, single precision; the trailing size_t is the Fortran
// hidden length of the character argument.
void spbsv_(const char *uplo, const int *n, const int *kd, const int *nrhs, float *ab,
            const int *ldab, float *b, const int *ldb, int *info, size_t uplo_len);
void spbtrf_(const char *uplo, const int *n, const int *kd, float *ab, const int *ldab, int *info,
             size_t uplo_len);
void spbtrs_(const char *uplo, const int *n, const int *kd, const int *nrhs, const float *ab,
             const int *ldab, float *b, const int *ldb, int *info, size_t uplo_len);
}

namespace {

constexpr int kDims = 40;
constexpr int kWindows = 3;
constexpr int kHalfWidth = 1;
constexpr int kBand = 2 * kHalfWidth;  // LAPACK's kd: superdiagonals

int g_left[kWindows] = {0, -1, -1};
int g_right[kWindows] = {0, 1, 1};
float g_static[] = {1.0f};
float g_delta[] = {-0.5f, 0.0f, 0.5f};
float g_accel[] = {1.0f, -2.0f, 1.0f};
float *g_coefs[kWindows] = {g_static, g_delta, g_accel};

// Heap bytes in use, to measure what a stream costs per frame.
size_t heap_in_use() { return mallinfo2().uordblks; }

// A stream filled with random statistics of quantised-model size; every
// inverse variance is at least 1, so every band system is positive definite.
struct Workload {
  int frames;
  PStream *ps;
  double bytes_per_frame;

  explicit Workload(int t) : frames(t) {
    size_t before = heap_in_use();
    ps = PStream_Create(kWindows, g_left, g_right, g_coefs, kDims * kWindows, kHalfWidth, t);
    bytes_per_frame = static_cast<double>(heap_in_use() - before) / t;
    if (ps == nullptr) std::abort();
    std::mt19937 rng(12345u + static_cast<unsigned>(t));
    const int range[kWindows] = {3000, 300, 100};
    for (int f = 0; f < t; ++f)
      for (int w = 0; w < kWindows; ++w)
        for (int m = 0; m < kDims; ++m) {
          ps->mean[f][w * kDims + m] =
              static_cast<int16_t>(std::uniform_int_distribution<int>(-range[w], range[w])(rng));
          ps->ivar[f][w * kDims + m] =
              static_cast<uint16_t>(std::uniform_int_distribution<int>(1, 2000)(rng));
        }
  }
  ~Workload() { PStream_Destroy(ps); }
};

Workload &workload(int frames) {
  static std::map<int, Workload *> cache;
  Workload *&w = cache[frames];
  if (w == nullptr) w = new Workload(frames);
  return *w;
}

// The textbook build for LAPACK's upper band storage (column-major,
// ab[(j) * ldab + kd + i - j] = A(i, j) for i <= j): each frame tau and
// window adds the outer product of its window row, weighted by the inverse
// variance, and its mean times that row to the right-hand side.
void build_band(const PStream *ps, int m, float *ab, float *b) {
  const int n = ps->length, ldab = kBand + 1;
  std::memset(ab, 0, sizeof(float) * static_cast<size_t>(n) * ldab);
  std::memset(b, 0, sizeof(float) * static_cast<size_t>(n));
  for (int tau = 0; tau < n; ++tau) {
    for (int w = 0; w < kWindows; ++w) {
      const float u = ps->ivar[tau][w * kDims + m];
      const float mu = ps->mean[tau][w * kDims + m];
      const float *c = g_coefs[w] - g_left[w];  // c[k] for k in left..right
      for (int k1 = g_left[w]; k1 <= g_right[w]; ++k1) {
        const int i = tau + k1;
        if (i < 0 || i >= n || c[k1] == 0.0f) continue;
        const float cu = c[k1] * u;
        b[i] += cu * mu;
        for (int k2 = k1; k2 <= g_right[w] && tau + k2 < n; ++k2)
          ab[(tau + k2) * ldab + kBand + i - (tau + k2)] += cu * c[k2];
      }
    }
  }
}

void utils_mlpg(benchmark::State &state) {
  Workload &w = workload(static_cast<int>(state.range(0)));
  std::vector<float> out(static_cast<size_t>(w.frames) * kDims);
  for (auto _ : state) {
    for (int m = 0; m < kDims; ++m) {
      HTS_PStream_mlpg(w.ps, m);
      std::memcpy(&out[static_cast<size_t>(m) * w.frames], w.ps->par, sizeof(float) * w.frames);
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.counters["frames_per_second"] = benchmark::Counter(
      static_cast<double>(w.frames), benchmark::Counter::kIsIterationInvariantRate);
  state.counters["bytes_per_frame"] = w.bytes_per_frame;
}

void lapack_build_and_solve(benchmark::State &state) {
  Workload &w = workload(static_cast<int>(state.range(0)));
  const int n = w.frames, kd = kBand, ldab = kBand + 1, nrhs = 1;
  std::vector<float> ab(static_cast<size_t>(n) * ldab), out(static_cast<size_t>(n) * kDims);
  for (auto _ : state) {
    for (int m = 0; m < kDims; ++m) {
      float *b = &out[static_cast<size_t>(m) * n];
      build_band(w.ps, m, ab.data(), b);
      int info = 0;
      spbsv_("U", &n, &kd, &nrhs, ab.data(), &ldab, b, &n, &info, 1);
      if (info != 0) state.SkipWithError("spbsv failed");
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.counters["frames_per_second"] =
      benchmark::Counter(static_cast<double>(n), benchmark::Counter::kIsIterationInvariantRate);
}

void lapack_solve_only(benchmark::State &state) {
  Workload &w = workload(static_cast<int>(state.range(0)));
  const int n = w.frames, kd = kBand, ldab = kBand + 1, nrhs = 1;
  const size_t band = static_cast<size_t>(n) * ldab;
  std::vector<float> bands(band * kDims), rhs(static_cast<size_t>(n) * kDims);
  for (int m = 0; m < kDims; ++m)
    build_band(w.ps, m, &bands[band * m], &rhs[static_cast<size_t>(n) * m]);
  std::vector<float> ab(band), out(rhs.size());
  for (auto _ : state) {
    for (int m = 0; m < kDims; ++m) {
      float *b = &out[static_cast<size_t>(m) * n];
      std::memcpy(ab.data(), &bands[band * m], sizeof(float) * band);
      std::memcpy(b, &rhs[static_cast<size_t>(m) * n], sizeof(float) * n);
      int info = 0;
      spbtrf_("U", &n, &kd, ab.data(), &ldab, &info, 1);
      spbtrs_("U", &n, &kd, &nrhs, ab.data(), &ldab, b, &n, &info, 1);
      if (info != 0) state.SkipWithError("spbtrf failed");
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.counters["frames_per_second"] =
      benchmark::Counter(static_cast<double>(n), benchmark::Counter::kIsIterationInvariantRate);
}

// Largest difference between the two solvers' tracks, relative to the
// static mean range: both must solve the same systems.
double largest_disagreement(int frames) {
  Workload &w = workload(frames);
  const int n = frames, kd = kBand, ldab = kBand + 1, nrhs = 1;
  std::vector<float> ab(static_cast<size_t>(n) * ldab), b(n);
  double worst = 0.0;
  for (int m = 0; m < kDims; ++m) {
    HTS_PStream_mlpg(w.ps, m);
    build_band(w.ps, m, ab.data(), b.data());
    int info = 0;
    spbsv_("U", &n, &kd, &nrhs, ab.data(), &ldab, b.data(), &n, &info, 1);
    if (info != 0) return INFINITY;
    for (int t = 0; t < n; ++t) worst = std::fmax(worst, std::fabs(w.ps->par[t] - b[t]) / 3000.0);
  }
  return worst;
}

// ---- Ratio table ----------------------------------------------------------

// Console output as usual, then libUtils against both LAPACK variants per
// frame count, from the best of the repetitions of each (the machine may be
// shared: the best run is the one least disturbed, and the runs are
// interleaved at random). Names are "MLPG/<variant>/<frames>".
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(OutputOptions opts) : ConsoleReporter(opts) {}

  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      auto it = run.counters.find("frames_per_second");
      if (it == run.counters.end()) continue;
      std::string name = run.run_name.function_name;  // MLPG/<variant>
      std::string frames = run.run_name.args;
      if (frames.empty()) frames = "?";
      double &best = rates_[frames][name.substr(name.find('/') + 1)];
      if (it->second.value > best) best = it->second.value;
      auto mem = run.counters.find("bytes_per_frame");
      if (mem != run.counters.end()) bytes_[frames] = mem->second.value;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\n%-7s %14s %14s %14s %10s %10s %10s\n", "frames", "Utils fr/s", "LAPACK fr/s",
                "solve fr/s", "ratio", "vs solve", "B/frame");
    for (auto &entry : rates_) {
      auto &r = entry.second;
      double ours = r["Utils"], lapack = r["LAPACK"], solve = r["LAPACK-solve"];
      std::printf("%-7s %14.0f %14.0f %14.0f %10.2f %10.2f %10.0f\n", entry.first.c_str(), ours,
                  lapack, solve, lapack > 0 ? ours / lapack : 0.0, solve > 0 ? ours / solve : 0.0,
                  bytes_[entry.first]);
    }
    std::printf(
        "(best of the repetitions; frames per second over all %d dimensions; the "
        "ratios are the same per dimension)\n",
        kDims);
  }

 private:
  std::map<std::string, std::map<std::string, double>> rates_;
  std::map<std::string, double> bytes_;
};

}  // namespace

int main(int argc, char **argv) {
  const std::pair<const char *, benchmark::internal::Function *> variants[] = {
      {"MLPG/Utils", utils_mlpg},
      {"MLPG/LAPACK", lapack_build_and_solve},
      {"MLPG/LAPACK-solve", lapack_solve_only}};
  for (int frames : {1000, 10000})
    for (const auto &v : variants)
      benchmark::RegisterBenchmark(v.first, v.second)
          ->Arg(frames)
          ->Unit(benchmark::kMicrosecond)
          ->MinTime(0.1)
          ->Repetitions(12);
  return bench::run_benchmarks<RatioReporter>(argc, argv, /*interleave=*/true, [] {
    for (int frames : {1000, 10000})
      std::printf("MLPG %d frames: largest |Utils - LAPACK| / mean range = %.2g\n", frames,
                  largest_disagreement(frames));
  });
}
