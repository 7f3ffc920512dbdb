// hierarchy_builder.h - small prosodic trees for the label tests, built
// directly with the model's item functions: a "Phrase" tree of phrase, word,
// syllable and phone items, flat "Word" and "Phone" relations sharing their
// contents, and readers for the values that features answer.
#ifndef UTILS_PHONETICS_HIERARCHY_BUILDER_H
#define UTILS_PHONETICS_HIERARCHY_BUILDER_H

#include <string>
#include <vector>

#include "context_label.h"

namespace phonetics_test {

// The text of a wide-string value, "<int n>" for an integer, "<null>" or
// "<other>" otherwise.
inline std::string text_of(const val *v) {
  if (v == nullptr) return "<null>";
  if (const bsr_wchar *w = val_wstring(v); w != nullptr) {
    std::string s;
    for (; *w != 0; ++w) s += static_cast<char>(*w);
    return s;
  }
  if (v->c.atom.type == BSR_VAL_INT) return "<int " + std::to_string(val_int(v)) + ">";
  return "<other>";
}

// Words of a phrase, each the phone counts of its syllables.
using Shape = std::vector<std::vector<int>>;

// A phrase of words; each word lists its syllables' phone counts. Phones are
// named by their index over the whole phrase ("p0", "p1" ...).
class Tree {
 public:
  explicit Tree(const Shape &words) : u_(new_utterance()) {
    relation *tree = utt_relation_create(u_, "Phrase");
    relation *flat_words = utt_relation_create(u_, "Word");
    relation *flat_phones = utt_relation_create(u_, "Phone");
    phrase_ = relation_append(tree, nullptr);
    int n = 0;
    for (const std::vector<int> &syllables : words) {
      item *w = item_add_daughter(phrase_, relation_append(flat_words, nullptr));
      item_set_wstring(w, "name", (u"w" + std::u16string(1, u'0' + words_.size() % 10)).c_str());
      words_.push_back(w);
      for (int phones : syllables) {
        item *s = item_add_daughter(w, nullptr);
        syllables_.push_back(s);
        for (int k = 0; k < phones; ++k, ++n) {
          item *p = item_add_daughter(s, relation_append(flat_phones, nullptr));
          std::string name = "p" + std::to_string(n);
          item_set_wstring(p, "name", std::u16string(name.begin(), name.end()).c_str());
          phones_.push_back(p);
        }
      }
    }
  }
  ~Tree() { delete_utterance(u_); }
  Tree(const Tree &) = delete;
  Tree &operator=(const Tree &) = delete;

  utterance *utt() const { return u_; }
  item *phrase() const { return phrase_; }
  item *word(size_t k) const { return words_.at(k); }
  item *syllable(size_t k) const { return syllables_.at(k); }
  item *phone(size_t k) const { return phones_.at(k); }

 private:
  utterance *u_;
  item *phrase_ = nullptr;
  std::vector<item *> words_, syllables_, phones_;
};

inline std::string feature(const item *i, const char *path) { return text_of(GetFeature(i, path)); }

}  // namespace phonetics_test

#endif  // UTILS_PHONETICS_HIERARCHY_BUILDER_H
