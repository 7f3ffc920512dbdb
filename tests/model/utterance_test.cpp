// utterance_test.cpp - utterances, relations and items: building lists and
// trees, shared contents across relations and their lifetimes, deletion and
// relinking.
#include <gtest/gtest.h>

#include <string>

#include "model_test_util.h"

namespace {

struct UttTest : ::testing::Test {
  utterance *u = new_utterance();
  ~UttTest() override { delete_utterance(u); }

  // The "id" features along next links, as "1 2 3 ".
  static std::string ids(const item *first) {
    std::string out;
    for (const item *i = first; i != nullptr; i = item_next(i))
      out += std::to_string(item_feat_int(i, "id")) + " ";
    return out;
  }
  static item *with_id(item *i, int id) {
    item_set_int(i, "id", id);
    return i;
  }
};

TEST_F(UttTest, RelationTableAndCreatingTwice) {
  EXPECT_EQ(u->relations->heap, u->heap);
  relation *w = utt_relation_create(u, "Word");
  EXPECT_STREQ(relation_name(w), "Word");
  EXPECT_EQ(utt_relation(u, "Word"), w);
  for (int k = 0; k < 5; ++k) item_set_wstring(relation_append(w, nullptr), "name", u"word");
  relation *again = utt_relation_create(u, "Word");  // the first goes, items and all
  EXPECT_EQ(utt_relation(u, "Word"), again);
  EXPECT_EQ(relation_head(again), nullptr);
  EXPECT_EQ(feat_length(u->relations), 1);
  EXPECT_EQ(utt_relation_delete(u, "Word"), 1);
  EXPECT_EQ(utt_relation_delete(u, "Word"), 0);
  EXPECT_EQ(utt_relation(u, "Word"), nullptr);
  EXPECT_STREQ(relation_name(nullptr), "NoName");
  feat_set(u->relations, "odd", &val_int_1);  // present, but not a relation
  EXPECT_EQ(utt_relation(u, "odd"), nullptr);
  EXPECT_EQ(utt_relation_present(u, "odd"), 1);
  relation *side = new_relation("Side", u);  // not entered in the table
  EXPECT_EQ(utt_relation_present(u, "Side"), 0);
  relation_append(side, nullptr);
  delete_relation(side);
}

TEST_F(UttTest, ListEditsKeepHeadAndTail) {
  relation *r = utt_relation_create(u, "Seg");
  item *b = with_id(relation_append(r, nullptr), 2);
  item *a = with_id(relation_prepend(r, nullptr), 1);
  item *c = with_id(relation_append(r, nullptr), 3);
  with_id(item_append(c, nullptr), 4);   // after the tail: new tail
  with_id(item_prepend(a, nullptr), 0);  // before the head: new head
  item *mid = with_id(item_append(a, nullptr), 15);
  EXPECT_EQ(ids(relation_head(r)), "0 1 15 2 3 4 ");
  EXPECT_EQ(item_feat_int(relation_tail(r), "id"), 4);
  delete_item(b);
  delete_item(relation_head(r));
  delete_item(relation_tail(r));
  EXPECT_EQ(ids(relation_head(r)), "1 15 3 ");
  EXPECT_EQ(relation_tail(r), c);
  EXPECT_EQ(item_next(a), mid);
  EXPECT_EQ(item_prev(c), mid);
  for (item *i : {a, mid, c}) delete_item(i);
  EXPECT_EQ(relation_tail(r), nullptr);
  item *only = relation_prepend(r, nullptr);  // into an empty relation: head and tail
  EXPECT_EQ(relation_tail(r), only);
  EXPECT_EQ(item_append(nullptr, nullptr), nullptr);
  EXPECT_EQ(relation_append(nullptr, nullptr), nullptr);
}

TEST_F(UttTest, TreesAndTheFirstDaughtersParentLink) {
  relation *r = utt_relation_create(u, "Phrase");
  item *top = relation_append(r, nullptr);
  item *d[3];
  for (int k = 0; k < 3; ++k) d[k] = with_id(item_add_daughter(top, nullptr), k + 1);
  item_add_daughter(d[0], nullptr);  // a subtree goes with its root
  EXPECT_EQ(item_nth_daughter(top, 2), d[2]);
  EXPECT_EQ(item_nth_daughter(top, 3), nullptr);
  EXPECT_EQ(item_nth_daughter(top, -1), nullptr);
  EXPECT_EQ(item_last_daughter(top), d[2]);
  EXPECT_EQ(d[2]->up, nullptr);      // only the first daughter carries the link
  EXPECT_EQ(relation_tail(r), top);  // daughters are not top-level items
  item *before = with_id(item_prepend(d[0], nullptr), 0);  // a new first daughter
  EXPECT_EQ(item_daughter(top), before);
  EXPECT_EQ(before->up, top);
  EXPECT_EQ(d[0]->up, nullptr);
  EXPECT_EQ(item_parent(d[0]), top);
  EXPECT_EQ(ids(item_daughter(top)), "0 1 2 3 ");
  delete_item(before);
  delete_item(d[0]);
  EXPECT_EQ(item_daughter(top), d[1]);
  EXPECT_EQ(item_prev(d[1]), nullptr);
  EXPECT_EQ(item_parent(d[1]), top);
  EXPECT_EQ(item_parent(d[2]), top);
  delete_item(d[2]);
  EXPECT_EQ(item_last_daughter(top), d[1]);
  delete_item(d[1]);
  EXPECT_EQ(item_daughter(top), nullptr);
  EXPECT_EQ(item_parent(item_add_daughter(top, nullptr)), top);
}

TEST_F(UttTest, SharedContentsLiveUntilTheLastItem) {
  relation *word = utt_relation_create(u, "Word"), *syl = utt_relation_create(u, "Syllable");
  relation *phone = utt_relation_create(u, "Phone");
  item *w = with_id(relation_append(word, nullptr), 7);
  item *w2 = with_id(relation_append(word, nullptr), 8);
  item *s = relation_append(syl, w);
  item *p = relation_append(phone, s);
  EXPECT_EQ(item_equal(w, s), 1);  // one object in two relations
  EXPECT_EQ(item_equal(w, w2), 0);
  item_set_wstring(s, "name", u"kept");
  EXPECT_EQ(wide(item_feat_wstring(w, "name")), u"kept");
  EXPECT_EQ(item_as(w, "Syllable"), s);
  EXPECT_EQ(item_as(s, "Word"), w);
  EXPECT_EQ(item_utt(s), u);
  // Contents appear at most once per relation, and never in another utterance.
  EXPECT_EQ(item_append(w2, w), nullptr);
  EXPECT_EQ(item_prepend(w2, w), nullptr);
  EXPECT_EQ(item_add_daughter(w2, s), nullptr);
  EXPECT_EQ(relation_append(syl, w), nullptr);
  EXPECT_EQ(new_item_relation(word, s), nullptr);
  EXPECT_EQ(ids(relation_head(word)), "7 8 ");
  utterance *other = new_utterance();
  EXPECT_EQ(relation_append(utt_relation_create(other, "Word"), w), nullptr);
  delete_utterance(other);
  delete_item(w);
  EXPECT_EQ(wide(item_feat_wstring(s, "name")), u"kept");
  EXPECT_EQ(item_as(s, "Word"), nullptr);
  EXPECT_EQ(utt_relation_delete(u, "Syllable"), 1);
  EXPECT_EQ(wide(item_feat_wstring(p, "name")), u"kept");
  EXPECT_EQ(item_as(p, "Syllable"), nullptr);
  delete_item(p);  // the last one: contents freed (LeakSanitizer checks)
}

TEST_F(UttTest, ItemFeaturesAndNullItems) {
  item *i = relation_append(utt_relation_create(u, "Seg"), nullptr);
  item_set(i, "v", &val_int_12);
  item_set_float(i, "f", 0.25f);
  item_set_wstring(i, "w", u"9");
  EXPECT_FLOAT_EQ(item_feat_float(i, "f"), 0.25f);
  EXPECT_EQ(item_feat_int(i, "w"), 9);
  EXPECT_EQ(item_feat_remove(i, "v"), 1);
  EXPECT_EQ(item_feat(i, "v"), nullptr);
  feat_set(u->features, "focus", item_val(i));  // item values own nothing
  item_set_int(nullptr, "x", 1);
  delete_item(nullptr);
  for (auto read : {item_next, item_prev, item_parent, item_daughter})
    EXPECT_EQ(read(nullptr), nullptr);
  EXPECT_EQ(item_feat_int(nullptr, "v"), 0);
  EXPECT_EQ(item_feat_remove(nullptr, "v"), 0);
  EXPECT_EQ(item_feat_wstring(nullptr, "v"), nullptr);
  EXPECT_EQ(item_utt(nullptr), nullptr);
}

TEST(Relation, WithoutUtteranceLivesOnTheLocalAllocator) {
  relation *r = new_relation("Loose", nullptr);
  item *a = relation_append(r, nullptr);
  item_set_int(a, "n", 1);
  EXPECT_EQ(relation_append(r, a), nullptr);  // same relation: refused
  item_add_daughter(a, nullptr);
  EXPECT_EQ(item_utt(a), nullptr);
  delete_relation(r);
  delete_relation(nullptr);
  delete_utterance(nullptr);
}

}  // namespace
