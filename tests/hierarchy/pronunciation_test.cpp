// pronunciation_test.cpp - syllable and phone elements from pronunciation
// strings and from syllable names: tones, phone boundaries, empty
// syllables, and strings longer than the buffers, which are refused whole.
#include <string>

#include "hierarchy/hierarchy_fixture.h"

namespace {

using namespace hierarchy_test;

class Pronunciation : public ::testing::Test {
 protected:
  Pronunciation() : doc_("<speak><word/></speak>") {}
  item *word() { return item_daughter(doc_.root_item()); }
  // Syllables as "phone phone|tone", joined by " / ".
  std::string syllables() {
    std::string out;
    for (item *s = item_daughter(word()); s != nullptr; s = item_next(s)) {
      if (!out.empty()) out += " / ";
      std::string phones;
      for (item *p = item_daughter(s); p != nullptr; p = item_next(p)) {
        phones += (phones.empty() ? "" : " ") + feat(p, "name");
      }
      out += phones + "|" + feat(s, "tone");
    }
    return out;
  }
  Document doc_;
};

struct Case {
  const char16_t *pron;
  int result;
  const char *syllables;
};

TEST_F(Pronunciation, Table) {
  const Case kCases[] = {
      {u"ni3.hao3", 2, "n i|3 / h a o|3"},
      {u".a..b.", 2, "a|<none> / b|<none>"},
      {u"5", 1, "|5"},
      {u"t\u02B0a\u02D0n", 1, "t\u02B0 a\u02D0 n|<none>"},
      {u"\u02C8pa", 1, "\u02C8 p a|<none>"},
      {u"#", 1, "#|<none>"},
      {u"ab12", 1, "a b1|2"},
      {u"...", 0, ""},
  };
  for (const Case &c : kCases) {
    SCOPED_TRACE(utf8(c.pron));
    for (item *s = item_daughter(word()); s != nullptr; s = item_daughter(word())) delete_item(s);
    EXPECT_EQ(CreatePhonemeWord(word(), c.pron), c.result);
    EXPECT_EQ(syllables(), c.syllables);
  }
}

TEST_F(Pronunciation, ElementsAreTaggedAndSyllablesUnnamed) {
  ASSERT_EQ(CreatePhonemeWord(word(), u"ma1"), 1);
  item *s = item_daughter(word());
  EXPECT_EQ(feat(s, "tag"), "syllable");
  EXPECT_EQ(feat(s, "name"), "<none>");
  EXPECT_EQ(feat(item_daughter(s), "tag"), "phone");
}

TEST_F(Pronunciation, LongestSyllableAndPhoneAreTaken) {
  const std::u16string syllable31(31, u'a');
  EXPECT_EQ(CreatePhonemeWord(word(), syllable31.c_str()), 1);
  EXPECT_EQ(count(item_daughter(item_daughter(word()))), 31);
  // A phone of seven units: a base symbol and six diacritics.
  const std::u16string phone7 = u"a" + std::u16string(6, u'\u0303');
  EXPECT_EQ(CreatePhonemeWord(word(), phone7.c_str()), 1);
}

TEST_F(Pronunciation, OverLongStringsAreRefusedWhole) {
  const std::u16string syllable32(32, u'a');
  EXPECT_EQ(CreatePhonemeWord(word(), (u"ba." + syllable32).c_str()), -1);
  EXPECT_EQ(item_daughter(word()), nullptr);
  // 31 letters and a tone digit make 32 units: too long as well.
  EXPECT_EQ(CreatePhonemeWord(word(), (std::u16string(31, u'a') + u"3").c_str()), -1);
  EXPECT_EQ(item_daughter(word()), nullptr);
  const std::u16string phone8 = u"a" + std::u16string(7, u'\u0303');
  EXPECT_EQ(CreatePhonemeWord(word(), (u"ma." + phone8).c_str()), -1);
  EXPECT_EQ(item_daughter(word()), nullptr);
  // Characters before the first inventory symbol form a phone too.
  EXPECT_EQ(CreatePhonemeWord(word(), std::u16string(8, u'\u02D0').c_str()), -1);
  const std::u16string many(5000, u'a');
  EXPECT_EQ(CreatePhonemeWord(word(), many.c_str()), -1);
  EXPECT_EQ(item_daughter(word()), nullptr);
}

TEST_F(Pronunciation, NothingForMissingInput) {
  EXPECT_EQ(CreatePhonemeWord(word(), u""), 0);
  EXPECT_EQ(CreatePhonemeWord(word(), nullptr), 0);
  EXPECT_EQ(CreatePhonemeWord(nullptr, u"a"), 0);
  EXPECT_EQ(item_daughter(word()), nullptr);
}

TEST(SyllableNames, PhonesOfNamedSyllables) {
  Document doc(
      "<speak><word><syllable name=\"tai1\"/><syllable name=\"\"/></word>"
      "<word><syllable/><syllable name=\"l\u0259\u02D0n\"/></word></speak>");
  ASSERT_TRUE(doc.loaded());
  EXPECT_EQ(ParseSylName(doc.root_item()), 6);
  item *first = item_daughter(item_daughter(doc.root_item()));
  EXPECT_EQ(shape(first), "(t a i1)");
  EXPECT_EQ(item_daughter(item_next(first)), nullptr);
  item *second_word = item_next(item_daughter(doc.root_item()));
  EXPECT_EQ(shape(item_next(item_daughter(second_word))), "(l \u0259\u02D0 n)");
}

TEST(SyllableNames, OverLongPhonesRefuseTheirSyllableOnly) {
  std::string marks;
  for (int k = 0; k < 31; ++k) marks += "\xCB\x90";  // length mark, 31 times
  Document doc("<speak><word><syllable name=\"a" + marks +
               "\"/><syllable name=\"ba\"/></word></speak>");
  ASSERT_TRUE(doc.loaded());
  EXPECT_EQ(ParseSylName(doc.root_item()), -1);
  item *first = item_daughter(item_daughter(doc.root_item()));
  EXPECT_EQ(item_daughter(first), nullptr);
  EXPECT_EQ(shape(item_next(first)), "(b a)");
  EXPECT_EQ(ParseSylName(nullptr), 0);
}

TEST(SyllableNames, ThirtyOneUnitsFit) {
  std::string marks;
  for (int k = 0; k < 30; ++k) marks += "\xCB\x90";
  Document doc("<speak><word><syllable name=\"a" + marks + "\"/></word></speak>");
  ASSERT_TRUE(doc.loaded());
  EXPECT_EQ(ParseSylName(doc.root_item()), 1);
}

}  // namespace
