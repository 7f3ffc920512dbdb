// allocation_count.h - counts a benchmark program's heap allocations. The
// one file of the program that includes it replaces malloc, calloc and
// realloc (the library allocates through them) with versions that count in
// bench::g_allocations and then call the C library's own.
#ifndef UTILS_BENCH_ALLOCATION_COUNT_H
#define UTILS_BENCH_ALLOCATION_COUNT_H

#include <cstddef>
#include <cstdint>

extern "C" {
void *__libc_malloc(size_t);
void *__libc_calloc(size_t, size_t);
void *__libc_realloc(void *, size_t);
void __libc_free(void *);
}

namespace bench {
inline uint64_t g_allocations = 0;
}  // namespace bench

extern "C" {
void *malloc(size_t n) {
  ++bench::g_allocations;
  return __libc_malloc(n);
}
void *calloc(size_t n, size_t size) {
  ++bench::g_allocations;
  return __libc_calloc(n, size);
}
void *realloc(void *p, size_t n) {
  ++bench::g_allocations;
  return __libc_realloc(p, n);
}
void free(void *p) { __libc_free(p); }
}

#endif  // UTILS_BENCH_ALLOCATION_COUNT_H
