// hierarchy_fixture.h - helpers of the hierarchy tests: an SSML document
// loaded into an utterance, pronunciations taken from the words' "ph"
// attributes, the focus set on the root, and relations read back as text.
#ifndef UTILS_HIERARCHY_HIERARCHY_FIXTURE_H
#define UTILS_HIERARCHY_HIERARCHY_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsr_unicode.h"
#include "context_label.h"
#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"

namespace hierarchy_test {

inline std::string utf8(const bsr_wchar *s) {
  if (s == nullptr) return "<none>";
  std::u16string w = s;
  std::string out(w.size() * 3 + 1, '\0');
  bsr_UTF16ToUTF8(w.c_str(), static_cast<uint32_t>(w.size()), &out[0],
                  static_cast<uint32_t>(out.size()));
  return out.c_str();
}

inline std::string feat(const item *i, const char *name) {
  const val *v = item_feat(i, name);
  if (v == nullptr) return "<none>";
  if (const bsr_wchar *w = val_wstring(v); w != nullptr) return utf8(w);
  return std::to_string(val_int(v));
}

// `name` of every top-level item of the relation, joined by spaces.
inline std::string names(const utterance *u, const char *rel, const char *name = "name") {
  std::string out;
  for (const item *i = relation_head(utt_relation(u, rel)); i != nullptr; i = item_next(i)) {
    out += (out.empty() ? "" : " ") + feat(i, name);
  }
  return out;
}

// The tree below `i`: (daughter daughter ...) with each leaf's "name".
inline std::string shape(const item *i) {
  if (item_daughter(i) == nullptr) return feat(i, "name");
  std::string out = "(";
  for (const item *d = item_daughter(i); d != nullptr; d = item_next(d)) {
    out += (d == item_daughter(i) ? "" : " ") + shape(d);
  }
  return out + ")";
}

inline int count(const item *first) {
  int n = 0;
  for (; first != nullptr; first = item_next(first)) ++n;
  return n;
}

// The label of every phone of the "Phone" relation, fields as the table gives them.
template <size_t kCount>
std::vector<std::string> labels(const utterance *u, const char *const (&names)[kCount],
                                const char *const (&prefixes)[kCount]) {
  const char *suffixes[kCount] = {};
  for (const char *&s : suffixes) s = "";
  std::vector<std::string> out;
  for (const item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
    char label[512];
    EXPECT_EQ(MakeFeatureLabel(p, names, prefixes, suffixes, static_cast<int>(kCount), label), 0);
    out.push_back(label);
  }
  return out;
}

class Document {
 public:
  explicit Document(const std::string &ssml) : u_(new_utterance()) {
    loaded_ = utt_load_ssml(u_, ssml.c_str()) == 1;
    if (!loaded_) return;
    item *root = root_item();
    const bsr_wchar *word_tag = WordTagName();
    for (item *w = utt_walk_next_tag(root, root, 1, word_tag); w != nullptr;
         w = utt_walk_next_tag(w, root, 1, word_tag)) {
      if (const bsr_wchar *ph = item_feat_wstring(w, "ph"); ph != nullptr) {
        CreatePhonemeWord(w, ph);
      }
    }
    feat_set(u_->features, "focus", item_val(root));
  }
  ~Document() { delete_utterance(u_); }
  Document(const Document &) = delete;
  Document &operator=(const Document &) = delete;

  bool loaded() const { return loaded_; }
  utterance *utt() const { return u_; }
  item *root_item() const { return relation_head(utt_relation(u_, "ssml")); }
  item *focus_phrase(int k) const {
    item *p = relation_head(utt_relation(u_, "focus_phrase"));
    for (; k > 0 && p != nullptr; --k) p = item_next(p);
    return p;
  }
  // Builds the phrase relations for focus phrase k in `lang`.
  void build(int k, const bsr_wchar *lang) {
    feat_set(u_->features, "focus_phrase", item_val(focus_phrase(k)));
    PhraseCreate(u_, lang);
  }

 private:
  utterance *u_;
  bool loaded_ = false;
};

}  // namespace hierarchy_test

#endif  // UTILS_HIERARCHY_HIERARCHY_FIXTURE_H
