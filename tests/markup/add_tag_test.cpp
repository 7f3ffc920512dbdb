/* add_tag_test.cpp - inserting structural elements with AddTag and callbacks
 * that gather runs of siblings into a new element as a front end does, and
 * moving subtrees with move_tree. */
#include <gtest/gtest.h>

#include <string>

#include "markup_fixture.h"
#include "ssml_tags.h"

namespace {

using markup_test::describe;
using markup_test::find_tag;
using markup_test::Utt;

// What the callbacks of one AddTag call share.
struct Gatherer {
  const bsr_wchar *tag;
  int text_calls = 0;
  int element_calls = 0;
  const bsr_wchar *decline = nullptr;  // elements with this tag are declined
};

// A new element linked before the first item it will wrap.
item *open_wrapper(item *first, const bsr_wchar *tag) {
  item *wrapper = item_prepend(first, nullptr);
  item_set_wstring(wrapper, "tag", tag);
  return wrapper;
}

// Text is copied into the wrapper (the walk then deletes the original).
item *gather_text(item *text, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  ++g->text_calls;
  if (!wrapper) wrapper = open_wrapper(text, g->tag);
  item *copy = item_add_daughter(wrapper, nullptr);
  item_set_wstring(copy, "text", item_feat_wstring(text, "text"));
  return wrapper;
}

// Elements are moved into the wrapper whole.
item *gather_element(item *element, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  ++g->element_calls;
  const bsr_wchar *tag = item_feat_wstring(element, "tag");
  if (g->decline && std::u16string(tag) == g->decline) return nullptr;
  if (!wrapper) wrapper = open_wrapper(element, g->tag);
  move_tree(wrapper, element);
  return wrapper;
}

std::string add_sentences(Utt &utt, Gatherer &g) {
  g.tag = SentenceTagName();
  EXPECT_EQ(AddTag(utt.root(), SentenceTagName(), SentenceChildTag(), SentenceParentTag(), gather_text,
                   gather_element, &g),
            1);
  return utt.tree();
}

TEST(AddTag, GathersARunOfTextAndInlineElementsIntoOneSentence) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak xml:lang=\"en-US\"><p>Hello <emphasis>big</emphasis> world."
                     "<break time=\"1s\"/>Bye</p></speak>"),
            1);
  Gatherer g;
  EXPECT_EQ(add_sentences(utt, g),
            "speak[xml:lang=en-US](p(s(\"Hello \",emphasis(\"big\"),\" world.\",break[time=1s],\"Bye\")))");
  EXPECT_EQ(g.text_calls, 3);
  EXPECT_EQ(g.element_calls, 2);
  // The wrapper is a proper daughter of the paragraph.
  item *s = find_tag(utt.root(), u"s");
  EXPECT_EQ(describe(item_parent(s)).substr(0, 2), "p(");
  EXPECT_EQ(describe(GetItemAncestor(find_tag(utt.root(), u"break"), u"p")).substr(0, 2), "p(");
}

TEST(AddTag, RunsBreakAtElementsNotHandedToACallback) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak>One<p>Two</p>Three<s>Four</s>Five</speak>"), 1);
  Gatherer g;
  EXPECT_EQ(add_sentences(utt, g), "speak(s(\"One\"),p(s(\"Two\")),s(\"Three\"),s(\"Four\"),s(\"Five\"))");
}

TEST(AddTag, ElementsAlreadyHoldingTheTagAreEnteredNotWrapped) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><voice gender=\"female\">x<s>y</s></voice>z<prosody rate=\"fast\">w</prosody></speak>"),
            1);
  Gatherer g;
  // The voice holds a sentence, so it is entered; the prosody holds none and
  // is wrapped whole, together with the text before it.
  EXPECT_EQ(add_sentences(utt, g),
            "speak(voice[gender=female](s(\"x\"),s(\"y\")),s(\"z\",prosody[rate=fast](\"w\")))");
}

TEST(AddTag, RunsBreakAtTheEndOfASiblingList) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><p>a<break/></p>b</speak>"), 1);
  Gatherer g;
  EXPECT_EQ(add_sentences(utt, g), "speak(p(s(\"a\",break)),s(\"b\"))");
}

TEST(AddTag, DeclinedElementsStayAndEndTheRun) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak>a<break/>b<mark name=\"m\"/>c</speak>"), 1);
  Gatherer g;
  g.decline = u"break";
  EXPECT_EQ(add_sentences(utt, g), "speak(s(\"a\"),break,s(\"b\",mark[name=m],\"c\"))");
}

