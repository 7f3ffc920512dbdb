/* tag_schema_test.cpp - the SSML tag schema: exact names and lists, and the
 * shape every list keeps (sorted, single spaces, a space at both ends). */
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "ssml_tags.h"

namespace {

using Accessor = const bsr_wchar *(*)(void);

struct Entry {
  const char *accessor;
  Accessor fn;
  const char16_t *expected;
};

const Entry kSchema[] = {
    {"ParaTagName", ParaTagName, u"p"},
    {"SentenceTagName", SentenceTagName, u"s"},
    {"TokenTagName", TokenTagName, u"token"},
    {"WordTagName", WordTagName, u"word"},
    {"LangTagName", LangTagName, u"lang"},
    {"BreakTagName", BreakTagName, u"break"},
    {"SubTagName", SubTagName, u"sub"},
    {"PhonemeTagName", PhonemeTagName, u"phoneme"},
    {"SayAsTagName", SayAsTagName, u"say-as"},
    {"SyllableTagName", SyllableTagName, u"syllable"},
    {"PhoneTagName", PhoneTagName, u"phone"},
    {"ProsodyTagName", ProsodyTagName, u"prosody"},
    {"VoiceTagName", VoiceTagName, u"voice"},
    {"ParaParentTag", ParaParentTag, u" audio lang lookup prosody speak voice "},
    {"SentenceParentTag", SentenceParentTag, u" audio lang lookup p prosody speak voice "},
    {"TokenParentTag", TokenParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {"WordParentTag", WordParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {"LangParentTag", LangParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {"BreakParentTag", BreakParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {"ParaChildTag", ParaChildTag,
     u" audio break emphasis lang lookup mark phoneme prosody say-as sub s token voice w word "},
    {"SentenceChildTag", SentenceChildTag,
     u" audio break emphasis lang lookup mark phoneme prosody say-as sub token voice w word "},
    {"TokenChildTag", TokenChildTag, u" audio break emphasis mark phoneme say-as sub word "},
    {"WordChildTag", WordChildTag, u" audio break emphasis mark phoneme prosody say-as sub "},
    {"LangChildTag", LangChildTag,
     u" audio break emphasis lang lookup mark p phoneme prosody say-as sub s token voice w "},
    {"BreakChildTag", BreakChildTag, u""},
};

std::vector<std::u16string> names_of(const std::u16string &list) {
  std::vector<std::u16string> names;
  size_t start = 1;
  while (start < list.size()) {
    size_t end = list.find(u' ', start);
    names.push_back(list.substr(start, end - start));
    start = end + 1;
  }
  return names;
}

TEST(TagSchema, EveryAccessorReturnsItsExactString) {
  EXPECT_EQ(sizeof(kSchema) / sizeof(kSchema[0]), 25u);
  for (const Entry &e : kSchema) {
    ASSERT_NE(e.fn(), nullptr) << e.accessor;
    EXPECT_EQ(std::u16string(e.fn()), std::u16string(e.expected)) << e.accessor;
    EXPECT_EQ(e.fn(), e.fn()) << e.accessor << " returns one constant";
  }
}

// The lists are kept exactly as published, which is alphabetical except that
// "s" follows "sub" in the paragraph and language child lists.
TEST(TagSchema, ListsAreSingleSpacedAndSpaceDelimited) {
  for (const Entry &e : kSchema) {
    std::u16string list(e.fn());
    if (list.empty() || list.find(u' ') == std::u16string::npos) continue;  // a name
    EXPECT_EQ(list.front(), u' ') << e.accessor;
    EXPECT_EQ(list.back(), u' ') << e.accessor;
    EXPECT_EQ(list.find(u"  "), std::u16string::npos) << e.accessor;
    for (const std::u16string &name : names_of(list)) EXPECT_FALSE(name.empty()) << e.accessor;
  }
}

TEST(TagSchema, ParticularsThatMustBeKept) {
  auto has = [](const bsr_wchar *list, const char16_t *name) {
    return std::u16string(list).find(u" " + std::u16string(name) + u" ") != std::u16string::npos;
  };
  EXPECT_TRUE(has(ParaChildTag(), u"w"));
  EXPECT_TRUE(has(ParaChildTag(), u"word"));
  EXPECT_TRUE(has(LangChildTag(), u"w"));
  EXPECT_FALSE(has(LangChildTag(), u"word"));
  EXPECT_TRUE(has(WordChildTag(), u"prosody"));
  EXPECT_FALSE(has(TokenChildTag(), u"prosody"));
  EXPECT_TRUE(has(ParaChildTag(), u"s"));
  EXPECT_FALSE(has(ParaParentTag(), u"s"));
  EXPECT_TRUE(has(ParaParentTag(), u"speak"));
  // A sentence holds what a paragraph holds, less sentences.
  std::u16string para(ParaChildTag());
  para.replace(para.find(u" s "), 3, u" ");
  EXPECT_EQ(para, std::u16string(SentenceChildTag()));
}

}  // namespace
