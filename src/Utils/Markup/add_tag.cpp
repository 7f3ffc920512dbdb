// add_tag.cpp - inserts new structural elements into a markup tree: walks
// it in document order and hands every stretch of content that may be
// wrapped to the caller's callbacks, which build the wrappers.
#include "ssml_io.h"

#include "Utils/Markup/ancestor_walk.h"
#include "Utils/Markup/item_tag.h"
#include "Utils/Markup/tag_list.h"
#include "utt_walk.h"

using utils::markup::AncestorWalk;
using utils::markup::is_element;
using utils::markup::tag_in_list;
using utils::markup::tag_of;

namespace {

struct TagRequest {
  const bsr_wchar *tag;
  const bsr_wchar *child_list;
  const bsr_wchar *parent_list;
  AddTag_callback on_text;
  AddTag_callback on_element;
  void *user_data;
};

// The run of siblings being gathered, passed from call to call. A run ends
// at any item not handed to a callback and at the end of a sibling list.
class Run {
 public:
  item *wrapper() const { return wrapper_; }
  void end() { wrapper_ = nullptr; }
  void carry(item *wrapper, const AncestorWalk::Step &next) {
    wrapper_ = next.leaves_list() ? nullptr : wrapper;
  }

 private:
  item *wrapper_ = nullptr;
};

// A text run may be wrapped when the element holding it may hold the new
// element. The step after it is noted before the callback, which may
// restructure the tree around the item.
void offer_text(AncestorWalk &walk, Run &run, const TagRequest &req) {
  item *text = walk.current();
  if (!tag_in_list(req.parent_list, tag_of(walk.parent()))) {
    run.end();
    walk.go(walk.plan_after_parent());
    return;
  }
  AncestorWalk::Step next = walk.plan(true);
  item *result = req.on_text(text, run.wrapper(), req.user_data);
  // A result other than the text item means its text was taken over.
  if (result != text) delete_item(text);
  run.carry(result, next);
  walk.go(next);
}

// An element that may go inside the new element is offered whole, unless
// its subtree already holds one.
void offer_element(AncestorWalk &walk, Run &run, const TagRequest &req, bool may_enter) {
  item *element = walk.current();
  if (utt_walk_next_tag(element, element, 1, req.tag) != nullptr) {
    run.end();
    walk.go(walk.plan(may_enter));
    return;
  }
  AncestorWalk::Step after = walk.plan(false);
  item *result = req.on_element(element, run.wrapper(), req.user_data);
  if (result == nullptr) {  // declined
    run.end();
    walk.go(walk.plan(may_enter));
    return;
  }
  run.carry(result == element ? nullptr : result, after);
  walk.go(after);
}

void visit(AncestorWalk &walk, Run &run, const TagRequest &req) {
  item *cur = walk.current();
  if (!is_element(cur)) {
    offer_text(walk, run, req);
    return;
  }
  const bsr_wchar *tag = tag_of(cur);
  bool may_enter = tag_in_list(req.parent_list, tag);
  if (tag != nullptr && bsr_wcscmp(tag, req.tag) == 0) {
    run.end();
    walk.go(walk.plan(false));
  } else if (tag_in_list(req.child_list, tag)) {
    offer_element(walk, run, req, may_enter);
  } else {
    run.end();
    walk.go(walk.plan(may_enter));
  }
}

}  // namespace

extern "C" UTILS_API int AddTag(item *root, const bsr_wchar *tag, const bsr_wchar *child_list,
                                const bsr_wchar *parent_list, AddTag_callback on_text,
                                AddTag_callback on_element, void *user_data) {
  if (root == nullptr || item_daughter(root) == nullptr || on_text == nullptr ||
      on_element == nullptr)
    return 1;
  TagRequest req = {tag, child_list, parent_list, on_text, on_element, user_data};
  AncestorWalk walk(root);
  Run run;
  while (walk.current() != nullptr) visit(walk, run, req);
  return 1;
}
