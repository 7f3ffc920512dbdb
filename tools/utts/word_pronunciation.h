// word_pronunciation.h - the pronunciation stage of the analysis chain:
// syllable and phone elements under the word elements of a language that
// has a pronunciation source.
#ifndef UTILS_UTTS_WORD_PRONUNCIATION_H
#define UTILS_UTTS_WORD_PRONUNCIATION_H

#include <string>

#include "utterance.h"

namespace utts {

struct PronunciationCount {
  int pronounced = 0;  // words that got syllables
  int unknown = 0;     // words of a pronounced language without a reading
  int other = 0;       // words of a language without a pronunciation source
};

// True for tags of Mandarin: zh, zh-..., cmn, cmn-... (any case).
bool is_mandarin(const std::u16string &lang);

// The Mandarin reading of a word element's text: Han characters by their
// readings, digits as the Han numerals read one by one. Empty when some
// character has no reading.
std::u16string mandarin_word_pronunciation(const std::u16string &word);

// For every word element below `root` whose inherited "xml:lang" is
// Mandarin: its pronunciation string, kept in "ph", and its syllables and
// phones (CreatePhonemeWord). Words of other languages are left as they are.
PronunciationCount pronounce_words(item *root);

}  // namespace utts

#endif  // UTILS_UTTS_WORD_PRONUNCIATION_H
