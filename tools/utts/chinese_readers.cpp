// chinese_readers.cpp - Mandarin readers for the elements of the bundled
// rule set and for say-as: each turns a written form into words written in
// Chinese characters.
#include "utts/chinese_readers.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "utts/chinese_numbers.h"

namespace utts::chinese {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool all_digits(const std::string &s) {
  if (s.empty()) return false;
  for (char c : s)
    if (!is_digit(c)) return false;
  return true;
}

// `s` without blanks (ASCII and the ideographic space U+3000) at either end.
std::string trimmed(const std::string &s) {
  std::size_t from = 0, to = s.size();
  for (;;) {
    if (from < to && std::strchr(" \t\r\n", s[from]) != nullptr) {
      ++from;
    } else if (to - from >= 3 && s.compare(from, 3, "\xE3\x80\x80") == 0) {
      from += 3;
    } else {
      break;
    }
  }
  for (;;) {
    if (to > from && std::strchr(" \t\r\n", s[to - 1]) != nullptr) {
      --to;
    } else if (to - from >= 3 && s.compare(to - 3, 3, "\xE3\x80\x80") == 0) {
      to -= 3;
    } else {
      break;
    }
  }
  return s.substr(from, to - from);
}

bool starts_with(const std::string &s, const char *prefix) {
  return s.compare(0, std::strlen(prefix), prefix) == 0;
}

bool ends_with(const std::string &s, const char *suffix) {
  const std::size_t n = std::strlen(suffix);
  return s.size() >= n && s.compare(s.size() - n, n, suffix) == 0;
}

// Removes `suffix` from the end of `s` when it is there.
bool take_suffix(std::string &s, const char *suffix) {
  if (!ends_with(s, suffix)) return false;
  s.resize(s.size() - std::strlen(suffix));
  return true;
}

bool take_prefix(std::string &s, const char *prefix) {
  if (!starts_with(s, prefix)) return false;
  s.erase(0, std::strlen(prefix));
  return true;
}

// The value of a digit string that fits, or -1.
long small_value(const std::string &digits) {
  if (!all_digits(digits) || digits.size() > 6) return -1;
  return std::stol(digits);
}

// A parsed number written again without its sign and group commas.
std::string unsigned_text(const WrittenNumber &n) {
  return n.fraction.empty() ? n.integer : n.integer + "." + n.fraction;
}

// A minute or a second as written: "05" is 零五, "5" and "30" are read as
// numbers (五, 三十).
void say_clock_part(const std::string &digits, std::string &out) {
  if (digits.size() == 2 && digits[0] == '0' && digits[1] != '0') {
    out += "零";
    say_digits(digits.substr(1), false, out);
  } else {
    say_integer(static_cast<std::uint64_t>(small_value(digits)), NumberStyle::kOrdinal, out);
  }
}

// 元角分 for an amount in yuan with at most two decimals; false for more
// yuan than the units of numbers reach.
bool say_yuan(const WrittenNumber &n, std::string &out) {
  if (n.integer.size() > static_cast<std::size_t>(kMaxUnitDigits) || n.fraction.size() > 2)
    return false;
  const std::uint64_t yuan = std::stoull(n.integer);
  const int jiao = n.fraction.size() > 0 ? n.fraction[0] - '0' : 0;
  const int fen = n.fraction.size() > 1 ? n.fraction[1] - '0' : 0;
  if (yuan > 0 || (jiao == 0 && fen == 0)) {
    say_integer(yuan, NumberStyle::kCount, out);
    out += "元";
  }
  if (jiao > 0) {
    say_integer(static_cast<std::uint64_t>(jiao), NumberStyle::kCount, out);
    out += "角";
  }
  if (fen > 0) {
    if (jiao == 0 && yuan > 0) out += "零";
    say_integer(static_cast<std::uint64_t>(fen), NumberStyle::kCount, out);
    out += "分";
  }
  return true;
}

struct Currency {
  const char *sign;
  const char *name;
};

// Longer signs first: US$ and HK$ before $.
const Currency kCurrencies[] = {
    {"US$", "美元"},
    {"HK$", "港元"},
    {"NT$", "新台币"},
    {"$", "美元"},
    {"\xC2\xA5", "元"},        // ¥
    {"\xEF\xBF\xA5", "元"},    // ￥ (full width)
    {"\xE2\x82\xAC", "欧元"},  // €
    {"\xC2\xA3", "英镑"},      // £
    {"RMB", "元"},
};

struct Unit {
  const char *written;
  const char *spoken;
};

// Units written in Latin letters or signs after a number. Longer ones
// first, so that km/h is not taken for km.
const Unit kUnits[] = {
    {"km/h", "公里每小时"},
    {"m/s", "米每秒"},
    {"km\xC2\xB2", "平方公里"},  // km²
    {"m\xC2\xB2", "平方米"},     // m²
    {"m\xC2\xB3", "立方米"},     // m³
    {"\xE3\x8E\xA1", "平方米"},  // ㎡
    {"kWh", "千瓦时"},
    {"kW", "千瓦"},
    {"km", "公里"},
    {"kg", "公斤"},
    {"cm", "厘米"},
    {"mm", "毫米"},
    {"mg", "毫克"},
    {"ml", "毫升"},
    {"mL", "毫升"},
    {"min", "分钟"},
    {"GHz", "吉赫兹"},
    {"MHz", "兆赫兹"},
    {"kHz", "千赫兹"},
    {"Hz", "赫兹"},
    {"m", "米"},
    {"g", "克"},
    {"t", "吨"},
    {"L", "升"},
    {"W", "瓦"},
    {"V", "伏"},
};

// The unit at the end of `text`, removed from it; null when none.
const Unit *take_unit(std::string &text) {
  for (const Unit &u : kUnits) {
    if (take_suffix(text, u.written)) return &u;
  }
  return nullptr;
}

// Adapts a string reader to the converter's callback shape.
template <bool (*Reader)(const std::string &, std::string &)>
int callback(const char *text, CStr *out) {
  if (text == nullptr) return 1;
  std::string words;
  if (!Reader(text, words)) return 1;
  return CStrAppend(out, words.c_str());
}

struct ReaderEntry {
  const char *element;
  ConvertFunc read;
};

// Element names of data/chinese.rules. The range elements (xrange, xyears,
// xtimes, xpercents, xtemps) have no reader: their alias is the text of the
// elements inside them once those are read.
const ReaderEntry kReaders[] = {
    {"xcardinal", callback<read_cardinal>},
    {"xcount", callback<read_count>},
    {"xordinal", callback<read_ordinal>},
    {"xdigits", callback<read_digits>},
    {"xcode", callback<read_code>},
    {"xtel", callback<read_telephone>},
    {"xyear", callback<read_year>},
    {"xdate", callback<read_date>},
    {"xtime", callback<read_time>},
    {"xclock", callback<read_clock>},
    {"xmoney", callback<read_money>},
    {"xamount", callback<read_amount>},
    {"xpercent", callback<read_percent>},
    {"xpercent-bare", callback<read_percent_bare>},
    {"xfraction", callback<read_fraction>},
    {"xtemp", callback<read_temperature>},
    {"xtemp-bare", callback<read_temperature_bare>},
    {"xmeasure", callback<read_measure>},
};

// A date from year, month and day strings (any may be empty); false when a
// part is not a number or out of range.
bool say_date(const std::string &year, const std::string &month, const std::string &day,
              const char *day_word, std::string &out) {
  std::string words;
  if (!year.empty()) {
    if (!all_digits(year) || year.size() > 4) return false;
    say_digits(year, false, words);
    words += "年";
  }
  if (!month.empty()) {
    const long m = small_value(month);
    if (m < 1 || m > 12) return false;
    say_integer(static_cast<std::uint64_t>(m), NumberStyle::kOrdinal, words);
    words += "月";
  }
  if (!day.empty()) {
    const long d = small_value(day);
    if (d < 1 || d > 31) return false;
    say_integer(static_cast<std::uint64_t>(d), NumberStyle::kOrdinal, words);
    words += day_word;
  }
  if (words.empty()) return false;
  out += words;
  return true;
}

// Splits `text` at every character of `separators` (ASCII).
std::vector<std::string> split(const std::string &text, const char *separators) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (;;) {
    const std::size_t at = text.find_first_of(separators, from);
    parts.push_back(text.substr(from, at == std::string::npos ? std::string::npos : at - from));
    if (at == std::string::npos) return parts;
    from = at + 1;
  }
}

}  // namespace

