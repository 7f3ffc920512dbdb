// resident_size.h - the resident size of the running process, for the
// benchmarks that check memory does not grow over many utterances.
#ifndef UTILS_BENCH_RESIDENT_SIZE_H
#define UTILS_BENCH_RESIDENT_SIZE_H

#include <unistd.h>

#include <cstdio>

namespace bench {

// Resident kilobytes from /proc/self/statm; -1 when it cannot be read.
inline long resident_kb() {
  long pages = 0, resident = 0;
  std::FILE *f = std::fopen("/proc/self/statm", "r");
  if (f == nullptr) return -1;
  if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = -1;
  std::fclose(f);
  return resident < 0 ? -1 : resident * (sysconf(_SC_PAGESIZE) / 1024);
}

}  // namespace bench

#endif  // UTILS_BENCH_RESIDENT_SIZE_H
