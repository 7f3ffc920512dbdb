// inherited_att.cpp - attributes that an item inherits from its ancestors
// (such as "xml:lang"), and the nearest ancestor element of a given tag.
#include "utt_walk.h"

#include "Utils/Markup/item_tag.h"

using utils::markup::has_tag;

namespace {

// The nearest wide-string value of `name` on `i` or above it; null if none.
const bsr_wchar *nearest_value(item *i, const char *name) {
  for (item *cur = i; cur != nullptr; cur = item_parent(cur)) {
    if (const bsr_wchar *value = item_feat_wstring(cur, name); value != nullptr) return value;
  }
  return nullptr;
}

bool is_empty(const char *s) { return s == nullptr || !s[0]; }

}  // namespace

extern "C" {

UTILS_API const bsr_wchar *GetInheritAtt(item *i, const char *name) {
  if (i == nullptr || is_empty(name)) return nullptr;
  return nearest_value(i, name);
}

UTILS_API int IsHasInheritAtt(item *i, const char *name, const bsr_wchar *value) {
  if (i == nullptr || is_empty(name)) return 0;
  const bsr_wchar *found = nearest_value(i, name);
  if (found == nullptr) return 0;
  if (value == nullptr) return 1;
  return bsr_wcscmp(found, value) == 0 ? 1 : 0;
}

UTILS_API item *GetItemAncestor(item *i, const bsr_wchar *tag) {
  item *parent = item_parent(i);
  if (parent == nullptr) return nullptr;
  if (tag == nullptr || !tag[0]) return parent;
  // The item counts as its own ancestor: an element asked for its own tag
  // answers itself.
  for (item *cur = i; cur != nullptr; cur = item_parent(cur)) {
    if (has_tag(cur, tag)) return cur;
  }
  return nullptr;
}

}  // extern "C"
