// mandarin_pronunciation.h - what the analysis chain asks of the Mandarin
// pack: which kind of text a run is, and the pronunciation string of a word.
//
// A pronunciation string is what CreatePhonemeWord reads: syllables
// separated by ".", each the IPA phones of the syllable written together and
// a tone digit at its end (1 to 4, 5 for the neutral tone), such as
// "ni2.xau̯3" for 你好. Phones are the base symbols of the IPA inventory with
// their diacritics (see data/pinyin_ipa.table).
//
// All offsets and lengths are in UTF-16 code units. Nothing here keeps state
// between calls; the tables are built into the program and shared.
#ifndef UTILS_UTTS_MANDARIN_PRONUNCIATION_H
#define UTILS_UTTS_MANDARIN_PRONUNCIATION_H

#include <cstddef>
#include <string>
#include <vector>

#include "utils_types.h"

namespace utts::mandarin {

// The kinds of text that the chain treats apart.
enum class RunKind {
  kHan,     // CJK ideographs: the unified blocks and extensions (planes 2 and 3
            // included), the compatibility ideographs and 〇
  kLatin,   // letters of the Latin script, full-width ones included; an
            // apostrophe between two of them belongs to the word (don't)
  kDigits,  // 0-9 and full-width ０-９
  kOther,   // everything else: blanks, punctuation, other scripts, lone
            // surrogates
};

// A run of one kind: units [begin, end) of the text.
struct TextRun {
  RunKind kind;
  std::size_t begin;
  std::size_t end;
};

// The kind of one code point. An apostrophe is kOther here: only
// next_run sees the letters around it.
// Contract: any value is accepted; code points beyond U+10FFFF are kOther.
RunKind kind_of(char32_t c);

// The longest run of one kind that starts at unit `from` of `text`.
// Contract: `text` holds `length` units (no terminator needed); a surrogate
// pair counts as one character and is never split; returns false, with
// `run` unchanged, when `text` is null or `from` >= `length`; otherwise
// `run.begin` == `from` and `run.end` > `from`. Calling again from
// `run.end` walks the whole text.
bool next_run(const bsr_wchar *text, std::size_t length, std::size_t from, TextRun &run);

// One syllable of a word: the character it was read from (0 when it came
// from pinyin), toneless pinyin and tone (1-4, 5 neutral).
struct WordSyllable {
  char32_t character;
  std::string spelling;
  int tone;
};

// Applies the tone sandhi of a word in place: 一 (yi1) becomes yi2 before a
// fourth or neutral tone and yi4 before the other tones, but stays yi1 at
// the end of the word, after 第 and before a numeral character (十一,
// 第一, 一九九八); 不 (bu4) becomes bu2 before a fourth tone; a third tone
// followed by a third tone becomes a second tone, judged on the tones as
// read (so 3-3-3 gives 2-2-3).
// Contract: only the tones change; 一 and 不 are recognised by `character`,
// so syllables from pinyin take the third-tone rule only.
void apply_tone_sandhi(std::vector<WordSyllable> &syllables);

// The pronunciation string of a word of Han characters: each character's
// most usual reading (Unihan kMandarin), tone sandhi within the word, then
// the IPA of each syllable.
// Contract: `word` holds `length` units; on success returns true with the
// string in `out`. Returns false, with `out` empty, when `word` is null or
// empty, or a character is not Han or has no reading; `failed_at`, when not
// null, then receives the unit offset of that character (0 for a null or
// empty word).
bool han_word_pronunciation(const bsr_wchar *word, std::size_t length, std::u16string &out,
                            std::size_t *failed_at = nullptr);

// The pronunciation string of a word given in pinyin: syllables with tone
// digits separated by blanks or apostrophes ("ni3 hao3", "xi1'an1"), erhua
// written with r ("hua1r" or "huar1"). Third-tone sandhi applies across the
// syllables, which are taken as one word.
// Contract: returns false, with `out` empty, when there is no syllable or any
// syllable does not convert (see split_syllable and syllable_ipa).
bool pinyin_word_pronunciation(const std::string &pinyin, std::u16string &out);

// The pronunciation string of syllables as they stand (no sandhi).
// Contract: false, with `out` empty, when the list is empty or a spelling
// does not convert or a tone is outside 1-5.
bool syllables_pronunciation(const std::vector<WordSyllable> &syllables, std::u16string &out);

}  // namespace utts::mandarin

#endif  // UTILS_UTTS_MANDARIN_PRONUNCIATION_H
