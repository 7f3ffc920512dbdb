// hconverter_class.cpp - turning rule elements (x...) and say-as elements into
// sub elements whose "alias" holds the spoken form. Children are converted
// before their parent.
#include "NLP/NLP_TextNorm/hconverter_class.h"

namespace {

bool is_element(mxml_node_t *node) { return node != nullptr && mxmlGetType(node) == MXML_ELEMENT; }
bool is_text(mxml_node_t *node) { return node != nullptr && mxmlGetType(node) == MXML_OPAQUE; }

// The text an element starts with, or null when its first child is not text.
const char *leading_text(mxml_node_t *element) {
  mxml_node_t *first = mxmlGetFirstChild(element);
  return is_text(first) ? mxmlGetOpaque(first) : nullptr;
}

// Where a reader's spoken form goes: the first child when it is text, or
// the first text of a first child element.
mxml_node_t *spoken_target(mxml_node_t *element) {
  mxml_node_t *target = mxmlGetFirstChild(element);
  if (is_element(target) && is_text(mxmlGetFirstChild(target))) target = mxmlGetFirstChild(target);
  return is_text(target) ? target : nullptr;
}

// Appends every piece of text below `top`, depth first in document order.
void append_text_below(mxml_node_t *top, CStr *out) {
  for (mxml_node_t *node = mxmlGetFirstChild(top); node != nullptr;
       node = mxmlWalkNext(node, top, MXML_DESCEND)) {
    if (mxmlGetType(node) == MXML_OPAQUE) {
      if (const char *text = mxmlGetOpaque(node); text != nullptr) CStrAppend(out, text);
    } else if (mxmlGetType(node) == MXML_TEXT) {
      int whitespace = 0;
      const char *text = mxmlGetText(node, &whitespace);
      if (whitespace) CStrAppendC(out, ' ');
      if (text != nullptr) CStrAppend(out, text);
    }
  }
}

void delete_children(mxml_node_t *element) {
  while (mxmlGetFirstChild(element) != nullptr) mxmlDelete(mxmlGetFirstChild(element));
}

// Turns `element` into <sub alias="...">, keeping its children.
void make_sub(mxml_node_t *element, const CStr *alias) {
  const char *spoken = CStrStr(alias);
  mxmlElementSetAttr(element, "alias", spoken != nullptr ? spoken : "");
  mxmlSetElement(element, "sub");
}

}  // namespace

int HConverter::add(const char *name, ConvertFunc func) {
  if (name == nullptr || func == nullptr) return 0;
  return callbacks_.emplace(name, func).second ? 1 : 0;
}

void HConverter::set_say_as(SayAsFunc func) { say_as_ = func; }

void HConverter::convert(mxml_node_t *node) {
  if (node == nullptr) return;
  for (mxml_node_t *child = mxmlGetFirstChild(node); child != nullptr;
       child = mxmlGetNextSibling(child)) {
    if (is_element(child)) convert_element(child);
  }
}

void HConverter::convert_element(mxml_node_t *element) {
  CStr *work = CStrCreate(256);
  if (work == nullptr) return;
  for (mxml_node_t *child = mxmlGetFirstChild(element); child != nullptr;
       child = mxmlGetNextSibling(child)) {
    if (is_element(child)) convert_element(child);
  }
  const char *name = mxmlGetElement(element);
  if (name != nullptr && name[0] == 'x')
    convert_rule_element(element, work);
  else if (name != nullptr && std::strcmp(name, "say-as") == 0)
    convert_say_as(element, work);
  CStrDestroy(work);
}

void HConverter::convert_rule_element(mxml_node_t *element, CStr *work) {
  auto found = callbacks_.find(mxmlGetElement(element));
  if (found != callbacks_.end() && found->second(leading_text(element), work) == 0 &&
      CStrStr(work) != nullptr) {
    if (mxml_node_t *target = spoken_target(element); target != nullptr)
      mxmlSetOpaque(target, CStrStr(work));
  }
  const char *src = mxmlElementGetAttr(element, "src");
  // After a failed append the work string has no buffer left to reuse.
  if (src == nullptr || CStrStr(work) == nullptr) return;
  // The written text goes back in as the only child; everything the element
  // held, now spoken, becomes the alias.
  CStrErase(work, 0);
  append_text_below(element, work);
  delete_children(element);
  mxmlNewOpaque(element, src);
  mxmlElementDeleteAttr(element, "src");
  make_sub(element, work);
}

void HConverter::convert_say_as(mxml_node_t *element, CStr *work) {
  const char *text = leading_text(element);
  if (say_as_ == nullptr || text == nullptr) return;
  const char *detail = mxmlElementGetAttr(element, "detail");
  const char *format = mxmlElementGetAttr(element, "format");
  const char *interpret_as = mxmlElementGetAttr(element, "interpret-as");
  if (say_as_(text, work, interpret_as, format, detail) == 0) make_sub(element, work);
}
