// ffeature.cpp - feature paths: one walker that follows the steps of a path
// ("n", "parent", "R:Word", ...) from an item, answering either the final
// feature name or the item reached. It copies the path into a fixed stack
// buffer and allocates nothing.
#include "Utils/Model/feature_store.h"
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "utt_ffeature.h"

using utils::model::float_of;
using utils::model::int_of;

namespace {

// At most this many path bytes are read (longer paths are cut silently), and
// at most this many tokens (98 separators) are taken. A path with more
// separators is refused like an unknown step rather than silently truncated,
// since a cut token list would answer a different question.
constexpr size_t kPathBytes = 199;
constexpr int kMaxTokens = 99;

struct Tokens {
  char text[kPathBytes + 1];
  const char *token[kMaxTokens];
  int count;
};

// Cuts the first kPathBytes bytes of `path` at every '.' and ':'. False when
// there are more tokens than the table holds.
bool tokenize(const char *path, Tokens *t) {
  size_t len = 0;
  while (len < kPathBytes && path[len] != '\0') ++len;
  t->count = 0;
  t->token[t->count++] = t->text;
  for (size_t k = 0; k < len; ++k) {
    char c = path[k];
    if (c == '.' || c == ':') {
      t->text[k] = '\0';
      if (t->count == kMaxTokens) return false;
      t->token[t->count++] = t->text + k + 1;
    } else {
      t->text[k] = c;
    }
  }
  t->text[len] = '\0';
  return true;
}

enum class Step {
  kUnknown,
  kNext,
  kPrev,
  kNextNext,
  kPrevPrev,
  kParent,
  kDaughter,
  kLastDaughter,
  kRelation
};

Step step_of(const char *token) {
  switch (token[0]) {
    case 'n':
      if (token[1] == '\0') return Step::kNext;
      if (token[1] == 'n' && token[2] == '\0') return Step::kNextNext;
      return Step::kUnknown;
    case 'p':
      if (token[1] == '\0') return Step::kPrev;
      if (token[1] == 'p' && token[2] == '\0') return Step::kPrevPrev;
      if (bsr_strcmp(token, "parent") == 0) return Step::kParent;
      return Step::kUnknown;
    case 'd':
      if (bsr_strcmp(token, "daughter") == 0 || bsr_strcmp(token, "daughter1") == 0)
        return Step::kDaughter;
      if (bsr_strcmp(token, "daughtern") == 0) return Step::kLastDaughter;
      return Step::kUnknown;
    case 'R':
      return token[1] == '\0' ? Step::kRelation : Step::kUnknown;
    default:
      return Step::kUnknown;
  }
}

struct Walk {
  const item *at;  // where the walk stands (null once it walked off)
  int next_token;  // index of the first token not consumed
  bool failed;     // an unknown step or an over-long path
};

// Takes steps from tokens[0] while the current item is not null, up to but
// not including token `stop` (the feature name in ffeature mode, or the end).
Walk walk(const item *start, const Tokens &t, int stop) {
  Walk w{start, 0, false};
  while (w.at != nullptr && w.next_token < stop) {
    const char *token = t.token[w.next_token++];
    switch (step_of(token)) {
      case Step::kNext:
        w.at = item_next(w.at);
        break;
      case Step::kPrev:
        w.at = item_prev(w.at);
        break;
      case Step::kNextNext:
        w.at = item_next(item_next(w.at));
        break;
      case Step::kPrevPrev:
        w.at = item_prev(item_prev(w.at));
        break;
      case Step::kParent:
        w.at = item_parent(w.at);
        break;
      case Step::kDaughter:
        w.at = item_daughter(w.at);
        break;
      case Step::kLastDaughter:
        w.at = item_last_daughter(w.at);
        break;
      case Step::kRelation:
        // The relation name is the next token; a path ending in "R" names
        // no relation and walks off.
        w.at = w.next_token < t.count ? item_as(w.at, t.token[w.next_token++]) : nullptr;
        break;
      case Step::kUnknown:
        w.failed = true;
        return w;
    }
  }
  return w;
}

// The registered feature function of `name` shadows the item's feature.
const val *answer(const item *i, const char *name) {
  if (i == nullptr) return &utils_val_ffeature_default;
  utterance *u = item_utt(i);
  if (u != nullptr) {
    if (ffunc fn = val_ffunc(feat_val(u->ffunctions, name)); fn != nullptr) {
      const val *v = fn(i);
      return v != nullptr ? v : &utils_val_ffeature_default;
    }
  }
  const val *v = item_feat(i, name);
  return v != nullptr ? v : &utils_val_ffeature_default;
}

}  // namespace

extern "C" {

UTILS_API const val *ffeature(const item *i, const char *path) {
  if (path == nullptr) return nullptr;
  Tokens t;
  if (!tokenize(path, &t)) return nullptr;
  Walk w = walk(i, t, t.count - 1);
  if (w.failed) return nullptr;
  // An "R" step may consume the last token as its relation name; the walk
  // then has no feature name left and answers the default.
  if (w.at == nullptr || w.next_token != t.count - 1) return &utils_val_ffeature_default;
  return answer(w.at, t.token[t.count - 1]);
}

UTILS_API int32_t ffeature_int(const item *i, const char *path) {
  return int_of(ffeature(i, path));
}

UTILS_API float ffeature_float(const item *i, const char *path) {
  return float_of(ffeature(i, path));
}

UTILS_API const bsr_wchar *ffeature_wstring(const item *i, const char *path) {
  return val_wstring(ffeature(i, path));
}

UTILS_API item *path_to_item(const item *i, const char *path) {
  if (path == nullptr) return nullptr;
  Tokens t;
  if (!tokenize(path, &t)) return nullptr;
  Walk w = walk(i, t, t.count);
  if (w.failed) return nullptr;
  return const_cast<item *>(w.at);
}

UTILS_API void ff_register(features *ffunctions, const char *name, ffunc fn) {
  if (ffunctions == nullptr || feat_present(ffunctions, name)) return;
  utils::model::adopt_value(ffunctions, name, ffunc_val(fn));
}

UTILS_API int ff_unregister(features *ffunctions, const char *name) {
  return feat_remove(ffunctions, name);
}

}  // extern "C"
