// recent_runs.h - the results of a dictionary's recent known-word searches
// of runs of two and three units, by a hash of the run. Real text repeats
// its words, and a hit costs one read where the search costs several. The
// key holds the whole run, so a hit is exact; a new run simply replaces
// whatever its slot held.
#ifndef UTILS_NLP_DICT_RECENT_RUNS_H
#define UTILS_NLP_DICT_RECENT_RUNS_H

#include <cstdint>

#include "utils_types.h"

namespace utils::nlpdict {

inline constexpr uint32_t kRecentBits = 12;  // 4096 runs, 48 KB
inline constexpr uint32_t kRecentRuns = uint32_t{1} << kRecentBits;

struct RecentRuns {
  uint64_t key[kRecentRuns];   // 0: empty
  int32_t local[kRecentRuns];  // the local index found, or -1
};

// Only runs of these lengths are kept: their units and length fit the key.
inline bool recent_length(uint32_t units) { return units == 2 || units == 3; }

// The key of a run of two or three units: the units, then the length,
// which no empty slot's 0 can equal.
inline uint64_t recent_key(const bsr_wchar *run, uint32_t units) {
  uint64_t key = uint64_t{units} << 48;
  for (uint32_t k = 0; k < units; ++k) key |= uint64_t{static_cast<uint16_t>(run[k])} << (16 * k);
  return key;
}

inline uint32_t recent_slot(uint64_t key) {
  return static_cast<uint32_t>((key * 0x9E3779B97F4A7C15ull) >> (64 - kRecentBits));
}

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_RECENT_RUNS_H
