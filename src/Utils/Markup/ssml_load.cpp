// ssml_load.cpp - SSML text or a Mini-XML tree in, the utterance's "ssml"
// relation out: one element item per element, one text item per text run.
#include "ssml_io.h"

#include <mxml.h>
#include <string.h>

#include "Utils/Markup/item_tag.h"
#include "Utils/Markup/mxml_safe.h"
#include "Utils/Markup/ssml_names.h"
#include "Utils/Markup/wide_value.h"
#include "Utils/Model/feature_store.h"

using utils::markup::kRelationName;
using utils::markup::kRootElement;
using utils::markup::kTagFeature;
using utils::markup::kTextFeature;
using utils::markup::make_wide_value;

namespace {

enum class NodeKind { kElement, kText, kSkipped };

// Mini-XML keeps comments ("!--"), declarations ("!DOCTYPE"), processing
// instructions ("?") and CDATA sections ("![CDATA[") as element nodes too.
// Only real elements become element items; a CDATA section is text, and the
// rest carries no content and is left out.
NodeKind kind_of(mxml_node_t *node) {
  switch (mxmlGetType(node)) {
    case MXML_ELEMENT: {
      const char *name = mxmlGetElement(node);
      if (name == nullptr || !name[0]) return NodeKind::kSkipped;
      if (name[0] == '!')
        return mxmlGetCDATA(node) != nullptr ? NodeKind::kText : NodeKind::kSkipped;
      return name[0] == '?' ? NodeKind::kSkipped : NodeKind::kElement;
    }
    case MXML_OPAQUE:
    case MXML_TEXT:
      return NodeKind::kText;
    default:  // numbers and custom data are not produced for documents
      return NodeKind::kSkipped;
  }
}

void set_wide(item *it, const char *name, const char *utf8, bool lead_blank = false) {
  features *f = item_feats(it);
  if (f == nullptr) return;
  // A value that cannot be stored is released rather than lost.
  if (val *v = make_wide_value(utf8 != nullptr ? utf8 : "", lead_blank); v != nullptr)
    utils::model::adopt_value(f, name, v);
}

// "tag" first, then the attributes from the last to the first: the item's
// list (newest first) then reads attribute 1, 2, ..., "tag".
void set_element(item *it, mxml_node_t *element) {
  set_wide(it, kTagFeature, mxmlGetElement(element));
  for (int k = mxmlElementGetAttrCount(element) - 1; k >= 0; --k) {
    const char *name = nullptr;
    const char *value = mxmlElementGetAttrByIndex(element, k, &name);
    // An attribute called "tag" would rename the element; it cannot be
    // held in the tree and is dropped.
    if (name == nullptr || !name[0] || strcmp(name, kTagFeature) == 0) continue;
    set_wide(it, name, value);
  }
}

void set_text(item *it, mxml_node_t *node) {
  mxml_type_t type = mxmlGetType(node);
  if (type == MXML_OPAQUE) {
    set_wide(it, kTextFeature, mxmlGetOpaque(node));
  } else if (type == MXML_ELEMENT) {  // a CDATA section (see kind_of)
    set_wide(it, kTextFeature, mxmlGetCDATA(node));
  } else {
    // A word of a tree loaded in text mode; its flag stands for the
    // white space before it.
    int blank = 0;
    const char *word = mxmlGetText(node, &blank);
    set_wide(it, kTextFeature, word, blank != 0);
  }
}

mxml_node_t *find_root_element(mxml_node_t *tree) {
  if (mxmlGetType(tree) == MXML_ELEMENT) {
    const char *name = mxmlGetElement(tree);
    if (name != nullptr && strcmp(name, kRootElement) == 0) return tree;
  }
  return mxmlFindElement(tree, tree, kRootElement, nullptr, nullptr, MXML_DESCEND);
}

// Mirrors the content of `speak` under `root`. Siblings are converted in a
// loop and nesting by moving the cursor down and back up, so neither long
// sibling lists nor deep nesting use any stack. Climbing asks the last item
// of a finished list for its parent, which walks that list once: linear in
// all.
void convert_content(item *root, mxml_node_t *speak) {
  mxml_node_t *owner = speak;  // the element whose children are converted
  mxml_node_t *node = mxmlGetFirstChild(speak);
  item *parent = root;   // owner's item; only needed while `last` is null
  item *last = nullptr;  // the last item made among owner's children
  for (;;) {
    if (node == nullptr) {
      if (owner == speak) return;
      last = last != nullptr ? item_parent(last) : parent;
      parent = nullptr;
      node = mxmlGetNextSibling(owner);
      owner = mxmlGetParent(owner);
      continue;
    }
    NodeKind kind = kind_of(node);
    if (kind == NodeKind::kSkipped) {
      node = mxmlGetNextSibling(node);
      continue;
    }
    item *made = last != nullptr ? item_append(last, nullptr) : item_add_daughter(parent, nullptr);
    if (made == nullptr) return;  // out of memory: keep what was built
    last = made;
    if (kind == NodeKind::kText) {
      set_text(made, node);
    } else {
      set_element(made, node);
      if (mxml_node_t *first = mxmlGetFirstChild(node); first != nullptr) {
        owner = node;
        parent = made;
        last = nullptr;
        node = first;
        continue;
      }
    }
    node = mxmlGetNextSibling(node);
  }
}

void build_tree(utterance *u, mxml_node_t *speak) {
  relation *rel = utt_relation_create(u, kRelationName);
  item *root = relation_append(rel, nullptr);
  if (root == nullptr) return;
  set_element(root, speak);
  convert_content(root, speak);
}

bool is_root_element(mxml_node_t *node) { return kind_of(node) == NodeKind::kElement; }

int count_root_elements(mxml_node_t *holder) {
  int count = 0;
  for (mxml_node_t *n = mxmlGetFirstChild(holder); n != nullptr; n = mxmlGetNextSibling(n)) {
    if (is_root_element(n)) ++count;
  }
  return count;
}

// Parses under a holder node of our own: every node the parser makes is
// linked below the holder as soon as it exists, so deleting the holder frees
// all of them whichever error path the parser took (parsing with no parent,
// Mini-XML 3.3 loses the root element when an attribute of it is malformed).
// The holder also makes the parser insist that the root element is closed;
// a second root element is rejected here. Null when the text is rejected.
mxml_node_t *parse_document(const char *ssml) {
  if (!utils::markup::prepare_mxml_copies()) return nullptr;
  mxml_node_t *holder = mxmlNewElement(MXML_NO_PARENT, "#document");
  if (holder == nullptr) return nullptr;
  mxmlSetErrorCallback(utils::markup::quiet_parse_errors);
  // A name or text that could not be copied makes the tree unfaithful: the
  // document is refused as when memory runs out anywhere else.
  if (utils::markup::load_string_safely(holder, ssml, MXML_OPAQUE_CALLBACK) == nullptr ||
      utils::markup::mxml_copy_lost() || count_root_elements(holder) != 1) {
    mxmlDelete(holder);
    return nullptr;
  }
  return holder;
}

}  // namespace

extern "C" {

UTILS_API int utt_load_ssml(utterance *u, const char *ssml) {
  if (u == nullptr || ssml == nullptr) return 0;
  mxml_node_t *tree = parse_document(ssml);
  if (tree == nullptr) return 0;
  mxml_node_t *speak = find_root_element(tree);
  if (speak != nullptr) build_tree(u, speak);
  // The tree is ours alone: delete it directly.
  mxmlDelete(tree);
  return speak != nullptr ? 1 : 0;
}

UTILS_API void utt_load_xml(utterance *u, mxml_node_t *tree) {
  if (u == nullptr || tree == nullptr) return;
  if (mxml_node_t *speak = find_root_element(tree); speak != nullptr) build_tree(u, speak);
}

}  // extern "C"
