// node_template.h - rewrite templates: a small tree of objects that builds the
// element which replaces one rule match, filling in the match's capture groups.
#ifndef UTILS_NLP_TEXTNORM_NODE_TEMPLATE_H
#define UTILS_NLP_TEXTNORM_NODE_TEMPLATE_H

#include <mxml.h>
#include <re2/re2.h>

#include <string>
#include <vector>

#include "NLP/NLP_TextNorm/local_object.h"

namespace utils::textnorm {

// The submatches of one match: entry 0 is the whole match, entry k capture
// group k. A group that took no part has a null data pointer.
using Submatches = const re2::StringPiece *;

// Something that becomes one node of the replacement.
class NodeTemplate : public LocalObject {
 public:
  // A new parentless node built from the submatches, or null.
  virtual mxml_node_t *generate(Submatches groups) const = 0;
  virtual ~NodeTemplate() = default;
};

// Something that adds bytes to the text of a TextTemplate.
class TextPiece : public LocalObject {
 public:
  virtual void generate(Submatches groups, std::string &out) const = 0;
  virtual ~TextPiece() = default;
};

class LiteralPiece : public TextPiece {
 public:
  explicit LiteralPiece(std::string literal) : literal_(std::move(literal)) {}
  void generate(Submatches groups, std::string &out) const override;
  void append(char c) { literal_.push_back(c); }

 private:
  std::string literal_;
};

class GroupPiece : public TextPiece {
 public:
  explicit GroupPiece(int group) : group_(group) {}
  void generate(Submatches groups, std::string &out) const override;

 private:
  int group_;
};

// An element with a name and child templates, generated in order.
class ElementTemplate : public NodeTemplate {
 public:
  explicit ElementTemplate(std::string name = "x") : name_(std::move(name)) {}
  ~ElementTemplate() override;
  mxml_node_t *generate(Submatches groups) const override;
  // Takes ownership; a null child is ignored.
  void add_child(NodeTemplate *child);
  const std::string &name() const { return name_; }
  const std::vector<NodeTemplate *> &children() const { return children_; }

 private:
  std::string name_;
  std::vector<NodeTemplate *> children_;
};

// One text node whose text is the concatenation of its pieces.
class TextTemplate : public NodeTemplate {
 public:
  ~TextTemplate() override;
  mxml_node_t *generate(Submatches groups) const override;
  // Adds one literal byte, to the last piece when that is a literal.
  // False when memory is exhausted.
  bool append_literal(char c);
  // Adds the text of submatch `group`. False when memory is exhausted.
  bool append_group(int group);
  bool empty() const { return pieces_.empty(); }

 private:
  std::vector<TextPiece *> pieces_;
  LiteralPiece *open_literal_ = nullptr;
};

// One text node holding a copy of one submatch.
class GroupText : public NodeTemplate {
 public:
  explicit GroupText(int group) : group_(group) {}
  mxml_node_t *generate(Submatches groups) const override;

 private:
  int group_;
};

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_NODE_TEMPLATE_H
