/* large_document_test.cpp - long sibling lists and deep nesting load, save
 * and convert on a small thread stack: nothing recurses per sibling, and
 * nothing per nesting level. */
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <string>

#include "markup_fixture.h"

namespace {

using markup_test::Utt;

// Far less than one stack frame per sibling or per level would need.
constexpr size_t kSmallStack = 512 * 1024;

// Runs `body` on a thread whose stack is kSmallStack bytes.
void on_small_stack(const std::function<void()> &body) {
  pthread_attr_t attr;
  pthread_attr_init(&attr);
  pthread_attr_setstacksize(&attr, kSmallStack);
  pthread_t thread;
  auto trampoline = [](void *arg) -> void * {
    (*static_cast<const std::function<void()> *>(arg))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attr, trampoline, const_cast<std::function<void()> *>(&body)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attr);
}

int count_daughters(item *parent) {
  int n = 0;
  for (item *d = item_daughter(parent); d; d = item_next(d)) ++n;
  return n;
}

int depth_below(item *i) {
  int depth = 0;
  for (item *d = item_daughter(i); d; d = item_daughter(d)) ++depth;
  return depth;
}

TEST(LargeDocument, HundredThousandSiblings) {
  constexpr int kSiblings = 100000;
  std::string doc = "<speak>";
  std::string expected_saved = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n\n<speak>";
  for (int k = 0; k < kSiblings; ++k) {
    std::string n = std::to_string(k);
    doc += "<w n=\"" + n + "\">" + n + "</w>";
    expected_saved += "\n<w n=\"" + n + "\">" + n + "</w>";
  }
  doc += "</speak>";
  expected_saved += "</speak>";
  on_small_stack([&] {
    Utt utt;
    ASSERT_EQ(utt.load(doc), 1);
    ASSERT_EQ(count_daughters(utt.root()), kSiblings);
    item *last = item_last_daughter(utt.root());
    EXPECT_EQ(std::u16string(item_feat_wstring(last, "n")), u"99999");
    EXPECT_EQ(item_parent(last), utt.root());
    // 100,000 equal tags: whatever sharing the loader does keeps each value's
    // 16-bit count in range.
    for (item *w = item_daughter(utt.root()); w; w = item_next(w)) {
      ASSERT_GT(item_feat(w, "tag")->c.atom.ref_count, 0);
    }
    EXPECT_EQ(utt.save(), expected_saved);
    mxml_node_t *xml = utt_to_xml(utt.get());
    ASSERT_NE(xml, nullptr);
    Utt copy;
    utt_load_xml(copy.get(), xml);
    EXPECT_EQ(count_daughters(copy.root()), kSiblings);
    mxmlRelease(xml);
  });
}

TEST(LargeDocument, TwoThousandLevelsDeep) {
  constexpr int kDepth = 2000;
  std::string open, close;
  for (int k = 0; k < kDepth; ++k) {
    open += "<voice>";
    close += "</voice>";
  }
  std::string doc = "<speak>" + open + "deep" + close + "</speak>";
  std::string saved_open;
  for (int k = 0; k < kDepth; ++k) saved_open += "\n<voice>";
  std::string expected_saved =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n\n<speak>" + saved_open + "deep" + close + "</speak>";
  on_small_stack([&] {
    Utt utt;
    ASSERT_EQ(utt.load(doc), 1);
    EXPECT_EQ(depth_below(utt.root()), kDepth + 1);  // the voices and the text
    EXPECT_EQ(utt.save(), expected_saved);
    mxml_node_t *xml = utt_to_xml(utt.get());
    Utt copy;
    utt_load_xml(copy.get(), xml);
    EXPECT_EQ(depth_below(copy.root()), kDepth + 1);
    mxmlRelease(xml);
    // Walks from the deepest item climb all the way out.
    item *deepest = utt.root();
    while (item_daughter(deepest)) deepest = item_daughter(deepest);
    EXPECT_EQ(utt_walk_next(deepest, utt.root(), 1), nullptr);
    EXPECT_EQ(GetItemAncestor(deepest, u"speak"), utt.root());
  });
}

}  // namespace
