// dtree_check.cpp - DTree_Check: a tree image validated against its size
// before anything trusts it.
#include <cstdint>
#include <cstring>

#include "NLP/NLP_DTree/image_read.h"
#include "NLP/NLP_DTree/tree_check.h"
#include "dtree.h"

namespace utils::dtree {

namespace {

// Node Ids that a child may name: 0, -1, ..., -32768.
constexpr size_t kIdCount = 32769;

// The internal-node Ids seen so far, one bit each.
class IdSet {
 public:
  IdSet() { std::memset(bits_, 0, sizeof bits_); }
  void add(int16_t id) {
    if (id <= 0) bits_[index(id) / 8] |= static_cast<uint8_t>(1u << index(id) % 8);
  }
  bool has(int16_t id) const { return id <= 0 && (bits_[index(id) / 8] >> index(id) % 8 & 1) != 0; }

 private:
  static size_t index(int16_t id) { return static_cast<size_t>(-static_cast<int32_t>(id)); }
  uint8_t bits_[(kIdCount + 7) / 8];
};

// The nodes of one tree at [first, first + bytes): every question in the
// table, every child an internal node stored later (or a leaf), and a root.
// Returns 0 or the offset of the first fault.
size_t check_nodes(const unsigned char *image, size_t first, size_t bytes, uint32_t questions) {
  const size_t count = bytes / kNodeBytes;
  // Walked backwards, the set holds exactly the Ids stored after the node
  // at hand; the last fault recorded is the first in the image.
  IdSet later;
  size_t fault = 0;
  for (size_t k = count; k-- > 0;) {
    const size_t at = first + k * kNodeBytes;
    const DTreeNode n = load_node(image + at);
    size_t here = 0;
    if (n.Question < 0 || static_cast<uint32_t>(n.Question) >= questions)
      here = at + 2;
    else if (n.No <= 0 && !later.has(n.No))
      here = at + 4;
    else if (n.Yes <= 0 && !later.has(n.Yes))
      here = at + 6;
    if (here != 0) fault = here;
    later.add(n.Id);
  }
  if (fault != 0) return fault;
  return later.has(0) ? 0 : first;
}

}  // namespace

size_t check_trees(const unsigned char *image, size_t size, int tree_count, size_t &end) {
  size_t at = 4;
  if (size < 8) return at;
  const uint32_t patterns = load_u32(image + at);
  // Every pattern takes at least its terminator.
  if (patterns > size - 8) return at;
  at = 8;
  for (uint32_t k = 0; k < patterns; ++k) {
    const void *nul = std::memchr(image + at, '\0', size - at);
    if (nul == nullptr) return at;
    at = static_cast<size_t>(static_cast<const unsigned char *>(nul) - image) + 1;
  }
  if (pad4(at) > size) return at;
  at = pad4(at);
  if (size - at < 4) return at;
  const uint32_t questions = load_u32(image + at);
  // Every question record takes at least 4 bytes.
  if (questions > (size - at - 4) / 4) return at;
  at += 4;
  for (uint32_t q = 0; q < questions; ++q) {
    if (size - at < 4) return at;
    const int16_t n = load_i16(image + at);
    if (n < 0) return at;
    const size_t record = pad4(2 + 2 * static_cast<size_t>(n));
    if (record > size - at) return at;
    for (int16_t k = 0; k < n; ++k) {
      const int16_t index = load_i16(image + at + 2 + 2 * static_cast<size_t>(k));
      if (index < 0 || static_cast<uint32_t>(index) >= patterns) return at + 2 + 2 * k;
    }
    at += record;
  }
  for (int t = 0; t < tree_count; ++t) {
    if (size - at < 4) return at;
    const uint32_t bytes = load_u32(image + at);
    if (bytes == 0 || bytes % kNodeBytes != 0 || bytes > size - at - 4) return at;
    if (const size_t fault = check_nodes(image, at + 4, bytes, questions); fault != 0) return fault;
    at += 4 + bytes;
    if (pad4(at) > size) return at;
    at = pad4(at);
  }
  end = at;
  return 0;
}

}  // namespace utils::dtree

extern "C" UTILS_API size_t DTree_Check(const void *image, size_t size, int tree_count) {
  if (image == nullptr || tree_count < 0 || tree_count > DTREE_MAX_TREES) return 1;
  size_t end = 0;
  return utils::dtree::check_trees(static_cast<const unsigned char *>(image), size, tree_count,
                                   end);
}
