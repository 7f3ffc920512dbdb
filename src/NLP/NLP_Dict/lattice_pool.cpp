// lattice_pool.cpp - bump allocation of lattice nodes and strings from
// blocks of the local allocator, and NLPDIC_DeleNode and NLPDIC_GetNodeInfo.
#include "NLP/NLP_Dict/lattice_pool.h"

#include <cstring>

#include "bsr_string.h"

namespace utils::nlpdict {

struct PoolBlock {
  PoolBlock *next;
  uint32_t size;
  // The block's bytes follow, 16-aligned.
};

namespace {

constexpr uint32_t kHeader = (sizeof(PoolBlock) + 15) & ~15u;
constexpr uint32_t kMinBlock = 1024;
constexpr uint32_t kMaxBlock = 1u << 22;

}  // namespace

void *take_from_new_block(LatticePool *pool, uint32_t bytes) {
  uint32_t size = pool->next_size;
  if (size < bytes) size = bytes;
  auto *fresh = static_cast<PoolBlock *>(bsr_safe_alloc(kHeader + size));
  if (fresh == nullptr) return nullptr;
  fresh->next = pool->blocks;
  fresh->size = size;
  pool->blocks = fresh;
  if (pool->next_size < kMaxBlock) pool->next_size *= 2;
  unsigned char *at = reinterpret_cast<unsigned char *>(fresh) + kHeader;
  pool->cursor = at + bytes;
  pool->limit = at + size;
  return at;
}

LatticePool *make_pool(uint64_t first_bytes) {
  // The first block is sized to the expected lattice, since all of it is
  // zero-filled; later ones double. The pool's own record sits at the start
  // of the first block, so that a lattice usually costs one allocation.
  uint64_t size = (first_bytes + 7) & ~uint64_t{7};
  if (size < kMinBlock) size = kMinBlock;
  if (size > kMaxBlock) size = kMaxBlock;
  constexpr uint32_t kRecord = (sizeof(LatticePool) + 15) & ~15u;
  auto *first =
      static_cast<PoolBlock *>(bsr_safe_alloc(kHeader + kRecord + static_cast<uint32_t>(size)));
  if (first == nullptr) return nullptr;
  first->size = kRecord + static_cast<uint32_t>(size);
  unsigned char *at = reinterpret_cast<unsigned char *>(first) + kHeader;
  auto *pool = reinterpret_cast<LatticePool *>(at);
  pool->blocks = first;
  pool->next_size =
      static_cast<uint32_t>(size) * 2 < kMaxBlock ? static_cast<uint32_t>(size) * 2 : kMaxBlock;
  pool->cursor = at + kRecord;
  pool->limit = at + kRecord + size;
  return pool;
}

void free_pool(LatticePool *pool) {
  if (pool == nullptr) return;
  // The first block, which holds the pool, is the last in the list.
  for (PoolBlock *b = pool->blocks; b != nullptr;) {
    PoolBlock *next = b->next;
    bsr_free(b);
    b = next;
  }
}

bsr_wchar *pool_image_string(LatticePool *pool, const uint8_t *text, uint32_t units) {
  auto *s = static_cast<bsr_wchar *>(pool_take(pool, (units + 1) * sizeof(bsr_wchar)));
  if (s == nullptr) return nullptr;
  for (uint32_t k = 0; k < units; ++k)
    s[k] = static_cast<bsr_wchar>(text[2 * k] | text[2 * k + 1] << 8);
  s[units] = 0;
  return s;
}

}  // namespace utils::nlpdict

using utils::nlpdict::LatticeNode;

extern "C" {

UTILS_API void *NLPDIC_GetNodeInfo(NLPDIC_Node *node, uint32_t selector) {
  if (node == nullptr) return nullptr;
  switch (selector) {
    case 0:
      return node->Word;
    case 1:
      return &node->Length;
    case 2:
      return node->ClassName;
    case 3:
      return &node->ClassId;
    case 4:
      return &node->Mark;
    case 5:
      return &node->Score;
    case 6:
      return &node->PathScore;
    case 7:
      return node->Link;
    default:
      return nullptr;
  }
}

UTILS_API void NLPDIC_DeleNode(NLPDIC_Node *node) {
  if (node == nullptr) return;
  // Only a lattice's first node owns memory; the others go with it.
  LatticeNode *owner = reinterpret_cast<LatticeNode *>(node);
  if (owner->pool != nullptr) utils::nlpdict::free_pool(owner->pool);
}

}  // extern "C"
