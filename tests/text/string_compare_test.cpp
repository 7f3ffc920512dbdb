// string_compare_test.cpp - position-valued comparisons: the shared convention,
// the folded and bounded forms, and the block scanner checked against a plain
// loop at page edges.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "../fuzz/guarded_input.h"
#include "bsr_string.h"

namespace {

TEST(StringCompare, SharedConvention) {
  struct Case {
    const char *a, *b;
    int32_t want;
  };
  for (const Case &c : {Case{"abc", "abd", -3}, Case{"abd", "abc", 3}, Case{"ab", "abc", -3},
                        Case{"abc", "abc", 0}, Case{"a\xE9", "a\x41", 2},  // bytes compare unsigned
                        Case{nullptr, nullptr, 0}, Case{nullptr, "", -1}, Case{"", nullptr, 1}})
    EXPECT_EQ(bsr_strcmp(c.a, c.b), c.want)
        << (c.a != nullptr ? c.a : "null") << " / " << (c.b != nullptr ? c.b : "null");
  EXPECT_EQ(bsr_wcscmp(u"ab", u"abc"), -3);
  const bsr_wchar hi[] = {0xFFFF, 0}, lo[] = {0x0041, 0};
  EXPECT_EQ(bsr_wcscmp(hi, lo), 1);
  EXPECT_EQ(bsr_strncmp(nullptr, "x", 3), -1);
  EXPECT_EQ(bsr_wcsnicmp(nullptr, nullptr, 4), 0);
}

TEST(StringCompare, BoundedAndFoldedForms) {
  EXPECT_EQ(bsr_strncmp("abcx", "abcy", 3), 0);
  EXPECT_EQ(bsr_strncmp("abcx", "abcy", 4), -4);
  EXPECT_EQ(bsr_strncmp("abc", "xyz", 0), 0);
  EXPECT_EQ(bsr_strncmp("abc", "xyz", -7), 0);
  EXPECT_EQ(bsr_wcsncmp(u"abcx", u"abcy", 4), -4);
  EXPECT_EQ(bsr_stricmp("HeLLo", "hello"), 0);
  EXPECT_EQ(bsr_stricmp("[", "a"), -1);        // '[' sorts below 'a' once 'A' would be folded
  EXPECT_EQ(bsr_stricmp("\xC9", "\xE9"), -1);  // no folding outside ASCII
  EXPECT_EQ(bsr_wcsicmp(u"ÉA", u"éa"), -1);
  EXPECT_EQ(bsr_wcsnicmp(u"HELLOx", u"helloy", 5), 0);
  // The narrow bounded folded form always reports "smaller"; the wide one does not.
  EXPECT_EQ(bsr_strnicmp("b", "A", 1), -1);
  EXPECT_EQ(bsr_wcsnicmp(u"b", u"A", 1), 1);
  EXPECT_EQ(bsr_strnicmp("xyZ", "XYa", 3), -3);
}

// Reference result of the shared convention, one unit at a time.
template <typename Unit>
int32_t reference_compare(const Unit *a, const Unit *b) {
  for (size_t i = 0;; ++i) {
    uint32_t x = static_cast<std::make_unsigned_t<Unit>>(a[i]);
    uint32_t y = static_cast<std::make_unsigned_t<Unit>>(b[i]);
    if (x != y) return x > y ? static_cast<int32_t>(i + 1) : -static_cast<int32_t>(i + 1);
    if (x == 0) return 0;
  }
}

// Random strings and a copy changed in one unit or cut short, each ending
// exactly at an inaccessible page or a little before it: a scanner that reads
// one unit too far faults.
template <typename Unit>
void compare_near_page_ends(int32_t (*compare)(const Unit *, const Unit *), uint32_t seed,
                            uint32_t max_len) {
  fuzz::GuardedRegion ra, rb;
  std::mt19937 rng(seed);
  auto place = [&](fuzz::GuardedRegion &r, const std::basic_string<Unit> &v) {
    const size_t units = v.size() + 1 + (rng() % 2 ? 0 : rng() % 32);
    auto *at = reinterpret_cast<Unit *>(r.end_aligned(units * sizeof(Unit)));
    memcpy(at, v.c_str(), (v.size() + 1) * sizeof(Unit));
    return at;
  };
  for (int round = 0; round < 20000; ++round) {
    const size_t len = rng() % max_len;
    std::basic_string<Unit> s(len, Unit('x'));
    for (auto &c : s) c = static_cast<Unit>('a' + rng() % 3);
    std::basic_string<Unit> t = s;
    if (len > 0 && rng() % 2) t[rng() % len] = static_cast<Unit>(rng());
    if (rng() % 4 == 0) t.resize(rng() % (len + 1));
    const Unit *a = place(ra, s), *b = place(rb, t);
    ASSERT_EQ(compare(a, b), reference_compare(a, b)) << "round " << round;
  }
}

TEST(StringCompare, ScannersAgreeWithReferenceNearPageEnds) {
  compare_near_page_ends<char>(bsr_strcmp, 7, 300);
  compare_near_page_ends<bsr_wchar>(bsr_wcscmp, 11, 200);
}

TEST(StringCompare, LongEqualPrefixes) {
  std::string a(100000, 'q'), b = a;
  EXPECT_EQ(bsr_strcmp(a.c_str(), b.c_str()), 0);
  b[77777] = 'r';
  EXPECT_EQ(bsr_strcmp(a.c_str(), b.c_str()), -77778);
  std::u16string w(50000, u'\u4e2d'), v = w;
  v[49999] = u'\u4e2c';
  EXPECT_EQ(bsr_wcscmp(w.c_str(), v.c_str()), 50000);
}

}  // namespace
