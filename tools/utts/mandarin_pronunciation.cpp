// mandarin_pronunciation.cpp - runs of Han, Latin and digits, and the
// pronunciation strings of Mandarin words.
#include "utts/mandarin_pronunciation.h"

#include "utts/pinyin_ipa.h"
#include "utts/pinyin_readings.h"

namespace utts::mandarin {

namespace {

constexpr char32_t kYi = 0x4E00;       // 一
constexpr char32_t kBu = 0x4E0D;       // 不
constexpr char32_t kOrdinal = 0x7B2C;  // 第

bool is_high_surrogate(char16_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool is_low_surrogate(char16_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

// The character at unit `at` and the number of units it takes; a lone
// surrogate is returned as itself, one unit long.
char32_t char_at(const bsr_wchar *text, std::size_t length, std::size_t at, std::size_t &units) {
  const char16_t u = text[at];
  if (is_high_surrogate(u) && at + 1 < length && is_low_surrogate(text[at + 1])) {
    units = 2;
    return 0x10000 + ((static_cast<char32_t>(u) - 0xD800) << 10) + (text[at + 1] - 0xDC00);
  }
  units = 1;
  return u;
}

bool is_latin_letter(char32_t c) { return kind_of(c) == RunKind::kLatin; }
bool is_apostrophe(char32_t c) { return c == 0x27 || c == 0x2019; }

// Characters that write a numeral: after them, and before them, 一 keeps
// its first tone (十一, 一九九八). 百, 千, 万 and 亿 are not among them:
// 一百 and 一万 take the sandhi.
bool is_numeral_character(char32_t c) {
  switch (c) {
    case 0x96F6:  // 零
    case 0x3007:  // 〇
    case 0x4E00:  // 一
    case 0x4E8C:  // 二
    case 0x4E09:  // 三
    case 0x56DB:  // 四
    case 0x4E94:  // 五
    case 0x516D:  // 六
    case 0x4E03:  // 七
    case 0x516B:  // 八
    case 0x4E5D:  // 九
    case 0x5341:  // 十
    case 0x5E7A:  // 幺
      return true;
    default:
      return false;
  }
}

void append_utf16(std::u16string &out, const std::string &utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    const auto b = static_cast<unsigned char>(utf8[i]);
    const std::size_t n = b < 0x80 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
    char32_t c = n == 1 ? b : b & (0x7F >> n);
    for (std::size_t k = 1; k < n && i + k < utf8.size(); ++k) c = (c << 6) | (utf8[i + k] & 0x3F);
    i += n;
    if (c >= 0x10000) {
      out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      out += static_cast<char16_t>(c);
    }
  }
}

}  // namespace

RunKind kind_of(char32_t c) {
  if (c >= '0' && c <= '9') return RunKind::kDigits;
  if (c >= 0xFF10 && c <= 0xFF19) return RunKind::kDigits;
  if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) return RunKind::kLatin;
  // Latin-1 letters (not the signs × and ÷), Latin Extended-A and -B, IPA
  // extensions are left out, Latin Extended Additional, full-width letters.
  if (c >= 0xC0 && c <= 0x24F && c != 0xD7 && c != 0xF7) return RunKind::kLatin;
  if (c >= 0x1E00 && c <= 0x1EFF) return RunKind::kLatin;
  if ((c >= 0xFF21 && c <= 0xFF3A) || (c >= 0xFF41 && c <= 0xFF5A)) return RunKind::kLatin;
  if (c == 0x3007) return RunKind::kHan;
  if (c >= 0x3400 && c <= 0x4DBF) return RunKind::kHan;
  if (c >= 0x4E00 && c <= 0x9FFF) return RunKind::kHan;
  if (c >= 0xF900 && c <= 0xFAFF) return RunKind::kHan;
  // Planes 2 and 3 are the ideographic planes: extensions B to H and the
  // compatibility supplement.
  if (c >= 0x20000 && c <= 0x3FFFD) return RunKind::kHan;
  return RunKind::kOther;
}

bool next_run(const bsr_wchar *text, std::size_t length, std::size_t from, TextRun &run) {
  if (text == nullptr || from >= length) return false;
  std::size_t units = 0;
  const RunKind kind = kind_of(char_at(text, length, from, units));
  std::size_t end = from + units;
  while (end < length) {
    const char32_t c = char_at(text, length, end, units);
    if (kind_of(c) == kind) {
      end += units;
      continue;
    }
    // An apostrophe between two letters stays in the Latin word.
    if (kind == RunKind::kLatin && is_apostrophe(c) && end + units < length) {
      std::size_t next_units = 0;
      if (is_latin_letter(char_at(text, length, end + units, next_units))) {
        end += units + next_units;
        continue;
      }
    }
    break;
  }
  run.kind = kind;
  run.begin = from;
  run.end = end;
  return true;
}

void apply_tone_sandhi(std::vector<WordSyllable> &syllables) {
  const std::size_t n = syllables.size();
  std::vector<int> read(n);
  for (std::size_t i = 0; i < n; ++i) read[i] = syllables[i].tone;
  for (std::size_t i = 0; i + 1 < n; ++i) {
    WordSyllable &s = syllables[i];
    const int next = read[i + 1];
    if (s.character == kYi && read[i] == 1) {
      const bool citation = (i > 0 && (syllables[i - 1].character == kOrdinal ||
                                       is_numeral_character(syllables[i - 1].character))) ||
                            is_numeral_character(syllables[i + 1].character);
      if (!citation) s.tone = next == 4 || next == 5 ? 2 : 4;
    } else if (s.character == kBu && read[i] == 4) {
      if (next == 4) s.tone = 2;
    } else if (read[i] == 3 && next == 3) {
      s.tone = 2;
    }
  }
}

bool syllables_pronunciation(const std::vector<WordSyllable> &syllables, std::u16string &out) {
  out.clear();
  std::string text;
  for (const WordSyllable &s : syllables) {
    std::string ipa;
    if (s.tone < 1 || s.tone > 5 || !syllable_ipa(s.spelling, ipa)) return false;
    if (!text.empty()) text += '.';
    text += ipa;
    text += static_cast<char>('0' + s.tone);
  }
  if (text.empty()) return false;
  append_utf16(out, text);
  return true;
}

bool han_word_pronunciation(const bsr_wchar *word, std::size_t length, std::u16string &out,
                            std::size_t *failed_at) {
  out.clear();
  if (failed_at != nullptr) *failed_at = 0;
  if (word == nullptr || length == 0) return false;
  std::vector<WordSyllable> syllables;
  for (std::size_t at = 0, units = 0; at < length; at += units) {
    const char32_t c = char_at(word, length, at, units);
    Reading reading{};
    if (kind_of(c) != RunKind::kHan || !character_reading(c, reading)) {
      if (failed_at != nullptr) *failed_at = at;
      return false;
    }
    syllables.push_back({c, reading.spelling, reading.tone});
  }
  apply_tone_sandhi(syllables);
  return syllables_pronunciation(syllables, out);
}

bool pinyin_word_pronunciation(const std::string &pinyin, std::u16string &out) {
  out.clear();
  std::vector<WordSyllable> syllables;
  for (std::size_t i = 0; i < pinyin.size();) {
    const std::size_t end = pinyin.find_first_of(" \t'", i);
    std::string token = pinyin.substr(i, end == std::string::npos ? std::string::npos : end - i);
    i = end == std::string::npos ? pinyin.size() : end + 1;
    if (token.empty()) continue;
    // "hua1r": erhua written after the tone digit.
    if (token.size() > 2 && token.back() == 'r' && token[token.size() - 2] >= '0' &&
        token[token.size() - 2] <= '9')
      token = token.substr(0, token.size() - 2) + 'r' + token[token.size() - 2];
    Syllable s;
    if (!split_syllable(token, s)) return false;
    syllables.push_back({0, s.spelling, s.tone});
  }
  if (syllables.empty()) return false;
  apply_tone_sandhi(syllables);
  return syllables_pronunciation(syllables, out);
}

}  // namespace utts::mandarin
