// document_test.cpp - a whole English paragraph through the hierarchy and
// into labels: nested markup, prosodic-word and phrase breaks, a Chinese
// name in the middle, a word without pronunciation, syllables given by
// name, and both builds phrase by phrase.
#include <string>
#include <vector>

#include "hierarchy/hierarchy_fixture.h"

namespace {

using namespace hierarchy_test;

// Phrases: (the capital)(of) | (Beijing "," is)(huge) | (yes).
const char kParagraph[] =
    "<speak xml:lang=\"en-US\"><p><s>"
    "<word ph=\"\u00F0\u0259\">the</word>"
    "<word ph=\"k\u00E6.p\u026A.t\u0259l\" break=\"1\">capital</word>"
    "<word ph=\"\u028Cv\" delay=\"300ms\">of</word>"
    "<emphasis><word xml:lang=\"zh-CN\" ph=\"bei3.jing1\">Beijing</word></emphasis>"
    "<word>,</word>"
    "<word ph=\"\u026Az\" break=\"2\">is</word>"
    "<word ph=\"hjud\u0292\" delay=\"1\">huge</word>"
    "</s><s><word><syllable name=\"j\u025Bs\"/></word></s></p></speak>";

class Paragraph : public ::testing::Test {
 protected:
  Paragraph() : doc_(kParagraph) {}
  void SetUp() override {
    ASSERT_TRUE(doc_.loaded());
    ASSERT_EQ(ParseSylName(doc_.root_item()), 3);
    ASSERT_EQ(FocusPhraseCreate(doc_.utt()), 1);
  }
  std::string phones() { return names(doc_.utt(), "Phone"); }
  std::string positions() { return names(doc_.utt(), "Phone", "pho-pos"); }
  Document doc_;
};

TEST_F(Paragraph, FocusPhrasesFollowBreaksAndDelays) {
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "focus_phrase"))), 3);
  EXPECT_EQ(shape(doc_.focus_phrase(0)),
            "((((\u00F0 \u0259)) ((k \u00E6) (p \u026A) (t \u0259 l))) (((\u028C v))))");
  // The word without pronunciation is a leaf: no syllables, no name.
  EXPECT_EQ(shape(doc_.focus_phrase(1)),
            "((((b e i) (j i n g)) <none> ((\u026A z))) (((h j u d \u0292))))");
  EXPECT_EQ(shape(doc_.focus_phrase(2)), "((((j \u025B s))))");
}

TEST_F(Paragraph, MainBuildPhraseByPhrase) {
  doc_.build(0, u"en-US");
  EXPECT_EQ(phones(), "pau \u00F0 \u0259 k \u00E6 p \u026A t \u0259 l \u028C v pau");
  EXPECT_EQ(positions(), "<none> 0 1 2 3 4 5 6 7 8 9 10 <none>");
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "PWord"))), 2);

  // The name is replaced; its seven phones still count.
  doc_.build(1, u"en-US");
  EXPECT_EQ(phones(), "pau s a \u026A z h j u d \u0292 pau");
  EXPECT_EQ(positions(), "<none> <none> <none> 7 8 9 10 11 12 13 <none>");
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "Word"))), 4);
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "Syllable"))), 3);

  doc_.build(2, u"en-US");
  EXPECT_EQ(phones(), "pau j \u025B s pau");
}

TEST_F(Paragraph, OtherBuildKeepsTheNameAlone) {
  doc_.build(0, u"zh-CN");
  EXPECT_EQ(phones(), "pau");
  EXPECT_EQ(relation_head(utt_relation(doc_.utt(), "Phrase")), nullptr);

  doc_.build(1, u"zh-CN");
  EXPECT_EQ(phones(), "pau b e i j i n g pau");
  EXPECT_EQ(positions(), "<none> 0 1 2 3 4 5 6 <none>");
  EXPECT_EQ(names(doc_.utt(), "Syllable", "tone"), "3 1");
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "Phrase"))), 1);
}

// Previous, current and next phone; place in syllable; the word's place in
// its phrase; the syllable's tone and vowel; "pho-pos"; the number of words
// in the prosodic word.
const char *const kNames[] = {"p.name",
                              "name",
                              "n.name",
                              "R:Phrase.PositionFW",
                              "R:Phrase.parent.parent.PositionFW2",
                              "R:Phrase.parent.tone",
                              "R:Phrase.parent.vowel",
                              "pho-pos",
                              "R:Phrase.parent.parent.parent.NumDaughter"};
const char *const kPrefixes[] = {"", "-", "+", "/A:", "/W:", "/T:", "/V:", "/N:", "/P:"};

