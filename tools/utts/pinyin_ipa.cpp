// pinyin_ipa.cpp - pinyin syllables to IPA: the spelling rules of pinyin in
// code, the sounds in the bundled table.
#include "utts/pinyin_ipa.h"

#include <cstdint>
#include <map>
#include <vector>

#include "ipa_phoneme.h"

namespace utts::mandarin {

namespace {

const char kUmlaut[] = "\xC3\xBC";       // ü
const char kCircumflexE[] = "\xC3\xAA";  // ê

// The table as loaded: pinyin to IPA per kind, and the erhua symbols.
struct PinyinTable {
  std::map<std::string, std::string> initials;
  std::map<std::string, std::string> finals;
  std::string hook, nasal, vowel;
  std::string errors;
};

std::vector<std::string> fields_of(const std::string &line) {
  std::vector<std::string> fields;
  for (std::size_t i = 0; i < line.size();) {
    if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
      ++i;
      continue;
    }
    std::size_t j = line.find_first_of(" \t\r", i);
    if (j == std::string::npos) j = line.size();
    fields.push_back(line.substr(i, j - i));
    i = j;
  }
  return fields;
}

PinyinTable load_table(const std::string &text) {
  PinyinTable table;
  int number = 0;
  for (std::size_t start = 0; start < text.size();) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    const std::string line = text.substr(start, end - start);
    start = end + 1;
    ++number;
    const std::vector<std::string> f = fields_of(line);
    if (f.empty() || f[0][0] == '#') continue;
    bool ok = f.size() == 3;
    if (ok && f[0] == "initial") {
      ok = table.initials.emplace(f[1], f[2]).second;
    } else if (ok && f[0] == "final") {
      ok = table.finals.emplace(f[1], f[2]).second;
    } else if (ok && f[0] == "erhua") {
      std::string *into = f[1] == "hook"    ? &table.hook
                          : f[1] == "nasal" ? &table.nasal
                          : f[1] == "vowel" ? &table.vowel
                                            : nullptr;
      ok = into != nullptr && into->empty();
      if (ok) *into = f[2];
    } else {
      ok = false;
    }
    if (!ok) table.errors += (table.errors.empty() ? "" : " ") + std::to_string(number);
  }
  const struct {
    const char *name;
    const std::string &symbol;
  } erhua[] = {{"hook", table.hook}, {"nasal", table.nasal}, {"vowel", table.vowel}};
  for (const auto &e : erhua) {
    if (e.symbol.empty())
      table.errors += (table.errors.empty() ? "no erhua " : " no erhua ") + std::string(e.name);
  }
  return table;
}

const PinyinTable &table() {
  static const PinyinTable loaded = load_table(std::string(kPinyinIpaTable, kPinyinIpaTableSize));
  return loaded;
}

// The code point at `at` in UTF-8 text and the length of its sequence; the
// table and the pinyin are our own, so only well-formed text arrives here.
std::uint32_t decode(const std::string &s, std::size_t at, std::size_t &length) {
  const auto b = static_cast<unsigned char>(s[at]);
  length = b < 0x80 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
  if (at + length > s.size()) {
    length = 1;
    return b;
  }
  std::uint32_t c = length == 1 ? b : b & (0x7F >> length);
  for (std::size_t i = 1; i < length; ++i) c = (c << 6) | (s[at + i] & 0x3F);
  return c;
}

// True when `c` starts a phone: a base symbol of the inventory.
bool starts_phone(std::uint32_t c) { return c != '#' && GetIPAPhonemeFeat(c) != nullptr; }

// The phones of an IPA string: each base symbol with the diacritics after it.
std::vector<std::string> phones_of(const std::string &ipa) {
  std::vector<std::string> phones;
  for (std::size_t at = 0, length = 0; at < ipa.size(); at += length) {
    const std::uint32_t c = decode(ipa, at, length);
    if (phones.empty() || starts_phone(c)) phones.emplace_back();
    phones.back() += ipa.substr(at, length);
  }
  return phones;
}

// The final after the spelling rules of pinyin, ready for the table.
std::string full_final(const std::string &initial, std::string rest) {
  const bool palatal = initial == "j" || initial == "q" || initial == "x";
  if (initial == "y") {
    // yi, yin, ying stand for i, in, ing; yu, yue, yuan, yun for the ü
    // finals; the rest for i plus the letters after y.
    if (rest.compare(0, 1, "i") == 0) return rest;
    if (rest.compare(0, 1, "u") == 0) return kUmlaut + rest.substr(1);
    if (rest == "ou") return "iou";
    return "i" + rest;
  }
  if (initial == "w") {
    if (rest == "u") return rest;
    if (rest == "ong") return "ueng";  // wong: an old spelling of weng
    if (rest == "ei") return "uei";
    if (rest == "en") return "uen";
    return "u" + rest;
  }
  if (palatal && rest.compare(0, 1, "u") == 0) rest = kUmlaut + rest.substr(1);
  if (!initial.empty()) {
    // The shortened finals iu, ui, un (ün keeps its letters).
    if (rest == "iu") return "iou";
    if (rest == "ui") return "uei";
    if (rest == "un") return "uen";
  }
  if (rest == "i" && (initial == "z" || initial == "c" || initial == "s")) return "i(z)";
  if (rest == "i" && (initial == "zh" || initial == "ch" || initial == "sh" || initial == "r"))
    return "i(zh)";
  if (rest == "o" && (initial == "b" || initial == "p" || initial == "m" || initial == "f"))
    return "o(b)";
  return rest;
}

