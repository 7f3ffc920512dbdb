// phrase_break_test.cpp - prosodic-word breaks from class-pair association,
// phrase breaks from a model embedded in a dictionary, and the break marks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "nlp_dict.h"
#include "phrase_break.h"
#include "prosody/model_builder.h"
#include "utt_features.h"
#include "utt_val.h"

namespace {

using namespace dict_test;
using namespace prosody_test;

struct Word {
  int pos, length, brk;  // brk: the "break" to set first, or 0 for none
};

// An utterance whose "_Word_" relation holds the words.
struct Words {
  utterance *u = new_utterance();
  std::vector<item *> items;
  explicit Words(const std::vector<Word> &words) {
    relation *r = utt_relation_create(u, "_Word_");
    for (const Word &w : words) {
      item *i = relation_append(r, nullptr);
      item_set_int(i, "pos", w.pos);
      item_set_int(i, "name_Len", w.length);
      if (w.brk != 0) item_set_int(i, "break", w.brk);
      items.push_back(i);
    }
  }
  ~Words() { delete_utterance(u); }
  Words(const Words &) = delete;
  Words &operator=(const Words &) = delete;
  // The "break" of each word as text ("-" when absent).
  std::string breaks() const {
    std::string out;
    for (item *i : items) {
      const val *v = item_feat(i, "break");
      if (!out.empty()) out += ' ';
      out += v == nullptr ? "-" : std::to_string(val_int(v));
    }
    return out;
  }
};

struct Dict {
  Bytes image;
  NLPDIC *dict;
  explicit Dict(Bytes b) : image(std::move(b)), dict(NLPDIC_Create(image.data())) {}
  ~Dict() { NLPDIC_Destroy(dict); }
  Dict(const Dict &) = delete;
  Dict &operator=(const Dict &) = delete;
};

Bytes pairs_image() {
  // Association: 1 -> 2 negative, 2 -> 1 positive, 1 -> 1 negative.
  return join(
      {monogram({{u"n", 1}, {u"v", 2}}, 1),
       bigram(
           {{1, 2, -1.0f, -0.5f}, {2, 1, -1.0f, 0.25f}, {1, 1, -1.0f, -2.0f}, {1, 2, -1.0f, 9.0f}}),
       end_keyword()});
}

TEST(BreakMarks, CodePoints) {
  EXPECT_EQ(g_pmWordBreak[0], 0x2223);
  EXPECT_EQ(g_pmWordBreak[1], 0);
  EXPECT_EQ(g_pmTokenBreak[0], 0x2225);
  EXPECT_EQ(g_pmTokenBreak[1], 0);
  EXPECT_EQ(g_pmPhraseBreak[0], 0x2215);
  EXPECT_EQ(g_pmPhraseBreak[1], 0);
}

TEST(PWordBreak, BreaksWhereTheAssociationIsNegative) {
  Dict d(pairs_image());
  struct Case {
    const char *what;
    std::vector<Word> words;
    const char *breaks;
  } cases[] = {
      {"negative pair, first entry wins", {{1, 2, 0}, {2, 2, 0}}, "1 -"},
      {"positive pair", {{2, 2, 0}, {1, 2, 0}}, "- -"},
      {"two one-character words never break", {{1, 1, 0}, {2, 1, 0}}, "- -"},
      {"one one-character word is not enough", {{1, 1, 0}, {2, 2, 0}}, "1 -"},
      {"missing pair scores -100", {{2, 2, 0}, {2, 2, 0}}, "1 -"},
      {"a kept boundary stays", {{1, 2, -1}, {2, 2, 0}}, "-1 -"},
      {"negative class reads 0", {{-1, 2, 0}, {2, 2, 0}}, "- -"},
      {"the last word is untouched", {{2, 2, 0}, {1, 2, 0}, {2, 2, 0}}, "- 1 -"},
  };
  for (const Case &c : cases) {
    Words w(c.words);
    EXPECT_EQ(PWordBreak(d.dict, w.u), 1) << c.what;
    EXPECT_EQ(w.breaks(), c.breaks) << c.what;
  }
}

TEST(PWordBreak, AssociationStoredAsMI) {
  Dict d(pairs_image());
  Words w({{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}});
  PWordBreak(d.dict, w.u);
  EXPECT_EQ(item_feat_float(w.items[0], "MI"), -0.5f);
  EXPECT_EQ(item_feat_float(w.items[1], "MI"), -100.0f);
  EXPECT_EQ(item_feat_float(w.items[2], "MI"), 0.25f);
  EXPECT_FALSE(item_feat_present(w.items[3], "MI"));
  EXPECT_EQ(w.breaks(), "- 1 - -");
}

TEST(PWordBreak, WithoutDictionaryNothingBreaks) {
  Words w({{1, 2, 0}, {2, 2, 0}});
  EXPECT_EQ(PWordBreak(nullptr, w.u), 1);
  EXPECT_EQ(item_feat_float(w.items[0], "MI"), 0.0f);
  EXPECT_EQ(w.breaks(), "- -");
  EXPECT_EQ(PWordBreak(nullptr, nullptr), 1);
  utterance *empty = new_utterance();
  EXPECT_EQ(PWordBreak(nullptr, empty), 1);
  delete_utterance(empty);
}

// A phrase-break model: words of class 9 score 5, class 8 score 4, others 1.
Bytes phrase_model() {
  return model_section({{"pos", "[P]", "/"}}, {{"[P]9/"}, {"[P]8/"}},
                       {{0, 0, -1, 5}, {-1, 1, 1, 4}});
}

Bytes phrase_dict() {
  return join({monogram({{u"n", 1}}, 1),
               model_dict_section("PHRASEBREAK", model_body(phrase_model(), "phrase_break")),
               end_keyword()});
}

std::vector<Word> sentence(int n, std::vector<std::pair<int, int>> classes) {
  std::vector<Word> words(static_cast<size_t>(n), Word{1, 2, 0});
  for (auto [at, pos] : classes) words[static_cast<size_t>(at)].pos = pos;
  return words;
}

std::string dashes(int n, std::vector<std::pair<int, const char *>> marks) {
  std::vector<std::string> v(static_cast<size_t>(n), "-");
  for (auto [at, m] : marks) v[static_cast<size_t>(at)] = m;
  std::string out;
  for (const std::string &s : v) out += (out.empty() ? "" : " ") + s;
  return out;
}

TEST(PhraseBreak, TwelveWordsGetNoBreak) {
  Dict d(phrase_dict());
  void *holder = NLPDIC_GetPhraseBreakPointer(d.dict);
  ASSERT_NE(holder, nullptr);
  Words w(sentence(12, {{6, 9}}));
  EXPECT_EQ(PhraseBreak_Process(holder, w.u), 0);
  EXPECT_EQ(w.breaks(), dashes(12, {}));
}

TEST(PhraseBreak, ThirteenWordsBreakAtTheBestInteriorWord) {
  Dict d(phrase_dict());
  void *holder = NLPDIC_GetPhraseBreakPointer(d.dict);
  Words w(sentence(13, {{6, 9}}));
  PhraseBreak_Process(holder, w.u);
  EXPECT_EQ(w.breaks(), dashes(13, {{6, "3"}}));
  EXPECT_EQ(std::u16string(item_feat_wstring(w.items[6], "delay")), u"short");
  EXPECT_FALSE(item_feat_present(w.items[5], "delay"));
}

TEST(PhraseBreak, EdgesAndRangeEnds) {
  Dict d(phrase_dict());
  void *holder = NLPDIC_GetPhraseBreakPointer(d.dict);
  struct Case {
    const char *what;
    int n;
    std::vector<std::pair<int, int>> classes;
    std::vector<std::pair<int, const char *>> breaks;
  } cases[] = {
      {"best word among the first three", 13, {{2, 9}}, {}},
      {"best word at the range start", 13, {{3, 9}}, {}},
      {"best word at the range end, word n - 3", 13, {{10, 9}}, {}},
      {"best word just inside the end", 13, {{9, 9}}, {{9, "3"}}},
      {"best word among the last three", 13, {{11, 9}}, {}},
      {"all scores equal", 20, {}, {}},
      {"first maximum wins", 20, {{8, 9}, {12, 9}}, {{8, "3"}}},
      // The break word stays in the remaining range, where it is again the
      // first maximum: one "3" per utterance, however long.
      {"many words, one break", 60, {{10, 8}, {30, 9}, {45, 8}}, {{30, "3"}}},
  };
  for (const Case &c : cases) {
    Words w(sentence(c.n, c.classes));
    PhraseBreak_Process(holder, w.u);
    EXPECT_EQ(w.breaks(), dashes(c.n, c.breaks)) << c.what;
  }
}

TEST(PhraseBreak, KeptBoundariesScoreZero) {
  Dict d(phrase_dict());
  void *holder = NLPDIC_GetPhraseBreakPointer(d.dict);
  std::vector<Word> words = sentence(13, {{6, 9}, {7, 8}});
  words[6].brk = -1;
  Words w(words);
  PhraseBreak_Process(holder, w.u);
  EXPECT_EQ(w.breaks(), dashes(13, {{6, "-1"}, {7, "3"}}));
}

TEST(PhraseBreak, LabelsMarkedAsUnscorableScoreZero) {
  // A field that always prints "c1=0" makes every label unscorable.
  Bytes model = model_section({{"pos", "[P]", "/"}, {"0", "c1=", ""}}, {{"[P]9/"}}, {{0, 0, 1, 5}});
  Bytes body = model_body(model, "phrase_break");
  void *holder = PhraseBreak_Create(body.data());
  ASSERT_NE(holder, nullptr);
  Words w(sentence(13, {{6, 9}}));
  PhraseBreak_Process(holder, w.u);
  EXPECT_EQ(w.breaks(), dashes(13, {}));
  EXPECT_EQ(PhraseBreak_Destroy(holder), 0);
}

TEST(PhraseBreak, NullArguments) {
  EXPECT_EQ(PhraseBreak_Create(nullptr), nullptr);
  EXPECT_EQ(PhraseBreak_Destroy(nullptr), 0);
  Words w(sentence(13, {{6, 9}}));
  EXPECT_EQ(PhraseBreak_Process(nullptr, w.u), 0);
  EXPECT_EQ(w.breaks(), dashes(13, {}));
  Dict d(phrase_dict());
  EXPECT_EQ(PhraseBreak_Process(NLPDIC_GetPhraseBreakPointer(d.dict), nullptr), 0);
}

TEST(PhraseBreak, LastModelOfTheBodyWins) {
  // Two models: the second scores class 8 highest.
  const Bytes second = model_section({{"pos", "[P]", "/"}}, {{"[P]8/"}}, {{0, 0, 1, 5}});
  Bytes body;
  put_u32(body, 0);
  for (const char *s : {"a", "b", "c"}) put_string(body, s);
  pad4(body);
  const Bytes first = phrase_model();
  for (const Bytes *m : {&first, &second}) {
    put_keyword(body, "phrase_break");
    body.insert(body.end(), m->begin(), m->end());
    pad4(body);
  }
  put_keyword(body, "end");
  void *holder = PhraseBreak_Create(body.data());
  Words w(sentence(13, {{5, 9}, {7, 8}}));
  PhraseBreak_Process(holder, w.u);
  EXPECT_EQ(w.breaks(), dashes(13, {{7, "3"}}));
  PhraseBreak_Destroy(holder);
}

}  // namespace
