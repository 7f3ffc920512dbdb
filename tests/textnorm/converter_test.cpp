// converter_test.cpp - converting rule elements and say-as elements into sub
// elements through registered callbacks: result shape, inner-first order,
// failures.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "hconverter.h"
#include "textnorm/textnorm_fixture.h"

namespace {

using namespace textnorm_test;

int say_twelve(const char *, CStr *out) { return CStrAppend(out, "twelve"); }
int say_upper(const char *text, CStr *out) {  // fails on null text
  for (const char *c = text; c != nullptr && *c; ++c)
    CStrAppendC(out, static_cast<char>(std::toupper(*c)));
  return text != nullptr ? 0 : 1;
}
int refuse(const char *, CStr *out) { return CStrAppend(out, "never used"), 3; }
// Spells out what it was given: "interpret-as,format,detail:text".
int record_say_as(const char *text, CStr *out, const char *as, const char *format,
                  const char *detail) {
  for (const char *s : {as, ",", format, ",", detail, ":", text})
    CStrAppend(out, s != nullptr ? s : "(null)");
  return 0;
}
int refuse_say_as(const char *, CStr *out, const char *, const char *, const char *) {
  return CStrAppend(out, "never used"), -1;
}

std::string convert(HConverter *c, const std::string &body) {
  Doc doc("<speak>" + body + "</speak>");
  HConverter_convert(c, doc.speak());
  return doc.str();
}

TEST(Converter, ElementsBecomeSubsInnerFirst) {
  HConverter *c = HConverter_create();
  EXPECT_EQ(HConverter_add(c, "xnum", say_twelve), 1);
  EXPECT_EQ(HConverter_add(c, "xup", say_upper), 1);
  EXPECT_EQ(HConverter_add(c, "xno", refuse), 1);
  EXPECT_EQ(HConverter_add(c, "xnum", say_upper), 0);  // the first callback for a name stays
  EXPECT_EQ(HConverter_add(c, nullptr, say_upper), 0);
  EXPECT_EQ(HConverter_add(c, "xa", nullptr), 0);
  HConverter_setSayAs(c, record_say_as);
  const struct {
    const char *body, *expected;
  } rows[] = {
      {"<xnum src=\"12\">12</xnum>", "<sub alias=\"twelve\">[12]</sub>"},
      // Inner elements carry no src: they keep their name, hold the spoken
      // text, and make up the outer alias with the outer element's own text.
      {"<xm src=\"12 kg\"><xnum>12</xnum> <xup>kg</xup></xm>",
       "<sub alias=\"twelve KG\">[12 kg]</sub>"},
      {"<xo src=\"w\"><b><xup>ab</xup></b>!</xo>", "<sub alias=\"AB!\">[w]</sub>"},
      {"<xup src=\"s\">a<xnum>1</xnum></xup>", "<sub alias=\"Atwelve\">[s]</sub>"},
      // The spoken form goes to the first text of a first child element.
      {"<xnum src=\"12 kg\"><num>12</num> kg</xnum>", "<sub alias=\"twelve kg\">[12 kg]</sub>"},
      {"<xnum><num>12</num> kg</xnum>", "<xnum><num>[twelve]</num>[ kg]</xnum>"},
      {"<x src=\"1/2\">one half</x>", "<sub alias=\"one half\">[1/2]</sub>"},  // no callback
      {"<x src=\"\"></x>", "<sub alias=\"\">[]</sub>"},
      {"<xno src=\"12\">12</xno>", "<sub alias=\"12\">[12]</sub>"},  // failing callback
      {"<xno>12</xno>", "<xno>[12]</xno>"},
      {"<xup src=\"q\"><b>r</b></xup>", "<sub alias=\"r\">[q]</sub>"},  // null text: callback fails
      {"<say-as interpret-as=\"date\" format=\"mdy\" detail=\"d\">1/2/03</say-as>",
       "<sub interpret-as=\"date\" format=\"mdy\" detail=\"d\" "
       "alias=\"date,mdy,d:1/2/03\">[1/2/03]</sub>"},
      {"<say-as>5</say-as>", "<sub alias=\"(null),(null),(null):5\">[5]</sub>"},
      {"<say-as interpret-as=\"digits\"><b>12</b></say-as>",
       "<say-as interpret-as=\"digits\"><b>[12]</b></say-as>"},
      {"<say-as interpret-as=\"digits\"/>", "<say-as interpret-as=\"digits\"></say-as>"},
      {"<p><s>a <xnum src=\"12\">12</xnum></s><say-as>1</say-as></p>",
       "<p><s>[a ]<sub alias=\"twelve\">[12]</sub></s><sub "
       "alias=\"(null),(null),(null):1\">[1]</sub></p>"},
  };
  for (const auto &row : rows) EXPECT_EQ(convert(c, row.body), row.expected) << row.body;

  Doc doc("<speak><xnum src=\"1\">1<xnum src=\"2\">2</xnum></xnum></speak>");
  HConverter_convert(c, find(doc.tree, "xnum"));  // the given node itself stays
  EXPECT_EQ(doc.str(), "<xnum src=\"1\">[1]<sub alias=\"twelve\">[2]</sub></xnum>");
  HConverter_delete(c);
}

TEST(Converter, SayAsLeftAloneUntilSetOrWhenRefused) {
  HConverter *c = HConverter_create();
  const std::string digits = "<say-as interpret-as=\"digits\">12</say-as>";
  const std::string kept = "<say-as interpret-as=\"digits\">[12]</say-as>";
  EXPECT_EQ(convert(c, digits), kept);
  HConverter_setSayAs(c, refuse_say_as);
  EXPECT_EQ(convert(c, digits), kept);
  HConverter_setSayAs(c, nullptr);
  EXPECT_EQ(convert(c, digits), kept);
  HConverter_convert(c, nullptr);
  HConverter_convert(nullptr, nullptr);
  HConverter_setSayAs(nullptr, record_say_as);
  EXPECT_EQ(HConverter_add(nullptr, "x", say_twelve), 0);
  HConverter_delete(c);
  HConverter_delete(nullptr);
}

}  // namespace
