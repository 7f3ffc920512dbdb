// Feature paths and feature functions: steps through lists, trees and other
// relations, the default answer, unknown steps, shadowing by registered
// functions, and the limits on path length and token count.
#include <gtest/gtest.h>

#include <string>

#include "model_test_util.h"

namespace {

// Word relation w0 w1 w2 (names "w0".."w2"); Syllable relation with the
// syllables of each word; a Phrase tree: phrase > words > syllables, sharing
// contents with the flat relations.
struct PathTest : ::testing::Test {
  utterance *u = new_utterance();
  item *word[3];
  item *syl[3][2];
  item *phrase;

  PathTest() {
    relation *w = utt_relation_create(u, "Word");
    relation *s = utt_relation_create(u, "Syllable");
    relation *p = utt_relation_create(u, "Phrase");
    phrase = relation_append(p, nullptr);
    item_set_wstring(phrase, "name", u"P");
    for (int k = 0; k < 3; ++k) {
      word[k] = relation_append(w, nullptr);
      item_set_wstring(word[k], "name", (u"w" + std::u16string(1, u'0' + k)).c_str());
      item_set_int(word[k], "len", 10 + k);
      item *pw = item_add_daughter(phrase, word[k]);
      for (int j = 0; j < 2; ++j) {
        syl[k][j] = relation_append(s, nullptr);
        item_set_int(syl[k][j], "stress", 10 * k + j);
        item_add_daughter(pw, syl[k][j]);
      }
    }
  }
  ~PathTest() override { delete_utterance(u); }
};

const val *default_answer() {
  // The default is reachable only by walking off: the head's previous item.
  utterance *u = new_utterance();
  item *i = relation_append(utt_relation_create(u, "X"), nullptr);
  const val *d = ffeature(i, "p.name");
  delete_utterance(u);
  return d;
}

TEST_F(PathTest, OwnFeatureAndSimpleSteps) {
  EXPECT_EQ(ffeature(word[1], "name"), item_feat(word[1], "name"));
  EXPECT_EQ(wide(ffeature_wstring(word[1], "n.name")), u"w2");
  EXPECT_EQ(wide(ffeature_wstring(word[1], "p.name")), u"w0");
  EXPECT_EQ(wide(ffeature_wstring(word[0], "nn.name")), u"w2");
  EXPECT_EQ(wide(ffeature_wstring(word[2], "pp.name")), u"w0");
  EXPECT_EQ(ffeature_int(word[0], "n.len"), 11);
  EXPECT_FLOAT_EQ(ffeature_float(word[0], "n:len"), 11.0f);  // ':' separates like '.'
}

TEST_F(PathTest, WalkingOffGivesTheDefault) {
  const val *d = ffeature(word[2], "n.name");
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d, default_answer());
  EXPECT_EQ(wide(val_wstring(d)), u"0");
  EXPECT_NE(d, val_string_n(0));  // a "0" of its own
  EXPECT_EQ(d->c.atom.ref_count, -1);
  EXPECT_EQ(ffeature_int(word[2], "n.name"), 0);
  EXPECT_EQ(wide(ffeature_wstring(word[2], "n.name")), u"0");
  EXPECT_EQ(ffeature(word[1], "nn.name"), d);  // nn with no second next
  EXPECT_EQ(ffeature(word[0], "pp.name"), d);  // pp with no previous at all
  EXPECT_EQ(ffeature(word[0], "absent"), d);
  EXPECT_EQ(ffeature(nullptr, "name"), d);
  EXPECT_EQ(ffeature(word[0], "parent.name"), d);  // Word is flat
  // Once off the structure, later tokens are not examined.
  EXPECT_EQ(ffeature(word[2], "n.bogus.name"), d);
}

TEST_F(PathTest, UnknownStepsGiveNull) {
  EXPECT_EQ(ffeature(word[0], "x.name"), nullptr);
  EXPECT_EQ(ffeature_wstring(word[0], "x.name"), nullptr);
  EXPECT_EQ(ffeature_int(word[0], "x.name"), 0);
  EXPECT_EQ(ffeature_float(word[0], "x.name"), 0.0f);
  EXPECT_EQ(ffeature(word[0], "n..name"), nullptr);  // empty token
  EXPECT_EQ(ffeature(word[0], "N.name"), nullptr);   // case-sensitive
  EXPECT_EQ(ffeature(word[0], "nnn.name"), nullptr);
  EXPECT_EQ(ffeature(word[0], "daughter2.name"), nullptr);
  EXPECT_EQ(ffeature(word[0], nullptr), nullptr);
}

TEST_F(PathTest, TreeSteps) {
  item *pw1 = item_as(word[1], "Phrase");
  EXPECT_EQ(wide(ffeature_wstring(pw1, "parent.name")), u"P");
  EXPECT_EQ(ffeature_int(pw1, "daughter.stress"), 10);
  EXPECT_EQ(ffeature_int(pw1, "daughter1.stress"), 10);
  EXPECT_EQ(ffeature_int(pw1, "daughtern.stress"), 11);
  EXPECT_EQ(wide(ffeature_wstring(phrase, "daughtern.name")), u"w2");
  EXPECT_EQ(ffeature_int(phrase, "daughter.n.daughtern.stress"), 11);
  EXPECT_EQ(ffeature_int(phrase, "daughter.daughtern.n.stress"), 0);  // no next daughter
}

