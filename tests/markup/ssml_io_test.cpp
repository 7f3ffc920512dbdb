// ssml_io_test.cpp - SSML text into the "ssml" relation and back out: tree
// shape, decoded text, exact saved bytes, Mini-XML trees both ways, rejected
// documents.
#include <gtest/gtest.h>

#include <regex>

#include "markup_fixture.h"

namespace {

using namespace markup_test;

const std::string kDecl = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const std::string kDeclNode = "?xml version=\"1.0\" encoding=\"utf-8\"?";

// The tree must also come out of utt_to_xml, and back in through utt_load_xml.
void expect_xml_round_trip(const Utt &utt) {
  mxml_node_t *doc = utt_to_xml(utt.u);
  ASSERT_NE(doc, nullptr);
  EXPECT_EQ(describe(doc), kDeclNode + "(" + utt.tree() + ")");
  Utt copy;
  utt_load_xml(copy.u, doc);
  EXPECT_EQ(copy.tree(), utt.tree());
  EXPECT_EQ(mxmlRelease(doc), 0);
}

TEST(SsmlIo, DocumentsLoadSaveAndConvert) {
  for (auto &c : read_cases("load_save.cases")) {  // document, tree, saved file
    Utt utt;
    ASSERT_EQ(utt.load(c[0]), 1) << c[0];
    EXPECT_EQ(utt.tree(), c[1]);
    EXPECT_EQ(utt.save(), kDecl + "\n" + c[2]);
    expect_xml_round_trip(utt);
  }
}

TEST(SsmlIo, RealisticDocumentWithBomDeclarationAndEntities) {
  std::string doc = read_file("data/markup/voicemail.ssml");
  Utt utt;
  ASSERT_EQ(utt.load(doc), 1);
  EXPECT_EQ(utt.tree(), read_file("data/markup/voicemail.tree"));
  EXPECT_EQ(utt.save(), read_file("data/markup/voicemail.saved"));
  expect_xml_round_trip(utt);
  // Load, save, load: the same tree but for the saver's line feed before each opening
  // tag. Without the comment (it splits a run) and references needing escapes.
  doc.erase(doc.find("<!--"), doc.find("-->") + 3 - doc.find("<!--"));
  doc = std::regex_replace(doc, std::regex("&amp;|&lt;|&gt;"), "+");
  Utt first, second;
  ASSERT_EQ(first.load(doc), 1);
  ASSERT_EQ(second.load(first.save()), 1);
  std::string reloaded =
      std::regex_replace(second.tree(), std::regex("([(,])\"\n\",(?=[a-z])"), "$1");
  EXPECT_EQ(std::regex_replace(reloaded, std::regex("\n\",(?=[a-z])"), "\","), first.tree());
}

TEST(SsmlIo, RejectedDocumentsAndMissingTrees) {
  for (auto &c : read_cases("rejected.cases")) {
    Utt utt;
    ASSERT_EQ(utt.load("<speak><s>kept</s></speak>"), 1);
    item *before = utt.root();
    EXPECT_EQ(utt.load(c[0]), 0) << c[0];
    EXPECT_EQ(utt.root(), before) << c[0];
    EXPECT_EQ(utt.tree(), "speak(s(\"kept\"))") << c[0];
  }
  Utt fresh;
  EXPECT_EQ(fresh.load("<speak a=\"1\" a=\"1\">"), 0);
  EXPECT_EQ(utt_load_ssml(nullptr, "<speak/>"), 0);
  utt_load_xml(fresh.u, nullptr);
  EXPECT_EQ(utt_relation(fresh.u, "ssml"), nullptr);
  EXPECT_EQ(fresh.save(), kDecl);  // no tree: the declaration alone
  mxml_node_t *empty = utt_to_xml(fresh.u);
  EXPECT_EQ(describe(empty), kDeclNode);
  mxmlRelease(empty);
  EXPECT_EQ(utt_to_xml(nullptr), nullptr);
  EXPECT_EQ(utt_save_ssml(fresh.u, "/nonexistent-dir/x.ssml"), -1);
  EXPECT_EQ(utt_save_ssml(nullptr, "/tmp/x.ssml"), -1);
}

TEST(SsmlIo, EditedTreesAndRepeatedLoads) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>one</s></speak>"), 1);
  ASSERT_EQ(utt.load("<speak><s xml:lang=\"en\">a</s><s xml:lang=\"en\">a</s></speak>"), 1);
  EXPECT_EQ(item_next(utt.root()), nullptr);  // the new tree replaced the old
  // Edits to one item must not show through in another with equal texts.
  item *first = item_daughter(utt.root()), *second = item_next(first);
  item_set_wstring(first, "tag", u"p");
  item_set_wstring(item_daughter(first), "text", u"b");
  delete_item(first);
  item_set_int(second, "break", 3);
  item_set_wstring(second, "name", u"caf\u00E9");
  item *extra = relation_append(utt_relation(utt.u, "ssml"), nullptr);
  item_set_wstring(extra, "tag", u"speak");
  // Later features first; numbers printed by the saver, empty in Mini-XML (first item only).
  EXPECT_EQ(
      utt.save(),
      kDecl +
          "\n<speak>\n<s name=\"caf\xC3\xA9\" break=\"3\" xml:lang=\"en\">a</s></speak>\n<speak/>");
  mxml_node_t *doc = utt_to_xml(utt.u);
  EXPECT_EQ(describe(doc), kDeclNode + "(speak(s[name=caf\xC3\xA9,break=,xml:lang=en](\"a\")))");
  mxmlRelease(doc);
}

