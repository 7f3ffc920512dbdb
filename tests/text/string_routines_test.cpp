// Copying, searching, case, tokenising, trimming, replacing and numbers:
// the places where these routines differ from the C library on purpose.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "bsr_string.h"

namespace {

TEST(StringCopy, LengthsAndNulls) {
  EXPECT_EQ(bsr_strlen(nullptr), 0u);
  EXPECT_EQ(bsr_strlen("abc"), 3u);
  EXPECT_EQ(bsr_wcslen(nullptr), 0u);
  EXPECT_EQ(bsr_wcslen(u"中文x"), 3u);
}

TEST(StringCopy, CopyMakesEmptyForNullSource) {
  char dst[8] = "xxxxxxx";
  bsr_strcpy(dst, nullptr);
  EXPECT_STREQ(dst, "");
  bsr_strcpy(dst, "hey");
  EXPECT_STREQ(dst, "hey");
  bsr_strcpy(nullptr, "x");  // no effect, no crash
  bsr_strcpy(dst, dst);
  EXPECT_STREQ(dst, "hey");
  bsr_wchar w[4] = {u'q', u'q', u'q', 0};
  bsr_wcscpy(w, u"ab");
  EXPECT_EQ(std::u16string(w), u"ab");
}

TEST(StringCopy, BoundedCopyNeverTerminatesACutCopyAndNeverPads) {
  char dst[8];
  memset(dst, '#', sizeof dst);
  bsr_strncpy(dst, "hello", 3);
  EXPECT_EQ(std::string(dst, 4), "hel#");
  memset(dst, '#', sizeof dst);
  bsr_strncpy(dst, "hi", 6);
  EXPECT_EQ(std::string(dst, 6), std::string("hi\0###", 6));  // stops after the terminator
  memset(dst, '#', sizeof dst);
  bsr_strncpy(dst, "hi", 0);
  EXPECT_EQ(dst[0], '\0');  // the first unit is always written
  EXPECT_EQ(dst[1], '#');
  bsr_wchar w[6] = {1, 1, 1, 1, 1, 1};
  bsr_wcsncpy(w, u"world", 2);
  EXPECT_EQ(w[0], u'w');
  EXPECT_EQ(w[1], u'o');
  EXPECT_EQ(w[2], 1);
}

TEST(StringCopy, Concatenate) {
  char dst[16] = "ab";
  bsr_strcat(dst, "cd");
  EXPECT_STREQ(dst, "abcd");
  bsr_strcat(dst, nullptr);
  bsr_strcat(nullptr, "x");
  EXPECT_STREQ(dst, "abcd");
  bsr_wchar w[8] = u"ab";
  bsr_wcscat(w, u"中");
  EXPECT_EQ(std::u16string(w), u"ab中");
}

TEST(StringCopy, RuntimeHeapDuplicates) {
  char *d = bsr_strdup("abc");
  EXPECT_STREQ(d, "abc");
  free(d);
  EXPECT_EQ(bsr_strdup(nullptr), nullptr);
  char *cut = bsr_strndup("abcdef", 3);
  EXPECT_STREQ(cut, "abc");
  free(cut);
  char *whole = bsr_strndup("ab", 10);
  EXPECT_STREQ(whole, "ab");
  free(whole);
  bsr_wchar *w = bsr_wcsndup(u"中文字", 2);
  EXPECT_EQ(std::u16string(w), u"中文");
  free(w);
  // The source need not be terminated within n units.
  const char unterminated[3] = {'x', 'y', 'z'};
  char *part = bsr_strndup(unterminated, 2);
  EXPECT_STREQ(part, "xy");
  free(part);
}

TEST(StringSearch, CharacterSearchReadsBytesSigned) {
  const char *s = "caf\xE9!";
  EXPECT_EQ(bsr_strchr("abc", 0), nullptr);
  EXPECT_EQ(bsr_strchr(s, 0xE9), nullptr);
  EXPECT_EQ(bsr_strchr(s, -23), s + 3);
  EXPECT_EQ(bsr_strchr(nullptr, 'a'), nullptr);
  const bsr_wchar *w = u"a\u00E9b";
  EXPECT_EQ(bsr_wcschr(w, 0xE9), w + 1);
  EXPECT_EQ(bsr_wcschr(w, 0), nullptr);
}

TEST(StringSearch, Substrings) {
  const char *abc = "abc";
  EXPECT_EQ(bsr_strstr(abc, ""), abc);
  EXPECT_EQ(bsr_strstr("", "a"), nullptr);
  EXPECT_EQ(bsr_strstr("", ""), nullptr);
  EXPECT_EQ(bsr_strstr(abc, nullptr), nullptr);
  const char *hay = "aab aabab";
  EXPECT_EQ(bsr_strstr(hay, "abab"), hay + 5);
  EXPECT_EQ(bsr_strstr(hay, "babx"), nullptr);
  const bsr_wchar *w = u"xx中文yy";
  EXPECT_EQ(bsr_wcsstr(w, u"文y"), w + 3);
  EXPECT_EQ(bsr_wcsstr(w, u"yyy"), nullptr);
  EXPECT_EQ(bsr_stristr("Hello World", "WORLD"), nullptr == nullptr ? bsr_stristr("Hello World", "world") : nullptr);
  const char *hw = "Hello World";
  EXPECT_EQ(bsr_stristr(hw, "wORLD"), hw + 6);
  EXPECT_EQ(bsr_stristr("\xC9t\xC9", "\xE9t"), nullptr);  // no folding beyond ASCII
  const bsr_wchar *ww = u"Straße ABC";
  EXPECT_EQ(bsr_wcsistr(ww, u"abc"), ww + 7);
}

TEST(StringCase, AsciiOnly) {
  char s[] = "Hello, W\xC3\xB6rld z{";
  bsr_strupr(s);
  EXPECT_STREQ(s, "HELLO, W\xC3\xB6RLD Z{");
  bsr_strlwr(s);
  EXPECT_STREQ(s, "hello, w\xC3\xB6rld z{");
  bsr_wchar w[] = u"éAbZ@[";
  bsr_wcslwr(w);
  EXPECT_EQ(std::u16string(w), u"éabz@[");
  bsr_wcsupr(w);
  EXPECT_EQ(std::u16string(w), u"éABZ@[");
  bsr_strupr(nullptr);
  EXPECT_EQ(bsr_tolower('A'), 'a');
  EXPECT_EQ(bsr_tolower('['), '[');
  EXPECT_EQ(bsr_toupper('z'), 'Z');
  EXPECT_EQ(bsr_toupper(0xE9), 0xE9);
}

TEST(StringTokenize, CallerHeldIndex) {
  char s[] = ",,a,,b,";
  uint32_t pos = 0;
  char *t = bsr_strtok(s, &pos, ",");
  ASSERT_NE(t, nullptr);
  EXPECT_STREQ(t, "a");
  EXPECT_EQ(pos, 4u);
  t = bsr_strtok(s, &pos, ",");
  ASSERT_NE(t, nullptr);
  EXPECT_STREQ(t, "b");
  EXPECT_EQ(pos, 7u);
  EXPECT_EQ(bsr_strtok(s, &pos, ","), nullptr);
  EXPECT_EQ(pos, 7u);
  EXPECT_EQ(bsr_strtok(nullptr, &pos, ","), nullptr);
  EXPECT_EQ(bsr_strtok(s, nullptr, ","), nullptr);
}

TEST(StringTokenize, TwoTokenisationsAtOnce) {
  char a[] = "x y z", b[] = "1;2";
  uint32_t pa = 0, pb = 0;
  EXPECT_STREQ(bsr_strtok(a, &pa, " "), "x");
  EXPECT_STREQ(bsr_strtok(b, &pb, ";"), "1");
  EXPECT_STREQ(bsr_strtok(a, &pa, " "), "y");
  EXPECT_STREQ(bsr_strtok(b, &pb, ";"), "2");
  EXPECT_STREQ(bsr_strtok(a, &pa, " "), "z");
  EXPECT_EQ(pa, 5u);  // a final token leaves the index at the end
}

TEST(StringTokenize, Split) {
  char s[] = ",,a,,b,";
  char *out[4] = {};
  EXPECT_EQ(bsr_strsplit(s, ",", out), 2);
  EXPECT_STREQ(out[0], "a");
  EXPECT_STREQ(out[1], "b");
  EXPECT_EQ(bsr_strsplit(s, ",", nullptr), 0);
  bsr_wchar w[] = u"中 文\t字";
  bsr_wchar *wout[4] = {};
  EXPECT_EQ(bsr_wcssplit(w, u" \t", wout), 3);
  EXPECT_EQ(std::u16string(wout[2]), u"字");
}

TEST(StringTokenize, DelimitersReadSigned) {
  char s[] = "a\xA0" "b";
  char delims[] = "\xA0";
  char *out[3] = {};
  EXPECT_EQ(bsr_strsplit(s, delims, out), 2);
}

TEST(StringTrim, BothEnds) {
  char s[] = "  x  ";
  EXPECT_EQ(bsr_strtrim(s, " "), 1u);
  EXPECT_STREQ(s, "x");
  char blank[] = "   ";
  EXPECT_EQ(bsr_strtrim(blank, " "), 0u);
  EXPECT_STREQ(blank, "");
  char inner[] = "\t a b \n";
  EXPECT_EQ(bsr_strtrim(inner, " \t\n"), 3u);
  EXPECT_STREQ(inner, "a b");
  char none[] = " keep ";
  EXPECT_EQ(bsr_strtrim(none, nullptr), 6u);
  bsr_wchar w[] = u"··中··";
  EXPECT_EQ(bsr_wcstrim(w, u"·"), 1u);
  EXPECT_EQ(std::u16string(w), u"中");
}

TEST(StringReplace, SizingPassThenWritingPass) {
  EXPECT_EQ(bsr_strrep("aaaa", "aa", "b", nullptr), 2u);
  char out[8];
  EXPECT_EQ(bsr_strrep("aaaa", "aa", "b", out), 2u);
  EXPECT_STREQ(out, "bb");
  EXPECT_EQ(bsr_strrep("aaa", "aa", "xyz", nullptr), 4u);  // non-overlapping: one match
  const char *src = "a-b-c";
  uint32_t need = bsr_strrep(src, "-", "<->", nullptr);
  EXPECT_EQ(need, 9u);
  std::string big(need + 1, '#');
  EXPECT_EQ(bsr_strrep(src, "-", "<->", big.data()), need);
  EXPECT_STREQ(big.c_str(), "a<->b<->c");
  EXPECT_EQ(big[need + 1 - 1], '\0');
  EXPECT_EQ(bsr_strrep("abc", "", "x", nullptr), 0u);
  EXPECT_EQ(bsr_strrep(nullptr, "a", "x", nullptr), 0u);
  EXPECT_EQ(bsr_strrep("abc", "a", nullptr, nullptr), 0u);
  EXPECT_EQ(bsr_strrep("abcabc", "abc", "", nullptr), 0u);
  char empty[4] = "zz";
  EXPECT_EQ(bsr_strrep("abcabc", "abc", "", empty), 0u);
  EXPECT_STREQ(empty, "");
  bsr_wchar w[16];
  EXPECT_EQ(bsr_wcsrep(u"中x中", u"中", u"zh", w), 5u);
  EXPECT_EQ(std::u16string(w), u"zhxzh");
}

TEST(StringNumbers, Formatting) {
  char buf[40];
  EXPECT_STREQ(bsr_itoa(-255, buf, 16), "-ff");
  EXPECT_STREQ(bsr_itoa(0, buf, 10), "0");
  EXPECT_STREQ(bsr_itoa(123456, buf, 10), "123456");
  EXPECT_STREQ(bsr_itoa(5, buf, 2), "101");
  EXPECT_STREQ(bsr_itoa(-1, buf, 2), "-1");
  EXPECT_STREQ(bsr_itoa(35, buf, 36), "z");
  EXPECT_STREQ(bsr_itoa(INT32_MIN, buf, 10), "-2147483648");
  EXPECT_STREQ(bsr_itoa(INT32_MAX, buf, 2), "1111111111111111111111111111111");
  EXPECT_STREQ(bsr_itoa(42, buf, 0), "");
  EXPECT_STREQ(bsr_itoa(42, buf, 1), "");
  EXPECT_EQ(bsr_itoa(42, nullptr, 10), nullptr);
  bsr_wchar w[40];
  EXPECT_EQ(std::u16string(bsr_itow(-4096, w, 16)), u"-1000");
}

TEST(StringNumbers, Parsing) {
  EXPECT_EQ(bsr_atoi("  \t-42x"), -42);
  EXPECT_EQ(bsr_atoi("+5"), 0);
  EXPECT_EQ(bsr_atoi("\n5"), 0);  // only spaces and tabs are skipped
  EXPECT_EQ(bsr_atoi("--5"), 0);
  EXPECT_EQ(bsr_atoi(nullptr), 0);
  EXPECT_EQ(bsr_atoi("2147483648"), INT32_MIN);  // wraps, no overflow check
  EXPECT_EQ(bsr_wtoi(u" 17 "), 17);
  EXPECT_EQ(bsr_wtoi(u"１２"), 0);  // full-width digits are not digits
}

}  // namespace
