// English readers for the elements of the bundled rule set and for say-as:
// each turns a written form into words.
#include "utts/english_readers.h"

#include <cstring>
#include <vector>

#include "utts/english_numbers.h"
#include "utts/english_tables.h"

namespace utts {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string lowered(std::string s) {
  for (char &c : s) c = lower(c);
  return s;
}

std::string trimmed(const std::string &s) {
  size_t from = s.find_first_not_of(" \t\r\n");
  if (from == std::string::npos) return std::string();
  return s.substr(from, s.find_last_not_of(" \t\r\n") - from + 1);
}

// The runs of digits in `text`, in order.
std::vector<std::string> digitRuns(const std::string &text) {
  std::vector<std::string> runs;
  for (size_t i = 0; i < text.size();) {
    if (!isDigit(text[i])) {
      ++i;
      continue;
    }
    size_t j = i;
    while (j < text.size() && isDigit(text[j])) ++j;
    runs.push_back(text.substr(i, j - i));
    i = j;
  }
  return runs;
}

// Length of the written number at the start of `text` (sign, digits, group
// commas, one decimal point followed by digits).
size_t numberLength(const std::string &text) {
  size_t i = 0;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  size_t digitsFrom = i;
  while (i < text.size() && (isDigit(text[i]) || (text[i] == ',' && i + 1 < text.size() &&
                                                   isDigit(text[i + 1]) && i > digitsFrom)))
    ++i;
  if (i + 1 < text.size() && text[i] == '.' && isDigit(text[i + 1])) {
    ++i;
    while (i < text.size() && isDigit(text[i])) ++i;
  }
  return i;
}

// True when a written number reads as exactly one (for singular units).
bool isOne(const std::string &number) { return number == "1" || number == "+1"; }

std::string pluralOf(const std::string &word) {
  if (!word.empty() && word.back() == 'y') return word.substr(0, word.size() - 1) + "ies";
  return word + "s";
}

// "November twenty-first, twenty twenty-six"; day 0 or an empty year leave
// that part out.
bool sayDate(long month, long day, const std::string &year, std::string &out) {
  if (month < 1 || month > 12 || day < 0 || day > 31) return false;
  std::string words;
  addWord(words, kMonthNames[month - 1]);
  if (day > 0) sayOrdinal(std::to_string(day), words);
  if (!year.empty()) {
    if (day > 0) words += ',';
    if (!sayYear(year, words)) return false;
  }
  addWord(out, words);
  return true;
}

// Month number from an English name or abbreviation ("Nov", "Sept."), or 0.
long monthOf(const std::string &word) {
  std::string w = lowered(word);
  if (!w.empty() && w.back() == '.') w.pop_back();
  if (w.size() < 3) return 0;
  for (long m = 0; m < 12; ++m) {
    std::string name = lowered(kMonthNames[m]);
    if (w == name || w == name.substr(0, 3) || (m == 8 && w == "sept")) return m + 1;
  }
  return 0;
}

// Adapts a string reader to the converter's callback shape.
template <bool (*Reader)(const std::string &, std::string &)>
int callback(const char *text, CStr *out) {
  if (text == nullptr) return 1;
  std::string words;
  if (!Reader(trimmed(text), words)) return 1;
  return CStrAppend(out, words.c_str());
}

bool readCardinal(const std::string &text, std::string &out) { return sayNumber(text.c_str(), out); }

bool readOrdinal(const std::string &text, std::string &out) {
  std::string digits;
  for (char c : text)
    if (isDigit(c)) digits += c;
  return sayOrdinal(digits, out);
}

bool readPercent(const std::string &text, std::string &out) {
  std::string number = trimmed(text.substr(0, text.find('%')));
  if (!sayNumber(number.c_str(), out)) return false;
  addWord(out, "percent");
  return true;
}

bool readYearText(const std::string &text, std::string &out) { return sayYear(text, out); }

bool readDecade(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digitRuns(text);
  if (runs.size() != 1) return false;
  std::string year;
  if (!sayYear(runs[0], year)) return false;
  size_t cut = year.find_last_of(" -");
  size_t start = cut == std::string::npos ? 0 : cut + 1;
  addWord(out, year.substr(0, start) + pluralOf(year.substr(start)));
  return true;
}

bool readFraction(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digitRuns(text);
  if (runs.size() != 2) return false;
  long numerator = digitValue(runs[0]), denominator = digitValue(runs[1]);
  if (numerator < 0 || denominator < 2) return false;
  sayCardinal(runs[0], out);
  std::string unit;
  if (denominator == 2)
    unit = numerator == 1 ? "half" : "halves";
  else if (denominator == 4)
    unit = numerator == 1 ? "quarter" : "quarters";
  else {
    sayOrdinal(runs[1], unit);
    if (numerator != 1) unit += "s";
  }
  addWord(out, unit);
  return true;
}

bool readAbbreviation(const std::string &text, std::string &out) {
  for (const Expansion *e = kAbbreviations; e->written != nullptr; ++e) {
    if (text == e->written) {
      addWord(out, e->spoken);
      return true;
    }
  }
  return false;
}

bool readDateYmd(const std::string &text, std::string &out) { return readDate(text, "ymd", out); }
bool readDateMdy(const std::string &text, std::string &out) { return readDate(text, "mdy", out); }

const ReaderEntry kReaders[] = {
    {"xcardinal", callback<readCardinal>},
    {"xordinal", callback<readOrdinal>},
    {"xpercent", callback<readPercent>},
    {"xmoney", callback<readMoney>},
    {"xdate-ymd", callback<readDateYmd>},
    {"xdate-mdy", callback<readDateMdy>},
    {"xdate-month", callback<readMonthDate>},
    {"xtime", callback<readTime>},
    {"xtel", callback<readTelephone>},
    {"xmeasure", callback<readMeasure>},
    {"xyear", callback<readYearText>},
    {"xdecade", callback<readDecade>},
    {"xfraction", callback<readFraction>},
    {"xabbr", callback<readAbbreviation>},
    {nullptr, nullptr},
};

}  // namespace