bool read_cardinal(const std::string &text, std::string &out) {
  return say_number(trimmed(text), NumberStyle::kPlain, false, out);
}

bool read_count(const std::string &text, std::string &out) {
  return say_number(trimmed(text), NumberStyle::kCount, false, out);
}

bool read_ordinal(const std::string &text, std::string &out) {
  const std::string t = trimmed(text);
  if (!all_digits(t)) return false;
  return say_number(t, NumberStyle::kOrdinal, false, out);
}

bool read_digits(const std::string &text, std::string &out) {
  const std::string t = trimmed(text);
  if (!all_digits(t)) return false;
  say_digits(t, false, out);
  return true;
}

bool read_code(const std::string &text, std::string &out) {
  const std::string t = trimmed(text);
  if (!all_digits(t)) return false;
  say_digits(t, true, out);
  return true;
}

bool read_telephone(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  std::string words;
  if (take_prefix(t, "+") || take_prefix(t, "\xEF\xBC\x8B")) words += "加";
  // Groups as written, one blank between them; an unbroken mobile number
  // (11 digits starting with 1) in its usual groups of 3, 4 and 4.
  std::vector<std::string> groups;
  std::string group;
  for (char c : t) {
    if (is_digit(c)) {
      group += c;
    } else if (c == '-' || c == ' ' || c == '(' || c == ')' || c == '.') {
      if (!group.empty()) groups.push_back(group);
      group.clear();
    } else {
      return false;
    }
  }
  if (!group.empty()) groups.push_back(group);
  std::size_t digits = 0;
  for (const std::string &g : groups) digits += g.size();
  if (digits < 3) return false;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const std::string &g = groups[i];
    if (i > 0) words += ' ';
    if (g.size() == 11 && g[0] == '1') {
      say_digits(g.substr(0, 3), true, words);
      words += ' ';
      say_digits(g.substr(3, 4), true, words);
      words += ' ';
      say_digits(g.substr(7), true, words);
    } else {
      say_digits(g, true, words);
    }
  }
  out += words;
  return true;
}

