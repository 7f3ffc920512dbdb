// node_template.cpp - generation of replacement nodes from rewrite templates:
// elements, text built from literals and submatches, and text copied from one
// submatch.
#include "NLP/NLP_TextNorm/node_template.h"

#include <memory>

namespace utils::textnorm {

namespace {

// A new parentless text node holding a copy of `text` (null when memory is
// exhausted).
mxml_node_t *new_text(const std::string &text) {
  return mxmlNewOpaque(MXML_NO_PARENT, text.c_str());
}

}  // namespace

void LiteralPiece::generate(Submatches, std::string &out) const { out += literal_; }

void GroupPiece::generate(Submatches groups, std::string &out) const {
  const re2::StringPiece &g = groups[group_];
  if (g.data() != nullptr) out.append(g.data(), g.size());
}

ElementTemplate::~ElementTemplate() {
  for (NodeTemplate *child : children_) delete child;
}

// Takes the child over even when the list cannot grow: it is freed then,
// before the exhausted-memory exception goes on to the boundary.
void ElementTemplate::add_child(NodeTemplate *child) {
  if (child == nullptr) return;
  std::unique_ptr<NodeTemplate> owned(child);
  children_.push_back(child);
  owned.release();
}

mxml_node_t *ElementTemplate::generate(Submatches groups) const {
  mxml_node_t *element = mxmlNewElement(MXML_NO_PARENT, name_.c_str());
  if (element == nullptr) return nullptr;
  for (const NodeTemplate *child : children_) {
    mxml_node_t *node = child->generate(groups);
    if (node != nullptr) mxmlAdd(element, MXML_ADD_AFTER, MXML_ADD_TO_PARENT, node);
  }
  return element;
}

TextTemplate::~TextTemplate() {
  for (TextPiece *piece : pieces_) delete piece;
}

bool TextTemplate::append_literal(char c) {
  if (open_literal_ == nullptr) {
    // The slot first: a piece never exists outside the list that frees it.
    // Pieces come from the local allocator, whose new gives null when
    // memory runs out.
    pieces_.push_back(nullptr);
    open_literal_ = new LiteralPiece(std::string());
    if (open_literal_ == nullptr) {
      pieces_.pop_back();
      return false;
    }
    pieces_.back() = open_literal_;
  }
  open_literal_->append(c);
  return true;
}

bool TextTemplate::append_group(int group) {
  pieces_.push_back(nullptr);
  TextPiece *piece = new GroupPiece(group);
  if (piece == nullptr) {
    pieces_.pop_back();
    return false;
  }
  pieces_.back() = piece;
  open_literal_ = nullptr;
  return true;
}

mxml_node_t *TextTemplate::generate(Submatches groups) const {
  std::string text;
  for (const TextPiece *piece : pieces_) piece->generate(groups, text);
  return new_text(text);
}

mxml_node_t *GroupText::generate(Submatches groups) const {
  const re2::StringPiece &g = groups[group_];
  return new_text(g.data() == nullptr ? std::string() : std::string(g.data(), g.size()));
}

}  // namespace utils::textnorm
