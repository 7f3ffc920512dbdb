// private_heap_test.cpp - the private heap: zero-filled blocks, reuse through
// the size-class lists, large blocks, and release of everything at destruction
// (LeakSanitizer).
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <vector>

#include "Utils/TextMemory/private_heap.h"

namespace {

TEST(PrivateHeap, BlocksAreZeroAlignedAndDistinct) {
  bsr_heap *h = utils::text::heap_create();
  ASSERT_NE(h, nullptr);
  std::set<char *> seen;
  for (size_t size : {0, 1, 7, 8, 9, 24, 48, 100, 1024, 1025, 70000}) {
    auto *p = static_cast<char *>(utils::text::heap_alloc(h, size));
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 8, 0u);
    for (size_t i = 0; i < (size ? size : 1); ++i) ASSERT_EQ(p[i], 0);
    memset(p, 0x5A, size ? size : 1);
    EXPECT_TRUE(seen.insert(p).second);
  }
  utils::text::heap_destroy(h);
}

TEST(PrivateHeap, FreedBlocksAreReusedAndZeroedAgain) {
  bsr_heap *h = utils::text::heap_create();
  auto *a = static_cast<char *>(utils::text::heap_alloc(h, 40));
  memset(a, 0x77, 40);
  utils::text::heap_free(h, a);
  auto *b = static_cast<char *>(utils::text::heap_alloc(h, 36));  // same size class
  EXPECT_EQ(a, b);
  for (int i = 0; i < 36; ++i) ASSERT_EQ(b[i], 0);
  utils::text::heap_free(h, nullptr);
  utils::text::heap_destroy(h);
}

TEST(PrivateHeap, LargeBlocksCanBeFreedOneByOne) {
  bsr_heap *h = utils::text::heap_create();
  size_t before = utils::text::heap_footprint(h);
  void *a = utils::text::heap_alloc(h, 5000), *b = utils::text::heap_alloc(h, 6000),
       *c = utils::text::heap_alloc(h, 7000);
  utils::text::heap_free(h, b);
  utils::text::heap_free(h, a);
  utils::text::heap_free(h, c);
  EXPECT_EQ(utils::text::heap_footprint(h), before);
  utils::text::heap_destroy(h);
}

TEST(PrivateHeap, ManySmallRecordsShareFewChunks) {
  bsr_heap *h = utils::text::heap_create();
  std::vector<void *> blocks;
  for (int i = 0; i < 100000; ++i) blocks.push_back(utils::text::heap_alloc(h, 48));
  // 100,000 records of 48 bytes plus an 8-byte tag each: about 5.6 MB in
  // a handful of chunks, not 100,000 system allocations.
  EXPECT_LT(utils::text::heap_footprint(h), 100000u * 56u + 2u * 1024u * 1024u);
  for (size_t i = 0; i < blocks.size(); i += 2) utils::text::heap_free(h, blocks[i]);
  size_t grown = utils::text::heap_footprint(h);
  for (int i = 0; i < 50000; ++i) utils::text::heap_alloc(h, 48);
  EXPECT_EQ(utils::text::heap_footprint(h), grown);  // the freed half was reused
  utils::text::heap_destroy(h);  // everything goes at once; LeakSanitizer checks the rest
  utils::text::heap_destroy(nullptr);
}

TEST(PrivateHeap, AllocOnFallsBackToTheLocalAllocator) {
  void *p = utils::text::alloc_on(nullptr, 16);
  ASSERT_NE(p, nullptr);
  utils::text::free_on(nullptr, p);
  bsr_heap *h = utils::text::heap_create();
  void *q = utils::text::alloc_on(h, 16);
  utils::text::free_on(h, q);
  utils::text::heap_destroy(h);
}

}  // namespace
