// dictionary_file.h - a dictionary image read from a file, checked, and the
// dictionary made on it: what every command that segments starts with.
#ifndef UTILS_UTTS_DICTIONARY_FILE_H
#define UTILS_UTTS_DICTIONARY_FILE_H

#include <string>

#include "nlp_dict.h"

namespace utts {

class DictionaryFile {
 public:
  DictionaryFile() = default;
  ~DictionaryFile() { NLPDIC_Destroy(dict_); }
  DictionaryFile(const DictionaryFile &) = delete;
  DictionaryFile &operator=(const DictionaryFile &) = delete;

  // Reads the image at `path`, checks it with NLPDIC_Check and makes the
  // dictionary on it (the image stays here as long as the dictionary).
  // False with a one-line message when the file cannot be read, the image
  // is not sound or memory runs out.
  bool open(const std::string &path, std::string &error);

  // The dictionary, or null before a successful open.
  NLPDIC *get() const { return dict_; }

 private:
  std::string image_;
  NLPDIC *dict_ = nullptr;
};

}  // namespace utts

#endif  // UTILS_UTTS_DICTIONARY_FILE_H
