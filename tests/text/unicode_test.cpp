// unicode_test.cpp - where the UTF-8 <-> UTF-16 converters stop and what they
// keep, byte widening with sign extension, and the exact "&(0x..)" rendering.
#include <gtest/gtest.h>

#include "text/unicode_guard.h"

namespace {

using namespace std::string_literals;
constexpr uint32_t kZT = BSR_ZERO_TERMINATED;

struct Decode {
  std::string src;
  uint32_t size;
  std::u16string want;
  uint32_t len = kWhole;
};
struct Encode {
  std::u16string src;
  uint32_t size;
  std::string want;
  uint32_t len = kWhole;
};

TEST(UnicodeConversion, DecoderTable) {
  const Decode cases[] = {
      {"\xE4\xB8\xAD", 8, u"\u4E2D", kZT},
      {"\xE4\xB8\xAD", 1, u"", kZT},
      {"abc", 1, u""},
      {"\x7F\xC2\x80\xDF\xBF", 8, u"\x7F\u0080\u07FF"},
      {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", 8, u"\u0800\uD7FF\uE000\uFFFF"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", 8, u"\U00010000\U0010FFFF"},
      {"\xE4\xB8\xAD", 8, u"", 2},
      {"\xE4\xB8\xAD", 8, u"\u4E2D", 3},
      {"ab\xF0\x9F\x98\x80", 8, u"ab", 2},
      {"ab\xF0\x9F\x98\x80", 8, u"ab", 3},
      {"ab\xF0\x9F\x98\x80", 8, u"ab", 4},
      {"ab\xF0\x9F\x98\x80", 8, u"ab", 5},
      {"a\xF0\x9F\x98\x80z", 2, u"a"},
      {"a\xF0\x9F\x98\x80z", 3, u"a"},  // no room for both halves
      {"a\xF0\x9F\x98\x80z", 4, u"a\U0001F600"},
      {"a\xF0\x9F\x98\x80z", 5, u"a\U0001F600z"},
      {"a\0b"s, 8, u"a\0b"s},
      {"a\0b"s, 8, u"a", kZT},
  };
  for (const Decode &c : cases)
    EXPECT_TRUE(to16(c.src, c.size, c.want, c.len)) << c.src << " len " << c.len;
}

// Each ill-formed sequence stops the conversion right before it.
TEST(UnicodeConversion, IllFormedUtf8StopsConversion) {
  const char *bad[] = {"\xC0\x80",
                       "\xC1\xBF",
                       "\xE0\x9F\xBF",
                       "\xF0\x8F\xBF\xBF",  // overlong
                       "\xED\xA0\x80",
                       "\xED\xBF\xBF",  // surrogates
                       "\xF4\x90\x80\x80",
                       "\xF5\x80\x80\x80",
                       "\xF8\x88\x80\x80\x80",
                       "\xFC\x84\x80\x80\x80\x80",
                       "\x80",
                       "\xBF\x41",
                       "\xE4\x41\xAD",
                       "\xE4\xB8\xC0",
                       "\xC3\xC3\xA9",
                       "\xFE",
                       "\xFF"};
  for (const char *b : bad) {
    EXPECT_TRUE(to16("ok\xC3\xA9"s + b + "tail\xE4\xB8\xAD", 32, u"ok\u00E9")) << b;
    EXPECT_TRUE(to16(b + "tail"s, 32, u"")) << b;
  }
}

TEST(UnicodeConversion, EncoderTable) {
  const Encode cases[] = {
      {u"\x41\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF", 32,
       "\x41\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
      {u"\U00010000\U0010FFFF", 16, "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
      {u"\U0001F600", 8, "\xF0\x9F\x98\x80", kZT},
      {{u'a', 0xDC00, u'b'}, 16, "a"},
      {{0xDC00}, 16, ""},
      {{u'a', 0xD800, u'b'}, 16, "a"},
      {{u'a', 0xD800, 0xD800, 0xDC00}, 16, "a"},
      {{u'a', 0xDE00, 0xD83D}, 16, "a"},
      {u"a\U0001F600", 16, "a", 2},  // high surrogate ends the counted source
      {u"a\u4E2Db", 2, "a"},
      {u"a\u4E2Db", 4, "a"},
      {u"a\u4E2Db", 5, "a\xE4\xB8\xAD"},
      {u"\U0001F600", 4, ""},
      {u"\U0001F600", 5, "\xF0\x9F\x98\x80"},
      {u"\u00E9", 2, ""},
      {u"\u00E9", 1, ""},
  };
  for (const Encode &c : cases)
    EXPECT_TRUE(to8(c.src, c.size, c.want, c.len))
        << ::testing::PrintToString(c.src) << " len " << c.len;
}

// The block-wise paths must stop on the exact character whatever its
// offset, and fill a small target exactly.
TEST(UnicodeConversion, StopsAtExactPositionInsideLongRuns) {
  const std::pair<std::string, std::u16string> runs[] = {{"x", u"x"},
                                                         {"\xC3\xA9", u"\u00E9"},
                                                         {"\xE4\xB8\xAD", u"\u4E2D"},
                                                         {"\xF0\x9F\x98\x80", u"\U0001F600"}};
  for (const auto &run : runs) {
    std::string s8, tail8 = "\xED\xA0\x80" + std::string(40, 'y');
    std::u16string s16, tail16 = char16_t(0xDC00) + std::u16string(40, u'y');
    for (int count = 0; count < 40; ++count, s8 += run.first, s16 += run.second) {
      EXPECT_TRUE(to16(s8 + tail8, 200, s16)) << count;
      EXPECT_TRUE(to8(s16 + tail16, 200, s8)) << count;
      const uint32_t size = count + 1;
      EXPECT_TRUE(to16(std::string(100, 'q'), size, std::u16string(size - 1, u'q')));
      std::string e9s;
      for (uint32_t i = 0; i < (size - 1) / 2; ++i) e9s += "\xC3\xA9";
      EXPECT_TRUE(to8(std::u16string(100, 0xE9), size, e9s));
    }
  }
}

TEST(UnicodeConversion, NullArgumentsAndZeroSize) {
  Target<bsr_wchar> w1(4), w2(4), w3(4), none16(0);
  Target<char> n1(4), n2(4), none8(0);
  EXPECT_TRUE(w1.holds(u"", bsr_UTF8ToUTF16(nullptr, kZT, w1.data(), 4)));
  EXPECT_TRUE(w2.holds(u"", bsr_UTF8ToUTF16(nullptr, 10, w2.data(), 4)));
  EXPECT_TRUE(w3.holds(u"", bsr_Char2Unicode(nullptr, w3.data(), 4)));
  EXPECT_TRUE(n1.holds("", bsr_UTF16ToUTF8(nullptr, kZT, n1.data(), 4)));
  EXPECT_TRUE(n2.holds("", bsr_UnicodeToNCR(nullptr, n2.data(), 4)));
  EXPECT_EQ(bsr_UTF8ToUTF16("abc", 3, nullptr, 4), nullptr);
  EXPECT_EQ(bsr_UTF16ToUTF8(u"abc", 3, nullptr, 4), nullptr);
  EXPECT_EQ(bsr_Char2Unicode("abc", nullptr, 4), nullptr);
  EXPECT_STREQ(bsr_UnicodeToNCR(u"abc", nullptr, 10), "");
  bsr_UTF8ToUTF16("abc", 3, none16.data(), 0);
  bsr_Char2Unicode("abc", none16.data(), 0);
  bsr_UTF16ToUTF8(u"abc", 3, none8.data(), 0);
  bsr_UnicodeToNCR(u"abc", none8.data(), 0);
  for (int32_t n : {0, -5}) {
    bsr_Char2Word("abc", none16.data(), n);
    bsr_Unicode2Word(u"abc", none16.data(), n);
  }
  bsr_Char2Word(nullptr, none16.data(), 3);
  bsr_Char2Word("abc", nullptr, 3);
  bsr_Unicode2Word(nullptr, none16.data(), 2);
  bsr_Unicode2Word(u"abc", nullptr, 2);
  EXPECT_EQ(none16.buf, std::vector<bsr_wchar>(24, Target<bsr_wchar>::kMark));
  EXPECT_EQ(none8.buf, std::vector<char>(24, Target<char>::kMark));
}

TEST(UnicodeWidening, SignExtendsAndCopiesExactCounts) {
  Target<bsr_wchar> w(8), c(8);
  bsr_Char2Word("A\xE9\0\x7F\x80\xFF", w.data(), 6);
  EXPECT_EQ(std::u16string(w.data(), 7),
            (std::u16string{0x41, 0xFFE9, 0, 0x7F, 0xFF80, 0xFFFF, 0xA5A5}));
  const bsr_wchar src[] = {0x4E2D, 0, 0xFFFF, 0xD800, u'z'};
  bsr_Unicode2Word(src, c.data(), 4);
  EXPECT_EQ(std::u16string(c.data(), 5), (std::u16string{0x4E2D, 0, 0xFFFF, 0xD800, 0xA5A5}));
  const Decode cases[] = {{"\xE9", 8, {0xFFE9}},
                          {"a\xE4\xB8\xAD", 8, {u'a', 0xFFE4, 0xFFB8, 0xFFAD}},
                          {"abcdef", 3, u"ab"},
                          {"abcdef", 1, u""}};
  for (const Decode &d : cases) {
    Target<bsr_wchar> t(d.size);
    EXPECT_TRUE(t.holds(d.want, bsr_Char2Unicode(d.src.c_str(), t.data(), d.size))) << d.src;
  }
}

TEST(UnicodeToNCR, ExactFormAndRoomRule) {
  const Encode cases[] = {
      {u"a\u00E9b", 64, "a&(0xe9)b"},
      {u"\u4E2D", 64, "&(0x4e2d)"},
      {u"\n", 64, "&(0xa)"},
      {u"\x1F \x7E\x7F", 64, "&(0x1f) ~&(0x7f)"},
      {u"\uFFFF", 64, "&(0xffff)"},
      {u"", 64, ""},
      {u"x\U0001F600y", 64, "x&(0xd83d)&(0xde00)y"},  // one reference per unit
      {u"a\u00E9b", 6, "a"},
      {u"\u00E9", 7, ""},
      {u"\u00E9", 8, "&(0xe9)"},
      {u"\u00E9z", 8, "&(0xe9)"},
      {u"\u00E9z", 9, "&(0xe9)z"},
      {u"abc", 1, ""},
      {u"abc", 3, "ab"},
      {u"\u4E2Dab", 9, ""},  // a shorter unit after the one that does not fit is not taken
  };
  for (const Encode &c : cases) {
    Target<char> t(c.size);
    EXPECT_TRUE(t.holds(c.want, bsr_UnicodeToNCR(c.src.c_str(), t.data(), int32_t(c.size))))
        << c.want;
  }
}

}  // namespace
