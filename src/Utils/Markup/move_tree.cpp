// move_tree.cpp - moves an item with its daughters to the end of another
// item's daughters, within one relation.
#include "ssml_io.h"

namespace {

// Takes `i` out of its sibling list, fixing the neighbours, the parent's
// first-daughter link and the relation's head and tail.
void unlink(item *i) {
  relation *rel = i->relation;
  if (i->next != nullptr) {
    i->next->prev = i->prev;
    // A following sibling inherits the parent link of a first daughter.
    i->next->up = i->up;
  }
  if (i->prev != nullptr) i->prev->next = i->next;
  if (i->up != nullptr) i->up->down = i->next;
  if (rel != nullptr && rel->head == i) rel->head = i->next;
  if (rel != nullptr && rel->tail == i) rel->tail = i->prev;
  i->next = i->prev = i->up = nullptr;
}

void link_last_daughter(item *parent, item *i) {
  item *last = item_last_daughter(parent);
  if (last == nullptr) {
    parent->down = i;
    i->up = parent;
    return;
  }
  last->next = i;
  i->prev = last;
}

}  // namespace

extern "C" UTILS_API void move_tree(item *new_parent, item *i) {
  if (new_parent == nullptr || i == nullptr || new_parent == i ||
      new_parent->relation != i->relation)
    return;
  unlink(i);
  link_last_daughter(new_parent, i);
}
