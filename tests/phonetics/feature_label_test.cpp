// feature_label_test.cpp - MakeFeatureLabel: fields joined exactly as the
// table gives them, value types, the "0" field, and labels that do not fit.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "phonetics/hierarchy_builder.h"

namespace {

using namespace phonetics_test;

struct Table {
  std::vector<const char *> names, prefixes, suffixes;
};

std::string label(const item *i, const Table &t, size_t size = 512, int *result = nullptr) {
  std::string out(size, '\x7f');
  int r = MakeFeatureLabel(i, t.names.data(), t.prefixes.data(), t.suffixes.data(),
                           static_cast<int>(t.names.size()), out.data(), size);
  if (result != nullptr) *result = r;
  return std::string(out.c_str());
}

TEST(FeatureLabel, FieldsInOrderWithoutSeparators) {
  Tree t(Shape{{2, 3}, {1}});
  const Table table{{"p.name", "name", "n.name", "PositionFW", "parent.parent.name"},
                    {"", "-", "+", "/A:", "@"},
                    {"", "", "", "_", "!"}};
  EXPECT_EQ(label(t.phone(1), table), "p0-p1+x/A:2_@w0!");
}

TEST(FeatureLabel, ZeroFieldPrintsZeroWithoutLookingAtTheItem) {
  const Table table{{"0", "name"}, {"a=", "/b="}, {"", ";"}};
  EXPECT_EQ(label(nullptr, table), "a=0/b=x;");
}

TEST(FeatureLabel, ValueTypes) {
  Tree t(Shape{{1}});
  item *p = t.phone(0);
  item_set_int(p, "pho-pos", -42);
  item_set_float(p, "score", 1.5f);
  item_set_wstring(p, "ipa", u"\u014B\u0259");
  const Table table{{"pho-pos", "score", "ipa"}, {"[", "[", "["}, {"]", "]", "]"}};
  EXPECT_EQ(label(p, table), "[-42][][\xC5\x8B\xC9\x99]");
}

TEST(FeatureLabel, ExtremeIntegers) {
  Tree t(Shape{{1}});
  item_set_int(t.phone(0), "min", INT32_MIN);
  item_set_int(t.phone(0), "zero", 0);
  const Table table{{"min", "zero"}, {"", "/"}, {"", ""}};
  EXPECT_EQ(label(t.phone(0), table), "-2147483648/0");
}

TEST(FeatureLabel, LongStringValuesStopAt127Bytes) {
  Tree t(Shape{{1}});
  const std::u16string long_value(200, u'a');
  item_set_wstring(t.phone(0), "long", long_value.c_str());
  const Table table{{"long"}, {"<"}, {">"}};
  EXPECT_EQ(label(t.phone(0), table), "<" + std::string(127, 'a') + ">");
}

TEST(FeatureLabel, NullPrefixSuffixAndNameAreTolerated) {
  Tree t(Shape{{1}});
  const Table table{{nullptr, "name"}, {nullptr, "|"}, {"~", nullptr}};
  EXPECT_EQ(label(t.phone(0), table), "0~|p0");
}

TEST(FeatureLabel, ALabelThatDoesNotFitIsCutAndRefused) {
  Tree t(Shape{{1}});
  const Table table{{"name", "name"}, {"abc", "def"}, {"", ""}};
  int result = 0;
  EXPECT_EQ(label(t.phone(0), table, 6, &result), "abcp0");
  EXPECT_EQ(result, -1);
  EXPECT_EQ(label(t.phone(0), table, 11, &result), "abcp0defp0");
  EXPECT_EQ(result, 0);
  EXPECT_EQ(label(t.phone(0), table, 10, &result), "abcp0defp");
  EXPECT_EQ(result, -1);
  EXPECT_EQ(label(t.phone(0), table, 1, &result), "");
  EXPECT_EQ(result, -1);
}

TEST(FeatureLabel, BadArguments) {
  char out[8] = "junk";
  const char *names[] = {"name"};
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, 1, nullptr, 8), -1);
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, 1, out, 0), -1);
  EXPECT_STREQ(out, "junk");
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, -1, out, sizeof out), -1);
  EXPECT_STREQ(out, "");
  EXPECT_EQ(MakeFeatureLabel(nullptr, nullptr, names, names, 1, out, sizeof out), -1);
  EXPECT_EQ(MakeFeatureLabel(nullptr, nullptr, nullptr, nullptr, 0, out, sizeof out), 0);
  EXPECT_STREQ(out, "");
}

}  // namespace
