// check_test.cpp - DTree_Check and HTSModel_Check on sound, truncated and
// corrupted images: the offset of the first fault for every field, and no
// read past the size (each image sits in a buffer of exactly its size).
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include "hts_model.h"
#include "image_builder.h"

namespace {

using namespace dtree_test;
using Image = std::vector<unsigned char>;

void put_u32(Image &image, size_t at, uint32_t v) {
  for (int k = 0; k < 4; ++k) image[at + k] = static_cast<unsigned char>(v >> 8 * k);
}
void put_i16(Image &image, size_t at, int16_t v) {
  image[at] = static_cast<unsigned char>(static_cast<uint16_t>(v));
  image[at + 1] = static_cast<unsigned char>(static_cast<uint16_t>(v) >> 8);
}

TreeParts sample_tree() {
  TreeParts s;
  s.header = 2;
  s.patterns = {"[C]a", "*[L]b*", "[C]c"};
  s.questions = {{0, 2}, {1}, {}};
  s.trees = {{{0, 0, -1, 2}, {-1, 1, -2, 3}, {-2, 2, 4, 5}}, {{0, 1, 6, 7}}};
  return s;
}

size_t check_tree(const Image &image, size_t size, int trees = 2) {
  const Image exact(image.begin(), image.begin() + static_cast<long>(size));
  return DTree_Check(exact.data(), exact.size(), trees);
}

TEST(DTreeCheck, SoundImagesPass) {
  const Image image = tree_image(sample_tree());
  EXPECT_EQ(check_tree(image, image.size()), 0u);
  Image longer = image;
  longer.resize(image.size() + 5, 0xEE);
  EXPECT_EQ(check_tree(longer, longer.size()), 0u);
  // Fewer trees than stored is sound too: the rest is trailing data.
  EXPECT_EQ(check_tree(image, image.size(), 1), 0u);
  EXPECT_EQ(check_tree(image, image.size(), 0), 0u);
}

TEST(DTreeCheck, EveryTruncationFails) {
  const Image image = tree_image(sample_tree());
  for (size_t n = 0; n < image.size(); ++n) EXPECT_NE(check_tree(image, n), 0u) << n;
}

TEST(DTreeCheck, ArgumentsOutOfRange) {
  const Image image = tree_image(sample_tree());
  EXPECT_EQ(DTree_Check(nullptr, 100, 1), 1u);
  EXPECT_EQ(DTree_Check(image.data(), image.size(), 17), 1u);
  EXPECT_EQ(DTree_Check(image.data(), image.size(), -1), 1u);
  // A third tree would start where the image ends.
  EXPECT_EQ(DTree_Check(image.data(), image.size(), 3), image.size());
}

struct Corruption {
  const char *what;
  std::function<void(Image &, const TreeLayout &)> apply;
  std::function<size_t(const TreeLayout &)> fault;
};

TEST(DTreeCheck, EachCorruptFieldIsFound) {
  const std::vector<Corruption> cases = {
      {"pattern count beyond the image", [](Image &i, const TreeLayout &) { put_u32(i, 4, 1000); },
       [](const TreeLayout &) { return size_t{4}; }},
      {"pattern count past the strings",
       [](Image &i, const TreeLayout &l) {
         put_u32(i, 4, static_cast<uint32_t>(l.end - 8));  // every byte a string
       },
       [](const TreeLayout &l) { return l.end; }},
      {"question count beyond the image",
       [](Image &i, const TreeLayout &l) { put_u32(i, l.question_count, 0x10000); },
       [](const TreeLayout &l) { return l.question_count; }},
      {"negative pattern count of a question",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.questions[1], -1); },
       [](const TreeLayout &l) { return l.questions[1]; }},
      {"pattern count of a question beyond the image",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.questions[2], 30000); },
       [](const TreeLayout &l) { return l.questions[2]; }},
      {"pattern index past the table",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.questions[0] + 4, 3); },
       [](const TreeLayout &l) { return l.questions[0] + 4; }},
      {"negative pattern index",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.questions[1] + 2, -1); },
       [](const TreeLayout &l) { return l.questions[1] + 2; }},
      {"empty tree", [](Image &i, const TreeLayout &l) { put_u32(i, l.tree_sizes[1], 0); },
       [](const TreeLayout &l) { return l.tree_sizes[1]; }},
      {"tree size not whole nodes",
       [](Image &i, const TreeLayout &l) { put_u32(i, l.tree_sizes[0], 12); },
       [](const TreeLayout &l) { return l.tree_sizes[0]; }},
      {"tree size beyond the image",
       [](Image &i, const TreeLayout &l) { put_u32(i, l.tree_sizes[1], 16); },
       [](const TreeLayout &l) { return l.tree_sizes[1]; }},
      {"question index past the table",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.nodes[0][2] + 2, 3); },
       [](const TreeLayout &l) { return l.nodes[0][2] + 2; }},
      {"negative question index",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.nodes[1][0] + 2, -1); },
       [](const TreeLayout &l) { return l.nodes[1][0] + 2; }},
      {"No naming an earlier node",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.nodes[0][1] + 4, 0); },
       [](const TreeLayout &l) { return l.nodes[0][1] + 4; }},
      {"Yes naming a missing node",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.nodes[0][0] + 6, -9); },
       [](const TreeLayout &l) { return l.nodes[0][0] + 6; }},
      {"child named in the next tree only",
       [](Image &i, const TreeLayout &l) { put_i16(i, l.nodes[0][2] + 4, -5); },
       [](const TreeLayout &l) { return l.nodes[0][2] + 4; }},
      {"no root", [](Image &i, const TreeLayout &l) { put_i16(i, l.nodes[1][0], -3); },
       [](const TreeLayout &l) { return l.nodes[1][0]; }},
      {"the earlier of two faults",
       [](Image &i, const TreeLayout &l) {
         put_i16(i, l.nodes[0][2] + 6, -9);
         put_i16(i, l.nodes[0][1] + 2, 7);
       },
       [](const TreeLayout &l) { return l.nodes[0][1] + 2; }},
  };
  for (const Corruption &c : cases) {
    TreeLayout layout;
    Image image = tree_image(sample_tree(), &layout);
    c.apply(image, layout);
    EXPECT_EQ(check_tree(image, image.size()), c.fault(layout)) << c.what;
  }
}

