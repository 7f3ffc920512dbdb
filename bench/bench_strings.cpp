// bench_strings.cpp - position-valued comparison against the C library's strcmp
// on long equal prefixes: bsr_strcmp on bytes, bsr_wcscmp on 16-bit units.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "bsr_string.h"

namespace {

// Two equal strings of `n` units that differ only in their last unit.
template <typename S>
std::pair<S, S> equal_prefix_pair(size_t n, typename S::value_type fill) {
  S a(n, fill), b(n, fill);
  b[n - 1] = static_cast<typename S::value_type>(fill + 1);
  return {a, b};
}

void BM_libc_strcmp(benchmark::State &state) {
  auto [a, b] = equal_prefix_pair<std::string>(state.range(0), 'k');
  for (auto _ : state) benchmark::DoNotOptimize(strcmp(a.c_str(), b.c_str()));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_bsr_strcmp(benchmark::State &state) {
  auto [a, b] = equal_prefix_pair<std::string>(state.range(0), 'k');
  for (auto _ : state) benchmark::DoNotOptimize(bsr_strcmp(a.c_str(), b.c_str()));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

// Same number of characters as the narrow case: twice the bytes.
void BM_bsr_wcscmp(benchmark::State &state) {
  auto [a, b] = equal_prefix_pair<std::u16string>(state.range(0), u'\u4e2d');
  for (auto _ : state) benchmark::DoNotOptimize(bsr_wcscmp(a.c_str(), b.c_str()));
  state.SetBytesProcessed(state.iterations() * state.range(0) * 2);
}

// Same number of bytes as the narrow case: half the characters.
void BM_bsr_wcscmp_same_bytes(benchmark::State &state) {
  auto [a, b] = equal_prefix_pair<std::u16string>(state.range(0) / 2, u'\u4e2d');
  for (auto _ : state) benchmark::DoNotOptimize(bsr_wcscmp(a.c_str(), b.c_str()));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

// Short feature-name-like keys, where the call and set-up costs dominate.
void BM_libc_strcmp_short(benchmark::State &state) {
  const char *a = "name_Len", *b = "name_Lem";
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(strcmp(a, b));
  }
}
void BM_bsr_strcmp_short(benchmark::State &state) {
  const char *a = "name_Len", *b = "name_Lem";
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(bsr_strcmp(a, b));
  }
}

}  // namespace

BENCHMARK(BM_libc_strcmp)->Arg(256)->Arg(4096)->Arg(65536);
BENCHMARK(BM_bsr_strcmp)->Arg(256)->Arg(4096)->Arg(65536);
BENCHMARK(BM_bsr_wcscmp)->Arg(256)->Arg(4096)->Arg(65536);
BENCHMARK(BM_bsr_wcscmp_same_bytes)->Arg(256)->Arg(4096)->Arg(65536);
BENCHMARK(BM_libc_strcmp_short);
BENCHMARK(BM_bsr_strcmp_short);
BENCHMARK_MAIN();
