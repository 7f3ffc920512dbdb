// string_routines_test.cpp - copying, searching, case, tokenising, trimming,
// replacing and numbers: the places where these routines differ from the C
// library on purpose.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "bsr_string.h"

namespace {

TEST(StringCopy, NullsAndTheNeverTerminatingBoundedCopy) {
  EXPECT_EQ(bsr_strlen(nullptr), 0u);
  EXPECT_EQ(bsr_wcslen(nullptr), 0u);
  EXPECT_EQ(bsr_wcslen(u"中文x"), 3u);
  char dst[8] = "xxxxxxx";
  bsr_strcpy(dst, nullptr);  // a null source makes the empty string
  EXPECT_STREQ(dst, "");
  bsr_strcpy(nullptr, "x");
  memset(dst, '#', sizeof dst);
  bsr_strncpy(dst, "hello", 3);  // cut: no terminator, no padding
  EXPECT_EQ(std::string(dst, 4), "hel#");
  memset(dst, '#', sizeof dst);
  bsr_strncpy(dst, "hi", 6);  // stops after the copied terminator
  EXPECT_EQ(std::string(dst, 4), std::string("hi\0#", 4));
  memset(dst, '#', sizeof dst);
  bsr_strncpy(dst, "hi", 0);  // the first unit is written all the same
  EXPECT_EQ(std::string(dst, 2), std::string("\0#", 2));
  bsr_wchar w[8] = u"ab";
  bsr_wcscat(w, u"中");
  bsr_wcscat(w, nullptr);
  EXPECT_EQ(std::u16string(w), u"ab中");
}

TEST(StringCopy, RuntimeHeapDuplicatesAlwaysTakeNPlusOne) {
  char *cut = bsr_strndup("abcdef", 3), *whole = bsr_strndup("ab", 10);
  const char unterminated[3] = {'x', 'y', 'z'};
  char *part = bsr_strndup(unterminated, 2);  // never reads past n units
  EXPECT_STREQ(cut, "abc");
  EXPECT_STREQ(whole, "ab");
  EXPECT_STREQ(part, "xy");
  bsr_wchar *w = bsr_wcsndup(u"中文字", 2);
  EXPECT_EQ(std::u16string(w), u"中文");
  for (void *p : {static_cast<void *>(cut), static_cast<void *>(whole), static_cast<void *>(part),
                  static_cast<void *>(w)})
    free(p);
  EXPECT_EQ(bsr_strdup(nullptr), nullptr);
}

TEST(StringSearch, CharacterSearchReadsBytesSigned) {
  const char *s = "caf\xE9!";
  EXPECT_EQ(bsr_strchr("abc", 0), nullptr);  // the terminator never matches
  EXPECT_EQ(bsr_strchr(s, 0xE9), nullptr);
  EXPECT_EQ(bsr_strchr(s, -23), s + 3);
  const bsr_wchar *w = u"a\u00E9b";
  EXPECT_EQ(bsr_wcschr(w, 0xE9), w + 1);
}

TEST(StringSearch, Substrings) {
  const char *abc = "abc", *hay = "aab aabab", *hw = "Hello World";
  EXPECT_EQ(bsr_strstr(abc, ""), abc);
  EXPECT_EQ(bsr_strstr("", "a"), nullptr);
  EXPECT_EQ(bsr_strstr("", ""), nullptr);
  EXPECT_EQ(bsr_strstr(hay, "abab"), hay + 5);
  EXPECT_EQ(bsr_stristr(hw, "wORLD"), hw + 6);
  EXPECT_EQ(bsr_stristr("\xC9t\xC9", "\xE9t"), nullptr);  // no folding beyond ASCII
  const bsr_wchar *w = u"xx中文yy", *ww = u"Straße ABC";
  EXPECT_EQ(bsr_wcsstr(w, u"文y"), w + 3);
  EXPECT_EQ(bsr_wcsstr(w, u"yyy"), nullptr);  // the haystack ends inside a partial match
  EXPECT_EQ(bsr_wcsistr(ww, u"abc"), ww + 7);
}

TEST(StringCase, AsciiOnly) {
  char s[] = "Hello, W\xC3\xB6rld z{";
  bsr_strupr(s);
  EXPECT_STREQ(s, "HELLO, W\xC3\xB6RLD Z{");
  bsr_wchar w[] = u"éAbZ@[";
  bsr_wcslwr(w);
  EXPECT_EQ(std::u16string(w), u"éabz@[");
  EXPECT_EQ(bsr_tolower('A'), 'a');
  EXPECT_EQ(bsr_tolower('['), '[');
  EXPECT_EQ(bsr_toupper('z'), 'Z');
  EXPECT_EQ(bsr_toupper(0xE9), 0xE9);
}

TEST(StringTokenize, CallerHeldIndexAndSplit) {
  char s[] = ",,a,,b,";
  uint32_t pos = 0;
  EXPECT_STREQ(bsr_strtok(s, &pos, ","), "a");
  EXPECT_EQ(pos, 4u);  // just past the delimiter that ended the token
  EXPECT_STREQ(bsr_strtok(s, &pos, ","), "b");
  EXPECT_EQ(bsr_strtok(s, &pos, ","), nullptr);
  EXPECT_EQ(pos, 7u);
  EXPECT_EQ(bsr_strtok(s, nullptr, ","), nullptr);
  char a[] = "x y", b[] = "1;2";  // two tokenisations interleaved
  uint32_t pa = 0, pb = 0;
  EXPECT_STREQ(bsr_strtok(a, &pa, " "), "x");
  EXPECT_STREQ(bsr_strtok(b, &pb, ";"), "1");
  EXPECT_STREQ(bsr_strtok(a, &pa, " "), "y");
  EXPECT_EQ(pa, 3u);  // a final token leaves the index at the end
  char t[] = ",,a,,b,";
  char *out[4] = {};
  EXPECT_EQ(bsr_strsplit(t, ",", out), 2);
  EXPECT_STREQ(out[1], "b");
  char hi[] =
      "a\xA0"
      "b",
       delim[] = "\xA0";  // delimiters are read as signed bytes too
  EXPECT_EQ(bsr_strsplit(hi, delim, out), 2);
  bsr_wchar w[] = u"中 文\t字";
  bsr_wchar *wout[4] = {};
  EXPECT_EQ(bsr_wcssplit(w, u" \t", wout), 3);
  EXPECT_EQ(std::u16string(wout[2]), u"字");
}

TEST(StringTrim, BothEnds) {
  struct Case {
    const char *in, *set, *out;
    uint32_t len;
  };
  for (const Case &c :
       {Case{"  x  ", " ", "x", 1}, Case{"   ", " ", "", 0}, Case{"\t a b \n", " \t\n", "a b", 3},
        Case{" keep ", nullptr, " keep ", 6}}) {
    std::string s = c.in;
    EXPECT_EQ(bsr_strtrim(s.data(), c.set), c.len) << c.in;
    EXPECT_STREQ(s.c_str(), c.out);
  }
  bsr_wchar w[] = u"··中··";
  EXPECT_EQ(bsr_wcstrim(w, u"·"), 1u);
}

TEST(StringReplace, SizingPassThenWritingPass) {
  EXPECT_EQ(bsr_strrep("aaaa", "aa", "b", nullptr), 2u);
  EXPECT_EQ(bsr_strrep("aaa", "aa", "xyz", nullptr), 4u);  // non-overlapping: one match
  EXPECT_EQ(bsr_strrep("abcabc", "abc", "", nullptr), 0u);
  EXPECT_EQ(bsr_strrep("abc", "", "x", nullptr), 0u);
  EXPECT_EQ(bsr_strrep(nullptr, "a", "x", nullptr), 0u);
  EXPECT_EQ(bsr_strrep("abc", "a", nullptr, nullptr), 0u);
  const char *src = "a-b-c";
  uint32_t need = bsr_strrep(src, "-", "<->", nullptr);
  std::string big(need + 1, '#');
  EXPECT_EQ(bsr_strrep(src, "-", "<->", big.data()), need);
  EXPECT_STREQ(big.c_str(), "a<->b<->c");
  EXPECT_EQ(strlen(big.c_str()), need);
  bsr_wchar w[16];
  EXPECT_EQ(bsr_wcsrep(u"中x中", u"中", u"zh", w), 5u);
  EXPECT_EQ(std::u16string(w), u"zhxzh");
}

TEST(StringNumbers, FormatAndParse) {
  struct Case {
    int32_t value, radix;
    const char *text;
  };
  char buf[40];
  for (const Case &c :
       {Case{-255, 16, "-ff"}, Case{0, 10, "0"}, Case{5, 2, "101"}, Case{35, 36, "z"},
        Case{INT32_MIN, 10, "-2147483648"}, Case{42, 0, ""}, Case{42, 1, ""}})
    EXPECT_STREQ(bsr_itoa(c.value, buf, c.radix), c.text) << c.value << " radix " << c.radix;
  EXPECT_EQ(bsr_itoa(42, nullptr, 10), nullptr);
  bsr_wchar w[40];
  EXPECT_EQ(std::u16string(bsr_itow(-4096, w, 16)), u"-1000");
  EXPECT_EQ(bsr_atoi("  \t-42x"), -42);
  EXPECT_EQ(bsr_atoi("+5"), 0);   // no plus sign
  EXPECT_EQ(bsr_atoi("\n5"), 0);  // only blanks and tabs are skipped
  EXPECT_EQ(bsr_atoi("--5"), 0);
  EXPECT_EQ(bsr_atoi(nullptr), 0);
  EXPECT_EQ(bsr_atoi("2147483648"), INT32_MIN);  // wraps, no overflow check
  EXPECT_EQ(bsr_wtoi(u" 17 "), 17);
  EXPECT_EQ(bsr_wtoi(u"１２"), 0);  // full-width digits are not digits
}

}  // namespace
