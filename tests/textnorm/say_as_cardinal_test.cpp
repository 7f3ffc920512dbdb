// say_as_cardinal_test.cpp - SayAsCardinal: splitting written numbers into
// sign, integer and fraction digits, and its argument checks.
#include <gtest/gtest.h>

#include <string>

#include "hconverter.h"

namespace {

struct Parts {
  CStr *sign = CStrCreate(0), *integer = CStrCreate(0), *fraction = CStrCreate(0);
  ~Parts() {
    for (CStr *s : {sign, integer, fraction}) CStrDestroy(s);
  }
  std::string split(const char *text, const char *point = ".", const char *group = ",") {
    const int status = SayAsCardinal(text, point, group, sign, integer, fraction);
    return std::to_string(status) + ":" + CStrStr(sign) + "|" + CStrStr(integer) + "|" +
           CStrStr(fraction);
  }
};

TEST(SayAsCardinal, SplitsSignIntegerAndFraction) {
  Parts p;  // one set of outputs throughout: each call empties them first
  const char *cases[][3] = {
      {" -1,234.5", ".", "0:-|1234|5"},
      {"12", ".", "0:|12|"},
      {"+7", ".", "0:+|7|"},
      {"\t\r\n3.25", ".", "0:|3|25"},
      // A second point is dropped.
      {"1.2.3", ".", "0:|1|23"},
      // A decimal comma, a blank as the group separator.
      {"1 000,75", ",", "0:|1000|75"},
      // Non-digits vanish.
      {"$12.50", ".", "0:|12|50"},
      {"-.5", ".", "0:-||5"},
      // Only the first byte of the point counts.
      {"1:30", ":.", "0:|1|30"},
      {"- 4", ".", "0:-|4|"},
      {"5-", ".", "0:|5|"},
      {"  \t", ".", "0:||"},
  };
  for (const auto &c : cases) EXPECT_EQ(p.split(c[0], c[1]), c[2]) << c[0];
}

TEST(SayAsCardinal, BadArgumentsWriteNothing) {
  Parts p;
  CStrAppend(p.sign, "s");
  const char *bad[][3] = {{nullptr, ".", ","}, {"", ".", ","},      {"1", "", ","},
                          {"1", ".", ""},      {"1", nullptr, ","}, {"1", ".", nullptr}};
  for (const auto &b : bad)
    EXPECT_EQ(p.split(b[0], b[1], b[2]), "-10:s||") << b[0] << "/" << b[1] << "/" << b[2];
  EXPECT_EQ(SayAsCardinal("1", ".", ",", nullptr, p.integer, p.fraction), -10);
  EXPECT_EQ(SayAsCardinal("1", ".", ",", p.sign, nullptr, p.fraction), -10);
  EXPECT_EQ(SayAsCardinal("1", ".", ",", p.sign, p.integer, nullptr), -10);
  EXPECT_EQ(p.split(nullptr), "-10:s||");
}

}  // namespace
