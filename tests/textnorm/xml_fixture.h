// Helpers for the text normalisation tests: parse a small SSML text into a
// Mini-XML tree and print a tree back in a compact, exact form.
#ifndef TESTS_TEXTNORM_XML_FIXTURE_H
#define TESTS_TEXTNORM_XML_FIXTURE_H

#include <mxml.h>

#include <string>

namespace textnorm_test {

// Parses `xml` with every text run kept whole as opaque text. Null on error.
inline mxml_node_t *parse(const std::string &xml) {
  return mxmlLoadString(nullptr, xml.c_str(), MXML_OPAQUE_CALLBACK);
}

// Prints the children of `node`: elements as <name a="v">...</name> with
// attributes in stored order, text as itself, bracketed as [text] so that
// node boundaries show ("ab" vs "a" "b").
inline std::string show(mxml_node_t *node) {
  std::string out;
  for (mxml_node_t *child = mxmlGetFirstChild(node); child; child = mxmlGetNextSibling(child)) {
    if (mxmlGetType(child) == MXML_OPAQUE) {
      out += "[" + std::string(mxmlGetOpaque(child)) + "]";
    } else if (mxmlGetType(child) == MXML_ELEMENT) {
      out += "<" + std::string(mxmlGetElement(child));
      int count = mxmlElementGetAttrCount(child);
      for (int i = 0; i < count; ++i) {
        const char *name = nullptr;
        const char *value = mxmlElementGetAttrByIndex(child, i, &name);
        out += " " + std::string(name) + "=\"" + value + "\"";
      }
      out += ">" + show(child) + "</" + mxmlGetElement(child) + ">";
    }
  }
  return out;
}

// The first element named `name` in the tree (depth first), the root included.
inline mxml_node_t *find(mxml_node_t *tree, const char *name) {
  if (tree != nullptr && mxmlGetType(tree) == MXML_ELEMENT && std::string(mxmlGetElement(tree)) == name)
    return tree;
  return mxmlFindElement(tree, tree, name, nullptr, nullptr, MXML_DESCEND);
}

// Owns a parsed document for the length of a test.
class Doc {
 public:
  explicit Doc(const std::string &xml) : tree_(parse(xml)) {}
  ~Doc() {
    if (tree_) mxmlDelete(tree_);
  }
  Doc(const Doc &) = delete;
  Doc &operator=(const Doc &) = delete;
  mxml_node_t *tree() const { return tree_; }
  mxml_node_t *speak() const { return find(tree_, "speak"); }
  std::string str() const { return show(speak()); }

 private:
  mxml_node_t *tree_;
};

}  // namespace textnorm_test

#endif
