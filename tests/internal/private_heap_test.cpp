// The private heap: zero-filled blocks, reuse through the size-class lists,
// large blocks, and release of everything at destruction (LeakSanitizer).
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <vector>

#include "Utils/TextMemory/private_heap.h"

namespace {

TEST(PrivateHeap, BlocksAreZeroAlignedAndDistinct) {
  bsr_heap *h = bsr_heap_create();
  ASSERT_NE(h, nullptr);
  std::set<char *> seen;
  for (size_t size : {0, 1, 7, 8, 9, 24, 48, 100, 1024, 1025, 70000}) {
    auto *p = static_cast<char *>(bsr_heap_alloc(h, size));
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 8, 0u);
    for (size_t i = 0; i < (size ? size : 1); ++i) ASSERT_EQ(p[i], 0);
    memset(p, 0x5A, size ? size : 1);
    EXPECT_TRUE(seen.insert(p).second);
  }
  bsr_heap_destroy(h);
}

TEST(PrivateHeap, FreedBlocksAreReusedAndZeroedAgain) {
  bsr_heap *h = bsr_heap_create();
  auto *a = static_cast<char *>(bsr_heap_alloc(h, 40));
  memset(a, 0x77, 40);
  bsr_heap_free(h, a);
  auto *b = static_cast<char *>(bsr_heap_alloc(h, 36));  // same size class
  EXPECT_EQ(a, b);
  for (int i = 0; i < 36; ++i) ASSERT_EQ(b[i], 0);
  bsr_heap_free(h, nullptr);
  bsr_heap_destroy(h);
}

TEST(PrivateHeap, LargeBlocksCanBeFreedOneByOne) {
  bsr_heap *h = bsr_heap_create();
  size_t before = bsr_heap_footprint(h);
  void *a = bsr_heap_alloc(h, 5000), *b = bsr_heap_alloc(h, 6000), *c = bsr_heap_alloc(h, 7000);
  bsr_heap_free(h, b);
  bsr_heap_free(h, a);
  bsr_heap_free(h, c);
  EXPECT_EQ(bsr_heap_footprint(h), before);
  bsr_heap_destroy(h);
}

TEST(PrivateHeap, ManySmallRecordsShareFewChunks) {
  bsr_heap *h = bsr_heap_create();
  std::vector<void *> blocks;
  for (int i = 0; i < 100000; ++i) blocks.push_back(bsr_heap_alloc(h, 48));
  // 100,000 records of 48 bytes plus an 8-byte tag each: about 5.6 MB in
  // a handful of chunks, not 100,000 system allocations.
  EXPECT_LT(bsr_heap_footprint(h), 100000u * 56u + 2u * 1024u * 1024u);
  for (size_t i = 0; i < blocks.size(); i += 2) bsr_heap_free(h, blocks[i]);
  size_t grown = bsr_heap_footprint(h);
  for (int i = 0; i < 50000; ++i) bsr_heap_alloc(h, 48);
  EXPECT_EQ(bsr_heap_footprint(h), grown);  // the freed half was reused
  bsr_heap_destroy(h);  // everything goes at once; LeakSanitizer checks the rest
  bsr_heap_destroy(nullptr);
}

TEST(PrivateHeap, AllocOnFallsBackToTheLocalAllocator) {
  void *p = bsr_alloc_on(nullptr, 16);
  ASSERT_NE(p, nullptr);
  bsr_free_on(nullptr, p);
  bsr_heap *h = bsr_heap_create();
  void *q = bsr_alloc_on(h, 16);
  bsr_free_on(h, q);
  bsr_heap_destroy(h);
}

}  // namespace
