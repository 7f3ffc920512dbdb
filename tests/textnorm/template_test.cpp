// The rewrite-template language: the quoted and element forms, named groups,
// escapes, and the templates that must be refused.
#include <gtest/gtest.h>

#include "textnorm/replacer_fixture.h"

namespace textnorm_test {
namespace {

std::string rewrite(const std::string &pattern, const std::string &tmpl, const std::string &text) {
  Replacer r(pattern + "\t" + tmpl);
  EXPECT_EQ(r.rejected(), 0) << tmpl;
  return r.run(text);
}

bool refused(const std::string &tmpl, const std::string &pattern = "(\\d+) ?(kg)") {
  return Replacer(pattern + "\t" + tmpl).rejected() == 1;
}

TEST(Template, NamedGroupThenText) {
  EXPECT_EQ(rewrite("(\\d+) ?(kg)", "\"?num:0 ?1\"", "12 kg"),
            "<x src=\"12 kg\"><num>[12]</num>[ kg]</x>");
}

TEST(Template, LiteralsAndGroupsShareOneTextNode) {
  EXPECT_EQ(rewrite("(\\d+)-(\\d+)", "\"from ?0 to ?1\"", "3-4"),
            "<x src=\"3-4\">[from 3 to 4]</x>");
}

TEST(Template, ElementFormNestsElements) {
  EXPECT_EQ(rewrite("(\\d+) ?(kg)", "xmeasure { xnum{\"?0\"} \" \" xunit{\"?1\"} }", "5 kg"),
            "<xmeasure src=\"5 kg\"><xnum>[5]</xnum>[ ]<xunit>[kg]</xunit></xmeasure>");
  EXPECT_EQ(rewrite("(a)", "  e{}", "a"), "<e src=\"a\"></e>");
  // Several quoted bodies and named groups inside one element.
  EXPECT_EQ(rewrite("(\\d+):(\\d+)", "xtime{\"?h:0\" \":\" \"?m:1\"}", "7:05"),
            "<xtime src=\"7:05\"><h>[7]</h>[:]<m>[05]</m></xtime>");
}

TEST(Template, EscapesTakeTheNextCharacter) {
  EXPECT_EQ(rewrite("(a)", "\"\\\"?0\\\" \\?0 \\\\\"", "a"), "<x src=\"a\">[\"a\" ?0 \\]</x>");
}

TEST(Template, EmptyTextTemplatesAddNoNode) {
  // The text before a named group is empty, so no text node is made for it.
  EXPECT_EQ(rewrite("(\\d)", "\"?d:0\"", "4"), "<x src=\"4\"><d>[4]</d></x>");
  EXPECT_EQ(rewrite("(\\d)", "\"\"", "4"), "<x src=\"4\"></x>");
}

TEST(Template, GroupThatTookNoPartIsEmpty) {
  EXPECT_EQ(rewrite("(\\d+)(%)?", "\"[?0|?1]\"", "5"), "<x src=\"5\">[[5|]]</x>");
  EXPECT_EQ(rewrite("(\\d+)(%)?", "\"?n:1\"", "5"), "<x src=\"5\"><n>[]</n></x>");
}

TEST(Template, MalformedTemplatesAreRefused) {
  EXPECT_TRUE(refused("\"?0"));            // quote not closed
  EXPECT_TRUE(refused("\"a\\"));           // escape at the end
  EXPECT_TRUE(refused("x{\"?0\""));        // element not closed
  EXPECT_TRUE(refused("x \"?0\""));        // something other than { after the name
  EXPECT_TRUE(refused("x"));               // name only
  EXPECT_TRUE(refused("{\"?0\"}"));        // no name
  EXPECT_TRUE(refused("\"?num 0\""));      // named group without ':'
  EXPECT_TRUE(refused("\"?:0\""));         // named group without a name
  EXPECT_TRUE(refused("\"?n:\""));         // named group without a number
  EXPECT_TRUE(refused("\"?0\" junk"));     // text after the template
  EXPECT_TRUE(refused("x{} y{}"));
  EXPECT_TRUE(refused("   "));
  EXPECT_FALSE(refused("\"?0\"   "));      // trailing blanks are fine
  EXPECT_FALSE(refused("x{ y{ z{\"?n:1\"} } }"));
}

}  // namespace
}  // namespace textnorm_test
