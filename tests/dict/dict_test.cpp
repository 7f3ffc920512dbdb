// dict_test.cpp - the dictionary image read in place, lattices worked by
// hand in character and token mode, and the node accessors.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dict/dict_image_builder.h"
#include "nlp_dict.h"

namespace {

using namespace dict_test;

// Classes: n 0, v 1, x 2 (the default), a 7. Scores run from -8 (quantum 0)
// to 0 (quantum 255).
constexpr uint8_t kN = 0, kV = 1, kX = 2, kA = 7;

std::vector<ClassEntry> classes() { return {{u"n", kN}, {u"v", kV}, {u"x", kX}, {u"a", kA}}; }

struct Dict {
  Bytes image;
  NLPDIC *dict = nullptr;
  explicit Dict(Bytes bytes) : image(std::move(bytes)) { dict = NLPDIC_Create(image.data()); }
  ~Dict() { NLPDIC_Destroy(dict); }
  Dict(const Dict &) = delete;
  Dict &operator=(const Dict &) = delete;
};

// The words on the chosen path, "word/class" each, between the sentinels.
struct Path {
  std::vector<std::u16string> words;
  std::vector<int> classes;
  std::vector<std::u16string> names;
  float total = 0.0f;
};

Path walk(NLPDIC_Node *head) {
  Path p;
  int guard = 0;
  for (NLPDIC_Node *n = head->Link; n != nullptr && ++guard < 10000; n = n->Link) {
    if (n->ClassId == -1) {
      p.total = n->PathScore;
      break;
    }
    p.words.push_back(n->Word);
    p.classes.push_back(n->ClassId);
    p.names.push_back(n->ClassName != nullptr ? n->ClassName : u"(null)");
  }
  return p;
}

Path segment(NLPDIC *d, const char16_t *text, int mode) {
  NLPDIC_Node *head = NLPDIC_DictBreak(d, text, mode);
  if (head == nullptr) return Path{{u"(null)"}, {}, {}, 0.0f};
  Path p = walk(head);
  NLPDIC_DeleNode(head);
  return p;
}

LengthEntry length1() {
  // 京 北 我 爱 in code-unit order; 我 has two readings.
  LengthEntry e;
  e.words = {u"\u4EAC", u"\u5317", u"\u6211", u"\u7231"};
  e.readings = {{{kN, 0}}, {{kN, 0}}, {{kN, 0}, {kV, 0}}, {{kV, 0}}};
  e.max = 0.0f;
  e.min = -8.0f;
  return e;
}

LengthEntry length2() {
  LengthEntry e;
  e.words = {u"\u5317\u4EAC"};
  e.readings = {{{kN, 255}}};
  e.max = 0.0f;
  e.min = -8.0f;
  return e;
}

Bytes standard_image(const std::vector<PairEntry> &pairs) {
  return join({monogram(classes(), kX), bigram(pairs), word_table(8), word_class(1, length1()),
               word_class(2, length2()), end_keyword()});
}

TEST(DictCreate, NullImageAndUnknownFirstKeyword) {
  EXPECT_EQ(NLPDIC_Create(nullptr), nullptr);
  Bytes image = end_keyword();
  NLPDIC *d = NLPDIC_Create(image.data());
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d->Monogram, nullptr);
  EXPECT_EQ(d->Bigram, nullptr);
  EXPECT_EQ(d->WordTable, nullptr);
  EXPECT_EQ(d->PhraseBreakModel, nullptr);
  EXPECT_EQ(d->StressModel, nullptr);
  EXPECT_EQ(d->MaxWordLength, 0);
  EXPECT_EQ(NLPDIC_GetDefaultID(d), -1);
  NLPDIC_Destroy(d);
}

TEST(DictCreate, NullArgumentsOfTheReaders) {
  EXPECT_EQ(NLPDIC_GetDefaultID(nullptr), -1);
  EXPECT_EQ(NLPDIC_GetPhraseBreakPointer(nullptr), nullptr);
  EXPECT_EQ(NLPDIC_GetStressPointer(nullptr), nullptr);
  EXPECT_EQ(NLPDIC_DictBreak(nullptr, u"a", 1), nullptr);
  NLPDIC_Destroy(nullptr);
  NLPDIC_DeleNode(nullptr);
}

