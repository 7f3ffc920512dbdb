// english_numbers_test.cpp - number words of the front end's English readers:
// cardinals across group boundaries, ordinals, years, digit strings and written
// numbers.
#include <gtest/gtest.h>

#include <string>

#include "utts/english_numbers.h"

namespace {

using Say = bool (*)(const std::string &, std::string &);

bool say_written(const std::string &text, std::string &out) {
  return utts::say_number(text.c_str(), out);
}

TEST(EnglishNumbers, Readings) {
  const Say card = utts::say_cardinal, ord = utts::say_ordinal, year = utts::say_year;
  const struct {
    Say say;
    const char *digits, *words;
  } cases[] = {
      // words null: refused
      {card, "000", "zero"},
      {card, "13", "thirteen"},
      {card, "42", "forty-two"},
      {card, "101", "one hundred one"},
      {card, "007", "seven"},
      {card, "1001", "one thousand one"},
      {card, "100000", "one hundred thousand"},
      {card, "2000300", "two million three hundred"},
      {card, "0", "zero"},
      {card, "20", "twenty"},
      {card, "999", "nine hundred ninety-nine"},
      {card, "1000000", "one million"},
      {card, "1000001", "one million one"},
      {card, "999999999999999",
       "nine hundred ninety-nine trillion nine hundred ninety-nine billion nine hundred "
       "ninety-nine "
       "million nine hundred ninety-nine thousand nine hundred ninety-nine"},
      {card, "1234567890123456",
       "one quadrillion two hundred thirty-four trillion five hundred sixty-seven billion eight "
       "hundred ninety million one hundred twenty-three thousand four hundred fifty-six"},
      {card, "1000000000000000000", "one quintillion"},
      {card, "999000000000000000000", "nine hundred ninety-nine quintillion"},
      {card, "1000000000000000000000",
       "one zero zero zero zero zero zero zero zero zero zero zero zero zero zero zero zero zero "
       "zero zero zero zero"},
      {card, "", nullptr},
      {card, "12a", nullptr},
      {card, "-1", nullptr},
      {ord, "1", "first"},
      {ord, "3", "third"},
      {ord, "5", "fifth"},
      {ord, "8", "eighth"},
      {ord, "9", "ninth"},
      {ord, "12", "twelfth"},
      {ord, "20", "twentieth"},
      {ord, "42", "forty-second"},
      {ord, "11", "eleventh"},
      {ord, "21", "twenty-first"},
      {ord, "99", "ninety-ninth"},
      {ord, "103", "one hundred third"},
      {ord, "1000000", "one millionth"},
      {ord, "0", "zeroth"},
      {year, "1066", "ten sixty-six"},
      {year, "1100", "eleven hundred"},
      {year, "1905", "nineteen oh five"},
      {year, "2000", "two thousand"},
      {year, "2005", "two thousand five"},
      {year, "2010", "twenty ten"},
      {year, "2100", "twenty-one hundred"},
      {year, "3000", "three thousand"},
      {year, "00", "oh oh"},
      {year, "1900", "nineteen hundred"},
      {year, "1999", "nineteen ninety-nine"},
      {year, "05", "oh five"},
      {year, "99", "ninety-nine"},
      {year, "476", "four hundred seventy-six"},
      {year, "x", nullptr},
      {utts::say_digits, "4-0 1", "four zero one"},
      {utts::say_digits, "--", nullptr},
      {say_written, "-0.05", "minus zero point zero five"},
      {say_written, ".5", "zero point five"},
      {say_written, "many", nullptr},
      {say_written, "", nullptr},
  };
  for (const auto &c : cases) {
    std::string out;
    EXPECT_EQ(c.say(c.digits, out), c.words != nullptr) << c.digits;
    EXPECT_EQ(out, c.words ? c.words : "") << c.digits;
  }
  std::string out = "it is";
  utts::add_word(out, "");
  utts::add_word(out, "ten");
  EXPECT_EQ(out, "it is ten");
}

}  // namespace
