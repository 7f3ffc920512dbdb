// dict_index_test.cpp - the indexes a dictionary builds when it is created
// (the word filter, the first-unit word index, the decoded class names, the
// square and hashed class-pair indexes, the square of transition scores,
// the recent runs) change no result: random dictionaries and texts
// segmented with them, with some of them, and with plain binary searches
// and a linear scan of the pairs give the same lattices.
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "NLP/NLP_Dict/dict_image.h"
#include "bsr_string.h"
#include "dict/dict_image_builder.h"

namespace {

using namespace dict_test;

struct Scenario {
  Bytes image;
  std::vector<std::u16string> texts;
};

// Words over a four-letter alphabet, some with several readings; pairs
// over classes 0..9, with repeated pairs (the first must win).
Scenario random_scenario(unsigned seed, size_t pairs) {
  std::mt19937 rng(seed);
  auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
  std::vector<std::set<std::u16string>> by_length(7);
  for (int k = 0; k < 120; ++k) {
    std::u16string w;
    const int len = 1 + pick(6);
    for (int j = 0; j < len; ++j) w += static_cast<char16_t>(u'a' + pick(4));
    by_length[static_cast<size_t>(len)].insert(w);
  }
  std::vector<ClassEntry> classes;
  for (int c = 0; c < 10; ++c)
    classes.push_back(
        {std::u16string(1, static_cast<char16_t>(u'A' + c)), static_cast<uint8_t>(c)});
  std::vector<PairEntry> table;
  // Some pairs score -inf or NaN, so that nodes no predecessor reaches keep
  // the predecessor chosen before them.
  auto pair_score = [&] {
    const int kind = pick(40);
    if (kind == 0) return -std::numeric_limits<float>::infinity();
    if (kind == 1) return std::numeric_limits<float>::quiet_NaN();
    return -static_cast<float>(pick(40)) / 4.0f;
  };
  for (size_t k = 0; k < pairs; ++k)
    table.push_back(
        {static_cast<uint16_t>(pick(10)), static_cast<uint16_t>(pick(10)), pair_score(), 0.0f});
  std::vector<Bytes> parts = {monogram(classes, 9), bigram(table), word_table(6)};
  for (size_t len = 1; len <= 6; ++len) {
    if (by_length[len].empty()) continue;
    LengthEntry e;
    e.min = -12.0f;
    e.max = -1.0f;
    for (const std::u16string &w : by_length[len]) {
      e.words.push_back(w);
      std::vector<ReadingEntry> readings;
      // A few words have so many readings that their columns are searched
      // node by node rather than through the score square.
      const int n = pick(60) == 0 ? 40 + pick(40) : 1 + (pick(4) == 0 ? pick(3) : 0);
      for (int r = 0; r < n; ++r)
        readings.push_back({static_cast<uint8_t>(pick(10)), static_cast<uint8_t>(pick(256))});
      e.readings.push_back(readings);
    }
    parts.push_back(word_class(static_cast<uint32_t>(len), e));
  }
  parts.push_back(end_keyword());
  Scenario s;
  for (const Bytes &p : parts) s.image.insert(s.image.end(), p.begin(), p.end());
  for (int t = 0; t < 40; ++t) {
    std::u16string text;
    const int len = 1 + pick(40);
    for (int j = 0; j < len; ++j) text += static_cast<char16_t>(u'a' + pick(5));
    s.texts.push_back(text);
  }
  return s;
}

// Every node of the lattice in column order with the node its Link names
// (off the chosen path: its best predecessor), and the chosen path.
std::string lattice(NLPDIC *d, const std::u16string &text, int mode) {
  NLPDIC_Node *head = NLPDIC_DictBreak(d, text.c_str(), mode);
  if (head == nullptr) return "(null)";
  std::map<const NLPDIC_Node *, int> ordinal;
  for (NLPDIC_Node *c = head; c != nullptr; c = c->NextColumn)
    for (NLPDIC_Node *n = c; n != nullptr; n = n->NextInColumn)
      ordinal.emplace(n, static_cast<int>(ordinal.size()));
  std::string out;
  char buf[128];
  for (NLPDIC_Node *c = head; c != nullptr; c = c->NextColumn)
    for (NLPDIC_Node *n = c; n != nullptr; n = n->NextInColumn) {
      const int link = n->Link == nullptr ? -1 : ordinal.at(n->Link);
      std::snprintf(buf, sizeof buf, "%d/%d/%a/%a->%d ", n->Length, n->ClassId,
                    static_cast<double>(n->Score), static_cast<double>(n->PathScore), link);
      out += buf;
    }
  out += "| ";
  for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link)
    out += std::to_string(n->Length) + "/" + std::to_string(n->ClassId) + " ";
  out += "| last " + std::to_string(d->LastId);
  NLPDIC_DeleNode(head);
  return out;
}