TEST(DictCreate, SectionsInAnyOrderAndDefaultClass) {
  Dict d(join({word_table(4), word_class(2, length2()), bigram({}), monogram(classes(), 5),
               word_class(1, length1()), end_keyword()}));
  ASSERT_NE(d.dict, nullptr);
  EXPECT_EQ(NLPDIC_GetDefaultID(d.dict), 5);
  EXPECT_EQ(d.dict->MaxWordLength, 4);
  ASSERT_NE(d.dict->WordTable, nullptr);
  EXPECT_EQ(d.dict->WordTable[0], nullptr);
  EXPECT_NE(d.dict->WordTable[1], nullptr);
  EXPECT_NE(d.dict->WordTable[2], nullptr);
  EXPECT_EQ(d.dict->WordTable[3], nullptr);
}

TEST(DictCreate, ParsingStopsAtTheFirstUnknownKeyword) {
  Bytes stop;
  put_keyword(stop, "NLP_STOP");
  Dict d(join({word_table(2), stop, monogram(classes(), 1)}));
  EXPECT_EQ(d.dict->MaxWordLength, 2);
  EXPECT_EQ(d.dict->Monogram, nullptr);
}

TEST(DictCreate, SizesOfTheModelSectionsCountThemselves) {
  // A model section whose body is only a header and "end": the next section
  // must be found `size` bytes after the size word.
  for (const char *keyword : {"PHRASEBREAK", "STRESS"}) {
    Bytes body;
    put_u32(body, 0);
    for (const char *s : {"model", "1", ""}) body.insert(body.end(), s, s + std::strlen(s) + 1);
    pad4(body);
    put_keyword(body, "end");
    Bytes section;
    put_keyword(section, keyword);
    put_u32(section, static_cast<uint32_t>(4 + body.size()));
    section.insert(section.end(), body.begin(), body.end());
    Dict d(join({section, monogram(classes(), 3), end_keyword()}));
    EXPECT_EQ(NLPDIC_GetDefaultID(d.dict), 3) << keyword;
    const bool phrase = std::strcmp(keyword, "PHRASEBREAK") == 0;
    EXPECT_NE(phrase ? NLPDIC_GetPhraseBreakPointer(d.dict) : NLPDIC_GetStressPointer(d.dict),
              nullptr)
        << keyword;
  }
}

TEST(DictLookup, IdentifiersCountEarlierLengths) {
  LengthEntry three;
  three.words = {u"abc", u"abd"};
  three.readings = {{{kN, 0}}, {{kN, 0}}};
  Dict d(join({monogram(classes(), kX), word_table(5), word_class(1, length1()),
               word_class(3, three), end_keyword()}));
  struct Case {
    const char16_t *word;
    int32_t id;
  } cases[] = {
      {u"\u4EAC", 0}, {u"\u7231", 3}, {u"abc", 4},     {u"abd", 5},
      {u"abe", -1},   {u"ab", -1},    {u"abcdef", -1},
  };
  for (const Case &c : cases) {
    NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, c.word, 0);
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(d.dict->LastId, c.id) << std::string(c.word, c.word + 1).size();
    EXPECT_EQ(std::u16string(d.dict->LastWord), std::u16string(c.word));
    NLPDIC_DeleNode(head);
  }
}

