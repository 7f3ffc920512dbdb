// labels_on_hierarchy_test.cpp - context labels read off a hierarchy built
// from a document: phone names around the phone, positions in syllable,
// word and phrase, and pauses without ancestors.
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
  EXPECT_EQ(labels(doc.utt(), kNames, kPrefixes), expected);
}

}  // namespace
