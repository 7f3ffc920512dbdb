// image_builder.h - tree images and model sections written field by field
// for the tests, with the offset of every field noted for the checkers.
#ifndef UTILS_DTREE_IMAGE_BUILDER_H
#define UTILS_DTREE_IMAGE_BUILDER_H

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "dtree.h"

namespace dtree_test {

constexpr int kRowValues = 256;

// Little-endian bytes; pad() counts from `origin` (an offset in the image).
class Bytes {
 public:
  size_t size() const { return data_.size(); }
  const std::vector<unsigned char> &data() const { return data_; }
  void u32(uint32_t v) {
    for (int k = 0; k < 4; ++k) data_.push_back(static_cast<unsigned char>(v >> 8 * k));
  }
  void i16(int16_t v) {
    const auto u = static_cast<uint16_t>(v);
    data_.push_back(static_cast<unsigned char>(u));
    data_.push_back(static_cast<unsigned char>(u >> 8));
  }
  void f32(float f) {
    uint32_t bits;
    std::memcpy(&bits, &f, 4);
    u32(bits);
  }
  void str(const std::string &s) {
    data_.insert(data_.end(), s.begin(), s.end());
    data_.push_back(0);
  }
  void pad(size_t origin = 0) {
    while ((data_.size() - origin) % 4 != 0) data_.push_back(0);
  }
  void append(const std::vector<unsigned char> &more) {
    data_.insert(data_.end(), more.begin(), more.end());
  }

 private:
  std::vector<unsigned char> data_;
};

struct TreeParts {
  uint32_t header = 0;
  std::vector<std::string> patterns;
  std::vector<std::vector<int16_t>> questions;  // pattern indexes
  std::vector<std::vector<DTreeNode>> trees;
};

// Offsets of the fields of a tree image, for the checker tests.
struct TreeLayout {
  size_t pattern_count = 4, first_pattern = 8, question_count = 0;
  std::vector<size_t> questions;           // each record's n
  std::vector<size_t> tree_sizes;          // each tree's u32 S
  std::vector<std::vector<size_t>> nodes;  // each node's Id
  size_t end = 0;
};

inline std::vector<unsigned char> tree_image(const TreeParts &parts, TreeLayout *layout = nullptr,
                                             size_t origin = 0, Bytes *into = nullptr) {
  Bytes local;
  Bytes &b = into != nullptr ? *into : local;
  TreeLayout l;
  const size_t start = b.size();
  b.u32(parts.header);
  b.u32(static_cast<uint32_t>(parts.patterns.size()));
  for (const std::string &p : parts.patterns) b.str(p);
  b.pad(origin);
  l.question_count = b.size() - start;
  b.u32(static_cast<uint32_t>(parts.questions.size()));
  for (const auto &q : parts.questions) {
    l.questions.push_back(b.size() - start);
    b.i16(static_cast<int16_t>(q.size()));
    for (int16_t index : q) b.i16(index);
    b.pad(origin);
  }
  for (const auto &t : parts.trees) {
    l.tree_sizes.push_back(b.size() - start);
    b.u32(static_cast<uint32_t>(8 * t.size()));
    l.nodes.emplace_back();
    for (const DTreeNode &n : t) {
      l.nodes.back().push_back(b.size() - start);
      b.i16(n.Id);
      b.i16(n.Question);
      b.i16(n.No);
      b.i16(n.Yes);
    }
    b.pad(origin);
  }
  l.end = b.size() - start;
  if (layout != nullptr) *layout = l;
  return b.data();
}

struct Window {
  int32_t left, right;
  std::vector<float> coefficients;
};

struct ModelParts {
  std::vector<std::string> fields;  // name, prefix, suffix, name, ...
  std::vector<Window> windows;
  uint32_t window_value = 0, stream_value = 0;
  std::vector<uint32_t> tree_values;  // one per tree of `trees`
  uint32_t rows = 0;
  TreeParts trees;
  uint32_t extra_bytes = 0;  // B
  uint32_t has_ivar = 0;     // V
};

struct ModelLayout {
  size_t window_count = 0, tree_count = 0, rows = 0, tree_image = 0, block = 0, first_row = 0,
         extra = 0, end = 0;
  TreeLayout trees;
};

// Row r of the means holds 1000 * r + k at value k, of the inverse
// variances 2000 + k; the trailing block counts up from 1.
inline std::vector<unsigned char> model_image(const ModelParts &parts,
                                              ModelLayout *layout = nullptr) {
  Bytes b;
  ModelLayout l;
  b.u32(static_cast<uint32_t>(parts.fields.size() / 3));
  for (const std::string &s : parts.fields) b.str(s);
  b.pad();
  const size_t windows = b.size();
  l.window_count = windows;
  b.u32(static_cast<uint32_t>(parts.windows.size()));
  if (!parts.windows.empty()) {
    for (const Window &w : parts.windows) b.u32(static_cast<uint32_t>(w.left));
    for (const Window &w : parts.windows) b.u32(static_cast<uint32_t>(w.right));
    for (const Window &w : parts.windows)
      for (float c : w.coefficients) b.f32(c);
    b.u32(parts.window_value);
  }
  b.pad(windows);
  b.u32(parts.stream_value);
  l.tree_count = b.size();
  b.u32(static_cast<uint32_t>(parts.tree_values.size()));
  for (uint32_t v : parts.tree_values) b.u32(v);
  l.rows = b.size();
  b.u32(parts.rows);
  l.tree_image = b.size();
  tree_image(parts.trees, &l.trees, l.tree_image, &b);
  l.block = b.size();
  b.u32(parts.extra_bytes);
  if (parts.extra_bytes != 0) {
    b.u32(parts.has_ivar);
    l.first_row = b.size();
    for (uint32_t r = 0; r < parts.rows; ++r)
      for (int k = 0; k < kRowValues; ++k) b.i16(static_cast<int16_t>(1000 * r + k));
    if (parts.has_ivar != 0)
      for (uint32_t r = 0; r < parts.rows; ++r)
        for (int k = 0; k < kRowValues; ++k) b.i16(static_cast<int16_t>(2000 + k));
    l.extra = b.size();
    std::vector<unsigned char> extra;
    for (uint32_t k = 0; k < parts.extra_bytes; ++k)
      extra.push_back(static_cast<unsigned char>(k + 1));
    b.append(extra);
    b.pad(l.block);
  }
  l.end = b.size();
  if (layout != nullptr) *layout = l;
  return b.data();
}

}  // namespace dtree_test

#endif  // UTILS_DTREE_IMAGE_BUILDER_H