TEST_F(PathTest, RelationSteps) {
  // From a flat Syllable item to its tree view, up to the word, read there.
  EXPECT_EQ(wide(ffeature_wstring(syl[2][1], "R:Phrase.parent.name")), u"w2");
  EXPECT_EQ(wide(ffeature_wstring(syl[2][1], "R.Phrase.parent.name")), u"w2");
  EXPECT_EQ(wide(ffeature_wstring(syl[0][0], "R:Phrase.parent.R:Word.n.name")), u"w1");
  EXPECT_EQ(ffeature(syl[0][0], "R:Nowhere.name"), ffeature(word[2], "n.name"));
  // "R" must be followed by a relation name and then a feature.
  EXPECT_EQ(ffeature(syl[0][0], "R:Phrase"), ffeature(word[2], "n.name"));
}

TEST_F(PathTest, PathToItem) {
  EXPECT_EQ(path_to_item(phrase, "daughtern"), item_last_daughter(phrase));
  EXPECT_EQ(path_to_item(word[0], "n.n"), word[2]);
  EXPECT_EQ(path_to_item(syl[1][0], "R:Phrase.parent.R:Word"), word[1]);
  EXPECT_EQ(path_to_item(word[0], "p"), nullptr);
  EXPECT_EQ(path_to_item(word[0], ""), nullptr);  // empty token: unknown
  EXPECT_EQ(path_to_item(word[0], "n.bad"), nullptr);
  EXPECT_EQ(path_to_item(word[0], "R"), nullptr);
  EXPECT_EQ(path_to_item(nullptr, "n"), nullptr);
  EXPECT_EQ(path_to_item(word[0], nullptr), nullptr);
}

const val *always_seven(const item *) { return &val_int_7; }
const val *always_null(const item *) { return nullptr; }
const val *next_name(const item *i) { return item_feat(item_next(i), "name"); }

TEST_F(PathTest, FeatureFunctionsShadowItemFeatures) {
  ff_register(u->ffunctions, "name", always_seven);
  EXPECT_EQ(ffeature(word[0], "name"), &val_int_7);
  EXPECT_EQ(ffeature_int(word[0], "p.n.name"), 0);  // walked off first
  ff_register(u->ffunctions, "name", next_name);  // the first registration wins
  EXPECT_EQ(ffeature(word[1], "name"), &val_int_7);
  EXPECT_EQ(ff_unregister(u->ffunctions, "name"), 1);
  EXPECT_EQ(ff_unregister(u->ffunctions, "name"), 0);
  EXPECT_EQ(wide(ffeature_wstring(word[0], "name")), u"w0");
  ff_register(u->ffunctions, "name", next_name);
  EXPECT_EQ(wide(ffeature_wstring(word[0], "name")), u"w1");
  ff_register(u->ffunctions, "nothing", always_null);
  EXPECT_EQ(ffeature(word[0], "nothing"), ffeature(word[2], "n.len"));
  // Functions registered elsewhere do not answer.
  features *elsewhere = new_features();
  ff_register(elsewhere, "len", always_seven);
  EXPECT_EQ(ffeature_int(word[0], "len"), 10);
  delete_features(elsewhere);
}

// 49 round trips "n.p." from word[0]: 98 separators, 196 bytes, back home.
std::string round_trips() {
  std::string steps;
  for (int k = 0; k < 49; ++k) steps += "n.p.";
  return steps;
}

TEST_F(PathTest, LongPathsAreCutAt199Bytes) {
  std::string path = round_trips() + "len";
  ASSERT_EQ(path.size(), 199u);
  EXPECT_EQ(ffeature_int(word[0], path.c_str()), 10);
  // Bytes past 199 are not read: "lenXYZ" is read as "len".
  EXPECT_EQ(ffeature_int(word[0], (round_trips() + "lenXYZ").c_str()), 10);
  EXPECT_EQ(ffeature_int(word[0], "lenXYZ"), 0);
  // Separators past byte 199 are never seen either.
  EXPECT_EQ(ffeature_int(word[0], (path + std::string(50, '.')).c_str()), 10);
}

TEST_F(PathTest, MoreThan98SeparatorsAreRefused) {
  std::string too_many = std::string(99, ':') + "x";
  EXPECT_EQ(ffeature(word[0], too_many.c_str()), nullptr);
  EXPECT_EQ(path_to_item(word[0], std::string(99, '.').c_str()), nullptr);
  // 98 separators are fine (see above); so is a path with 98 and a long name.
  EXPECT_EQ(ffeature_int(word[0], (round_trips() + "len").c_str()), 10);
}

}  // namespace