bool read_year(const std::string &text, std::string &out) {
  const std::string t = trimmed(text);
  if (!all_digits(t) || t.size() < 2 || t.size() > 4) return false;
  say_digits(t, false, out);
  return true;
}

bool read_date(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  // 2026-11-24, 2026/11/24, 2026.11.24: year, month, day.
  if (t.find_first_of("-/.") != std::string::npos) {
    const std::vector<std::string> parts = split(t, "-/.");
    if (parts.size() != 3 || parts[0].size() != 4) return false;
    return say_date(parts[0], parts[1], parts[2], "日", out);
  }
  // 2026年11月24日, 11月24号, 2026年11月.
  std::string year, month, day;
  const char *day_word = "日";
  std::size_t at = 0;
  while (at < t.size()) {
    std::size_t end = at;
    while (end < t.size() && is_digit(t[end])) ++end;
    if (end == at) return false;
    const std::string number = t.substr(at, end - at);
    const std::string rest = t.substr(end);
    if (starts_with(rest, "年") && year.empty() && month.empty() && day.empty()) {
      year = number;
    } else if (starts_with(rest, "月") && month.empty() && day.empty()) {
      month = number;
    } else if ((starts_with(rest, "日") || starts_with(rest, "号")) && day.empty()) {
      day = number;
      day_word = starts_with(rest, "日") ? "日" : "号";
    } else {
      return false;
    }
    at = end + 3;  // each unit is one three-byte character
  }
  return say_date(year, month, day, day_word, out);
}

