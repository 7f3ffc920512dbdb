// tree_check.h - the structural check of a tree image, shared by
// DTree_Check and the model section check.
#ifndef UTILS_NLP_DTREE_TREE_CHECK_H
#define UTILS_NLP_DTREE_TREE_CHECK_H

#include <cstddef>

namespace utils::dtree {

// Checks the tree image of `size` bytes at `image` (not null) holding
// `tree_count` trees (0 .. 16). Returns 0 and sets `end` to the offset just
// after the last padded tree, or returns the offset (4 or more) of the
// first fault. Reads nothing at or beyond image + size.
size_t check_trees(const unsigned char *image, size_t size, int tree_count, size_t &end);

}  // namespace utils::dtree

#endif  // UTILS_NLP_DTREE_TREE_CHECK_H
