/* item_tag.h - reading the element name of an item in a markup tree: an
 * item is an element exactly when it has a "tag" feature. */
#ifndef UTILS_MARKUP_ITEM_TAG_H
#define UTILS_MARKUP_ITEM_TAG_H

#include "bsr_string.h"
#include "utterance.h"

/* The feature that holds an element item's name. */
#define SSML_TAG_FEATURE "tag"
/* The feature that holds a text item's character data. */
#define SSML_TEXT_FEATURE "text"

/* The item's element name, or null for a text item (or a null item). */
inline const bsr_wchar *item_tag(item *i) { return item_feat_wstring(i, SSML_TAG_FEATURE); }

/* True when `i` is an element whose name equals `tag` exactly. */
inline bool item_has_tag(item *i, const bsr_wchar *tag) {
  const bsr_wchar *own = item_tag(i);
  return own && bsr_wcscmp(own, tag) == 0;
}

#endif /* UTILS_MARKUP_ITEM_TAG_H */
