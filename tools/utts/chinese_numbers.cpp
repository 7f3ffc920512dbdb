// chinese_numbers.cpp - Mandarin readings of integers, decimals and digit
// strings.
#include "utts/chinese_numbers.h"

namespace utts::chinese {

namespace {

const char *const kDigitWords[10] = {"零", "一", "二", "三", "四", "五", "六", "七", "八", "九"};
const char *const kSectionUnits[4] = {"", "十", "百", "千"};
const char kLiang[] = "两";
const char kZero[] = "零";

constexpr std::uint64_t kWan = 10000;
constexpr std::uint64_t kYi = 100000000;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Reads 1..9999. `first`: nothing of the number has been said yet (一十
// becomes 十, a leading 2 before 百 becomes 两). `liang_alone`: a section
// that is exactly 2 is said 两 (a count of 万 or 亿, or a count before a
// measure word).
void say_section(unsigned value, bool first, bool liang_alone, NumberStyle style,
                 std::string &out) {
  const unsigned digits[4] = {value / 1000 % 10, value / 100 % 10, value / 10 % 10, value % 10};
  bool said = false;
  bool gap = false;
  for (int i = 0; i < 4; ++i) {
    const int place = 3 - i;  // 3 千, 2 百, 1 十, 0 ones
    const unsigned d = digits[i];
    if (d == 0) {
      gap = said;
      continue;
    }
    if (gap) out += kZero;
    gap = false;
    const bool leading = first && !said;
    if (d == 1 && place == 1 && leading) {
      // 十, 十五, 十万: the 一 of a leading 一十 is not said.
    } else if (d == 2 && style != NumberStyle::kOrdinal &&
               (place == 3 || (place == 2 && leading) ||
                (place == 0 && value == 2 && liang_alone))) {
      out += kLiang;
    } else {
      out += kDigitWords[d];
    }
    out += kSectionUnits[place];
    said = true;
  }
}

// Reads 1..10^16-1. `followed_by_unit`: 万 or 亿 comes right after this
// value (a section of exactly 2 is then 两).
void say_grouped(std::uint64_t value, bool first, bool followed_by_unit, NumberStyle style,
                 bool count, std::string &out) {
  if (value >= kYi) {
    say_grouped(value / kYi, first, true, style, false, out);
    out += "亿";
    const std::uint64_t rest = value % kYi;
    if (rest == 0) return;
    if (rest < kYi / 10) out += kZero;
    say_grouped(rest, false, followed_by_unit, style, false, out);
  } else if (value >= kWan) {
    say_section(static_cast<unsigned>(value / kWan), first, true, style, out);
    out += "万";
    const std::uint64_t rest = value % kWan;
    if (rest == 0) return;
    if (rest < kWan / 10) out += kZero;
    say_section(static_cast<unsigned>(rest), false, false, style, out);
  } else {
    say_section(static_cast<unsigned>(value), first, followed_by_unit || count, style, out);
  }
}

// Length in bytes of a sign character at `at`: -, +, − (U+2212), － and ＋
// (full width); 0 when there is none. `negative` tells which.
std::size_t sign_at(const std::string &text, std::size_t at, bool &negative) {
  if (text.compare(at, 1, "-") == 0 || text.compare(at, 3, "\xE2\x88\x92") == 0 ||
      text.compare(at, 3, "\xEF\xBC\x8D") == 0) {
    negative = true;
    return text[at] == '-' ? 1 : 3;
  }
  if (text.compare(at, 1, "+") == 0 || text.compare(at, 3, "\xEF\xBC\x8B") == 0) {
    negative = false;
    return text[at] == '+' ? 1 : 3;
  }
  return 0;
}

}  // namespace

void say_integer(std::uint64_t value, NumberStyle style, std::string &out) {
  if (value == 0) {
    out += kZero;
    return;
  }
  say_grouped(value, true, false, style, style == NumberStyle::kCount, out);
}

void say_digits(const std::string &digits, bool yao, std::string &out) {
  for (char c : digits) {
    if (!is_digit(c)) continue;
    out += c == '1' && yao ? "幺" : kDigitWords[c - '0'];
  }
}

bool parse_number(const std::string &text, WrittenNumber &out) {
  WrittenNumber number;
  std::size_t at = sign_at(text, 0, number.negative);
  if (at < text.size() && !is_digit(text[at])) return false;
  // Digits, with commas only between digits and then in groups of three.
  std::size_t group = 0;
  bool grouped = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (is_digit(c)) {
      number.integer += c;
      ++group;
    } else if (c == ',' && !number.integer.empty() && (!grouped || group == 3) && group <= 3) {
      grouped = true;
      group = 0;
    } else {
      break;
    }
  }
  if (number.integer.empty() || (grouped && group != 3)) return false;
  if (at < text.size() && text[at] == '.') {
    for (++at; at < text.size() && is_digit(text[at]); ++at) number.fraction += text[at];
    if (number.fraction.empty()) return false;
  }
  if (at != text.size()) return false;
  out = number;
  return true;
}

bool say_number(const std::string &text, NumberStyle style, bool drop_trailing_zeros,
                std::string &out) {
  WrittenNumber n;
  if (!parse_number(text, n)) return false;
  std::string words;
  if (n.negative) words += "负";
  const bool digit_by_digit = (n.integer.size() > 1 && n.integer[0] == '0') ||
                              n.integer.size() > static_cast<std::size_t>(kMaxUnitDigits);
  if (digit_by_digit) {
    say_digits(n.integer, false, words);
  } else {
    // With a decimal part, the integer part is a plain quantity: 2.5 = 二点五.
    const NumberStyle integer_style =
        n.fraction.empty() || style != NumberStyle::kCount ? style : NumberStyle::kPlain;
    say_integer(std::stoull(n.integer), integer_style, words);
  }
  std::string fraction = n.fraction;
  if (drop_trailing_zeros) {
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  }
  if (!fraction.empty()) {
    words += "点";
    say_digits(fraction, false, words);
  }
  out += words;
  return true;
}

}  // namespace utts::chinese
