// between_mark.cpp - whether an item lies inside the span that the start and
// end marks named on the top item select.
#include "utt_walk.h"

#include "Utils/Markup/item_tag.h"
#include "Utils/Markup/ssml_names.h"
#include "Utils/Markup/tag_list.h"

using utils::markup::kEndMarkFeature;
using utils::markup::kNameFeature;
using utils::markup::kStartMarkFeature;
using utils::markup::mark_tag_name;

namespace {

bool is_named(item *mark, const bsr_wchar *name) {
  const bsr_wchar *own = item_feat_wstring(mark, kNameFeature);
  return own != nullptr && bsr_wcscmp(own, name) == 0;
}

// Does `target` follow the subtree of `i` in document order (within top)?
bool comes_after(item *i, item *top, item *target) {
  for (item *cur = utt_walk_next(i, top, 0); cur != nullptr; cur = utt_walk_next(cur, top, 1)) {
    if (cur == target) return true;
  }
  return false;
}

// Does `target` precede `i` in document order (ancestors included)?
bool comes_before(item *i, item *top, item *target) {
  for (item *cur = utt_walk_prev(i, top, 1); cur != nullptr; cur = utt_walk_prev(cur, top, 1)) {
    if (cur == target) return true;
  }
  return false;
}

// Is any mark called `name` in top's subtree placed relative to `i` as
// `placed` says? Every mark of that name is tried, not only the first.
template <typename Placement>
bool any_named_mark(item *top, item *i, const bsr_wchar *name, Placement placed) {
  const bsr_wchar *mark = mark_tag_name();
  for (item *m = utt_walk_next_tag(top, top, 1, mark); m; m = utt_walk_next_tag(m, top, 1, mark)) {
    if (is_named(m, name) && placed(i, top, m)) return true;
  }
  return false;
}

}  // namespace

extern "C" UTILS_API int IsBetweenMark(item *top, item *i) {
  if (top == nullptr || i == nullptr) return 0;
  const bsr_wchar *start = item_feat_wstring(top, kStartMarkFeature);
  if (start != nullptr && any_named_mark(top, i, start, comes_after)) return 0;
  const bsr_wchar *end = item_feat_wstring(top, kEndMarkFeature);
  if (end == nullptr) return 1;
  return any_named_mark(top, i, end, comes_before) ? 0 : 1;
}
