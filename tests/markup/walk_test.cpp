/* walk_test.cpp - document-order walks bounded by a top item, attributes
 * inherited from ancestors, ancestors by tag, and the start/end mark span. */
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "markup_fixture.h"
#include "utt_walk.h"

namespace {

using markup_test::describe;
using markup_test::find_tag;
using markup_test::Utt;

// speak > p > (s[fr] > (word "un", word "deux"), s > word "three"), s > (mark, word "x")
const char kDoc[] =
    "<speak xml:lang=\"en\"><p><s xml:lang=\"fr\"><word>un</word><word>deux</word></s>"
    "<s><word>three</word></s></p><s><mark name=\"a\"/><word>x</word></s></speak>";

// Short label of an item: its tag, or its text in quotes.
std::string label(item *i) {
  if (!i) return "(none)";
  if (item_feat_present(i, "tag")) return markup_test::utf8(item_feat_wstring(i, "tag"));
  return "'" + markup_test::utf8(item_feat_wstring(i, "text")) + "'";
}

std::vector<std::string> walk_forward(item *from, item *top, int descend) {
  std::vector<std::string> seen;
  for (item *i = utt_walk_next(from, top, descend); i; i = utt_walk_next(i, top, descend)) {
    seen.push_back(label(i));
  }
  return seen;
}

class WalkTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(utt.load(kDoc), 1); }
  item *root() { return utt.root(); }
  Utt utt;
};

TEST_F(WalkTest, NextVisitsTheSubtreeInDocumentOrder) {
  std::vector<std::string> expected = {"p",     "s",     "word", "'un'", "word", "'deux'", "s",
                                       "word", "'three'", "s",    "mark", "word", "'x'"};
  EXPECT_EQ(walk_forward(root(), root(), 1), expected);
}

TEST_F(WalkTest, NextFromTheTopAndWithoutDescending) {
  EXPECT_EQ(utt_walk_next(root(), root(), 0), nullptr);
  EXPECT_EQ(utt_walk_next(root(), root(), 1), item_daughter(root()));
  // Without descending, the daughters of each visited item are skipped.
  item *p = item_daughter(root());
  EXPECT_EQ(label(utt_walk_next(p, root(), 0)), "s");
  EXPECT_EQ(utt_walk_next(p, root(), 0), item_next(p));
  EXPECT_EQ(walk_forward(item_daughter(p), root(), 0), (std::vector<std::string>{"s", "s"}));
}

TEST_F(WalkTest, NextNeverLeavesTheTopsSubtree) {
  item *fr = item_daughter(item_daughter(root()));
  EXPECT_EQ(walk_forward(fr, fr, 1),
            (std::vector<std::string>{"word", "'un'", "word", "'deux'"}));
  // From the last item inside the bound, the climb stops at the top.
  item *deux_text = item_daughter(item_last_daughter(fr));
  EXPECT_EQ(utt_walk_next(deux_text, fr, 1), nullptr);
}

TEST_F(WalkTest, PrevIsTheExactReverseOfNext) {
  std::vector<item *> forward;
  for (item *i = utt_walk_next(root(), root(), 1); i; i = utt_walk_next(i, root(), 1)) {
    forward.push_back(i);
  }
  std::vector<item *> backward;
  for (item *i = forward.back(); i; i = utt_walk_prev(i, root(), 1)) backward.push_back(i);
  ASSERT_EQ(backward.size(), forward.size());
  for (size_t k = 0; k < forward.size(); ++k) {
    EXPECT_EQ(backward[k], forward[forward.size() - 1 - k]) << k;
  }
}

