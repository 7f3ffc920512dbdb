// image_kinds.h - the kinds of memory image the front end reads and writes
// (tree files, model sections, ...): how each is recognised and turned back
// into its readable form. "utts dump" and "utts lookup" go through this
// table; a new kind of image is one entry in image_kinds.cpp.
#ifndef UTILS_UTTS_IMAGE_KINDS_H
#define UTILS_UTTS_IMAGE_KINDS_H

#include <string>

namespace utts {

struct ImageKind {
  const char *name;         // as given to "utts dump --kind"
  const char *description;  // for the help text
  // True when `image` is, as a whole, a sound image of this kind.
  bool (*recognise)(const std::string &image);
  // The readable form of a recognised image.
  std::string (*dump)(const std::string &image);
};

// The kinds in the order they are tried, ending with a null name.
extern const ImageKind kImageKinds[];

// The first kind that recognises `image`, or the kind named `name` when it
// is not empty and recognises it; null otherwise.
const ImageKind *find_image_kind(const std::string &image, const std::string &name);

// Tree files: a tree image whose first word (not read by the library) is
// its tree count. Model sections: one section filling the whole file.
bool recognise_tree_file(const std::string &image);
std::string dump_tree_file(const std::string &image);
bool recognise_model(const std::string &image);
std::string dump_model(const std::string &image);
// Dictionaries: an image NLPDIC_Check accepts as a whole.
bool recognise_dict(const std::string &image);
std::string dump_dict_image(const std::string &image);

}  // namespace utts

#endif  // UTILS_UTTS_IMAGE_KINDS_H
