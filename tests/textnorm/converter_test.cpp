// Converting rule elements and say-as elements into sub elements through
// registered callbacks: result shape, inner-first order, failures.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "hconverter.h"
#include "textnorm/xml_fixture.h"

namespace textnorm_test {
namespace {

int sayTwelve(const char *, CStr *out) { return CStrAppend(out, "twelve"); }
int sayUpper(const char *text, CStr *out) {
  if (text == nullptr) return 1;
  for (const char *c = text; *c; ++c) CStrAppendC(out, static_cast<char>(std::toupper(*c)));
  return 0;
}
int refuse(const char *, CStr *out) {
  CStrAppend(out, "never used");
  return 3;
}

struct SayAsCall {
  std::string text, interpretAs, format, detail;
  int calls = 0;
};
SayAsCall lastSayAs;
std::string orNull(const char *s) { return s ? s : "(null)"; }

int recordSayAs(const char *text, CStr *out, const char *interpretAs, const char *format,
                const char *detail) {
  lastSayAs = {orNull(text), orNull(interpretAs), orNull(format), orNull(detail),
               lastSayAs.calls + 1};
  return CStrAppend(out, "spoken");
}
int refuseSayAs(const char *, CStr *out, const char *, const char *, const char *) {
  CStrAppend(out, "never used");
  return -1;
}

class Converter : public ::testing::Test {
 protected:
  Converter() : c_(HConverter_create()) { lastSayAs = {}; }
  ~Converter() override { HConverter_delete(c_); }

  std::string convert(const std::string &body) {
    Doc doc("<speak>" + body + "</speak>");
    HConverter_convert(c_, doc.speak());
    return doc.str();
  }

