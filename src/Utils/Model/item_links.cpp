// item_links.cpp - items as nodes of a relation: reading sibling and tree
// links, inserting new items around an item or under it, and deleting an item
// with its subtree.
#include "Utils/Model/item_contents.h"
#include "Utils/TextMemory/private_heap.h"

using utils::model::detach_contents;
using utils::model::heap_of;

namespace {

// An item's contents appear at most once per relation.
bool same_relation(const item *i, const item *shared) {
  return shared != nullptr && shared->relation == i->relation;
}

item *first_sibling(const item *i) {
  while (i->prev != nullptr) i = i->prev;
  return const_cast<item *>(i);
}

void unlink_item(item *i) {
  relation *r = i->relation;
  if (i->next != nullptr) {
    i->next->prev = i->prev;
    i->next->up = i->up;  // a following sibling inherits a first daughter's parent
  }
  if (i->prev != nullptr) i->prev->next = i->next;
  if (i->up != nullptr) i->up->down = i->next;
  if (r != nullptr) {
    if (r->head == i) r->head = i->next;
    if (r->tail == i) r->tail = i->prev;
  }
  i->next = i->prev = i->up = nullptr;
}

}  // namespace

extern "C" {

UTILS_API item *item_next(const item *i) { return i != nullptr ? i->next : nullptr; }

UTILS_API item *item_prev(const item *i) { return i != nullptr ? i->prev : nullptr; }

UTILS_API item *item_daughter(const item *i) { return i != nullptr ? i->down : nullptr; }

UTILS_API item *item_parent(const item *i) { return i != nullptr ? first_sibling(i)->up : nullptr; }

UTILS_API item *item_nth_daughter(const item *i, int n) {
  if (i == nullptr || n < 0) return nullptr;
  item *d = i->down;
  for (; d != nullptr && n > 0; --n) d = d->next;
  return d;
}

UTILS_API item *item_last_daughter(const item *i) {
  item *d = i != nullptr ? i->down : nullptr;
  while (d != nullptr && d->next != nullptr) d = d->next;
  return d;
}

UTILS_API item *item_append(item *i, const item *shared) {
  if (i == nullptr || same_relation(i, shared)) return nullptr;
  item *n = new_item_relation(i->relation, shared);
  if (n == nullptr) return nullptr;
  n->prev = i;
  n->next = i->next;
  if (i->next != nullptr) i->next->prev = n;
  i->next = n;
  if (i->relation->tail == i) i->relation->tail = n;
  return n;
}

UTILS_API item *item_prepend(item *i, const item *shared) {
  if (i == nullptr || same_relation(i, shared)) return nullptr;
  item *n = new_item_relation(i->relation, shared);
  if (n == nullptr) return nullptr;
  n->next = i;
  n->prev = i->prev;
  if (i->prev != nullptr) i->prev->next = n;
  i->prev = n;
  if (i->up != nullptr) {  // the new item becomes the first daughter
    n->up = i->up;
    n->up->down = n;
    i->up = nullptr;
  }
  if (i->relation->head == i) i->relation->head = n;
  return n;
}

UTILS_API item *item_add_daughter(item *i, const item *shared) {
  if (i == nullptr) return nullptr;
  if (i->down != nullptr) return item_append(item_last_daughter(i), shared);
  if (same_relation(i, shared)) return nullptr;
  item *n = new_item_relation(i->relation, shared);
  if (n == nullptr) return nullptr;
  n->up = i;
  i->down = n;
  return n;
}

UTILS_API item *item_as(const item *i, const char *relname) {
  if (i == nullptr || i->contents == nullptr) return nullptr;
  return val_item(feat_val(i->contents->relations, relname));
}

UTILS_API utterance *item_utt(const item *i) {
  return i != nullptr && i->relation != nullptr ? i->relation->utterance : nullptr;
}

UTILS_API int item_equal(const item *a, const item *b) {
  if (a == b) return 1;
  return a != nullptr && b != nullptr && a->contents == b->contents ? 1 : 0;
}

UTILS_API void delete_item(item *i) {
  if (i == nullptr) return;
  unlink_item(i);
  while (i->down != nullptr) delete_item(i->down);
  detach_contents(i);
  utils::text::free_on(heap_of(i->relation), i);
}

}  // extern "C"
