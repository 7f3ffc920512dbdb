// features_test.cpp - feature sets: order, replacement in place, removal,
// copying with shared values, printing, the readers with defaults, and sets on
// a private heap.
#include <gtest/gtest.h>

#include "model_test_util.h"

namespace {

std::string names_of(const features *f) {
  std::string out;
  for (const feature_pair *p = f->head; p != nullptr; p = p->next) out += p->name;
  return out;
}

struct FeaturesTest : ::testing::Test {
  features *f = new_features();
  ~FeaturesTest() override { delete_features(f); }
};

TEST_F(FeaturesTest, NewestFirstReplaceInPlaceAndPrint) {
  char name[] = "a";
  feat_set_int(f, name, 1);
  name[0] = 'X';  // the set holds its own copy
  feat_set_int(f, "b", 2);
  feat_set_int(f, "c", 3);
  val *old_value = int_val(1);
  val_inc_refcount(old_value);  // our own hold, to watch the release
  feat_set(f, "A", old_value);
  feat_set_int(f, "A", 10);
  EXPECT_EQ(old_value->c.atom.ref_count, 1);
  delete_val(old_value);
  feat_set(f, "b", nullptr);  // neither sets nor removes
  feat_set(f, "y", nullptr);
  EXPECT_EQ(names_of(f), "Acba");
  EXPECT_EQ(feat_length(f), 4);
  feat_set(f, "list", cons_val(&val_int_1, cons_val(&val_int_2, nullptr)));
  feat_set_wstring(f, "tag", u"speak");
  EXPECT_EQ(printed([&](FILE *o) { EXPECT_EQ(feat_print(o, f), 0); }),
            " list=\"(1 2)\" A=\"10\" c=\"3\" b=\"2\" a=\"1\"");  // never the tag
  EXPECT_EQ(feat_remove(f, "absent"), 0);
  EXPECT_EQ(feat_remove(nullptr, "b"), 0);
  EXPECT_EQ(feat_remove(f, "c"), 1);    // middle
  EXPECT_EQ(feat_remove(f, "tag"), 1);  // head
  EXPECT_EQ(feat_remove(f, "a"), 1);    // tail
  EXPECT_EQ(names_of(f), "listAb");
  for (const char *n : {"list", "A", "b"}) feat_remove(f, n);
  EXPECT_EQ(f->head, nullptr);
  feat_set_wstring(f, "tag", u"s");
  EXPECT_EQ(printed([&](FILE *o) { feat_print(o, f); }), "");  // nothing for a tag alone
}

TEST_F(FeaturesTest, TypedAndParamReaders) {
  feat_set_float(f, "x", 2.75f);
  feat_set_wstring(f, "w", u"12");
  feat_set_int(f, "n", 5);
  EXPECT_EQ(feat_int(f, "x"), 2);
  EXPECT_EQ(feat_int(f, "w"), 12);
  EXPECT_EQ(feat_float(f, "w"), 0.0f);
  EXPECT_EQ(feat_wstring(f, "x"), nullptr);
  EXPECT_EQ(feat_present(f, "X"), 0);  // case-sensitive
  EXPECT_EQ(feat_val(nullptr, "x"), nullptr);
  EXPECT_EQ(get_param_int(f, "absent", 7), 7);
  EXPECT_EQ(get_param_int(f, "w", 7), 12);
  EXPECT_EQ(get_param_float(f, "w", 7.0f), 0.0f);
  EXPECT_EQ(get_param_float(f, "n", 7.5f), 5.0f);
  const bsr_wchar *def = u"def";
  EXPECT_EQ(get_param_wstring(f, "absent", def), def);
  EXPECT_EQ(get_param_wstring(f, "n", def), nullptr);
  EXPECT_EQ(get_param_val(f, "absent", &val_int_9), &val_int_9);
  EXPECT_EQ(get_param_int(nullptr, "n", 3), 3);
}

TEST_F(FeaturesTest, CopyIntoSharesValuesAndReversesNewNames) {
  feat_set_int(f, "a", 1);
  feat_set_wstring(f, "b", u"bee");
  feat_set_int(f, "c", 3);
  features *to = new_features();
  feat_set_int(to, "b", 99);
  EXPECT_EQ(feat_copy_into(f, to), 3);
  EXPECT_EQ(names_of(to), "acb");  // b kept its place
  EXPECT_EQ(feat_val(f, "b")->c.atom.ref_count, 2);
  delete_features(f);
  f = nullptr;
  EXPECT_EQ(wide(feat_wstring(to, "b")), u"bee");
  EXPECT_EQ(feat_copy_into(to, to), 3);  // into itself: nothing changes
  EXPECT_EQ(feat_val(to, "b")->c.atom.ref_count, 1);
  EXPECT_EQ(feat_copy_into(nullptr, to), 0);
  delete_features(to);
}

TEST(FeaturesHeap, SetOnAPrivateHeapAndOnTheLocalAllocator) {
  utterance *u = new_utterance();  // the only public way to get a heap
  features *f = new_features_local(u->heap);
  for (int k = 0; k < 100; ++k) feat_set_int(f, std::to_string(k).c_str(), k);
  EXPECT_EQ(feat_int(f, "42"), 42);
  EXPECT_EQ(feat_remove(f, "42"), 1);
  delete_features(f);  // pairs back to the heap, names and values to the local allocator
  delete_utterance(u);
  delete_features(nullptr);
}

}  // namespace
