// ssml_to_xml.cpp - turns the root of an utterance's "ssml" relation and its
// subtree into a new Mini-XML document.
#include "ssml_io.h"

#include <mxml.h>
#include "Utils/Markup/item_tag.h"
#include "Utils/Markup/mxml_safe.h"
#include "Utils/Markup/scratch_text.h"
#include "Utils/Markup/ssml_names.h"
#include "Utils/Markup/tree_visit.h"

using utils::markup::is_element;
using utils::markup::kRelationName;
using utils::markup::kTagFeature;
using utils::markup::kTextFeature;
using utils::markup::ScratchText;
using utils::markup::tag_of;
using utils::markup::visit_tree;

// Mini-XML 3.x has no hook for installing another allocator: its nodes and
// strings come from malloc and are released with free by mxmlRelease, so
// every string handed to it here is copied by Mini-XML itself.

namespace {

class XmlBuilder {
 public:
  explicit XmlBuilder(mxml_node_t *document) : parent_(document) {}

  bool open(item *i) {
    if (!is_element(i)) {
      add_text(i);
      return false;
    }
    const char *tag = scratch_.utf8_from_wide(tag_of(i));
    mxml_node_t *element = mxmlNewElement(parent_, tag != nullptr ? tag : "");
    if (element == nullptr) return false;
    add_attributes(element, i);
    if (item_daughter(i) == nullptr) return false;
    parent_ = element;
    return true;
  }

  void close(item *) { parent_ = mxmlGetParent(parent_); }

 private:
  // One attribute per feature but "tag", in list order; a value that is not
  // a wide string gives an empty attribute.
  void add_attributes(mxml_node_t *element, item *i) {
    for (feature_pair *p = item_feats(i) != nullptr ? item_feats(i)->head : nullptr; p != nullptr;
         p = p->next) {
      if (p->name == nullptr || bsr_strcmp(p->name, kTagFeature) == 0) continue;
      const char *value = scratch_.utf8_from_wide(val_wstring(p->value));
      mxmlElementSetAttr(element, p->name, value != nullptr ? value : "");
    }
  }

  // A text run becomes an opaque node; it is dropped when its conversion
  // buffer cannot be had.
  void add_text(item *i) {
    const bsr_wchar *text = item_feat_wstring(i, kTextFeature);
    const char *utf8 = scratch_.utf8_from_wide(text != nullptr ? text : u"");
    if (utf8 != nullptr) mxmlNewOpaque(parent_, utf8);
  }

  mxml_node_t *parent_;
  ScratchText scratch_;
};

}  // namespace

// A tree in which a name, attribute or text could not be copied is not the
// utterance's: it is deleted and the result is null, as for any exhausted
// memory.
extern "C" UTILS_API mxml_node_t *utt_to_xml(utterance *u) {
  if (u == nullptr || !utils::markup::prepare_mxml_copies()) return nullptr;
  mxml_node_t *document = mxmlNewXML("1.0");
  if (document == nullptr) return nullptr;
  if (item *root = relation_head(utt_relation(u, kRelationName)); root != nullptr) {
    XmlBuilder builder(document);
    visit_tree(root, false, builder);
  }
  if (utils::markup::mxml_copy_lost()) {
    mxmlDelete(document);
    return nullptr;
  }
  return document;
}