// Every element name, attribute value and text run loads as a value of its
// own, held once by its item: equal texts never share a counted cell.
TEST(SsmlIo, EachLoadedTextIsAFreshValue) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s xml:lang=\"en\">a</s><s xml:lang=\"en\">a</s></speak>"), 1);
  item *first = item_daughter(utt.root()), *second = item_next(first);
  ASSERT_NE(second, nullptr);
  const std::pair<const item *, const char *> held[] = {
      {first, "tag"}, {first, "xml:lang"}, {item_daughter(first), "text"}};
  for (const auto &[one, name] : held) {
    const item *other = one == first ? second : item_daughter(second);
    EXPECT_NE(item_feat(one, name), item_feat(other, name)) << name;
    EXPECT_EQ(item_feat(one, name)->c.atom.ref_count, 1) << name;
  }
}

TEST(SsmlIo, CallersMiniXmlTrees) {
  const char *doc =
      "<?xml version=\"1.0\"?><speak xml:lang=\"fr\"><s>Bonjour <mark "
      "name=\"m\"/>Paris</s></speak>";
  mxml_node_t *tree = UTILS_MXML(mxmlLoadString)(nullptr, doc, UTILS_MXML(mxml_opaque_cb));
  ASSERT_NE(tree, nullptr) << "libmxml.so.1 (from libmxml-dev) is needed";
  std::string before = describe(tree);
  Utt utt;
  utt_load_xml(utt.u, tree);
  EXPECT_EQ(utt.tree(), "speak[xml:lang=fr](s(\"Bonjour \",mark[name=m],\"Paris\"))");
  EXPECT_EQ(describe(tree), before);  // the caller's tree is unchanged
  UTILS_MXML(mxmlDelete)(tree);
  // Rooted at speak itself, with word nodes flagged for white space before.
  mxml_node_t *speak = UTILS_MXML(mxmlNewElement)(nullptr, "speak"),
              *s = UTILS_MXML(mxmlNewElement)(speak, "s");
  UTILS_MXML(mxmlNewText)(s, 0, "two");
  UTILS_MXML(mxmlNewText)(s, 1, "words");
  UTILS_MXML(mxmlNewOpaque)(speak, " tail");
  utt_load_xml(utt.u, speak);
  EXPECT_EQ(utt.tree(), "speak(s(\"two\",\" words\"),\" tail\")");
  UTILS_MXML(mxmlDelete)(speak);
  tree = UTILS_MXML(mxmlLoadString)(nullptr, "<doc><p>x</p></doc>", UTILS_MXML(mxml_opaque_cb));
  utt_load_xml(utt.u, tree);  // no speak: nothing changes
  EXPECT_EQ(utt.tree(), "speak(s(\"two\",\" words\"),\" tail\")");
  UTILS_MXML(mxmlDelete)(tree);
}

}  // namespace
