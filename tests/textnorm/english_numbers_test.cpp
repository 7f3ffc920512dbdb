// Number words of the front end's English readers: cardinals across group
// boundaries, ordinals, years and digit strings.
#include <gtest/gtest.h>

#include <string>

#include "utts/english_numbers.h"

namespace {

using Say = bool (*)(const std::string &, std::string &);

std::string say(Say reader, const std::string &digits) {
  std::string out;
  return reader(digits, out) ? out : "(refused)";
}

struct Case {
  const char *digits, *words;
};

TEST(EnglishNumbers, Cardinals) {
  const Case cases[] = {
      {"0", "zero"},
      {"000", "zero"},
      {"7", "seven"},
      {"13", "thirteen"},
      {"20", "twenty"},
      {"42", "forty-two"},
      {"100", "one hundred"},
      {"101", "one hundred one"},
      {"999", "nine hundred ninety-nine"},
      {"1000", "one thousand"},
      {"1001", "one thousand one"},
      {"007", "seven"},
      {"10000", "ten thousand"},
      {"100000", "one hundred thousand"},
      {"1000000", "one million"},
      {"1000001", "one million one"},
      {"2000300", "two million three hundred"},
      {"999999999999999", "nine hundred ninety-nine trillion nine hundred ninety-nine billion nine "
                          "hundred ninety-nine million nine hundred ninety-nine thousand nine hundred "
                          "ninety-nine"},
      {"1234567890123456", "one two three four five six seven eight nine zero one two three four five six"},
      {"", "(refused)"},
      {"12a", "(refused)"},
      {"-1", "(refused)"},
  };
  for (const Case &c : cases) EXPECT_EQ(say(utts::sayCardinal, c.digits), c.words) << c.digits;
}

TEST(EnglishNumbers, Ordinals) {
  const Case cases[] = {
      {"1", "first"},          {"2", "second"},        {"3", "third"},
      {"4", "fourth"},         {"5", "fifth"},         {"8", "eighth"},
      {"9", "ninth"},          {"11", "eleventh"},     {"12", "twelfth"},
      {"20", "twentieth"},     {"21", "twenty-first"}, {"42", "forty-second"},
      {"99", "ninety-ninth"},  {"100", "one hundredth"}, {"103", "one hundred third"},
      {"1000000", "one millionth"}, {"0", "zeroth"},
  };
  for (const Case &c : cases) EXPECT_EQ(say(utts::sayOrdinal, c.digits), c.words) << c.digits;
}

TEST(EnglishNumbers, Years) {
  const Case cases[] = {
      {"1066", "ten sixty-six"},     {"1100", "eleven hundred"},
      {"1900", "nineteen hundred"},  {"1905", "nineteen oh five"},
      {"1999", "nineteen ninety-nine"}, {"2000", "two thousand"},
      {"2005", "two thousand five"}, {"2010", "twenty ten"},
      {"2026", "twenty twenty-six"}, {"2100", "twenty-one hundred"},
      {"1000", "one thousand"},      {"3000", "three thousand"},
      {"05", "oh five"},             {"00", "oh oh"},
      {"99", "ninety-nine"},         {"476", "four hundred seventy-six"},
      {"x", "(refused)"},
  };
  for (const Case &c : cases) EXPECT_EQ(say(utts::sayYear, c.digits), c.words) << c.digits;
}

TEST(EnglishNumbers, DigitsAndWrittenNumbers) {
  EXPECT_EQ(say(utts::sayDigits, "4-0 1"), "four zero one");
  EXPECT_EQ(say(utts::sayDigits, "--"), "(refused)");
  std::string out;
  EXPECT_TRUE(utts::sayNumber("-0.05", out));
  EXPECT_EQ(out, "minus zero point zero five");
  out.clear();
  EXPECT_TRUE(utts::sayNumber(".5", out));
  EXPECT_EQ(out, "zero point five");
  out.clear();
  EXPECT_FALSE(utts::sayNumber("many", out));
  EXPECT_FALSE(utts::sayNumber("", out));
  EXPECT_EQ(out, "");
}

TEST(EnglishNumbers, WordsJoinWithSingleBlanks) {
  std::string out = "it is";
  utts::addWord(out, "");
  utts::addWord(out, "ten");
  EXPECT_EQ(out, "it is ten");
}

}  // namespace
