/* add_tag_test.cpp - inserting structural elements with AddTag and callbacks
 * that gather runs of siblings into a new element as a front end does, and
 * moving subtrees with move_tree. */
#include <gtest/gtest.h>

#include <string>

#include "markup_fixture.h"
#include "ssml_tags.h"

namespace {

using namespace markup_test;

// What the callbacks of one AddTag call share.
struct Gatherer {
  const bsr_wchar *tag = u"s";
  const bsr_wchar *decline = nullptr;  // elements with this tag are declined
  int text_calls = 0, element_calls = 0;
};

// A new element linked before the first item it will wrap.
item *wrapper_for(item *first, item *wrapper, const Gatherer *g) {
  if (wrapper) return wrapper;
  wrapper = item_prepend(first, nullptr);
  item_set_wstring(wrapper, "tag", g->tag);
  return wrapper;
}

// Text is copied into the wrapper (the walk then deletes the original).
item *gather_text(item *text, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  ++g->text_calls;
  wrapper = wrapper_for(text, wrapper, g);
  item_set_wstring(item_add_daughter(wrapper, nullptr), "text", item_feat_wstring(text, "text"));
  return wrapper;
}

// Elements are moved into the wrapper whole.
item *gather_element(item *element, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  ++g->element_calls;
  if (g->decline && std::u16string(item_feat_wstring(element, "tag")) == g->decline) return nullptr;
  wrapper = wrapper_for(element, wrapper, g);
  move_tree(wrapper, element);
  return wrapper;
}

TEST(AddTag, GathersRunsOfSiblingsIntoSentences) {
  const char *cases[][3] = {  // document, declined tag, result
      {"<speak xml:lang=\"en-US\"><p>Hello <emphasis>big</emphasis> world.<break time=\"1s\"/>Bye</p></speak>", "",
       "speak[xml:lang=en-US](p(s(\"Hello \",emphasis(\"big\"),\" world.\",break[time=1s],\"Bye\")))"},
      // Runs break at elements handed to no callback and at the end of a list.
      {"<speak>One<p>Two</p>Three<s>Four</s>Five</speak>", "",
       "speak(s(\"One\"),p(s(\"Two\")),s(\"Three\"),s(\"Four\"),s(\"Five\"))"},
      {"<speak><p>a<break/></p>b</speak>", "", "speak(p(s(\"a\",break)),s(\"b\"))"},
      // A voice holding a sentence is entered; a prosody holding none is wrapped whole.
      {"<speak><voice>x<s>y</s></voice>z<prosody rate=\"fast\">w</prosody></speak>", "",
       "speak(voice(s(\"x\"),s(\"y\")),s(\"z\",prosody[rate=fast](\"w\")))"},
      {"<speak>a<break/>b<mark name=\"m\"/>c</speak>", "break", "speak(s(\"a\"),break,s(\"b\",mark[name=m],\"c\"))"},
      {"<speak><desc>not spoken</desc>spoken</speak>", "", "speak(desc(\"not spoken\"),s(\"spoken\"))"},
      {"<speak/>", "", "speak"},
  };
  for (auto &c : cases) {
    Utt utt;
    ASSERT_EQ(utt.load(c[0]), 1);
    Gatherer g;
    std::u16string decline(c[1], c[1] + strlen(c[1]));
    if (!decline.empty()) g.decline = decline.c_str();
    EXPECT_EQ(AddTag(utt.root(), u"s", SentenceChildTag(), SentenceParentTag(), gather_text, gather_element, &g), 1);
    EXPECT_EQ(utt.tree(), c[2]);
    if (&c != &cases[0]) continue;
    EXPECT_EQ(g.text_calls * 10 + g.element_calls, 32);
    EXPECT_EQ(item_parent(find_tag(utt.root(), u"s")), find_tag(utt.root(), u"p"));
  }
}

TEST(AddTag, ListMembershipIsByWholeName) {
  // "s" is not in the paragraph's parent list, though the letter occurs in "speak".
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>text<break/>more</s></speak>"), 1);
  Gatherer g;
  g.tag = u"p";
  EXPECT_EQ(AddTag(find_tag(utt.root(), u"s"), u"p", ParaChildTag(), ParaParentTag(), gather_text, gather_element, &g), 1);
  EXPECT_EQ(g.text_calls + g.element_calls, 0);
  EXPECT_EQ(AddTag(utt.root(), u"p", ParaChildTag(), ParaParentTag(), gather_text, gather_element, &g), 1);
  EXPECT_EQ(utt.tree(), "speak(p(s(\"text\",break,\"more\")))");
  EXPECT_EQ(AddTag(nullptr, u"s", u"", u"", gather_text, gather_element, &g), 1);
  EXPECT_EQ(AddTag(utt.root(), u"w", SentenceChildTag(), SentenceParentTag(), nullptr, nullptr, &g), 1);
  EXPECT_EQ(utt.tree(), "speak(p(s(\"text\",break,\"more\")))");
}

item *keep_item(item *i, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  if (item_feat_present(i, "tag")) {
    // The previous text call's answer; cleared after an element answered itself.
    EXPECT_EQ(wrapper, g->element_calls++ == 0 ? item_prev(i) : nullptr);
  } else {
    ++g->text_calls;
  }
  return i;
}

TEST(AddTag, CallbacksAnsweringWithTheItemItselfKeepIt) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak>a<break/><break/>b</speak>"), 1);
  Gatherer g;
  EXPECT_EQ(AddTag(utt.root(), u"s", SentenceChildTag(), SentenceParentTag(), keep_item, keep_item, &g), 1);
  EXPECT_EQ(utt.tree(), "speak(\"a\",break,break,\"b\")");
  EXPECT_EQ(g.text_calls * 10 + g.element_calls, 22);
}

TEST(MoveTree, MovesKeepParentLinksHeadAndTail) {
  Utt utt, other;
  ASSERT_EQ(utt.load("<speak><s>a<word>b</word>c</s><p/></speak>"), 1);
  ASSERT_EQ(other.load("<speak><p/></speak>"), 1);
  item *s = find_tag(utt.root(), u"s"), *p = find_tag(utt.root(), u"p");
  item *a = item_daughter(s), *word = item_next(a);
  move_tree(p, a);  // a first daughter leaves its parent link to the next sibling
  EXPECT_EQ(item_parent(word), s);
  EXPECT_EQ(item_prev(word), nullptr);
  move_tree(p, word);  // after the last daughter, with its own daughters
  EXPECT_EQ(utt.tree(), "speak(s(\"c\"),p(\"a\",word(\"b\")))");
  EXPECT_EQ(item_parent(item_daughter(word)), word);
  EXPECT_EQ(item_parent(word), p);
  for (item *bad : {static_cast<item *>(nullptr), s, find_tag(other.root(), u"p")}) move_tree(bad, s);
  move_tree(s, nullptr);
  EXPECT_EQ(utt.tree(), "speak(s(\"c\"),p(\"a\",word(\"b\")))");
  EXPECT_EQ(other.tree(), "speak(p)");
  relation *ssml = utt_relation(utt.u, "ssml");
  item *second = relation_append(ssml, nullptr), *third = relation_append(ssml, nullptr);
  item_set_wstring(second, "tag", u"b");
  item_set_wstring(third, "tag", u"c");
  move_tree(second, utt.root());
  move_tree(second, third);
  EXPECT_EQ(relation_head(ssml), second);
  EXPECT_EQ(relation_tail(ssml), second);
  EXPECT_EQ(item_prev(second), nullptr);
  EXPECT_EQ(describe(second), "b(speak(s(\"c\"),p(\"a\",word(\"b\"))),c)");
}

}  // namespace
