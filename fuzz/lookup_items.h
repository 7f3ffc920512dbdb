// lookup_items.h - a few items with names and neighbours for the tree
// harnesses to look up once an image has passed its check.
#ifndef UTILS_FUZZ_LOOKUP_ITEMS_H
#define UTILS_FUZZ_LOOKUP_ITEMS_H

#include <cstdlib>

#include "dtree.h"
#include "utterance.h"

namespace fuzz {

class LookupItems {
 public:
  LookupItems() {
    u_ = new_utterance();
    relation *r = utt_relation_create(u_, "Segment");
    const char16_t *names[kCount] = {u"pau", u"a", u"m", u"ng", u"a"};
    for (int k = 0; k < kCount; ++k) {
      items_[k] = relation_append(r, nullptr);
      item_set_wstring(items_[k], "name", names[k]);
      item_set_int(items_[k], "n", k - 2);
    }
  }
  ~LookupItems() { delete_utterance(u_); }
  LookupItems(const LookupItems &) = delete;
  LookupItems &operator=(const LookupItems &) = delete;

  // Every tree of `tree` for every item: each answer must be a leaf.
  void look_up_all(const DTree *tree) const {
    for (int t = 0; t < tree->TreeCount; ++t)
      for (const item *i : items_)
        if (DTree_Lookup(tree, t, i) <= 0) std::abort();
  }

  static constexpr int kCount = 5;

 private:
  utterance *u_ = nullptr;
  item *items_[kCount] = {};
};

// Fields the harnesses' trees ask about: "[" prefixes of one to three
// characters, one field that prints 0, one that no pattern can ask about.
inline const char *const kFieldNames[] = {"p.name", "name", "n.name", "n", "0", "name"};
inline const char *const kFieldPrefixes[] = {"[L]", "[C]", "[R]", "[", "[Z", "-"};
inline const char *const kFieldSuffixes[] = {"/", "/", "/", "", "", "+"};
constexpr int kFieldCount = 6;

}  // namespace fuzz

#endif  // UTILS_FUZZ_LOOKUP_ITEMS_H
