// bench_runner.h - runs a benchmark program's registered benchmarks and, on the
// console, hands the results to the program's own reporter, which adds ratio
// tables.
#ifndef UTILS_BENCH_BENCH_RUNNER_H
#define UTILS_BENCH_BENCH_RUNNER_H

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace bench {

inline bool has_flag(int argc, char **argv, const char *prefix) {
  for (int i = 1; i < argc; ++i)
    if (std::strncmp(argv[i], prefix, std::strlen(prefix)) == 0) return true;
  return false;
}

// `Reporter` is a ConsoleReporter built from its output options. With
// `interleave`, repetitions of all benchmarks are interleaved unless the
// command line says otherwise, so that a busy spell on the machine does not
// fall on one side of a comparison only. `before_run` is called after the
// command line is read, before anything is timed.
template <typename Reporter, typename BeforeRun>
int run_benchmarks(int argc, char **argv, bool interleave, BeforeRun before_run) {
  const bool console = !has_flag(argc, argv, "--benchmark_format=") ||
                       has_flag(argc, argv, "--benchmark_format=console");
  const bool tabular = has_flag(argc, argv, "--benchmark_counters_tabular=true");
  std::vector<char *> args(argv, argv + argc);
  char interleave_flag[] = "--benchmark_enable_random_interleaving=true";
  if (interleave && !has_flag(argc, argv, "--benchmark_enable_random_interleaving"))
    args.push_back(interleave_flag);
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
  before_run();
  if (console) {
    Reporter reporter(tabular ? benchmark::ConsoleReporter::OO_ColorTabular
                              : benchmark::ConsoleReporter::OO_Defaults);
    benchmark::RunSpecifiedBenchmarks(&reporter);
  } else {
    benchmark::RunSpecifiedBenchmarks();
  }
  benchmark::Shutdown();
  return 0;
}

template <typename Reporter>
int run_benchmarks(int argc, char **argv, bool interleave = false) {
  return run_benchmarks<Reporter>(argc, argv, interleave, [] {});
}

}  // namespace bench

#endif  // UTILS_BENCH_BENCH_RUNNER_H