TEST(DictBreak, OneUnknownCharacter) {
  Dict d(standard_image({}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"Z", 1);
  ASSERT_NE(head, nullptr);
  EXPECT_EQ(std::u16string(head->Word), u"BEGTOK");
  EXPECT_EQ(std::u16string(head->ClassName), u"BEGTOK");
  EXPECT_EQ(head->ClassId, -1);
  NLPDIC_Node *z = head->Link;
  ASSERT_NE(z, nullptr);
  EXPECT_EQ(std::u16string(z->Word), u"Z");
  EXPECT_EQ(z->ClassId, kX);
  EXPECT_EQ(std::u16string(z->ClassName), u"x");
  EXPECT_EQ(z->Score, -100.0f);
  EXPECT_EQ(z->Mark, -1.0f);
  EXPECT_EQ(z->Length, 1);
  EXPECT_EQ(z->PathScore, -0.3f);
  NLPDIC_Node *end = z->Link;
  ASSERT_NE(end, nullptr);
  EXPECT_EQ(std::u16string(end->Word), u"ENDTOK");
  EXPECT_EQ(end->ClassId, -1);
  EXPECT_EQ(end->Link, z);  // the chain is circular at its end
  EXPECT_EQ(end->PathScore, (-0.3f + -100.0f) + -0.3f);
  EXPECT_EQ(head->NextColumn, z);
  EXPECT_EQ(z->NextColumn, end);
  EXPECT_EQ(head->Spare, nullptr);
  NLPDIC_DeleNode(head);
}

TEST(DictBreak, EmptyTextGivesNull) {
  Dict d(standard_image({}));
  EXPECT_EQ(NLPDIC_DictBreak(d.dict, u"", 1), nullptr);
  EXPECT_EQ(NLPDIC_DictBreak(d.dict, u"", 0), nullptr);
  EXPECT_EQ(NLPDIC_DictBreak(d.dict, u"   ", 0), nullptr);
  EXPECT_EQ(d.dict->BeginColumns, nullptr);
  EXPECT_EQ(d.dict->EndColumns, nullptr);
}

TEST(DictBreak, QuantisedScoresAtBothEnds) {
  Dict d(standard_image({}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"\u5317\u4EAC", 0);
  ASSERT_NE(head, nullptr);
  EXPECT_EQ(head->Link->Score, -8.0f + 8.0f * (255.0f * 0.003921569f));
  EXPECT_NEAR(head->Link->Score, 0.0f, 1e-5);
  NLPDIC_DeleNode(head);
  head = NLPDIC_DictBreak(d.dict, u"\u4EAC", 0);
  EXPECT_EQ(head->Link->Score, -8.0f);
  EXPECT_EQ(head->Link->Mark, 0.0f);
  NLPDIC_DeleNode(head);
}

TEST(DictBreak, LongerKnownWordBeatsItsPieces) {
  Dict d(standard_image({{kN, kN, -1.0f, 0.5f}}));
  Path p = segment(d.dict, u"\u5317\u4EAC", 1);
  ASSERT_EQ(p.words.size(), 1u);
  EXPECT_EQ(p.words[0], u"\u5317\u4EAC");
  const float score = -8.0f + 8.0f * (255.0f * 0.003921569f);
  EXPECT_EQ(p.total, (-0.3f + score) + -0.3f);
}

TEST(DictBreak, UnknownRunsSplitIntoPiecesOfAtMostThree) {
  // Every split of "abcd" into two unknown pieces scores the same; the tie
  // goes to the predecessor of "ENDTOK" entered first, "bcd".
  Dict d(standard_image({}));
  Path four = segment(d.dict, u"abcd", 1);
  ASSERT_EQ(four.words.size(), 2u);
  EXPECT_EQ(four.words[0], u"a");
  EXPECT_EQ(four.words[1], u"bcd");
  for (const char16_t *run : {u"abcdefg", u"abcdefghijklmnopq", u"qwertyuiopasdfghjklzxcvbnm"}) {
    Path p = segment(d.dict, run, 1);
    std::u16string joined;
    for (const std::u16string &w : p.words) {
      EXPECT_LE(w.size(), 3u);
      joined += w;
    }
    EXPECT_EQ(joined, std::u16string(run));
  }
}

TEST(DictBreak, CandidatesAreCappedAtSixUnitsInCharacterMode) {
  LengthEntry seven;
  seven.words = {u"abcdefg"};
  seven.readings = {{{kA, 255}}};
  LengthEntry six;
  six.words = {u"abcdef"};
  six.readings = {{{kA, 255}}};
  Dict d(join({monogram(classes(), kX), word_table(8), word_class(6, six), word_class(7, seven),
               end_keyword()}));
  Path chars = segment(d.dict, u"abcdefg", 1);
  ASSERT_EQ(chars.words.size(), 2u);
  EXPECT_EQ(chars.words[0], u"abcdef");
  EXPECT_EQ(chars.words[1], u"g");
  Path tokens = segment(d.dict, u"abcdefg", 0);
  ASSERT_EQ(tokens.words.size(), 1u);
  EXPECT_EQ(tokens.classes[0], kA);
}

TEST(DictBreak, ReadingsMakeOneNodeEachAndTiesKeepTheEarlierPredecessor) {
  // 我 has readings n then v, both scoring -8; the pairs to 爱 (v) score
  // the same from either, so the earlier reading, n, stays on the path.
  Dict same(standard_image({{kN, kV, -1.0f, 0.0f}, {kV, kV, -1.0f, 0.0f}}));
  NLPDIC_Node *head = NLPDIC_DictBreak(same.dict, u"\u6211\u7231", 1);
  ASSERT_NE(head, nullptr);
  int in_column = 0;
  for (NLPDIC_Node *n = head->NextColumn; n != nullptr; n = n->NextInColumn) ++in_column;
  EXPECT_EQ(in_column, 3);  // 我/n, 我/v, 我爱 unknown
  Path p = walk(head);
  NLPDIC_DeleNode(head);
  ASSERT_EQ(p.words.size(), 2u);
  EXPECT_EQ(p.names[0], u"n");
  EXPECT_EQ(p.names[1], u"v");
  // A better pair for the second reading moves the path to it.
  Dict better(standard_image({{kN, kV, -2.0f, 0.0f}, {kV, kV, -1.0f, 0.0f}}));
  EXPECT_EQ(segment(better.dict, u"\u6211\u7231", 1).names[0], u"v");
}

TEST(DictBreak, FirstPairEntryWinsAndMissingPairsScoreMinusHundred) {
  Dict first(standard_image({{kN, kN, -1.0f, 0.0f}, {kN, kN, -50.0f, 0.0f}}));
  NLPDIC_Node *head = NLPDIC_DictBreak(first.dict, u"\u4EAC \u5317", 0);
  ASSERT_NE(head, nullptr);
  NLPDIC_Node *second = head->Link->Link;
  EXPECT_EQ(second->PathScore, (-0.3f + -8.0f) + -1.0f);
  NLPDIC_DeleNode(head);
  Dict none(standard_image({}));
  head = NLPDIC_DictBreak(none.dict, u"\u4EAC \u5317", 0);
  EXPECT_EQ(head->Link->Link->PathScore, (-0.3f + -8.0f) + -100.0f);
  NLPDIC_DeleNode(head);
}

TEST(DictBreak, PairCodesCompareAsSixteenBits) {
  // The default class 65536 + 2 reads as code 2 in the pair table.
  Dict d(join({monogram(classes(), 65538), bigram({{kX, kX, -4.0f, 0.0f}}), end_keyword()}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"p q", 0);
  ASSERT_NE(head, nullptr);
  EXPECT_EQ(head->Link->ClassId, 65538);
  EXPECT_EQ(head->Link->ClassName, nullptr);
  EXPECT_EQ(head->Link->Link->PathScore, (-0.3f + -100.0f) + -4.0f);
  NLPDIC_DeleNode(head);
}

TEST(DictBreak, KeptPredecessorWhenNothingBeatsTheStartingBest) {
  // 爱 (v) after 京 (n) costs -1e6: nothing beats -500000, so 爱 keeps the
  // predecessor chosen for the node before it (京's, "BEGTOK"), and so does
  // "ENDTOK": the path holds no word at all.
  Dict d(standard_image({{kN, kV, -1.0e6f, 0.0f}}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"\u4EAC \u7231", 0);
  ASSERT_NE(head, nullptr);
  NLPDIC_Node *jing = head->NextColumn;
  NLPDIC_Node *ai = jing->NextColumn;
  NLPDIC_Node *end = ai->NextColumn;
  EXPECT_EQ(ai->PathScore, -500000.0f);
  EXPECT_EQ(end->PathScore, -500000.0f);
  EXPECT_EQ(head->Link, end);
  EXPECT_EQ(end->Link, head);
  NLPDIC_DeleNode(head);
}

TEST(DictBreak, SearchStopsAfterATokenSpelledEndtok) {
  // The search stops after the column whose first node's word is
  // "ENDTOK": the token of that name is searched, the token after it and
  // the real "ENDTOK" are not, so the path from "BEGTOK" is empty.
  Dict d(standard_image({}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"a ENDTOK b", 0);
  ASSERT_NE(head, nullptr);
  NLPDIC_Node *a = head->NextColumn;
  NLPDIC_Node *token = a->NextColumn;
  NLPDIC_Node *b = token->NextColumn;
  NLPDIC_Node *end = b->NextColumn;
  EXPECT_EQ(token->Link, a);
  EXPECT_EQ(token->PathScore, (-0.3f + -100.0f) + -100.0f);
  EXPECT_EQ(b->Link, nullptr);
  EXPECT_EQ(b->PathScore, 0.0f);
  EXPECT_EQ(end->Link, nullptr);
  EXPECT_EQ(head->Link, nullptr);
  NLPDIC_DeleNode(head);
}

TEST(DictBreak, TokenModeSplitting) {
  Dict d(standard_image({}));
  struct Case {
    const char16_t *text;
    std::vector<std::u16string> tokens;
  } cases[] = {
      {u"a, b", {u"a", u",", u"b"}},
      {u"a,b", {u"a,b"}},
      {u"  a   b  ", {u"a", u"b"}},
      {u"x. y! z", {u"x", u".", u"y", u"!", u"z"}},
      {u"( a", {u"(", u"a"}},
      {u"a ,", {u"a", u","}},
      {u"\u4EAC\u5317 \u7231", {u"\u4EAC\u5317", u"\u7231"}},
  };
  for (const Case &c : cases) {
    Path p = segment(d.dict, c.text, 0);
    EXPECT_EQ(p.words, c.tokens);
  }
}

TEST(DictBreak, TokenLimit) {
  Dict d(standard_image({}));
  auto tokens = [](int n, bool trailing_space) {
    std::u16string t;
    for (int k = 0; k < n; ++k) t += k == 0 ? u"w" : u" w";
    if (trailing_space) t += u" ";
    return t;
  };
  struct Case {
    int tokens;
    bool trailing;
    size_t words;  // 0: null
  } cases[] = {{256, false, 256}, {256, true, 256}, {257, false, 257},
               {257, true, 257},  {258, false, 0},  {300, false, 0}};
  for (const Case &c : cases) {
    const std::u16string text = tokens(c.tokens, c.trailing);
    NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, text.c_str(), 0);
    if (c.words == 0) {
      EXPECT_EQ(head, nullptr) << c.tokens;
      continue;
    }
    ASSERT_NE(head, nullptr) << c.tokens;
    EXPECT_EQ(walk(head).words.size(), c.words) << c.tokens;
    NLPDIC_DeleNode(head);
  }
}

TEST(DictBreak, LongTokenIsOneWord) {
  Dict d(standard_image({}));
  std::u16string text(3000, u'q');
  Path p = segment(d.dict, text.c_str(), 0);
  ASSERT_EQ(p.words.size(), 1u);
  EXPECT_EQ(p.words[0].size(), 3000u);
}

TEST(DictBreak, ColumnsAreReleasedAfterEachCall) {
  Dict d(standard_image({}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"\u5317\u4EAC", 1);
  EXPECT_EQ(d.dict->BeginColumns, nullptr);
  EXPECT_EQ(d.dict->EndColumns, nullptr);
  NLPDIC_DeleNode(head);
}

TEST(DictNodes, GetNodeInfoSelectors) {
  Dict d(standard_image({}));
  NLPDIC_Node *head = NLPDIC_DictBreak(d.dict, u"\u4EAC", 0);
  ASSERT_NE(head, nullptr);
  NLPDIC_Node *w = head->Link;
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 0), w->Word);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 1), &w->Length);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 2), w->ClassName);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 3), &w->ClassId);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 4), &w->Mark);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 5), &w->Score);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 6), &w->PathScore);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 7), w->Link);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 8), nullptr);
  EXPECT_EQ(NLPDIC_GetNodeInfo(w, 0xFFFFFFFFu), nullptr);
  EXPECT_EQ(NLPDIC_GetNodeInfo(nullptr, 0), nullptr);
  NLPDIC_DeleNode(w);  // not the lattice's first node: released with it
  NLPDIC_DeleNode(head);
}