// ---- Model sections ---------------------------------------------------------

ModelParts sample_model() {
  ModelParts m;
  m.fields = {"name", "[C]", "|", "p.name", "[L]", "", "0", "", ""};
  m.windows = {{0, 0, {1.0f}}, {-1, 1, {-0.5f, 0.0f, 0.5f}}};
  m.window_value = 1;
  m.stream_value = 2;
  m.tree_values = {10, 20};
  m.rows = 2;
  m.trees = sample_tree();
  m.extra_bytes = 3;
  m.has_ivar = 1;
  return m;
}

size_t check_model(const Image &image, size_t size) {
  const Image exact(image.begin(), image.begin() + static_cast<long>(size));
  return HTSModel_Check(exact.data(), exact.size());
}

TEST(HTSModelCheck, SoundSectionsPassAndAgreeWithCreate) {
  for (uint32_t extra : {0u, 3u, 4u}) {
    for (uint32_t ivar : {0u, 1u}) {
      ModelParts parts = sample_model();
      parts.extra_bytes = extra;
      parts.has_ivar = ivar;
      const Image image = model_image(parts);
      EXPECT_EQ(check_model(image, image.size()), 0u) << extra << " " << ivar;
      int consumed = 0;
      HTSModel *m = HTSModel_Create(image.data(), &consumed);
      EXPECT_EQ(consumed, static_cast<int>(image.size()));
      HTSModel_Destroy(m);
    }
  }
  ModelParts bare = sample_model();
  bare.windows.clear();
  bare.fields.clear();
  const Image image = model_image(bare);
  EXPECT_EQ(check_model(image, image.size()), 0u);
}

TEST(HTSModelCheck, EveryTruncationFails) {
  const Image image = model_image(sample_model());
  for (size_t n = 0; n < image.size(); ++n) EXPECT_NE(check_model(image, n), 0u) << n;
  EXPECT_EQ(HTSModel_Check(nullptr, 64), 1u);
}

struct ModelCorruption {
  const char *what;
  std::function<void(Image &, const ModelLayout &)> apply;
  std::function<size_t(const ModelLayout &)> fault;
};

TEST(HTSModelCheck, EachCorruptFieldIsFound) {
  // Windows: W at l.window_count, left[2], right[2], then coefficients.
  const std::vector<ModelCorruption> cases = {
      {"field count beyond the image", [](Image &i, const ModelLayout &) { put_u32(i, 0, 5000); },
       [](const ModelLayout &) { return size_t{1}; }},
      {"too many windows", [](Image &i, const ModelLayout &l) { put_u32(i, l.window_count, 33); },
       [](const ModelLayout &l) { return l.window_count; }},
      {"window ending before it starts",
       [](Image &i, const ModelLayout &l) { put_u32(i, l.window_count + 16, 0xFFFFFFFE); },
       [](const ModelLayout &l) { return l.window_count + 16; }},
      {"window coefficients beyond the image",
       [](Image &i, const ModelLayout &l) { put_u32(i, l.window_count + 16, 100000); },
       [](const ModelLayout &l) { return l.window_count + 20 + 4; }},
      {"too many trees", [](Image &i, const ModelLayout &l) { put_u32(i, l.tree_count, 17); },
       [](const ModelLayout &l) { return l.tree_count; }},
      {"a fault inside the trees",
       [](Image &i, const ModelLayout &l) {
         put_i16(i, l.tree_image + l.trees.nodes[1][0] + 6, -4);
       },
       [](const ModelLayout &l) { return l.tree_image + l.trees.nodes[1][0] + 6; }},
      {"rows beyond the image", [](Image &i, const ModelLayout &l) { put_u32(i, l.rows, 3); },
       [](const ModelLayout &l) { return l.first_row; }},
      {"trailing block beyond the image",
       [](Image &i, const ModelLayout &l) { put_u32(i, l.block, 9); },
       [](const ModelLayout &l) { return l.extra; }},
      {"padding of the trailing block cut off", [](Image &i, const ModelLayout &) { i.pop_back(); },
       [](const ModelLayout &l) { return l.extra + 3; }},
  };
  for (const ModelCorruption &c : cases) {
    ModelLayout layout;
    Image image = model_image(sample_model(), &layout);
    c.apply(image, layout);
    EXPECT_EQ(check_model(image, image.size()), c.fault(layout)) << c.what;
  }
}

}  // namespace
