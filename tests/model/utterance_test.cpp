// Utterances, relations and items: building lists and trees, shared contents
// across relations and their lifetimes, deletion and relinking.
#include <gtest/gtest.h>

#include <vector>

#include "model_test_util.h"

namespace {

struct UttTest : ::testing::Test {
  utterance *u = new_utterance();
  ~UttTest() override { delete_utterance(u); }

  // The "name" feature of each item along next links.
  static std::vector<int> ids(const item *first) {
    std::vector<int> out;
    for (const item *i = first; i != nullptr; i = item_next(i)) out.push_back(item_feat_int(i, "id"));
    return out;
  }
  static item *append_id(relation *r, int id, const item *shared = nullptr) {
    item *i = relation_append(r, shared);
    if (shared == nullptr) item_set_int(i, "id", id);
    return i;
  }
};

TEST_F(UttTest, FreshUtteranceHasHeapAndEmptySets) {
  ASSERT_NE(u->heap, nullptr);
  EXPECT_EQ(feat_length(u->features), 0);
  EXPECT_EQ(feat_length(u->relations), 0);
  EXPECT_EQ(u->features->heap, u->heap);
  EXPECT_EQ(u->ffunctions->heap, u->heap);
  EXPECT_EQ(u->relations->heap, u->heap);
}

TEST_F(UttTest, RelationTable) {
  relation *w = utt_relation_create(u, "Word");
  EXPECT_STREQ(relation_name(w), "Word");
  EXPECT_EQ(w->utterance, u);
  EXPECT_EQ(w->features->heap, u->heap);
  EXPECT_EQ(utt_relation(u, "Word"), w);
  EXPECT_EQ(utt_relation_present(u, "Word"), 1);
  EXPECT_EQ(utt_relation_present(u, "Phone"), 0);
  EXPECT_EQ(utt_relation(u, "Phone"), nullptr);
  EXPECT_EQ(utt_relation_delete(u, "Phone"), 0);
  EXPECT_EQ(utt_relation_delete(u, "Word"), 1);
  EXPECT_EQ(utt_relation_present(u, "Word"), 0);
  EXPECT_STREQ(relation_name(nullptr), "NoName");
  // A non-relation value under a relation's name is not a relation.
  feat_set(u->relations, "odd", &val_int_1);
  EXPECT_EQ(utt_relation(u, "odd"), nullptr);
  EXPECT_EQ(utt_relation_present(u, "odd"), 1);
}

TEST_F(UttTest, CreatingTwiceLeavesOneEmptyRelation) {
  relation *first = utt_relation_create(u, "Word");
  for (int k = 0; k < 5; ++k) item_set_wstring(append_id(first, k), "name", u"word");
  relation *second = utt_relation_create(u, "Word");
  EXPECT_EQ(utt_relation(u, "Word"), second);
  EXPECT_EQ(relation_head(second), nullptr);
  EXPECT_EQ(feat_length(u->relations), 1);
}

TEST_F(UttTest, AppendPrependKeepHeadAndTail) {
  relation *r = utt_relation_create(u, "Seg");
  item *b = append_id(r, 2);
  EXPECT_EQ(relation_head(r), b);
  EXPECT_EQ(relation_tail(r), b);
  item *a = relation_prepend(r, nullptr);
  item_set_int(a, "id", 1);
  item *c = append_id(r, 3);
  EXPECT_EQ(ids(relation_head(r)), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(relation_tail(r), c);
  EXPECT_EQ(item_prev(a), nullptr);
  EXPECT_EQ(item_prev(c), b);
  item_set_int(item_append(c, nullptr), "id", 4);  // after the tail: new tail
  item_set_int(item_prepend(a, nullptr), "id", 0);  // before the head: new head
  item_set_int(item_append(a, nullptr), "id", 15);  // in the middle
  EXPECT_EQ(ids(relation_head(r)), (std::vector<int>{0, 1, 15, 2, 3, 4}));
  EXPECT_EQ(item_feat_int(relation_tail(r), "id"), 4);
  EXPECT_EQ(item_feat_int(relation_head(r), "id"), 0);
  // Prepending to an empty relation sets the tail too.
  relation *e = utt_relation_create(u, "Empty");
  item *only = relation_prepend(e, nullptr);
  EXPECT_EQ(relation_tail(e), only);
  EXPECT_EQ(relation_head(nullptr), nullptr);
  EXPECT_EQ(relation_append(nullptr, nullptr), nullptr);
}

TEST_F(UttTest, HeadAndPrevShareTheirWordPosition) {
  // relation.head and item.prev are both the fourth word of their records.
  EXPECT_EQ(offsetof(relation, head), 3 * sizeof(void *));
  EXPECT_EQ(offsetof(item, prev), 3 * sizeof(void *));
  EXPECT_EQ(offsetof(item, up), 4 * sizeof(void *));
  EXPECT_EQ(offsetof(utterance, heap), 3 * sizeof(void *));
}

TEST_F(UttTest, TreeNavigation) {
  relation *r = utt_relation_create(u, "Phrase");
  item *top = append_id(r, 100);
  item *d[4];
  for (int k = 0; k < 4; ++k) {
    d[k] = item_add_daughter(top, nullptr);
    item_set_int(d[k], "id", k);
  }
  EXPECT_EQ(item_daughter(top), d[0]);
  EXPECT_EQ(item_nth_daughter(top, 0), item_daughter(top));
  EXPECT_EQ(item_nth_daughter(top, 3), d[3]);
  EXPECT_EQ(item_nth_daughter(top, 4), nullptr);
  EXPECT_EQ(item_nth_daughter(top, -1), nullptr);
  EXPECT_EQ(item_last_daughter(top), d[3]);
  for (item *x : d) EXPECT_EQ(item_parent(x), top);
  EXPECT_EQ(d[0]->up, top);
  EXPECT_EQ(d[2]->up, nullptr);  // only the first daughter carries the link
  EXPECT_EQ(item_parent(top), nullptr);
  EXPECT_EQ(relation_tail(r), top);  // daughters are not top-level items
  item *grand = item_add_daughter(d[1], nullptr);
  EXPECT_EQ(item_parent(item_parent(grand)), top);
  EXPECT_EQ(item_last_daughter(grand), nullptr);
  EXPECT_EQ(item_parent(nullptr), nullptr);
  EXPECT_EQ(item_daughter(nullptr), nullptr);
  EXPECT_EQ(item_last_daughter(nullptr), nullptr);
}

TEST_F(UttTest, PrependOnAFirstDaughterMakesTheNewFirstDaughter) {
  relation *r = utt_relation_create(u, "Phrase");
  item *top = append_id(r, 100);
  item *first = item_add_daughter(top, nullptr);
  item_set_int(first, "id", 1);
  item *before = item_prepend(first, nullptr);
  item_set_int(before, "id", 0);
  EXPECT_EQ(item_daughter(top), before);
  EXPECT_EQ(before->up, top);
  EXPECT_EQ(first->up, nullptr);
  EXPECT_EQ(item_parent(first), top);
  EXPECT_EQ(ids(item_daughter(top)), (std::vector<int>{0, 1}));
  EXPECT_EQ(relation_head(r), top);
}

TEST_F(UttTest, DeletingAFirstDaughterPassesTheParentLinkOn) {
  relation *r = utt_relation_create(u, "Phrase");
  item *top = append_id(r, 100);
  item *d0 = item_add_daughter(top, nullptr);
  item *d1 = item_add_daughter(top, nullptr);
  item *d2 = item_add_daughter(top, nullptr);
  item_add_daughter(d0, nullptr);  // a subtree goes with its root
  delete_item(d0);
  EXPECT_EQ(item_daughter(top), d1);
  EXPECT_EQ(item_prev(d1), nullptr);
  EXPECT_EQ(item_parent(d1), top);
  EXPECT_EQ(item_parent(d2), top);
  delete_item(d2);  // the last daughter
  EXPECT_EQ(item_next(d1), nullptr);
  EXPECT_EQ(item_last_daughter(top), d1);
  delete_item(d1);
  EXPECT_EQ(item_daughter(top), nullptr);
  item *again = item_add_daughter(top, nullptr);
  EXPECT_EQ(item_parent(again), top);
  delete_item(nullptr);
}

TEST_F(UttTest, DeletingTopLevelItemsMovesHeadAndTail) {
  relation *r = utt_relation_create(u, "Seg");
  item *a = append_id(r, 1);
  item *b = append_id(r, 2);
  item *c = append_id(r, 3);
  delete_item(b);
  EXPECT_EQ(item_next(a), c);
  EXPECT_EQ(item_prev(c), a);
  delete_item(a);
  EXPECT_EQ(relation_head(r), c);
  delete_item(c);
  EXPECT_EQ(relation_head(r), nullptr);
  EXPECT_EQ(relation_tail(r), nullptr);
  append_id(r, 4);
  EXPECT_EQ(ids(relation_head(r)), std::vector<int>{4});
}

TEST_F(UttTest, SharedContentsAcrossRelations) {
  relation *word = utt_relation_create(u, "Word");
  relation *syl = utt_relation_create(u, "Syllable");
  item *w = append_id(word, 7);
  item *s = relation_append(syl, w);
  EXPECT_EQ(s->contents, w->contents);
  EXPECT_EQ(item_equal(w, s), 1);
  EXPECT_EQ(item_equal(w, w), 1);
  EXPECT_EQ(item_equal(w, nullptr), 0);
  item_set_wstring(s, "name", u"ni");
  EXPECT_EQ(wide(item_feat_wstring(w, "name")), u"ni");
  EXPECT_EQ(item_feat_int(s, "id"), 7);
  EXPECT_EQ(item_as(w, "Syllable"), s);
  EXPECT_EQ(item_as(s, "Word"), w);
  EXPECT_EQ(item_as(w, "Word"), w);
  EXPECT_EQ(item_as(w, "Phone"), nullptr);
  EXPECT_EQ(item_as(nullptr, "Word"), nullptr);
  EXPECT_EQ(item_feats(w), item_feats(s));
  EXPECT_EQ(item_utt(s), u);
  EXPECT_EQ(item_equal(w, append_id(word, 8)), 0);
}

TEST_F(UttTest, SharedContentsLiveUntilTheLastItem) {
  relation *word = utt_relation_create(u, "Word");
  relation *syl = utt_relation_create(u, "Syllable");
  relation *phone = utt_relation_create(u, "Phone");
  item *w = append_id(word, 1);
  item_set_wstring(w, "name", u"kept");
  item *s = relation_append(syl, w);
  item *p = relation_append(phone, s);
  delete_item(w);
  EXPECT_EQ(wide(item_feat_wstring(s, "name")), u"kept");
  EXPECT_EQ(item_as(s, "Word"), nullptr);
  EXPECT_EQ(item_as(s, "Phone"), p);
  EXPECT_EQ(utt_relation_delete(u, "Syllable"), 1);  // whole relation: s goes
  EXPECT_EQ(wide(item_feat_wstring(p, "name")), u"kept");
  EXPECT_EQ(item_as(p, "Syllable"), nullptr);
  delete_item(p);  // the last one: contents freed (LeakSanitizer checks)
}

TEST_F(UttTest, ContentsAppearAtMostOncePerRelation) {
  relation *word = utt_relation_create(u, "Word");
  relation *syl = utt_relation_create(u, "Syllable");
  item *w = append_id(word, 1);
  item *w2 = append_id(word, 2);
  item *s = relation_append(syl, w);
  EXPECT_EQ(item_append(w2, w), nullptr);
  EXPECT_EQ(item_prepend(w2, w), nullptr);
  EXPECT_EQ(item_add_daughter(w2, w), nullptr);
  EXPECT_EQ(item_add_daughter(w2, s), nullptr);  // its contents are in Word already
  EXPECT_EQ(relation_append(syl, w), nullptr);   // and in Syllable
  EXPECT_EQ(new_item_relation(word, s), nullptr);
  EXPECT_EQ(ids(relation_head(word)), (std::vector<int>{1, 2}));
  EXPECT_EQ(item_next(s), nullptr);
  EXPECT_EQ(item_append(nullptr, nullptr), nullptr);
  EXPECT_EQ(item_prepend(nullptr, nullptr), nullptr);
  EXPECT_EQ(item_add_daughter(nullptr, nullptr), nullptr);
}

TEST_F(UttTest, ContentsNeverCrossUtterances) {
  utterance *other = new_utterance();
  item *there = relation_append(utt_relation_create(other, "Word"), nullptr);
  EXPECT_EQ(relation_append(utt_relation_create(u, "Word"), there), nullptr);
  delete_utterance(other);
}

TEST_F(UttTest, TreeOverSharedFlatRelations) {
  // A small hierarchy: Phrase (tree) over items shared with flat Word and
  // Syllable relations, as the prosodic builder makes it.
  relation *phrase = utt_relation_create(u, "Phrase");
  relation *word = utt_relation_create(u, "Word");
  relation *syl = utt_relation_create(u, "Syllable");
  item *ph = relation_append(phrase, nullptr);
  for (int k = 0; k < 3; ++k) {
    item *w = append_id(word, k);
    item *pw = item_add_daughter(ph, w);
    for (int j = 0; j < 2; ++j) {
      item *s = append_id(syl, 10 * k + j);
      item_add_daughter(pw, s);
    }
  }
  item *s21 = relation_tail(syl);
  EXPECT_EQ(item_feat_int(s21, "id"), 21);
  item *in_tree = item_as(s21, "Phrase");
  EXPECT_EQ(item_feat_int(item_as(item_parent(in_tree), "Word"), "id"), 2);
  EXPECT_EQ(item_parent(item_parent(in_tree)), ph);
  utt_relation_delete(u, "Word");  // the tree still holds every word's contents
  EXPECT_EQ(item_feat_int(item_last_daughter(ph), "id"), 2);
}

TEST_F(UttTest, ItemFeatureForwarding) {
  item *i = relation_append(utt_relation_create(u, "Seg"), nullptr);
  item_set(i, "v", &val_int_12);
  item_set_int(i, "n", -3);
  item_set_float(i, "f", 0.25f);
  item_set_wstring(i, "w", u"9");
  EXPECT_EQ(item_feat(i, "v"), &val_int_12);
  EXPECT_EQ(item_feat_int(i, "n"), -3);
  EXPECT_FLOAT_EQ(item_feat_float(i, "f"), 0.25f);
  EXPECT_EQ(item_feat_int(i, "w"), 9);
  EXPECT_EQ(item_feat_wstring(i, "n"), nullptr);
  EXPECT_EQ(item_feat_present(i, "n"), 1);
  EXPECT_EQ(item_feat_remove(i, "n"), 1);
  EXPECT_EQ(item_feat_present(i, "n"), 0);
  // A null item reads as a null set; setters ignore it.
  EXPECT_EQ(item_feats(nullptr), nullptr);
  EXPECT_EQ(item_feat(nullptr, "v"), nullptr);
  EXPECT_EQ(item_feat_int(nullptr, "v"), 0);
  EXPECT_EQ(item_feat_float(nullptr, "v"), 0.0f);
  EXPECT_EQ(item_feat_wstring(nullptr, "v"), nullptr);
  EXPECT_EQ(item_feat_present(nullptr, "v"), 0);
  EXPECT_EQ(item_feat_remove(nullptr, "v"), 0);
  item_set_int(nullptr, "x", 1);
  EXPECT_EQ(item_next(nullptr), nullptr);
  EXPECT_EQ(item_prev(nullptr), nullptr);
  EXPECT_EQ(item_utt(nullptr), nullptr);
}

TEST_F(UttTest, UtteranceFeaturesHoldItemsAndSubUtterances) {
  relation *r = utt_relation_create(u, "Word");
  item *w = relation_append(r, nullptr);
  feat_set(u->features, "focus", item_val(w));  // item values own nothing
  feat_set(u->features, "sub", utterance_val(new_utterance()));  // owned: deleted with u
  EXPECT_EQ(val_item(feat_val(u->features, "focus")), w);
}

TEST(Relation, WithoutUtteranceLivesOnTheLocalAllocator) {
  relation *r = new_relation("Loose", nullptr);
  ASSERT_NE(r, nullptr);
  item *a = relation_append(r, nullptr);
  item_set_int(a, "n", 1);
  item *b = relation_append(r, a);  // same relation: refused
  EXPECT_EQ(b, nullptr);
  item_add_daughter(a, nullptr);
  EXPECT_EQ(item_utt(a), nullptr);
  delete_relation(r);
  delete_relation(nullptr);
  delete_utterance(nullptr);
}

TEST(Relation, NewRelationIsNotEnteredInTheTable) {
  utterance *u = new_utterance();
  relation *r = new_relation("Side", u);
  EXPECT_EQ(utt_relation_present(u, "Side"), 0);
  relation_append(r, nullptr);
  delete_relation(r);
  delete_utterance(u);
}

TEST(UtteranceScale, ManyItemsReleasedAtOnce) {
  utterance *u = new_utterance();
  relation *a = utt_relation_create(u, "A");
  relation *b = utt_relation_create(u, "B");
  for (int k = 0; k < 20000; ++k) {
    item *i = relation_append(a, nullptr);
    item_set_int(i, "k", k);
    item_set_wstring(i, "w", u"text");
    relation_append(b, i);
  }
  EXPECT_EQ(item_feat_int(relation_tail(b), "k"), 19999);
  delete_utterance(u);
}

}  // namespace
