// fuzz_image_text.cpp - fuzzes the readable forms of "utts compile-tree" and
// "utts compile-model" (the front end's parsers, compiled in): any text the
// compilers accept must give an image that its checker passes, and dumping
// that image and compiling the dump must give the same bytes.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "dtree.h"
#include "hts_model.h"
#include "utts/model_text.h"
#include "utts/tree_file.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

void model_round_trip(const std::string &text) {
  utts::ModelText model;
  std::string error, image;
  if (!utts::parse_model(text, model, error)) return;
  // Each row is 512 bytes of image: keep the images small.
  if (model.statistics && model.rows > 64) return;
  if (!utts::encode_model(model, image, error)) return;
  const auto *data = reinterpret_cast<const unsigned char *>(image.data());
  check(HTSModel_Check(data, image.size()) == 0);
  utts::ModelText decoded;
  check(utts::decode_model(data, decoded) == image.size());
  utts::ModelText again;
  std::string image_again;
  check(utts::parse_model(utts::print_model(decoded), again, error));
  check(utts::encode_model(again, image_again, error));
  check(image_again == image);
}

void tree_round_trip(const std::string &text) {
  utts::TreeSet set;
  std::string error, image;
  if (!utts::parse_tree_file(text, set, error) || !utts::encode_tree_file(set, image, error))
    return;
  check(utts::tree_file_count(image) == static_cast<int>(set.trees.size()));
  utts::TreeSet decoded;
  utts::decode_trees(reinterpret_cast<const unsigned char *>(image.data()),
                     static_cast<int>(set.trees.size()), decoded);
  decoded.header_given = false;
  utts::TreeSet again;
  std::string image_again;
  check(utts::parse_tree_file(utts::print_trees(decoded, false), again, error));
  check(utts::encode_tree_file(again, image_again, error));
  check(image_again == image);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > 1 << 14) return 0;
  const std::string text(reinterpret_cast<const char *>(data), size);
  model_round_trip(text);
  tree_round_trip(text);
  return 0;
}
