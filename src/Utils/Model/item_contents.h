// item_contents.h - attaching item contents (the features an object shares
// across relations) to items, and detaching them, which frees them with their
// last item.
#ifndef UTILS_MODEL_ITEM_CONTENTS_H
#define UTILS_MODEL_ITEM_CONTENTS_H

#include "utterance.h"

namespace utils::model {

// The heap of a relation's records: its utterance's, or null (the local
// allocator) for a relation without an utterance.
inline bsr_heap *heap_of(const relation *r) {
  return r != nullptr && r->utterance != nullptr ? r->utterance->heap : nullptr;
}

// Gives `i` (an item of a relation) the contents of `shared`, or fresh
// contents when `shared` is null, and names `i` in the contents' relation
// table. False, with nothing changed, when fresh contents cannot be made.
bool attach_contents(item *i, const item *shared);

// Removes `i` from its contents' relation table and frees the contents when
// no relation refers to them any more. `i` is left without contents.
void detach_contents(item *i);

}  // namespace utils::model

#endif  // UTILS_MODEL_ITEM_CONTENTS_H
