/* tag_schema_test.cpp - the SSML tag schema: exact names and lists, and the
 * shape every list keeps (single spaces, a space at both ends). */
#include <gtest/gtest.h>

#include <string>

#include "ssml_tags.h"

namespace {

struct Entry {
  const bsr_wchar *(*fn)(void);
  const char16_t *expected;
};

const Entry kSchema[] = {
    {ParaTagName, u"p"}, {SentenceTagName, u"s"}, {TokenTagName, u"token"}, {WordTagName, u"word"},
    {LangTagName, u"lang"}, {BreakTagName, u"break"}, {SubTagName, u"sub"}, {PhonemeTagName, u"phoneme"},
    {SayAsTagName, u"say-as"}, {SyllableTagName, u"syllable"}, {PhoneTagName, u"phone"},
    {ProsodyTagName, u"prosody"}, {VoiceTagName, u"voice"},
    {ParaParentTag, u" audio lang lookup prosody speak voice "},
    {SentenceParentTag, u" audio lang lookup p prosody speak voice "},
    {TokenParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {WordParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {LangParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    {BreakParentTag, u" audio emphasis lang lookup p prosody s speak voice "},
    // Kept as published: alphabetical but for "s" after "sub".
    {ParaChildTag, u" audio break emphasis lang lookup mark phoneme prosody say-as sub s token voice w word "},
    {SentenceChildTag, u" audio break emphasis lang lookup mark phoneme prosody say-as sub token voice w word "},
    {TokenChildTag, u" audio break emphasis mark phoneme say-as sub word "},
    {WordChildTag, u" audio break emphasis mark phoneme prosody say-as sub "},
    {LangChildTag, u" audio break emphasis lang lookup mark p phoneme prosody say-as sub s token voice w "},
    {BreakChildTag, u""},
};

TEST(TagSchema, EveryAccessorReturnsItsExactConstant) {
  EXPECT_EQ(sizeof(kSchema) / sizeof(kSchema[0]), 25u);
  for (size_t k = 0; k < 25; ++k) {
    const bsr_wchar *got = kSchema[k].fn();
    ASSERT_NE(got, nullptr) << k;
    EXPECT_EQ(std::u16string(got), kSchema[k].expected) << k;
    EXPECT_EQ(kSchema[k].fn(), got) << k << ": one constant";
  }
}

}  // namespace
