// tree_view.cpp - an indented listing of the "ssml" tree.
#include "utts/tree_view.h"

#include <cstdio>
#include <vector>

#include "bsr_unicode.h"
#include "utt_features.h"
#include "utt_walk.h"

namespace utts {
namespace {

std::string narrow(const bsr_wchar *s) {
  if (s == nullptr) return "";
  size_t n = 0;
  while (s[n] != 0) ++n;
  std::string out(3 * n + 1, '\0');
  bsr_UTF16ToUTF8(s, static_cast<uint32_t>(n), &out[0], static_cast<uint32_t>(out.size()));
  return out.c_str();
}

std::string value_text(const val *v) {
  if (v == nullptr) return "";
  switch (v->c.atom.type) {
    case BSR_VAL_INT:
      return std::to_string(val_int(v));
    case BSR_VAL_FLOAT: {
      char number[32];
      std::snprintf(number, sizeof number, "%g", static_cast<double>(val_float(v)));
      return number;
    }
    case BSR_VAL_WSTRING:
      return "\"" + narrow(val_wstring(v)) + "\"";
    default:
      return "(value)";
  }
}

int depth_of(const item *i, const item *root) {
  int depth = 0;
  for (const item *p = i; p != nullptr && p != root; p = item_parent(p)) ++depth;
  return depth;
}

std::string item_line(item *i) {
  const features *f = item_feats(i);
  const bsr_wchar *tag = item_feat_wstring(i, "tag");
  if (tag == nullptr) return "\"" + narrow(item_feat_wstring(i, "text")) + "\"";
  std::string line = narrow(tag);
  // The list is newest first; shown in the order the features were set.
  std::vector<const feature_pair *> pairs;
  for (const feature_pair *p = f != nullptr ? f->head : nullptr; p != nullptr; p = p->next)
    pairs.push_back(p);
  for (auto it = pairs.rbegin(); it != pairs.rend(); ++it) {
    const std::string name = (*it)->name;
    if (name == "tag") continue;
    line += " " + name + "=" + value_text((*it)->value);
  }
  return line;
}

}  // namespace

std::string tree_view(item *root) {
  std::string out;
  for (item *i = root; i != nullptr; i = utt_walk_next(i, root, 1)) {
    out += std::string(2 * static_cast<size_t>(depth_of(i, root)), ' ') + item_line(i) + "\n";
  }
  return out;
}

}  // namespace utts
