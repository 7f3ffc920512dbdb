// tree_file.h - tree files: the readable form of a set of decision trees
// (fields, questions, trees) and its image, whose first word holds the tree
// count.
#ifndef UTILS_UTTS_TREE_FILE_H
#define UTILS_UTTS_TREE_FILE_H

#include <string>

#include "utts/tree_text.h"

namespace utts {

// Reads the readable form; false with "line N: reason".
bool parse_tree_file(const std::string &text, TreeSet &set, std::string &error);

// The image; the first word is the tree count unless "header" says otherwise.
bool encode_tree_file(const TreeSet &set, std::string &out, std::string &error);

// The tree count a tree file's image holds, or -1 when it is not a sound
// tree file filling all of `image`.
int tree_file_count(const std::string &image);

}  // namespace utts

#endif  // UTILS_UTTS_TREE_FILE_H
