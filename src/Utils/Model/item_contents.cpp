// item_contents.cpp - item contents: one record per object, shared by its items
// in every relation, alive while some relation holds an item of it.
#include "Utils/Model/item_contents.h"

#include "Utils/Model/feature_store.h"
#include "Utils/TextMemory/private_heap.h"

namespace {

item_contents *new_contents(bsr_heap *heap) {
  auto *c = static_cast<item_contents *>(utils::text::alloc_on(heap, sizeof(item_contents)));
  if (c == nullptr) return nullptr;
  c->features = new_features_local(heap);
  c->relations = new_features_local(heap);
  if (c->features == nullptr || c->relations == nullptr) {
    delete_features(c->features);
    delete_features(c->relations);
    utils::text::free_on(heap, c);
    return nullptr;
  }
  return c;
}

void free_contents(bsr_heap *heap, item_contents *c) {
  delete_features(c->relations);
  delete_features(c->features);
  utils::text::free_on(heap, c);
}

}  // namespace

namespace utils::model {

bool attach_contents(item *i, const item *shared) {
  item_contents *c = shared != nullptr ? shared->contents : nullptr;
  const bool made = c == nullptr;
  if (made) c = new_contents(heap_of(i->relation));
  if (c == nullptr) return false;
  if (i->contents == c) return true;
  // An entry already naming an item of this relation is replaced: the entry
  // names the newest item attached. Contents must name every item that
  // holds them, or they would be freed under one that still does: without
  // the entry the item is not attached at all.
  if (!adopt_value(c->relations, i->relation->name, item_val(i))) {
    if (made) free_contents(heap_of(i->relation), c);
    return false;
  }
  detach_contents(i);
  i->contents = c;
  return true;
}

void detach_contents(item *i) {
  item_contents *c = i->contents;
  if (c == nullptr) return;
  feat_remove(c->relations, i->relation->name);
  if (c->relations->head == nullptr) free_contents(heap_of(i->relation), c);
  i->contents = nullptr;
}

}  // namespace utils::model
