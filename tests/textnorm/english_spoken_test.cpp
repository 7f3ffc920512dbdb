// english_spoken_test.cpp - what the front end says for written English: the
// bundled rules and readers over short texts, checked as the words a listener
// hears (each sub element's alias in place of its text), category by category.
#include <gtest/gtest.h>

#include <string>

#include "textnorm/english_normalizer.h"
#include "textnorm/textnorm_fixture.h"
#include "utts/text_normalizer.h"

namespace {

using namespace textnorm_test;

// The text under `node` as spoken: a sub element gives its alias, text gives
// itself.
void spoken(mxml_node_t *node, std::string &out) {
  for (mxml_node_t *child = mxmlGetFirstChild(node); child != nullptr;
       child = mxmlGetNextSibling(child)) {
    if (mxmlGetType(child) == MXML_OPAQUE) {
      out += mxmlGetOpaque(child);
    } else if (mxmlGetType(child) == MXML_ELEMENT) {
      const char *alias = mxmlElementGetAttr(child, "alias");
      if (std::string(mxmlGetElement(child)) == "sub" && alias != nullptr)
        out += alias;
      else
        spoken(child, out);
    }
  }
}

std::string escaped(const std::string &text) {
  std::string out;
  for (char c : text) {
    if (c == '&')
      out += "&amp;";
    else if (c == '<')
      out += "&lt;";
    else
      out += c;
  }
  return out;
}

// `text` normalised and spoken, with runs of blanks made one.
std::string say(const std::string &text) {
  Doc doc("<speak>" + escaped(text) + "</speak>");
  english().normalize(doc.tree);
  std::string words;
  spoken(find(doc.tree, "speak"), words);
  std::string out;
  for (char c : words) {
    if (c == ' ' && (out.empty() || out.back() == ' ')) continue;
    out += c;
  }
  if (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

struct Case {
  const char *written, *spoken;
};

void check(const Case *cases, size_t count) {
  for (size_t i = 0; i < count; ++i) EXPECT_EQ(say(cases[i].written), cases[i].spoken);
}

#define CHECK_TABLE(table) check(table, sizeof table / sizeof *table)

TEST(EnglishSpoken, Years) {
  const Case cases[] = {
      {"in 1994", "in nineteen ninety-four"},
      {"in 2006", "in two thousand six"},
      {"in 2012", "in twenty twelve"},
      {"in 1905", "in nineteen oh five"},
      {"in 1900", "in nineteen hundred"},
      {"in 2000", "in two thousand"},
      {"in 2010", "in twenty ten"},
      {"in 1066", "in ten sixty-six"},
      {"since 1999", "since nineteen ninety-nine"},
      {"by 2030", "by twenty thirty"},
      {"until 1989", "until nineteen eighty-nine"},
      {"from 1776", "from seventeen seventy-six"},
      {"before 1800", "before eighteen hundred"},
      {"after 2001", "after two thousand one"},
      {"during 1942", "during nineteen forty-two"},
      {"the year 1812", "the year eighteen twelve"},
      {"born 1950", "born nineteen fifty"},
      {"founded 1850", "founded eighteen fifty"},
      {"est. 1901", "est. nineteen oh one"},
      {"through 2020", "through twenty twenty"},
      {"circa 1450", "circa fourteen fifty"},
      {"c. 1450", "c. fourteen fifty"},
      {"the summer of 1969", "the summer of nineteen sixty-nine"},
      {"in early 2020", "in early twenty twenty"},
      {"mid-2015", "mid-twenty fifteen"},
      {"In 1984 it rained.", "In nineteen eighty-four it rained."},
      {"Titanic (1997)", "Titanic (nineteen ninety-seven)"},
      {"in 300 BC", "in three hundred BC"},
      {"AD 1000 or 1000 AD", "AD one thousand or one thousand AD"},
      {"the class of '94", "the class of 'ninety-four"},
      {"1990-1995", "nineteen ninety to nineteen ninety-five"},
      {"1939\xE2\x80\x93"
       "1945",
       "nineteen thirty-nine to nineteen forty-five"},
      {"the 2012-13 season", "the twenty twelve to thirteen season"},
      {"1999-00", "nineteen ninety-nine to oh oh"},
      {"from 1914 to 1918", "from nineteen fourteen to nineteen eighteen"},
      {"between 1990 and 1995", "between nineteen ninety and nineteen ninety-five"},
      {"1960 through 1969", "nineteen sixty through nineteen sixty-nine"},
      // From 1900 to 2099 without a separator, a year wherever it stands.
      {"fiscal 2019", "fiscal twenty nineteen"},
      {"The 2020 Olympics", "The twenty twenty Olympics"},
      {"Q3 2021.", "Q3 twenty twenty-one."},
      {"1999, 2000, 2001", "nineteen ninety-nine, two thousand, two thousand one"},
      // Not years: a separated number, an earlier number without a year's
      // context, decimals, a number inside a word.
      {"in 1,994 cases", "in one thousand nine hundred ninety-four cases"},
      {"scored 1776 points", "scored one thousand seven hundred seventy-six points"},
      {"2019.5", "two thousand nineteen point five"},
      {"FY2019", "FY2019"},
      {"in 30 days", "in thirty days"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, Decades) {
  const Case cases[] = {
      {"the 1980s", "the nineteen eighties"},
      {"the 1990s", "the nineteen nineties"},
      {"the 1900s", "the nineteen hundreds"},
      {"the 1800s", "the eighteen hundreds"},
      {"the 2000s", "the two thousands"},
      {"the 2010s", "the twenty tens"},
      {"the 1920s", "the nineteen twenties"},
      {"the 1970's", "the nineteen seventies"},
      {"the '90s", "the nineties"},
      {"the \xE2\x80\x99"
       "60s",
       "the sixties"},
      {"the 80's", "the eighties"},
      {"in her 20s", "in her twenties"},
      {"the 50s", "the fifties"},
      {"mid-1990s", "mid-nineteen nineties"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, DatesWithMonthNames) {
  const Case cases[] = {
      // Month first.
      {"July 25, 2012", "July twenty-fifth, twenty twelve"},
      {"July 25 2012", "July twenty-fifth, twenty twelve"},
      {"July 25th, 2012", "July twenty-fifth, twenty twelve"},
      {"June 30", "June thirtieth"},
      {"June 1", "June first"},
      {"March 2", "March second"},
      {"April 3rd", "April third"},
      {"August 22nd", "August twenty-second"},
      {"December 31st, 1999", "December thirty-first, nineteen ninety-nine"},
      {"February 29, 2000", "February twenty-ninth, two thousand"},
      {"November 11, 1918", "November eleventh, nineteen eighteen"},
      {"October 12, 1492", "October twelfth, fourteen ninety-two"},
      {"May 8, 1945", "May eighth, nineteen forty-five"},
      {"September 9", "September ninth"},
      {"January 20, 2009", "January twentieth, two thousand nine"},
      // Abbreviated, with and without a dot, in capitals.
      {"Jan. 15", "January fifteenth"},
      {"Jan 15", "January fifteenth"},
      {"Feb. 3, 2011", "February third, twenty eleven"},
      {"Mar 7", "March seventh"},
      {"Apr. 21", "April twenty-first"},
      {"Jun 12", "June twelfth"},
      {"Jul. 4", "July fourth"},
      {"Aug 19, 2008", "August nineteenth, two thousand eight"},
      {"Sep. 5", "September fifth"},
      {"Sept. 11, 2001", "September eleventh, two thousand one"},
      {"SEPT 15", "September fifteenth"},
      {"Oct 31", "October thirty-first"},
      {"Nov. 23", "November twenty-third"},
      {"Dec 25", "December twenty-fifth"},
      {"JAN 1", "January first"},
      {"DECEMBER 7, 1941", "December seventh, nineteen forty-one"},
      {"Jan-15-2020", "January fifteenth, twenty twenty"},
      {"march 3", "March third"},
      // Day first, with or without "the" and "of".
      {"25 July 2012", "the twenty-fifth of July, twenty twelve"},
      {"25 July", "the twenty-fifth of July"},
      {"the 25th of July", "the twenty-fifth of July"},
      {"25th of July", "the twenty-fifth of July"},
      {"The 4th of July", "the fourth of July"},
      {"on the 1st of May", "on the first of May"},
      {"1 January 2000", "the first of January, two thousand"},
      {"3 Dec. 2015", "the third of December, twenty fifteen"},
      {"11 Nov 1918", "the eleventh of November, nineteen eighteen"},
      {"5 MAY 2005", "the fifth of May, two thousand five"},
      {"15-Jan-2020", "the fifteenth of January, twenty twenty"},
      {"22nd of February, 1732", "the twenty-second of February, seventeen thirty-two"},
      {"2 June", "the second of June"},
      // Ranges of days.
      {"July 25-27", "July twenty-fifth to twenty-seventh"},
      {"Aug. 1\xE2\x80\x93"
       "3, 2012",
       "August first to third, twenty twelve"},
      {"March 3rd - 5th", "March third to fifth"},
      {"July 27-25", "July twenty-seven twenty-five"},
      // Month and year.
      {"May 2012", "May twenty twelve"},
      {"January 2000", "January two thousand"},
      {"in June 1944", "in June nineteen forty-four"},
      {"Oct. 2019", "October twenty nineteen"},
      {"March, 1990", "March nineteen ninety"},
      // Words that are not months stay as they are.
      {"may 5, 2012", "May fifth, twenty twelve"},
      {"may be 2 or 3", "may be two or three"},
      {"Mayor 5", "Mayor five"},
      {"Marching 2", "Marching two"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, NumericDates) {
  const Case cases[] = {
      // Year first, with hyphens, slashes or dots: said month first.
      {"2016-07-03", "July third, twenty sixteen"},
      {"2016/07/03", "July third, twenty sixteen"},
      {"2016.07.03", "July third, twenty sixteen"},
      {"2001-9-11", "September eleventh, two thousand one"},
      {"1999-12-31", "December thirty-first, nineteen ninety-nine"},
      // Month first, as in American use.
      {"11/21/2026", "November twenty-first, twenty twenty-six"},
      {"7/4/1776", "July fourth, seventeen seventy-six"},
      {"01/02/2005", "January second, two thousand five"},
      {"11/17/05", "November seventeenth, oh five"},
      {"3/14/15", "March fourteenth, fifteen"},
      {"12-25-2020", "December twenty-fifth, twenty twenty"},
      {"6/1/99", "June first, ninety-nine"},
      // Day first when the first number cannot be a month, or with dots.
      {"25/12/2020", "the twenty-fifth of December, twenty twenty"},
      {"31/01/99", "the thirty-first of January, ninety-nine"},
      {"15.01.2020", "the fifteenth of January, twenty twenty"},
      {"1.5.2019", "the first of May, twenty nineteen"},
      {"24.12.03", "the twenty-fourth of December, oh three"},
      // In a sentence.
      {"Due 11/21/2026, paid 1/2/2005.",
       "Due November twenty-first, twenty twenty-six, paid January second, two thousand five."},
      {"Updated 2020-03-15.", "Updated March fifteenth, twenty twenty."},
      // Not a date: a version.
      {"version 1.2.3", "version one point two.three"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, Times) {
  const Case cases[] = {
      {"10:30", "ten thirty"},
      {"7:05", "seven oh five"},
      {"18:00", "eighteen o'clock"},
      {"12:00", "twelve o'clock"},
      {"0:45", "zero forty-five"},
      {"23:59", "twenty-three fifty-nine"},
      {"14:10:30", "fourteen hours ten minutes and thirty seconds"},
      {"09:00:01", "nine hours and one second"},
      {"1:01:05", "one hour one minute and five seconds"},
      {"14:10:00", "fourteen ten"},
      // a.m. and p.m. in every spelling, with or without a blank.
      {"5pm", "five p m"},
      {"5 pm", "five p m"},
      {"5 PM", "five p m"},
      {"5 p.m.", "five p m"},
      {"5 P.M.", "five p m"},
      {"5 p. m.", "five p m"},
      {"11am", "eleven a m"},
      {"11 a.m.", "eleven a m"},
      {"1:00a.m.", "one a m"},
      {"1:00 AM", "one a m"},
      {"7:05 pm", "seven oh five p m"},
      {"9:45PM", "nine forty-five p m"},
      {"12:30 a.m.", "twelve thirty a m"},
      {"6:15 A.M.", "six fifteen a m"},
      // A dot between hours and minutes when a.m. or p.m. follows.
      {"1.59 p.m.", "one fifty-nine p m"},
      {"10.30am", "ten thirty a m"},
      // Time zones, letter by letter.
      {"5:00 PM EST", "five p m E S T"},
      {"9 a.m. ET", "nine a m E T"},
      {"14:00 UTC", "fourteen o'clock U T C"},
      {"8:30 GMT", "eight thirty G M T"},
      {"noon PST", "noon PST"},
      {"10 am (CET)", "ten a m C E T"},
      {"5 p.m. (EST) today", "five p m E S T today"},
      // Ranges.
      {"2pm-5pm", "two p m to five p m"},
      {"9am\xE2\x80\x93"
       "5pm",
       "nine a m to five p m"},
      {"9-11 a.m.", "nine to eleven a m"},
      {"2-5pm", "two to five p m"},
      {"10:00-11:30", "ten o'clock to eleven thirty"},
      {"9:30 - 10:15", "nine thirty to ten fifteen"},
      {"8:00 am - 4:30 pm", "eight a m to four thirty p m"},
      {"from 2 to 5 pm", "from two to five p m"},
      // In a sentence; not a time.
      {"Open 10:30 to 7:05 pm, or until 9 p.m.",
       "Open ten thirty to seven oh five p m, or until nine p m"},
      {"I am 5 am I", "I am five a m I"},
      {"the 5 amps", "the five amps"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, Measures) {
  const Case cases[] = {
      // Abbreviations and their plurals, the singular after one.
      {"5 min", "five minutes"},
      {"30 mins", "thirty minutes"},
      {"1 min", "one minute"},
      {"1 sec", "one second"},
      {"10 secs", "ten seconds"},
      {"2 hr", "two hours"},
      {"1 hr", "one hour"},
      {"3 hrs", "three hours"},
      {"24h", "twenty-four hours"},
      {"1 wk", "one week"},
      {"6 wks", "six weeks"},
      {"1 yr", "one year"},
      {"5 yrs", "five years"},
      {"5 kg", "five kilograms"},
      {"1 kg", "one kilogram"},
      {"3 KG", "three kilograms"},
      {"20 kgs", "twenty kilograms"},
      {"2.5 Kg", "two point five kilograms"},
      {"500 g", "five hundred grams"},
      {"500g", "five hundred grams"},
      {"200 mg", "two hundred milligrams"},
      {"10 lbs", "ten pounds"},
      {"1 lb", "one pound"},
      {"8 oz", "eight ounces"},
      {"10 km", "ten kilometers"},
      {"1 km", "one kilometer"},
      {"10 KM", "ten kilometers"},
      {"2m", "two meters"},
      {"100 m", "one hundred meters"},
      {"60W", "sixty watts"},
      {"12V", "twelve volts"},
      {"15 cm", "fifteen centimeters"},
      {"3 mm", "three millimeters"},
      {"26.2 mi", "twenty-six point two miles"},
      {"6 ft", "six feet"},
      {"1 ft", "one foot"},
      {"100 yds", "one hundred yards"},
      {"2 L", "two liters"},
      {"3L", "three liters"},
      {"250 ml", "two hundred fifty milliliters"},
      {"5 gal", "five gallons"},
      {"60 mph", "sixty miles per hour"},
      {"60 MPH", "sixty miles per hour"},
      {"100 km/h", "one hundred kilometers per hour"},
      {"9.8 m/s", "nine point eight meters per second"},
      {"7200 rpm", "seven thousand two hundred revolutions per minute"},
      {"100 mbps", "one hundred megabits per second"},
      {"100 Mbps", "one hundred megabits per second"},
      {"1 Gbps", "one gigabit per second"},
      {"500 GB", "five hundred gigabytes"},
      {"2 TB", "two terabytes"},
      {"64 KB", "sixty-four kilobytes"},
      {"3.5 GHz", "three point five gigahertz"},
      {"50 Hz", "fifty hertz"},
      {"100W", "one hundred watts"},
      {"5 kW", "five kilowatts"},
      {"10 MW", "ten megawatts"},
      {"3000 mAh", "three thousand milliamp hours"},
      {"12 kV", "twelve kilovolts"},
      {"85 dB", "eighty-five decibels"},
      {"1,013 hPa", "one thousand thirteen hectopascals"},
      {"30 psi", "thirty p s i"},
      // Temperatures and degrees.
      {"20 \xC2\xB0"
       "C",
       "twenty degrees Celsius"},
      {"70\xC2\xB0"
       "F",
       "seventy degrees Fahrenheit"},
      {"-4 \xC2\xB0"
       "C",
       "minus four degrees Celsius"},
      {"1 \xC2\xB0"
       "C",
       "one degree Celsius"},
      {"-1 \xC2\xB0"
       "C",
       "minus one degree Celsius"},
      {"37.5\xC2\xB0"
       "C",
       "thirty-seven point five degrees Celsius"},
      {"20\xC2\xB0 C", "twenty degrees Celsius"},
      {"20\xC2\xBA"
       "C",
       "twenty degrees Celsius"},
      {"20\xE2\x84\x83", "twenty degrees Celsius"},
      {"90\xC2\xB0", "ninety degrees"},
      // Squares and cubes.
      {"5 km\xC2\xB2", "five square kilometers"},
      {"3 km\xC2\xB3", "three cubic kilometers"},
      {"100 m\xC2\xB2", "one hundred square meters"},
      {"1 m\xC2\xB3", "one cubic meter"},
      {"50 m2", "fifty square meters"},
      {"2 cm3", "two cubic centimeters"},
      {"1,200 sq ft", "one thousand two hundred square feet"},
      {"10 sq. mi.", "ten square miles."},
      {"400 ft\xC2\xB2", "four hundred square feet"},
      // Ranges.
      {"2-3 mins", "two to three minutes"},
      {"5\xE2\x80\x93"
       "10 kg",
       "five to ten kilograms"},
      {"10 - 20 km", "ten to twenty kilometers"},
      {"1-2 hrs", "one to two hours"},
      {"5 to 10 km", "five to ten kilometers"},
      {"-5 to -10 \xC2\xB0"
       "C",
       "minus five to minus ten degrees Celsius"},
      // Compounds before a noun take the singular.
      {"a 10-km walk", "a ten kilometer walk"},
      {"a 5-kg bag", "a five kilogram bag"},
      {"a 2-hr wait", "a two hour wait"},
      {"a 100-GB plan", "a one hundred gigabyte plan"},
      // Rates per unit of area, and kitchen measures.
      {"1,234/km\xC2\xB2", "one thousand two hundred thirty-four per square kilometer"},
      {"30 /sq mi", "thirty per square mile"},
      {"40 km/hr", "forty kilometers per hour"},
      {"80 kmph", "eighty kilometers per hour"},
      {"2 tbsp", "two tablespoons"},
      {"1 tsp", "one teaspoon"},
      // Words that look like units but are not, after a number.
      {"5 in the morning", "five in the morning"},
      {"5 W 42nd Street", "five W forty-second Street"},
      {"24 h", "twenty-four h"},
      {"10 items", "ten items"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, Money) {
  const Case cases[] = {
      {"$12.50", "twelve dollars and fifty cents"},
      {"$1", "one dollar"},
      {"$1.01", "one dollar and one cent"},
      {"$0.99", "ninety-nine cents"},
      {"$.01", "one cent"},
      {"$.50", "fifty cents"},
      {"$100.00", "one hundred dollars"},
      {"$1,000,000", "one million dollars"},
      {"$3.5 million", "three point five million dollars"},
      {"$2 billion", "two billion dollars"},
      {"$1 trillion", "one trillion dollars"},
      {"$40 thousand", "forty thousand dollars"},
      {"$3bn", "three billion dollars"},
      {"$2.5bn", "two point five billion dollars"},
      {"$5m", "five million dollars"},
      {"$5M", "five million dollars"},
      {"$10k", "ten thousand dollars"},
      {"\xE2\x82\xAC"
       "5",
       "five euros"},
      {"\xE2\x82\xAC"
       "1",
       "one euro"},
      {"\xE2\x82\xAC"
       "2.50",
       "two euros and fifty cents"},
      {"\xE2\x82\xAC"
       "3 million",
       "three million euros"},
      {"20 \xE2\x82\xAC", "twenty euros"},
      {"1.50\xE2\x82\xAC", "one euro and fifty cents"},
      {"\xC2\xA3"
       "5",
       "five pounds"},
      {"\xC2\xA3"
       "1",
       "one pound"},
      {"\xC2\xA3"
       "5.50",
       "five pounds and fifty pence"},
      {"\xC2\xA3"
       "0.50",
       "fifty pence"},
      {"\xC2\xA3"
       "0.01",
       "one penny"},
      {"\xC2\xA3"
       "1,200",
       "one thousand two hundred pounds"},
      {"\xC2\xA3"
       "2bn",
       "two billion pounds"},
      {"50p", "fifty pence"},
      {"1p", "one penny"},
      {"\xC2\xA5"
       "500",
       "five hundred yen"},
      {"\xC2\xA5"
       "1,000,000",
       "one million yen"},
      {"\xE2\x82\xA9"
       "1,000",
       "one thousand won"},
      {"\xE2\x82\xA9"
       "50,000",
       "fifty thousand won"},
      {"\xE2\x82\xB9"
       "100",
       "one hundred rupees"},
      {"Rs. 500", "five hundred rupees"},
      {"\xE2\x82\xBD"
       "20",
       "twenty rubles"},
      {"99\xC2\xA2", "ninety-nine cents"},
      {"1\xC2\xA2", "one cent"},
      {"50c", "fifty cents"},
      {"US$5", "five U S dollars"},
      {"C$20", "twenty Canadian dollars"},
      {"A$1", "one Australian dollar"},
      {"USD 100", "one hundred U S dollars"},
      {"100 USD", "one hundred U S dollars"},
      {"EUR 30", "thirty euros"},
      {"CHF 10", "ten Swiss francs"},
      {"USD5", "five U S dollars"},
      {"$20-30", "twenty to thirty dollars"},
      {"$5-10 million", "five to ten million dollars"},
      {"\xC2\xA3"
       "3\xE2\x80\x93"
       "4bn",
       "three to four billion pounds"},
      {"$ 20", "twenty dollars"},
      {"\xE2\x82\xAC 15", "fifteen euros"},
      {"It costs $12.50 today.", "It costs twelve dollars and fifty cents today."},
      {"They raised $3.5 million.", "They raised three point five million dollars."},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, DigitStrings) {
  const Case cases[] = {
      {"004", "zero zero four"},
      {"007", "zero zero seven"},
      {"00", "zero zero"},
      {"02139", "zero two one three nine"},
      {"room 0812", "room zero eight one two"},
      {"1234567890", "one two three four five six seven eight nine zero"},
      {"12345678", "one two three four five six seven eight"},
      {"9780306406157", "nine seven eight zero three zero six four zero six one five seven"},
      {"code 004.", "code zero zero four."},
      // A long round number is a quantity; up to seven digits too.
      {"100000000", "one hundred million"},
      {"1234567", "one million two hundred thirty-four thousand five hundred sixty-seven"},
      {"0", "zero"},
      {"0.5", "zero point five"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, Cardinals) {
  const Case cases[] = {
      {"0", "zero"},
      {"7", "seven"},
      {"13", "thirteen"},
      {"42", "forty-two"},
      {"100", "one hundred"},
      {"101", "one hundred one"},
      {"999", "nine hundred ninety-nine"},
      {"1,000", "one thousand"},
      {"1,001", "one thousand one"},
      {"12,345", "twelve thousand three hundred forty-five"},
      {"100,000", "one hundred thousand"},
      {"1,234,567", "one million two hundred thirty-four thousand five hundred sixty-seven"},
      {"2,000,300", "two million three hundred"},
      {"1,000,000,000", "one billion"},
      {"7,000,000,000,000", "seven trillion"},
      {"1,000,000,000,000,000", "one quadrillion"},
      {"1,000,000,000,000,000,000", "one quintillion"},
      {"2,500,000,000,000,000,001", "two quintillion five hundred quadrillion one"},
      {"999,999,999,999,999,999,999",
       "nine hundred ninety-nine quintillion nine hundred ninety-nine quadrillion nine hundred "
       "ninety-nine trillion nine hundred ninety-nine billion nine hundred ninety-nine million "
       "nine hundred ninety-nine thousand nine hundred ninety-nine"},
      {"-12", "minus twelve"},
      {"-1,500", "minus one thousand five hundred"},
      {"3.14", "three point one four"},
      {"1,234.5", "one thousand two hundred thirty-four point five"},
      {"2500", "two thousand five hundred"},
      {"65536", "sixty-five thousand five hundred thirty-six"},
      {"COVID-19", "COVID-nineteen"},
      {"pages 10-12", "pages ten-twelve"},
      {"A 2,000-year-old coin.", "A two thousand-year-old coin."},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, OrdinalsPercentsAndFractions) {
  const Case cases[] = {
      {"1st", "first"},
      {"2nd", "second"},
      {"3rd", "third"},
      {"4th", "fourth"},
      {"5th", "fifth"},
      {"8th", "eighth"},
      {"9th", "ninth"},
      {"11th", "eleventh"},
      {"12th", "twelfth"},
      {"13th", "thirteenth"},
      {"20th", "twentieth"},
      {"21st", "twenty-first"},
      {"22nd", "twenty-second"},
      {"23rd", "twenty-third"},
      {"40th", "fortieth"},
      {"99th", "ninety-ninth"},
      {"100th", "one hundredth"},
      {"101st", "one hundred first"},
      {"112th", "one hundred twelfth"},
      {"1,000th", "one thousandth"},
      {"1000000th", "one millionth"},
      {"the 21ST century", "the twenty-first century"},
      {"50%", "fifty percent"},
      {"-2.5 %", "minus two point five percent"},
      {"100%", "one hundred percent"},
      {"5-10%", "five to ten percent"},
      {"1/2", "one half"},
      {"3/4", "three quarters"},
      {"1/3", "one third"},
      {"2/3", "two thirds"},
      {"5/8", "five eighths"},
      {"2 1/2 cups", "two and a half cups"},
      {"1 3/4", "one and three quarters"},
      {"3 1/3", "three and a third"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, TelephoneNumbers) {
  const Case cases[] = {
      {"(555) 123-4567", "five five five, one two three, four five six seven"},
      {"+1 (555) 123-4567", "plus one, five five five, one two three, four five six seven"},
      {"1-800-555-0199", "one, eight zero zero, five five five, zero one nine nine"},
      {"555-123-4567", "five five five, one two three, four five six seven"},
      {"555-0199", "five five five, zero one nine nine"},
      {"0800 123 4567", "zero eight zero zero, one two three, four five six seven"},
      {"+44 20 7946 0958", "plus four four, two zero, seven nine four six, zero nine five eight"},
  };
  CHECK_TABLE(cases);
}

// Text that looks like one category at first sight and is another.
TEST(EnglishSpoken, LookAlikes) {
  const Case cases[] = {
      {"2021-13-45", "two thousand twenty-one-thirteen-forty-five"},
      {"13/14/2020", "thirteen fourteen two thousand twenty"},
      {"1/2 cup", "one half cup"},
      {"1/2 tsp", "one half tsp"},
      {"at 4am.", "at four a m."},
      {"the 5 kgs", "the five kilograms"},
      {"No, I will not.", "No, I will not."},
      {"No. 5", "number five"},
      {"Dr. Smith & Mr. Jones", "doctor Smith and mister Jones"},
      {"St. Louis, on Elm St. today", "saint Louis, on Elm street today"},
  };
  CHECK_TABLE(cases);
}

TEST(EnglishSpoken, Everything) {
  EXPECT_EQ(say("On July 25, 2012 at 5pm EST, 2-3 mins after the 1980s ended, "
                "$.01 bought 1 kg."),
            "On July twenty-fifth, twenty twelve at five p m E S T, two to three minutes after "
            "the nineteen eighties ended, one cent bought one kilogram.");
}

}  // namespace
