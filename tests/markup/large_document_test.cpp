// large_document_test.cpp - long sibling lists and deep nesting load, save and
// convert on a small thread stack: nothing recurses per sibling or per level.
#include <gtest/gtest.h>
#include <pthread.h>

#include "markup_fixture.h"

namespace {

using namespace markup_test;

int count(item *i, item *(*step)(const item *)) {
  int n = 0;
  for (; i != nullptr; i = step(i)) ++n;
  return n;
}

// The saved form of `doc`: a line feed before every opening tag. (A loop, not
// std::regex, whose matcher recurses per character and would overflow the
// small stack itself.)
std::string with_line_feeds(const std::string &doc) {
  std::string out;
  for (size_t k = 0; k < doc.size(); ++k) {
    if (doc[k] == '<' && k + 1 < doc.size() && doc[k + 1] != '/') out += '\n';
    out += doc[k];
  }
  return out;
}

// 100,000 siblings (true) or 2,000 levels (false): load, save, convert, walk.
void *load_save_convert(void *siblings) {
  std::string doc, open, close;
  for (int k = 0; k < (siblings != nullptr ? 100000 : 2000); ++k) {
    std::string n = std::to_string(k);
    doc += "<w n=\"" + n + "\">" + n + "</w>";
    open += "<voice>", close += "</voice>";
  }
  if (siblings == nullptr) doc = open + "deep" + close;
  Utt utt;
  EXPECT_EQ(utt.load("<speak>" + doc + "</speak>"), 1);
  std::string saved = with_line_feeds(doc);
  EXPECT_EQ(utt.save(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n\n<speak>" + saved + "</speak>");
  mxml_node_t *xml = utt_to_xml(utt.u);
  Utt copy;
  utt_load_xml(copy.u, xml);
  mxmlRelease(xml);
  for (Utt *u : {&utt, &copy}) {
    EXPECT_EQ(count(item_daughter(u->root()), item_next), siblings ? 100000 : 1);
    EXPECT_EQ(count(item_daughter(u->root()), item_daughter), siblings ? 2 : 2001);
  }
  item *deepest = utt.root();
  while (item_daughter(deepest) != nullptr) deepest = item_daughter(deepest);
  EXPECT_EQ(utt_walk_next(deepest, utt.root(), 1),
            siblings ? item_next(item_parent(deepest)) : nullptr);
  EXPECT_EQ(GetItemAncestor(deepest, u"speak"), utt.root());
  // Equal tags by the 100,000: whatever sharing the loader does keeps each 16-bit count in range.
  for (item *w = item_daughter(utt.root()); w != nullptr; w = item_next(w))
    EXPECT_GT(item_feat(w, "tag")->c.atom.ref_count, 0);
  return nullptr;
}

TEST(LargeDocument, HundredThousandSiblingsAndTwoThousandLevelsOnASmallStack) {
  pthread_attr_t attr;
  pthread_attr_init(&attr);
  pthread_attr_setstacksize(&attr, 512 * 1024);  // far less than a frame per sibling or level needs
  for (bool siblings : {true, false}) {
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attr, load_save_convert, siblings ? &attr : nullptr), 0);
    pthread_join(thread, nullptr);
  }
  pthread_attr_destroy(&attr);
}

}  // namespace
