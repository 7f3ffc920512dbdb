// english_readers.cpp - English readers for the elements of the bundled rule
// set and for say-as: each turns a written form into words.
#include "utts/english_readers.h"

#include <cstring>
#include <vector>

#include "utts/english_numbers.h"
#include "utts/english_tables.h"

namespace utts {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_alpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
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
std::vector<std::string> digit_runs(const std::string &text) {
  std::vector<std::string> runs;
  for (size_t i = 0; i < text.size();) {
    if (!is_digit(text[i])) {
      ++i;
      continue;
    }
    size_t j = i;
    while (j < text.size() && is_digit(text[j])) ++j;
    runs.push_back(text.substr(i, j - i));
    i = j;
  }
  return runs;
}

// Length of the written number at the start of `text` (sign, digits, group
// commas, one decimal point followed by digits).
size_t number_length(const std::string &text) {
  size_t i = 0;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  size_t digits_from = i;
  while (i < text.size() && (is_digit(text[i]) || (text[i] == ',' && i + 1 < text.size() &&
                                                   is_digit(text[i + 1]) && i > digits_from)))
    ++i;
  if (i + 1 < text.size() && text[i] == '.' && is_digit(text[i + 1])) {
    ++i;
    while (i < text.size() && is_digit(text[i])) ++i;
  }
  return i;
}

// True when a written number reads as exactly one (for singular units).
bool is_one(const std::string &number) { return number == "1" || number == "+1"; }

std::string plural_of(const std::string &word) {
  if (!word.empty() && word.back() == 'y') return word.substr(0, word.size() - 1) + "ies";
  return word + "s";
}

// "November twenty-first, twenty twenty-six"; day 0 or an empty year leave
// that part out.
bool say_date(long month, long day, const std::string &year, std::string &out) {
  if (month < 1 || month > 12 || day < 0 || day > 31) return false;
  std::string words;
  add_word(words, kMonthNames[month - 1]);
  if (day > 0) say_ordinal(std::to_string(day), words);
  if (!year.empty()) {
    if (day > 0) words += ',';
    if (!say_year(year, words)) return false;
  }
  add_word(out, words);
  return true;
}

// Month number from an English name or abbreviation ("Nov", "Sept."), or 0.
long month_of(const std::string &word) {
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

bool read_cardinal(const std::string &text, std::string &out) {
  return say_number(text.c_str(), out);
}

bool read_ordinal(const std::string &text, std::string &out) {
  std::string digits;
  for (char c : text)
    if (is_digit(c)) digits += c;
  return say_ordinal(digits, out);
}

bool read_percent(const std::string &text, std::string &out) {
  std::string number = trimmed(text.substr(0, text.find('%')));
  if (!say_number(number.c_str(), out)) return false;
  add_word(out, "percent");
  return true;
}

bool read_year_text(const std::string &text, std::string &out) { return say_year(text, out); }

bool read_decade(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.size() != 1) return false;
  std::string year;
  if (!say_year(runs[0], year)) return false;
  size_t cut = year.find_last_of(" -");
  size_t start = cut == std::string::npos ? 0 : cut + 1;
  add_word(out, year.substr(0, start) + plural_of(year.substr(start)));
  return true;
}

bool read_fraction(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.size() != 2) return false;
  long numerator = digit_value(runs[0]), denominator = digit_value(runs[1]);
  if (numerator < 0 || denominator < 2) return false;
  say_cardinal(runs[0], out);
  std::string unit;
  if (denominator == 2)
    unit = numerator == 1 ? "half" : "halves";
  else if (denominator == 4)
    unit = numerator == 1 ? "quarter" : "quarters";
  else {
    say_ordinal(runs[1], unit);
    if (numerator != 1) unit += "s";
  }
  add_word(out, unit);
  return true;
}

