// english_reading_test.cpp - the front end's English normalisation on realistic
// sentences: the bundled rule set and readers together, checked by the aliases
// they produce.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsr_unicode.h"
#include "textnorm/english_normalizer.h"
#include "textnorm/textnorm_fixture.h"
#include "utts/english_readers.h"
#include "utts/text_normalizer.h"

namespace {

using namespace textnorm_test;

TEST(EnglishReading, Sentences) {
  const struct {
    const char *sentence, *expected;
  } table[] = {
      // Numbers
      {"The city has 1,234,567 people.",
       "1,234,567=one million two hundred thirty-four thousand five hundred sixty-seven"},
      {"It fell to -12 overnight.", "-12=minus twelve"},
      {"Pi is about 3.14159.", "3.14159=three point one four one five nine"},
      {"Only 0 were left, then 100.", "0=zero | 100=one hundred"},
      {"A 2,000-year-old coin.", "2,000=two thousand"},
      {"He finished 1st and she was 22nd, then 103rd.",
       "1st=first | 22nd=twenty-second | 103rd=one hundred third"},
      {"Add 1/2 cup and 3/4 spoon.", "1/2=one half | 3/4=three quarters"},
      {"Pages 10-12 of COVID-19 notes.", "10=ten | 12=twelve | 19=nineteen"},
      // Money and percentages
      {"The ticket costs $12.50 today.", "$12.50=twelve dollars and fifty cents"},
      {"A coffee is \xE2\x82\xAC"
       "5 and tea $1.",
       "\xE2\x82\xAC"
       "5=five euros | $1=one dollar"},
      {"They raised $3.5 million.", "$3.5 million=three point five million dollars"},
      {"Change: $0.99 or $0.01.", "$0.99=ninety-nine cents | $0.01=one cent"},
      {"Rent is \xC2\xA3"
       "1,200 a month.",
       "\xC2\xA3"
       "1,200=one thousand two hundred pounds"},
      {"Lunch is 20 \xE2\x82\xAC"
       " or 1.50\xE2\x82\xAC"
       ".",
       "20 \xE2\x82\xAC"
       "=twenty euros | 1.50\xE2\x82\xAC"
       "=one euro and fifty cents"},
      {"Sales rose 15% and costs fell -2.5 %.",
       "15%=fifteen percent | -2.5 %=minus two point five percent"},
      // Dates and times
      {"The meeting is on 2026-11-21.", "2026-11-21=November twenty-first, twenty twenty-six"},
      {"Due 11/21/2026, paid 1/2/2005.",
       "11/21/2026=November twenty-first, twenty twenty-six | 1/2/2005=January second, two "
       "thousand five"},
      {"Born on Nov. 3, 1999 and wed on March 21st.",
       "Nov. 3, 1999=November third, nineteen ninety-nine | March 21st=March twenty-first"},
      {"Open 10:30 to 7:05 pm, or until 9 p.m.",
       "10:30=ten thirty | 7:05 pm=seven oh five p m | 9 p.m.=nine p m"},
      {"The train leaves at 18:00.", "18:00=eighteen o'clock"},
      {"Prices rose in 1905 and in 2010.", "1905=nineteen oh five | 2010=twenty ten"},
      {"The 1990s ran 1990-1999.",
       "1990s=nineteen nineties | 1990-1999=nineteen ninety to nineteen ninety-nine"},
      // Telephone numbers
      {"Call (555) 123-4567 now.",
       "(555) 123-4567=five five five, one two three, four five six seven"},
      {"Fax 555-123-4567 or 555-0199.",
       "555-123-4567=five five five, one two three, four five six seven | 555-0199=five five five, "
       "zero one nine nine"},
      {"London: +44 20 7946 0958.",
       "+44 20 7946 0958=plus four four, two zero, seven nine four six, zero nine five eight"},
      // Measures
      {"It weighs 5 kg, not 1 kg.", "5 kg=five kilograms | 1 kg=one kilogram"},
      {"Winds of 10 km/h and 3.5 GHz chips.",
       "10 km/h=ten kilometers per hour | 3.5 GHz=three point five gigahertz"},
      {"It is -4 \xC2\xB0"
       "C outside, 2m of snow.",
       "-4 \xC2\xB0"
       "C=minus four degrees Celsius | 2m=two meters"},
      {"A 500 GB disk lasts 30 min.", "500 GB=five hundred gigabytes | 30 min=thirty minutes"},
      // Abbreviations
      {"Dr. Smith met Mrs. Jones on Elm St. today.", "Dr.=doctor | Mrs.=missus | St.=street"},
      {"We flew to St. Louis, e.g. for work.", "St.=saint | e.g.=for example"},
      {"See No. 5 vs. Acme Inc. in Fig. 2.",
       "No.=number | 5=five | vs.=versus | Inc.=incorporated | Fig.=figure | 2=two"},
      {"Salt &amp; pepper.", "&=and"},
      {"No, I will not.", ""},
      // Say-as elements the readers handle
      {"<say-as interpret-as=\"cardinal\">1,024</say-as>", "1,024=one thousand twenty-four"},
      {"<say-as interpret-as=\"ordinal\">3</say-as>", "3=third"},
      {"<say-as interpret-as=\"digits\">2026</say-as>", "2026=two zero two six"},
      {"<say-as interpret-as=\"characters\">IBM-7</say-as>", "IBM-7=I B M dash seven"},
      {"<say-as interpret-as=\"telephone\">+1 800 555 0100</say-as>",
       "+1 800 555 0100=plus one, eight zero zero, five five five, zero one zero zero"},
      {"<say-as interpret-as=\"date\" format=\"dmy\">21/11/2026</say-as>",
       "21/11/2026=the twenty-first of November, twenty twenty-six"},
      {"<say-as interpret-as=\"date\" format=\"ymd\">2026.11.21</say-as>",
       "2026.11.21=November twenty-first, twenty twenty-six"},
      {"<say-as interpret-as=\"date\">11/21/26</say-as>",
       "11/21/26=November twenty-first, twenty-six"},
      {"<say-as interpret-as=\"date\" format=\"md\">7-4</say-as>", "7-4=July fourth"},
      {"<say-as interpret-as=\"time\">14:05</say-as>", "14:05=fourteen oh five"},
      // Say-as the readers cannot read: unknown kind, impossible date, no digits, no kind
      {"<say-as interpret-as=\"vxml:boolean\">true</say-as>", ""},
      {"<say-as interpret-as=\"date\" format=\"mdy\">13/45/2026</say-as>", ""},
      {"<say-as interpret-as=\"cardinal\">many</say-as>", ""},
      {"<say-as>12</say-as>", ""},
  };
  for (const auto &r : table) {
    Doc doc(std::string("<speak>") + r.sentence + "</speak>");
    english().normalize(doc.tree);
    EXPECT_EQ(subs(doc.tree), r.expected) << r.sentence;
  }
}

TEST(EnglishReading, MarkupAroundTextIsKept) {
  Doc doc(
      "<speak><p><s>It is 5 kg.</s><s>Call <sub alias=\"me\">1</sub> at 10:30.</s></p></speak>");
  english().normalize(doc.tree);
  EXPECT_EQ(doc.str(),
            "<p><s>[It is ]<sub alias=\"five kilograms\">[5 kg]</sub>[.]</s>"
            "<s>[Call ]<sub alias=\"me\">[1]</sub>[ at ]<sub alias=\"ten "
            "thirty\">[10:30]</sub>[.]</s></p>");
}

// True when `s` survives a strict round trip through UTF-16 (no split or stray sequences).
bool is_utf8(const std::string &s) {
  std::vector<bsr_wchar> wide(s.size() + 1);
  std::string back(4 * s.size() + 1, '\0');
  bsr_UTF8ToUTF16(s.data(), static_cast<uint32_t>(s.size()), wide.data(),
                  static_cast<uint32_t>(wide.size()));
  bsr_UTF16ToUTF8(wide.data(), BSR_ZERO_TERMINATED, &back[0], static_cast<uint32_t>(back.size()));
  return back.c_str() == s;
}

TEST(EnglishReaders, SayAsOnOddTextGivesWholeCharactersOrRefuses) {
  const char *kinds[] = {"cardinal",  "ordinal", "digits", "characters",
                         "telephone", "date",    "time"};
  const char *texts[] = {"",
                         " ",
                         "-",
                         "+",
                         ".",
                         ",",
                         "1.2.3.4",
                         "99999999999999999999999",
                         "caf\xC3\xA9 \xE2\x82\xAC"
                         "5",
                         "12:99:99",
                         "0/0/0",
                         "--1",
                         "1e9",
                         "\xF0\x9F\x98\x80"};
  CStr *out = CStrCreate(16);
  for (const char *kind : kinds)
    for (const char *text : texts) {
      CStrErase(out, 0);
      EXPECT_TRUE(utts::read_say_as(text, out, kind, nullptr, nullptr) != 0 ||
                  is_utf8(CStrStr(out)))
          << kind << ": " << text << " -> " << CStrStr(out);
    }
  CStrErase(out, 0);
  EXPECT_EQ(utts::read_say_as("caf\xC3\xA9", out, "characters", nullptr, nullptr), 0);
  EXPECT_STREQ(CStrStr(out), "C A F \xC3\xA9");
  EXPECT_NE(utts::read_say_as(nullptr, out, "digits", nullptr, nullptr), 0);
  EXPECT_NE(utts::read_say_as("1", out, nullptr, nullptr, nullptr), 0);
  CStrDestroy(out);
}

TEST(EnglishReaders, RefuseWhatTheyCannotRead) {
  std::string out;
  EXPECT_FALSE(utts::read_money("12", out));
  EXPECT_FALSE(utts::read_money("$12 dozen", out));
  EXPECT_FALSE(utts::read_date("2026/13/01", "ymd", out));
  EXPECT_FALSE(utts::read_date("1/2", "mdy", out));
  EXPECT_FALSE(utts::read_time("25:00", out));
  EXPECT_FALSE(utts::read_time("7:61", out));
  EXPECT_FALSE(utts::read_time("7:30 xm", out));
  EXPECT_FALSE(utts::read_measure("5 parsecs", out));
  EXPECT_FALSE(utts::read_measure("5 - - km", out));
  EXPECT_FALSE(utts::read_money("$", out));
  EXPECT_FALSE(utts::read_money("$5 dozen", out));
  EXPECT_FALSE(utts::read_time("13 pm", out));
  EXPECT_FALSE(utts::read_time("10:30 XYZ", out));
  EXPECT_FALSE(utts::read_time_range("10:30", out));
  EXPECT_FALSE(utts::read_telephone("none", out));
  EXPECT_FALSE(utts::read_month_date("Smarch 3", out));
  EXPECT_EQ(out, "");  // a refusal writes nothing
}

}  // namespace
