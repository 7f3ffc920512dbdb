// textnorm_fixture.h - helpers of the text normalisation tests: SSML texts
// parsed into Mini-XML trees, trees printed back exactly (or as their sub
// elements' readings), and replacers loaded from rule-set text.
#ifndef UTILS_TEXTNORM_TEXTNORM_FIXTURE_H
#define UTILS_TEXTNORM_TEXTNORM_FIXTURE_H

#include <mxml.h>

#include <string>

#include "hreplacer.h"

namespace textnorm_test {

// The children of `node`: elements as <name a="v">...</name> with attributes
// in stored order, text as [text] so that node boundaries show.
inline std::string show(mxml_node_t *node) {
  std::string out;
  for (mxml_node_t *child = mxmlGetFirstChild(node); child != nullptr;
       child = mxmlGetNextSibling(child)) {
    if (mxmlGetType(child) == MXML_OPAQUE) out += "[" + std::string(mxmlGetOpaque(child)) + "]";
    if (mxmlGetType(child) != MXML_ELEMENT) continue;
    out += "<" + std::string(mxmlGetElement(child));
    for (int i = 0; i < mxmlElementGetAttrCount(child); ++i) {
      const char *name = nullptr, *value = mxmlElementGetAttrByIndex(child, i, &name);
      out += " " + std::string(name) + "=\"" + value + "\"";
    }
    out += ">" + show(child) + "</" + mxmlGetElement(child) + ">";
  }
  return out;
}

// The first element named `name`, depth first, the root included.
inline mxml_node_t *find(mxml_node_t *tree, const char *name) {
  if (tree != nullptr && mxmlGetType(tree) == MXML_ELEMENT &&
      std::string(mxmlGetElement(tree)) == name)
    return tree;
  return mxmlFindElement(tree, tree, name, nullptr, nullptr, MXML_DESCEND);
}

// "written=spoken" for every sub element, in document order, joined by " | ".
inline std::string subs(mxml_node_t *tree) {
  std::string out;
  for (mxml_node_t *n = tree; n != nullptr; n = mxmlWalkNext(n, tree, MXML_DESCEND)) {
    if (mxmlGetType(n) != MXML_ELEMENT || std::string(mxmlGetElement(n)) != "sub") continue;
    mxml_node_t *text = mxmlGetFirstChild(n);
    out += (out.empty() ? "" : " | ") + std::string(text != nullptr ? mxmlGetOpaque(text) : "") +
           "=" + mxmlElementGetAttr(n, "alias");
  }
  return out;
}

// A document parsed with every text run kept whole, owned for one test.
struct Doc {
  mxml_node_t *tree;
  explicit Doc(const std::string &xml)
      : tree(mxmlLoadString(nullptr, xml.c_str(), MXML_OPAQUE_CALLBACK)) {}
  ~Doc() {
    if (tree != nullptr) mxmlDelete(tree);
  }
  Doc(const Doc &) = delete;
  mxml_node_t *speak() const { return find(tree, "speak"); }
  std::string str() const { return show(speak()); }
};

struct Replacer {
  HReplacer *r = HReplacer_create();
  int rejected;
  explicit Replacer(const std::string &rules = "") : rejected(load(rules)) {}
  ~Replacer() { HReplacer_delete(r); }
  Replacer(const Replacer &) = delete;
  int load(const std::string &rules) {
    return HReplacer_addRuleSet(r, rules.data(), static_cast<int>(rules.size()));
  }
  // The children of <speak> after running the rules over `body`.
  std::string run(const std::string &body) const {
    Doc doc("<speak>" + body + "</speak>");
    HReplacer_replace(r, doc.tree);
    return doc.str();
  }
};

}  // namespace textnorm_test

#endif  // UTILS_TEXTNORM_TEXTNORM_FIXTURE_H
