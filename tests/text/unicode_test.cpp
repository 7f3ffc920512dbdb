// Where the UTF-8 <-> UTF-16 converters stop and what they keep, byte
// widening with sign extension, and the exact "&(0x..)" rendering.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsr_unicode.h"
#include "text/unicode_guard.h"

namespace {

using Units = std::vector<bsr_wchar>;
using Bytes = std::vector<char>;

Bytes bytes(std::initializer_list<int> values) {
  Bytes out;
  for (int v : values) out.push_back(static_cast<char>(v));
  return out;
}

Bytes bytes(const std::string &s) { return Bytes(s.begin(), s.end()); }

Bytes concat(const Bytes &a, const Bytes &b) {
  Bytes out = a;
  out.insert(out.end(), b.begin(), b.end());
  return out;
}

// Converts a counted source into a guarded buffer of `size` units.
GuardedBuffer<bsr_wchar> to_utf16(const Bytes &src, uint32_t size) {
  GuardedBuffer<bsr_wchar> out(size);
  EXPECT_EQ(bsr_UTF8ToUTF16(src.data(), static_cast<uint32_t>(src.size()), out.data(), size),
            out.data());
  return out;
}

GuardedBuffer<char> to_utf8(const Units &src, uint32_t size) {
  GuardedBuffer<char> out(size);
  EXPECT_EQ(bsr_UTF16ToUTF8(src.data(), static_cast<uint32_t>(src.size()), out.data(), size),
            out.data());
  return out;
}

// ---- UTF-8 to UTF-16 ----------------------------------------------------

TEST(UTF8ToUTF16, ConvertsZeroTerminatedSource) {
  GuardedBuffer<bsr_wchar> out(8);
  bsr_UTF8ToUTF16("\xE4\xB8\xAD", BSR_ZERO_TERMINATED, out.data(), out.size());
  out.expect_text({0x4E2D});
}

TEST(UTF8ToUTF16, SizeOneGivesEmptyText) {
  GuardedBuffer<bsr_wchar> out(1);
  bsr_UTF8ToUTF16("\xE4\xB8\xAD", BSR_ZERO_TERMINATED, out.data(), 1);
  out.expect_text({});
  to_utf16(bytes("abc"), 1).expect_text({});
}

TEST(UTF8ToUTF16, BoundaryValuesOfEachLength) {
  to_utf16(bytes({0x7F, 0xC2, 0x80, 0xDF, 0xBF}), 8).expect_text({0x7F, 0x80, 0x7FF});
  to_utf16(bytes({0xE0, 0xA0, 0x80, 0xED, 0x9F, 0xBF, 0xEE, 0x80, 0x80, 0xEF, 0xBF, 0xBF}), 8)
      .expect_text({0x800, 0xD7FF, 0xE000, 0xFFFF});
  to_utf16(bytes({0xF0, 0x90, 0x80, 0x80, 0xF4, 0x8F, 0xBF, 0xBF}), 8)
      .expect_text({0xD800, 0xDC00, 0xDBFF, 0xDFFF});
  to_utf16(bytes({0xF0, 0x9F, 0x98, 0x80}), 8).expect_text({0xD83D, 0xDE00});
}

// Each ill-formed sequence stops the conversion right before it; the text
// in front of it is kept and nothing behind it is converted.
TEST(UTF8ToUTF16, IllFormedSequenceStopsConversion) {
  const std::vector<Bytes> bad = {
      bytes({0xC0, 0x80}),                    // overlong two-byte NUL
      bytes({0xC1, 0xBF}),                    // overlong two-byte
      bytes({0xE0, 0x9F, 0xBF}),              // overlong three-byte
      bytes({0xF0, 0x8F, 0xBF, 0xBF}),        // overlong four-byte
      bytes({0xED, 0xA0, 0x80}),              // encoded high surrogate
      bytes({0xED, 0xBF, 0xBF}),              // encoded low surrogate
      bytes({0xF4, 0x90, 0x80, 0x80}),        // U+110000
      bytes({0xF5, 0x80, 0x80, 0x80}),        // lead above F4
      bytes({0xF8, 0x88, 0x80, 0x80, 0x80}),  // five-byte form
      bytes({0xFC, 0x84, 0x80, 0x80, 0x80, 0x80}),  // six-byte form
      bytes({0x80}),                          // lone trailing byte
      bytes({0xBF, 0x41}),                    // lone trailing byte
      bytes({0xE4, 0x41, 0xAD}),              // ASCII where a trailing byte belongs
      bytes({0xE4, 0xB8, 0xC0}),              // lead byte where a trailing byte belongs
      bytes({0xC3, 0xC3, 0xA9}),              // lead byte where a trailing byte belongs
      bytes({0xFE}), bytes({0xFF}),
  };
  const Bytes before = bytes("ok\xC3\xA9");
  const Bytes after = bytes("tail\xE4\xB8\xAD");
  for (const Bytes &b : bad) {
    SCOPED_TRACE(::testing::PrintToString(b));
    to_utf16(concat(concat(before, b), after), 32).expect_text({u'o', u'k', 0xE9});
    to_utf16(concat(b, after), 32).expect_text({});
  }
}

// The same stops inside long runs, where the block-wise paths are at work:
// the stop must fall on the exact character whatever its offset in a block.
TEST(UTF8ToUTF16, StopsAtExactPositionInsideLongRuns) {
  const std::vector<std::pair<std::string, bsr_wchar>> runs = {
      {"x", u'x'}, {"\xC3\xA9", 0xE9}, {"\xE4\xB8\xAD", 0x4E2D}};
  for (const auto &run : runs) {
    for (int count = 0; count < 40; ++count) {
      Bytes src;
      Units expected;
      for (int i = 0; i < count; ++i) {
        src.insert(src.end(), run.first.begin(), run.first.end());
        expected.push_back(run.second);
      }
      Bytes tail = concat(bytes({0xED, 0xA0, 0x80}), bytes(std::string(40, 'y')));
      SCOPED_TRACE(count);
      to_utf16(concat(src, tail), 200).expect_text(expected);
    }
  }
}

TEST(UTF8ToUTF16, CutSequenceAtEndOfCountedSourceIsNotConverted) {
  const char *zhong = "\xE4\xB8\xAD";
  GuardedBuffer<bsr_wchar> cut(8);
  bsr_UTF8ToUTF16(zhong, 2, cut.data(), cut.size());
  cut.expect_text({});
  GuardedBuffer<bsr_wchar> whole(8);
  bsr_UTF8ToUTF16(zhong, 3, whole.data(), whole.size());
  whole.expect_text({0x4E2D});

  const Bytes smile = bytes("ab\xF0\x9F\x98\x80");
  for (uint32_t len = 2; len < 6; ++len) {
    GuardedBuffer<bsr_wchar> out(8);
    bsr_UTF8ToUTF16(smile.data(), len, out.data(), out.size());
    out.expect_text({u'a', u'b'});
  }
}

TEST(UTF8ToUTF16, FullTargetNeverTakesHalfAPair) {
  const Bytes src = bytes("a\xF0\x9F\x98\x80z");
  to_utf16(src, 2).expect_text({u'a'});
  to_utf16(src, 3).expect_text({u'a'});  // one unit of room: the pair does not fit
  to_utf16(src, 4).expect_text({u'a', 0xD83D, 0xDE00});
  to_utf16(src, 5).expect_text({u'a', 0xD83D, 0xDE00, u'z'});
}

TEST(UTF8ToUTF16, FullTargetStopsLongText) {
  const std::string text(100, 'q');
  for (uint32_t size = 1; size < 40; ++size) {
    SCOPED_TRACE(size);
    to_utf16(bytes(text), size).expect_text(Units(size - 1, u'q'));
  }
}

TEST(UTF8ToUTF16, CountedSourceCarriesZeroBytes) {
  to_utf16(bytes({'a', 0, 'b'}), 8).expect_text({u'a', 0, u'b'});
  // A zero-terminated source ends at its first zero byte.
  GuardedBuffer<bsr_wchar> out(8);
  bsr_UTF8ToUTF16("a\0b", BSR_ZERO_TERMINATED, out.data(), out.size());
  out.expect_text({u'a'});
}

TEST(UTF8ToUTF16, NullArguments) {
  GuardedBuffer<bsr_wchar> out(4);
  EXPECT_EQ(bsr_UTF8ToUTF16(nullptr, BSR_ZERO_TERMINATED, out.data(), 4), out.data());
  out.expect_text({});
  GuardedBuffer<bsr_wchar> counted(4);
  bsr_UTF8ToUTF16(nullptr, 10, counted.data(), 4);
  counted.expect_text({});
  EXPECT_EQ(bsr_UTF8ToUTF16("abc", 3, nullptr, 4), nullptr);
  GuardedBuffer<bsr_wchar> none(0);  // size 0 has no room even for a terminator
  bsr_UTF8ToUTF16("abc", 3, none.data(), 0);
  none.expect_untouched();
}

// ---- UTF-16 to UTF-8 ----------------------------------------------------

TEST(UTF16ToUTF8, EncodesEachLength) {
  to_utf8({0x41, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF}, 32)
      .expect_text(bytes({0x41, 0x7F, 0xC2, 0x80, 0xDF, 0xBF, 0xE0, 0xA0, 0x80, 0xED, 0x9F, 0xBF,
                          0xEE, 0x80, 0x80, 0xEF, 0xBF, 0xBF}));
  to_utf8({0xD800, 0xDC00, 0xDBFF, 0xDFFF}, 16)
      .expect_text(bytes({0xF0, 0x90, 0x80, 0x80, 0xF4, 0x8F, 0xBF, 0xBF}));
}

TEST(UTF16ToUTF8, SupplementaryCharacterRoundTrips) {
  GuardedBuffer<bsr_wchar> wide(8);
  bsr_UTF8ToUTF16("\xF0\x9F\x98\x80", BSR_ZERO_TERMINATED, wide.data(), wide.size());
  wide.expect_text({0xD83D, 0xDE00});
  GuardedBuffer<char> narrow(8);
  bsr_UTF16ToUTF8(wide.data(), BSR_ZERO_TERMINATED, narrow.data(), narrow.size());
  narrow.expect_text(bytes({0xF0, 0x9F, 0x98, 0x80}));
}

TEST(UTF16ToUTF8, UnpairedSurrogateStopsConversion) {
  to_utf8({u'a', 0xDC00, u'b'}, 16).expect_text(bytes("a"));
  to_utf8({0xDC00}, 16).expect_text({});
  to_utf8({u'a', 0xD800, u'b'}, 16).expect_text(bytes("a"));
  to_utf8({u'a', 0xD800, 0xD800, 0xDC00}, 16).expect_text(bytes("a"));
  to_utf8({u'a', 0xDE00, 0xD83D}, 16).expect_text(bytes("a"));  // pair in the wrong order
  // A high surrogate at the end of a counted source: its partner is not there.
  const Units pair = {u'a', 0xD83D, 0xDE00};
  GuardedBuffer<char> cut(16);
  bsr_UTF16ToUTF8(pair.data(), 2, cut.data(), cut.size());
  cut.expect_text(bytes("a"));
}

TEST(UTF16ToUTF8, StopsAtExactPositionInsideLongRuns) {
  const std::vector<std::pair<bsr_wchar, std::string>> runs = {
      {u'x', "x"}, {0xE9, "\xC3\xA9"}, {0x4E2D, "\xE4\xB8\xAD"}};
  for (const auto &run : runs) {
    for (int count = 0; count < 40; ++count) {
      Units src(count, run.first);
      std::string expected;
      for (int i = 0; i < count; ++i) expected += run.second;
      src.push_back(0xDC00);
      src.insert(src.end(), 40, u'y');
      SCOPED_TRACE(count);
      to_utf8(src, 200).expect_text(bytes(expected));
    }
  }
}

TEST(UTF16ToUTF8, CharacterIsWrittenWholeOrNotAtAll) {
  const Units zhong = {u'a', 0x4E2D, u'b'};
  to_utf8(zhong, 2).expect_text(bytes("a"));
  to_utf8(zhong, 4).expect_text(bytes("a"));  // 3 bytes of room, the character needs 3+1
  to_utf8(zhong, 5).expect_text(bytes("a\xE4\xB8\xAD"));
  const Units smile = {0xD83D, 0xDE00};
  to_utf8(smile, 4).expect_text({});
  to_utf8(smile, 5).expect_text(bytes("\xF0\x9F\x98\x80"));
  to_utf8({0xE9}, 2).expect_text({});
  to_utf8({0xE9}, 1).expect_text({});
}

TEST(UTF16ToUTF8, FullTargetStopsLongText) {
  const Units text(100, 0xE9);
  for (uint32_t size = 1; size < 60; ++size) {
    SCOPED_TRACE(size);
    std::string expected;
    for (uint32_t i = 0; i < (size - 1) / 2; ++i) expected += "\xC3\xA9";
    to_utf8(text, size).expect_text(bytes(expected));
  }
}

TEST(UTF16ToUTF8, NullArguments) {
  GuardedBuffer<char> out(4);
  EXPECT_EQ(bsr_UTF16ToUTF8(nullptr, BSR_ZERO_TERMINATED, out.data(), 4), out.data());
  out.expect_text({});
  EXPECT_EQ(bsr_UTF16ToUTF8(u"abc", 3, nullptr, 4), nullptr);
  GuardedBuffer<char> none(0);
  bsr_UTF16ToUTF8(u"abc", 3, none.data(), 0);
  none.expect_untouched();
}

// ---- Widening and copying -----------------------------------------------

TEST(Char2Word, SignExtendsEveryByteAndWritesNoTerminator) {
  GuardedBuffer<bsr_wchar> out(8);
  const char src[] = {'A', '\xE9', '\0', '\x7F', '\x80', '\xFF'};
  bsr_Char2Word(src, out.data(), 6);
  const Units expected = {0x41, 0xFFE9, 0x0000, 0x7F, 0xFF80, 0xFFFF};
  for (size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(out[i], expected[i]) << i;
  EXPECT_EQ(out[6], GuardedBuffer<bsr_wchar>::kMarker);
}

TEST(Char2Word, IgnoresNullAndNonPositiveCounts) {
  GuardedBuffer<bsr_wchar> out(4);
  bsr_Char2Word("abc", out.data(), 0);
  bsr_Char2Word("abc", out.data(), -5);
  bsr_Char2Word(nullptr, out.data(), 3);
  bsr_Char2Word("abc", nullptr, 3);
  out.expect_untouched();
}

TEST(Char2Unicode, WidensWithoutDecodingUtf8) {
  GuardedBuffer<bsr_wchar> out(8);
  EXPECT_EQ(bsr_Char2Unicode("\xE9", out.data(), out.size()), out.data());
  out.expect_text({0xFFE9});
  GuardedBuffer<bsr_wchar> zhong(8);
  bsr_Char2Unicode("a\xE4\xB8\xAD", zhong.data(), zhong.size());
  zhong.expect_text({u'a', 0xFFE4, 0xFFB8, 0xFFAD});
}

TEST(Char2Unicode, StopsAtTargetSize) {
  GuardedBuffer<bsr_wchar> out(3);
  bsr_Char2Unicode("abcdef", out.data(), 3);
  out.expect_text({u'a', u'b'});
  GuardedBuffer<bsr_wchar> one(1);
  bsr_Char2Unicode("abcdef", one.data(), 1);
  one.expect_text({});
}

TEST(Char2Unicode, NullArguments) {
  GuardedBuffer<bsr_wchar> out(4);
  EXPECT_EQ(bsr_Char2Unicode(nullptr, out.data(), 4), out.data());
  out.expect_text({});
  EXPECT_EQ(bsr_Char2Unicode("abc", nullptr, 4), nullptr);
}

TEST(Unicode2Word, CopiesExactlyNUnits) {
  GuardedBuffer<bsr_wchar> out(8);
  const bsr_wchar src[] = {0x4E2D, 0, 0xFFFF, 0xD800, u'z'};
  bsr_Unicode2Word(src, out.data(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(out[i], src[i]) << i;
  EXPECT_EQ(out[4], GuardedBuffer<bsr_wchar>::kMarker);

  GuardedBuffer<bsr_wchar> none(4);
  bsr_Unicode2Word(src, none.data(), 0);
  bsr_Unicode2Word(src, none.data(), -1);
  bsr_Unicode2Word(nullptr, none.data(), 2);
  bsr_Unicode2Word(src, nullptr, 2);
  none.expect_untouched();
}

// ---- "&(0x..)" rendering ------------------------------------------------

std::string ncr(const std::u16string &src, int32_t size) {
  GuardedBuffer<char> out(static_cast<size_t>(size));
  const char *r = bsr_UnicodeToNCR(src.c_str(), out.data(), size);
  EXPECT_EQ(r, out.data());
  std::string text(r);
  out.expect_text(bytes(text));
  return text;
}

TEST(UnicodeToNCR, RendersNonPrintableUnitsInItsOwnForm) {
  EXPECT_EQ(ncr(u"a\u00E9b", 64), "a&(0xe9)b");
  EXPECT_EQ(ncr(u"\u4E2D", 64), "&(0x4e2d)");
  EXPECT_EQ(ncr(u"\n", 64), "&(0xa)");
  EXPECT_EQ(ncr(u"\x1F \x7E\x7F", 64), "&(0x1f) ~&(0x7f)");
  EXPECT_EQ(ncr(u"\uFFFF", 64), "&(0xffff)");
  EXPECT_EQ(ncr(u"x\U0001F600y", 64), "x&(0xd83d)&(0xde00)y");  // one reference per unit
  EXPECT_EQ(ncr(u"", 64), "");
}

TEST(UnicodeToNCR, WritesOnlyWhatFitsWithTheTerminator) {
  EXPECT_EQ(ncr(u"a\u00E9b", 6), "a");
  // "&(0xe9)" is 7 bytes: it needs a size of 8.
  EXPECT_EQ(ncr(u"\u00E9", 7), "");
  EXPECT_EQ(ncr(u"\u00E9", 8), "&(0xe9)");
  EXPECT_EQ(ncr(u"\u00E9z", 8), "&(0xe9)");
  EXPECT_EQ(ncr(u"\u00E9z", 9), "&(0xe9)z");
  // A printable unit needs one byte plus the terminator.
  EXPECT_EQ(ncr(u"abc", 1), "");
  EXPECT_EQ(ncr(u"abc", 3), "ab");
  // The first unit that does not fit ends the text; a shorter one after it
  // is not taken instead.
  EXPECT_EQ(ncr(u"\u4E2Dab", 9), "");
}

TEST(UnicodeToNCR, NullArguments) {
  const char *empty = bsr_UnicodeToNCR(u"abc", nullptr, 10);
  ASSERT_NE(empty, nullptr);
  EXPECT_STREQ(empty, "");
  GuardedBuffer<char> out(4);
  EXPECT_EQ(bsr_UnicodeToNCR(nullptr, out.data(), 4), out.data());
  out.expect_text({});
  GuardedBuffer<char> none(0);
  bsr_UnicodeToNCR(u"abc", none.data(), 0);
  none.expect_untouched();
}

}  // namespace
