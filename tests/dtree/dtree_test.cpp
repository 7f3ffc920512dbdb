// dtree_test.cpp - PatternMatch, MakeFeatureLabel2, tree lookups worked by
// hand, and classification trees over values.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsr_string.h"
#include "dtree.h"
#include "image_builder.h"
#include "utterance.h"

namespace {

using namespace dtree_test;

// ---- PatternMatch --------------------------------------------------------

struct MatchCase {
  const char *label, *pattern;
  int result;
};

const MatchCase kMatchCases[] = {
    {"abc", "a", 1},         {"abc", "*c", 1},
    {"abc", "*b", 1},        {"", "*", 0},
    {"ab", "a?", 1},         {"ab", "*ab*", 0},
    {"!ab!", "*ab*", 1},     {"abc", "abc", 1},
    {"abc", "abd", 0},       {"abc", "abcd", 0},
    {"abc", "b", 0},         {"abc", "", 0},
    {"abc", "*", 1},         {"abc", "?", 1},
    {"abc", "???", 1},       {"ab", "???", 0},
    {"abc", "a*c", 1},       {"abc", "a*b*", 1},
    {"ab", "a*b*", 0},       {"axbxc", "*x*x*", 1},
    {"axbxc", "*x*x*x*", 0}, {"aaab", "*ab", 1},
    {"abc", "**c", 1},       {"abc", "a**", 1},
    {"[C]b|", "[C]b", 1},    {"![C]b|!", "*[C]b|*", 1},
    {"[C]b|", "*[C]b|*", 0}, {"xyz", "*?z", 1},
    {"xyz", "*q", 0},        {"abcabd", "*abd", 1},
    {"abcabd", "*ab?*", 1},  {"a", "a*", 0},
    {"ab", "a*", 1},
};

TEST(PatternMatch, Table) {
  for (const MatchCase &c : kMatchCases)
    EXPECT_EQ(PatternMatch(c.label, c.pattern), c.result)
        << "label \"" << c.label << "\" pattern \"" << c.pattern << "\"";
}

TEST(PatternMatch, NullArgumentsMatchNothing) {
  EXPECT_EQ(PatternMatch(nullptr, "*"), 0);
  EXPECT_EQ(PatternMatch("a", nullptr), 0);
}

// ---- Items and fields ------------------------------------------------------

// Three items a, b, c in a list, each with a "name", b with an integer "n".
class Items : public ::testing::Test {
 protected:
  void SetUp() override {
    u_ = new_utterance();
    relation *r = utt_relation_create(u_, "Segment");
    for (const char16_t *name : {u"a", u"b", u"c"}) {
      item *i = relation_append(r, nullptr);
      item_set_wstring(i, "name", name);
      items_.push_back(i);
    }
    item_set_int(items_[1], "n", -42);
  }
  void TearDown() override { delete_utterance(u_); }
  utterance *u_ = nullptr;
  std::vector<item *> items_;
};

// Fields: the name ("[C]" ... "|"), the previous name ("[L]" ... "|"), a
// constant 0 ("[Z]"), an integer ("[N]" ... "/"), and a field that cannot be
// asked about (its prefix lacks "[").
const char *const kNames[] = {"name", "p.name", "0", "n", "n.name"};
const char *const kPrefixes[] = {"[C]", "[L]", "[Z]", "[N]", "/R:"};
const char *const kSuffixes[] = {"|", "|", "", "/", ""};
constexpr int kFields = 5;

struct FieldCase {
  int item;
  const char *pattern, *label;
  int result;
};

const FieldCase kFieldCases[] = {
    {1, "[C]b", "[C]b|", 0},     {1, "*[C]b", "![C]b|", 0},    {1, "[C]b*", "[C]b|!", 0},
    {1, "*[C]?*", "![C]b|!", 0}, {1, "[L]a|", "[L]a|", 0},     {0, "[L]x", "[L]x|", 0},
    {1, "[Z]1", "[Z]0", 0},      {1, "[N]-4*", "[N]-42/!", 0}, {0, "[N]*", "[N]0/!", 0},
    {1, "/R:c", "", -1},         {1, "[Q]a", "", -1},          {1, "*", "", -1},
};

TEST_F(Items, MakeFeatureLabel2WritesTheFieldAPatternAsksAbout) {
  for (const FieldCase &c : kFieldCases) {
    char out[256] = "junk";
    EXPECT_EQ(MakeFeatureLabel2(items_[c.item], c.pattern, kNames, kPrefixes, kSuffixes, kFields,
                                out, nullptr),
              c.result)
        << c.pattern;
    EXPECT_STREQ(out, c.label) << c.pattern;
  }
}

TEST_F(Items, MakeFeatureLabel2KeepsTheFirstMarksOfAField) {
  char *cache[256] = {};
  char out[256];
  ASSERT_EQ(MakeFeatureLabel2(items_[1], "[C]x", kNames, kPrefixes, kSuffixes, kFields, out, cache),
            0);
  EXPECT_STREQ(out, "[C]b|");
  ASSERT_NE(cache[0], nullptr);
  EXPECT_STREQ(cache[0], "[C]b|");
  // The same field asked with marks comes from the cache without them.
  ASSERT_EQ(
      MakeFeatureLabel2(items_[1], "*[C]b*", kNames, kPrefixes, kSuffixes, kFields, out, cache), 0);
  EXPECT_STREQ(out, "[C]b|");
  // Another field is built and cached on its own.
  ASSERT_EQ(
      MakeFeatureLabel2(items_[1], "*[L]a*", kNames, kPrefixes, kSuffixes, kFields, out, cache), 0);
  EXPECT_STREQ(out, "![L]a|!");
  ASSERT_NE(cache[1], nullptr);
  EXPECT_STREQ(cache[1], "![L]a|!");
  for (char *&entry : cache) {
    bsr_free(entry);
    entry = nullptr;
  }
}

TEST_F(Items, MakeFeatureLabel2RefusesNullArguments) {
  char out[16] = "junk";
  EXPECT_EQ(
      MakeFeatureLabel2(items_[0], nullptr, kNames, kPrefixes, kSuffixes, kFields, out, nullptr),
      -1);
  EXPECT_STREQ(out, "");
  EXPECT_EQ(MakeFeatureLabel2(items_[0], "[C]a", kNames, nullptr, kSuffixes, kFields, out, nullptr),
            -1);
  EXPECT_EQ(
      MakeFeatureLabel2(items_[0], "[C]a", kNames, kPrefixes, kSuffixes, kFields, nullptr, nullptr),
      -1);
}

TEST_F(Items, MakeFeatureLabel2OfANullItemPrintsX) {
  char out[32];
  ASSERT_EQ(MakeFeatureLabel2(nullptr, "[C]", kNames, kPrefixes, kSuffixes, kFields, out, nullptr),
            0);
  EXPECT_STREQ(out, "[C]x|");
}

// ---- Lookups ------------------------------------------------------------

// Patterns and questions:
//   q0 "C is a or b":     "[C]a", "[C]b*"
//   q1 "L is a":          "*[L]a|*"
//   q2 "C is x, or b marked" "[C]x", "*[C]b|*" (the second never matches
//                         once the first has cached the field unmarked)
//   q3 "C is b marked":   "*[C]b|*"
//   q4 "unaskable":       "/R:c"
//   q5 "N below -9":      "[N]-?\?/"
// Tree 0:
//   0  q0 no -1 yes -2
//   -1 q4 no 9  yes 8        (c: 9)
//   -2 q1 no -3 yes 3        (b: 3)
//   -3 q2 no -4 yes 6        (a)
//   -4 q3 no 5  yes 4        (a: 5)
// Tree 1:
//   0  q2 no -1 yes 11       (every item reaches -1)
//   -1 q3 no -2 yes 12       (b: 12)
//   -2 q5 no 13 yes 14       (a, c: 13)
TreeParts lookup_tree() {
  TreeParts s;
  s.patterns = {"[C]a", "[C]b*", "*[L]a|*", "[C]x", "*[C]b|*", "/R:c", "[N]-?\?/"};
  s.questions = {{0, 1}, {2}, {3, 4}, {4}, {5}, {6}};
  s.trees = {
      {{0, 0, -1, -2}, {-1, 4, 9, 8}, {-2, 1, -3, 3}, {-3, 2, -4, 6}, {-4, 3, 5, 4}},
      {{0, 2, -1, 11}, {-1, 3, -2, 12}, {-2, 5, 13, 14}},
  };
  return s;
}

TEST_F(Items, CreateReadsTheTablesAndAdvancesPastTheTrees) {
  TreeLayout layout;
  const std::vector<unsigned char> image = tree_image(lookup_tree(), &layout);
  const void *at = image.data();
  DTree *t = DTree_Create(&at, 2, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(at, static_cast<const void *>(image.data() + image.size()));
  EXPECT_EQ(t->TreeCount, 2);
  EXPECT_EQ(t->PatternCount, 7);
  EXPECT_STREQ(t->Patterns[2], "*[L]a|*");
  EXPECT_EQ(t->QuestionCount, 6);
  EXPECT_EQ(reinterpret_cast<const unsigned char *>(t->Questions[3]),
            image.data() + layout.questions[3]);
  EXPECT_EQ(reinterpret_cast<const unsigned char *>(t->Trees[1]),
            image.data() + layout.nodes[1][0]);
  EXPECT_EQ(t->FeatureNames, kNames);
  EXPECT_EQ(t->FeatureCount, kFields);
  DTree_Destroy(t);
}

struct LookupCase {
  int tree, item;
  int32_t leaf;
};

const LookupCase kLookupCases[] = {
    {0, 0, 5}, {0, 1, 3}, {0, 2, 9}, {1, 0, 13}, {1, 1, 12}, {1, 2, 13},
};

TEST_F(Items, LookupsWorkedByHand) {
  const std::vector<unsigned char> image = tree_image(lookup_tree());
  const void *at = image.data();
  DTree *t = DTree_Create(&at, 2, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  for (const LookupCase &c : kLookupCases)
    EXPECT_EQ(DTree_Lookup(t, c.tree, items_[c.item]), c.leaf)
        << "tree " << c.tree << " item " << c.item;
  DTree_Destroy(t);
}

TEST_F(Items, AnIntegerFieldIsAskedInDecimal) {
  TreeParts s;
  s.patterns = {"[N]-?\?/"};
  s.questions = {{0}};
  s.trees = {{{0, 0, 2, 7}}};
  const std::vector<unsigned char> image = tree_image(s);
  const void *at = image.data();
  DTree *t = DTree_Create(&at, 1, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(DTree_Lookup(t, 0, items_[1]), 7);
  EXPECT_EQ(DTree_Lookup(t, 0, items_[0]), 2);
  DTree_Destroy(t);
}

TEST_F(Items, ARootThatMatchesAnswersAfterOneNode) {
  TreeParts s;
  s.patterns = {"*"};  // asks about no field: never matches
  s.questions = {{}, {0}};
  // The root is not the first node stored: the lookup scans to it.
  s.trees = {{{-5, 0, 1, 1}, {0, 0, 2, 5}}};
  const std::vector<unsigned char> image = tree_image(s);
  const void *at = image.data();
  DTree *t = DTree_Create(&at, 1, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  // An empty question never holds.
  EXPECT_EQ(DTree_Lookup(t, 0, items_[0]), 2);
  DTree_Destroy(t);

  s.trees = {{{0, 1, 2, 5}}};
  s.patterns = {"[Z]0"};
  const std::vector<unsigned char> yes = tree_image(s);
  at = yes.data();
  t = DTree_Create(&at, 1, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(DTree_Lookup(t, 0, items_[0]), 5);
  DTree_Destroy(t);
}

TEST_F(Items, CreateAndLookupRefuseWhatTheyCannotServe) {
  const std::vector<unsigned char> image = tree_image(lookup_tree());
  const void *at = image.data();
  EXPECT_EQ(DTree_Create(&at, 17, kNames, kPrefixes, kSuffixes, kFields), nullptr);
  EXPECT_EQ(DTree_Create(&at, -1, kNames, kPrefixes, kSuffixes, kFields), nullptr);
  EXPECT_EQ(DTree_Create(nullptr, 1, kNames, kPrefixes, kSuffixes, kFields), nullptr);
  EXPECT_EQ(at, static_cast<const void *>(image.data()));
  DTree *t = DTree_Create(&at, 2, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(DTree_Lookup(t, 2, items_[0]), 0);
  EXPECT_EQ(DTree_Lookup(t, -1, items_[0]), 0);
  EXPECT_EQ(DTree_Lookup(nullptr, 0, items_[0]), 0);
  DTree_Destroy(t);
  DTree_Destroy(nullptr);
}

TEST_F(Items, LongFieldsAreBuiltWhole) {
  const std::string prefix = "[" + std::string(700, 'p') + "]";
  const char *names[] = {"name"};
  const char *prefixes[] = {prefix.c_str()};
  const char *suffixes[] = {"|"};
  TreeParts s;
  s.patterns = {prefix + "c|"};
  s.questions = {{0}};
  s.trees = {{{0, 0, 1, 2}}};
  const std::vector<unsigned char> image = tree_image(s);
  const void *at = image.data();
  DTree *t = DTree_Create(&at, 1, names, prefixes, suffixes, 1);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(DTree_Lookup(t, 0, items_[2]), 2);
  EXPECT_EQ(DTree_Lookup(t, 0, items_[1]), 1);
  DTree_Destroy(t);
}

TEST_F(Items, AnUnalignedImageReadsTheSame) {
  const std::vector<unsigned char> image = tree_image(lookup_tree());
  std::vector<unsigned char> shifted(image.size() + 1);
  std::copy(image.begin(), image.end(), shifted.begin() + 1);
  const void *at = shifted.data() + 1;
  DTree *t = DTree_Create(&at, 2, kNames, kPrefixes, kSuffixes, kFields);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(at, static_cast<const void *>(shifted.data() + shifted.size()));
  for (const LookupCase &c : kLookupCases)
    EXPECT_EQ(DTree_Lookup(t, c.tree, items_[c.item]), c.leaf);
  DTree_Destroy(t);
}

// ---- Classification trees ----------------------------------------------------

TEST_F(Items, CartWalksQuestionsOverValues) {
  for (int k = 0; k < 3; ++k) item_set_int(items_[k], "k", k + 1);
  val *one = int_val(1);
  val *b = wstring_val(u"b");
  val *list = cons_val(wstring_val(u"c"), nullptr);
  val *leaves[] = {int_val(10), int_val(20), int_val(30), int_val(40)};
  const char *names[] = {"name", "k"};
  // 0: name equal "b"?       holds -> 1, else 3
  // 1: k less than 1?        holds -> 2, else 4
  // 2: leaf 10
  // 3: name member of (c)?   holds -> 4, else 5
  // 4: leaf 30
  // 5: op 7, never holds     -> 6
  // 6: leaf 40
  cart_node nodes[] = {
      {0, 0, 3, b},
      {1, 2, 4, one},
      {0, CART_LEAF, 0, leaves[0]},
      {0, 1, 5, list},
      {0, CART_LEAF, 0, leaves[2]},
      {0, 7, 6, one},
      {0, CART_LEAF, 0, leaves[3]},
  };
  cart c = {nodes, names};
  EXPECT_EQ(cart_interpret_questions(items_[1], &c, 0), leaves[2]);
  EXPECT_EQ(cart_interpret_questions(items_[0], &c, 0), leaves[3]);
  EXPECT_EQ(cart_interpret_questions(items_[2], &c, 0), leaves[2]);
  EXPECT_EQ(cart_interpret_questions(items_[2], &c, 2), leaves[0]);
  EXPECT_EQ(cart_interpret_questions(items_[0], nullptr, 0), nullptr);

  // 0: k greater than 1?  holds -> 1 (leaf 10), else 2 (leaf 20)
  cart_node greater[] = {
      {1, 3, 2, one}, {0, CART_LEAF, 0, leaves[0]}, {0, CART_LEAF, 0, leaves[1]}};
  cart g = {greater, names};
  EXPECT_EQ(cart_interpret_questions(items_[2], &g, 0), leaves[0]);
  EXPECT_EQ(cart_interpret_questions(items_[0], &g, 0), leaves[1]);
  for (val *v : leaves) delete_val(v);
  delete_val(one);
  delete_val(b);
  delete_val(list);
}

}  // namespace