const ReaderEntry *englishReaders() { return kReaders; }

bool readMoney(const std::string &text, std::string &out) {
  // The symbol stands before the amount ($5) or, as in much of Europe, after it (5 €).
  const Currency *currency = nullptr;
  std::string rest;
  for (const Currency *c = kCurrencies; c->symbol != nullptr && currency == nullptr; ++c) {
    const size_t n = std::strlen(c->symbol);
    if (text.compare(0, n, c->symbol) == 0) {
      currency = c;
      rest = trimmed(text.substr(n));
    } else if (text.size() > n && text.compare(text.size() - n, n, c->symbol) == 0) {
      currency = c;
      rest = trimmed(text.substr(0, text.size() - n));
    }
  }
  if (currency == nullptr) return false;
  size_t length = numberLength(rest);
  std::string number = rest.substr(0, length), scale = trimmed(rest.substr(length));
  std::string words;
  if (!scale.empty()) {
    // "$3.5 million": the scale word follows the number as written.
    const std::string word = lowered(scale);
    if (word != "thousand" && word != "million" && word != "billion" && word != "trillion") return false;
    if (!sayNumber(number.c_str(), words)) return false;
    addWord(words, word);
    addWord(words, currency->majorPlural);
  } else {
    size_t point = number.find('.');
    std::string whole = point == std::string::npos ? number : number.substr(0, point);
    std::string cents = point == std::string::npos ? "" : number.substr(point + 1);
    std::string wholeDigits;
    for (char c : whole)
      if (isDigit(c)) wholeDigits += c;
    if (cents.size() == 1) cents += '0';
    if (cents.size() > 2 || currency->minor == nullptr) {
      if (!sayNumber(number.c_str(), words)) return false;
      addWord(words, isOne(number) ? currency->major : currency->majorPlural);
    } else {
      if (wholeDigits.empty() && cents.empty()) return false;
      long centValue = cents.empty() ? 0 : digitValue(cents);
      bool noWhole = wholeDigits.empty() || wholeDigits.find_first_not_of('0') == std::string::npos;
      if (!noWhole || centValue == 0) {
        sayCardinal(wholeDigits.empty() ? "0" : wholeDigits, words);
        addWord(words, isOne(wholeDigits) ? currency->major : currency->majorPlural);
      }
      if (centValue > 0) {
        if (!noWhole) addWord(words, "and");
        sayCardinal(cents, words);
        addWord(words, centValue == 1 ? currency->minor : currency->minorPlural);
      }
    }
  }
  addWord(out, words);
  return true;
}

bool readDate(const std::string &text, const std::string &format, std::string &out) {
  std::vector<std::string> runs = digitRuns(text);
  if (format.empty() || runs.size() != format.size()) return false;
  long month = 0, day = 0;
  std::string year;
  for (size_t i = 0; i < format.size(); ++i) {
    switch (lower(format[i])) {
      case 'y': year = runs[i]; break;
      case 'm': month = digitValue(runs[i]); break;
      case 'd': day = digitValue(runs[i]); break;
      default: return false;
    }
  }
  if (month == 0) {
    // A year alone, or a day with no month, has no date reading.
    if (day != 0 || year.empty()) return false;
    return sayYear(year, out);
  }
  return sayDate(month, day, year, out);
}

