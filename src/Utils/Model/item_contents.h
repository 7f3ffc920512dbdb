// Attaching item contents (the features an object shares across relations)
// to items, and detaching them, which frees them with their last item.
#ifndef UTILS_MODEL_ITEM_CONTENTS_H
#define UTILS_MODEL_ITEM_CONTENTS_H

#include "utterance.h"

// The heap of a relation's records: its utterance's, or null (the local
// allocator) for a relation without an utterance.
inline bsr_heap *relation_heap(const relation *r) {
  return r != nullptr && r->utterance != nullptr ? r->utterance->heap : nullptr;
}

// An item's entry in its contents' relation table is an "item" value cell
// that lives in the same block as the item, right after it: making an item
// then costs one allocation instead of two, and the cell goes with its item.
// Items are allocated with this size.
constexpr size_t kItemBlockSize = sizeof(item) + sizeof(val);

inline val *item_entry_cell(item *i) { return reinterpret_cast<val *>(i + 1); }

// Gives `i` (an item of a relation) the contents of `shared`, or fresh
// contents when `shared` is null, and names `i` in the contents' relation
// table. False, with nothing changed, when fresh contents cannot be made.
bool attach_contents(item *i, const item *shared);

// Removes `i` from its contents' relation table and frees the contents when
// no relation refers to them any more. `i` is left without contents.
void detach_contents(item *i);

#endif  // UTILS_MODEL_ITEM_CONTENTS_H
