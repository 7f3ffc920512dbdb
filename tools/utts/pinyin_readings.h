// pinyin_readings.h - the most usual Mandarin reading of a character, from
// the table that the build generates from Unihan's kMandarin field.
#ifndef UTILS_UTTS_PINYIN_READINGS_H
#define UTILS_UTTS_PINYIN_READINGS_H

#include <cstddef>
#include <vector>

namespace utts::mandarin {

// A reading: toneless pinyin (ASCII letters, ü and ê in UTF-8) and tone 1 to
// 4, or 5 for the neutral tone.
struct Reading {
  const char *spelling;
  int tone;
};

// The reading of a code point (a whole code point, not a surrogate).
// False, with `out` unchanged, for a code point without one.
bool character_reading(char32_t c, Reading &out);

// The number of code points that have a reading.
std::size_t reading_count();

// Every code point that has a reading, in code point order (for tests that
// walk the whole table).
std::vector<char32_t> characters_with_readings();

}  // namespace utts::mandarin

#endif  // UTILS_UTTS_PINYIN_READINGS_H
