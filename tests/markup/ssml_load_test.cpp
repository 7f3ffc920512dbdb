/* ssml_load_test.cpp - SSML text into the "ssml" relation: elements and
 * attributes in document order, whole text runs, decoded references, and
 * rejected documents that leave the utterance as it was. */
#include <gtest/gtest.h>

#include <string>

#include "markup_fixture.h"

namespace {

using markup_test::describe;
using markup_test::find_tag;
using markup_test::read_file;
using markup_test::Utt;

TEST(SsmlLoad, OneSentenceKeepsItsTextWhole) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>Hello world</s></speak>"), 1);
  EXPECT_EQ(utt.tree(), "speak(s(\"Hello world\"))");
  item *s = item_daughter(utt.root());
  EXPECT_EQ(item_next(item_daughter(s)), nullptr);  // one text item, the blank kept
  EXPECT_EQ(relation_head(utt_relation(utt.get(), "ssml")), relation_tail(utt_relation(utt.get(), "ssml")));
}

TEST(SsmlLoad, RealisticDocumentWithBomDeclarationAndEntities) {
  Utt utt;
  std::string doc = read_file("data/markup/voicemail.ssml");
  ASSERT_FALSE(doc.empty());
  ASSERT_EQ(utt.load(doc), 1);
  EXPECT_EQ(utt.tree(), read_file("data/markup/voicemail.tree"));
}

TEST(SsmlLoad, AttributesReadInDocumentOrderWithTagLast) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak version=\"1.1\" xml:lang=\"en-GB\" xmlns=\"http://www.w3.org/2001/10/synthesis\">"
                     "<voice gender=\"male\" age=\"30\" variant=\"2\">Hi</voice></speak>"),
            1);
  std::string names;
  for (feature_pair *p = item_feats(utt.root())->head; p; p = p->next) names += std::string(p->name) + " ";
  EXPECT_EQ(names, "version xml:lang xmlns tag ");
  EXPECT_EQ(describe(item_daughter(utt.root())), "voice[gender=male,age=30,variant=2](\"Hi\")");
  // Values are wide strings, never numbers.
  EXPECT_EQ(std::u16string(item_feat_wstring(item_daughter(utt.root()), "age")), u"30");
}

TEST(SsmlLoad, ReferencesAreDecodedAndWhiteSpaceKept) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak>\n  <s> AT&amp;T &lt;tag&gt; &quot;q&quot; &apos;a&apos; "
                     "&#x4E2D;&#25991; caf&#233; </s>\n</speak>"),
            1);
  EXPECT_EQ(utt.tree(), "speak(\"\n  \",s(\" AT&T <tag> \"q\" 'a' 中文 café \"),\"\n\")");
  item *s = find_tag(utt.root(), u"s");
  EXPECT_EQ(std::u16string(item_feat_wstring(item_daughter(s), "text")),
            u" AT&T <tag> \"q\" 'a' \u4E2D\u6587 caf\u00E9 ");
}

TEST(SsmlLoad, CommentsAndInstructionsAreLeftOutAndCdataIsText) {
  Utt utt;
  ASSERT_EQ(utt.load("<!DOCTYPE speak><speak><!-- note --><s>a<?pi x?>b<![CDATA[<c> & d]]></s></speak>"),
            1);
  EXPECT_EQ(utt.tree(), "speak(s(\"a\",\"b\",\"<c> & d\"))");
}

TEST(SsmlLoad, SpeakIsFoundBelowAnotherRoot) {
  Utt utt;
  ASSERT_EQ(utt.load("<document><title>x</title><body><speak xml:lang=\"de\">Hallo</speak></body></document>"),
            1);
  EXPECT_EQ(utt.tree(), "speak[xml:lang=de](\"Hallo\")");
}

TEST(SsmlLoad, AttributeNamedTagCannotRenameTheElement) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s tag=\"p\" id=\"1\">x</s></speak>"), 1);
  EXPECT_EQ(utt.tree(), "speak(s[id=1](\"x\"))");
}

TEST(SsmlLoad, RepeatedTextsStayIndependentPerItem) {
  // Equal names and texts may share one counted value; changing or deleting
  // one item must not show through another.
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s xml:lang=\"en\">a</s><s xml:lang=\"en\">a</s></speak>"), 1);
  item *first = item_daughter(utt.root());
  item_set_wstring(first, "tag", u"p");
  item_set_wstring(item_daughter(first), "text", u"b");
  EXPECT_EQ(utt.tree(), "speak(p[xml:lang=en](\"b\"),s[xml:lang=en](\"a\"))");
  delete_item(first);
  EXPECT_EQ(utt.tree(), "speak(s[xml:lang=en](\"a\"))");
}

TEST(SsmlLoad, LoadingAgainReplacesTheTree) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>one</s></speak>"), 1);
  ASSERT_EQ(utt.load("<speak><p>two</p></speak>"), 1);
  EXPECT_EQ(utt.tree(), "speak(p(\"two\"))");
  EXPECT_EQ(item_next(utt.root()), nullptr);
}

TEST(SsmlLoad, RejectedDocumentsLeaveTheUtteranceAsItWas) {
  const char *bad[] = {
      "<speak><s>unclosed</speak>",          // mismatched close tag
      "<speak><s>text</speak",               // close tag cut short
      "<speak><s>text",                      // inner element left open
      "<speak><s>text</s>",                  // root left open
      "<speak>&bogus; entity</speak>",       // unknown entity
      "<speak a=\"1\" a=\"2\"/>",            // duplicate attribute
      "<speak/><speak/>",                    // two roots
      "plain text, no markup",
      "",
      "<document><p>no speak element</p></document>",
      "\xEF\xBB\xBF",
  };
  for (const char *doc : bad) {
    Utt utt;
    ASSERT_EQ(utt.load("<speak><s>kept</s></speak>"), 1);
    item *before = utt.root();
    EXPECT_EQ(utt.load(doc), 0) << doc;
    EXPECT_EQ(utt.root(), before) << doc;
    EXPECT_EQ(utt.tree(), "speak(s(\"kept\"))") << doc;
  }
  Utt fresh;
  EXPECT_EQ(fresh.load("<speak a=\"1\" a=\"1\">"), 0);
  EXPECT_EQ(utt_relation(fresh.get(), "ssml"), nullptr);
}

TEST(SsmlLoad, NullArgumentsAreRejected) {
  Utt utt;
  EXPECT_EQ(utt_load_ssml(utt.get(), nullptr), 0);
  EXPECT_EQ(utt_load_ssml(nullptr, "<speak/>"), 0);
  utt_load_xml(utt.get(), nullptr);
  utt_load_xml(nullptr, nullptr);
  EXPECT_EQ(utt_relation(utt.get(), "ssml"), nullptr);
}

}  // namespace
