// feature_path_test.cpp - GetFeature's own path rules: steps, relation
// moves, walking off the structure, paths ending in a step, the item's own
// features against the built-ins, and names that carry the rest of a path.
#include <gtest/gtest.h>

#include <string>

#include "phonetics/hierarchy_builder.h"

namespace {

using namespace phonetics_test;

struct PathCase {
  const char *what;
  const char *path;
  const char *value;
};

TEST(FeaturePath, StepsFromAPhone) {
  // Word 0: syllables [p0 p1] [p2 p3 p4]; word 1: [p5] [p6 p7].
  Tree t(Shape{{2, 3}, {1, 2}});
  item *p3 = t.phone(3);
  const PathCase kCases[] = {
      {"own feature", "name", "p3"},
      {"next", "n.name", "p4"},
      {"previous", "p.name", "p2"},
      {"parent's built-in", "parent.NumDaughter", "3"},
      {"grandparent's name", "parent.parent.name", "w0"},
      {"first daughter of the word", "parent.parent.daughter.daughter.name", "p0"},
      {"empty segments are skipped", "parent..parent...name", "w0"},
      {"walking off the end", "n.n.name", "x"},
      {"walking off the top", "parent.parent.parent.parent.name", "x"},
      {"unknown relation", "R:Nothing.name", "x"},
      {"relation without a name", "R:.name", "x"},
      {"path ending in a step", "parent.", "0"},
      {"path of steps only", "p.n", "0"},
      {"only dots", "..", "0"},
      {"unknown feature after a step", "parent.colour", "0"},
      {"built-in after a step", "parent.PositionFW", "2"},
      {"built-in two levels up", "parent.parent.PositionBW", "2"},
      // Steps of the general path walker that are not steps here: the
      // segment is a feature name, and nothing answers it.
      {"nn is a name", "nn.name", "0"},
      {"pp is a name", "pp.name", "0"},
      {"daughter1 is a name", "parent.daughter1.name", "0"},
      {"daughtern is a name", "parent.daughtern.name", "0"},
      {"R and the relation as two segments", "R.Phrase.name", "0"},
      {"colon is no separator", "parent:name", "0"},
      {"a move without a dot is a name", "R:Phrase", "0"},
  };
  for (const PathCase &c : kCases) EXPECT_EQ(feature(p3, c.path), c.value) << c.what;
}

TEST(FeaturePath, RelationMoves) {
  Tree t(Shape{{2}, {1}});
  item *flat = item_as(t.phone(1), "Phone");
  ASSERT_NE(flat, nullptr);
  EXPECT_EQ(feature(flat, "R:Phrase.parent.parent.name"), "w0");
  EXPECT_EQ(feature(flat, "n.R:Phrase.parent.parent.name"), "w1");
  // The flat Word item's parent is missing; its tree view has one.
  item *word = item_as(t.word(1), "Word");
  EXPECT_EQ(feature(word, "parent.name"), "x");
  EXPECT_EQ(feature(word, "R:Phrase.parent.NumDaughter"), "2");
  // The same item seen from the Word relation: R:Word.parent of a tree
  // word reaches nothing, since the flat relation has no parents.
  EXPECT_EQ(feature(t.word(0), "R:Word.parent.name"), "x");
}

TEST(FeaturePath, WordRelationParentName) {
  // A Word relation that is itself a tree: R:Word.parent.name reaches the
  // item's parent there.
  utterance *u = new_utterance();
  relation *words = utt_relation_create(u, "Word");
  relation *flat = utt_relation_create(u, "Flat");
  item *top = relation_append(words, nullptr);
  item_set_wstring(top, "name", u"top");
  item *leaf_flat = relation_append(flat, nullptr);
  ASSERT_NE(item_add_daughter(top, leaf_flat), nullptr);
  EXPECT_EQ(feature(leaf_flat, "R:Word.parent.name"), "top");
  delete_utterance(u);
}

// Without a dot the built-in answers; after a step the item's own feature.
TEST(FeaturePath, BuiltinsAgainstTheItemsOwnFeatures) {
  Tree t(Shape{{3}});
  item_set_wstring(t.phone(0), "PositionFW", u"mine");
  item_set_wstring(t.phone(2), "PositionFW", u"mine");
  EXPECT_EQ(feature(t.phone(0), "PositionFW"), "1");
  EXPECT_EQ(feature(t.phone(1), "n.PositionFW"), "mine");
  EXPECT_EQ(feature(t.phone(0), "n.PositionFW"), "2");
}

TEST(FeaturePath, ACarriedFeatureTakesTheRestOfThePath) {
  Tree t(Shape{{3}});
  item *p0 = t.phone(0);
  item_set_wstring(p0, "tone", u"3");
  item_set_wstring(p0, "tone.n.name", u"odd");
  // "tone" is carried, so "tone.n.name" is one name, not a walk.
  EXPECT_EQ(feature(p0, "tone.n.name"), "odd");
  EXPECT_EQ(feature(p0, "tone.parent"), "0");
  EXPECT_EQ(feature(t.phone(1), "p.tone.n.name"), "odd");
  // Not carried: the segment is looked up as a built-in, the rest ignored.
  EXPECT_EQ(feature(t.phone(1), "PositionFW.n.name"), "2");
}

TEST(FeaturePath, IntegerValuesComeBackAsTheyAre) {
  Tree t(Shape{{2}});
  item_set_int(t.phone(1), "pho-pos", 7);
  EXPECT_EQ(feature(t.phone(0), "n.pho-pos"), "<int 7>");
  EXPECT_EQ(feature(t.phone(1), "pho-pos"), "<int 7>");
}

TEST(FeaturePath, BadInput) {
  Tree t(Shape{{1}});
  EXPECT_EQ(feature(nullptr, "name"), "x");
  EXPECT_EQ(feature(nullptr, "n.name"), "x");
  EXPECT_EQ(feature(t.phone(0), nullptr), "0");
  EXPECT_EQ(feature(t.phone(0), ""), "0");
  EXPECT_EQ(feature(t.phone(0), "colour"), "0");
  const std::string long_name(300, 'a');
  EXPECT_EQ(feature(t.phone(0), ("parent." + long_name).c_str()), "0");
  EXPECT_EQ(feature(t.phone(0), ("parent." + long_name + ".name").c_str()), "0");
  EXPECT_EQ(feature(t.phone(0), ("R:" + long_name + ".name").c_str()), "x");
}

// A long feature name at the end of a path is read like any other.
TEST(FeaturePath, LongNameAtTheEnd) {
  Tree t(Shape{{1}});
  const std::string long_name(300, 'a');
  item_set_wstring(item_parent(t.phone(0)), long_name.c_str(), u"long");
  EXPECT_EQ(feature(t.phone(0), ("parent." + long_name).c_str()), "long");
  EXPECT_EQ(feature(t.phone(0), ("parent.." + long_name).c_str()), "long");
}

}  // namespace
