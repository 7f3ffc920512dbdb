// Rewriting documents: cut and resume points, which text is looked at, and
// how rules see the text that earlier rules left.
#include <gtest/gtest.h>

#include "textnorm/replacer_fixture.h"

namespace textnorm_test {
namespace {

TEST(Replace, MatchBecomesElementBetweenTextPieces) {
  Replacer r("(\\d+)\t\"?0\"");
  EXPECT_EQ(r.run("ab12cd"), "[ab]<x src=\"12\">[12]</x>[cd]");
  EXPECT_EQ(r.run("12"), "<x src=\"12\">[12]</x>");
  EXPECT_EQ(r.run("1 and 22 and 333"),
            "<x src=\"1\">[1]</x>[ and ]<x src=\"22\">[22]</x>[ and ]<x src=\"333\">[333]</x>");
}

TEST(Replace, OnlyTheGroupsAreCut) {
  Replacer r("no(\\d+)\t\"?0\"");
  EXPECT_EQ(r.run("no5"), "[no]<x src=\"5\">[5]</x>");
  // From the first to the last non-empty group; the text between them goes too.
  Replacer span("<(\\d+)-(\\d+)>\t\"?0 to ?1\"");
  EXPECT_EQ(span.run("a&lt;1-2&gt;b"), "[a<]<x src=\"1-2\">[1 to 2]</x>[>b]");
}

TEST(Replace, TextAfterTheLastGroupIsSearchedAgain) {
  Replacer r("(\\d)-\t\"?0\"");
  EXPECT_EQ(r.run("1-2-3"), "<x src=\"1\">[1]</x>[-]<x src=\"2\">[2]</x>[-3]");
}

TEST(Replace, RuleWithoutGroupsAddsAfterTheMatch) {
  Replacer r("cat\t\"!\"");
  EXPECT_EQ(r.run("a cat b"), "[a cat]<x src=\"\">[!]</x>[ b]");
}

TEST(Replace, EmptyGroupsCountAsUnmatched) {
  // Group 1 matches the empty string: the cut falls at the end of the match.
  Replacer r("(\\d*)x\t\"?0\"");
  EXPECT_EQ(r.run("ax"), "[ax]<x src=\"\">[]</x>");
  // After the cut the rest "x" is searched again and matches with an empty group.
  EXPECT_EQ(r.run("a7x"), "[a]<x src=\"7\">[7]</x>[x]<x src=\"\">[]</x>");
}

TEST(Replace, EmptyMatchesDoNotStall) {
  Replacer r("\\d*\t\"|\"");
  EXPECT_EQ(r.run("ab"), "<x src=\"\">[|]</x>[a]<x src=\"\">[|]</x>[b]<x src=\"\">[|]</x>");
  // An empty match found past the search start is taken once, not twice.
  Replacer boundary("\\b\t\"|\"");
  EXPECT_EQ(boundary.run("ab cd"),
            "<x src=\"\">[|]</x>[ab]<x src=\"\">[|]</x>[ ]<x src=\"\">[|]</x>[cd]<x src=\"\">[|]</x>");
  // A non-empty match and an empty one at its end are two matches.
  EXPECT_EQ(r.run("12a"), "[12]<x src=\"\">[|]</x><x src=\"\">[|]</x>[a]<x src=\"\">[|]</x>");
  // The step over an empty match takes a whole UTF-8 character.
  Replacer any("(?:)\t\"|\"");
  EXPECT_EQ(any.run("\xC3\xA9"), "<x src=\"\">[|]</x>[\xC3\xA9]<x src=\"\">[|]</x>");
}

TEST(Replace, ProtectedElementsAndBlankTextAreLeftAlone) {
  Replacer r("(\\d+)\t\"?0\"\n(\\s+)\t\"_\"");
  EXPECT_EQ(r.run("<sub alias=\"a\">1</sub><say-as>2</say-as><xnum>3</xnum><xa><b>4</b></xa>"),
            "<sub alias=\"a\">[1]</sub><say-as>[2]</say-as><xnum>[3]</xnum><xa><b>[4]</b></xa>");
  EXPECT_EQ(r.run("<s>  </s><s>\n</s>"), "<s>[  ]</s><s>[\n]</s>");
  // Names are matched whole: these are ordinary elements.
  EXPECT_EQ(r.run("<subs>5</subs><say>6</say>"),
            "<subs><x src=\"5\">[5]</x></subs><say><x src=\"6\">[6]</x></say>");
}

TEST(Replace, TextInNestedElementsIsRewrittenInPlace) {
  Replacer r("(\\d+)\t\"?0\"");
  EXPECT_EQ(r.run("<p><s>a 1</s>b<s>2 c</s></p>"),
            "<p><s>[a ]<x src=\"1\">[1]</x></s>[b]<s><x src=\"2\">[2]</x>[ c]</s></p>");
}

TEST(Replace, LaterRulesSeeOnlyTheTextLeftOver) {
  Replacer r("(\\d+)\t\"?0\"\n(1)\t\"one\"\n(a)\t\"A\"");
  EXPECT_EQ(r.run("a1b"), "<x src=\"a\">[A]</x><x src=\"1\">[1]</x>[b]");
  // The element text "1" made by the first rule is not seen by the second.
  EXPECT_EQ(r.run("1"), "<x src=\"1\">[1]</x>");
}

TEST(Replace, LeftoverPiecesAreSeenByLaterRules) {
  Replacer r("(\\d)\t\"d\"\n([a-z])\t\"?0\"");
  EXPECT_EQ(r.run("a1b<s>c2</s>e"),
            "<x src=\"a\">[a]</x><x src=\"1\">[d]</x><x src=\"b\">[b]</x>"
            "<s><x src=\"c\">[c]</x><x src=\"2\">[d]</x></s><x src=\"e\">[e]</x>");
}

TEST(Replace, WordBoundariesSeeTheTextBeforeTheSearchStart) {
  // After the first match the search resumes mid-word: \b must not match there.
  Replacer r("\\b(ab)\t\"?0\"");
  EXPECT_EQ(r.run("abab ab"), "<x src=\"ab\">[ab]</x>[ab ]<x src=\"ab\">[ab]</x>");
}

TEST(Replace, OnlyTextUnderTheGivenNodeIsRewritten) {
  Replacer r("(\\d+)\t\"?0\"");
  Doc doc("<?xml version=\"1.0\"?><speak><s>1</s><p>2</p></speak>");
  HReplacer_replace(r.get(), find(doc.tree(), "p"));
  EXPECT_EQ(doc.str(), "<s>[1]</s><p><x src=\"2\">[2]</x></p>");
  // From the declaration node, everything in the document.
  HReplacer_replace(r.get(), doc.tree());
  EXPECT_EQ(doc.str(), "<s><x src=\"1\">[1]</x></s><p><x src=\"2\">[2]</x></p>");
}

TEST(Replace, NothingToDo) {
  Replacer r("(\\d+)\t\"?0\"");
  HReplacer_replace(r.get(), nullptr);
  HReplacer_replace(nullptr, nullptr);
  Doc empty("<speak/>");
  HReplacer_replace(r.get(), empty.tree());
  EXPECT_EQ(empty.str(), "");
  Replacer none;
  EXPECT_EQ(none.run("12"), "[12]");
}

TEST(Replace, ReplacingTwiceChangesNothingMore) {
  Replacer r("(\\d+)\t\"?0\"");
  Doc doc("<speak>a 1 b</speak>");
  HReplacer_replace(r.get(), doc.tree());
  const std::string once = doc.str();
  HReplacer_replace(r.get(), doc.tree());
  EXPECT_EQ(doc.str(), once);
}

}  // namespace
}  // namespace textnorm_test