bool read_time(const std::string &text, std::string &out) {
  const std::vector<std::string> parts = split(trimmed(text), ":");
  if (parts.size() < 2 || parts.size() > 3) return false;
  const long hour = small_value(parts[0]);
  const long minute = small_value(parts[1]);
  const long second = parts.size() == 3 ? small_value(parts[2]) : 0;
  if (hour < 0 || hour > 24 || parts[0].size() > 2 || minute < 0 || minute > 59 ||
      parts[1].size() != 2 || second < 0 || second > 59 ||
      (parts.size() == 3 && parts[2].size() != 2))
    return false;
  std::string words;
  // The hour counts: 两点, 十二点.
  say_integer(static_cast<std::uint64_t>(hour), NumberStyle::kCount, words);
  words += "点";
  if (minute == 0 && second == 0) {
    words += "整";
  } else {
    say_clock_part(parts[1], words);
    words += "分";
    if (second > 0) {
      say_clock_part(parts[2], words);
      words += "秒";
    }
  }
  out += words;
  return true;
}

bool read_clock(const std::string &text, std::string &out) {
  const std::string t = trimmed(text);
  std::string words;
  bool first = true;
  std::size_t at = 0;
  while (at < t.size()) {
    std::size_t end = at;
    while (end < t.size() && is_digit(t[end])) ++end;
    const std::string number = t.substr(at, end - at);
    if (number.empty() || number.size() > 2) return false;
    const std::string rest = t.substr(end);
    const bool unit = starts_with(rest, "点") || starts_with(rest, "时") ||
                      starts_with(rest, "分") || starts_with(rest, "秒");
    if (!unit) return false;
    if (first) {
      // The hour counts (两点); minutes and seconds are read as written.
      say_integer(static_cast<std::uint64_t>(small_value(number)), NumberStyle::kCount, words);
    } else {
      say_clock_part(number, words);
    }
    words += rest.substr(0, 3);
    first = false;
    at = end + 3;
  }
  if (words.empty()) return false;
  out += words;
  return true;
}

bool read_money(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  const Currency *currency = nullptr;
  for (const Currency &c : kCurrencies) {
    if (take_prefix(t, c.sign)) {
      currency = &c;
      break;
    }
  }
  if (currency == nullptr) return false;
  t = trimmed(t);
  // A magnitude written in characters after the amount: ¥3.5亿.
  const char *magnitude = nullptr;
  for (const char *m : {"万亿", "亿", "万"}) {
    if (take_suffix(t, m)) {
      magnitude = m;
      break;
    }
  }
  WrittenNumber n;
  if (!parse_number(t, n) || n.negative || t[0] == '+') return false;
  std::string words;
  if (magnitude == nullptr && std::strcmp(currency->name, "元") == 0 && n.fraction.size() <= 2) {
    if (!say_yuan(n, words)) return false;
  } else {
    if (!say_number(t, NumberStyle::kCount, true, words)) return false;
    if (magnitude != nullptr) words += magnitude;
    words += currency->name;
  }
  out += words;
  return true;
}

bool read_amount(const std::string &text, std::string &out) {
  return say_number(trimmed(text), NumberStyle::kCount, true, out);
}

bool read_percent(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  const char *lead = nullptr;
  if (take_suffix(t, "%") || take_suffix(t, "\xEF\xBC\x85")) {  // % ％
    lead = "百分之";
  } else if (take_suffix(t, "\xE2\x80\xB0")) {  // ‰
    lead = "千分之";
  } else {
    return false;
  }
  WrittenNumber n;
  t = trimmed(t);
  if (!parse_number(t, n)) return false;
  std::string words = n.negative ? "负" : "";
  words += lead;
  if (std::strcmp(lead, "百分之") == 0 && n.integer == "100" && n.fraction.empty()) {
    words += "百";  // 百分之百
  } else {
    if (!say_number(unsigned_text(n), NumberStyle::kPlain, false, words)) return false;
  }
  out += words;
  return true;
}

bool read_percent_bare(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  if (!take_suffix(t, "%") && !take_suffix(t, "\xEF\xBC\x85")) return false;
  return say_number(trimmed(t), NumberStyle::kPlain, false, out);
}

bool read_fraction(const std::string &text, std::string &out) {
  const std::vector<std::string> parts = split(trimmed(text), "/");
  if (parts.size() != 2 || !all_digits(parts[0]) || !all_digits(parts[1]) || parts[0].size() > 8 ||
      parts[1].size() > 8)
    return false;
  const std::uint64_t numerator = std::stoull(parts[0]);
  const std::uint64_t denominator = std::stoull(parts[1]);
  if (denominator == 0) return false;
  std::string words;
  say_integer(denominator, NumberStyle::kPlain, words);
  words += "分之";
  say_integer(numerator, NumberStyle::kPlain, words);
  out += words;
  return true;
}

