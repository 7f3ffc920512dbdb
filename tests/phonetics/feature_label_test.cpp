// feature_label_test.cpp - MakeFeatureLabel: fields joined exactly as the
// table gives them, value types, the "0" field, and the buffer bound that
// the header promises.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "phonetics/hierarchy_builder.h"

namespace {

using namespace phonetics_test;

struct Table {
  std::vector<const char *> names, prefixes, suffixes;
};

std::string label(const item *i, const Table &t) {
  std::string out(512, '\x7f');
  EXPECT_EQ(MakeFeatureLabel(i, t.names.data(), t.prefixes.data(), t.suffixes.data(),
                             static_cast<int>(t.names.size()), out.data()),
            0);
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

// The widest values: a 200-character string, several units of UTF-8 each,
// and the longest integer. The label must stay within the bound the header
// gives (prefix and suffix lengths, 127 bytes a field, the terminator);
// the bytes after it must be untouched.
TEST(FeatureLabel, WidestValuesStayWithinTheDocumentedBound) {
  Tree t(Shape{{1}});
  const std::u16string wide(200, u'\u4E2D');  // three UTF-8 bytes each
  item_set_wstring(t.phone(0), "wide", wide.c_str());
  item_set_int(t.phone(0), "min", INT32_MIN);
  const char *const names[] = {"wide", "min", "wide"};
  const char *const prefixes[] = {"<", "/", "["};
  const char *const suffixes[] = {">", "", "]"};
  const size_t bound = 5 + 3 * UTILS_LABEL_VALUE_MAX + 1;
  std::string out(bound + 16, '\x7f');
  EXPECT_EQ(MakeFeatureLabel(t.phone(0), names, prefixes, suffixes, 3, out.data()), 0);
  EXPECT_EQ(std::strlen(out.c_str()), 5 + 126 + 11 + 126);
  EXPECT_LE(std::strlen(out.c_str()) + 1, bound);
  EXPECT_EQ(out.substr(bound), std::string(16, '\x7f'));
  EXPECT_EQ(out.substr(0, 4), "<\xE4\xB8\xAD");
}

TEST(FeatureLabel, BadArguments) {
  char out[8] = "junk";
  const char *names[] = {"name"};
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, 1, nullptr), 0);
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, -1, out), 0);
  EXPECT_STREQ(out, "");
  std::strcpy(out, "junk");
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, 0, out), 0);
  EXPECT_STREQ(out, "");
  std::strcpy(out, "junk");
  EXPECT_EQ(MakeFeatureLabel(nullptr, nullptr, names, names, 1, out), 0);
  EXPECT_STREQ(out, "");
  std::strcpy(out, "junk");
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, nullptr, names, 1, out), 0);
  EXPECT_STREQ(out, "");
  std::strcpy(out, "junk");
  EXPECT_EQ(MakeFeatureLabel(nullptr, nullptr, nullptr, nullptr, 0, out), 0);
  EXPECT_STREQ(out, "");
}

// An unknown feature name prints "0", a step off the structure "x".
TEST(FeatureLabel, UnknownNamesAndMissingItems) {
  Tree t(Shape{{1}});
  const Table table{{"NoSuchFeature", "n.name", "parent.NoSuch", "PositionFW9"},
                    {"a:", "/b:", "/c:", "/d:"},
                    {"", "", "", ""}};
  EXPECT_EQ(label(t.phone(0), table), "a:0/b:x/c:0/d:0");
}

}  // namespace
