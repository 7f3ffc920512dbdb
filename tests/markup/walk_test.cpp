// walk_test.cpp - document-order walks bounded by a top item, attributes
// inherited from ancestors, ancestors by tag, and the start/end mark span.
#include <gtest/gtest.h>

#include "markup_fixture.h"

namespace {

using namespace markup_test;

const char kDoc[] =
    "<speak xml:lang=\"en\"><p><s xml:lang=\"fr\"><word>un</word><word>deux</word></s>"
    "<s><word>three</word></s></p><s><mark name=\"a\"/><word>x</word></s></speak>";

// An item's tag, or its text in quotes.
std::string label(item *i) {
  return item_feat_present(i, "tag") ? utf8(item_feat_wstring(i, "tag"))
                                     : "'" + utf8(item_feat_wstring(i, "text")) + "'";
}

// The items a walk visits; with `between`, only those between the marks.
std::string walk(item *from, item *top, int descend, item *(*step)(item *, item *, int),
                 bool between = false) {
  std::string seen;
  for (item *i = step(from, top, descend); i != nullptr; i = step(i, top, descend)) {
    if (!between || IsBetweenMark(top, i)) seen += (seen.empty() ? "" : " ") + label(i);
  }
  return seen;
}

TEST(Walk, WalksStayInsideTheTopAndPrevReversesNext) {
  Utt utt;
  ASSERT_EQ(utt.load(kDoc), 1);
  item *root = utt.root(), *p = item_daughter(root), *fr = item_daughter(p), *last_s = item_next(p);
  EXPECT_EQ(walk(root, root, 1, utt_walk_next),
            "p s word 'un' word 'deux' s word 'three' s mark word 'x'");
  EXPECT_EQ(walk(root, root, 0, utt_walk_next), "");
  EXPECT_EQ(walk(fr, root, 0, utt_walk_next), "s s");  // daughters skipped
  EXPECT_EQ(walk(fr, fr, 1, utt_walk_next), "word 'un' word 'deux'");
  item *x_text = item_daughter(item_last_daughter(last_s));
  EXPECT_EQ(walk(x_text, root, 1, utt_walk_prev),
            "word mark s 'three' word s 'deux' word 'un' word s p");
  EXPECT_EQ(utt_walk_prev(last_s, root, 0), p);
  std::string words;
  for (item *w = find_tag(root, u"word"); w != nullptr; w = utt_walk_next_tag(w, root, 1, u"word"))
    words += describe(w);
  EXPECT_EQ(words, "word(\"un\")word(\"deux\")word(\"three\")word(\"x\")");
  EXPECT_EQ(utt_walk_next_tag(fr, fr, 1, u"s"), nullptr);  // never the start itself
  item *mark = find_tag(root, u"mark");
  EXPECT_EQ(describe(utt_walk_prev_tag(mark, root, 1, u"word")), "word(\"three\")");
  EXPECT_EQ(utt_walk_prev_tag(mark, root, 1, u"Word"), nullptr);  // case-sensitive
}

TEST(Walk, InheritedAttributesAndAncestors) {
  Utt utt;
  ASSERT_EQ(utt.load(kDoc), 1);
  item *root = utt.root(), *un = find_tag(root, u"word"), *un_text = item_daughter(un);
  item *three = utt_walk_next_tag(utt_walk_next_tag(un, root, 1, u"word"), root, 1, u"word");
  EXPECT_EQ(utf8(GetInheritAtt(un_text, "xml:lang")), "fr");  // the nearest holder
  EXPECT_EQ(utf8(GetInheritAtt(three, "xml:lang")), "en");
  for (const char *absent : {"voice", "", static_cast<const char *>(nullptr)})
    EXPECT_EQ(GetInheritAtt(un, absent), nullptr);
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", nullptr), 1);
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", u"fr"), 1);
  EXPECT_EQ(IsHasInheritAtt(un, "xml:lang", u"en"), 0);  // the root's value is shadowed
  EXPECT_EQ(IsHasInheritAtt(un, "gender", nullptr), 0);
  item_set_wstring(un, "xml:lang", u"de");  // the item's own value wins
  EXPECT_EQ(utf8(GetInheritAtt(un, "xml:lang")), "de");
  EXPECT_EQ(GetItemAncestor(un, u"word"), un);  // counts the item itself
  EXPECT_EQ(GetItemAncestor(un_text, u"speak"), root);
  EXPECT_EQ(GetItemAncestor(un_text, u"voice"), nullptr);
  EXPECT_EQ(GetItemAncestor(un_text, nullptr), un);     // the parent
  EXPECT_EQ(GetItemAncestor(root, u"speak"), nullptr);  // a root has no parent
  EXPECT_EQ(utt_walk_next(nullptr, nullptr, 1), nullptr);
  EXPECT_EQ(utt_walk_prev_tag(nullptr, nullptr, 1, u"s"), nullptr);
  EXPECT_EQ(IsHasInheritAtt(nullptr, "xml:lang", nullptr), 0);
  EXPECT_EQ(IsBetweenMark(nullptr, nullptr), 0);
}

TEST(BetweenMark, StartAndEndMarksSelectTheSpan) {
  for (auto &c : read_cases("between_mark.cases")) {  // document, items inside the span
    Utt utt;
    ASSERT_EQ(utt.load(c[0]), 1);
    EXPECT_EQ(walk(utt.root(), utt.root(), 1, utt_walk_next, true), c[1]) << c[0];
  }
}

}  // namespace
