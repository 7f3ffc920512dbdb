// cart.cpp - cart_interpret_questions: a classification tree walked over
// feature values, each feature read once per walk.
#include "context_label.h"
#include "dtree.h"
#include "utt_features.h"

namespace {

constexpr uint8_t kEqual = 0;
constexpr uint8_t kMember = 1;
constexpr uint8_t kLess = 2;
constexpr uint8_t kGreater = 3;

bool holds(uint8_t op, const val *feature, const val *operand) {
  switch (op) {
    case kEqual:
      return val_equal(feature, operand) != 0;
    case kMember:
      return val_member(feature, operand) != 0;
    case kLess:
      return val_less(feature, operand) != 0;
    case kGreater:
      return val_greater(feature, operand) != 0;
    default:
      return false;
  }
}

}  // namespace

extern "C" UTILS_API const val *cart_interpret_questions(const item *i, const cart *c, int start) {
  if (c == nullptr || c->nodes == nullptr || start < 0) return nullptr;
  // The values read so far, by feature name. Without it (no memory) every
  // question reads its feature again, with the same answers.
  features *seen = new_features();
  const cart_node *node = c->nodes + start;
  while (node->op != CART_LEAF) {
    const char *name = c->feature_names[node->feature];
    const val *value = seen != nullptr ? feat_val(seen, name) : nullptr;
    if (value == nullptr) {
      value = GetFeature(i, name);
      if (seen != nullptr) feat_set(seen, name, value);
    }
    node = holds(node->op, value, node->value) ? node + 1 : c->nodes + node->no_node;
  }
  delete_features(seen);
  return node->value;
}
