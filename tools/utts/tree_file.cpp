// tree_file.cpp - tree files and model sections as kinds of image: reading,
// writing, recognising and dumping.
#include "utts/tree_file.h"

#include "dtree.h"
#include "hts_model.h"
#include "utts/image_kinds.h"
#include "utts/model_text.h"

namespace utts {

bool parse_tree_file(const std::string &text, TreeSet &set, std::string &error) {
  std::vector<TextLine> lines;
  if (!split_lines(text, lines, error)) return false;
  TreeSetReader reader;
  for (const TextLine &line : lines) {
    bool taken = false;
    if (!reader.read(line, set, taken, error)) return false;
    if (!taken) {
      error = at_line(line.number, "unknown keyword '" + line.words[0] + "'");
      return false;
    }
    if (line.words[0] == "tree" && set.trees.back().has_value) {
      error = at_line(line.number, "trees of a tree file carry no value (models' trees do)");
      return false;
    }
  }
  return reader.finish(error);
}

bool encode_tree_file(const TreeSet &set, std::string &out, std::string &error) {
  out.clear();
  return encode_trees(set, out, error);
}

int tree_file_count(const std::string &image) {
  if (image.size() < 4) return -1;
  const auto *data = reinterpret_cast<const unsigned char *>(image.data());
  const uint32_t count =
      data[0] | data[1] << 8 | data[2] << 16 | static_cast<uint32_t>(data[3]) << 24;
  if (count > DTREE_MAX_TREES) return -1;
  if (DTree_Check(data, image.size(), static_cast<int>(count)) != 0) return -1;
  TreeSet set;
  if (decode_trees(data, static_cast<int>(count), set) != image.size()) return -1;
  return static_cast<int>(count);
}

bool recognise_tree_file(const std::string &image) { return tree_file_count(image) >= 0; }

std::string dump_tree_file(const std::string &image) {
  TreeSet set;
  const int count = tree_file_count(image);
  decode_trees(reinterpret_cast<const unsigned char *>(image.data()), count, set);
  set.header_given = false;
  return "# decision trees: " + std::to_string(count) + (count == 1 ? " tree\n" : " trees\n") +
         print_trees(set, false);
}

bool recognise_model(const std::string &image) {
  const auto *data = reinterpret_cast<const unsigned char *>(image.data());
  if (image.empty() || HTSModel_Check(data, image.size()) != 0) return false;
  ModelText model;
  return decode_model(data, model) == image.size();
}

std::string dump_model(const std::string &image) {
  ModelText model;
  decode_model(reinterpret_cast<const unsigned char *>(image.data()), model);
  return "# model section\n" + print_model(model);
}

}  // namespace utts
