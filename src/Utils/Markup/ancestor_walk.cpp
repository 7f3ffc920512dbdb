// ancestor_walk.cpp - the ancestor-keeping document-order cursor used by the
// tag-insertion walk; its chain grows on the local allocator.
#include "Utils/Markup/ancestor_walk.h"

#include "bsr_string.h"

namespace utils::markup {

namespace {
constexpr uint32_t kInitialDepth = 32;
}  // namespace

AncestorWalk::AncestorWalk(item *root) : root_(root), current_(nullptr) {
  item *first = item_daughter(root);
  if (first == nullptr) return;
  chain_ = static_cast<item **>(bsr_safe_alloc(kInitialDepth * sizeof(item *)));
  if (chain_ == nullptr) return;
  capacity_ = kInitialDepth;
  chain_[depth_++] = root;
  current_ = first;
}

AncestorWalk::~AncestorWalk() { bsr_free(chain_); }

AncestorWalk::Step AncestorWalk::climb_from(item *at, uint32_t pops) const {
  for (;;) {
    if (item *next = item_next(at); next != nullptr) return {next, pops, false};
    if (pops >= depth_) return {nullptr, 0, false};
    item *up = chain_[depth_ - 1 - pops];
    if (up == root_) return {nullptr, 0, false};
    at = up;
    ++pops;
  }
}

AncestorWalk::Step AncestorWalk::plan(bool descend) const {
  if (current_ == nullptr) return {nullptr, 0, false};
  if (descend) {
    if (item *first = item_daughter(current_); first != nullptr) return {first, 0, true};
  }
  return climb_from(current_, 0);
}

AncestorWalk::Step AncestorWalk::plan_after_parent() const {
  item *up = parent();
  if (up == nullptr || up == root_) return {nullptr, 0, false};
  return climb_from(up, 1);
}

void AncestorWalk::go(const Step &step) {
  if (step.to == nullptr) {
    current_ = nullptr;
    return;
  }
  if (step.into) {
    if (depth_ == capacity_) {
      uint64_t grown = 2 * static_cast<uint64_t>(capacity_);
      void *more = grown * sizeof(item *) <= 0x7FFFFFF0u
                       ? bsr_safe_realloc(chain_, static_cast<uint32_t>(grown * sizeof(item *)))
                       : nullptr;
      if (more == nullptr) {
        current_ = nullptr;
        return;
      }
      chain_ = static_cast<item **>(more);
      capacity_ = static_cast<uint32_t>(grown);
    }
    chain_[depth_++] = current_;
  } else {
    depth_ -= step.pops;
  }
  current_ = step.to;
}

}  // namespace utils::markup
