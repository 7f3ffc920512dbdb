// text_collector.cpp - the walk that gathers rewritable text nodes. Its two
// fixed patterns are compiled on first use; C++ makes that first use thread-
// safe.
#include "NLP/NLP_TextNorm/text_collector.h"

#include <re2/re2.h>

#include <cstring>

namespace utils::textnorm {

namespace {

const re2::RE2 &protected_name_pattern() {
  static const re2::RE2 pattern("sub|say-as");
  return pattern;
}

const re2::RE2 &blank_pattern() {
  static const re2::RE2 pattern("\\s*");
  return pattern;
}

bool full_match(const re2::RE2 &pattern, const char *text) {
  re2::StringPiece piece(text);
  return pattern.Match(piece, 0, piece.size(), re2::RE2::ANCHOR_BOTH, nullptr, 0);
}

}  // namespace

bool is_protected_element(const char *name) {
  if (name == nullptr) return false;
  return name[0] == 'x' || full_match(protected_name_pattern(), name);
}

bool is_blank_text(const char *text) {
  return text == nullptr || full_match(blank_pattern(), text);
}

void push_text(TextQueue &queue, mxml_node_t *node) {
  const char *text = mxmlGetOpaque(node);
  if (text != nullptr) queue.push_back({node, text, std::strlen(text)});
}

void collect_text(mxml_node_t *top, TextQueue &queue) {
  if (top == nullptr) return;
  mxml_node_t *node = mxmlGetFirstChild(top);
  while (node != nullptr) {
    int descend = MXML_NO_DESCEND;
    switch (mxmlGetType(node)) {
      case MXML_ELEMENT:
        if (!is_protected_element(mxmlGetElement(node))) descend = MXML_DESCEND;
        break;
      case MXML_OPAQUE:
        if (!is_blank_text(mxmlGetOpaque(node))) push_text(queue, node);
        break;
      default:
        break;
    }
    node = mxmlWalkNext(node, top, descend);
  }
}

}  // namespace utils::textnorm
