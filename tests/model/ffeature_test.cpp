// ffeature_test.cpp - feature paths and feature functions: steps through lists,
// trees and relations, the default answer, unknown steps, shadowing, and the
// limits on path length.
#include <gtest/gtest.h>

#include <string>

#include "model_test_util.h"

namespace {

// Words w0 w1 w2, two syllables each (stress 10*word+k), and a Phrase tree
// phrase > words > syllables sharing contents with the flat relations.
struct PathTest : ::testing::Test {
  utterance *u = new_utterance();
  item *word[3], *syl[3][2], *phrase;
  const val *off;  // the default answer

  PathTest() {
    relation *w = utt_relation_create(u, "Word"), *s = utt_relation_create(u, "Syllable");
    phrase = relation_append(utt_relation_create(u, "Phrase"), nullptr);
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
    off = ffeature(word[2], "n.name");
  }
  ~PathTest() override { delete_utterance(u); }
};

struct PathCase {
  const char *path;
  int from;          // 0..2: word[from]; 3: phrase; 4: the Phrase view of word[1]; 5: syl[2][1]; 6:
                     // syl[0][0]
  const char *want;  // the value printed, or "OFF" for the default
};

TEST_F(PathTest, Walks) {
  const PathCase cases[] = {
      {"n.name", 1, "w2"},
      {"p.name", 1, "w0"},
      {"nn.name", 0, "w2"},
      {"pp.name", 2, "w0"},
      {"n:len", 0, "11"},  // ':' separates like '.'
      {"parent.name", 4, "P"},
      {"daughter.stress", 4, "10"},
      {"daughter1.stress", 4, "10"},
      {"daughtern.stress", 4, "11"},
      {"daughtern.name", 3, "w2"},
      {"daughter.n.daughtern.stress", 3, "11"},
      {"R:Phrase.parent.name", 5, "w2"},
      {"R.Phrase.parent.name", 5, "w2"},
      {"R:Phrase.parent.R:Word.n.name", 6, "w1"},
      // Walking off the structure; once off, later tokens are not examined.
      {"n.name", 2, "OFF"},
      {"nn.name", 1, "OFF"},
      {"pp.name", 0, "OFF"},
      {"absent", 0, "OFF"},
      {"parent.name", 0, "OFF"},
      {"n.bogus.name", 2, "OFF"},
      {"daughter.daughtern.n.stress", 3, "OFF"},
      {"R:Nowhere.name", 6, "OFF"},
      {"R:Phrase", 6, "OFF"},
      // Unknown steps.
      {"x.name", 0, "[null]"},
      {"n..name", 0, "[null]"},
      {"N.name", 0, "[null]"},
      {"nnn.name", 0, "[null]"},
      {"daughter2.name", 0, "[null]"},
  };
  ASSERT_NE(off, nullptr);
  EXPECT_EQ(wide(val_wstring(off)), u"0");
  EXPECT_NE(off, val_string_n(0));  // a "0" of its own
  EXPECT_EQ(off->c.atom.ref_count, -1);
  item *from[] = {word[0],   word[1],  word[2], phrase, item_as(word[1], "Phrase"),
                  syl[2][1], syl[0][0]};
  for (const PathCase &c : cases) {
    const val *got = ffeature(from[c.from], c.path);
    bool ok = std::string(c.want) == "OFF" ? got == off : printed_val(got) == c.want;
    EXPECT_TRUE(ok) << c.path << " gave " << printed_val(got);
  }
  EXPECT_FLOAT_EQ(ffeature_float(word[0], "n:len"), 11.0f);
  EXPECT_EQ(ffeature_int(word[0], "n.len"), 11);
  EXPECT_EQ(ffeature_int(word[2], "n.len"), 0);
  EXPECT_EQ(wide(ffeature_wstring(word[2], "n.len")), u"0");
  EXPECT_EQ(ffeature_int(word[0], "x.name"), 0);
  EXPECT_EQ(ffeature_wstring(word[0], "x.name"), nullptr);
  EXPECT_EQ(ffeature(word[1], "name"), item_feat(word[1], "name"));
  EXPECT_EQ(ffeature(nullptr, "name"), off);
  EXPECT_EQ(ffeature(word[0], nullptr), nullptr);
  EXPECT_EQ(path_to_item(phrase, "daughtern"), item_last_daughter(phrase));
  EXPECT_EQ(path_to_item(word[0], "n.n"), word[2]);
  EXPECT_EQ(path_to_item(syl[1][0], "R:Phrase.parent.R:Word"), word[1]);
  for (const char *bad : {"p", "", "n.bad", "R"})
    EXPECT_EQ(path_to_item(word[0], bad), nullptr) << bad;
  EXPECT_EQ(path_to_item(nullptr, "n"), nullptr);
}

const val *always_seven(const item *) { return &val_int_7; }
const val *always_null(const item *) { return nullptr; }
const val *next_name(const item *i) { return item_feat(item_next(i), "name"); }

TEST_F(PathTest, FeatureFunctionsShadowItemFeatures) {
  ff_register(u->ffunctions, "name", always_seven);
  EXPECT_EQ(ffeature(word[0], "name"), &val_int_7);
  EXPECT_EQ(ffeature(word[0], "p.n.name"), off);  // walked off first
  ff_register(u->ffunctions, "name", next_name);  // the first registration wins
  EXPECT_EQ(ffeature(word[1], "name"), &val_int_7);
  EXPECT_EQ(ff_unregister(u->ffunctions, "name"), 1);
  EXPECT_EQ(ff_unregister(u->ffunctions, "name"), 0);
  EXPECT_EQ(wide(ffeature_wstring(word[0], "name")), u"w0");
  ff_register(u->ffunctions, "name", next_name);
  EXPECT_EQ(wide(ffeature_wstring(word[0], "name")), u"w1");
  ff_register(u->ffunctions, "nothing", always_null);
  EXPECT_EQ(ffeature(word[0], "nothing"), off);
  features *elsewhere = new_features();  // functions registered elsewhere do not answer
  ff_register(elsewhere, "len", always_seven);
  EXPECT_EQ(ffeature_int(word[0], "len"), 10);
  delete_features(elsewhere);
}

TEST_F(PathTest, LongPathsCutAt199BytesAndAtMost98Separators) {
  std::string steps;  // 49 round trips: 98 separators, 196 bytes, back home
  for (int k = 0; k < 49; ++k) steps += "n.p.";
  EXPECT_EQ(ffeature_int(word[0], (steps + "len").c_str()), 10);
  EXPECT_EQ(ffeature_int(word[0], (steps + "lenXYZ").c_str()), 10);  // read as "len"
  EXPECT_EQ(ffeature_int(word[0], (steps + "len" + std::string(50, '.')).c_str()), 10);
  EXPECT_EQ(ffeature(word[0], (std::string(99, ':') + "x").c_str()), nullptr);
  EXPECT_EQ(path_to_item(word[0], std::string(99, '.').c_str()), nullptr);
}

}  // namespace
