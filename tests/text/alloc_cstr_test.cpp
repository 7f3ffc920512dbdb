// alloc_cstr_test.cpp - the local allocator's zero-filling contract and the
// CStr growth policy, including the result codes.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "bsr_cstr.h"
#include "bsr_string.h"

namespace {

TEST(LocalAllocator, BlocksAndGrownTailsAreZero) {
  auto *zero = static_cast<unsigned char *>(bsr_safe_alloc(0));  // a real, freeable byte
  ASSERT_NE(zero, nullptr);
  EXPECT_EQ(zero[0], 0);
  bsr_free(zero);
  auto *p = static_cast<unsigned char *>(bsr_safe_realloc(nullptr, 100));
  memset(p, 0xAB, 100);
  p = static_cast<unsigned char *>(bsr_safe_realloc(p, 40));  // shrinking keeps the head
  p = static_cast<unsigned char *>(bsr_safe_realloc(p, 5000));
  for (int i = 0; i < 5000; ++i)
    ASSERT_EQ(p[i], i < 40 ? 0xAB : 0) << i;  // even bytes written before
  bsr_free(p);
  bsr_free(nullptr);
  char *s = tts_strdup("grüß");
  bsr_wchar *w = tts_wcsdup(u"中文");
  EXPECT_STREQ(s, "grüß");
  EXPECT_EQ(std::u16string(w), u"中文");
  bsr_free(s);
  bsr_free(w);
  EXPECT_EQ(tts_wcsdup(nullptr), nullptr);
}

// Small blocks freed and made again (the allocator may hand the same ones
// out) come back zero-filled over their whole size, and grow correctly.
TEST(LocalAllocator, ReusedSmallBlocksAreZero) {
  for (uint32_t size : {1u, 16u, 17u, 40u, 64u}) {
    std::vector<unsigned char *> blocks;
    for (int k = 0; k < 40; ++k) {
      auto *b = static_cast<unsigned char *>(bsr_safe_alloc(size));
      ASSERT_NE(b, nullptr);
      memset(b, 0xCD, size);
      blocks.push_back(b);
    }
    for (unsigned char *b : blocks) bsr_free(b);
    auto *again = static_cast<unsigned char *>(bsr_safe_alloc(size));
    ASSERT_NE(again, nullptr);
    for (uint32_t i = 0; i < size; ++i) ASSERT_EQ(again[i], 0) << size << " " << i;
    memset(again, 0xEF, size);
    again = static_cast<unsigned char *>(bsr_safe_realloc(again, 200));
    for (uint32_t i = 0; i < 200; ++i) ASSERT_EQ(again[i], i < size ? 0xEF : 0) << size << " " << i;
    bsr_free(again);
  }
}

TEST(CStrTest, StringAppendsGrowExactlyCharAppendsBy64) {
  CStr *s = CStrCreate(0);
  ASSERT_NE(s, nullptr);
  EXPECT_EQ(s->capacity, 1u);
  EXPECT_STREQ(CStrStr(s), "");
  EXPECT_EQ(CStrAppend(s, "abc"), 0);
  EXPECT_EQ(s->capacity, 4u);
  EXPECT_EQ(CStrAppendC(s, 'd'), 0);
  EXPECT_EQ(s->capacity, 68u);
  EXPECT_EQ(CStrLength(s), 4u);
  for (int i = 0; i < 63; ++i) CStrAppendC(s, 'x');
  EXPECT_EQ(s->capacity, 68u);  // 67 characters fit without growing
  CStrAppendC(s, 'y');
  EXPECT_EQ(s->capacity, 132u);
  EXPECT_EQ(CStrAppend(s, "tail"), 0);  // fits: no growth
  EXPECT_EQ(s->capacity, 132u);
  EXPECT_EQ(CStrLength(s), 72u);
  EXPECT_EQ(s->buffer[s->used - 1], '\0');
  CStrDestroy(s);
}

TEST(CStrTest, EmptyAppendsBadArgumentsAndErase) {
  CStr *s = CStrCreate(8);
  EXPECT_EQ(CStrAppendC(s, 0), CSTR_OK);
  EXPECT_EQ(CStrAppend(s, ""), CSTR_OK);
  EXPECT_EQ(s->used, 1u);
  EXPECT_EQ(CStrLastC(s), 0);
  EXPECT_EQ(CStrAppend(nullptr, "x"), CSTR_EBADARG);
  EXPECT_EQ(CStrAppend(s, nullptr), CSTR_EBADARG);
  EXPECT_EQ(CStrAppendC(nullptr, 'x'), CSTR_EBADARG);
  EXPECT_EQ(CStrLength(nullptr), 0u);
  EXPECT_EQ(CStrStr(nullptr), nullptr);
  CStrAppend(s, "hello");
  uint32_t cap = s->capacity;
  CStrErase(s, 6);  // beyond the length: nothing
  EXPECT_STREQ(CStrStr(s), "hello");
  CStrErase(s, 2);
  EXPECT_STREQ(CStrStr(s), "he");
  EXPECT_EQ(CStrLastC(s), 'e');
  CStrErase(s, 0);
  EXPECT_EQ(CStrLength(s), 0u);
  EXPECT_EQ(s->capacity, cap);  // never shrinks
  CStrAppendC(s, static_cast<char>(0xE9));
  EXPECT_EQ(CStrLastC(s), static_cast<char>(-23));  // read as a signed char
  CStrDestroy(s);
  CStrDestroy(nullptr);
}

}  // namespace