TEST_F(WalkTest, PrevStopsAtTheTopAndDescendsIntoThePreviousSibling) {
  item *p = item_daughter(root());
  item *last_s = item_next(p);
  EXPECT_EQ(utt_walk_prev(p, root(), 1), nullptr);  // the top is never returned
  EXPECT_EQ(utt_walk_prev(root(), root(), 1), nullptr);
  EXPECT_EQ(label(utt_walk_prev(last_s, root(), 1)), "'three'");  // deepest last descendant
  EXPECT_EQ(utt_walk_prev(last_s, root(), 0), p);
  // Without a previous sibling the parent comes next.
  item *mark = item_daughter(last_s);
  EXPECT_EQ(utt_walk_prev(mark, root(), 1), last_s);
}

TEST_F(WalkTest, TaggedWalksSkipTheStartAndOtherTags) {
  std::vector<std::string> words;
  for (item *w = utt_walk_next_tag(root(), root(), 1, u"word"); w;
       w = utt_walk_next_tag(w, root(), 1, u"word")) {
    words.push_back(describe(w));
  }
  EXPECT_EQ(words, (std::vector<std::string>{"word(\"un\")", "word(\"deux\")", "word(\"three\")",
                                             "word(\"x\")"}));
  item *first_s = find_tag(root(), u"s");
  // Searching an item's own subtree never returns the item itself.
  EXPECT_EQ(utt_walk_next_tag(first_s, first_s, 1, u"s"), nullptr);
  EXPECT_EQ(describe(utt_walk_next_tag(first_s, first_s, 1, u"word")), "word(\"un\")");
  EXPECT_EQ(find_tag(find_tag(root(), u"mark"), u"word"), nullptr);  // a mark holds nothing
  item *mark = utt_walk_next_tag(root(), root(), 1, u"mark");
  EXPECT_EQ(describe(utt_walk_prev_tag(mark, root(), 1, u"word")), "word(\"three\")");
  EXPECT_EQ(utt_walk_prev_tag(mark, root(), 1, u"Word"), nullptr);  // case-sensitive
}

TEST(Walk, NullItemsGiveNull) {
  EXPECT_EQ(utt_walk_next(nullptr, nullptr, 1), nullptr);
  EXPECT_EQ(utt_walk_prev(nullptr, nullptr, 1), nullptr);
  EXPECT_EQ(utt_walk_next_tag(nullptr, nullptr, 1, u"s"), nullptr);
  EXPECT_EQ(GetInheritAtt(nullptr, "xml:lang"), nullptr);
  EXPECT_EQ(IsHasInheritAtt(nullptr, "xml:lang", nullptr), 0);
  EXPECT_EQ(GetItemAncestor(nullptr, u"s"), nullptr);
  EXPECT_EQ(IsBetweenMark(nullptr, nullptr), 0);
}

TEST_F(WalkTest, InheritedAttributeComesFromTheNearestHolder) {
  item *un = find_tag(root(), u"word");
  item *deux = utt_walk_next_tag(un, root(), 1, u"word");
  item *three = utt_walk_next_tag(deux, root(), 1, u"word");
  EXPECT_EQ(std::u16string(GetInheritAtt(un, "xml:lang")), u"fr");
  EXPECT_EQ(std::u16string(GetInheritAtt(item_daughter(un), "xml:lang")), u"fr");  // text item
  EXPECT_EQ(std::u16string(GetInheritAtt(three, "xml:lang")), u"en");
  EXPECT_EQ(std::u16string(GetInheritAtt(root(), "xml:lang")), u"en");
  EXPECT_EQ(GetInheritAtt(un, "voice"), nullptr);
  EXPECT_EQ(GetInheritAtt(un, ""), nullptr);
  EXPECT_EQ(GetInheritAtt(un, nullptr), nullptr);
  // The item's own value wins.
  item_set_wstring(un, "xml:lang", u"de");
  EXPECT_EQ(std::u16string(GetInheritAtt(un, "xml:lang")), u"de");
}

