// pronunciation_test.cpp - pronunciation strings of Mandarin words: the
// character readings, tone sandhi within a word, characters without a
// reading, runs of Han, Latin and digits, and the strings as
// CreatePhonemeWord takes them apart.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hierarchy/hierarchy_fixture.h"
#include "ipa_phoneme.h"
#include "utts/mandarin_pronunciation.h"
#include "utts/pinyin_readings.h"

namespace {

using namespace hierarchy_test;
using utts::mandarin::RunKind;
using utts::mandarin::WordSyllable;

std::string han(const std::u16string &word) {
  std::u16string out;
  if (!utts::mandarin::han_word_pronunciation(word.data(), word.size(), out)) return "(none)";
  return utf8(out.c_str());
}

TEST(Pronunciation, HanWords) {
  const struct {
    const char16_t *word;
    const char *pronunciation;
  } table[] = {
      {u"中", "ʈʂʊŋ1"},
      {u"中国", "ʈʂʊŋ1.kwo2"},
      {u"北京", "pei̯3.ʨiŋ1"},
      {u"你好", "ni2.xau̯3"},
      {u"老虎", "lau̯2.xu3"},
      {u"展览馆", "ʈʂan2.lan2.kwan3"},
      {u"一定", "i2.tiŋ4"},
      {u"一样", "i2.jɑŋ4"},
      {u"一天", "i4.tʰjɛn1"},
      {u"一年", "i4.njɛn2"},
      {u"一起", "i4.ʨʰi3"},
      {u"一百", "i4.pai̯3"},
      {u"第一", "ti4.i1"},
      {u"十一", "ʂɨ˞2.i1"},
      {u"统一", "tʰʊŋ3.i1"},
      {u"一九九八", "i1.ʨjou̯2.ʨjou̯3.pa1"},
      {u"不是", "pu2.ʂɨ˞4"},
      {u"不去", "pu2.ʨʰy4"},
      {u"不好", "pu4.xau̯3"},
      {u"不行", "pu4.ɕiŋ2"},
      {u"我们", "wo3.mən5"},
      {u"花儿", "xwa1.ɚ2"},
      {u"二〇二六", "ɚ4.liŋ2.ɚ4.ljou̯4"},
      {u"\U00020000", "xɤ1"},  // 𠀀, a character of extension B
  };
  for (const auto &row : table) EXPECT_EQ(han(row.word), row.pronunciation) << utf8(row.word);
}

TEST(Pronunciation, WordsThatCannotBeRead) {
  const struct {
    std::u16string word;
    std::size_t failed_at;
  } table[] = {
      {u"兙", 0},  // a Han character without a reading
      {u"中兙", 1},
      {u"abc", 0},  // not Han
      {u"中a国", 1},
      {u"中1", 1},
      {u"\U00020000\uE000", 2},           // a private-use character after a pair
      {std::u16string(1, u'\xD840'), 0},  // a lone surrogate
      {u"中" + std::u16string(1, u'\xDC00'), 1},
  };
  for (const auto &row : table) {
    std::u16string out = u"kept";
    std::size_t failed_at = 99;
    EXPECT_FALSE(
        utts::mandarin::han_word_pronunciation(row.word.data(), row.word.size(), out, &failed_at))
        << utf8(row.word.c_str());
    EXPECT_TRUE(out.empty()) << utf8(row.word.c_str());
    EXPECT_EQ(failed_at, row.failed_at) << utf8(row.word.c_str());
  }
}

TEST(Pronunciation, NullAndEmptyWords) {
  std::u16string out = u"kept";
  std::size_t failed_at = 99;
  EXPECT_FALSE(utts::mandarin::han_word_pronunciation(nullptr, 3, out, &failed_at));
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(failed_at, 0u);
  EXPECT_FALSE(utts::mandarin::han_word_pronunciation(u"中", 0, out));
}

std::string tones(std::vector<WordSyllable> syllables) {
  utts::mandarin::apply_tone_sandhi(syllables);
  std::string out;
  for (const WordSyllable &s : syllables) out += static_cast<char>('0' + s.tone);
  return out;
}

TEST(Pronunciation, ThirdToneSandhi) {
  const struct {
    std::vector<int> read;
    const char *said;
  } table[] = {
      {{3, 3}, "23"},     {{3, 3, 3}, "223"},     {{3, 3, 1}, "231"},
      {{1, 3, 3}, "123"}, {{3, 1, 3}, "313"},     {{3}, "3"},
      {{3, 5}, "35"},     {{3, 3, 3, 3}, "2223"}, {{2, 3, 4, 3}, "2343"},
  };
  for (const auto &row : table) {
    std::vector<WordSyllable> syllables;
    for (int t : row.read) syllables.push_back({0, "ma", t});
    EXPECT_EQ(tones(syllables), row.said) << row.said;
  }
}

TEST(Pronunciation, YiAndBuSandhi) {
  const char32_t yi = U'一', bu = U'不', x = U'x';
  const struct {
    std::vector<WordSyllable> word;
    const char *said;
  } table[] = {
      {{{yi, "yi", 1}, {x, "ding", 4}}, "24"},
      {{{yi, "yi", 1}, {x, "ge", 5}}, "25"},
      {{{yi, "yi", 1}, {x, "tian", 1}}, "41"},
      {{{yi, "yi", 1}, {x, "nian", 2}}, "42"},
      {{{yi, "yi", 1}, {x, "qi", 3}}, "43"},
      {{{x, "tong", 3}, {yi, "yi", 1}}, "31"},
      {{{U'第', "di", 4}, {yi, "yi", 1}, {x, "ci", 4}}, "414"},
      {{{yi, "yi", 1}, {U'二', "er", 4}}, "14"},
      {{{U'三', "san", 1}, {U'十', "shi", 2}, {yi, "yi", 1}, {x, "tian", 1}}, "1211"},
      {{{yi, "yi", 1}, {yi, "yi", 1}}, "11"},
      {{{bu, "bu", 4}, {x, "shi", 4}}, "24"},
      {{{bu, "bu", 4}, {x, "hao", 3}}, "43"},
      {{{bu, "bu", 4}, {x, "xing", 2}}, "42"},
      {{{x, "hao", 3}, {bu, "bu", 4}}, "34"},
      {{{bu, "bu", 4}, {x, "hao", 3}, {x, "hao", 3}}, "423"},
      {{{0, "yi", 1}, {x, "ding", 4}}, "14"},   // from pinyin: no character, no sandhi
      {{{yi, "yi", 4}, {x, "ding", 4}}, "44"},  // read otherwise: left alone
  };
  for (const auto &row : table) EXPECT_EQ(tones(row.word), row.said) << row.said;
}

TEST(Pronunciation, PinyinWords) {
  const struct {
    const char *pinyin, *pronunciation;
  } table[] = {
      {"ni3 hao3", "ni2.xau̯3"},
      {"xi1'an1", "ɕi1.an1"},
      {"hua1r", "xwa˞1"},
      {"huar1", "xwa˞1"},
      {"lv4 shi1", "ly4.ʂɨ˞1"},
      {"  zhong1   guo2 ", "ʈʂʊŋ1.kwo2"},
      {"ma", "ma5"},
      {"", "(none)"},
      {"   ", "(none)"},
      {"ni3 xx3", "(none)"},
      {"ni9", "(none)"},
  };
  for (const auto &row : table) {
    std::u16string out;
    const bool ok = utts::mandarin::pinyin_word_pronunciation(row.pinyin, out);
    EXPECT_EQ(ok ? utf8(out.c_str()) : "(none)", row.pronunciation) << row.pinyin;
  }
}

TEST(Pronunciation, SyllablesWithBadTonesDoNotConvert) {
  std::u16string out;
  EXPECT_FALSE(utts::mandarin::syllables_pronunciation({{0, "ma", 0}}, out));
  EXPECT_FALSE(utts::mandarin::syllables_pronunciation({{0, "ma", 6}}, out));
  EXPECT_FALSE(utts::mandarin::syllables_pronunciation({}, out));
  EXPECT_TRUE(out.empty());
}

std::string runs(const std::u16string &text) {
  std::string out;
  utts::mandarin::TextRun run{};
  for (std::size_t at = 0; utts::mandarin::next_run(text.data(), text.size(), at, run);
       at = run.end) {
    const char *kind = run.kind == RunKind::kHan      ? "H"
                       : run.kind == RunKind::kLatin  ? "L"
                       : run.kind == RunKind::kDigits ? "D"
                                                      : "O";
    out += (out.empty() ? "" : " ") + std::string(kind) + std::to_string(run.begin) + "-" +
           std::to_string(run.end);
  }
  return out;
}

TEST(Pronunciation, Runs) {
  const struct {
    std::u16string text;
    const char *runs;
  } table[] = {
      {u"中文abc123", "H0-2 L2-5 D5-8"},
      {u"我用iPhone 15拍照。", "H0-2 L2-8 O8-9 D9-11 H11-13 O13-14"},
      {u"Don't 停", "L0-5 O5-6 H6-7"},
      {u"O\u2019Brien说", "L0-7 H7-8"},
      {u"it' 是", "L0-2 O2-4 H4-5"},
      {u"'a", "O0-1 L1-2"},
      {u"\U00020000\U00020001字", "H0-5"},
      {u"２０２６年", "D0-4 H4-5"},
      {u"ＡＢ", "L0-2"},
      {u"Café 咖啡", "L0-4 O4-5 H5-7"},
      {u"二〇二六", "H0-4"},
      {u"×÷", "O0-2"},
      {std::u16string(1, u'\xD840') + u"字", "O0-1 H1-2"},
      {u"", ""},
  };
  for (const auto &row : table) EXPECT_EQ(runs(row.text), row.runs) << utf8(row.text.c_str());
}

TEST(Pronunciation, RunsRefuseNullAndTheEnd) {
  utts::mandarin::TextRun run{RunKind::kOther, 7, 9};
  EXPECT_FALSE(utts::mandarin::next_run(nullptr, 4, 0, run));
  EXPECT_FALSE(utts::mandarin::next_run(u"ab", 2, 2, run));
  EXPECT_EQ(run.begin, 7u);
  EXPECT_EQ(run.end, 9u);
}

TEST(Pronunciation, KindsOfCodePoints) {
  const struct {
    char32_t c;
    RunKind kind;
  } table[] = {
      {U'中', RunKind::kHan},     {0x3400, RunKind::kHan},   {0x9FFF, RunKind::kHan},
      {0xF900, RunKind::kHan},    {0x2A6DF, RunKind::kHan},  {0x3134A, RunKind::kHan},
      {0x3007, RunKind::kHan},    {U'a', RunKind::kLatin},   {U'Z', RunKind::kLatin},
      {U'é', RunKind::kLatin},    {0x1EA0, RunKind::kLatin}, {U'7', RunKind::kDigits},
      {0xFF15, RunKind::kDigits}, {U'。', RunKind::kOther},  {U' ', RunKind::kOther},
      {0x3001, RunKind::kOther},  {U'α', RunKind::kOther},   {0x110000, RunKind::kOther},
      {0x2E80, RunKind::kOther},  {U'\'', RunKind::kOther},
  };
  for (const auto &row : table)
    EXPECT_EQ(static_cast<int>(utts::mandarin::kind_of(row.c)), static_cast<int>(row.kind))
        << std::hex << static_cast<unsigned>(row.c);
}

// Every character of the table: its reading converts, the string holds only
// inventory symbols, diacritics, a tone digit, and CreatePhonemeWord makes
// one syllable of it with that tone and at least one vowel phone.
TEST(Pronunciation, EveryReadingConverts) {
  const std::vector<char32_t> all = utts::mandarin::characters_with_readings();
  EXPECT_EQ(all.size(), utts::mandarin::reading_count());
  EXPECT_GT(all.size(), 40000u);
  Document doc("<speak><word/></speak>");
  ASSERT_TRUE(doc.loaded());
  item *word = item_daughter(doc.root_item());
  int failures = 0;
  for (char32_t c : all) {
    std::u16string text;
    if (c >= 0x10000) {
      text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      text += static_cast<char16_t>(c);
    }
    std::u16string pron;
    bool ok = utts::mandarin::han_word_pronunciation(text.data(), text.size(), pron);
    for (std::size_t i = 0; ok && i + 1 < pron.size(); ++i)
      ok = IsIPAPhoneme(pron[i]) || IsIPADiacritics(pron[i]);
    ok = ok && IsIPAPhoneme(pron[0]) && pron.back() >= u'1' && pron.back() <= u'5';
    if (ok) {
      for (item *s = item_daughter(word); s != nullptr; s = item_daughter(word)) delete_item(s);
      ok = CreatePhonemeWord(word, pron.c_str()) == 1;
      item *syllable = item_daughter(word);
      ok = ok && feat(syllable, "tone") == std::string(1, static_cast<char>(pron.back()));
      bool vowel = false;
      for (item *p = item_daughter(syllable); p != nullptr; p = item_next(p)) {
        const bsr_wchar *name = item_feat_wstring(p, "name");
        vowel = vowel || (name != nullptr && IsIPAVowel(name[0]));
      }
      // Syllabic nasals (呣 m̩, 嗯 n̩) are the only syllables without a vowel.
      ok = ok && (vowel || IsIPANasal(pron[pron.size() > 2 ? pron.size() - 3 : 0]));
    }
    if (!ok && ++failures <= 5) ADD_FAILURE() << "U+" << std::hex << static_cast<unsigned>(c);
  }
  EXPECT_EQ(failures, 0);
}

TEST(Pronunciation, ZhAndChAreTwoPhones) {
  Document doc("<speak><word/></speak>");
  ASSERT_TRUE(doc.loaded());
  item *word = item_daughter(doc.root_item());
  std::u16string pron;
  ASSERT_TRUE(utts::mandarin::pinyin_word_pronunciation("chuang1", pron));
  ASSERT_EQ(CreatePhonemeWord(word, pron.c_str()), 1);
  EXPECT_EQ(shape(item_daughter(word)), "(ʈ ʂʰ w ɑ ŋ)");
}

TEST(Pronunciation, AspirationAndGlidesStayWithTheirPhone) {
  Document doc("<speak><word/></speak>");
  ASSERT_TRUE(doc.loaded());
  item *word = item_daughter(doc.root_item());
  std::u16string pron;
  ASSERT_TRUE(utts::mandarin::pinyin_word_pronunciation("kuai4 zi5", pron));
  ASSERT_EQ(CreatePhonemeWord(word, pron.c_str()), 2);
  EXPECT_EQ(shape(item_daughter(word)), "(kʰ w a i̯)");
  EXPECT_EQ(shape(item_next(item_daughter(word))), "(ʦ ɨ)");
}

}  // namespace
