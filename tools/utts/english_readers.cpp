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
bool is_one(const std::string &number) { return number == "1" || number == "+1" || number == "-1"; }

std::string plural_of(const std::string &word) {
  if (!word.empty() && word.back() == 'y') return word.substr(0, word.size() - 1) + "ies";
  return word + "s";
}

bool starts_with(const std::string &text, const std::string &prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

bool ends_with(const std::string &text, const std::string &suffix) {
  return text.size() >= suffix.size() &&
         text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// The en dash, written between the two ends of a range like a hyphen.
const char kEnDash[] = "\xE2\x80\x93";

// Splits "2-3 mins", "5 to 10 km" or "12.5%" into the first number, the
// second number of a range (empty when there is none) and what follows.
// False when the text does not start with a number.
bool split_range(const std::string &text, std::string &first, std::string &second,
                 std::string &rest) {
  size_t length = number_length(text);
  if (length == 0 || (length == 1 && (text[0] == '-' || text[0] == '+'))) return false;
  first = text.substr(0, length);
  second.clear();
  size_t at = text.find_first_not_of(' ', length);
  if (at != std::string::npos) {
    size_t after = std::string::npos;
    if (text[at] == '-')
      after = at + 1;
    else if (text.compare(at, 3, kEnDash) == 0)
      after = at + 3;
    else if (text.compare(at, 3, "to ") == 0)
      after = at + 3;
    if (after != std::string::npos) {
      size_t from = text.find_first_not_of(' ', after);
      if (from == std::string::npos) from = text.size();
      size_t second_length = number_length(text.substr(from));
      // A sign alone is no second number ("5 - -").
      if (second_length > 0 && text.find_first_of("0123456789", from) < from + second_length) {
        second = text.substr(from, second_length);
        length = from + second_length;
      }
    }
  }
  rest = trimmed(text.substr(length));
  return true;
}

// "two", or "two to three" for a range.
bool say_range(const std::string &first, const std::string &second, std::string &out) {
  std::string words;
  if (!say_number(first.c_str(), words)) return false;
  if (!second.empty()) {
    add_word(words, "to");
    if (!say_number(second.c_str(), words)) return false;
  }
  add_word(out, words);
  return true;
}

// True when `last` closes a range of days after `day` (0: no range).
bool valid_days(long day, long last) { return last == 0 || (last > day && last <= 31); }

// "November twenty-first, twenty twenty-six": the month first, as written
// in "Nov. 21, 2026" and 11/21/2026. Day 0 or an empty year leave that part
// out; a last day makes a range ("July twenty-fifth to twenty-seventh").
bool say_date(long month, long day, const std::string &year, std::string &out, long last_day = 0) {
  if (month < 1 || month > 12 || day < 0 || day > 31 || !valid_days(day, last_day)) return false;
  std::string words;
  add_word(words, kMonthNames[month - 1]);
  if (day > 0) say_ordinal(std::to_string(day), words);
  if (last_day > 0) {
    add_word(words, "to");
    say_ordinal(std::to_string(last_day), words);
  }
  if (!year.empty()) {
    if (day > 0) words += ',';
    if (!say_year(year, words)) return false;
  }
  add_word(out, words);
  return true;
}

// "the twenty-first of November, twenty twenty-six": the day first, as
// written in "21 November 2026", "21.11.2026" and 2026-11-21.
bool say_date_day_first(long month, long day, const std::string &year, std::string &out,
                        long last_day = 0) {
  if (month < 1 || month > 12 || day < 1 || day > 31 || !valid_days(day, last_day)) return false;
  std::string words = "the";
  say_ordinal(std::to_string(day), words);
  if (last_day > 0) {
    add_word(words, "to the");
    say_ordinal(std::to_string(last_day), words);
  }
  add_word(words, "of");
  add_word(words, kMonthNames[month - 1]);
  if (!year.empty()) {
    words += ',';
    if (!say_year(year, words)) return false;
  }
  add_word(out, words);
  return true;
}

// Month number from an English name or abbreviation ("Nov", "Sept.",
// "SEPT"), or 0.
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

// The words and numbers of `text` split at everything else: "the 25th of
// July, 2012" gives the, 25th, of, July, 2012.
std::vector<std::string> tokens_of(const std::string &text) {
  std::vector<std::string> tokens;
  std::string token;
  for (char c : text) {
    if (is_digit(c) || is_alpha(c)) {
      token += c;
    } else if (!token.empty()) {
      tokens.push_back(token);
      token.clear();
    }
  }
  if (!token.empty()) tokens.push_back(token);
  return tokens;
}

// The leading digits of a token ("25th" -> "25").
std::string leading_digits(const std::string &token) {
  size_t n = 0;
  while (n < token.size() && is_digit(token[n])) ++n;
  return token.substr(0, n);
}

// What a reader says when the written form is not the date or time its
// rule took it for ("13/14/2020"): the numbers as cardinals, the words as
// they stand, so that nothing is left unread.
void say_loosely(const std::string &text, std::string &out) {
  for (const std::string &token : tokens_of(text)) {
    std::string digits = leading_digits(token);
    if (digits.empty())
      add_word(out, token);
    else if (digits.size() < token.size())
      say_ordinal(digits, out);
    else
      say_cardinal(digits, out);
  }
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

// Codes and long numbers without separators are read digit by digit ("007",
// "02139", "20260112345"); a long round number is still a quantity
// ("100000000": one hundred million), as nobody spells out its zeros.
bool read_digit_string(const std::string &text, std::string &out) {
  constexpr size_t kRoundZeros = 6;
  size_t zeros = text.size() - 1 - text.find_last_not_of('0');
  if (!text.empty() && text[0] != '0' && zeros >= kRoundZeros) return say_cardinal(text, out);
  return say_digits(text, out);
}

bool read_ordinal(const std::string &text, std::string &out) {
  std::string digits;
  for (char c : text)
    if (is_digit(c)) digits += c;
  return say_ordinal(digits, out);
}

bool read_percent(const std::string &text, std::string &out) {
  std::string first, second, rest;
  if (!split_range(trimmed(text), first, second, rest) || rest != "%") return false;
  if (!say_range(first, second, out)) return false;
  add_word(out, "percent");
  return true;
}

bool read_year_text(const std::string &text, std::string &out) { return say_year(text, out); }

// The word between the two years of a range: a dash reads "to".
bool read_range_word(const std::string &text, std::string &out) {
  if (text == "-" || text == kEnDash) {
    add_word(out, "to");
    return true;
  }
  if (text.empty() ||
      text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ") !=
          std::string::npos)
    return false;
  add_word(out, lowered(text));
  return true;
}

// "the 1980s", "'90s", "1990's".
bool read_decade(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.size() != 1 || (runs[0].size() != 2 && runs[0].size() != 4)) return false;
  std::string year;
  if (!say_year(runs[0], year)) return false;
  size_t cut = year.find_last_of(" -");
  size_t start = cut == std::string::npos ? 0 : cut + 1;
  add_word(out, year.substr(0, start) + plural_of(year.substr(start)));
  return true;
}

// "1/2": one half; "3/4": three quarters; "2 1/2": two and a half.
bool read_fraction(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.size() != 2 && runs.size() != 3) return false;
  const bool mixed = runs.size() == 3;
  const std::string &top = runs[runs.size() - 2], &bottom = runs.back();
  long numerator = digit_value(top), denominator = digit_value(bottom);
  if (numerator < 0 || denominator < 2) return false;
  std::string words;
  if (mixed) {
    if (!say_cardinal(runs[0], words)) return false;
    add_word(words, "and");
  }
  if (mixed && numerator == 1)
    add_word(words, "a");
  else
    say_cardinal(top, words);
  std::string unit;
  if (denominator == 2)
    unit = numerator == 1 ? "half" : "halves";
  else if (denominator == 4)
    unit = numerator == 1 ? "quarter" : "quarters";
  else {
    say_ordinal(bottom, unit);
    if (numerator != 1) unit += "s";
  }
  add_word(words, unit);
  add_word(out, words);
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

// A numeric date of three numbers. Year first (2016-07-03) is read month
// first; dots (15.01.2020) day first, as in European use; slashes and
// hyphens month first, as in American use, unless the first number cannot
// be a month (25/12/2020).
bool read_numeric_date(const std::string &text, std::string &out) {
  std::vector<std::string> runs = digit_runs(text);
  if (runs.size() != 3) return false;
  std::string format;
  if (runs[0].size() == 4) {
    format = "ymd";
  } else {
    const char separator = text[text.find_first_not_of("0123456789")];
    const long first = digit_value(runs[0]);
    format = separator == '.' || first > 12 ? "dmy" : "mdy";
  }
  if (read_date(text, format, out)) return true;
  say_loosely(text, out);
  return true;
}

const ReaderEntry kReaders[] = {
    {"xcardinal", callback<read_cardinal>},
    {"xdigits", callback<read_digit_string>},
    {"xordinal", callback<read_ordinal>},
    {"xpercent", callback<read_percent>},
    {"xmoney", callback<read_money>},
    {"xdate-ymd", callback<read_date_ymd>},
    {"xdate-mdy", callback<read_date_mdy>},
    {"xdate-num", callback<read_numeric_date>},
    {"xdate-month", callback<read_month_date>},
    {"xtime", callback<read_time>},
    {"xtime-range", callback<read_time_range>},
    {"xtel", callback<read_telephone>},
    {"xmeasure", callback<read_measure>},
    {"xyear", callback<read_year_text>},
    {"xto", callback<read_range_word>},
    {"xdecade", callback<read_decade>},
    {"xfraction", callback<read_fraction>},
    {"xabbr", callback<read_abbreviation>},
    {nullptr, nullptr},
};

}  // namespace

const ReaderEntry *english_readers() { return kReaders; }

namespace {

// A scale word after an amount, written out or abbreviated ("$2bn", "$5k").
const char *scale_word(const std::string &written) {
  if (written == "k" || written == "K") return "thousand";
  if (written == "m" || written == "M" || written == "mn") return "million";
  if (written == "b" || written == "B" || written == "bn") return "billion";
  if (written == "tn") return "trillion";
  static const char *const kScaleWords[] = {"thousand", "million", "billion", "trillion"};
  const std::string word = lowered(written);
  for (const char *scale : kScaleWords)
    if (word == scale) return scale;
  return nullptr;
}

// True for a symbol written only after the amount ("50p", "20c").
bool is_letter_suffix(const char *symbol) { return symbol[1] == '\0' && is_alpha(symbol[0]); }

}  // namespace

bool read_money(const std::string &text, std::string &out) {
  // The symbol stands before the amount ($5) or, as in much of Europe and
  // for pence and cents, after it (5 €, 50p).
  const Currency *currency = nullptr;
  std::string rest;
  for (const Currency *c = kCurrencies; c->symbol != nullptr && currency == nullptr; ++c) {
    if (!is_letter_suffix(c->symbol) && starts_with(text, c->symbol)) {
      currency = c;
      rest = trimmed(text.substr(std::strlen(c->symbol)));
    }
  }
  for (const Currency *c = kCurrencies; c->symbol != nullptr && currency == nullptr; ++c) {
    const size_t n = std::strlen(c->symbol);
    if (text.size() > n && ends_with(text, c->symbol) && is_digit(text[0] == '.' ? '0' : text[0])) {
      currency = c;
      rest = trimmed(text.substr(0, text.size() - n));
    }
  }
  if (currency == nullptr) return false;
  std::string number, last, scale;
  if (!split_range(rest, number, last, scale)) return false;
  if (number.find_first_of("0123456789") == std::string::npos) return false;
  std::string words;
  if (!last.empty()) {
    // "$20-30", "$5-10 million": a range of whole amounts, said once in the plural.
    const char *word = scale.empty() ? nullptr : scale_word(scale);
    if (!scale.empty() && word == nullptr) return false;
    if (!say_range(number, last, words)) return false;
    if (word != nullptr) add_word(words, word);
    add_word(words, currency->major_plural);
  } else if (!scale.empty()) {
    // "$3.5 million": the scale word follows the number as written.
    const char *word = scale_word(scale);
    if (word == nullptr) return false;
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
  // The day is said first when it is written before the month (dmy: "the
  // twenty-first of November"); otherwise the month comes first (mdy, and
  // ymd as in 2026-11-21: "November twenty-first").
  const std::string f = lowered(format);
  const size_t d = f.find('d'), m = f.find('m');
  const bool day_first = d != std::string::npos && d < m;
  if (day_first) return say_date_day_first(month, day, year, out);
  return say_date(month, day, year, out);
}

bool read_month_date(const std::string &text, std::string &out) {
  // Tokens such as the, 25th, of, July, 2012; the order of day and month
  // decides the reading.
  const std::vector<std::string> tokens = tokens_of(text);
  long month = 0;
  size_t month_at = 0;
  for (size_t i = 0; i < tokens.size() && month == 0; ++i) {
    if (is_alpha(tokens[i][0]) && (month = month_of(tokens[i])) != 0) month_at = i;
  }
  if (month == 0) return false;
  long day = 0, last_day = 0;
  bool day_first = false, readable = true;
  std::string year;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const std::string digits = leading_digits(tokens[i]);
    if (digits.empty()) continue;
    if (digits.size() == 4 && digits.size() == tokens[i].size() && year.empty()) {
      year = digits;
    } else if (digits.size() <= 2 && day == 0) {
      day = digit_value(digits);
      day_first = i < month_at;
    } else if (digits.size() <= 2 && last_day == 0) {
      last_day = digit_value(digits);
    } else {
      readable = false;
    }
  }
  if (readable && (day != 0 || !year.empty())) {
    if (day_first ? say_date_day_first(month, day, year, out, last_day)
                  : say_date(month, day, year, out, last_day))
      return true;
  }
  // "July 0-45": no such days, but every number is still said.
  say_loosely(text, out);
  return true;
}

namespace {

// A time of day as written: hour, minutes and seconds, "a m" or "p m", and
// a time zone ("9:30 p.m. EST").
struct TimeOfDay {
  std::string hour, minute, second;
  const char *meridiem = nullptr;  // "a m", "p m" or null
  std::string zone;
};

bool parse_time(const std::string &text, TimeOfDay &time) {
  time = TimeOfDay();
  size_t at = 0;
  std::string *fields[] = {&time.hour, &time.minute, &time.second};
  for (size_t f = 0; f < 3; ++f) {
    size_t end = at;
    while (end < text.size() && is_digit(text[end])) ++end;
    if (end == at) return false;
    *fields[f] = text.substr(at, end - at);
    at = end;
    // A dot parts hour and minutes only ("1.59 p.m."); seconds follow a colon.
    if (at + 1 < text.size() && (text[at] == ':' || (text[at] == '.' && f == 0)) &&
        is_digit(text[at + 1]))
      ++at;
    else
      break;
  }
  // The rest: a m or p m in any spelling, then perhaps a zone.
  std::string rest = trimmed(text.substr(at));
  size_t blank = rest.find_last_of(" (");
  std::string last = blank == std::string::npos ? rest : rest.substr(blank + 1);
  if (!last.empty() && last.back() == ')') last.pop_back();
  for (const char *const *z = kTimeZones; *z != nullptr; ++z) {
    if (last == *z) {
      time.zone = last;
      rest = blank == std::string::npos ? std::string() : trimmed(rest.substr(0, blank));
      break;
    }
  }
  std::string letters;
  for (char c : rest) {
    if (is_alpha(c))
      letters += lower(c);
    else if (c != '.' && c != ' ')
      return false;
  }
  if (letters == "am")
    time.meridiem = "a m";
  else if (letters == "pm")
    time.meridiem = "p m";
  else if (!letters.empty())
    return false;
  const long hour = digit_value(time.hour);
  const long minute = time.minute.empty() ? 0 : digit_value(time.minute);
  const long second = time.second.empty() ? 0 : digit_value(time.second);
  if (hour < 0 || hour > (time.meridiem != nullptr ? 12 : 24)) return false;
  if (minute < 0 || minute > 59 || second < 0 || second > 59) return false;
  return true;
}

// "seven oh five p m", "eighteen o'clock"; with seconds, each part named:
// "fourteen hours ten minutes and thirty seconds", since a clock reading
// ("fourteen ten") has no place for them. `shared_meridiem`: the hour stands
// before a range whose end carries the a m or p m ("9-11 a.m."), so it is
// said bare.
void say_time(const TimeOfDay &time, bool shared_meridiem, std::string &out) {
  const long minute = time.minute.empty() ? 0 : digit_value(time.minute);
  const long second = time.second.empty() ? 0 : digit_value(time.second);
  std::string words;
  say_cardinal(time.hour, words);
  if (second > 0) {
    add_word(words, digit_value(time.hour) == 1 ? "hour" : "hours");
    if (minute > 0) {
      say_cardinal(time.minute, words);
      add_word(words, minute == 1 ? "minute" : "minutes");
    }
    add_word(words, "and");
    say_cardinal(time.second, words);
    add_word(words, second == 1 ? "second" : "seconds");
  } else if (minute == 0 && time.meridiem == nullptr && !shared_meridiem) {
    add_word(words, "o'clock");
  } else if (minute > 0 && minute < 10) {
    add_word(words, "oh");
    say_cardinal(time.minute, words);
  } else if (minute >= 10) {
    say_cardinal(time.minute, words);
  }
  if (time.meridiem != nullptr) add_word(words, time.meridiem);
  // A zone is read letter by letter: "E S T".
  for (char c : time.zone) add_word(words, std::string(1, c));
  add_word(out, words);
}

}  // namespace

bool read_time(const std::string &text, std::string &out) {
  TimeOfDay time;
  if (!parse_time(trimmed(text), time)) return false;
  say_time(time, false, out);
  return true;
}

bool read_time_range(const std::string &text, std::string &out) {
  size_t dash = text.find('-');
  size_t after = dash + 1;
  if (dash == std::string::npos) {
    dash = text.find(kEnDash);
    after = dash + 3;
  }
  if (dash == std::string::npos) return false;
  TimeOfDay from, to;
  if (!parse_time(trimmed(text.substr(0, dash)), from) ||
      !parse_time(trimmed(text.substr(after)), to))
    return false;
  std::string words;
  say_time(from, from.meridiem == nullptr && to.meridiem != nullptr, words);
  add_word(words, "to");
  say_time(to, false, words);
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

namespace {

const Unit *find_unit(const std::string &symbol) {
  for (const Unit *u = kUnits; u->symbol != nullptr; ++u)
    if (symbol == u->symbol) return u;
  const std::string folded = lowered(symbol);
  for (const Unit *u = kUnits; u->symbol != nullptr; ++u)
    if (u->any_case && folded == lowered(u->symbol)) return u;
  return nullptr;
}

// The words of a unit symbol in the singular and plural: "km" kilometer(s),
// "km²" and "sq km" square kilometer(s), "m3" cubic meter(s), "ºC" and "℃"
// degree(s) Celsius, "/km²" per square kilometer (as in 30/km²).
bool unit_words(std::string unit, std::string &singular, std::string &plural) {
  if (!unit.empty() && unit[0] == '/') {
    std::string one, many;
    if (!unit_words(trimmed(unit.substr(1)), one, many)) return false;
    singular = plural = "per " + one;
    return true;
  }
  // The other degree signs, and blanks between the sign and its letter.
  const char *const kDegreeForms[][2] = {{"\xC2\xBA", "\xC2\xB0"},  // ordinal indicator
                                         {"\xE2\x84\x83",
                                          "\xC2\xB0"
                                          "C"},  // degree Celsius
                                         {"\xE2\x84\x89",
                                          "\xC2\xB0"
                                          "F"}};  // degree Fahrenheit
  for (const auto &form : kDegreeForms)
    if (starts_with(unit, form[0])) unit = form[1] + unit.substr(std::strlen(form[0]));
  if (starts_with(unit, "\xC2\xB0")) {
    std::string letter = trimmed(unit.substr(2));
    unit = "\xC2\xB0" + letter;
  }
  std::string power;
  const std::string head = lowered(unit.substr(0, 2));
  if ((head == "sq" || head == "cu") && unit.size() > 2) {
    power = head == "sq" ? "square" : "cubic";
    unit = trimmed(unit.substr(unit[2] == '.' ? 3 : 2));
    if (!unit.empty() && unit.back() == '.') unit.pop_back();
  } else if (ends_with(unit, "\xC2\xB2") || ends_with(unit, "\xC2\xB3")) {
    power = ends_with(unit, "\xC2\xB2") ? "square" : "cubic";
    unit.resize(unit.size() - 2);
  } else if (unit.size() > 1 && (unit.back() == '2' || unit.back() == '3')) {
    power = unit.back() == '2' ? "square" : "cubic";
    unit.pop_back();
  }
  const Unit *u = find_unit(unit);
  if (u == nullptr) return false;
  singular = u->singular;
  plural = u->plural;
  if (!power.empty()) {
    singular = power + " " + singular;
    plural = power + " " + plural;
  }
  return true;
}

}  // namespace

bool read_measure(const std::string &text, std::string &out) {
  std::string first, second, unit, singular, plural;
  if (!split_range(text, first, second, unit)) return false;
  // A hyphen makes a compound that describes a noun: "a 10-km walk" is a
  // ten kilometer walk.
  const bool compound = !unit.empty() && unit[0] == '-';
  if (compound) unit = trimmed(unit.substr(1));
  if (!unit_words(unit, singular, plural)) return false;
  std::string words;
  if (!say_range(first, second, words)) return false;
  // The singular after exactly one ("1 sec": one second), the plural after
  // anything else, ranges included.
  add_word(words, compound || (second.empty() && is_one(first)) ? singular : plural);
  add_word(out, words);
  return true;
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
