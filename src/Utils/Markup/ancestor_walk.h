// ancestor_walk.h - a document-order cursor over a subtree that keeps the
// chain of ancestors of its current item, so that the parent of every
// visited item is known without walking its sibling list.
#ifndef UTILS_MARKUP_ANCESTOR_WALK_H
#define UTILS_MARKUP_ANCESTOR_WALK_H

#include <stdint.h>

#include "utterance.h"

namespace utils::markup {

class AncestorWalk {
 public:
  // A planned move: the item to go to (null at the end of the walk), and
  // either one level down (into the current item) or `pops` levels up.
  struct Step {
    item *to;
    uint32_t pops;
    bool into;
    // True when the move leaves the current sibling list upward (or ends).
    bool leaves_list() const { return !into && (pops > 0 || to == nullptr); }
  };

  // Starts at the first daughter of `root`; the walk never leaves root's
  // subtree and never returns root.
  explicit AncestorWalk(item *root);
  ~AncestorWalk();
  AncestorWalk(const AncestorWalk &) = delete;
  AncestorWalk &operator=(const AncestorWalk &) = delete;

  item *current() const { return current_; }
  item *parent() const { return depth_ ? chain_[depth_ - 1] : nullptr; }

  // The pre-order successor: into the current item's daughters when
  // `descend` and it has any, else the item after its subtree.
  Step plan(bool descend) const;
  // The item after the subtree of the current item's parent.
  Step plan_after_parent() const;
  // Carries out a planned move. Ends the walk if memory for one more level
  // of ancestors cannot be had.
  void go(const Step &step);

 private:
  Step climb_from(item *at, uint32_t pops) const;

  item *root_;
  item *current_;
  item **chain_ = nullptr;  // ancestors of current_, root first
  uint32_t depth_ = 0;
  uint32_t capacity_ = 0;
};

}  // namespace utils::markup

#endif  // UTILS_MARKUP_ANCESTOR_WALK_H