TEST(DictNodes, RecordFieldsInOrder) {
  EXPECT_EQ(offsetof(NLPDIC_Node, Word), 0u);
  EXPECT_LT(offsetof(NLPDIC_Node, Word), offsetof(NLPDIC_Node, ClassName));
  EXPECT_LT(offsetof(NLPDIC_Node, ClassName), offsetof(NLPDIC_Node, ClassId));
  EXPECT_LT(offsetof(NLPDIC_Node, ClassId), offsetof(NLPDIC_Node, Length));
  EXPECT_LT(offsetof(NLPDIC_Node, Length), offsetof(NLPDIC_Node, Score));
  EXPECT_LT(offsetof(NLPDIC_Node, Score), offsetof(NLPDIC_Node, PathScore));
  EXPECT_LT(offsetof(NLPDIC_Node, PathScore), offsetof(NLPDIC_Node, Mark));
  EXPECT_LT(offsetof(NLPDIC_Node, Mark), offsetof(NLPDIC_Node, NextColumn));
  EXPECT_LT(offsetof(NLPDIC_Node, NextColumn), offsetof(NLPDIC_Node, NextInColumn));
  EXPECT_LT(offsetof(NLPDIC_Node, NextInColumn), offsetof(NLPDIC_Node, Spare));
  EXPECT_LT(offsetof(NLPDIC_Node, Spare), offsetof(NLPDIC_Node, NextEnding));
  EXPECT_LT(offsetof(NLPDIC_Node, NextEnding), offsetof(NLPDIC_Node, Link));
}

}  // namespace
