// chinese_numbers_test.cpp - Mandarin readings of integers, decimals and
// digit strings, written from how the numbers are said.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "utts/chinese_numbers.h"

namespace {

using utts::chinese::NumberStyle;

std::string integer(std::uint64_t value, NumberStyle style = NumberStyle::kPlain) {
  std::string out;
  utts::chinese::say_integer(value, style, out);
  return out;
}

TEST(ChineseNumbers, Integers) {
  const struct {
    std::uint64_t value;
    const char *spoken;
  } table[] = {
      {0, "零"},
      {1, "一"},
      {2, "二"},
      {7, "七"},
      {10, "十"},
      {11, "十一"},
      {12, "十二"},
      {19, "十九"},
      {20, "二十"},
      {22, "二十二"},
      {99, "九十九"},
      {100, "一百"},
      {101, "一百零一"},
      {110, "一百一十"},
      {111, "一百一十一"},
      {200, "两百"},
      {202, "两百零二"},
      {220, "两百二十"},
      {999, "九百九十九"},
      {1000, "一千"},
      {1001, "一千零一"},
      {1010, "一千零一十"},
      {1011, "一千零一十一"},
      {1100, "一千一百"},
      {1200, "一千二百"},
      {2000, "两千"},
      {2222, "两千二百二十二"},
      {9999, "九千九百九十九"},
      {10000, "一万"},
      {10001, "一万零一"},
      {10010, "一万零一十"},
      {10100, "一万零一百"},
      {11000, "一万一千"},
      {12000, "一万两千"},
      {20000, "两万"},
      {22000, "两万两千"},
      {100000, "十万"},
      {100010, "十万零一十"},
      {101000, "十万一千"},
      {110000, "十一万"},
      {120000, "十二万"},
      {200000, "二十万"},
      {1000000, "一百万"},
      {2000000, "两百万"},
      {1234567, "一百二十三万四千五百六十七"},
      {10000000, "一千万"},
      {30000005, "三千万零五"},
      {100000000, "一亿"},
      {100000001, "一亿零一"},
      {100000010, "一亿零一十"},
      {100010000, "一亿零一万"},
      {101000000, "一亿零一百万"},
      {110000000, "一亿一千万"},
      {123456789, "一亿两千三百四十五万六千七百八十九"},
      {200000000, "两亿"},
      {1200000000, "十二亿"},
      {1000000000000, "一万亿"},
      {2000000000000, "两万亿"},
      {9999999999999999, "九千九百九十九万九千九百九十九亿九千九百九十九万九千九百九十九"},
  };
  for (const auto &row : table) EXPECT_EQ(integer(row.value), row.spoken) << row.value;
}

TEST(ChineseNumbers, CountsSayTwoAsLiang) {
  const struct {
    std::uint64_t value;
    const char *spoken;
  } table[] = {
      {2, "两"},     {12, "十二"},   {20, "二十"},    {22, "二十二"},      {102, "一百零二"},
      {200, "两百"}, {2000, "两千"}, {20000, "两万"}, {200000000, "两亿"},
  };
  for (const auto &row : table)
    EXPECT_EQ(integer(row.value, NumberStyle::kCount), row.spoken) << row.value;
}

TEST(ChineseNumbers, RanksNeverSayLiang) {
  const struct {
    std::uint64_t value;
    const char *spoken;
  } table[] = {
      {2, "二"}, {12, "十二"}, {200, "二百"}, {2000, "二千"}, {20000, "二万"}, {10, "十"},
  };
  for (const auto &row : table)
    EXPECT_EQ(integer(row.value, NumberStyle::kOrdinal), row.spoken) << row.value;
}

TEST(ChineseNumbers, WrittenNumbers) {
  const struct {
    const char *written;
    bool drop_zeros;
    const char *spoken;
  } table[] = {
      {"0.5", false, "零点五"},
      {"3.14", false, "三点一四"},
      {"2.5", false, "二点五"},
      {"2000.5", false, "两千点五"},
      {"12.50", false, "十二点五零"},
      {"12.50", true, "十二点五"},
      {"12.00", true, "十二"},
      {"-1,234.5", false, "负一千二百三十四点五"},
      {"-12", false, "负十二"},
      {"\xE2\x88\x92"
       "3",
       false, "负三"},  // U+2212 minus sign
      {"\xEF\xBC\x8D"
       "3",
       false, "负三"},  // full-width hyphen-minus
      {"+5", false, "五"},
      {"1,000,000", false, "一百万"},
      {"007", false, "零零七"},
      {"00", false, "零零"},
      {"0", false, "零"},
      {"12345678901234567", false, "一二三四五六七八九零一二三四五六七"},
      {"1234567890123456", false, "一千二百三十四万五千六百七十八亿九千零一十二万三千四百五十六"},
  };
  for (const auto &row : table) {
    std::string out;
    EXPECT_TRUE(utts::chinese::say_number(row.written, NumberStyle::kPlain, row.drop_zeros, out))
        << row.written;
    EXPECT_EQ(out, row.spoken) << row.written;
  }
}

TEST(ChineseNumbers, DecimalCountsReadTheIntegerPlainly) {
  std::string out;
  ASSERT_TRUE(utts::chinese::say_number("2.5", NumberStyle::kCount, false, out));
  EXPECT_EQ(out, "二点五");
}

TEST(ChineseNumbers, RejectsWhatIsNotANumber) {
  const char *const table[] = {"",   "-",  "abc", "1,23", "1234,567", "1.2.3",
                               "1.", ".5", "12a", "1 2",  ",123",     "--1"};
  for (const char *written : table) {
    std::string out = "kept";
    EXPECT_FALSE(utts::chinese::say_number(written, NumberStyle::kPlain, false, out)) << written;
    EXPECT_EQ(out, "kept") << written;
  }
}

TEST(ChineseNumbers, DigitsOneByOne) {
  const struct {
    const char *digits;
    bool yao;
    const char *spoken;
  } table[] = {
      {"2026", false, "二零二六"}, {"1998", false, "一九九八"},
      {"110", true, "幺幺零"},     {"13812345678", true, "幺三八幺二三四五六七八"},
      {"1-2", false, "一二"},      {"", false, ""},
  };
  for (const auto &row : table) {
    std::string out;
    utts::chinese::say_digits(row.digits, row.yao, out);
    EXPECT_EQ(out, row.spoken) << row.digits;
  }
}

}  // namespace
