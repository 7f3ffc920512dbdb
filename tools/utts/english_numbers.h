// english_numbers.h - English number words: cardinals, ordinals, digit strings
// and years, the building blocks of the readers that the front end registers.
#ifndef UTILS_UTTS_ENGLISH_NUMBERS_H
#define UTILS_UTTS_ENGLISH_NUMBERS_H

#include <string>

namespace utts {

// Appends `word` to `out`, with a blank before it unless `out` is empty.
void add_word(std::string &out, const std::string &word);

// The cardinal reading of a string of ASCII digits ("1234" -> "one thousand
// two hundred thirty-four"). Leading zeros are ignored; numbers of more than
// twenty-one digits (beyond the quintillions) are read digit by digit. False for an empty or
// non-digit string.
bool say_cardinal(const std::string &digits, std::string &out);

// Digit by digit ("2026" -> "two zero two six"); non-digits are skipped.
// False when there is no digit.
bool say_digits(const std::string &digits, std::string &out);

// The ordinal reading of a string of digits ("22" -> "twenty-second").
bool say_ordinal(const std::string &digits, std::string &out);

// A year as people say it ("1999" -> "nineteen ninety-nine", "2005" -> "two
// thousand five", "2026" -> "twenty twenty-six"); two digits read as the
// last two of a year ("05" -> "oh five").
bool say_year(const std::string &digits, std::string &out);

// A written number with optional sign, group separators and decimals
// ("-1,234.5" -> "minus one thousand two hundred thirty-four point five"),
// split with SayAsCardinal. False when it holds no digit.
bool say_number(const char *text, std::string &out);

// The value of up to nine digits, or -1 when `digits` is empty, too long or
// holds anything else.
long digit_value(const std::string &digits);

}  // namespace utts

#endif  // UTILS_UTTS_ENGLISH_NUMBERS_H
