// dict_index_test.cpp - the indexes a dictionary builds when it is created
// (the word filter, the square and hashed class-pair indexes) change no
// result: random dictionaries and texts segmented with them and with plain
// binary searches and a linear scan of the pairs give the same lattices.
#include <gtest/gtest.h>

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
  for (size_t k = 0; k < pairs; ++k)
    table.push_back({static_cast<uint16_t>(pick(10)), static_cast<uint16_t>(pick(10)),
                     -static_cast<float>(pick(40)) / 4.0f, 0.0f});
  std::vector<Bytes> parts = {monogram(classes, 9), bigram(table), word_table(6)};
  for (size_t len = 1; len <= 6; ++len) {
    if (by_length[len].empty()) continue;
    LengthEntry e;
    e.min = -12.0f;
    e.max = -1.0f;
    for (const std::u16string &w : by_length[len]) {
      e.words.push_back(w);
      std::vector<ReadingEntry> readings;
      const int n = 1 + (pick(4) == 0 ? pick(3) : 0);
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

// Every node of the lattice in column order, and the chosen path.
std::string lattice(NLPDIC *d, const std::u16string &text, int mode) {
  NLPDIC_Node *head = NLPDIC_DictBreak(d, text.c_str(), mode);
  if (head == nullptr) return "(null)";
  std::string out;
  char buf[96];
  for (NLPDIC_Node *c = head; c != nullptr; c = c->NextColumn)
    for (NLPDIC_Node *n = c; n != nullptr; n = n->NextInColumn) {
      std::snprintf(buf, sizeof buf, "%d/%d/%a/%a ", n->Length, n->ClassId,
                    static_cast<double>(n->Score), static_cast<double>(n->PathScore));
      out += buf;
    }
  out += "| ";
  for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link)
    out += std::to_string(n->Length) + "/" + std::to_string(n->ClassId) + " ";
  out += "| last " + std::to_string(d->LastId);
  NLPDIC_DeleNode(head);
  return out;
}

// A dictionary without its indexes: every lookup searched, every pair scanned.
NLPDIC *plain(const Bytes &image) {
  NLPDIC *d = NLPDIC_Create(image.data());
  auto *object = reinterpret_cast<utils::nlpdict::DictObject *>(d);
  bsr_free(object->filter.bits);
  object->filter.bits = nullptr;
  NLPDIC_PairTable *t = d->Bigram;
  bsr_free(t->square);
  bsr_free(t->dense_of);
  bsr_free(t->index);
  t->square = nullptr;
  t->dense_of = nullptr;
  t->index = nullptr;
  return d;
}

TEST(DictIndexes, SameLatticesWithAndWithout) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    const Scenario s = random_scenario(seed, seed % 3 == 0 ? 5 : 150);
    NLPDIC *indexed = NLPDIC_Create(s.image.data());
    NLPDIC *scanned = plain(s.image);
    ASSERT_NE(reinterpret_cast<utils::nlpdict::DictObject *>(indexed)->filter.bits, nullptr);
    ASSERT_NE(indexed->Bigram->square, nullptr);
    for (const std::u16string &text : s.texts) {
      EXPECT_EQ(lattice(indexed, text, 1), lattice(scanned, text, 1)) << seed;
      EXPECT_EQ(lattice(indexed, text, 0), lattice(scanned, text, 0)) << seed;
    }
    NLPDIC_Destroy(indexed);
    NLPDIC_Destroy(scanned);
  }
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
