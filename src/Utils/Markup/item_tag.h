// item_tag.h - reading the element name of an item in a markup tree: an
// item is an element exactly when it has a "tag" feature.
#ifndef UTILS_MARKUP_ITEM_TAG_H
#define UTILS_MARKUP_ITEM_TAG_H

#include "Utils/Markup/ssml_names.h"
#include "bsr_string.h"
#include "utterance.h"

namespace utils::markup {

// The item's element name, or null for a text item (or a null item).
inline const bsr_wchar *tag_of(const item *i) { return item_feat_wstring(i, kTagFeature); }

// True when `i` is an element item.
inline bool is_element(const item *i) { return item_feat_present(i, kTagFeature) != 0; }

// True when `i` is an element whose name equals `tag` exactly.
inline bool has_tag(const item *i, const bsr_wchar *tag) {
  const bsr_wchar *own = tag_of(i);
  return own != nullptr && bsr_wcscmp(own, tag) == 0;
}

}  // namespace utils::markup

#endif  // UTILS_MARKUP_ITEM_TAG_H
