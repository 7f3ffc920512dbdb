// feature_path.cpp - GetFeature: a feature of an item, reached through a
// path of "."-separated steps. The path is read in place; only a feature or
// relation name is copied, into a stack buffer, to terminate it.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "context_label.h"

namespace {

// Longest feature or relation name inside a path that can be looked up;
// a longer one answers like an unknown name.
constexpr size_t kNameBytes = 128;

const val *zero() { return val_string_n(0); }
const val *missing() { return &utils_val_string_x; }

enum class Step { kNone, kNext, kPrev, kParent, kDaughter, kRelation };

bool same(const char *segment, size_t len, const char *word) {
  return bsr_strlen(word) == len && bsr_strncmp(segment, word, static_cast<int32_t>(len)) == 0;
}

Step step_of(const char *segment, size_t len) {
  if (same(segment, len, "n")) return Step::kNext;
  if (same(segment, len, "p")) return Step::kPrev;
  if (same(segment, len, "parent")) return Step::kParent;
  if (same(segment, len, "daughter")) return Step::kDaughter;
  if (len >= 2 && segment[0] == 'R' && segment[1] == ':') return Step::kRelation;
  return Step::kNone;
}

// Copies `len` bytes and a terminator; false when they do not fit.
bool copy_name(const char *segment, size_t len, char (&buf)[kNameBytes]) {
  if (len >= kNameBytes) return false;
  for (size_t k = 0; k < len; ++k) buf[k] = segment[k];
  buf[len] = '\0';
  return true;
}

const val *builtin_or_feature(const item *i, const char *name) {
  if (ffunc fn = GetFeatFunc(name); fn != nullptr) {
    const val *v = fn(i);
    return v != nullptr ? v : zero();
  }
  const val *v = item_feat(i, name);
  return v != nullptr ? v : zero();
}

}  // namespace

extern "C" UTILS_API const val *GetFeature(const item *i, const char *path) {
  if (i == nullptr) return missing();
  if (path == nullptr) return zero();
  if (bsr_strchr(path, '.') == nullptr) return builtin_or_feature(i, path);

  const item *at = i;
  const char *p = path;
  char name[kNameBytes];
  for (;;) {
    while (*p == '.') ++p;          // empty segments
    if (*p == '\0') return zero();  // the path ended with a step
    const char *segment = p;
    while (*p != '.' && *p != '\0') ++p;
    const size_t len = static_cast<size_t>(p - segment);
    switch (step_of(segment, len)) {
      case Step::kNext:
        at = item_next(at);
        break;
      case Step::kPrev:
        at = item_prev(at);
        break;
      case Step::kParent:
        at = item_parent(at);
        break;
      case Step::kDaughter:
        at = item_daughter(at);
        break;
      case Step::kRelation:
        at = copy_name(segment + 2, len - 2, name) ? item_as(at, name) : nullptr;
        break;
      case Step::kNone: {
        // The last segment is terminated in place; an inner one is copied.
        const char *feature = segment;
        if (*p != '\0') {
          if (!copy_name(segment, len, name)) return zero();
          feature = name;
        }
        // A feature the item carries takes the rest of the path into its
        // name; otherwise the segment is a built-in's name or nothing.
        if (item_feat_present(at, feature)) {
          const val *v = item_feat(at, segment);
          return v != nullptr ? v : zero();
        }
        if (ffunc fn = GetFeatFunc(feature); fn != nullptr) {
          const val *v = fn(at);
          return v != nullptr ? v : zero();
        }
        return zero();
      }
    }
    if (at == nullptr) return missing();
  }
}
