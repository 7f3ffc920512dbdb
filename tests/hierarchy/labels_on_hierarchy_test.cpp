// labels_on_hierarchy_test.cpp - context labels read off a hierarchy built
// from a document: phone names around the phone, positions in syllable,
// word and phrase, pauses without ancestors, and positions past 60.
#include <string>
#include <vector>

#include "hierarchy/hierarchy_fixture.h"

namespace {

using namespace hierarchy_test;

// Previous, current and next phone; the phone's place in its syllable
// (forward, backward) and in its word; the syllable's place in its word and
// its tone; a constant field; the number of words in the phrase. Pauses
// have no view in the tree, so their structural fields read "x".
const char *const kNames[] = {"p.name",
                              "name",
                              "n.name",
                              "R:Phrase.PositionFW",
                              "R:Phrase.PositionBW",
                              "R:Phrase.PositionFW2",
                              "R:Phrase.parent.PositionFW",
                              "R:Phrase.parent.tone",
                              "0",
                              "R:Phrase.parent.parent.parent.parent.NumGrandDaughter"};
const char *const kPrefixes[] = {"", "-", "+", "/A:", "_", "/B:", "/C:", "/T:", "/Z:", "/P:"};
const char *const kSuffixes[] = {"", "", "", "", "", "", "", "", "", ""};
constexpr int kCount = 10;

std::vector<std::string> labels(const utterance *u) {
  std::vector<std::string> out;
  for (const item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
    char label[512];
    EXPECT_EQ(MakeFeatureLabel(p, kNames, kPrefixes, kSuffixes, kCount, label), 0);
    out.push_back(label);
  }
  return out;
}

TEST(LabelsOnHierarchy, TwoWordPhrase) {
  Document doc(
      "<speak xml:lang=\"zh-CN\"><word ph=\"ni3.hao3\" break=\"1\"/><word ph=\"ma1\"/></speak>");
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  doc.build(0, u"zh-CN");
  const std::vector<std::string> expected = {
      "x-pau+n/A:x_x/B:x/C:x/T:x/Z:0/P:x", "pau-n+i/A:1_2/B:1/C:1/T:3/Z:0/P:2",
      "n-i+h/A:2_1/B:2/C:1/T:3/Z:0/P:2",   "i-h+a/A:1_3/B:3/C:2/T:3/Z:0/P:2",
      "h-a+o/A:2_2/B:4/C:2/T:3/Z:0/P:2",   "a-o+m/A:3_1/B:5/C:2/T:3/Z:0/P:2",
      "o-m+a/A:1_2/B:1/C:1/T:1/Z:0/P:2",   "m-a+pau/A:2_1/B:2/C:1/T:1/Z:0/P:2",
      "a-pau+x/A:x_x/B:x/C:x/T:x/Z:0/P:x",
  };
  EXPECT_EQ(labels(doc.utt()), expected);
}

TEST(LabelsOnHierarchy, PositionsPastSixtyReadSixty) {
  // One word of three syllables of 22 phones each: 66 phones.
  const std::string syllable(22, 'a');
  Document doc("<speak xml:lang=\"en\"><word ph=\"" + syllable + "." + syllable + "." + syllable +
               "\"/></speak>");
  ASSERT_EQ(FocusPhraseCreate(doc.utt()), 1);
  doc.build(0, u"en");
  relation *phones = utt_relation(doc.utt(), "Phone");
  std::vector<item *> all;
  for (item *p = relation_head(phones); p != nullptr; p = item_next(p)) all.push_back(p);
  ASSERT_EQ(all.size(), 68u);
  EXPECT_EQ(hierarchy_test::utf8(val_wstring(GetFeature(all[60], "R:Phrase.PositionFW2"))), "60");
  EXPECT_EQ(hierarchy_test::utf8(val_wstring(GetFeature(all[61], "R:Phrase.PositionFW2"))), "60");
  EXPECT_EQ(hierarchy_test::utf8(val_wstring(GetFeature(all[59], "R:Phrase.PositionFW2"))), "59");
  EXPECT_EQ(hierarchy_test::utf8(val_wstring(GetFeature(all[1], "R:Phrase.PositionBW2"))), "60");
  EXPECT_EQ(hierarchy_test::utf8(val_wstring(GetFeature(all[66], "R:Phrase.PositionBW2"))), "1");
  EXPECT_EQ(val_int(GetFeature(all[66], "pho-pos")), 65);
}

}  // namespace
