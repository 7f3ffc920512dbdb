// chinese_numbers.h - numbers read in Mandarin, written in Chinese
// characters (UTF-8): integers with 万 and 亿, decimals, digit strings.
#ifndef UTILS_UTTS_CHINESE_NUMBERS_H
#define UTILS_UTTS_CHINESE_NUMBERS_H

#include <cstdint>
#include <string>

namespace utts::chinese {

// Where a number stands decides between 二 and 两 for the digit 2.
enum class NumberStyle {
  // A quantity on its own (2, 2000): 两 before 千, for a 2 that is a whole
  // count of 万 or 亿 (两万, 两亿), and before 百 at the start (两百); 二
  // elsewhere (2 = 二, 22 = 二十二, 1200 = 一千二百).
  kPlain,
  // A quantity before a measure word (2个, 2天): as kPlain, and 2 itself is
  // 两 (两个).
  kCount,
  // A rank, a month, a day, a minute: always 二 (第二千, 二月, 零二分).
  kOrdinal,
};

// The largest integer read with units; longer digit strings are read digit
// by digit.
constexpr int kMaxUnitDigits = 16;

// Appends the reading of `value` (below 10^16): 万 and 亿 grouping, one 零
// for a gap, 十 for 一十 at the start.
void say_integer(std::uint64_t value, NumberStyle style, std::string &out);

// Appends each digit of `digits` (other characters are skipped): 零 to 九,
// with 幺 for 1 when `yao` (telephone numbers and codes).
void say_digits(const std::string &digits, bool yao, std::string &out);

// Appends the reading of a written number: an optional sign (- becomes 负,
// + is not said), digits with optional group commas, an optional decimal
// part read digit by digit after 点. An integer part with a leading zero
// (007) or more than kMaxUnitDigits digits is read digit by digit.
// `drop_trailing_zeros` drops zeros at the end of the decimal part (for
// amounts: 12.50 = 十二点五). False, with nothing appended, when `text` is
// not such a number.
bool say_number(const std::string &text, NumberStyle style, bool drop_trailing_zeros,
                std::string &out);

// The parts of a written number, for readers that say the parts apart.
struct WrittenNumber {
  bool negative = false;
  std::string integer;   // digits only, commas removed
  std::string fraction;  // digits after the point, possibly empty
};

// Parses a number as say_number reads it; false when `text` is not one.
bool parse_number(const std::string &text, WrittenNumber &out);

}  // namespace utts::chinese

#endif  // UTILS_UTTS_CHINESE_NUMBERS_H
