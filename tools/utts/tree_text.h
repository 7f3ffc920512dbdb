// tree_text.h - decision trees in their readable form and as images: label
// fields, named questions with their patterns, and trees as node lists.
// Shared by the tree files and the model sections.
#ifndef UTILS_UTTS_TREE_TEXT_H
#define UTILS_UTTS_TREE_TEXT_H

#include <cstdint>
#include <string>
#include <vector>

#include "dtree.h"
#include "utts/image_text.h"

namespace utts {

struct Field {
  std::string name, prefix, suffix;
};

struct Question {
  std::string name;
  std::vector<std::string> patterns;
  int line = 0;
};

struct NodeText {
  int16_t id = 0, no = 0, yes = 0;
  std::string question;
  int line = 0;
};

struct TreeText {
  bool has_value = false;
  uint32_t value = 0;  // a model's per-tree value
  std::vector<NodeText> nodes;
  int line = 0;
};

struct TreeSet {
  bool header_given = false;
  uint32_t header = 0;  // the image's first word
  std::vector<Field> fields;
  std::vector<Question> questions;
  std::vector<TreeText> trees;
};

// Reads the lines that describe fields, questions and trees ("field",
// "question", "header", "tree", "node", "end"), one at a time.
class TreeSetReader {
 public:
  // Takes `line` into `set` when its keyword is one of the above (`taken`
  // true); false with a message on an error.
  bool read(const TextLine &line, TreeSet &set, bool &taken, std::string &error);
  // Ends the text: false when a tree is still open.
  bool finish(std::string &error) const;

 private:
  bool in_tree_ = false;
};

// Appends the tree image of `set` to `out`: the patterns of all questions
// in order of first use (each once), the questions in order, the trees.
// Checks names, ranges and that every child is stored after its parent.
bool encode_trees(const TreeSet &set, std::string &out, std::string &error);

// Reads the tree image of `count` trees at `data` (checked by DTree_Check)
// into `set`, naming questions q0, q1, ...; returns the offset after it.
size_t decode_trees(const unsigned char *data, int count, TreeSet &set);

// The readable lines of the fields, and of the questions and trees (the
// per-tree values written when `with_values`).
std::string print_fields(const std::vector<Field> &fields);
std::string print_trees(const TreeSet &set, bool with_values);

// Warnings (one per line) for patterns that ask about no field of `fields`.
std::string unasked_patterns(const TreeSet &set);

// Little-endian words appended to an image.
void put_u32(std::string &out, uint32_t v);
void put_i16(std::string &out, int16_t v);
void pad4(std::string &out, size_t origin);

}  // namespace utts

#endif  // UTILS_UTTS_TREE_TEXT_H
