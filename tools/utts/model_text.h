// model_text.h - model sections in their readable form and as images:
// label fields, delta windows, the stream value, trees with their values,
// and the statistics rows with the trailing block.
#ifndef UTILS_UTTS_MODEL_TEXT_H
#define UTILS_UTTS_MODEL_TEXT_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "utts/tree_text.h"

namespace utts {

struct WindowText {
  int32_t left = 0, right = 0;
  std::vector<float> coefficients;  // right - left + 1, the first for `left`
};

struct ModelText {
  TreeSet trees;  // the fields, questions and trees
  std::vector<WindowText> windows;
  uint32_t window_value = 0, stream_value = 0, rows = 0;
  bool statistics = false;  // false: the section ends after the trees
  uint32_t has_ivar = 0;
  std::map<uint32_t, std::vector<int32_t>> mean, ivar;  // row -> leading values
  std::string extra;                                    // the trailing block
};

// Reads the readable form; false with "line N: reason".
bool parse_model(const std::string &text, ModelText &model, std::string &error);

// The section image.
bool encode_model(const ModelText &model, std::string &out, std::string &error);

// Reads a section that HTSModel_Check accepted; returns its size.
size_t decode_model(const unsigned char *data, ModelText &model);

// The readable form, which parse_model and encode_model turn back into the
// same bytes.
std::string print_model(const ModelText &model);

}  // namespace utts

#endif  // UTILS_UTTS_MODEL_TEXT_H
