// hts_model_check.cpp - HTSModel_Check: a model section validated against
// its size before anything trusts it.
#include <cstring>

#include "NLP/NLP_DTree/image_read.h"
#include "NLP/NLP_DTree/tree_check.h"
#include "hts_model.h"

namespace utils::hmm {

namespace {

using utils::dtree::load_u32;
using utils::dtree::pad4;

constexpr uint64_t kRowBytes = 2 * HTS_MODEL_ROW_VALUES;

// Offsets are counted from the section start; a fault at 0 reads 1.
size_t fault_at(size_t offset) { return offset == 0 ? 1 : offset; }

// The offset `at` padded to a multiple of 4 from `origin`.
size_t pad_from(size_t origin, size_t at) { return origin + pad4(at - origin); }

size_t check_section(const unsigned char *image, size_t size) {
  size_t at = 0;
  if (size < 4) return fault_at(at);
  const uint32_t fields = load_u32(image);
  // Every field takes at least three terminators.
  if (fields > (size - 4) / 3) return fault_at(at);
  at = 4;
  for (uint32_t s = 0; s < 3 * fields; ++s) {
    const void *nul = std::memchr(image + at, '\0', size - at);
    if (nul == nullptr) return at;
    at = static_cast<size_t>(static_cast<const unsigned char *>(nul) - image) + 1;
  }
  if (pad_from(0, at) > size) return at;
  at = pad_from(0, at);

  const size_t windows = at;
  if (size - at < 4) return at;
  const uint32_t window_count = load_u32(image + at);
  if (window_count > HTS_MODEL_MAX_WINDOWS) return at;
  at += 4;
  if (window_count > 0) {
    if (size - at < 8 * static_cast<size_t>(window_count)) return at;
    const size_t left = at, right = at + 4 * window_count;
    at += 8 * window_count;
    for (uint32_t w = 0; w < window_count; ++w) {
      const int32_t l = static_cast<int32_t>(load_u32(image + left + 4 * w));
      const int32_t r = static_cast<int32_t>(load_u32(image + right + 4 * w));
      if (r < l) return right + 4 * w;
      const uint64_t bytes = 4 * (static_cast<uint64_t>(static_cast<int64_t>(r) - l) + 1);
      if (bytes > size - at) return at;
      at += static_cast<size_t>(bytes);
    }
    if (size - at < 4) return at;
    at += 4;
  }
  if (pad_from(windows, at) > size) return at;
  at = pad_from(windows, at);

  if (size - at < 8) return at;
  at += 4;  // the stream value
  const uint32_t tree_count = load_u32(image + at);
  if (tree_count > HTS_MODEL_MAX_TREES) return at;
  at += 4;
  if (size - at < 4 * static_cast<size_t>(tree_count) + 4) return at;
  at += 4 * tree_count;
  const uint32_t rows = load_u32(image + at);
  at += 4;
  size_t tree_end = 0;
  if (const size_t fault =
          utils::dtree::check_trees(image + at, size - at, static_cast<int>(tree_count), tree_end);
      fault != 0)
    return at + fault;
  at += tree_end;

  const size_t block = at;
  if (size - at < 4) return at;
  const uint32_t extra_bytes = load_u32(image + at);
  at += 4;
  if (extra_bytes == 0) return 0;
  if (size - at < 4) return at;
  const uint32_t has_ivar = load_u32(image + at);
  at += 4;
  const uint64_t table_bytes = kRowBytes * rows * (has_ivar != 0 ? 2 : 1);
  if (table_bytes > size - at) return at;
  at += static_cast<size_t>(table_bytes);
  if (extra_bytes > size - at) return at;
  at += extra_bytes;
  if (pad_from(block, at) > size) return at;
  // The consumed count is an int.
  if (pad_from(block, at) > INT32_MAX) return block;
  return 0;
}

}  // namespace

}  // namespace utils::hmm

extern "C" UTILS_API size_t HTSModel_Check(const void *image, size_t size) {
  if (image == nullptr) return 1;
  return utils::hmm::check_section(static_cast<const unsigned char *>(image), size);
}
