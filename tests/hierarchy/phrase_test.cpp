// phrase_test.cpp - the focus relations and the phrase relations on whole
// documents: shared contents, missing parts, words without pronunciation, a
// word of another language in the middle, and both builds with their pauses.
#include <string>

#include "hierarchy/hierarchy_fixture.h"

namespace {

using namespace hierarchy_test;

// Three words: a prosodic-word break after the first, a phrase break after
// the second.
const char kThreeWords[] =
    "<speak xml:lang=\"en-US\"><s>"
    "<word ph=\"ha.l\u0259\u028A\" break=\"1\"/>"
    "<word ph=\"w\u025D\u02D0ld\" delay=\"200ms\"/>"
    "<word ph=\"a\u026A\"/>"
    "</s></speak>";

TEST(FocusPhrase, WordsShareTheirElementsContents) {
  Document doc(kThreeWords);
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  item *word = item_daughter(item_daughter(doc.focus_phrase(0)));
  item *element = item_as(word, "ssml");
  ASSERT_NE(element, nullptr);
  EXPECT_EQ(feat(element, "tag"), "word");
  item_set_int(word, "stress", 2);
  EXPECT_EQ(feat(element, "stress"), "2");
}

TEST(FocusPhrase, CalledAgainStartsOver) {
  Document doc(kThreeWords);
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  EXPECT_EQ(count(relation_head(utt_relation(doc.utt(), "focus_phrase"))), 2);
}

TEST(FocusPhrase, WhatIsMissing) {
  Document no_phones("<speak><word/><word/></speak>");
  EXPECT_EQ(FocusPhraseCreate(no_phones.utt()), 0);
  EXPECT_EQ(count(relation_head(utt_relation(no_phones.utt(), "focus_phrase"))), 1);

  Document no_words("<speak><s>Hello</s></speak>");
  EXPECT_EQ(FocusPhraseCreate(no_words.utt()), 0);
  EXPECT_EQ(utt_relation_present(no_words.utt(), "focus_phrase"), 1);
  EXPECT_EQ(relation_head(utt_relation(no_words.utt(), "focus_phrase")), nullptr);

  Document no_focus(kThreeWords);
  feat_remove(no_focus.utt()->features, "focus");
  EXPECT_EQ(FocusPhraseCreate(no_focus.utt()), 0);
  EXPECT_EQ(utt_relation_present(no_focus.utt(), "focus_phrase"), 0);

  // A focus item that has no view in the markup.
  Document no_view(kThreeWords);
  relation *other = utt_relation_create(no_view.utt(), "other");
  feat_set(no_view.utt()->features, "focus", item_val(relation_append(other, nullptr)));
  EXPECT_EQ(FocusPhraseCreate(no_view.utt()), 0);
  EXPECT_EQ(utt_relation_present(no_view.utt(), "focus_phrase"), 0);

  EXPECT_EQ(FocusPhraseCreate(nullptr), 0);
}

TEST(FocusPhrase, DestroyDeletesTheFocusRelations) {
  Document doc(kThreeWords);
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  EXPECT_EQ(FocusPhraseDestroy(doc.utt()), 0);  // "focus_phone" never existed
  EXPECT_EQ(utt_relation_present(doc.utt(), "focus_phrase"), 0);
  utt_relation_create(doc.utt(), "focus_phone");
  EXPECT_EQ(FocusPhraseDestroy(doc.utt()), 1);
  EXPECT_EQ(utt_relation_present(doc.utt(), "focus_phone"), 0);
  EXPECT_EQ(FocusPhraseDestroy(nullptr), 0);
}

// An English sentence with a Chinese name inside, a word without
// pronunciation, and syllables with stress.
const char kMixed[] =
    "<speak xml:lang=\"en-US\"><s>"
    "<word ph=\"m\u025Bt\"/>"
    "<word xml:lang=\"zh-CN\" ph=\"li3.na4\"/>"
    "<word/>"
    "<word ph=\"tu\u02D0.de\u026A\" break=\"1\"/>"
    "<word xml:lang=\"zh-CN\" ph=\"ma1\"/>"
    "<word ph=\"s\u0254\"/>"
    "</s></speak>";

class MixedDocument : public ::testing::Test {
 protected:
  MixedDocument() : doc_(kMixed) {}
  void SetUp() override {
    ASSERT_TRUE(doc_.loaded());
    ASSERT_EQ(FocusPhraseCreate(doc_.utt()), 1);
  }
  Document doc_;
};

TEST_F(MixedDocument, MainLanguageReplacesForeignWords) {
  doc_.build(0, u"en-US");
  EXPECT_EQ(names(doc_.utt(), "Phone"), "pau m \u025B t s a t u\u02D0 d e \u026A s a s \u0254 pau");
  EXPECT_EQ(names(doc_.utt(), "Phone", "pho-pos"),
            "<none> 0 1 2 <none> <none> 7 8 9 10 11 <none> <none> 14 15 <none>");
  EXPECT_EQ(names(doc_.utt(), "Phone", "voiced"),
            "<none> <none> <none> <none> 0 1 <none> <none> <none> <none> <none> 0 1 <none> <none> "
            "<none>");
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "Word"))), 6);
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "PWord"))), 2);
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "Phrase"))), 1);
}

