// image_kinds.cpp - the table of image kinds that "utts dump" and "utts
// lookup" recognise, most specific first.
#include "utts/image_kinds.h"

#include <cstring>

namespace utts {

const ImageKind kImageKinds[] = {
    {"tree", "decision trees (utts compile-tree)", recognise_tree_file, dump_tree_file},
    {"model", "a model section (utts compile-model)", recognise_model, dump_model},
    {"dict", "an NLP dictionary (utts compile-dict)", recognise_dict, dump_dict_image},
    {nullptr, nullptr, nullptr, nullptr},
};

const ImageKind *find_image_kind(const std::string &image, const std::string &name) {
  for (const ImageKind *k = kImageKinds; k->name != nullptr; ++k) {
    if (!name.empty() && name != k->name) continue;
    if (k->recognise(image)) return k;
  }
  return nullptr;
}

}  // namespace utts
