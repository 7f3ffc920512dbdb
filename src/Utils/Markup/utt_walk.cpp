// utt_walk.cpp - pre-order successor and predecessor within a bounded
// subtree, plain and filtered by tag. Constant space, no allocation.
#include "utt_walk.h"

#include "Utils/Markup/item_tag.h"

using utils::markup::has_tag;

namespace {

// Climbs from `i` until an ancestor (or `i`) has a next sibling; null once
// the climb would reach `top` or run out of parents.
item *next_after_subtree(item *i, item *top) {
  for (item *cur = i;;) {
    if (item *sibling = item_next(cur); sibling != nullptr) return sibling;
    item *parent = item_parent(cur);
    if (parent == nullptr || parent == top) return nullptr;
    cur = parent;
  }
}

item *deepest_last_descendant(item *i) {
  for (item *last = item_last_daughter(i); last != nullptr; last = item_last_daughter(i)) i = last;
  return i;
}

}  // namespace

extern "C" {

UTILS_API item *utt_walk_next(item *i, item *top, int descend) {
  if (i == nullptr) return nullptr;
  if (descend) {
    if (item *first = item_daughter(i); first != nullptr) return first;
  }
  if (i == top) return nullptr;
  return next_after_subtree(i, top);
}

UTILS_API item *utt_walk_prev(item *i, item *top, int descend) {
  if (i == nullptr || i == top) return nullptr;
  if (item *sibling = item_prev(i); sibling != nullptr)
    return descend ? deepest_last_descendant(sibling) : sibling;
  item *parent = item_parent(i);
  return parent == top ? nullptr : parent;
}

UTILS_API item *utt_walk_next_tag(item *i, item *top, int descend, const bsr_wchar *tag) {
  for (item *cur = utt_walk_next(i, top, descend); cur != nullptr;
       cur = utt_walk_next(cur, top, descend)) {
    if (has_tag(cur, tag)) return cur;
  }
  return nullptr;
}

UTILS_API item *utt_walk_prev_tag(item *i, item *top, int descend, const bsr_wchar *tag) {
  for (item *cur = utt_walk_prev(i, top, descend); cur != nullptr;
       cur = utt_walk_prev(cur, top, descend)) {
    if (has_tag(cur, tag)) return cur;
  }
  return nullptr;
}

}  // extern "C"
