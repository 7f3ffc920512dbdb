// stress_test.cpp - Stress_Process over a built prosodic hierarchy: the
// stress tree's leaf per word, kept to "0" .. "60", phrase by phrase.
#include <gtest/gtest.h>

#include <string>

#include "hierarchy/hierarchy_fixture.h"
#include "nlp_dict.h"
#include "prosody/model_builder.h"
#include "sentence_stress.h"

namespace {

using namespace dict_test;
using namespace prosody_test;
using hierarchy_test::Document;
using hierarchy_test::feat;

// Content words (pos 21 or 46) get leaf 3, function words (pos 42) leaf 1,
// everything else leaf 2.
Bytes stress_dict() {
  Bytes model = model_section({{"pos", "[P]", "/"}}, {{"[P]21/", "[P]46/"}, {"[P]42/"}},
                              {{0, 0, -1, 3}, {-1, 1, 2, 1}});
  return join({monogram({{u"n", 21}}, 21),
               model_dict_section("STRESS", model_body(model, "SentenceStress")), end_keyword()});
}

// A holder whose tree gives `leaf` for every word.
struct ConstantHolder {
  Bytes body;
  void *holder;
  explicit ConstantHolder(int leaf)
      : body(model_body(
            model_section({{"pos", "[P]", "/"}}, {{"[P]*"}},
                          {{0, 0, static_cast<int16_t>(leaf), static_cast<int16_t>(leaf)}}),
            "SentenceStress")) {
    Bytes image =
        join({monogram({{u"n", 1}}, 1), model_dict_section("STRESS", body), end_keyword()});
    image_ = image;
    dict_ = NLPDIC_Create(image_.data());
    holder = NLPDIC_GetStressPointer(dict_);
  }
  ~ConstantHolder() { NLPDIC_Destroy(dict_); }
  ConstantHolder(const ConstantHolder &) = delete;
  ConstantHolder &operator=(const ConstantHolder &) = delete;

 private:
  Bytes image_;
  NLPDIC *dict_ = nullptr;
};

const char kTwoPhrases[] =
    "<speak xml:lang=\"zh-CN\">"
    "<word ph=\"wo3\" pos=\"32\">a</word>"
    "<word ph=\"ai4\" pos=\"46\" delay=\"1\">b</word>"
    "<word ph=\"bei3.jing1\" pos=\"21\">c</word>"
    "<word ph=\"de5\" pos=\"42\">d</word>"
    "</speak>";

std::string word_stress(const Document &doc) {
  std::string out;
  item *root = doc.root_item();
  for (item *w = utt_walk_next_tag(root, root, 1, WordTagName()); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, WordTagName()))
    out += (out.empty() ? "" : " ") + feat(w, "stress");
  return out;
}

TEST(Stress, EveryWordOfEveryPhraseFromTheTree) {
  Bytes image = stress_dict();
  NLPDIC *dict = NLPDIC_Create(image.data());
  void *holder = NLPDIC_GetStressPointer(dict);
  ASSERT_NE(holder, nullptr);
  Document doc(kTwoPhrases);
  ASSERT_TRUE(doc.loaded());
  EXPECT_EQ(Stress_Process(holder, doc.root_item(), u"zh-CN"), 0);
  EXPECT_EQ(word_stress(doc), "1 2 2 0");
  // The phrase built last is the second focus phrase.
  EXPECT_EQ(hierarchy_test::count(relation_head(utt_relation(doc.utt(), "focus_phrase"))), 2);
  EXPECT_EQ(hierarchy_test::count(relation_head(utt_relation(doc.utt(), "Word"))), 2);
  const val *focus = feat_val(doc.utt()->features, "focus");
  EXPECT_EQ(val_item(focus), doc.root_item());
  NLPDIC_Destroy(dict);
}

TEST(Stress, LeavesMapToTheSharedConstants) {
  struct Case {
    int leaf;
    const char *stress;
  } cases[] = {{1, "0"}, {2, "1"}, {30, "29"}, {61, "60"}, {62, "60"}, {100, "60"}};
  for (const Case &c : cases) {
    ConstantHolder h(c.leaf);
    ASSERT_NE(h.holder, nullptr);
    Document doc(kTwoPhrases);
    Stress_Process(h.holder, doc.root_item(), u"zh-CN");
    const std::string s = c.stress;
    EXPECT_EQ(word_stress(doc), s + " " + s + " " + s + " " + s) << c.leaf;
    item *first = utt_walk_next_tag(doc.root_item(), doc.root_item(), 1, WordTagName());
    EXPECT_EQ(item_feat(first, "stress"), val_string_n(std::stoi(s))) << c.leaf;
  }
}

TEST(Stress, NoFocusPhrasesNoStress) {
  Bytes image = stress_dict();
  NLPDIC *dict = NLPDIC_Create(image.data());
  Document doc("<speak xml:lang=\"zh-CN\">no words here</speak>");
  ASSERT_TRUE(doc.loaded());
  EXPECT_EQ(Stress_Process(NLPDIC_GetStressPointer(dict), doc.root_item(), u"zh-CN"), 0);
  EXPECT_EQ(word_stress(doc), "");
  Document no_phones("<speak xml:lang=\"zh-CN\"><word pos=\"21\">a</word></speak>");
  EXPECT_EQ(Stress_Process(NLPDIC_GetStressPointer(dict), no_phones.root_item(), u"zh-CN"), 0);
  EXPECT_EQ(word_stress(no_phones), "<none>");
  NLPDIC_Destroy(dict);
}

TEST(Stress, NullArguments) {
  Bytes image = stress_dict();
  NLPDIC *dict = NLPDIC_Create(image.data());
  Document doc(kTwoPhrases);
  EXPECT_EQ(Stress_Process(nullptr, doc.root_item(), u"zh-CN"), -1);
  EXPECT_EQ(Stress_Process(NLPDIC_GetStressPointer(dict), nullptr, u"zh-CN"), -1);
  EXPECT_EQ(word_stress(doc), "<none> <none> <none> <none>");
  NLPDIC_Destroy(dict);
}

}  // namespace
