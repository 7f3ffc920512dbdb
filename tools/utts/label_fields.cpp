// label_fields.cpp - reading the label-field table of "utts labels".
#include "utts/label_fields.h"

#include <sstream>

#include "context_label.h"

namespace utts {

namespace {

// Splits a line at runs of blanks; "" is an empty column.
void columns_of(const std::string &line, std::vector<std::string> &out) {
  out.clear();
  size_t at = 0;
  for (;;) {
    at = line.find_first_not_of(" \t\r", at);
    if (at == std::string::npos) return;
    const size_t end = line.find_first_of(" \t\r", at);
    std::string column = line.substr(at, end == std::string::npos ? end : end - at);
    if (column == "\"\"") column.clear();
    out.push_back(column);
    if (end == std::string::npos) return;
    at = end;
  }
}

}  // namespace

bool LabelFields::parse(const std::string &text, std::string &error) {
  names_.clear();
  prefixes_.clear();
  suffixes_.clear();
  std::istringstream in(text);
  std::vector<std::string> columns;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    const size_t first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    columns_of(line, columns);
    if (columns.size() > 3) {
      error = "line " + std::to_string(number) + ": more than three columns";
      return false;
    }
    if (columns[0].empty()) {
      error = "line " + std::to_string(number) + ": the feature path is empty";
      return false;
    }
    columns.resize(3);
    names_.push_back(columns[0]);
    prefixes_.push_back(columns[1]);
    suffixes_.push_back(columns[2]);
  }
  name_ptrs_.clear();
  prefix_ptrs_.clear();
  suffix_ptrs_.clear();
  for (size_t k = 0; k < names_.size(); ++k) {
    name_ptrs_.push_back(names_[k].c_str());
    prefix_ptrs_.push_back(prefixes_[k].c_str());
    suffix_ptrs_.push_back(suffixes_[k].c_str());
  }
  return true;
}

size_t LabelFields::label_bytes() const {
  size_t bytes = 1;
  for (size_t k = 0; k < names_.size(); ++k) {
    bytes += prefixes_[k].size() + suffixes_[k].size() + UTILS_LABEL_VALUE_MAX;
  }
  return bytes;
}

}  // namespace utts