// Pauses have no view in the tree: their structural fields read "x" and
// their missing features "0". The placeholder's phones have a syllable
// with tone "1" and vowel "a" but no "pho-pos". The word without
// pronunciation still takes its place among the words.
TEST_F(Paragraph, LabelsOfTheMixedPhrase) {
  doc_.build(1, u"en-US");
  const std::vector<std::string> expected = {
      "x-pau+s/A:x/W:x/T:x/V:x/N:0/P:x",      "pau-s+a/A:1/W:1/T:1/V:a/N:0/P:3",
      "s-a+\u026A/A:2/W:1/T:1/V:a/N:0/P:3",   "a-\u026A+z/A:1/W:3/T:0/V:0/N:7/P:3",
      "\u026A-z+h/A:2/W:3/T:0/V:0/N:8/P:3",   "z-h+j/A:1/W:4/T:0/V:0/N:9/P:1",
      "h-j+u/A:2/W:4/T:0/V:0/N:10/P:1",       "j-u+d/A:3/W:4/T:0/V:0/N:11/P:1",
      "u-d+\u0292/A:4/W:4/T:0/V:0/N:12/P:1",  "d-\u0292+pau/A:5/W:4/T:0/V:0/N:13/P:1",
      "\u0292-pau+x/A:x/W:x/T:x/V:x/N:0/P:x",
  };
  EXPECT_EQ(labels(doc_.utt(), kNames, kPrefixes), expected);
}

TEST_F(Paragraph, StressReplacesTheToneInTheLabel) {
  doc_.build(1, u"zh-CN");
  item *first = item_next(relation_head(utt_relation(doc_.utt(), "Phone")));
  EXPECT_EQ(labels(doc_.utt(), kNames, kPrefixes)[1], "pau-b+e/A:1/W:1/T:3/V:0/N:0/P:1");
  item_set_wstring(item_as(item_parent(item_as(first, "Phrase")), "ssml"), "stress", u"2");
  doc_.build(1, u"zh-CN");
  EXPECT_EQ(labels(doc_.utt(), kNames, kPrefixes)[1], "pau-b+e/A:1/W:1/T:2/V:0/N:0/P:1");
}

// Sixty-five one-phone words in one prosodic word: places and counts past
// 60 read "60", counted forward and backward; the flat "Word" relation has
// no parents, so its positions read "x".
TEST(LongPhrase, PlacesPastSixty) {
  std::string ssml = "<speak xml:lang=\"en\">";
  for (int k = 0; k < 65; ++k) ssml += "<word ph=\"a\"/>";
  Document doc(ssml + "</speak>");
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  doc.build(0, u"en");
  std::vector<const item *> words;
  for (const item *w = relation_head(utt_relation(doc.utt(), "Word")); w != nullptr;
       w = item_next(w)) {
    words.push_back(w);
  }
  ASSERT_EQ(words.size(), 65u);
  // The phone counter has no cap.
  EXPECT_EQ(val_int(GetFeature(relation_tail(utt_relation(doc.utt(), "Phone")), "p.pho-pos")), 64);
  struct Case {
    int word;
    const char *path;
    const char *value;
  };
  const Case kCases[] = {
      {0, "R:Phrase.PositionFW", "1"},
      {59, "R:Phrase.PositionFW", "60"},
      {60, "R:Phrase.PositionFW", "60"},
      {64, "R:Phrase.PositionFW", "60"},
      {64, "R:Phrase.PositionBW", "1"},
      {4, "R:Phrase.PositionBW", "60"},
      {5, "R:Phrase.PositionBW", "60"},
      {6, "R:Phrase.PositionBW", "59"},
      {62, "R:Phrase.PositionFW2", "60"},
      {0, "R:Phrase.parent.NumDaughter", "60"},
      {0, "R:Phrase.parent.parent.NumGrandDaughter", "60"},
      {0, "R:Phrase.parent.parent.NumDaughter4", "60"},
      {30, "PositionFW", "x"},
      {30, "NumDaughter", "0"},
      {30, "R:Phrase.NumDaughter2", "1"},
      {30, "R:Phrase.parent.parent.parent.name", "x"},
      {30, "R:Phrase.parent.parent.PositionFW", "x"},
  };
  for (const Case &c : kCases) {
    SCOPED_TRACE(std::string(c.path) + " of word " + std::to_string(c.word));
    EXPECT_EQ(utf8(val_wstring(GetFeature(words[static_cast<size_t>(c.word)], c.path))), c.value);
  }
}

// The focus may be any element: only the words below it are grouped.
TEST_F(Paragraph, FocusOnTheSecondSentence) {
  item *root = doc_.root_item();
  item *second = utt_walk_next_tag(root, root, 1, u"s");
  second = utt_walk_next_tag(second, root, 0, u"s");
  ASSERT_NE(second, nullptr);
  feat_set(doc_.utt()->features, "focus", item_val(second));
  ASSERT_EQ(FocusPhraseCreate(doc_.utt()), 1);
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "focus_phrase"))), 1);
  doc_.build(0, u"en-US");
  EXPECT_EQ(phones(), "pau j \u025B s pau");
  EXPECT_EQ(positions(), "<none> 0 1 2 <none>");
}

TEST(PhraseCreate, NullLanguageMatchesADocumentWithoutOne) {
  // Both sides missing compare equal: the main build runs, and as no word
  // carries a language, every word is stood in for.
  Document doc("<speak><word ph=\"ba\"/><word ph=\"di\"/></speak>");
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  doc.build(0, nullptr);
  EXPECT_EQ(names(doc.utt(), "Phone"), "pau s a s a pau");
}

}  // namespace