TEST_F(MixedDocument, PlaceholderSyllable) {
  doc_.build(0, u"en-US");
  item *syllable = item_next(relation_head(utt_relation(doc_.utt(), "Syllable")));
  EXPECT_EQ(feat(syllable, "tone"), "1");
  EXPECT_EQ(feat(syllable, "vowel"), "a");
  EXPECT_EQ(feat(syllable, "stress"), "<none>");
  item *word = item_parent(item_as(syllable, "Phrase"));
  EXPECT_EQ(feat(word, "xml:lang"), "zh-CN");
  EXPECT_EQ(shape(word), "((s a))");
}

TEST_F(MixedDocument, TreeOfTheMainBuild) {
  doc_.build(0, u"en-US");
  item *phrase = relation_head(utt_relation(doc_.utt(), "Phrase"));
  EXPECT_EQ(shape(phrase),
            "((((m \u025B t)) ((s a)) <none> ((t u\u02D0) (d e \u026A))) (((s a)) ((s \u0254))))");
  EXPECT_TRUE(item_equal(phrase, doc_.focus_phrase(0)));
}

TEST_F(MixedDocument, StressBecomesTone) {
  item *fp_word =
      item_next(item_next(item_next(item_daughter(item_daughter(doc_.focus_phrase(0))))));
  item *syllable = item_daughter(fp_word);
  item_set_int(syllable, "stress", 1);
  doc_.build(0, u"en-US");
  EXPECT_EQ(feat(item_as(syllable, "Syllable"), "tone"), "1");
  EXPECT_EQ(feat(item_as(syllable, "ssml"), "tone"), "1");
}

TEST_F(MixedDocument, OtherLanguageKeepsOnlyItsWords) {
  doc_.build(0, u"zh-CN");
  relation *phrases = utt_relation(doc_.utt(), "Phrase");
  EXPECT_EQ(count(relation_head(phrases)), 2);
  item *first = relation_head(phrases);
  // Both kept words sit in the first prosodic word of the first phrase.
  EXPECT_EQ(shape(first), "((((l i) (n a)) ((m a))))");
  EXPECT_EQ(item_daughter(item_next(first)), nullptr);
  // The pause follows the last phone of the first phrase; the second has
  // no phones and gets none.
  EXPECT_EQ(names(doc_.utt(), "Phone"), "pau l i n a m a pau");
  EXPECT_EQ(names(doc_.utt(), "Phone", "pho-pos"), "<none> 3 4 5 6 12 13 <none>");
  EXPECT_EQ(names(doc_.utt(), "Syllable", "tone"), "3 4 1");
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "PWord"))), 1);
  EXPECT_EQ(count(relation_head(utt_relation(doc_.utt(), "Word"))), 2);
}

TEST_F(MixedDocument, PositionsCarriedToEveryPhrase) {
  feat_set_int(item_feats(doc_.focus_phrase(0)), "PositionFW", 1);
  feat_set_int(item_feats(doc_.focus_phrase(0)), "PositionBW", 3);
  doc_.build(0, u"zh-CN");
  EXPECT_EQ(names(doc_.utt(), "Phrase", "PositionFW"), "1 1");
  EXPECT_EQ(names(doc_.utt(), "Phrase", "PositionBW"), "3 3");
  doc_.build(0, u"en-US");
  EXPECT_EQ(names(doc_.utt(), "Phrase", "PositionBW"), "3");
}

TEST(PhraseCreate, WithoutFocusPhrase) {
  Document main_doc(kThreeWords);
  PhraseCreate(main_doc.utt(), u"en-US");
  EXPECT_EQ(names(main_doc.utt(), "Phone"), "pau pau");
  EXPECT_EQ(count(relation_head(utt_relation(main_doc.utt(), "Phrase"))), 1);
  EXPECT_EQ(utt_relation_present(main_doc.utt(), "Syllable"), 1);

  Document other_doc(kThreeWords);
  PhraseCreate(other_doc.utt(), u"fr-FR");
  EXPECT_EQ(names(other_doc.utt(), "Phone"), "pau");
  EXPECT_EQ(relation_head(utt_relation(other_doc.utt(), "Phrase")), nullptr);

  PhraseCreate(nullptr, u"en-US");
}

TEST(PhraseCreate, DocumentWithoutLanguageTakesTheOtherBuild) {
  Document doc("<speak><word xml:lang=\"en-US\" ph=\"a\"/><word ph=\"b\u0259\"/></speak>");
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  doc.build(0, u"en-US");
  EXPECT_EQ(names(doc.utt(), "Phone"), "pau a pau");
}

TEST(CreateFakeWord, BadArguments) {
  Document doc(kThreeWords);
  relation *s = utt_relation_create(doc.utt(), "Syllable");
  relation *p = utt_relation_create(doc.utt(), "Phone");
  CreateFakeWord(nullptr, s, p, nullptr);
  CreateFakeWord(nullptr, nullptr, p, doc.root_item());
  CreateFakeWord(nullptr, s, nullptr, doc.root_item());
  EXPECT_EQ(relation_head(s), nullptr);
  EXPECT_EQ(relation_head(p), nullptr);
}

}  // namespace