TEST(AddTag, TextWhoseParentMayNotHoldTheTagIsLeftAlone) {
  // Inside a sentence no paragraph may stand: "s" is not in the paragraph's
  // parent list, though the letter occurs in it (in "speak").
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>text<break/>more</s></speak>"), 1);
  item *s = find_tag(utt.root(), u"s");
  Gatherer g;
  g.tag = ParaTagName();
  EXPECT_EQ(AddTag(s, ParaTagName(), ParaChildTag(), ParaParentTag(), gather_text, gather_element, &g), 1);
  EXPECT_EQ(g.text_calls + g.element_calls, 0);
  EXPECT_EQ(utt.tree(), "speak(s(\"text\",break,\"more\"))");
  // From the speak root the whole sentence goes into one paragraph.
  EXPECT_EQ(AddTag(utt.root(), ParaTagName(), ParaChildTag(), ParaParentTag(), gather_text, gather_element, &g),
            1);
  EXPECT_EQ(utt.tree(), "speak(p(s(\"text\",break,\"more\")))");
}

TEST(AddTag, ElementsOutsideBothListsAreSkippedWhole) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><desc>not spoken</desc>spoken</speak>"), 1);
  Gatherer g;
  EXPECT_EQ(add_sentences(utt, g), "speak(desc(\"not spoken\"),s(\"spoken\"))");
}

item *keep_text(item *text, item *wrapper, void *data) {
  ++static_cast<Gatherer *>(data)->text_calls;
  return text;  // the item itself: kept, and the next call gets it as wrapper
}

item *keep_element(item *element, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  // The wrapper from the previous text call, cleared after an element that
  // answered with itself.
  EXPECT_EQ(wrapper, g->element_calls == 0 ? item_prev(element) : nullptr);
  ++g->element_calls;
  return element;
}

TEST(AddTag, CallbacksAnsweringWithTheItemItself) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak>a<break/><break/>b</speak>"), 1);
  Gatherer g;
  EXPECT_EQ(AddTag(utt.root(), u"s", SentenceChildTag(), SentenceParentTag(), keep_text, keep_element, &g), 1);
  EXPECT_EQ(utt.tree(), "speak(\"a\",break,break,\"b\")");
  EXPECT_EQ(g.text_calls, 2);
  EXPECT_EQ(g.element_calls, 2);
}

TEST(AddTag, NothingToDo) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak/>"), 1);
  Gatherer g;
  EXPECT_EQ(add_sentences(utt, g), "speak");
  EXPECT_EQ(g.text_calls + g.element_calls, 0);
  EXPECT_EQ(AddTag(nullptr, u"s", u"", u"", gather_text, gather_element, &g), 1);
  ASSERT_EQ(utt.load("<speak>x</speak>"), 1);
  EXPECT_EQ(AddTag(utt.root(), u"s", SentenceChildTag(), SentenceParentTag(), nullptr, nullptr, &g), 1);
  EXPECT_EQ(utt.tree(), "speak(\"x\")");
}

// ---- move_tree --------------------------------------------------------------

TEST(MoveTree, FirstDaughterLeavesItsParentToTheNextSibling) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>a<word>b</word>c</s><p/></speak>"), 1);
  item *s = find_tag(utt.root(), u"s");
  item *p = find_tag(utt.root(), u"p");
  item *a = item_daughter(s);
  item *word = item_next(a);
  move_tree(p, a);
  EXPECT_EQ(item_daughter(s), word);
  EXPECT_EQ(item_parent(word), s);
  EXPECT_EQ(item_prev(word), nullptr);
  EXPECT_EQ(item_parent(a), p);
  move_tree(p, word);  // after the last daughter, with its own daughters
  EXPECT_EQ(utt.tree(), "speak(s(\"c\"),p(\"a\",word(\"b\")))");
  EXPECT_EQ(item_parent(item_daughter(word)), word);
  EXPECT_EQ(item_parent(word), p);
}

TEST(MoveTree, HeadAndTailOfTheRelationMove) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak/>"), 1);
  relation *ssml = utt_relation(utt.get(), "ssml");
  item *first = relation_head(ssml);
  item *second = relation_append(ssml, nullptr);
  item *third = relation_append(ssml, nullptr);
  item_set_wstring(second, "tag", u"b");
  item_set_wstring(third, "tag", u"c");
  move_tree(second, first);
  EXPECT_EQ(relation_head(ssml), second);
  EXPECT_EQ(item_prev(second), nullptr);
  move_tree(second, third);
  EXPECT_EQ(relation_tail(ssml), second);
  EXPECT_EQ(item_next(second), nullptr);
  EXPECT_EQ(describe(second), "b(speak,c)");
}

TEST(MoveTree, RefusedMoves) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>a</s></speak>"), 1);
  Utt other;
  ASSERT_EQ(other.load("<speak><p/></speak>"), 1);
  item *s = find_tag(utt.root(), u"s");
  move_tree(nullptr, s);
  move_tree(s, nullptr);
  move_tree(s, s);
  move_tree(find_tag(other.root(), u"p"), s);  // another relation
  EXPECT_EQ(utt.tree(), "speak(s(\"a\"))");
  EXPECT_EQ(other.tree(), "speak(p)");
}

}  // namespace
