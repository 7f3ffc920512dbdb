// chinese_reading_test.cpp - the Mandarin normalisation on sentences: the
// bundled rule set and readers together, checked by the aliases they give.
// The expected readings are written from how the forms are said.
#include <gtest/gtest.h>
#include <mxml.h>

#include <string>

#include "bsr_cstr.h"
#include "hconverter.h"
#include "textnorm/textnorm_fixture.h"
#include "utts/chinese_readers.h"
#include "utts/language_packs.h"
#include "utts/text_normalizer.h"

namespace {

using textnorm_test::subs;

// The bundled Mandarin rules and readers, loaded once.
utts::TextNormalizer &mandarin() {
  static utts::TextNormalizer normalizer(utts::language_pack("zh-CN"));
  static const bool loaded =
      normalizer.add_rules(std::string(utts::kChineseRules, utts::kChineseRulesSize)).empty();
  EXPECT_TRUE(loaded) << "every bundled rule loads";
  return normalizer;
}

std::string normalized(const std::string &sentence) {
  const std::string xml = "<speak xml:lang=\"zh-CN\">" + sentence + "</speak>";
  mxml_node_t *tree = mxmlLoadString(nullptr, xml.c_str(), MXML_OPAQUE_CALLBACK);
  if (tree == nullptr) return "(not parsed)";
  mandarin().normalize(tree);
  std::string out = subs(tree);
  mxmlDelete(tree);
  return out;
}

struct Case {
  const char *sentence, *expected;
};

void check(const Case *begin, const Case *end) {
  for (const Case *c = begin; c != end; ++c) EXPECT_EQ(normalized(c->sentence), c->expected);
}

TEST(ChineseReading, Numbers) {
  const Case table[] = {
      {"全市共有1,234,567人。", "1,234,567=一百二十三万四千五百六十七"},
      {"圆周率约为3.14159。", "3.14159=三点一四一五九"},
      {"只剩0个，后来又来了100个。", "0=零 | 100=一百"},
      {"大约10000人参加。", "10000=一万"},
      {"他捐了100010元。", "100010=十万零一十"},
      {"总数是1001。", "1001=一千零一"},
      {"库存还有10，明天再进110。", "10=十 | 110=一百一十"},
      {"读数是12345678901234567890。",
       "12345678901234567890=一二三四五六七八九零一二三四五六七八九零"},
      {"G20峰会开幕。", "20=二十"},
      {"5G网络覆盖全市。", "5=五"},
      {"新款iPhone 15发布。", "15=十五"},
      {"投资3.5亿元。", "3.5=三点五"},
      {"规模达1.2万亿。", "1.2=一点二"},
      {"全国人口超过14亿。", "14=十四"},
      {"人口达到2万。", "2=两"},
      {"收入2000万元。", "2000=两千"},
      {"答案是2。", "2=二"},
      {"最后一位是2，2后面没有了。", "2=二 | 2=二"},
      {"利率下调了0.25。", "0.25=零点二五"},
      {"编号是007。", "007=零零七"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, NegativeNumbers) {
  const Case table[] = {
      {"比上月变化为-3.5。", "-3.5=负三点五"},
      {"差值是-12，不是12。", "-12=负十二 | 12=十二"},
      {"指数跌至−8。", "−8=负八"},
      {"下降了-0.5个百分点。", "-0.5=负零点五"},
      {"第3-5页", "3=三 | 5=五"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, CountsTakeLiang) {
  const Case table[] = {
      {"我买了2个苹果。", "2=两"},
      {"有2本书和12本杂志。", "2=两 | 12=十二"},
      {"等了2个月。", "2=两"},
      {"开了2小时的会。", "2=两"},
      {"孩子2岁了，哥哥22岁。", "2=两 | 22=二十二"},
      {"价格涨了2倍。", "2=两"},
      {"来了200位客人。", "200=两百"},
      {"跑了2公里。", "2=两"},
      {"花了2分钟。", "2=两"},
      {"只要2块。", "2=两"},
      {"还剩0.5个。", "0.5=零点五"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, RanksAndNamesSayEr) {
  const Case table[] = {
      {"他是第2名。", "2=二"}, {"第200名选手。", "200=二百"}, {"第22届运动会。", "22=二十二"},
      {"读2年级。", "2=二"},   {"住在2楼。", "2=二"},         {"坐2号线。", "2=二"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Dates) {
  const Case table[] = {
      {"2026年11月24日上午", "2026年11月24日=二零二六年十一月二十四日"},
      {"日期：2026-11-24", "2026-11-24=二零二六年十一月二十四日"},
      {"日期：2026/1/5", "2026/1/5=二零二六年一月五日"},
      {"日期：2026.03.08", "2026.03.08=二零二六年三月八日"},
      {"11月24号见", "11月24号=十一月二十四号"},
      {"2026年2月出版", "2026年2月=二零二六年二月"},
      {"2月2日是周一", "2月2日=二月二日"},
      {"2008年8月8日晚8点开幕", "2008年8月8日=二零零八年八月八日 | 8点=八点"},
      {"12月31日", "12月31日=十二月三十一日"},
      {"98年6月", "98年6月=九八年六月"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Years) {
  const Case table[] = {
      {"1998年夏天", "1998=一九九八"},
      {"2000年", "2000=二零零零"},
      {"2010年以来", "2010=二零一零"},
      {"1990年代", "1990=一九九零"},
      {"2020-2026年", "2020-2026=二零二零到二零二六"},
      {"2020至2026年", "2020=二零二零 | 2026=二零二六"},
      {"90年代", "90=九十"},
      {"过去2年", "2=两"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Times) {
  const Case table[] = {
      {"会议14:30开始。", "14:30=十四点三十分"},
      {"早上9:05出发。", "9:05=九点零五分"},
      {"凌晨2:00", "2:00=两点整"},
      {"00:30关门", "00:30=零点三十分"},
      {"计时14:30:05", "14:30:05=十四点三十分零五秒"},
      {"中午12:00", "12:00=十二点整"},
      {"营业时间9:00-17:30", "9:00-17:30=九点整到十七点三十分"},
      {"下午3点见。", "3点=三点"},
      {"下午2点见。", "2点=两点"},
      {"3点15分出发", "3点15分=三点十五分"},
      {"3点05分出发", "3点05分=三点零五分"},
      {"晚上10点半", "10点=十点"},
      {"22点关门", "22点=二十二点"},
      {"9时30分", "9时30分=九时三十分"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Money) {
  const Case table[] = {
      {"售价¥12.50。", "¥12.50=十二元五角"},
      {"售价￥12.05。", "￥12.05=十二元零五分"},
      {"只要¥0.50。", "¥0.50=五角"},
      {"只要¥0.05。", "¥0.05=五分"},
      {"只要¥2。", "¥2=两元"},
      {"只要¥2.20。", "¥2.20=两元两角"},
      {"只要¥10.02。", "¥10.02=十元零两分"},
      {"共¥1,000。", "¥1,000=一千元"},
      {"单价¥12.345。", "¥12.345=十二点三四五元"},
      {"约¥3.5亿。", "¥3.5亿=三点五亿元"},
      {"只要$3。", "$3=三美元"},
      {"只要$3.50。", "$3.50=三点五美元"},
      {"只要US$2。", "US$2=两美元"},
      {"只要€5。", "€5=五欧元"},
      {"只要£20。", "£20=二十英镑"},
      {"只要HK$100。", "HK$100=一百港元"},
      {"折后12.5元。", "12.5=十二点五"},
      {"折后12.50元。", "12.50=十二点五"},
      {"只要2元。", "2=两"},
      {"只要100元。", "100=一百"},
      {"才5块钱。", "5=五"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Percentages) {
  const Case table[] = {
      {"增长50%。", "50%=百分之五十"},
      {"增长12.5%。", "12.5%=百分之十二点五"},
      {"增长-3%。", "-3%=负百分之三"},
      {"把握100%。", "100%=百分之百"},
      {"只有2%。", "2%=百分之二"},
      {"只有0.5%。", "0.5%=百分之零点五"},
      {"占30%-40%。", "30%-40%=百分之三十到百分之四十"},
      {"占30-40%。", "30-40%=百分之三十到四十"},
      {"只有5‰。", "5‰=千分之五"},
      {"增长50％。", "50％=百分之五十"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, TelephoneNumbersAndCodes) {
  const Case table[] = {
      {"电话13812345678。", "13812345678=幺三八 幺二三四 五六七八"},
      {"手机138-1234-5678", "138-1234-5678=幺三八 幺二三四 五六七八"},
      {"联系+86 138 1234 5678", "+86 138 1234 5678=加八六 幺三八 幺二三四 五六七八"},
      {"座机010-12345678", "010-12345678=零幺零 幺二三四五六七八"},
      {"座机(021)87654321", "(021)87654321=零二幺 八七六五四三二幺"},
      {"客服400-810-1234", "400-810-1234=四零零 八幺零 幺二三四"},
      {"验证码123456", "123456=幺二三四五六"},
      {"房间1201", "1201=幺二零幺"},
      {"乘坐G1234次列车", "1234=幺二三四"},
      {"航班CA981", "981=九八幺"},
      {"邮编100080", "100080=幺零零零八零"},
      {"拨打12345热线", "12345=幺二三四五"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Temperatures) {
  const Case table[] = {
      {"气温-5℃。", "-5℃=零下五摄氏度"},
      {"体温36.5°C。", "36.5°C=三十六点五摄氏度"},
      {"气温20-25℃。", "20-25℃=二十到二十五摄氏度"},
      {"气温-5~3℃。", "-5~3℃=零下五到三摄氏度"},
      {"倾斜30°。", "30°=三十度"},
      {"气温-12度。", "-12=零下十二"},
      {"气温10-15度。", "10-15=十到十五"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, Measures) {
  const Case table[] = {
      {"重5kg。", "5kg=五公斤"},
      {"重2kg。", "2kg=两公斤"},
      {"时速120km/h。", "120km/h=一百二十公里每小时"},
      {"步行3-5km。", "3-5km=三到五公里"},
      {"面积80㎡。", "80㎡=八十平方米"},
      {"长100m。", "100m=一百米"},
      {"容量2.5L。", "2.5L=二点五升"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, FractionsAndRanges) {
  const Case table[] = {
      {"占1/2。", "1/2=二分之一"},
      {"占3/4。", "3/4=四分之三"},
      {"来了3-5个人。", "3-5=三到五"},
      {"10~20人", "10~20=十到二十"},
      {"相差1.5-2.5", "1.5-2.5=一点五到二点五"},
  };
  check(std::begin(table), std::end(table));
}

TEST(ChineseReading, NewsParagraph) {
  EXPECT_EQ(normalized("2026年11月24日，国家统计局发布数据：前三季度GDP增长5.2%，"
                       "总量达到126万亿元，比2025年多2万亿。"),
            "2026年11月24日=二零二六年十一月二十四日 | 5.2%=百分之五点二 | 126=一百二十六 | "
            "2025=二零二五 | 2=两");
}

TEST(ChineseReading, TextInsideSubAndSayAsIsLeftAlone) {
  EXPECT_EQ(normalized("<sub alias=\"x\">12</sub>还有3个"), "12=x | 3=三");
}

// The say-as reader, called as the converter calls it.
std::string say_as(const char *text, const char *interpret_as, const char *format = nullptr) {
  CStr *out = CStrCreate(16);
  const int status = utts::chinese::read_say_as(text, out, interpret_as, format, nullptr);
  std::string result = status == 0 ? std::string(CStrStr(out)) : "(refused)";
  CStrDestroy(out);
  return result;
}

TEST(ChineseReading, SayAs) {
  const struct {
    const char *text, *interpret_as, *format, *spoken;
  } table[] = {
      {"1234", "cardinal", nullptr, "一千二百三十四"},
      {"2", "number", nullptr, "二"},
      {"2", "ordinal", nullptr, "第二"},
      {"2026", "digits", nullptr, "二零二六"},
      {"13812345678", "telephone", nullptr, "幺三八 幺二三四 五六七八"},
      {"A1b", "characters", nullptr, "A 一 b"},
      {"2026-11-24", "date", nullptr, "二零二六年十一月二十四日"},
      {"24/11/2026", "date", "dmy", "二零二六年十一月二十四日"},
      {"11/24/2026", "date", "mdy", "二零二六年十一月二十四日"},
      {"11-24", "date", "md", "十一月二十四日"},
      {"2026年11月", "date", nullptr, "二零二六年十一月"},
      {"14:30", "time", nullptr, "十四点三十分"},
      {"3点", "time", nullptr, "三点"},
      {"¥12.50", "currency", nullptr, "十二元五角"},
      {"12.50", "money", nullptr, "十二元五角"},
      {"50%", "percent", nullptr, "百分之五十"},
      {"50", "percent", nullptr, "百分之五十"},
      {"abc", "cardinal", nullptr, "(refused)"},
      {"13/24", "date", "md", "(refused)"},
      {"12", "unit", nullptr, "(refused)"},
      {"22222222222222220008", "money", nullptr, "(refused)"},
  };
  for (const auto &row : table)
    EXPECT_EQ(say_as(row.text, row.interpret_as, row.format), row.spoken)
        << row.text << " as " << row.interpret_as;
}

TEST(ChineseReading, SayAsWithoutInterpretAsIsRefused) {
  EXPECT_EQ(say_as("12", nullptr), "(refused)");
}

TEST(ChineseReading, ReadersRefuseOtherText) {
  const struct {
    bool (*read)(const std::string &, std::string &);
    const char *text;
  } table[] = {
      {utts::chinese::read_date, "2026-13-01"},
      {utts::chinese::read_date, "2026-11-32"},
      {utts::chinese::read_date, "月11"},
      {utts::chinese::read_time, "25:00"},
      {utts::chinese::read_time, "12:5"},
      {utts::chinese::read_money, "12"},
      {utts::chinese::read_money, "¥-5"},
      {utts::chinese::read_money, "¥22222222222222222"},  // more yuan than units reach
                                                          // {utts::chinese::read_percent, "50"},
      {utts::chinese::read_fraction, "1/0"},
      {utts::chinese::read_telephone, "12"},
      {utts::chinese::read_code, "12a"},
      {utts::chinese::read_measure, "5 parsecs"},
      {utts::chinese::read_temperature, "5"},
      {utts::chinese::read_clock, "3点钟"},
  };
  for (const auto &row : table) {
    std::string out = "kept";
    EXPECT_FALSE(row.read(row.text, out)) << row.text;
    EXPECT_EQ(out, "kept") << row.text;
  }
}

TEST(ChineseReading, LanguageTagsPickThePack) {
  const struct {
    const char *tag, *language;
  } table[] = {
      {"zh-CN", "zh"}, {"zh", "zh"}, {"ZH-hans", "zh"}, {"zh_TW", "zh"}, {"cmn", "zh"},
      {"en-US", "en"}, {"en", "en"}, {"fr-FR", "en"},   {"", "en"},      {"x\"y", "en"},
  };
  for (const auto &row : table)
    EXPECT_STREQ(utts::language_pack(row.tag).language, row.language) << row.tag;
}

}  // namespace