TEST_F(WalkTest, InheritedAttributeTestUsesOnlyTheNearestValue) {
  item *un = find_tag(root(), u"word");
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", nullptr), 1);
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", u"fr"), 1);
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", u"en"), 0);  // the root's value is shadowed
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", u"FR"), 0);
  EXPECT_EQ(IsHasInheritAtt(un, "gender", nullptr), 0);
  EXPECT_EQ(IsHasInheritAtt(un, "", nullptr), 0);
}

TEST_F(WalkTest, AncestorByTagCountsTheItemItself) {
  item *un = find_tag(root(), u"word");
  item *un_text = item_daughter(un);
  EXPECT_EQ(GetItemAncestor(un, u"word"), un);
  EXPECT_EQ(label(GetItemAncestor(un_text, u"p")), "p");
  EXPECT_EQ(GetItemAncestor(un_text, u"speak"), root());
  EXPECT_EQ(GetItemAncestor(un_text, u"voice"), nullptr);
  EXPECT_EQ(GetItemAncestor(un_text, u""), un);      // the parent
  EXPECT_EQ(GetItemAncestor(un_text, nullptr), un);  // the parent
  // A root has no parent: null even for its own tag.
  EXPECT_EQ(GetItemAncestor(root(), u"speak"), nullptr);
  EXPECT_EQ(GetItemAncestor(root(), nullptr), nullptr);
}

// The labels of the text items that lie between the marks.
std::string texts_between(Utt &utt) {
  std::string out;
  for (item *i = utt_walk_next(utt.root(), utt.root(), 1); i; i = utt_walk_next(i, utt.root(), 1)) {
    if (!item_feat_present(i, "tag") && IsBetweenMark(utt.root(), i)) out += label(i);
  }
  return out;
}

TEST(BetweenMark, WithoutMarksEverythingIsInside) {
  Utt utt;
  ASSERT_EQ(utt.load(kDoc), 1);
  for (item *i = utt_walk_next(utt.root(), utt.root(), 1); i; i = utt_walk_next(i, utt.root(), 1)) {
    EXPECT_EQ(IsBetweenMark(utt.root(), i), 1) << label(i);
  }
}

TEST(BetweenMark, StartAndEndMarksSelectTheSpan) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak startmark=\"b\" endmark=\"e\"><s>one <mark name=\"b\"/>two "
                     "<mark name=\"e\"/>three</s><s>four</s></speak>"),
            1);
  EXPECT_EQ(texts_between(utt), "'two '");
  item *s = find_tag(utt.root(), u"s");
  item *b = find_tag(utt.root(), u"mark");
  item *e = utt_walk_next_tag(b, utt.root(), 1, u"mark");
  EXPECT_EQ(IsBetweenMark(utt.root(), s), 1);  // both marks are inside its own subtree
  EXPECT_EQ(IsBetweenMark(utt.root(), b), 1);
  EXPECT_EQ(IsBetweenMark(utt.root(), e), 1);  // the end mark is not before itself
  EXPECT_EQ(IsBetweenMark(utt.root(), item_next(s)), 0);
}

TEST(BetweenMark, OnlyAStartMarkLeavesTheEndOpen) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak startmark=\"b\"><s>one <mark name=\"b\"/>two</s><s>three</s></speak>"),
            1);
  EXPECT_EQ(texts_between(utt), "'two''three'");
}

TEST(BetweenMark, EveryMarkOfTheNameCounts) {
  Utt utt;
  // Two start marks called "b": text before the later one is outside.
  ASSERT_EQ(utt.load("<speak startmark=\"b\" endmark=\"z\"><s><mark name=\"b\"/>one "
                     "<mark name=\"b\"/>two <mark name=\"c\"/>three</s></speak>"),
            1);
  EXPECT_EQ(texts_between(utt), "'two ''three'");
}

TEST(BetweenMark, AnEnclosingEndMarkIsBefore) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak endmark=\"e\"><s>in</s><mark name=\"e\"><word>out</word></mark></speak>"),
            1);
  EXPECT_EQ(texts_between(utt), "'in'");
}

}  // namespace