// False for initial and final pairs that Mandarin does not have and that the
// table would still write: j, q, x only before i and ü, the ü finals only
// after n, l, j, q, x and the zero initial, the i finals not after the
// velars, the retroflexes and z, c, s, a plain o only alone and after l.
bool pair_allowed(const std::string &initial, const std::string &final_) {
  const bool palatal = initial == "j" || initial == "q" || initial == "x";
  const bool front = final_.compare(0, 1, "i") == 0 && final_.compare(0, 2, "i(") != 0;
  const bool rounded_front = final_.compare(0, 2, kUmlaut) == 0;
  if (palatal) return front || rounded_front;
  // A plain o stands alone (哦) and after l (咯); after b, p, m, f it is o(b).
  if (final_ == "o") return initial.empty() || initial == "l";
  if (rounded_front) return initial.empty() || initial == "n" || initial == "l";
  if (front)
    return !(initial == "g" || initial == "k" || initial == "h" || initial == "zh" ||
             initial == "ch" || initial == "sh" || initial == "r" || initial == "z" ||
             initial == "c" || initial == "s");
  return true;
}

// Makes the phones of a final rhotic (erhua).
void add_erhua(std::vector<std::string> &phones, const PinyinTable &t) {
  const std::string glide = "i\xCC\xAF";  // i̯
  const std::string &last = phones.back();
  if (phones.size() > 1 && (last == "n" || last == glide)) {
    phones.pop_back();
  } else if (phones.size() > 1 && last == "\xC5\x8B") {  // ŋ
    phones.pop_back();
    phones.back() += t.nasal;
  }
  std::string &end = phones.back();
  if (end == "\xC9\xA8" || end == "\xC9\xA8" + t.hook) {  // ɨ, ɨ˞
    end = t.vowel;
  } else if (end == "i" || end == "y" || end == "i" + t.nasal || end == "y" + t.nasal) {
    // A close front vowel stays and the rhotic vowel follows it, taking over
    // the nasalisation of a dropped ŋ (yingr).
    const bool nasal = end.size() > 1;
    end.resize(1);
    phones.push_back(nasal ? t.vowel + t.nasal : t.vowel);
  } else if (end != t.vowel) {
    end += t.hook;
  }
}

}  // namespace

bool split_syllable(const std::string &written, Syllable &out) {
  std::string spelling;
  int tone = 5;
  for (std::size_t i = 0; i < written.size(); ++i) {
    char c = written[i];
    if (c >= '0' && c <= '9') {
      if (i + 1 != written.size() || c > '5' || spelling.empty()) return false;
      tone = c == '0' ? 5 : c - '0';
    } else if (c >= 'A' && c <= 'Z') {
      spelling += static_cast<char>(c - 'A' + 'a');
    } else if (c == 'v' || c == 'V') {
      spelling += kUmlaut;
    } else if (c >= 'a' && c <= 'z') {
      if (c == 'u' && i + 1 < written.size() && written[i + 1] == ':') {
        spelling += kUmlaut;
        ++i;
      } else {
        spelling += c;
      }
    } else if (written.compare(i, 2, kUmlaut) == 0 || written.compare(i, 2, "\xC3\x9C") == 0) {
      spelling += kUmlaut;
      ++i;
    } else if (written.compare(i, 2, kCircumflexE) == 0 || written.compare(i, 2, "\xC3\x8A") == 0) {
      spelling += kCircumflexE;
      ++i;
    } else {
      return false;
    }
  }
  if (spelling.empty()) return false;
  out.spelling = spelling;
  out.tone = tone;
  return true;
}

bool syllable_ipa(const std::string &spelling, std::string &ipa) {
  const PinyinTable &t = table();
  std::string s = spelling;
  bool erhua = false;
  if (s.size() > 2 && s.back() == 'r') {
    erhua = true;
    s.pop_back();
  } else if (s == "r") {
    s = "er";  // 儿 written alone as a suffix syllable
  }

  // Syllabic nasals are whole syllables, after h in hm and hng.
  std::string initial, rest;
  if (s == "m" || s == "n" || s == "ng") {
    rest = s;
  } else if (s == "hm" || s == "hng") {
    initial = "h";
    rest = s.substr(1);
  } else {
    std::size_t length = 0;
    if (s.compare(0, 2, "zh") == 0 || s.compare(0, 2, "ch") == 0 || s.compare(0, 2, "sh") == 0)
      length = 2;
    else if (s.find_first_of("bpmfdtnlgkhjqxrzcsyw") == 0)
      length = 1;
    initial = s.substr(0, length);
    rest = s.substr(length);
    if (rest.empty()) return false;
    rest = full_final(initial, rest);
    if (initial == "y" || initial == "w") initial.clear();
    if (!pair_allowed(initial, rest)) return false;
  }

  std::string result;
  if (!initial.empty()) {
    auto found = t.initials.find(initial);
    if (found == t.initials.end()) return false;
    result = found->second;
  }
  auto found = t.finals.find(rest);
  if (found == t.finals.end()) return false;
  if (!erhua) {
    ipa = result + found->second;
    return true;
  }
  std::vector<std::string> phones = phones_of(found->second);
  if (phones.empty()) return false;
  add_erhua(phones, t);
  for (const std::string &phone : phones) result += phone;
  ipa = result;
  return true;
}

const std::string &pinyin_table_errors() { return table().errors; }

std::string pinyin_table_errors_of(const std::string &text) { return load_table(text).errors; }

}  // namespace utts::mandarin