// A dictionary without some of its indexes.
enum Without : unsigned { kFilter = 1, kFirstUnit = 2, kPairs = 4, kNames = 8, kAll = 15 };

NLPDIC *without(const Bytes &image, unsigned which) {
  NLPDIC *d = NLPDIC_Create(image.data());
  auto *object = reinterpret_cast<utils::nlpdict::DictObject *>(d);
  if ((which & kFilter) != 0) {
    bsr_free(object->filter.bits);
    object->filter.bits = nullptr;
  }
  if ((which & kFirstUnit) != 0) {
    bsr_free(object->first.slot_of);
    bsr_free(object->first.starts);
    object->first.slot_of = nullptr;
    object->first.starts = nullptr;
  }
  if ((which & kPairs) != 0 && d->Bigram != nullptr) {
    NLPDIC_PairTable *t = d->Bigram;
    bsr_free(t->square);
    bsr_free(t->scores);
    bsr_free(t->dense_of);
    bsr_free(t->index);
    t->square = nullptr;
    t->scores = nullptr;
    t->dense_of = nullptr;
    t->index = nullptr;
  }
  if ((which & kNames) != 0) {
    bsr_free(d->Monogram->decoded);
    d->Monogram->decoded = nullptr;
  }
  return d;
}

TEST(DictIndexes, SameLatticesWithAndWithout) {
  // Every index alone, every index left out, and none.
  const unsigned variants[] = {kAll,           kAll & ~kFilter,     kAll & ~kFirstUnit,
                               kAll & ~kPairs, kAll & ~kNames,      kFilter,
                               kFirstUnit,     kFilter | kFirstUnit};
  for (unsigned seed = 1; seed <= 30; ++seed) {
    const Scenario s = random_scenario(seed, seed % 3 == 0 ? 5 : 150);
    NLPDIC *indexed = NLPDIC_Create(s.image.data());
    auto *object = reinterpret_cast<utils::nlpdict::DictObject *>(indexed);
    ASSERT_NE(object->filter.bits, nullptr);
    ASSERT_NE(object->first.slot_of, nullptr);
    ASSERT_NE(indexed->Bigram->square, nullptr);
    ASSERT_NE(indexed->Monogram->decoded, nullptr);
    for (const unsigned which : variants) {
      NLPDIC *other = without(s.image, which);
      for (const std::u16string &text : s.texts) {
        EXPECT_EQ(lattice(indexed, text, 1), lattice(other, text, 1)) << seed << " " << which;
        EXPECT_EQ(lattice(indexed, text, 0), lattice(other, text, 0)) << seed << " " << which;
      }
      NLPDIC_Destroy(other);
    }
    NLPDIC_Destroy(indexed);
  }
}

// One reading of class 0 for each word.
LengthEntry words(const std::vector<std::u16string> &list) {
  LengthEntry e;
  e.min = -10.0f;
  e.max = -1.0f;
  for (const std::u16string &w : list) {
    e.words.push_back(w);
    e.readings.push_back({{0, 128}});
  }
  return e;
}

TEST(DictIndexes, FirstUnitIndexRangesOfEachLength) {
  // "ab" and "ac" begin with a, "ba" with b; the row after the last unit
  // ends every range.
  Bytes image = join({monogram({{u"N", 0}}, 0), word_table(3), word_class(1, words({u"a", u"c"})),
                      word_class(2, words({u"ab", u"ac", u"ba"})), end_keyword()});
  NLPDIC *d = NLPDIC_Create(image.data());
  const auto &index = reinterpret_cast<utils::nlpdict::DictObject *>(d)->first;
  ASSERT_NE(index.slot_of, nullptr);
  const uint32_t a = index.slot_of[u'a'], b = index.slot_of[u'b'], c = index.slot_of[u'c'];
  EXPECT_EQ(a, 1u);
  EXPECT_EQ(b, 2u);
  EXPECT_EQ(c, 3u);
  EXPECT_EQ(index.slot_of[u'd'], 0u);
  using utils::nlpdict::find_indexed;
  EXPECT_EQ(find_indexed(d, index, a - 1, u"a", 1), 0);
  EXPECT_EQ(find_indexed(d, index, b - 1, u"b", 1), -1);
  EXPECT_EQ(find_indexed(d, index, c - 1, u"c", 1), 1);
  EXPECT_EQ(find_indexed(d, index, a - 1, u"ab", 2), 0);
  EXPECT_EQ(find_indexed(d, index, a - 1, u"ac", 2), 1);
  EXPECT_EQ(find_indexed(d, index, a - 1, u"aa", 2), -1);
  EXPECT_EQ(find_indexed(d, index, b - 1, u"ba", 2), 2);
  EXPECT_EQ(find_indexed(d, index, c - 1, u"ca", 2), -1);
  EXPECT_EQ(find_indexed(d, index, a - 1, u"abc", 3), -1);
  NLPDIC_Destroy(d);
}

