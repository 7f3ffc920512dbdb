// The local allocator's zero-filling contract and the CStr growth policy,
// including the result codes and the state after a failure.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "bsr_cstr.h"
#include "bsr_string.h"

namespace {

TEST(LocalAllocator, ZeroSizeIsARealBlock) {
  auto *p = static_cast<unsigned char *>(bsr_safe_alloc(0));
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(p[0], 0);
  bsr_free(p);
  bsr_free(nullptr);
}

TEST(LocalAllocator, BlocksAndGrownTailsAreZero) {
  auto *p = static_cast<unsigned char *>(bsr_safe_calloc(100));
  for (int i = 0; i < 100; ++i) ASSERT_EQ(p[i], 0);
  memset(p, 0xAB, 100);
  p = static_cast<unsigned char *>(bsr_safe_realloc(p, 40));  // shrink keeps the head
  for (int i = 0; i < 40; ++i) ASSERT_EQ(p[i], 0xAB);
  p = static_cast<unsigned char *>(bsr_safe_realloc(p, 5000));
  for (int i = 0; i < 40; ++i) ASSERT_EQ(p[i], 0xAB);
  for (int i = 40; i < 5000; ++i) ASSERT_EQ(p[i], 0) << i;  // even bytes once written before
  bsr_free(p);
  auto *q = static_cast<unsigned char *>(bsr_safe_realloc(nullptr, 10));
  ASSERT_NE(q, nullptr);
  EXPECT_EQ(q[9], 0);
  bsr_free(q);
}

TEST(LocalAllocator, LocalDuplicates) {
  char *s = tts_strdup("grüß");
  EXPECT_STREQ(s, "grüß");
  bsr_free(s);
  bsr_wchar *w = tts_wcsdup(u"中文");
  EXPECT_EQ(std::u16string(w), u"中文");
  bsr_free(w);
  EXPECT_EQ(tts_strdup(nullptr), nullptr);
  EXPECT_EQ(tts_wcsdup(nullptr), nullptr);
}

TEST(CStrTest, CreateEmpty) {
  CStr *s = CStrCreate(0);
  ASSERT_NE(s, nullptr);
  EXPECT_EQ(s->capacity, 1u);
  EXPECT_EQ(s->used, 1u);
  EXPECT_EQ(CStrLength(s), 0u);
  EXPECT_STREQ(CStrStr(s), "");
  EXPECT_EQ(CStrLastC(s), 0);
  CStrDestroy(s);
  CStrDestroy(nullptr);
}

TEST(CStrTest, StringAppendsGrowExactlyCharAppendsBy64) {
  CStr *s = CStrCreate(1);
  EXPECT_EQ(CStrAppend(s, "abc"), 0);
  EXPECT_EQ(s->capacity, 4u);
  EXPECT_EQ(CStrLength(s), 3u);
  EXPECT_EQ(CStrAppendC(s, 'd'), 0);
  EXPECT_EQ(s->capacity, 68u);
  EXPECT_EQ(CStrLength(s), 4u);
  EXPECT_STREQ(CStrStr(s), "abcd");
  EXPECT_EQ(CStrLastC(s), 'd');
  for (int i = 0; i < 63; ++i) EXPECT_EQ(CStrAppendC(s, 'x'), 0);
  EXPECT_EQ(s->capacity, 68u);  // 67 characters fit without growing
  EXPECT_EQ(CStrAppendC(s, 'y'), 0);
  EXPECT_EQ(s->capacity, 132u);
  EXPECT_EQ(CStrAppend(s, "tail"), 0);
  EXPECT_EQ(s->capacity, 132u);
  EXPECT_EQ(CStrLength(s), 72u);
  EXPECT_EQ(s->buffer[s->used - 1], '\0');
  CStrDestroy(s);
}

TEST(CStrTest, EmptyAppendsAndBadArguments) {
  CStr *s = CStrCreate(8);
  EXPECT_EQ(CStrAppendC(s, 0), 0);
  EXPECT_EQ(CStrAppend(s, ""), 0);
  EXPECT_EQ(s->used, 1u);
  EXPECT_EQ(CStrAppend(nullptr, "x"), CSTR_EBADARG);
  EXPECT_EQ(CStrAppend(s, nullptr), CSTR_EBADARG);
  EXPECT_EQ(CStrAppendC(nullptr, 'x'), CSTR_EBADARG);
  EXPECT_EQ(CStrLength(nullptr), 0u);
  EXPECT_EQ(CStrStr(nullptr), nullptr);
  EXPECT_EQ(CStrLastC(nullptr), 0);
  CStrErase(nullptr, 0);
  CStrDestroy(s);
}

TEST(CStrTest, EraseTruncatesWithinLength) {
  CStr *s = CStrCreate(0);
  CStrAppend(s, "hello");
  uint32_t cap = s->capacity;
  CStrErase(s, 6);  // beyond the length: nothing
  EXPECT_STREQ(CStrStr(s), "hello");
  CStrErase(s, 5);  // the length itself: nothing changes either
  EXPECT_STREQ(CStrStr(s), "hello");
  CStrErase(s, 2);
  EXPECT_STREQ(CStrStr(s), "he");
  EXPECT_EQ(CStrLength(s), 2u);
  EXPECT_EQ(CStrLastC(s), 'e');
  CStrErase(s, 0);
  EXPECT_STREQ(CStrStr(s), "");
  EXPECT_EQ(s->capacity, cap);  // never shrinks
  CStrAppend(s, "again");
  EXPECT_STREQ(CStrStr(s), "again");
  CStrDestroy(s);
}

TEST(CStrTest, LastCharIsSigned) {
  CStr *s = CStrCreate(0);
  CStrAppendC(s, static_cast<char>(0xE9));
  EXPECT_EQ(CStrLastC(s), static_cast<char>(-23));
  CStrDestroy(s);
}

}  // namespace
