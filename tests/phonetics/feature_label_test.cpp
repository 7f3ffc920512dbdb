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

// Phone p1 of words [p0 p1][p2 p3 p4] [p5], with values of every kind; -1
// stands for no item at all.
TEST(FeatureLabel, FieldsValuesAndMissingParts) {
  Tree t(Shape{{2, 3}, {1}});
  item *p = t.phone(1);
  item_set_int(p, "pho-pos", -42);
  item_set_float(p, "score", 1.5f);
  item_set_wstring(p, "ipa", u"\u014B\u0259");
  item_set_int(p, "min", INT32_MIN);
  item_set_int(p, "zero", 0);
  item_set_wstring(p, "long", std::u16string(200, u'a').c_str());
  struct Case {
    const char *what;
    int phone;
    Table table;
    std::string want;
  };
  const Case kCases[] = {
      {"fields in order, no separators",
       1,
       {{"p.name", "name", "n.name", "PositionFW", "parent.parent.name"},
        {"", "-", "+", "/A:", "@"},
        {"", "", "", "_", "!"}},
       "p0-p1+x/A:2_@w0!"},
      {"the \"0\" field does not look at the item",
       -1,
       {{"0", "name"}, {"a=", "/b="}, {"", ";"}},
       "a=0/b=x;"},
      {"integer, float (empty) and string values",
       1,
       {{"pho-pos", "score", "ipa"}, {"[", "[", "["}, {"]", "]", "]"}},
       "[-42][][\xC5\x8B\xC9\x99]"},
      {"extreme integers", 1, {{"min", "zero"}, {"", "/"}, {"", ""}}, "-2147483648/0"},
      {"long strings stop at 127 bytes",
       1,
       {{"long"}, {"<"}, {">"}},
       "<" + std::string(127, 'a') + ">"},
      {"null prefix, suffix and name",
       1,
       {{nullptr, "name"}, {nullptr, "|"}, {"~", nullptr}},
       "0~|p1"},
      {"unknown names print 0, steps off the structure x",
       5,
       {{"NoSuchFeature", "n.name", "parent.NoSuch", "PositionFW9"},
        {"a:", "/b:", "/c:", "/d:"},
        {"", "", "", ""}},
       "a:0/b:x/c:0/d:0"},
  };
  for (const Case &c : kCases)
    EXPECT_EQ(label(c.phone < 0 ? nullptr : t.phone(c.phone), c.table), c.want) << c.what;
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
  const char *names[] = {"name"};
  EXPECT_EQ(MakeFeatureLabel(nullptr, names, names, names, 1, nullptr), 0);
  struct Case {
    const char *const *names, *const *prefixes, *const *suffixes;
    int n;
  };
  for (const Case &c :
       {Case{names, names, names, -1}, Case{names, names, names, 0}, Case{nullptr, names, names, 1},
        Case{names, nullptr, names, 1}, Case{nullptr, nullptr, nullptr, 0}}) {
    char out[8] = "junk";
    EXPECT_EQ(MakeFeatureLabel(nullptr, c.names, c.prefixes, c.suffixes, c.n, out), 0);
    EXPECT_STREQ(out, "") << c.n;
  }
}

}  // namespace