  HConverter *c_;
};

TEST_F(Converter, RuleElementBecomesSubWithAlias) {
  EXPECT_EQ(HConverter_add(c_, "xnum", sayTwelve), 1);
  EXPECT_EQ(convert("<xnum src=\"12\">12</xnum>"), "<sub alias=\"twelve\">[12]</sub>");
}

TEST_F(Converter, FirstCallbackForANameStays) {
  EXPECT_EQ(HConverter_add(c_, "xnum", sayTwelve), 1);
  EXPECT_EQ(HConverter_add(c_, "xnum", sayUpper), 0);
  EXPECT_EQ(HConverter_add(c_, nullptr, sayUpper), 0);
  EXPECT_EQ(HConverter_add(c_, "xa", nullptr), 0);
  EXPECT_EQ(convert("<xnum src=\"7\">7</xnum>"), "<sub alias=\"twelve\">[7]</sub>");
}

TEST_F(Converter, NestedRuleElementsConvertInnerFirst) {
  HConverter_add(c_, "xnum", sayTwelve);
  HConverter_add(c_, "xunit", sayUpper);
  // Inner elements carry no src: they keep their name and hold the spoken
  // text, which then makes up the outer alias.
  EXPECT_EQ(convert("<xm src=\"12 kg\"><xnum>12</xnum> <xunit>kg</xunit></xm>"),
            "<sub alias=\"twelve KG\">[12 kg]</sub>");
  // Deeper nesting, and an inner element whose callback sees the text.
  EXPECT_EQ(convert("<xo src=\"w\"><b><xunit>ab</xunit></b>!</xo>"), "<sub alias=\"AB!\">[w]</sub>");
}

TEST_F(Converter, OuterAliasJoinsItsOwnAndInnerSpokenText) {
  HConverter_add(c_, "xnum", sayTwelve);
  HConverter_add(c_, "xouter", sayUpper);
  EXPECT_EQ(convert("<xouter src=\"s\">a<xnum>1</xnum></xouter>"), "<sub alias=\"Atwelve\">[s]</sub>");
}

TEST_F(Converter, SpokenFormGoesToTheFirstTextOfAFirstChildElement) {
  HConverter_add(c_, "xa", sayTwelve);
  EXPECT_EQ(convert("<xa src=\"12 kg\"><num>12</num> kg</xa>"),
            "<sub alias=\"twelve kg\">[12 kg]</sub>");
  // Without src the element stays, holding the spoken form.
  EXPECT_EQ(convert("<xa><num>12</num> kg</xa>"), "<xa><num>[twelve]</num>[ kg]</xa>");
}

TEST_F(Converter, RuleElementWithoutCallbackStillBecomesSub) {
  EXPECT_EQ(convert("<x src=\"1/2\">one half</x>"), "<sub alias=\"one half\">[1/2]</sub>");
  EXPECT_EQ(convert("<x src=\"\"></x>"), "<sub alias=\"\">[]</sub>");
}

TEST_F(Converter, FailingCallbackKeepsTheGeneratedText) {
  HConverter_add(c_, "xnum", refuse);
  EXPECT_EQ(convert("<xnum src=\"12\">12</xnum>"), "<sub alias=\"12\">[12]</sub>");
  EXPECT_EQ(convert("<xnum>12</xnum>"), "<xnum>[12]</xnum>");
}

TEST_F(Converter, CallbackGetsNullWhenTheElementDoesNotStartWithText) {
  HConverter_add(c_, "xa", sayUpper);  // fails on null text
  EXPECT_EQ(convert("<xa src=\"q\"><b>r</b></xa>"), "<sub alias=\"r\">[q]</sub>");
}

TEST_F(Converter, SayAsBecomesSubKeepingItsText) {
  HConverter_setSayAs(c_, recordSayAs);
  EXPECT_EQ(convert("<say-as interpret-as=\"date\" format=\"mdy\" detail=\"d\">1/2/03</say-as>"),
            "<sub interpret-as=\"date\" format=\"mdy\" detail=\"d\" alias=\"spoken\">[1/2/03]</sub>");
  EXPECT_EQ(lastSayAs.text, "1/2/03");
  EXPECT_EQ(lastSayAs.interpretAs, "date");
  EXPECT_EQ(lastSayAs.format, "mdy");
  EXPECT_EQ(lastSayAs.detail, "d");
  convert("<say-as>5</say-as>");
  EXPECT_EQ(lastSayAs.interpretAs, "(null)");
  EXPECT_EQ(lastSayAs.format, "(null)");
  EXPECT_EQ(lastSayAs.detail, "(null)");
}

TEST_F(Converter, SayAsLeftAloneWhenItCannotOrWillNotBeRead) {
  HConverter_setSayAs(c_, recordSayAs);
  // First child an element: not handed to the callback.
  EXPECT_EQ(convert("<say-as interpret-as=\"digits\"><b>12</b></say-as>"),
            "<say-as interpret-as=\"digits\"><b>[12]</b></say-as>");
  EXPECT_EQ(convert("<say-as interpret-as=\"digits\"/>"), "<say-as interpret-as=\"digits\"></say-as>");
  EXPECT_EQ(lastSayAs.calls, 0);
  HConverter_setSayAs(c_, refuseSayAs);
  EXPECT_EQ(convert("<say-as interpret-as=\"digits\">12</say-as>"),
            "<say-as interpret-as=\"digits\">[12]</say-as>");
  HConverter_setSayAs(c_, nullptr);
  EXPECT_EQ(convert("<say-as interpret-as=\"digits\">12</say-as>"),
            "<say-as interpret-as=\"digits\">[12]</say-as>");
}

TEST_F(Converter, SayAsIsOffUntilSet) {
  EXPECT_EQ(convert("<say-as>12</say-as>"), "<say-as>[12]</say-as>");
}

TEST_F(Converter, OtherElementsStayButTheirContentIsConverted) {
  HConverter_add(c_, "xnum", sayTwelve);
  HConverter_setSayAs(c_, recordSayAs);
  EXPECT_EQ(convert("<p><s>a <xnum src=\"12\">12</xnum></s><say-as>1</say-as></p>"),
            "<p><s>[a ]<sub alias=\"twelve\">[12]</sub></s><sub alias=\"spoken\">[1]</sub></p>");
}

TEST_F(Converter, TheGivenNodeItselfIsNotConverted) {
  HConverter_add(c_, "xnum", sayTwelve);
  Doc doc("<speak><xnum src=\"1\">1<xnum src=\"2\">2</xnum></xnum></speak>");
  HConverter_convert(c_, find(doc.tree(), "xnum"));
  EXPECT_EQ(doc.str(), "<xnum src=\"1\">[1]<sub alias=\"twelve\">[2]</sub></xnum>");
}

TEST_F(Converter, NullArgumentsDoNothing) {
  HConverter_convert(c_, nullptr);
  HConverter_convert(nullptr, nullptr);
  HConverter_setSayAs(nullptr, recordSayAs);
  EXPECT_EQ(HConverter_add(nullptr, "x", sayTwelve), 0);
  HConverter_delete(nullptr);
}

}  // namespace
}  // namespace textnorm_test