TEST(DictIndexes, NoFirstUnitIndexOverAListOutOfOrder) {
  // A list that does not ascend strictly could be searched differently;
  // the dictionary keeps the plain search, and its results.
  for (const std::vector<std::u16string> &list :
       {std::vector<std::u16string>{u"ba", u"ab"}, std::vector<std::u16string>{u"ab", u"ab"}}) {
    Bytes image =
        join({monogram({{u"N", 0}}, 0), word_table(2), word_class(2, words(list)), end_keyword()});
    NLPDIC *d = NLPDIC_Create(image.data());
    EXPECT_EQ(reinterpret_cast<utils::nlpdict::DictObject *>(d)->first.slot_of, nullptr);
    NLPDIC *plain = without(image, kAll);
    for (const char16_t *text : {u"abba", u"baab", u"aab"})
      EXPECT_EQ(lattice(d, text, 1), lattice(plain, text, 1));
    NLPDIC_Destroy(plain);
    NLPDIC_Destroy(d);
  }
}

TEST(DictIndexes, RecentRunsStayExactWhenTheyCollide) {
  // Most pairs of 100 units are words, and some triples; the texts hold far
  // more distinct runs than the recent runs keep, so slots are taken over
  // again and again by runs with other results. Every lattice, on a first
  // pass and on a second, is the one segmentation gives without the index
  // (and so without the recent runs).
  std::mt19937 rng(7);
  auto unit = [&] { return static_cast<char16_t>(0x4E00 + rng() % 100); };
  std::set<std::u16string> by_length[4];
  for (int k = 0; k < 24000; ++k) {
    const size_t len = k % 4 == 0 ? 3 : 2;
    std::u16string w;
    for (size_t j = 0; j < len; ++j) w += unit();
    by_length[len].insert(w);
  }
  std::vector<Bytes> parts = {
      monogram({{u"A", 0}, {u"B", 1}, {u"C", 2}}, 2),
      bigram({{0, 1, -1.0f, 0.0f}, {1, 0, -2.0f, 0.0f}, {2, 2, -0.5f, 0.0f}}), word_table(3)};
  for (size_t len = 2; len <= 3; ++len) {
    LengthEntry e;
    e.min = -12.0f;
    e.max = -1.0f;
    for (const std::u16string &w : by_length[len]) {
      e.words.push_back(w);
      e.readings.push_back({{static_cast<uint8_t>(rng() % 3), static_cast<uint8_t>(rng() % 256)}});
    }
    parts.push_back(word_class(static_cast<uint32_t>(len), e));
  }
  parts.push_back(end_keyword());
  Bytes image;
  for (const Bytes &p : parts) image.insert(image.end(), p.begin(), p.end());
  std::vector<std::u16string> texts;
  std::set<std::u16string> runs;
  for (int t = 0; t < 60; ++t) {
    std::u16string text;
    for (int j = 0; j < 300; ++j) text += unit();
    for (size_t j = 0; j + 2 <= text.size(); ++j) runs.insert(text.substr(j, 2));
    texts.push_back(text);
  }
  ASSERT_GT(runs.size(), 2 * size_t{utils::nlpdict::kRecentRuns});
  NLPDIC *d = NLPDIC_Create(image.data());
  ASSERT_NE(reinterpret_cast<utils::nlpdict::DictObject *>(d)->recent, nullptr);
  NLPDIC *plain = without(image, kFirstUnit);
  for (int pass = 0; pass < 2; ++pass)
    for (const std::u16string &text : texts)
      EXPECT_EQ(lattice(d, text, 1), lattice(plain, text, 1)) << pass;
  NLPDIC_Destroy(plain);
  NLPDIC_Destroy(d);
}

TEST(DictIndexes, HashedPairIndexWhenTooManyClasses) {
  // Pairs naming 300 classes take the hashed index; the first entry of a
  // pair still wins.
  std::vector<PairEntry> table;
  for (uint16_t c = 0; c < 300; ++c)
    table.push_back({c, static_cast<uint16_t>(c + 1), -1.0f, 0.0f});
  table.push_back({5, 6, -7.0f, 0.0f});
  Bytes image = join({monogram({{u"A", 0}}, 5), bigram(table), end_keyword()});
  NLPDIC *d = NLPDIC_Create(image.data());
  ASSERT_EQ(d->Bigram->square, nullptr);
  ASSERT_NE(d->Bigram->index, nullptr);
  const uint8_t *e = utils::nlpdict::pair_entry(d->Bigram, 5, 6);
  ASSERT_NE(e, nullptr);
  EXPECT_EQ(utils::nlpdict::read_f32(e + 4), -1.0f);
  EXPECT_EQ(utils::nlpdict::pair_entry(d->Bigram, 6, 5), nullptr);
  NLPDIC_Destroy(d);
}

}  // namespace
