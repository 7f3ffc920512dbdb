// tree_view.h - the "ssml" tree of an utterance as indented text, for
// showing what each stage of the analysis chain added.
#ifndef UTILS_UTTS_TREE_VIEW_H
#define UTILS_UTTS_TREE_VIEW_H

#include <string>

#include "utterance.h"

namespace utts {

// One line per item below and including `root`, two blanks of indent per
// level: an element as its tag followed by its other features in the
// order they were set (name=value; numbers as numbers, strings quoted),
// a text item as its quoted text.
std::string tree_view(item *root);

}  // namespace utts

#endif  // UTILS_UTTS_TREE_VIEW_H
