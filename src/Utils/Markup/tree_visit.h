// tree_visit.h - visits a markup subtree in document order with an opening
// and a closing event per element, iteratively (no stack use per level).
#ifndef UTILS_MARKUP_TREE_VISIT_H
#define UTILS_MARKUP_TREE_VISIT_H

#include "utterance.h"

namespace utils::markup {

// Visits `first` with its subtree and, when `with_siblings`, every later
// sibling of `first` with theirs. `visitor.open(i)` is called for each item
// in document order and returns whether to enter the item's daughters;
// `visitor.close(i)` is called after the daughters of an entered item.
// Climbing asks the last daughter for its parent, which walks that sibling
// list once, so the whole visit is linear.
template <typename Visitor>
void visit_tree(item *first, bool with_siblings, Visitor &visitor) {
  item *cur = first;
  while (cur) {
    if (visitor.open(cur)) {
      if (item *down = item_daughter(cur); down != nullptr) {
        cur = down;
        continue;
      }
      visitor.close(cur);
    }
    for (;;) {
      if (cur == first && !with_siblings) return;
      if (item *next = item_next(cur); next != nullptr) {
        cur = next;
        break;
      }
      item *parent = item_parent(cur);
      if (!parent) return;
      visitor.close(parent);
      cur = parent;
    }
  }
}

}  // namespace utils::markup

#endif  // UTILS_MARKUP_TREE_VISIT_H
