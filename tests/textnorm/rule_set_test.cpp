// Loading rule sets: which lines count as rejected, which are skipped, and
// that loaded rules keep their order across several rule sets.
#include <gtest/gtest.h>

#include "textnorm/replacer_fixture.h"

namespace textnorm_test {
namespace {

TEST(RuleSet, CommentNeedsATabToBeSkipped) {
  EXPECT_EQ(Replacer("# note").rejected(), 1);
  EXPECT_EQ(Replacer("# note\n").rejected(), 1);
  EXPECT_EQ(Replacer("#\tnote").rejected(), 0);  // would be a bad template otherwise
  // A commented-out rule is not loaded.
  Replacer r("#(\\d)\t\"?0\"");
  EXPECT_EQ(r.rejected(), 0);
  EXPECT_EQ(r.run("#5"), "[#5]");
}

TEST(RuleSet, LineEndings) {
  Replacer lastLineWithoutLf("a\tx{}\n(\\d+)\t\"?0\"");
  EXPECT_EQ(lastLineWithoutLf.rejected(), 0);
  EXPECT_EQ(lastLineWithoutLf.run("7"), "<x src=\"7\">[7]</x>");

  Replacer crlf("(\\d+)\t\"?0\"\r\n(b)\t\"B\"\r\n");
  EXPECT_EQ(crlf.rejected(), 0);
  EXPECT_EQ(crlf.run("b 7"), "<x src=\"b\">[B]</x>[ ]<x src=\"7\">[7]</x>");

  // CR bytes are dropped wherever they stand, even inside a rule.
  Replacer strayCr("(\\d\r+)\t\"<?0\r>\"");
  EXPECT_EQ(strayCr.rejected(), 0);
  EXPECT_EQ(strayCr.run("42"), "<x src=\"42\">[<42>]</x>");
}

TEST(RuleSet, EmptyLinesAreNotCounted) {
  EXPECT_EQ(Replacer("").rejected(), 0);
  EXPECT_EQ(Replacer("\n\n\r\n\r").rejected(), 0);
}

TEST(RuleSet, BadLinesAreCountedAndTheRestStillLoads) {
  const std::string rules =
      "no tab here\n"
      "\t\"empty pattern\"\n"
      "(a)\t\n"              // empty template
      "(a\t\"?0\"\n"          // pattern does not compile
      "(b)\t\"?0\n"           // quoted body not closed
      "(c)\t\"?1\"\n"         // names group 2 of a one-group pattern
      "(d)\t\"?0\"\n";        // fine
  Replacer r(rules);
  EXPECT_EQ(r.rejected(), 6);
  EXPECT_EQ(r.run("a b c d"), "[a b c ]<x src=\"d\">[d]</x>");
}

TEST(RuleSet, GroupNumberMustNameAnExistingGroup) {
  EXPECT_EQ(Replacer("(a)(b)\t\"?0?1\"").rejected(), 0);
  EXPECT_EQ(Replacer("(a)(b)\t\"?2\"").rejected(), 1);      // N equal to the group count
  EXPECT_EQ(Replacer("(a)(b)\t\"?3\"").rejected(), 1);
  EXPECT_EQ(Replacer("(a)(b)\t\"?n:2\"").rejected(), 1);
  EXPECT_EQ(Replacer("ab\t\"?0\"").rejected(), 1);          // no groups at all
  EXPECT_EQ(Replacer("(a)\t\"?99999999999999999999\"").rejected(), 1);
}

TEST(RuleSet, LengthBoundsTheText) {
  Replacer r;
  const std::string rules = "(\\d+)\t\"?0\"\n(a)\t\"?0\"";
  // Only the first line lies inside the given length; the text needs no NUL.
  EXPECT_EQ(HReplacer_addRuleSet(r.get(), rules.data(), static_cast<int>(rules.find('\n'))), 0);
  EXPECT_EQ(r.run("a1"), "[a]<x src=\"1\">[1]</x>");
  EXPECT_EQ(HReplacer_addRuleSet(r.get(), "x", -1), 0);
  EXPECT_EQ(HReplacer_addRuleSet(r.get(), nullptr, 5), 0);
  EXPECT_EQ(HReplacer_addRuleSet(nullptr, "x", 1), 0);
}

TEST(RuleSet, SetsAccumulateInLoadOrder) {
  Replacer r("(\\d\\d)\t\"two\"");
  EXPECT_EQ(r.load("(\\d)\t\"one\""), 0);
  // The two-digit rule came first, so it takes "12" before the one-digit rule runs.
  EXPECT_EQ(r.run("12 3"), "<x src=\"12\">[two]</x>[ ]<x src=\"3\">[one]</x>");
}

TEST(RuleSet, OverlongPiecesAreRejected) {
  const std::string longPattern = "(" + std::string(300, 'a') + ")";
  EXPECT_EQ(Replacer(longPattern + "\t\"?0\"").rejected(), 1);
  const std::string longTemplate = "\"" + std::string(300, 'b') + "\"";
  EXPECT_EQ(Replacer("(a)\t" + longTemplate).rejected(), 1);
  const std::string longLine = "(a)\tx{ " + std::string(1100, ' ') + "}";
  EXPECT_EQ(Replacer(longLine).rejected(), 1);
  // The same template at a length within bounds loads.
  EXPECT_EQ(Replacer("(a)\t\"" + std::string(250, 'b') + "\"").rejected(), 0);
  // A long comment is still only a comment.
  EXPECT_EQ(Replacer("#\t" + std::string(2000, 'c')).rejected(), 0);
}

}  // namespace
}  // namespace textnorm_test