bool read_abbreviation(const std::string &text, std::string &out) {
  for (const Expansion *e = kAbbreviations; e->written != nullptr; ++e) {
    if (text == e->written) {
      add_word(out, e->spoken);
      return true;
    }
  }
  return false;
}

bool read_date_ymd(const std::string &text, std::string &out) {
  return read_date(text, "ymd", out);
}
bool read_date_mdy(const std::string &text, std::string &out) {
  return read_date(text, "mdy", out);
}

const ReaderEntry kReaders[] = {
    {"xcardinal", callback<read_cardinal>},
    {"xordinal", callback<read_ordinal>},
    {"xpercent", callback<read_percent>},
    {"xmoney", callback<read_money>},
    {"xdate-ymd", callback<read_date_ymd>},
    {"xdate-mdy", callback<read_date_mdy>},
    {"xdate-month", callback<read_month_date>},
    {"xtime", callback<read_time>},
    {"xtel", callback<read_telephone>},
    {"xmeasure", callback<read_measure>},
    {"xyear", callback<read_year_text>},
    {"xdecade", callback<read_decade>},
    {"xfraction", callback<read_fraction>},
    {"xabbr", callback<read_abbreviation>},
    {nullptr, nullptr},
};

}  // namespace

const ReaderEntry *english_readers() { return kReaders; }

bool read_money(const std::string &text, std::string &out) {
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
  size_t length = number_length(rest);
  std::string number = rest.substr(0, length), scale = trimmed(rest.substr(length));
  std::string words;
  if (!scale.empty()) {
    // "$3.5 million": the scale word follows the number as written.
    const std::string word = lowered(scale);
    if (word != "thousand" && word != "million" && word != "billion" && word != "trillion")
      return false;
    if (!say_number(number.c_str(), words)) return false;
    add_word(words, word);
    add_word(words, currency->major_plural);
  } else {
    size_t point = number.find('.');
    std::string whole = point == std::string::npos ? number : number.substr(0, point);
    std::string cents = point == std::string::npos ? "" : number.substr(point + 1);
    std::string whole_digits;
    for (char c : whole)
      if (is_digit(c)) whole_digits += c;
    if (cents.size() == 1) cents += '0';
    if (cents.size() > 2 || currency->minor == nullptr) {
      if (!say_number(number.c_str(), words)) return false;
      add_word(words, is_one(number) ? currency->major : currency->major_plural);
    } else {
      if (whole_digits.empty() && cents.empty()) return false;
      long cent_value = cents.empty() ? 0 : digit_value(cents);
      bool no_whole =
          whole_digits.empty() || whole_digits.find_first_not_of('0') == std::string::npos;
      if (!no_whole || cent_value == 0) {
        say_cardinal(whole_digits.empty() ? "0" : whole_digits, words);
        add_word(words, is_one(whole_digits) ? currency->major : currency->major_plural);
      }
      if (cent_value > 0) {
        if (!no_whole) add_word(words, "and");
        say_cardinal(cents, words);
        add_word(words, cent_value == 1 ? currency->minor : currency->minor_plural);
      }
    }
  }
  add_word(out, words);
  return true;
}

bool read_date(const std::string &text, const std::string &format, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (format.empty() || runs.size() != format.size()) return false;
  long month = 0, day = 0;
  std::string year;
  for (size_t i = 0; i < format.size(); ++i) {
    switch (lower(format[i])) {
      case 'y':
        year = runs[i];
        break;
      case 'm':
        month = digit_value(runs[i]);
        break;
      case 'd':
        day = digit_value(runs[i]);
        break;
      default:
        return false;
    }
  }
  if (month == 0) {
    // A year alone, or a day with no month, has no date reading.
    if (day != 0 || year.empty()) return false;
    return say_year(year, out);
  }
  return say_date(month, day, year, out);
}

