// word_filter.h - a Bloom filter over a dictionary's words and their proper
// prefixes, built when the dictionary is created, that lets segmentation
// skip the binary searches of candidates that cannot be words and stop
// extending a candidate that no word begins with. A "no" is certain; a
// "yes" is then searched. The probes are inline: segmentation makes several
// for each position of the text.
#ifndef UTILS_NLP_DICT_WORD_FILTER_H
#define UTILS_NLP_DICT_WORD_FILTER_H

#include <cstdint>

#include "nlp_dict.h"

namespace utils::nlpdict {

struct WordFilter {
  uint64_t *bits;  // null: no filter (every candidate is searched)
  uint64_t mask;   // 64-bit words - 1
};

// Candidates are at most six units long, so runs beyond that are never asked
// about.
inline constexpr uint32_t kFilteredUnits = 6;

// The filter's hash of a run of units, extended one unit at a time:
// filter_step(filter_step(kFilterSeed, a), b) for the run "ab".
inline constexpr uint64_t kFilterSeed = 1469598103934665603ull;
inline uint64_t filter_step(uint64_t h, uint16_t unit) { return (h ^ unit) * 1099511628211ull; }

// The run's hash mixed with its length. One 64-bit word a run (a blocked
// filter: one cache line a probe), chosen by the low bits; two bits in it
// for "word" and two for "prefix", chosen by the high ones.
inline uint64_t filter_mix(uint64_t h, uint32_t units) {
  h ^= units * 0x9E3779B97F4A7C15ull;
  h ^= h >> 31;
  h *= 0xBF58476D1CE4E5B9ull;
  return h ^ (h >> 29);
}

inline uint64_t filter_bits(uint64_t mixed, bool prefix) {
  const unsigned shift = prefix ? 44 : 32;
  return uint64_t{1} << (mixed >> shift & 63) | uint64_t{1} << (mixed >> (shift + 6) & 63);
}

// What the filter says of the run whose hash is `h` and length `units`:
// bit 0 set when it may be a word, bit 1 when it may be a proper prefix of
// a longer word. Both set when there is no filter.
inline unsigned filter_probe(const WordFilter &f, uint64_t h, uint32_t units) {
  if (f.bits == nullptr || units > kFilteredUnits) return 3;
  const uint64_t mixed = filter_mix(h, units);
  const uint64_t word = f.bits[mixed & f.mask];
  const uint64_t as_word = filter_bits(mixed, false), as_prefix = filter_bits(mixed, true);
  return ((word & as_word) == as_word ? 1u : 0u) | ((word & as_prefix) == as_prefix ? 2u : 0u);
}

// Asks the memory for the part of the filter that filter_probe(f, h, units)
// will read, so that the probe need not wait for it. Changes nothing.
inline void filter_prefetch(const WordFilter &f, uint64_t h, uint32_t units) {
  if (f.bits == nullptr || units > kFilteredUnits) return;
  __builtin_prefetch(f.bits + (filter_mix(h, units) & f.mask));
}

// Builds the filter of the words of `dict`, sized to about sixteen bits a
// run. Leaves `filter` empty (no filter) when the dictionary has no words
// or memory is exhausted.
void build_filter(const NLPDIC *dict, WordFilter *filter);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_WORD_FILTER_H
