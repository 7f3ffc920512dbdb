// structural_features.cpp - the built-in context features: positions of an
// item among the descendants of an ancestor, counted forward or backward,
// and numbers of descendants, one to four levels down. They answer with the
// model's constant strings, so nothing is allocated per question.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "context_label.h"

namespace utils::phonetics {

namespace {

const val *number(int n) { return val_string_n(n); }
const val *missing() { return &utils_val_string_x; }

const item *first_of(const item *parent, bool backward) {
  return backward ? item_last_daughter(parent) : item_daughter(parent);
}
const item *after(const item *sibling, bool backward) {
  return backward ? item_prev(sibling) : item_next(sibling);
}

// Walks the descendants of `node` exactly `levels` levels down in order
// (daughter by daughter, or last daughter first at every level when
// backward), counting them into `*count` until `target` is met. True when
// it was met; `*count` is then its 1-based place.
bool seek(const item *node, int levels, const item *target, bool backward, int *count) {
  for (const item *d = first_of(node, backward); d != nullptr; d = after(d, backward)) {
    if (levels == 1) {
      ++*count;
      if (d == target) return true;
    } else if (seek(d, levels - 1, target, backward, count)) {
      return true;
    }
  }
  return false;
}

int count_at(const item *node, int levels) {
  int n = 0;
  for (const item *d = item_daughter(node); d != nullptr; d = item_next(d)) {
    n += levels == 1 ? 1 : count_at(d, levels - 1);
  }
  return n;
}

const item *ancestor(const item *i, int levels) {
  for (int k = 0; k < levels && i != nullptr; ++k) i = item_parent(i);
  return i;
}

template <int kLevels, bool kBackward>
const val *position(const item *i) {
  const item *top = ancestor(i, kLevels);
  if (top == nullptr) return missing();
  int count = 0;
  if (seek(top, kLevels, i, kBackward, &count)) return number(count);
  // One level up, an item that is not among its parent's daughters reads
  // as the last place (0 for a parent without daughters); deeper, as absent.
  return kLevels == 1 ? number(count) : missing();
}

template <int kLevels>
const val *descendants(const item *i) {
  if (i == nullptr) return missing();
  return number(count_at(i, kLevels));
}

struct Builtin {
  const char *name;
  ffunc fn;
};

// Numbered names first; several names share a function.
const Builtin kBuiltins[] = {
    {"PositionFW1", position<1, false>},
    {"PositionFW", position<1, false>},
    {"PositionFW2", position<2, false>},
    {"PositionGrandFW", position<2, false>},
    {"PositionFW3", position<3, false>},
    {"PositionGreatGrandFW", position<3, false>},
    {"PositionFW4", position<4, false>},
    {"PositionBW1", position<1, true>},
    {"PositionBW", position<1, true>},
    {"PositionBW2", position<2, true>},
    {"PositionGrandBW", position<2, true>},
    {"PositionBW3", position<3, true>},
    {"PositionGreatGrandBW", position<3, true>},
    {"PositionBW4", position<4, true>},
    {"NumDaughter1", descendants<1>},
    {"NumDaughter", descendants<1>},
    {"NumDaughter2", descendants<2>},
    {"NumGrandDaughter", descendants<2>},
    {"NumDaughter3", descendants<3>},
    {"NumGreatGrandDaughter", descendants<3>},
    {"NumDaughter4", descendants<4>},
};

}  // namespace

}  // namespace utils::phonetics

extern "C" UTILS_API ffunc GetFeatFunc(const char *name) {
  if (name == nullptr) return nullptr;
  // Every built-in name begins with "Num" or "Pos": other names, the common
  // case in a label table, are turned away after two comparisons.
  if (name[0] != 'N' && name[0] != 'P') return nullptr;
  for (const utils::phonetics::Builtin &b : utils::phonetics::kBuiltins) {
    if (bsr_strcmp(b.name, name) == 0) return b.fn;
  }
  return nullptr;
}
