// hts_model_test.cpp - model sections: every field of the record, the
// statistics cases B = 0 and V = 0, no windows, alignment origins and
// consumed counts.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "dtree/image_builder.h"
#include "hts_model.h"

namespace {

using namespace dtree_test;

// Three fields (31 bytes with F: one byte of padding), three windows, two
// trees, two rows, a three-byte trailing block (one byte of padding).
ModelParts full_model() {
  ModelParts m;
  m.fields = {"name", "[C]", "|", "p.name", "[L]", "", "0", "", ""};
  m.windows = {{0, 0, {1.0f}}, {-1, 1, {-0.5f, 0.0f, 0.5f}}, {-1, 1, {1.0f, -2.0f, 1.0f}}};
  m.window_value = 7;
  m.stream_value = 9;
  m.tree_values = {100, 200};
  m.rows = 2;
  m.trees.header = 2;
  m.trees.patterns = {"[C]a", "*[L]x*"};
  m.trees.questions = {{0}, {1}};
  m.trees.trees = {{{0, 0, 1, 2}}, {{0, 1, -1, 3}, {-1, 0, 4, 5}}};
  m.extra_bytes = 3;
  m.has_ivar = 5;
  return m;
}

TEST(HTSModel, EveryFieldOfAFullSection) {
  ModelLayout l;
  const std::vector<unsigned char> image = model_image(full_model(), &l);
  const unsigned char *base = image.data();
  int consumed = -1;
  HTSModel *m = HTSModel_Create(base, &consumed);
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(consumed, static_cast<int>(l.end));
  EXPECT_EQ(consumed % 4, 0);
  EXPECT_EQ(m->num_features, 3);
  EXPECT_STREQ(m->feature_names[1], "p.name");
  EXPECT_STREQ(m->feature_prefixes[1], "[L]");
  EXPECT_STREQ(m->feature_suffixes[1], "");
  EXPECT_EQ(reinterpret_cast<const unsigned char *>(m->feature_names[0]), base + 4);
  EXPECT_EQ(m->num_windows, 3);
  EXPECT_EQ(reinterpret_cast<const unsigned char *>(m->win_l_width), base + l.window_count + 4);
  EXPECT_EQ(m->win_l_width[1], -1);
  EXPECT_EQ(m->win_r_width[2], 1);
  EXPECT_EQ(m->win_coefficient[0][0], 1.0f);
  EXPECT_EQ(m->win_coefficient[1][2], 0.5f);
  EXPECT_EQ(m->win_coefficient[2][1], -2.0f);
  EXPECT_EQ(m->win_coefficient[3], nullptr);
  EXPECT_EQ(m->window_value, 7u);
  EXPECT_EQ(m->stream_value, 9u);
  EXPECT_EQ(m->has_ivar, 5u);
  EXPECT_EQ(m->num_rows, 2u);
  EXPECT_EQ(m->tree_value[0], 100u);
  EXPECT_EQ(m->tree_value[1], 200u);
  EXPECT_EQ(m->num_trees, 2);
  ASSERT_NE(m->trees, nullptr);
  EXPECT_EQ(m->trees->TreeCount, 2);
  EXPECT_EQ(m->trees->FeatureNames, m->feature_names);
  EXPECT_EQ(m->trees->FeatureCount, 3);
  ASSERT_NE(m->mean_rows, nullptr);
  EXPECT_EQ(reinterpret_cast<const unsigned char *>(m->mean_rows[1]), base + l.first_row + 512);
  EXPECT_EQ(m->mean_rows[1][3], 1003);
  ASSERT_NE(m->ivar_rows, nullptr);
  EXPECT_EQ(reinterpret_cast<const unsigned char *>(m->ivar_rows[0]), base + l.first_row + 1024);
  EXPECT_EQ(m->ivar_rows[1][5], 2005);
  EXPECT_EQ(static_cast<const unsigned char *>(m->extra), base + l.extra);
  HTSModel_Destroy(m);
}

TEST(HTSModel, TheTreesOfASectionLookUpItsFields) {
  const std::vector<unsigned char> image = model_image(full_model());
  HTSModel *m = HTSModel_Create(image.data(), nullptr);
  ASSERT_NE(m, nullptr);
  utterance *u = new_utterance();
  relation *r = utt_relation_create(u, "Segment");
  item *a = relation_append(r, nullptr);
  item_set_wstring(a, "name", u"a");
  item *b = relation_append(r, nullptr);
  item_set_wstring(b, "name", u"b");
  EXPECT_EQ(DTree_Lookup(m->trees, 0, a), 2);
  EXPECT_EQ(DTree_Lookup(m->trees, 0, b), 1);
  // Tree 1: a has no previous item ("![L]x!"), so Yes at once.
  EXPECT_EQ(DTree_Lookup(m->trees, 1, a), 3);
  EXPECT_EQ(DTree_Lookup(m->trees, 1, b), 4);
  delete_utterance(u);
  HTSModel_Destroy(m);
}

TEST(HTSModel, NoTrailingBlockEndsAfterTheTrees) {
  ModelParts parts = full_model();
  parts.extra_bytes = 0;
  ModelLayout l;
  const std::vector<unsigned char> image = model_image(parts, &l);
  int consumed = -1;
  HTSModel *m = HTSModel_Create(image.data(), &consumed);
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(consumed, static_cast<int>(l.block + 4));
  EXPECT_EQ(m->mean_rows, nullptr);
  EXPECT_EQ(m->ivar_rows, nullptr);
  EXPECT_EQ(m->extra, nullptr);
  EXPECT_EQ(m->has_ivar, 0u);
  EXPECT_EQ(m->num_rows, 2u);
  HTSModel_Destroy(m);
}

TEST(HTSModel, NoSecondTableWithoutV) {
  ModelParts parts = full_model();
  parts.has_ivar = 0;
  ModelLayout l;
  const std::vector<unsigned char> image = model_image(parts, &l);
  int consumed = -1;
  HTSModel *m = HTSModel_Create(image.data(), &consumed);
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(consumed, static_cast<int>(l.end));
  EXPECT_EQ(l.extra, l.first_row + 1024);
  EXPECT_NE(m->mean_rows, nullptr);
  EXPECT_EQ(m->ivar_rows, nullptr);
  EXPECT_EQ(static_cast<const unsigned char *>(m->extra), image.data() + l.extra);
  HTSModel_Destroy(m);
}

TEST(HTSModel, NoWindowsReadNoWindowValue) {
  ModelParts parts = full_model();
  parts.windows.clear();
  parts.window_value = 0xDEAD;  // not written when there are no windows
  ModelLayout l;
  const std::vector<unsigned char> image = model_image(parts, &l);
  int consumed = -1;
  HTSModel *m = HTSModel_Create(image.data(), &consumed);
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(consumed, static_cast<int>(l.end));
  EXPECT_EQ(m->num_windows, 0);
  EXPECT_EQ(m->win_l_width, nullptr);
  EXPECT_EQ(m->win_r_width, nullptr);
  EXPECT_EQ(m->window_value, 0u);
  EXPECT_EQ(m->stream_value, 9u);
  HTSModel_Destroy(m);
}

TEST(HTSModel, AlignmentCountsFromTheSectionStart) {
  ModelLayout l;
  const std::vector<unsigned char> image = model_image(full_model(), &l);
  for (size_t shift = 1; shift < 4; ++shift) {
    std::vector<unsigned char> buffer(image.size() + shift);
    std::memcpy(buffer.data() + shift, image.data(), image.size());
    const unsigned char *base = buffer.data() + shift;
    int consumed = -1;
    HTSModel *m = HTSModel_Create(base, &consumed);
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(consumed, static_cast<int>(l.end)) << "shift " << shift;
    EXPECT_EQ(static_cast<const unsigned char *>(m->extra), base + l.extra) << "shift " << shift;
    HTSModel_Destroy(m);
  }
}

TEST(HTSModel, ConsumedStepsToTheNextSection) {
  ModelParts second = full_model();
  second.stream_value = 77;
  second.extra_bytes = 0;
  std::vector<unsigned char> both = model_image(full_model());
  const std::vector<unsigned char> tail = model_image(second);
  const size_t first_size = both.size();
  both.insert(both.end(), tail.begin(), tail.end());
  int consumed = 0;
  HTSModel *m = HTSModel_Create(both.data(), &consumed);
  ASSERT_NE(m, nullptr);
  ASSERT_EQ(consumed, static_cast<int>(first_size));
  HTSModel_Destroy(m);
  int next = 0;
  m = HTSModel_Create(both.data() + consumed, &next);
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(m->stream_value, 77u);
  EXPECT_EQ(next, static_cast<int>(tail.size()));
  HTSModel_Destroy(m);
}

TEST(HTSModel, RefusalsAndNull) {
  int consumed = 1234;
  EXPECT_EQ(HTSModel_Create(nullptr, &consumed), nullptr);
  EXPECT_EQ(consumed, 1234);
  ModelParts parts = full_model();
  parts.tree_values.assign(17, 0);
  parts.trees.trees.assign(17, {{0, 0, 1, 2}});
  const std::vector<unsigned char> many = model_image(parts);
  EXPECT_EQ(HTSModel_Create(many.data(), &consumed), nullptr);
  EXPECT_EQ(consumed, 0);
  HTSModel_Destroy(nullptr);
}

}  // namespace
