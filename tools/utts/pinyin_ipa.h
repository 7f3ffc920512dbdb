// pinyin_ipa.h - one pinyin syllable to IPA phones, after the table in
// data/pinyin_ipa.table (built into the program).
#ifndef UTILS_UTTS_PINYIN_IPA_H
#define UTILS_UTTS_PINYIN_IPA_H

#include <cstddef>
#include <string>

namespace utts {

// The bundled pinyin-to-IPA table (data/pinyin_ipa.table).
extern const char kPinyinIpaTable[];
extern const std::size_t kPinyinIpaTableSize;

}  // namespace utts

namespace utts::mandarin {

// A pinyin syllable taken apart: toneless spelling (ASCII letters, ü as
// "ü" in UTF-8) and tone 1 to 4, or 5 for the neutral tone.
struct Syllable {
  std::string spelling;
  int tone = 5;
};

// Splits "zhong1", "lv4", "nu:3", "hao" (no digit: neutral) or "ma0" (0 is
// also neutral) into spelling and tone. Upper-case letters are lowered; v
// and u: become ü; ü and ê may also be written as such (UTF-8). False for an empty syllable, a
// digit other than 0-5, a digit that is not last, or any character that is not a letter.
bool split_syllable(const std::string &written, Syllable &out);

// The IPA of a toneless syllable (see split_syllable), without a tone
// digit: phones written together, each one base symbol of the IPA
// inventory followed by its diacritics. A trailing r other than in "er"
// marks erhua (huar, dianr). False, with `ipa` unchanged, when the spelling
// is not a syllable of Standard Mandarin that the table can write.
bool syllable_ipa(const std::string &spelling, std::string &ipa);

// What is wrong with the bundled table, for its tests: the 1-based numbers
// of the lines that do not load and the erhua symbols it lacks; empty when
// every line loads.
const std::string &pinyin_table_errors();

// The same for a table given as text (for tests of the loader).
std::string pinyin_table_errors_of(const std::string &text);

}  // namespace utts::mandarin

#endif  // UTILS_UTTS_PINYIN_IPA_H
