// ssml_tags_test.cpp - the tag schema, AddTag with callbacks that gather runs
// of siblings into a new element as a front end does, and move_tree.
#include <gtest/gtest.h>

#include <sstream>

#include "markup_fixture.h"
#include "ssml_tags.h"

namespace {

using namespace markup_test;

// As data/markup/tag_schema.txt lists them: a name, or a list in brackets that stand
// for its outer spaces (kept as published: alphabetical but for "s" after "sub").
const bsr_wchar *(*const kAccessors[])(void) = {
    ParaTagName,      SentenceTagName, TokenTagName,   WordTagName,    LangTagName,
    BreakTagName,     SubTagName,      PhonemeTagName, SayAsTagName,   SyllableTagName,
    PhoneTagName,     ProsodyTagName,  VoiceTagName,   ParaParentTag,  SentenceParentTag,
    TokenParentTag,   WordParentTag,   LangParentTag,  BreakParentTag, ParaChildTag,
    SentenceChildTag, TokenChildTag,   WordChildTag,   LangChildTag,   BreakChildTag};

TEST(TagSchema, EveryAccessorReturnsItsExactConstant) {
  std::istringstream lines(read_file("data/markup/tag_schema.txt"));
  std::string line;
  for (size_t k = 0; k < 25; ++k) {
    ASSERT_TRUE(std::getline(lines, line)) << k;
    const bsr_wchar *got = kAccessors[k]();
    if (!line.empty() && line[0] == '[') line = " " + line.substr(1, line.size() - 2) + " ";
    EXPECT_EQ(utf8(got), line) << k;
    EXPECT_EQ(kAccessors[k](), got) << k << ": one constant";
  }
}

// What the callbacks of one AddTag call share.
struct Gatherer {
  const bsr_wchar *tag = u"s";
  std::u16string decline;  // elements with this tag are declined
  int text_calls = 0, element_calls = 0;
};

// Text is copied into the wrapper (the walk deletes the original), elements moved
// in whole; a new wrapper goes before the first item.
item *gather(item *i, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  bool text = !item_feat_present(i, "tag");
  ++(text ? g->text_calls : g->element_calls);
  if (!text && g->decline == item_feat_wstring(i, "tag")) return nullptr;
  if (wrapper == nullptr) item_set_wstring(wrapper = item_prepend(i, nullptr), "tag", g->tag);
  text ? item_set_wstring(item_add_daughter(wrapper, nullptr), "text", item_feat_wstring(i, "text"))
       : move_tree(wrapper, i);
  return wrapper;
}

TEST(AddTag, GathersRunsOfSiblingsIntoSentences) {
  auto cases = read_cases("add_tag.cases");  // document, declined tag, result
  for (auto &c : cases) {
    Utt utt;
    ASSERT_EQ(utt.load(c[0]), 1);
    Gatherer g;
    g.decline.assign(c[1].begin(), c[1].end());
    EXPECT_EQ(AddTag(utt.root(), u"s", SentenceChildTag(), SentenceParentTag(), gather, gather, &g),
              1);
    EXPECT_EQ(utt.tree(), c[2]);
    if (&c != &cases[0]) continue;
    EXPECT_EQ(g.text_calls, 3);
    EXPECT_EQ(g.element_calls, 2);
    EXPECT_EQ(item_parent(find_tag(utt.root(), u"s")), find_tag(utt.root(), u"p"));
  }
}

TEST(AddTag, ListMembershipIsByWholeName) {
  // "s" is not in the paragraph's parent list, though the letter is in "speak".
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>text<break/>more</s></speak>"), 1);
  Gatherer g{u"p", u"", 0, 0};
  EXPECT_EQ(
      AddTag(find_tag(utt.root(), u"s"), u"p", ParaChildTag(), ParaParentTag(), gather, gather, &g),
      1);
  EXPECT_EQ(g.text_calls, 0);
  EXPECT_EQ(g.element_calls, 0);
  EXPECT_EQ(AddTag(utt.root(), u"p", ParaChildTag(), ParaParentTag(), gather, gather, &g), 1);
  EXPECT_EQ(utt.tree(), "speak(p(s(\"text\",break,\"more\")))");
  EXPECT_EQ(AddTag(nullptr, u"s", u"", u"", gather, gather, &g), 1);
  EXPECT_EQ(AddTag(utt.root(), u"w", SentenceChildTag(), SentenceParentTag(), nullptr, nullptr, &g),
            1);
  EXPECT_EQ(utt.tree(), "speak(p(s(\"text\",break,\"more\")))");
}

item *keep_item(item *i, item *wrapper, void *data) {
  auto *g = static_cast<Gatherer *>(data);
  if (!item_feat_present(i, "tag")) return ++g->text_calls, i;
  // The previous text call's answer; cleared after an element answered itself.
  EXPECT_EQ(wrapper, g->element_calls++ == 0 ? item_prev(i) : nullptr);
  return i;
}

TEST(AddTag, CallbacksAnsweringWithTheItemItselfKeepIt) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak>a<break/><break/>b</speak>"), 1);
  Gatherer g;
  EXPECT_EQ(
      AddTag(utt.root(), u"s", SentenceChildTag(), SentenceParentTag(), keep_item, keep_item, &g),
      1);
  EXPECT_EQ(utt.tree(), "speak(\"a\",break,break,\"b\")");
  EXPECT_EQ(g.text_calls, 2);
  EXPECT_EQ(g.element_calls, 2);
}

TEST(MoveTree, MovesKeepParentLinksHeadAndTail) {
  Utt utt, other;
  ASSERT_EQ(utt.load("<speak><s>a<word>b</word>c</s><p/></speak>"), 1);
  ASSERT_EQ(other.load("<speak><p/></speak>"), 1);
  item *s = find_tag(utt.root(), u"s"), *p = find_tag(utt.root(), u"p");
  item *a = item_daughter(s), *word = item_next(a);
  move_tree(p, a);  // a first daughter leaves its parent link to the next sibling
  EXPECT_EQ(item_parent(word), s);
  move_tree(p, word);  // after the last daughter, with its own daughters
  EXPECT_EQ(item_parent(item_daughter(word)), word);
  EXPECT_EQ(item_parent(word), p);
  for (item *bad : {static_cast<item *>(nullptr), s, find_tag(other.root(), u"p")})
    move_tree(bad, s);
  move_tree(s, nullptr);
  EXPECT_EQ(utt.tree(), "speak(s(\"c\"),p(\"a\",word(\"b\")))");
  EXPECT_EQ(other.tree(), "speak(p)");
  relation *ssml = utt_relation(utt.u, "ssml");
  item *second = relation_append(ssml, nullptr), *third = relation_append(ssml, nullptr);
  item_set_wstring(second, "tag", u"b");
  move_tree(second, utt.root());
  move_tree(second, third);
  EXPECT_EQ(relation_head(ssml), second);
  EXPECT_EQ(relation_tail(ssml), second);
  EXPECT_EQ(describe(second), "b(speak(s(\"c\"),p(\"a\",word(\"b\"))),\"\")");
}

}  // namespace
