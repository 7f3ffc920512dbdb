// SayAsCardinal: splitting written numbers into sign, integer and fraction
// digits, and its argument checks.
#include <gtest/gtest.h>

#include <string>

#include "hconverter.h"

namespace {

struct Parts {
  Parts() : sign(CStrCreate(0)), integer(CStrCreate(0)), fraction(CStrCreate(0)) {}
  ~Parts() {
    CStrDestroy(sign);
    CStrDestroy(integer);
    CStrDestroy(fraction);
  }
  int split(const char *text, const char *point = ".", const char *group = ",") {
    return SayAsCardinal(text, point, group, sign, integer, fraction);
  }
  std::string str() const {
    return std::string(CStrStr(sign)) + "|" + CStrStr(integer) + "|" + CStrStr(fraction);
  }
  CStr *sign, *integer, *fraction;
};

TEST(SayAsCardinal, SplitsSignIntegerAndFraction) {
  struct Case {
    const char *text, *point, *expected;
  } cases[] = {
      {" -1,234.5", ".", "-|1234|5"},
      {"12", ".", "|12|"},
      {"+7", ".", "+|7|"},
      {"\t\r\n3.25", ".", "|3|25"},
      {"1.2.3", ".", "|1|23"},          // a second point is dropped
      {"1 000,75", ",", "|1000|75"},    // decimal comma, blank as separator
      {"$12.50", ".", "|12|50"},        // non-digits vanish
      {"-.5", ".", "-||5"},
      {"1:30", ":.", "|1|30"},          // only the first byte of the point counts
      {"- 4", ".", "-|4|"},
      {"5-", ".", "|5|"},
  };
  for (const Case &c : cases) {
    Parts p;
    EXPECT_EQ(p.split(c.text, c.point), 0) << c.text;
    EXPECT_EQ(p.str(), c.expected) << c.text;
  }
}

TEST(SayAsCardinal, BlankTextGivesEmptyParts) {
  Parts p;
  CStrAppend(p.integer, "stale");
  EXPECT_EQ(p.split("  \t"), 0);
  EXPECT_EQ(p.str(), "||");
}

TEST(SayAsCardinal, OutputsAreEmptiedFirst) {
  Parts p;
  ASSERT_EQ(p.split("-1.5"), 0);
  ASSERT_EQ(p.split("2"), 0);
  EXPECT_EQ(p.str(), "|2|");
}

TEST(SayAsCardinal, BadArgumentsWriteNothing) {
  Parts p;
  CStrAppend(p.sign, "s");
  EXPECT_EQ(p.split(nullptr), -10);
  EXPECT_EQ(p.split(""), -10);
  EXPECT_EQ(p.split("1", ""), -10);
  EXPECT_EQ(p.split("1", ".", ""), -10);
  EXPECT_EQ(p.split("1", nullptr), -10);
  EXPECT_EQ(p.split("1", ".", nullptr), -10);
  EXPECT_EQ(SayAsCardinal("1", ".", ",", nullptr, p.integer, p.fraction), -10);
  EXPECT_EQ(SayAsCardinal("1", ".", ",", p.sign, nullptr, p.fraction), -10);
  EXPECT_EQ(SayAsCardinal("1", ".", ",", p.sign, p.integer, nullptr), -10);
  EXPECT_EQ(p.str(), "s||");
}

}  // namespace
