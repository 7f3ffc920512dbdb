// dictionary_file.cpp - reading, checking and opening a dictionary image.
#include "utts/dictionary_file.h"

#include "utts/file_io.h"

namespace utts {

bool DictionaryFile::open(const std::string &path, std::string &error) {
  if (!read_all(path, image_, error)) return false;
  if (const size_t fault = NLPDIC_Check(image_.data(), image_.size()); fault != 0) {
    error = "'" + path + "' is not a sound dictionary image (fault at offset " +
            std::to_string(fault) + ")";
    return false;
  }
  NLPDIC_Destroy(dict_);
  dict_ = NLPDIC_Create(image_.data());
  if (dict_ == nullptr) error = "out of memory";
  return dict_ != nullptr;
}

}  // namespace utts
