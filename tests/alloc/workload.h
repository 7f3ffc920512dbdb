// workload.h - the per-family workloads of the allocation-failure test.
//
// A workload exercises one family through its exported functions and writes
// what it observed into a fixed buffer (no allocation of its own while the
// shim may fail one). It returns kDone when every step gave its result, or
// kFailed when a step gave its documented failure result (null, 0, -1 ...);
// after kFailed the text may differ from the full run's, after kDone it
// must not. It must release everything it made, whatever happened.
//
// To add a family, write workload_<family>.cpp with a function of this type
// and a line UTILS_ALLOC_WORKLOAD(<family>, function) at file scope.
#ifndef UTILS_ALLOC_WORKLOAD_H
#define UTILS_ALLOC_WORKLOAD_H

#include <cstddef>

namespace alloc_test {

enum Outcome { kDone, kFailed };

// What a workload saw, written with append(); bounded, never allocating.
struct Record {
  char text[4096];
  size_t used;
  void append(const char *s);
  void append_int(long long n);
};

using WorkloadFn = Outcome (*)(Record &out);

struct Workload {
  const char *family;
  WorkloadFn run;
  const Workload *next;
};

// Links a workload into the list the driver runs; returns the list head.
const Workload *register_workload(Workload *w);
const Workload *workloads();

}  // namespace alloc_test

#define UTILS_ALLOC_WORKLOAD(family, fn)                             \
  namespace {                                                        \
  alloc_test::Workload family##_entry = {#family, fn, nullptr};      \
  [[maybe_unused]] const alloc_test::Workload *family##_registered = \
      alloc_test::register_workload(&family##_entry);                \
  }

#endif  // UTILS_ALLOC_WORKLOAD_H
