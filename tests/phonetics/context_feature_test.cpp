// context_feature_test.cpp - the built-in structural features and GetFeature
// paths on small prosodic trees: positions forward and backward one to four
// levels up, counts, the cap at 60, missing ancestors, and the path rules.
#include <gtest/gtest.h>

#include <set>

#include "phonetics/hierarchy_builder.h"

namespace {

using namespace phonetics_test;

struct Expect {
  const char *what;
  int phone;
  const char *name;
  const char *value;
};

TEST(StructuralFeatures, PositionsOfPhones) {
  // Word 0: syllables of 2 and 3 phones; word 1: 1 and 2; word 2: 4.
  // Phones p0..p11.
  Tree t(Shape{{2, 3}, {1, 2}, {4}});
  // Grandparent of a phone is its word, great-grandparent the phrase; a
  // phone has no ancestor four levels up.
  const Expect kCases[] = {
      {"first phone of its syllable", 0, "PositionFW1", "1"},
      {"second phone of word 0's second syllable", 3, "PositionFW", "2"},
      {"last phone counted backward", 4, "PositionBW1", "1"},
      {"first of three counted backward", 2, "PositionBW", "3"},
      {"phones across the syllables of a word", 4, "PositionFW2", "5"},
      {"grand position of word 1's last phone", 7, "PositionGrandFW", "3"},
      {"grand position backward", 5, "PositionBW2", "3"},
      {"phrase-wide position", 8, "PositionFW3", "9"},
      {"phrase-wide position backward", 8, "PositionBW3", "4"},
      {"phrase-wide position backward of the first", 0, "PositionBW3", "12"},
      {"no ancestor four levels up", 0, "PositionFW4", "x"},
      {"no ancestor four levels up, backward", 0, "PositionBW4", "x"},
      {"a phone has no daughters", 0, "NumDaughter", "0"},
  };
  for (const Expect &c : kCases) EXPECT_EQ(feature(t.phone(c.phone), c.name), c.value) << c.what;
}

TEST(StructuralFeatures, CountsOfDescendants) {
  Tree t(Shape{{2, 3}, {1, 2}, {4}});
  EXPECT_EQ(feature(t.phrase(), "NumDaughter1"), "3");
  EXPECT_EQ(feature(t.phrase(), "NumDaughter2"), "5");
  EXPECT_EQ(feature(t.phrase(), "NumDaughter3"), "12");
  EXPECT_EQ(feature(t.phrase(), "NumDaughter4"), "0");
  EXPECT_EQ(feature(t.word(0), "NumGrandDaughter"), "5");
}

TEST(StructuralFeatures, FourLevelsUnderARoot) {
  // root > phrase > word > syllable > two phones: the phones have an
  // ancestor four levels up.
  Tree t(Shape{{1}});
  relation *tree = utt_relation(t.utt(), "Phrase");
  item *root = relation_prepend(tree, nullptr);
  item *phrase_view = item_add_daughter(root, nullptr);
  ASSERT_NE(phrase_view, nullptr);
  item *copy = item_add_daughter(phrase_view, nullptr);
  item *s = item_add_daughter(copy, nullptr);
  item *p0 = item_add_daughter(s, nullptr);
  item *p1 = item_add_daughter(s, nullptr);
  EXPECT_EQ(feature(p1, "PositionFW4"), "2");
  EXPECT_EQ(feature(p0, "PositionBW4"), "2");
  EXPECT_EQ(feature(root, "NumDaughter4"), "2");
}

TEST(StructuralFeatures, PositionsPastSixtyReadSixty) {
  Tree t(Shape{std::vector<int>(1, 70)});
  EXPECT_EQ(feature(t.phone(60), "PositionFW1"), "60");
  EXPECT_EQ(feature(t.phone(59), "PositionFW1"), "60");
  EXPECT_EQ(feature(t.phone(58), "PositionFW1"), "59");
  EXPECT_EQ(feature(t.phone(69), "PositionFW3"), "60");
  EXPECT_EQ(feature(t.phone(0), "PositionBW1"), "60");
  EXPECT_EQ(feature(t.phone(69), "PositionBW1"), "1");
  EXPECT_EQ(feature(t.syllable(0), "NumDaughter"), "60");
  EXPECT_EQ(feature(t.phrase(), "NumDaughter3"), "60");
}

TEST(StructuralFeatures, MissingAncestorsAndItems) {
  Tree t(Shape{{2}});
  EXPECT_EQ(feature(t.phrase(), "PositionFW1"), "x");
  EXPECT_EQ(feature(t.phrase(), "PositionBW1"), "x");
  EXPECT_EQ(feature(t.word(0), "PositionFW2"), "x");
  EXPECT_EQ(feature(t.syllable(0), "PositionBW3"), "x");
  ffunc count = GetFeatFunc("NumDaughter");
  ASSERT_NE(count, nullptr);
  EXPECT_EQ(text_of(count(nullptr)), "x");
  ffunc position = GetFeatFunc("PositionFW");
  ASSERT_NE(position, nullptr);
  EXPECT_EQ(text_of(position(nullptr)), "x");
}

TEST(FeatFunc, NamesAndAliases) {
  const char *const kNames[] = {
      "PositionFW1",          "PositionFW",           "PositionFW2",     "PositionGrandFW",
      "PositionFW3",          "PositionGreatGrandFW", "PositionFW4",     "PositionBW1",
      "PositionBW",           "PositionBW2",          "PositionGrandBW", "PositionBW3",
      "PositionGreatGrandBW", "PositionBW4",          "NumDaughter1",    "NumDaughter",
      "NumDaughter2",         "NumGrandDaughter",     "NumDaughter3",    "NumGreatGrandDaughter",
      "NumDaughter4"};
  for (const char *name : kNames) EXPECT_NE(GetFeatFunc(name), nullptr) << name;
  // Twenty-one names, twelve functions: each alias is its numbered form.
  std::set<ffunc> distinct;
  for (const char *name : kNames) distinct.insert(GetFeatFunc(name));
  EXPECT_EQ(distinct.size(), 12u);
  const char *const kAliases[][2] = {{"PositionFW", "PositionFW1"},
                                     {"PositionGrandFW", "PositionFW2"},
                                     {"PositionGreatGrandFW", "PositionFW3"},
                                     {"PositionBW", "PositionBW1"},
                                     {"PositionGrandBW", "PositionBW2"},
                                     {"PositionGreatGrandBW", "PositionBW3"},
                                     {"NumDaughter", "NumDaughter1"},
                                     {"NumGrandDaughter", "NumDaughter2"},
                                     {"NumGreatGrandDaughter", "NumDaughter3"}};
  for (const auto &a : kAliases) EXPECT_EQ(GetFeatFunc(a[0]), GetFeatFunc(a[1])) << a[0];
}

TEST(FeatFunc, UnknownNames) {
  const char *const kUnknown[] = {"",    "PositionFW5", "positionfw", "NumDaughter0", "PositionFW ",
                                  "Num", "name"};
  for (const char *name : kUnknown) EXPECT_EQ(GetFeatFunc(name), nullptr) << name;
  EXPECT_EQ(GetFeatFunc(nullptr), nullptr);
}

}  // namespace
