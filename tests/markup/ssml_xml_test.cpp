/* ssml_xml_test.cpp - exchanging Mini-XML trees with the caller: utt_to_xml
 * builds a document from the tree, utt_load_xml reads a caller's tree, and
 * libUtils exports mxmlRelease and no other Mini-XML name. */
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "markup_fixture.h"
#include "mxml_peer.h"

namespace {

using markup_test::find_tag;
using markup_test::MxmlPeer;
using markup_test::read_file;
using markup_test::Utt;

const char kDeclarationNode[] = "?xml version=\"1.0\" encoding=\"utf-8\"?";

TEST(MiniXmlExports, OnlyMxmlReleaseIsVisible) {
  void *release = dlsym(RTLD_DEFAULT, "mxmlRelease");
  ASSERT_NE(release, nullptr);
  Dl_info info;
  ASSERT_NE(dladdr(release, &info), 0);
  EXPECT_NE(std::string(info.dli_fname).find("libUtils"), std::string::npos) << info.dli_fname;
  for (const char *hidden : {"mxmlLoadString", "mxmlDelete", "mxmlNewElement", "mxmlNewXML",
                             "mxmlFindElement", "mxmlElementSetAttr", "mxmlGetOpaque",
                             "mxmlSetErrorCallback", "mxmlRetain", "mxml_opaque_cb", "mxml_error"}) {
    EXPECT_EQ(dlsym(RTLD_DEFAULT, hidden), nullptr) << hidden;
  }
}

class XmlTest : public ::testing::Test {
 protected:
  void SetUp() override {
    peer = MxmlPeer::get();
    ASSERT_NE(peer, nullptr) << "libmxml.so.1 (installed with libmxml-dev) could not be opened";
  }
  const MxmlPeer *peer = nullptr;
};

TEST_F(XmlTest, DocumentHoldsTheRootWithAttributesInOrder) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak version=\"1.1\" xml:lang=\"zh-CN\"><s>\xE4\xBD\xA0\xE5\xA5\xBD &amp; "
                     "caf\xC3\xA9</s><break time=\"1s\"/></speak>"),
            1);
  mxml_node_t *doc = utt_to_xml(utt.get());
  ASSERT_NE(doc, nullptr);
  EXPECT_EQ(std::string(peer->GetElement(doc)), kDeclarationNode);
  EXPECT_EQ(peer->describe(doc),
            std::string(kDeclarationNode) +
                "(speak[version=1.1,xml:lang=zh-CN](s(\"\xE4\xBD\xA0\xE5\xA5\xBD & caf\xC3\xA9\"),"
                "break[time=1s]))");
  mxml_node_t *text = peer->GetFirstChild(peer->GetFirstChild(peer->GetFirstChild(doc)));
  EXPECT_EQ(peer->GetType(text), MXML_OPAQUE);
  EXPECT_EQ(mxmlRelease(doc), 0);
}

TEST_F(XmlTest, ConvertingAndLoadingBackGivesTheSameTree) {
  Utt utt;
  ASSERT_EQ(utt.load(read_file("data/markup/voicemail.ssml")), 1);
  mxml_node_t *doc = utt_to_xml(utt.get());
  Utt copy;
  utt_load_xml(copy.get(), doc);
  EXPECT_EQ(copy.tree(), utt.tree());
  mxmlRelease(doc);
}

TEST_F(XmlTest, OnlyTheFirstTopLevelItemAndWideStringValues) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>a</s></speak>"), 1);
  item *s = find_tag(utt.root(), u"s");
  item_set_int(s, "break", 4);  // not a wide string: an empty attribute
  item *extra = relation_append(utt_relation(utt.get(), "ssml"), nullptr);
  item_set_wstring(extra, "tag", u"speak");
  mxml_node_t *doc = utt_to_xml(utt.get());
  EXPECT_EQ(peer->describe(doc), std::string(kDeclarationNode) + "(speak(s[break=](\"a\")))");
  mxmlRelease(doc);
}

TEST_F(XmlTest, NoTreeGivesAnEmptyDocument) {
  Utt utt;
  mxml_node_t *doc = utt_to_xml(utt.get());
  ASSERT_NE(doc, nullptr);
  EXPECT_EQ(peer->GetFirstChild(doc), nullptr);
  mxmlRelease(doc);
  EXPECT_EQ(utt_to_xml(nullptr), nullptr);
}

TEST_F(XmlTest, LoadsACallersTreeWithoutChangingIt) {
  mxml_node_t *tree = peer->LoadString(
      nullptr, "<?xml version=\"1.0\"?><speak xml:lang=\"fr\"><s>Bonjour <mark name=\"m\"/>Paris</s></speak>",
      peer->OpaqueCallback);
  ASSERT_NE(tree, nullptr);
  std::string before = peer->describe(tree);
  Utt utt;
  utt_load_xml(utt.get(), tree);
  EXPECT_EQ(utt.tree(), "speak[xml:lang=fr](s(\"Bonjour \",mark[name=m],\"Paris\"))");
  EXPECT_EQ(peer->describe(tree), before);
  peer->Delete(tree);
}

TEST_F(XmlTest, LoadsABuiltTreeRootedAtSpeakWithWordNodes) {
  // A tree built in code, its root the speak element itself, with text nodes
  // of the word kind (each flagged when white space came before it).
  mxml_node_t *speak = peer->NewElement(nullptr, "speak");
  mxml_node_t *s = peer->NewElement(speak, "s");
  peer->ElementSetAttr(s, "xml:lang", "en");
  peer->NewText(s, 0, "two");
  peer->NewText(s, 1, "words");
  peer->NewOpaque(speak, " tail");
  Utt utt;
  utt_load_xml(utt.get(), speak);
  EXPECT_EQ(utt.tree(), "speak(s[xml:lang=en](\"two\",\" words\"),\" tail\")");
  peer->Delete(speak);
}

TEST_F(XmlTest, ATreeWithoutSpeakChangesNothing) {
  mxml_node_t *tree = peer->LoadString(nullptr, "<doc><p>x</p></doc>", peer->OpaqueCallback);
  Utt utt;
  ASSERT_EQ(utt.load("<speak>kept</speak>"), 1);
  utt_load_xml(utt.get(), tree);
  EXPECT_EQ(utt.tree(), "speak(\"kept\")");
  peer->Delete(tree);
}

}  // namespace
