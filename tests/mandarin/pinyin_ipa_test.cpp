// pinyin_ipa_test.cpp - the pinyin-to-IPA table and converter against
// syllables worked by hand: every initial, every class of final, the
// spelling rules of pinyin, erhua, and what is not a syllable.
#include <gtest/gtest.h>

#include <string>

#include "utts/pinyin_ipa.h"

namespace {

using utts::mandarin::Syllable;

std::string ipa(const std::string &spelling) {
  std::string out;
  if (!utts::mandarin::syllable_ipa(spelling, out)) return "(none)";
  return out;
}

struct Case {
  const char *spelling, *ipa;
};

void check(const Case *begin, const Case *end) {
  for (const Case *c = begin; c != end; ++c) EXPECT_EQ(ipa(c->spelling), c->ipa) << c->spelling;
}

TEST(PinyinIpa, TableLoads) { EXPECT_EQ(utts::mandarin::pinyin_table_errors(), ""); }

TEST(PinyinIpa, TableLoaderNamesBadLines) {
  const std::string erhua = "erhua hook ˞\nerhua nasal ̃\nerhua vowel ɚ\n";
  const struct {
    std::string text, errors;
  } table[] = {
      {erhua + "initial b p\n# a comment\n\n", ""},
      {erhua + "initial b\n", "4"},
      {erhua + "initial b p extra\n", "4"},
      {erhua + "medial i j\n", "4"},
      {erhua + "final a a\nfinal a ɑ\n", "5"},
      {erhua + "erhua hook x\n", "4"},
      {erhua + "erhua tail x\n", "4"},
      {"initial b p\r\n", "no erhua hook no erhua nasal no erhua vowel"},
      {"erhua hook ˞\ninitial b\n", "2 no erhua nasal no erhua vowel"},
  };
  for (const auto &row : table)
    EXPECT_EQ(utts::mandarin::pinyin_table_errors_of(row.text), row.errors) << row.text;
}

TEST(PinyinIpa, EveryInitial) {
  const Case table[] = {
      {"ba", "pa"},  {"pa", "pʰa"}, {"ma", "ma"},   {"fa", "fa"},    {"da", "ta"},  {"ta", "tʰa"},
      {"na", "na"},  {"la", "la"},  {"ga", "ka"},   {"ka", "kʰa"},   {"ha", "xa"},  {"ji", "ʨi"},
      {"qi", "ʨʰi"}, {"xi", "ɕi"},  {"zha", "ʈʂa"}, {"cha", "ʈʂʰa"}, {"sha", "ʂa"}, {"re", "ʐɤ"},
      {"za", "ʦa"},  {"ca", "ʦʰa"}, {"sa", "sa"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, OpenFinalsAndDiphthongs) {
  const Case table[] = {
      {"a", "a"},     {"o", "o"},     {"bo", "pwo"},  {"mo", "mwo"}, {"e", "ɤ"},
      {"ge", "kɤ"},   {"ê", "ɛ"},     {"er", "ɚ"},    {"ai", "ai̯"},  {"tai", "tʰai̯"},
      {"mei", "mei̯"}, {"hao", "xau̯"}, {"dou", "tou̯"}, {"ou", "ou̯"},  {"lo", "lo"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, NasalFinals) {
  const Case table[] = {
      {"fan", "fan"},    {"men", "mən"}, {"tang", "tʰɑŋ"}, {"feng", "fəŋ"},
      {"zhong", "ʈʂʊŋ"}, {"an", "an"},   {"eng", "əŋ"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, FinalsOfTheIRow) {
  const Case table[] = {
      {"yi", "i"},       {"ya", "ja"},     {"jia", "ʨja"},  {"ye", "jɛ"},      {"xie", "ɕjɛ"},
      {"yao", "jau̯"},    {"biao", "pjau̯"}, {"you", "jou̯"},  {"liu", "ljou̯"},   {"yan", "jɛn"},
      {"tian", "tʰjɛn"}, {"yin", "in"},    {"lin", "lin"},  {"yang", "jɑŋ"},   {"liang", "ljɑŋ"},
      {"ying", "iŋ"},    {"ming", "miŋ"},  {"yong", "jʊŋ"}, {"xiong", "ɕjʊŋ"}, {"yo", "jo"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, FinalsOfTheURow) {
  const Case table[] = {
      {"wu", "u"},       {"lu", "lu"},     {"wa", "wa"},      {"gua", "kwa"},  {"wo", "wo"},
      {"duo", "two"},    {"wai", "wai̯"},   {"kuai", "kʰwai̯"}, {"wei", "wei̯"},  {"gui", "kwei̯"},
      {"wan", "wan"},    {"suan", "swan"}, {"wen", "wən"},    {"lun", "lwən"}, {"wang", "wɑŋ"},
      {"huang", "xwɑŋ"}, {"weng", "wəŋ"},  {"wong", "wəŋ"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, FinalsOfTheURowWithUmlaut) {
  const Case table[] = {
      {"yu", "y"},       {"lü", "ly"},  {"nü", "ny"},   {"ju", "ʨy"},   {"qu", "ʨʰy"},
      {"xu", "ɕy"},      {"yue", "ɥɛ"}, {"nüe", "nɥɛ"}, {"jue", "ʨɥɛ"}, {"yuan", "ɥɛn"},
      {"quan", "ʨʰɥɛn"}, {"yun", "yn"}, {"xun", "ɕyn"}, {"lu", "lu"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, ApicalVowels) {
  const Case table[] = {
      {"zi", "ʦɨ"},     {"ci", "ʦʰɨ"},  {"si", "sɨ"},  {"zhi", "ʈʂɨ˞"},
      {"chi", "ʈʂʰɨ˞"}, {"shi", "ʂɨ˞"}, {"ri", "ʐɨ˞"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, SyllabicNasals) {
  const Case table[] = {
      {"m", "m̩"}, {"n", "n̩"}, {"ng", "ŋ̩"}, {"hm", "xm̩"}, {"hng", "xŋ̩"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, Erhua) {
  const Case table[] = {
      {"huar", "xwa˞"}, {"wanr", "wa˞"}, {"hair", "xa˞"},   {"jinr", "ʨiɚ"},
      {"yur", "yɚ"},    {"zhir", "ʈʂɚ"}, {"kongr", "kʰʊ̃˞"}, {"dianr", "tjɛ˞"},
      {"yingr", "iɚ̃"},  {"menr", "mə˞"}, {"gaor", "kau̯˞"},  {"r", "ɚ"},
  };
  check(std::begin(table), std::end(table));
}

TEST(PinyinIpa, WhatIsNotASyllable) {
  const char *const table[] = {"",    "zz",   "bü",     "ja",  "gi",  "zia", "xyz",
                               "q",   "lue",  "shiang", "a1",  "zhü", "kü",  "jo",
                               "sho", "iou!", "hmm",    "ngg", "x"};
  for (const char *spelling : table) {
    std::string out = "kept";
    EXPECT_FALSE(utts::mandarin::syllable_ipa(spelling, out)) << spelling;
    EXPECT_EQ(out, "kept") << spelling;
  }
}

TEST(PinyinIpa, SplitsSpellingAndTone) {
  const struct {
    const char *written, *spelling;
    int tone;
  } table[] = {
      {"zhong1", "zhong", 1}, {"ZHONG1", "zhong", 1}, {"lv4", "lü", 4},     {"nu:3", "nü", 3},
      {"lü4", "lü", 4},       {"LÜ4", "lü", 4},       {"hao", "hao", 5},    {"ma0", "ma", 5},
      {"ma5", "ma", 5},       {"ê2", "ê", 2},         {"huar1", "huar", 1},
  };
  for (const auto &row : table) {
    Syllable s;
    ASSERT_TRUE(utts::mandarin::split_syllable(row.written, s)) << row.written;
    EXPECT_EQ(s.spelling, row.spelling) << row.written;
    EXPECT_EQ(s.tone, row.tone) << row.written;
  }
}

TEST(PinyinIpa, SplitRefusesBadTones) {
  const char *const table[] = {"", "ni6", "n1i", "1", "ni-3", "ni33", "ni 3", "ni\xE3\x80\x80"};
  for (const char *written : table) {
    Syllable s;
    s.spelling = "kept";
    EXPECT_FALSE(utts::mandarin::split_syllable(written, s)) << written;
    EXPECT_EQ(s.spelling, "kept") << written;
  }
}

}  // namespace