bool readMonthDate(const std::string &text, std::string &out) {
  size_t space = text.find_first_of(" \t");
  if (space == std::string::npos) return false;
  long month = monthOf(text.substr(0, space));
  std::vector<std::string> runs = digitRuns(text.substr(space));
  if (month == 0 || runs.empty() || runs.size() > 2) return false;
  long day = digitValue(runs[0]);
  if (day < 1) return false;
  return sayDate(month, day, runs.size() == 2 ? runs[1] : std::string(), out);
}

bool readTime(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digitRuns(text);
  if (runs.empty() || runs.size() > 3) return false;
  long hour = digitValue(runs[0]);
  long minute = runs.size() > 1 ? digitValue(runs[1]) : 0;
  long second = runs.size() > 2 ? digitValue(runs[2]) : 0;
  if (hour < 0 || hour > 24 || minute < 0 || minute > 59 || second < 0 || second > 59) return false;
  std::string letters;
  for (char c : text)
    if (isAlpha(c)) letters += lower(c);
  if (!letters.empty() && letters != "am" && letters != "pm") return false;
  std::string words;
  sayCardinal(runs[0], words);
  if (minute == 0 && letters.empty()) {
    addWord(words, "o'clock");
  }
  else if (minute > 0 && minute < 10) {
    addWord(words, "oh");
    sayCardinal(runs[1], words);
  }
  else if (minute >= 10) {
    sayCardinal(runs[1], words);
  }
  if (second > 0) {
    addWord(words, "and");
    sayCardinal(runs[2], words);
    addWord(words, second == 1 ? "second" : "seconds");
  }
  if (!letters.empty()) addWord(words, letters == "am" ? "a m" : "p m");
  addWord(out, words);
  return true;
}

bool readTelephone(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digitRuns(text);
  if (runs.empty()) return false;
  std::string words;
  if (trimmed(text)[0] == '+') addWord(words, "plus");
  for (size_t i = 0; i < runs.size(); ++i) {
    if (i > 0) words += ',';
    sayDigits(runs[i], words);
  }
  addWord(out, words);
  return true;
}

bool readMeasure(const std::string &text, std::string &out) {
  size_t length = numberLength(text);
  std::string number = text.substr(0, length), unit = trimmed(text.substr(length));
  for (const Unit *u = kUnits; u->symbol != nullptr; ++u) {
    if (unit != u->symbol) continue;
    if (!sayNumber(number.c_str(), out)) return false;
    addWord(out, isOne(number) ? u->singular : u->plural);
    return true;
  }
  return false;
}

bool readCharacters(const std::string &text, std::string &out) {
  bool any = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    any = true;
    if (static_cast<unsigned char>(c) >= 0x80) {
      // A character outside ASCII is named by itself, all its bytes together.
      size_t end = i + 1;
      while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
      addWord(out, text.substr(i, end - i));
      i = end - 1;
    } else if (isDigit(c)) {
      sayDigits(std::string(1, c), out);
    } else if (isAlpha(c)) {
      addWord(out, std::string(1, static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c)));
    } else {
      const char *name = symbolName(c);
      addWord(out, name != nullptr ? std::string(name) : std::string(1, c));
    }
  }
  return any;
}

int readSayAs(const char *text, CStr *out, const char *interpret_as, const char *format,
              const char *) {
  if (text == nullptr || interpret_as == nullptr) return 1;
  const std::string kind = lowered(interpret_as), written = trimmed(text);
  std::string words;
  bool ok = false;
  if (kind == "cardinal" || kind == "number")
    ok = readCardinal(written, words);
  else if (kind == "ordinal")
    ok = readOrdinal(written, words);
  else if (kind == "digits")
    ok = sayDigits(written, words);
  else if (kind == "characters" || kind == "spell-out" || kind == "letters")
    ok = readCharacters(written, words);
  else if (kind == "telephone")
    ok = readTelephone(written, words);
  else if (kind == "date")
    ok = readDate(written, format != nullptr ? lowered(format) : "mdy", words);
  else if (kind == "time")
    ok = readTime(written, words);
  if (!ok) return 1;
  return CStrAppend(out, words.c_str());
}

}  // namespace utts
