// replacer_test.cpp - the rule-set replacer: which rule lines load, the
// template language, and how documents are rewritten (cut and resume points,
// protected elements, rules in order seeing only the text earlier rules left).
#include <gtest/gtest.h>

#include <vector>

#include "textnorm/textnorm_fixture.h"

namespace {

using namespace textnorm_test;

struct Row {
  std::string rules;
  int rejected;
  const char *input, *expected;
};  // input null: load only

void check(const std::vector<Row> &rows) {
  for (const Row &row : rows) {
    Replacer r(row.rules);
    EXPECT_EQ(r.rejected, row.rejected) << row.rules;
    if (row.input == nullptr) continue;
    EXPECT_EQ(r.run(row.input), row.expected) << row.rules << " on " << row.input;
  }
}

TEST(Replacer, RuleSetLinesAreCountedAsRejectedOrSkipped) {
  check({
      {"# note", 1, nullptr, nullptr},  // a comment needs a tab after '#'
      {"# note\n", 1, nullptr, nullptr},
      {"#(\\d)\t\"?0\"", 0, "#5", "[#5]"},  // commented out, not loaded
      {"", 0, nullptr, nullptr},
      {"\n\n\r\n\r", 0, nullptr, nullptr},
      {"a\tx{}\n(\\d+)\t\"?0\"", 0, "7", "<x src=\"7\">[7]</x>"},  // last line without LF
      {"(\\d+)\t\"?0\"\r\n(b)\t\"B\"\r\n", 0, "b 7", "<x src=\"b\">[B]</x>[ ]<x src=\"7\">[7]</x>"},
      {"(\\d\r+)\t\"<?0\r>\"", 0, "42", "<x src=\"42\">[<42>]</x>"},  // CR dropped anywhere
      {"no tab here\n\t\"empty pattern\"\n(a)\t\n(a\t\"?0\"\n(b)\t\"?0\n(c)\t\"?1\"\n(d)\t\"?0\"\n",
       6, "a b c d", "[a b c ]<x src=\"d\">[d]</x>"},
      {"(a)(b)\t\"?0?1\"", 0, nullptr, nullptr},
      {"(a)(b)\t\"?2\"", 1, nullptr, nullptr},  // N equal to the group count
      {"(a)(b)\t\"?n:2\"", 1, nullptr, nullptr},
      {"ab\t\"?0\"", 1, nullptr, nullptr},
      {"(a)\t\"?99999999999999999999\"", 1, nullptr, nullptr},
      {"(" + std::string(300, 'a') + ")\t\"?0\"", 1, nullptr, nullptr},
      {"(a)\t\"" + std::string(300, 'b') + "\"", 1, nullptr, nullptr},
      {"(a)\t\"" + std::string(250, 'b') + "\"", 0, nullptr, nullptr},
      {"(a)\tx{ " + std::string(1100, ' ') + "}", 1, nullptr, nullptr},
      {"#\t" + std::string(2000, 'c'), 0, nullptr, nullptr},
  });
}

TEST(Replacer, RuleSetsAccumulateInOrderWithinTheGivenLength) {
  Replacer r("(\\d\\d)\t\"two\"");
  const std::string more = "(\\d)\t\"one\"\n(a)\t\"?0\"";
  EXPECT_EQ(HReplacer_addRuleSet(r.r, more.data(), static_cast<int>(more.find('\n'))), 0);
  EXPECT_EQ(r.run("12 3a"), "<x src=\"12\">[two]</x>[ ]<x src=\"3\">[one]</x>[a]");
  EXPECT_EQ(HReplacer_addRuleSet(r.r, "x", -1), 0);
  EXPECT_EQ(HReplacer_addRuleSet(r.r, nullptr, 5), 0);
  EXPECT_EQ(HReplacer_addRuleSet(nullptr, "x", 1), 0);
}

TEST(Replacer, Templates) {
  const std::string kg = "(\\d+) ?(kg)\t";
  check({
      {kg + "\"?num:0 ?1\"", 0, "12 kg", "<x src=\"12 kg\"><num>[12]</num>[ kg]</x>"},
      {"(\\d+)-(\\d+)\t\"from ?0 to ?1\"", 0, "3-4", "<x src=\"3-4\">[from 3 to 4]</x>"},
      {kg + "xmeasure { xnum{\"?0\"} \" \" xunit{\"?1\"} }", 0, "5 kg",
       "<xmeasure src=\"5 kg\"><xnum>[5]</xnum>[ ]<xunit>[kg]</xunit></xmeasure>"},
      {"(a)\t  e{}", 0, "a", "<e src=\"a\"></e>"},
      {"(\\d+):(\\d+)\txtime{\"?h:0\" \":\" \"?m:1\"}", 0, "7:05",
       "<xtime src=\"7:05\"><h>[7]</h>[:]<m>[05]</m></xtime>"},
      {"(a)\t\"\\\"?0\\\" \\?0 \\\\\"", 0, "a", "<x src=\"a\">[\"a\" ?0 \\]</x>"},  // escapes
      {"(\\d)\t\"?d:0\"", 0, "4", "<x src=\"4\"><d>[4]</d></x>"},  // no empty text nodes
      {"(\\d)\t\"\"", 0, "4", "<x src=\"4\"></x>"},
      {"(\\d+)(%)?\t\"[?0|?1]\"", 0, "5", "<x src=\"5\">[[5|]]</x>"},  // group that took no part
      {"(\\d+)(%)?\t\"?n:1\"", 0, "5", "<x src=\"5\"><n>[]</n></x>"},
      {kg + "\"?0\"   ", 0, nullptr, nullptr},
      {kg + "x{ y{ z{\"?n:1\"} } }", 0, nullptr, nullptr},
  });
  for (const char *bad : {"\"?0", "\"a\\", "x{\"?0\"", "x \"?0\"", "x", "{\"?0\"}", "\"?num 0\"",
                          "\"?:0\"", "\"?n:\"", "\"?0\" junk", "x{} y{}", "   "})
    EXPECT_EQ(Replacer(kg + bad).rejected, 1) << bad;
}

TEST(Replacer, CutAndResumePoints) {
  const std::string num = "(\\d+)\t\"?0\"", bar = "\t\"|\"";
  check({
      {num, 0, "ab12cd", "[ab]<x src=\"12\">[12]</x>[cd]"},
      {num, 0, "1 and 22", "<x src=\"1\">[1]</x>[ and ]<x src=\"22\">[22]</x>"},
      {"no(\\d+)\t\"?0\"", 0, "no5", "[no]<x src=\"5\">[5]</x>"},  // only the groups are cut
      {"<(\\d+)-(\\d+)>\t\"?0 to ?1\"", 0, "a&lt;1-2&gt;b", "[a<]<x src=\"1-2\">[1 to 2]</x>[>b]"},
      {"(\\d)-\t\"?0\"", 0, "1-2-3", "<x src=\"1\">[1]</x>[-]<x src=\"2\">[2]</x>[-3]"},
      {"cat\t\"!\"", 0, "a cat b", "[a cat]<x src=\"\">[!]</x>[ b]"},  // no groups: after the match
      {"(\\d*)x\t\"?0\"", 0, "ax", "[ax]<x src=\"\">[]</x>"},  // empty group: cut at the end
      {"(\\d*)x\t\"?0\"", 0, "a7x", "[a]<x src=\"7\">[7]</x>[x]<x src=\"\">[]</x>"},
      {"\\d*" + bar, 0, "ab", "<x src=\"\">[|]</x>[a]<x src=\"\">[|]</x>[b]<x src=\"\">[|]</x>"},
      {"\\d*" + bar, 0, "12a", "[12]<x src=\"\">[|]</x><x src=\"\">[|]</x>[a]<x src=\"\">[|]</x>"},
      {"\\b" + bar, 0, "ab cd",
       "<x src=\"\">[|]</x>[ab]<x src=\"\">[|]</x>[ ]<x src=\"\">[|]</x>[cd]<x src=\"\">[|]</x>"},
      {"(?:)" + bar, 0, "\xC3\xA9", "<x src=\"\">[|]</x>[\xC3\xA9]<x src=\"\">[|]</x>"},
      {"\\b(ab)\t\"?0\"", 0, "abab ab", "<x src=\"ab\">[ab]</x>[ab ]<x src=\"ab\">[ab]</x>"},
  });
}

TEST(Replacer, WhichTextTheRulesSee) {
  const std::string num = "(\\d+)\t\"?0\"";
  check({
      {num + "\n(\\s+)\t\"_\"", 0,
       "<sub alias=\"a\">1</sub><say-as>2</say-as><xnum>3</xnum><xa><b>4</b></xa><s>  "
       "</s><s>\n</s>",
       "<sub alias=\"a\">[1]</sub><say-as>[2]</say-as><xnum>[3]</xnum><xa><b>[4]</b></xa><s>[  "
       "]</s><s>[\n]</s>"},
      {num, 0, "<subs>5</subs><say>6</say>",
       "<subs><x src=\"5\">[5]</x></subs><say><x src=\"6\">[6]</x></say>"},
      {num, 0, "<p><s>a 1</s>b<s>2 c</s></p>",
       "<p><s>[a ]<x src=\"1\">[1]</x></s>[b]<s><x src=\"2\">[2]</x>[ c]</s></p>"},
      {num + "\n(1)\t\"one\"\n(a)\t\"A\"", 0, "a1b", "<x src=\"a\">[A]</x><x src=\"1\">[1]</x>[b]"},
      {"(\\d)\t\"d\"\n([a-z])\t\"?0\"", 0, "a1b<s>c2</s>",
       "<x src=\"a\">[a]</x><x src=\"1\">[d]</x><x src=\"b\">[b]</x><s><x src=\"c\">[c]</x><x "
       "src=\"2\">[d]</x></s>"},
      {"", 0, "12", "[12]"},
  });
  Replacer r(num);
  Doc doc("<?xml version=\"1.0\"?><speak><s>1</s><p>2</p></speak>");
  HReplacer_replace(r.r, find(doc.tree, "p"));
  EXPECT_EQ(doc.str(), "<s>[1]</s><p><x src=\"2\">[2]</x></p>");
  HReplacer_replace(r.r, doc.tree);  // from the declaration: everything, the rest untouched
  EXPECT_EQ(doc.str(), "<s><x src=\"1\">[1]</x></s><p><x src=\"2\">[2]</x></p>");
  HReplacer_replace(r.r, nullptr);
  HReplacer_replace(nullptr, doc.tree);
  EXPECT_EQ(r.run(""), "");
}

}  // namespace
