// fuzz_dict_text.cpp - arbitrary UTF-16 text segmented against the sample
// Chinese dictionary in both modes. The dictionary is compiled at start-up
// from the same sources as the build's (jieba's word list, data/zh/), with
// the compiler utts uses. In character mode the chosen words must spell the
// text; in token mode every token is one word.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "guarded_input.h"
#include "nlp_dict.h"
#include "utts/dict_source.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

std::string read_file(const std::string &path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "fuzz_dict_text: cannot read %s\n", path.c_str());
    std::abort();
  }
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// jieba's "word freq tag" lines as readings scored ln(freq / total).
std::string jieba_lexicon(const std::string &text) {
  std::istringstream in(text);
  std::string word, tag;
  long long freq = 0, total = 0;
  std::vector<std::pair<std::string, std::pair<long long, std::string>>> entries;
  while (in >> word >> freq >> tag) {
    if (freq < 1) freq = 1;
    total += freq;
    entries.push_back({word, {freq, tag}});
  }
  std::string out = "[words]\n";
  char score[32];
  for (const auto &e : entries) {
    std::snprintf(score, sizeof score, "%.6f",
                  std::log(static_cast<double>(e.second.first) / total));
    out += e.first + "\t" + e.second.second + "\t" + score + "\n";
  }
  return out;
}

std::vector<uint8_t> g_image;
NLPDIC *g_dict = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  utts::DictSource source;
  std::string error;
  const std::string data = UTILS_ZH_DATA;
  const bool ok = utts::read_dict_source(read_file(data + "/classes.txt"), "classes", "classes",
                                         source, error) &&
                  utts::read_dict_source(read_file(data + "/class_pairs.txt"), "pairs", "pairs",
                                         source, error) &&
                  utts::read_dict_source(read_file(data + "/punctuation.txt"), "punctuation",
                                         "words", source, error) &&
                  utts::read_dict_source(jieba_lexicon(read_file(UTILS_JIEBA_DICT)), "jieba",
                                         "words", source, error);
  if (!ok) {
    std::fprintf(stderr, "fuzz_dict_text: %s\n", error.c_str());
    std::abort();
  }
  g_image = utts::compile_dict(source);
  check(NLPDIC_Check(g_image.data(), g_image.size()) == 0);
  g_dict = NLPDIC_Create(g_image.data());
  check(g_dict != nullptr);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  // The text: the input's 16-bit units up to the first zero, zero-terminated
  // in a copy that ends at an inaccessible page.
  size_t units = 0;
  while (units * 2 + 1 < size && (data[2 * units] | data[2 * units + 1]) != 0) ++units;
  std::vector<uint8_t> bytes(data, data + units * 2);
  bytes.push_back(0);
  bytes.push_back(0);
  const unsigned char *fenced = fuzz::guarded_bytes(bytes.data(), bytes.size());
  std::u16string text;
  for (size_t k = 0; k < units; ++k)
    text += static_cast<char16_t>(data[2 * k] | data[2 * k + 1] << 8);
  const auto *wide = reinterpret_cast<const bsr_wchar *>(fenced);

  NLPDIC_Node *head = NLPDIC_DictBreak(g_dict, wide, 1);
  check((head == nullptr) == text.empty());
  if (head != nullptr) {
    std::u16string joined;
    int words = 0;
    for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link) {
      check(++words <= static_cast<int>(text.size()));
      check(n->Length >= 1 && n->Length <= 6);
      joined += n->Word;
    }
    // Scores stay far above the search's floor for texts of this size, so
    // the path is a true segmentation.
    if (text.size() < 1000) check(joined == text);
    NLPDIC_DeleNode(head);
  }
  head = NLPDIC_DictBreak(g_dict, wide, 0);
  if (head != nullptr) {
    for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link)
      check(n->Length >= 1 && std::u16string(n->Word).find(u' ') == std::u16string::npos);
    NLPDIC_DeleNode(head);
  }
  return 0;
}