bool read_temperature_bare(const std::string &text, std::string &out) {
  const std::string t = trimmed(text);
  WrittenNumber n;
  if (!parse_number(t, n)) return false;
  std::string words = n.negative ? "零下" : "";
  if (!say_number(unsigned_text(n), NumberStyle::kPlain, false, words)) return false;
  out += words;
  return true;
}

bool read_temperature(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  const char *unit = nullptr;
  if (take_suffix(t, "\xE2\x84\x83") || take_suffix(t,
                                                    "\xC2\xB0"
                                                    "C")) {  // ℃, °C
    unit = "摄氏度";
  } else if (take_suffix(t, "\xE2\x84\x89") || take_suffix(t,
                                                           "\xC2\xB0"
                                                           "F")) {  // ℉, °F
    unit = "华氏度";
  } else if (take_suffix(t, "\xC2\xB0")) {  // °
    unit = "度";
  } else {
    return false;
  }
  std::string words;
  if (!read_temperature_bare(t, words)) return false;
  out += words + unit;
  return true;
}

bool read_measure(const std::string &text, std::string &out) {
  std::string t = trimmed(text);
  const Unit *unit = take_unit(t);
  if (unit == nullptr) return false;
  std::string words;
  if (!say_number(trimmed(t), NumberStyle::kCount, false, words)) return false;
  out += words + unit->spoken;
  return true;
}

int read_say_as(const char *text, CStr *out, const char *interpret_as, const char *format,
                const char *detail) {
  (void)detail;
  if (text == nullptr || interpret_as == nullptr) return 1;
  const std::string kind = interpret_as;
  const std::string written = trimmed(text);
  std::string words;
  bool ok = false;
  if (kind == "cardinal" || kind == "number") {
    ok = read_cardinal(written, words);
  } else if (kind == "ordinal") {
    words = "第";
    ok = read_ordinal(written, words);
  } else if (kind == "digits") {
    ok = read_digits(written, words);
  } else if (kind == "telephone") {
    ok = read_telephone(written, words);
  } else if (kind == "characters" || kind == "spell-out" || kind == "letters") {
    // Digits one by one, letters as they are (the Latin path reads them),
    // one blank between characters.
    for (char c : written) {
      if (c == ' ') continue;
      if (!words.empty()) words += ' ';
      if (is_digit(c)) {
        say_digits(std::string(1, c), false, words);
      } else if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
        words += c;
      } else {
        return 1;
      }
    }
    ok = !words.empty();
  } else if (kind == "date") {
    const std::string order = format == nullptr || *format == '\0' ? "ymd" : format;
    const std::vector<std::string> parts = split(written, "-/.");
    if (parts.size() == 1 && written.find_first_not_of("0123456789") != std::string::npos) {
      ok = read_date(written, words);  // 2026年11月24日
    } else if (parts.size() == order.size() && order.size() <= 3) {
      std::string y, m, d;
      ok = true;
      for (std::size_t i = 0; i < order.size() && ok; ++i) {
        std::string &slot = order[i] == 'y' ? y : order[i] == 'm' ? m : d;
        ok = (order[i] == 'y' || order[i] == 'm' || order[i] == 'd') && slot.empty();
        slot = parts[i];
      }
      ok = ok && say_date(y, m, d, "日", words);
    }
  } else if (kind == "time") {
    ok = read_time(written, words) || read_clock(written, words);
  } else if (kind == "currency" || kind == "money") {
    ok = read_money(written, words);
    if (!ok) {
      // A bare amount is in yuan.
      WrittenNumber n;
      ok = parse_number(written, n) && !n.negative && say_yuan(n, words);
    }
  } else if (kind == "percent" || kind == "percentage") {
    ok = read_percent(written, words) || read_percent(written + "%", words);
  }
  if (!ok) return 1;
  return CStrAppend(out, words.c_str());
}

void add_readers(HConverter *converter) {
  for (const ReaderEntry &r : kReaders) HConverter_add(converter, r.element, r.read);
  HConverter_setSayAs(converter, read_say_as);
}

}  // namespace utts::chinese
