// alloc_failure_main.cpp - the allocation-failure test: for each family's
// workload, counts its allocations, then runs it once per N with the N-th
// allocation failing, each run in a child process. A run passes when it
// ends normally, leaves no block allocated that it did not free, and gives
// either the full run's record or its documented failure result.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Utils/TextMemory/block_cache.h"
#include "alloc_shim.h"
#include "workload.h"

namespace alloc_test {

namespace {
const Workload *g_head = nullptr;
}  // namespace

void Record::append(const char *s) {
  while (*s != '\0' && used + 1 < sizeof text) text[used++] = *s++;
  text[used] = '\0';
}

void Record::append_int(long long n) {
  char digits[24];
  snprintf(digits, sizeof digits, "%lld", n);
  append(digits);
}

const Workload *register_workload(Workload *w) {
  w->next = g_head;
  g_head = w;
  return g_head;
}

const Workload *workloads() { return g_head; }

}  // namespace alloc_test

namespace {

using alloc_test::Outcome;
using alloc_test::Record;
using alloc_test::Workload;

// Runs above this count are sampled evenly, so that a few minutes do.
constexpr uint64_t kMaxRuns = 5000;

enum ChildExit { kPass = 0, kSpared = 2, kLeak = 3, kWrong = 4 };

// One run in this process: the workload with allocation `fail_at` failing
// (0: none), then the leak and result checks. Blocks a family keeps for
// reuse are given back first, so that only real leaks remain.
int run_once(const Workload &w, uint64_t fail_at, const Record &full) {
  static Record seen;
  seen.used = 0;
  seen.text[0] = '\0';
  const int64_t before = alloc_test::live_blocks();
  alloc_test::arm(fail_at);
  const Outcome outcome = w.run(seen);
  alloc_test::disarm();
  utils::text::release_block_cache();
  // Fewer blocks than before is no leak: a block kept from an earlier run
  // (a reserve, say) may have been used and freed.
  if (alloc_test::live_blocks() > before) return kLeak;
  if (outcome == alloc_test::kDone && strcmp(seen.text, full.text) != 0) return kWrong;
  return alloc_test::spared() ? kSpared : kPass;
}

struct Tally {
  uint64_t runs = 0, crashes = 0, leaks = 0, wrong = 0, spared = 0;
};

const char *describe_exit(int status) {
  if (WIFSIGNALED(status)) return strsignal(WTERMSIG(status));
  switch (WEXITSTATUS(status)) {
    case kLeak:
      return "leak";
    case kWrong:
      return "wrong result";
    default:
      return "abnormal exit";
  }
}

bool test_workload(const Workload &w) {
  static Record full;
  // A first run makes what the library makes once per thread (Mini-XML's
  // state, reserves), so that the full run below counts only its own work.
  full.used = 0;
  w.run(full);
  utils::text::release_block_cache();
  full.used = 0;
  const int64_t before = alloc_test::live_blocks();
  alloc_test::arm(0);
  const Outcome outcome = w.run(full);
  const uint64_t count = alloc_test::calls();
  alloc_test::disarm();
  utils::text::release_block_cache();
  if (outcome != alloc_test::kDone || alloc_test::live_blocks() > before) {
    printf("%-10s the full run %s\n", w.family, outcome != alloc_test::kDone ? "failed" : "leaked");
    return false;
  }
  const uint64_t runs = count < kMaxRuns ? count : kMaxRuns;
  Tally tally;
  int reported = 0;
  for (uint64_t k = 1; k <= runs; ++k) {
    const uint64_t n = count <= kMaxRuns ? k : (k * count + runs - 1) / runs;
    fflush(stdout);
    const pid_t child = fork();
    if (child == 0) _exit(run_once(w, n, full));
    int status = 0;
    waitpid(child, &status, 0);
    ++tally.runs;
    if (WIFEXITED(status) && WEXITSTATUS(status) == kPass) continue;
    if (WIFEXITED(status) && WEXITSTATUS(status) == kSpared) {
      ++tally.spared;
      continue;
    }
    if (WIFSIGNALED(status) || (WEXITSTATUS(status) != kLeak && WEXITSTATUS(status) != kWrong))
      ++tally.crashes;
    else if (WEXITSTATUS(status) == kLeak)
      ++tally.leaks;
    else
      ++tally.wrong;
    if (reported++ < 5)
      printf("%-10s allocation %llu: %s\n", w.family, (unsigned long long)n, describe_exit(status));
  }
  printf(
      "%-10s %llu allocations, %llu runs%s: %llu crashes, %llu leaks, %llu wrong results"
      " (%llu allocations inside RE2 not failed)\n",
      w.family, (unsigned long long)count, (unsigned long long)tally.runs,
      count > kMaxRuns ? " (sampled evenly)" : "", (unsigned long long)tally.crashes,
      (unsigned long long)tally.leaks, (unsigned long long)tally.wrong,
      (unsigned long long)tally.spared);
  return tally.crashes == 0 && tally.leaks == 0 && tally.wrong == 0;
}

}  // namespace

// alloc_failure [family [N]]: every family, one, or one run of one family
// with allocation N failing, in this process (for a debugger).
int main(int argc, char **argv) {
  alloc_test::arm(0);  // loads what the shim itself needs
  alloc_test::disarm();
  if (argc > 2) {
    for (const Workload *w = alloc_test::workloads(); w != nullptr; w = w->next) {
      if (strcmp(argv[1], w->family) != 0) continue;
      static Record full;
      w->run(full);
      utils::text::release_block_cache();
      const int result = run_once(*w, strtoull(argv[2], nullptr, 10), full);
      printf("%s\n", result == kPass || result == kSpared ? "pass" : describe_exit(result << 8));
      return result;
    }
    return 2;
  }
  alloc_test::arm(0);  // loads what the shim itself needs
  alloc_test::disarm();
  bool ok = true;
  for (const Workload *w = alloc_test::workloads(); w != nullptr; w = w->next) {
    if (argc > 1 && strcmp(argv[1], w->family) != 0) continue;
    ok = test_workload(*w) && ok;
  }
  return ok ? 0 : 1;
}
