/* ssml_save_test.cpp - the SSML file writer: its exact byte format, what it
 * writes for features added after loading, and load-save-load stability. */
#include <gtest/gtest.h>

#include <string>

#include "markup_fixture.h"

namespace {

using markup_test::find_tag;
using markup_test::read_file;
using markup_test::TempPath;
using markup_test::Utt;

const std::string kDecl = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

TEST(SsmlSave, SmallestDocumentByteForByte) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>Hi</s></speak>"), 1);
  EXPECT_EQ(utt.save(), kDecl + "\n<speak>\n<s>Hi</s></speak>");
}

TEST(SsmlSave, EmptyElementsCloseThemselvesAndAttributesKeepTheirOrder) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak version=\"1.1\" xml:lang=\"en-US\"><s>Wait<break time=\"3s\" "
                     "strength=\"strong\"/>now.</s><p></p></speak>"),
            1);
  EXPECT_EQ(utt.save(), kDecl +
                            "\n<speak version=\"1.1\" xml:lang=\"en-US\">\n<s>Wait\n<break time=\"3s\" "
                            "strength=\"strong\"/>now.</s>\n<p/></speak>");
}

TEST(SsmlSave, NothingIsEscaped) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><sub alias=\"A &amp; B &quot;x&quot;\">A&amp;B &lt;1&gt;</sub></speak>"), 1);
  EXPECT_EQ(utt.save(), kDecl + "\n<speak>\n<sub alias=\"A & B \"x\"\">A&B <1></sub></speak>");
}

TEST(SsmlSave, FeaturesAddedLaterComeFirstAndNumbersArePrinted) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s xml:lang=\"en\">word</s></speak>"), 1);
  item *s = find_tag(utt.root(), u"s");
  item_set_int(s, "break", 3);
  item_set_wstring(s, "name", u"caf\u00E9");
  EXPECT_EQ(utt.save(), kDecl + "\n<speak>\n<s name=\"caf\xC3\xA9\" break=\"3\" xml:lang=\"en\">word</s></speak>");
}

TEST(SsmlSave, RealisticDocumentByteForByte) {
  Utt utt;
  ASSERT_EQ(utt.load(read_file("data/markup/voicemail.ssml")), 1);
  std::string saved = utt.save();
  EXPECT_EQ(saved, read_file("data/markup/voicemail.saved"));
  EXPECT_EQ(saved.compare(0, kDecl.size() + 1, kDecl + "\n"), 0);  // the empty line
  EXPECT_NE(saved.back(), '\n');
}

// The saver puts a line feed before every opening tag, and a parser keeps it
// as character data; this takes exactly those line feeds out again: one from
// the end of the text run before each element, dropping runs left empty.
void drop_saver_line_feeds(item *parent) {
  for (item *i = item_daughter(parent); i; i = item_next(i)) {
    if (item_feat_present(i, "tag")) {
      drop_saver_line_feeds(i);
      continue;
    }
    item *next = item_next(i);
    if (!next || !item_feat_present(next, "tag")) continue;
    std::u16string text(item_feat_wstring(i, "text"));
    ASSERT_FALSE(text.empty());
    ASSERT_EQ(text.back(), u'\n');
    text.pop_back();
    if (text.empty()) {
      item *gone = i;
      i = next;  // the loop moves on past `next`; visit it here
      delete_item(gone);
      drop_saver_line_feeds(i);
    } else {
      item_set_wstring(i, "text", text.c_str());
    }
  }
}

TEST(SsmlSave, LoadSaveLoadKeepsTheTreeApartFromTheAddedLineFeeds) {
  // Only references that need no escaping once decoded, so that the saved
  // file parses again; and no comment, which splits a text run in two.
  std::string doc = read_file("data/markup/voicemail.ssml");
  size_t comment = doc.find("<!--");
  doc.erase(comment, doc.find("-->") + 3 - comment);
  for (const char *ref : {"&amp;", "&lt;", "&gt;"}) {
    for (size_t at = doc.find(ref); at != std::string::npos; at = doc.find(ref)) doc.replace(at, strlen(ref), "+");
  }
  Utt first;
  ASSERT_EQ(first.load(doc), 1);
  std::string saved = first.save();
  Utt second;
  ASSERT_EQ(second.load(saved), 1);
  EXPECT_NE(second.tree(), first.tree());
  drop_saver_line_feeds(second.root());
  EXPECT_EQ(second.tree(), first.tree());
  // So a document saved from an unindented tree loads back exactly.
  Utt plain;
  ASSERT_EQ(plain.load("<speak xml:lang=\"en\"><p><s>One <break/>two.</s></p></speak>"), 1);
  Utt again;
  ASSERT_EQ(again.load(plain.save()), 1);
  drop_saver_line_feeds(again.root());
  EXPECT_EQ(again.tree(), plain.tree());
}

TEST(SsmlSave, EveryTopLevelItemIsWritten) {
  Utt utt;
  ASSERT_EQ(utt.load("<speak><s>a</s></speak>"), 1);
  relation *ssml = utt_relation(utt.get(), "ssml");
  item *extra = relation_append(ssml, nullptr);
  item_set_wstring(extra, "tag", u"speak");
  item *text = item_add_daughter(extra, nullptr);
  item_set_wstring(text, "text", u"b");
  EXPECT_EQ(utt.save(), kDecl + "\n<speak>\n<s>a</s></speak>\n<speak>b</speak>");
}

TEST(SsmlSave, MissingTreeAndBadPaths) {
  Utt utt;
  EXPECT_EQ(utt.save(), kDecl);  // no "ssml" relation: the declaration alone
  EXPECT_EQ(utt_save_ssml(utt.get(), "/nonexistent-dir/x.ssml"), -1);
  EXPECT_EQ(utt_save_ssml(utt.get(), nullptr), -1);
  TempPath path;
  EXPECT_EQ(utt_save_ssml(nullptr, path.c_str()), -1);
}

}  // namespace
