/* large_document_test.cpp - long sibling lists and deep nesting load, save
 * and convert on a small thread stack: nothing recurses per sibling, and
 * nothing per nesting level. */
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <regex>
#include <string>

#include "markup_fixture.h"

namespace {

using namespace markup_test;

// Runs `body` on a thread with a 512 KiB stack, far less than one frame per
// sibling or per level would need.
void on_small_stack(const std::function<void()> &body) {
  pthread_attr_t attr;
  pthread_attr_init(&attr);
  pthread_attr_setstacksize(&attr, 512 * 1024);
  pthread_t thread;
  auto run = [](void *arg) -> void * { return (*static_cast<const std::function<void()> *>(arg))(), nullptr; };
  ASSERT_EQ(pthread_create(&thread, &attr, run, const_cast<std::function<void()> *>(&body)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attr);
}

// Items reached from `i` by repeated `step`.
int count(item *i, item *(*step)(const item *)) {
  int n = 0;
  for (; i; i = step(i)) ++n;
  return n;
}

TEST(LargeDocument, HundredThousandSiblingsAndTwoThousandLevels) {
  std::string wide = "<speak>", wide_saved = "<speak>", deep_open, deep_close;
  for (int k = 0; k < 100000; ++k) {
    std::string n = std::to_string(k), w = "<w n=\"" + n + "\">" + n + "</w>";
    wide += w;
    wide_saved += "\n" + w;
  }
  for (int k = 0; k < 2000; ++k) deep_open += "<voice>", deep_close += "</voice>";
  const std::string docs[][2] = {
      {wide + "</speak>", wide_saved + "</speak>"},
      {"<speak>" + deep_open + "deep" + deep_close + "</speak>",
       "<speak>" + std::regex_replace(deep_open, std::regex("<"), "\n<") + "deep" + deep_close + "</speak>"},
  };
  on_small_stack([&] {
    for (bool siblings : {true, false}) {
      auto &d = docs[siblings ? 0 : 1];
      Utt utt;
      ASSERT_EQ(utt.load(d[0]), 1);
      EXPECT_EQ(utt.save(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n\n" + d[1]);
      mxml_node_t *xml = utt_to_xml(utt.u);
      Utt copy;
      utt_load_xml(copy.u, xml);
      mxmlRelease(xml);
      item *deepest = utt.root();
      while (item_daughter(deepest)) deepest = item_daughter(deepest);
      EXPECT_EQ(utt_walk_next(deepest, utt.root(), 1), siblings ? item_next(item_parent(deepest)) : nullptr);
      EXPECT_EQ(GetItemAncestor(deepest, u"speak"), utt.root());
      for (Utt *u : {&utt, &copy}) {
        EXPECT_EQ(count(item_daughter(u->root()), item_next), siblings ? 100000 : 1);
        EXPECT_EQ(count(item_daughter(u->root()), item_daughter), siblings ? 2 : 2001);
      }
    }
    // 100,000 equal tags: whatever sharing the loader does keeps each value's 16-bit count in range.
    Utt utt;
    ASSERT_EQ(utt.load(docs[0][0]), 1);
    for (item *w = item_daughter(utt.root()); w; w = item_next(w)) ASSERT_GT(item_feat(w, "tag")->c.atom.ref_count, 0);
    EXPECT_EQ(utf8(item_feat_wstring(item_last_daughter(utt.root()), "n")), "99999");
  });
}

}  // namespace
