// pinyin_readings.cpp - lookup in the generated character-reading table.
//
// The table (make_pinyin_table.py) holds runs of nearby code points: the
// first code point of each run, where its entries start, and one 16-bit
// entry per code point (syllable index * 8 + tone, 0 for none). A lookup is
// one binary search over the runs and one index.
#include "utts/pinyin_readings.h"

#include <algorithm>
#include <cstdint>

namespace utts::mandarin {

extern const std::size_t kReadingCount;
extern const std::size_t kSyllableCount;
extern const std::size_t kRunCount;
extern const char kSyllableText[];
extern const std::uint16_t kSyllableStart[];
extern const std::uint32_t kRunFirst[];
extern const std::uint32_t kRunStart[];
extern const std::uint16_t kReadings[];

namespace {

// The entry of `c`, or 0.
std::uint16_t entry_of(char32_t c) {
  const std::uint32_t *end = kRunFirst + kRunCount;
  const std::uint32_t *after = std::upper_bound(kRunFirst, end, static_cast<std::uint32_t>(c));
  if (after == kRunFirst) return 0;
  const std::size_t run = static_cast<std::size_t>(after - kRunFirst) - 1;
  const std::uint32_t offset = static_cast<std::uint32_t>(c) - kRunFirst[run];
  if (offset >= kRunStart[run + 1] - kRunStart[run]) return 0;
  return kReadings[kRunStart[run] + offset];
}

}  // namespace

bool character_reading(char32_t c, Reading &out) {
  const std::uint16_t entry = entry_of(c);
  if (entry == 0 || entry / 8 >= kSyllableCount) return false;
  out.spelling = kSyllableText + kSyllableStart[entry / 8];
  out.tone = entry % 8;
  return true;
}

std::size_t reading_count() { return kReadingCount; }

std::vector<char32_t> characters_with_readings() {
  std::vector<char32_t> all;
  all.reserve(kReadingCount);
  for (std::size_t run = 0; run < kRunCount; ++run)
    for (std::uint32_t i = kRunStart[run]; i < kRunStart[run + 1]; ++i)
      if (kReadings[i] != 0)
        all.push_back(static_cast<char32_t>(kRunFirst[run] + (i - kRunStart[run])));
  return all;
}

}  // namespace utts::mandarin