bool read_month_date(const std::string &text, std::string &out) {
  size_t space = text.find_first_of(" \t");
  if (space == std::string::npos) return false;
  long month = month_of(text.substr(0, space));
  std::vector<std::string> runs = digit_runs(text.substr(space));
  if (month == 0 || runs.empty() || runs.size() > 2) return false;
  long day = digit_value(runs[0]);
  if (day < 1) return false;
  return say_date(month, day, runs.size() == 2 ? runs[1] : std::string(), out);
}

bool read_time(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.empty() || runs.size() > 3) return false;
  long hour = digit_value(runs[0]);
  long minute = runs.size() > 1 ? digit_value(runs[1]) : 0;
  long second = runs.size() > 2 ? digit_value(runs[2]) : 0;
  if (hour < 0 || hour > 24 || minute < 0 || minute > 59 || second < 0 || second > 59) return false;
  std::string letters;
  for (char c : text)
    if (is_alpha(c)) letters += lower(c);
  if (!letters.empty() && letters != "am" && letters != "pm") return false;
  std::string words;
  say_cardinal(runs[0], words);
  if (minute == 0 && letters.empty()) {
    add_word(words, "o'clock");
  } else if (minute > 0 && minute < 10) {
    add_word(words, "oh");
    say_cardinal(runs[1], words);
  } else if (minute >= 10) {
    say_cardinal(runs[1], words);
  }
  if (second > 0) {
    add_word(words, "and");
    say_cardinal(runs[2], words);
    add_word(words, second == 1 ? "second" : "seconds");
  }
  if (!letters.empty()) add_word(words, letters == "am" ? "a m" : "p m");
  add_word(out, words);
  return true;
}

bool read_telephone(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.empty()) return false;
  std::string words;
  if (trimmed(text)[0] == '+') add_word(words, "plus");
  for (size_t i = 0; i < runs.size(); ++i) {
    if (i > 0) words += ',';
    say_digits(runs[i], words);
  }
  add_word(out, words);
  return true;
}

bool read_measure(const std::string &text, std::string &out) {
  size_t length = number_length(text);
  std::string number = text.substr(0, length), unit = trimmed(text.substr(length));
  for (const Unit *u = kUnits; u->symbol != nullptr; ++u) {
    if (unit != u->symbol) continue;
    if (!say_number(number.c_str(), out)) return false;
    add_word(out, is_one(number) ? u->singular : u->plural);
    return true;
  }
  return false;
}

bool read_characters(const std::string &text, std::string &out) {
  bool any = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    any = true;
    if (static_cast<unsigned char>(c) >= 0x80) {
      // A character outside ASCII is named by itself, all its bytes together.
      size_t end = i + 1;
      while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
      add_word(out, text.substr(i, end - i));
      i = end - 1;
    } else if (is_digit(c)) {
      say_digits(std::string(1, c), out);
    } else if (is_alpha(c)) {
      add_word(out, std::string(1, static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c)));
    } else {
      const char *name = symbol_name(c);
      add_word(out, name != nullptr ? std::string(name) : std::string(1, c));
    }
  }
  return any;
}

int read_say_as(const char *text, CStr *out, const char *interpret_as, const char *format,
                const char *) {
  if (text == nullptr || interpret_as == nullptr) return 1;
  const std::string kind = lowered(interpret_as), written = trimmed(text);
  std::string words;
  bool ok = false;
  if (kind == "cardinal" || kind == "number")
    ok = read_cardinal(written, words);
  else if (kind == "ordinal")
    ok = read_ordinal(written, words);
  else if (kind == "digits")
    ok = say_digits(written, words);
  else if (kind == "characters" || kind == "spell-out" || kind == "letters")
    ok = read_characters(written, words);
  else if (kind == "telephone")
    ok = read_telephone(written, words);
  else if (kind == "date")
    ok = read_date(written, format != nullptr ? lowered(format) : "mdy", words);
  else if (kind == "time")
    ok = read_time(written, words);
  if (!ok) return 1;
  return CStrAppend(out, words.c_str());
}

}  // namespace utts
