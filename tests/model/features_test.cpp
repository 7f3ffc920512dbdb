// Feature sets: order, replacement in place, removal, copying with shared
// values, printing, the readers with defaults, and sets on a private heap.
#include <gtest/gtest.h>

#include <vector>

#include "model_test_util.h"

namespace {

std::vector<std::string> names_of(const features *f) {
  std::vector<std::string> out;
  for (const feature_pair *p = f->head; p != nullptr; p = p->next) out.push_back(p->name);
  return out;
}

struct FeaturesTest : ::testing::Test {
  features *f = new_features();
  ~FeaturesTest() override { delete_features(f); }
};

TEST_F(FeaturesTest, NewestFirstAndReplaceKeepsPlace) {
  feat_set_int(f, "a", 1);
  feat_set_int(f, "b", 2);
  feat_set_int(f, "c", 3);
  EXPECT_EQ(names_of(f), (std::vector<std::string>{"c", "b", "a"}));
  feat_set_int(f, "a", 10);
  EXPECT_EQ(names_of(f), (std::vector<std::string>{"c", "b", "a"}));
  EXPECT_EQ(feat_int(f, "a"), 10);
  EXPECT_EQ(feat_length(f), 3);
  EXPECT_EQ(printed([&](FILE *o) { feat_print(o, f); }), " c=\"3\" b=\"2\" a=\"10\"");
}

TEST_F(FeaturesTest, NamesAreCaseSensitiveAndCopied) {
  char name[] = "Name";
  feat_set_int(f, name, 1);
  name[0] = 'X';  // the set holds its own copy
  EXPECT_EQ(feat_present(f, "Name"), 1);
  EXPECT_EQ(feat_present(f, "name"), 0);
  EXPECT_EQ(feat_present(f, "Xame"), 0);
}

TEST_F(FeaturesTest, NullValueNeitherSetsNorRemoves) {
  feat_set_int(f, "x", 4);
  feat_set(f, "x", nullptr);
  feat_set(f, "y", nullptr);
  EXPECT_EQ(feat_int(f, "x"), 4);
  EXPECT_EQ(feat_present(f, "y"), 0);
}

TEST_F(FeaturesTest, ReplacingReleasesTheOldValue) {
  val *old_value = wstring_val(u"old");
  val_inc_refcount(old_value);  // our own hold, so we can watch it
  feat_set(f, "k", old_value);
  EXPECT_EQ(old_value->c.atom.ref_count, 2);
  feat_set_wstring(f, "k", u"new");
  EXPECT_EQ(old_value->c.atom.ref_count, 1);
  EXPECT_EQ(wide(feat_wstring(f, "k")), u"new");
  delete_val(old_value);
}

TEST_F(FeaturesTest, RemoveUnlinksAnyPosition) {
  for (const char *n : {"a", "b", "c", "d"}) feat_set_int(f, n, 1);
  EXPECT_EQ(feat_remove(f, "absent"), 0);
  EXPECT_EQ(feat_length(f), 4);
  EXPECT_EQ(feat_remove(f, "b"), 1);  // middle
  EXPECT_EQ(feat_remove(f, "d"), 1);  // head
  EXPECT_EQ(feat_remove(f, "a"), 1);  // tail
  EXPECT_EQ(names_of(f), std::vector<std::string>{"c"});
  EXPECT_EQ(feat_remove(f, "c"), 1);
  EXPECT_EQ(f->head, nullptr);
  EXPECT_EQ(feat_remove(f, "c"), 0);
  EXPECT_EQ(feat_remove(nullptr, "c"), 0);
}

TEST_F(FeaturesTest, TypedReaders) {
  feat_set_float(f, "x", 2.75f);
  feat_set_wstring(f, "w", u"12");
  feat_set(f, "u", userdata_val(nullptr));
  EXPECT_FLOAT_EQ(feat_float(f, "x"), 2.75f);
  EXPECT_EQ(feat_int(f, "x"), 2);
  EXPECT_EQ(feat_int(f, "w"), 12);
  EXPECT_EQ(feat_float(f, "w"), 0.0f);
  EXPECT_EQ(feat_wstring(f, "x"), nullptr);
  EXPECT_EQ(feat_wstring(f, "absent"), nullptr);
  EXPECT_EQ(feat_int(f, "absent"), 0);
  EXPECT_EQ(feat_val(nullptr, "x"), nullptr);
  EXPECT_EQ(feat_length(nullptr), 0);
  EXPECT_EQ(feat_present(nullptr, "x"), 0);
}

TEST_F(FeaturesTest, ParamReadersWithDefaults) {
  feat_set_wstring(f, "x", u"12");
  feat_set_int(f, "n", 5);
  EXPECT_EQ(get_param_int(f, "absent", 7), 7);
  EXPECT_EQ(get_param_int(f, "x", 7), 12);
  EXPECT_EQ(get_param_float(f, "x", 7.0f), 0.0f);
  EXPECT_EQ(get_param_float(f, "absent", 7.5f), 7.5f);
  EXPECT_EQ(get_param_float(f, "n", 7.5f), 5.0f);
  const bsr_wchar *def = u"def";
  EXPECT_EQ(get_param_wstring(f, "absent", def), def);
  EXPECT_EQ(get_param_wstring(f, "n", def), nullptr);
  EXPECT_EQ(wide(get_param_wstring(f, "x", def)), u"12");
  EXPECT_EQ(get_param_val(f, "absent", &val_int_9), &val_int_9);
  EXPECT_EQ(val_int(get_param_val(f, "n", &val_int_9)), 5);
  EXPECT_EQ(get_param_int(nullptr, "n", 3), 3);
}

TEST_F(FeaturesTest, PrintSkipsTagAndNothingForTagOnly) {
  feat_set_wstring(f, "tag", u"speak");
  EXPECT_EQ(printed([&](FILE *o) { feat_print(o, f); }), "");
  feat_set_wstring(f, "xml:lang", u"zh-CN");
  feat_set(f, "list", cons_val(&val_int_1, cons_val(&val_int_2, nullptr)));
  EXPECT_EQ(printed([&](FILE *o) { EXPECT_EQ(feat_print(o, f), 0); }),
            " list=\"(1 2)\" xml:lang=\"zh-CN\"");
}

TEST_F(FeaturesTest, CopyIntoSharesValuesAndReversesNewNames) {
  feat_set_int(f, "a", 1);
  feat_set_wstring(f, "b", u"bee");
  feat_set_int(f, "c", 3);
  features *to = new_features();
  feat_set_int(to, "b", 99);
  EXPECT_EQ(feat_copy_into(f, to), 3);
  EXPECT_EQ(names_of(to), (std::vector<std::string>{"a", "c", "b"}));  // b kept its place
  EXPECT_EQ(feat_val(to, "b"), feat_val(f, "b"));
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
  EXPECT_EQ(f->heap, u->heap);
  for (int k = 0; k < 100; ++k) feat_set_int(f, std::to_string(k).c_str(), k);
  EXPECT_EQ(feat_int(f, "42"), 42);
  EXPECT_EQ(feat_remove(f, "42"), 1);
  delete_features(f);  // pairs back to the heap, names and values to the local allocator
  features *local = new_features_local(nullptr);
  EXPECT_EQ(local->heap, nullptr);
  feat_set_int(local, "x", 1);
  delete_features(local);
  delete_utterance(u);
  delete_features(nullptr);
}

}  // namespace
