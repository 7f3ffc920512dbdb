// label_fields.h - the label-field table of "utts labels": one field a line,
// its feature path, the text written before the value and the text written
// after it.
#ifndef UTILS_UTTS_LABEL_FIELDS_H
#define UTILS_UTTS_LABEL_FIELDS_H

#include <cstddef>
#include <string>
#include <vector>

namespace utts {

// The table in the arrays MakeFeatureLabel takes. The pointers point into
// the strings of the same object: keep it alive (and unmoved) while they
// are used.
class LabelFields {
 public:
  // Reads the table text. A line holds up to three columns separated by
  // blanks or TABs: path, prefix, suffix; "" stands for an empty column and
  // a missing prefix or suffix is empty. Blank lines and lines whose first
  // non-blank character is '#' are skipped. On an error returns false with
  // "line N: reason" in `error`.
  bool parse(const std::string &text, std::string &error);

  int count() const { return static_cast<int>(names_.size()); }
  // Bytes that any label of this table fits in: every prefix and suffix,
  // the longest value for each field, the terminator.
  size_t label_bytes() const;
  const char *const *names() const { return name_ptrs_.data(); }
  const char *const *prefixes() const { return prefix_ptrs_.data(); }
  const char *const *suffixes() const { return suffix_ptrs_.data(); }

 private:
  std::vector<std::string> names_, prefixes_, suffixes_;
  std::vector<const char *> name_ptrs_, prefix_ptrs_, suffix_ptrs_;
};

}  // namespace utts

#endif  // UTILS_UTTS_LABEL_FIELDS_H
