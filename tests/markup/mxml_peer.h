/* mxml_peer.h - the system's shared Mini-XML, opened at run time, for tests
 * that build or read trees themselves. libUtils exports only mxmlRelease, as
 * an engine sees it; this copy is the same Mini-XML version as the one
 * inside libUtils, so nodes can pass between the two. */
#ifndef TESTS_MARKUP_MXML_PEER_H
#define TESTS_MARKUP_MXML_PEER_H

#include <dlfcn.h>
#include <mxml.h>

#include <string>

namespace markup_test {

struct MxmlPeer {
  decltype(&mxmlLoadString) LoadString;
  decltype(&mxml_opaque_cb) OpaqueCallback;
  decltype(&mxmlNewElement) NewElement;
  decltype(&mxmlNewOpaque) NewOpaque;
  decltype(&mxmlNewText) NewText;
  decltype(&mxmlElementSetAttr) ElementSetAttr;
  decltype(&mxmlDelete) Delete;
  decltype(&mxmlGetType) GetType;
  decltype(&mxmlGetElement) GetElement;
  decltype(&mxmlGetOpaque) GetOpaque;
  decltype(&mxmlGetFirstChild) GetFirstChild;
  decltype(&mxmlGetNextSibling) GetNextSibling;
  decltype(&mxmlElementGetAttrCount) ElementGetAttrCount;
  decltype(&mxmlElementGetAttrByIndex) ElementGetAttrByIndex;

  // Null when the shared library cannot be opened.
  static const MxmlPeer *get() {
    static const MxmlPeer *peer = open();
    return peer;
  }

  // A node and its subtree in the printed form of describe() (markup_fixture.h).
  std::string describe(mxml_node_t *node) const {
    if (GetType(node) == MXML_OPAQUE) return "\"" + std::string(GetOpaque(node)) + "\"";
    std::string out = GetElement(node);
    std::string attrs;
    for (int k = 0; k < ElementGetAttrCount(node); ++k) {
      const char *name = nullptr;
      const char *value = ElementGetAttrByIndex(node, k, &name);
      attrs += (k ? "," : "") + std::string(name) + "=" + value;
    }
    if (!attrs.empty()) out += "[" + attrs + "]";
    if (mxml_node_t *child = GetFirstChild(node)) {
      out += "(";
      for (; child; child = GetNextSibling(child)) {
        out += describe(child);
        if (GetNextSibling(child)) out += ",";
      }
      out += ")";
    }
    return out;
  }

 private:
  template <typename F>
  static bool bind(void *handle, const char *name, F &fn) {
    fn = reinterpret_cast<F>(dlsym(handle, name));
    return fn != nullptr;
  }

  static const MxmlPeer *open() {
    void *handle = dlopen("libmxml.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!handle) return nullptr;
    static MxmlPeer p;
    bool ok = bind(handle, "mxmlLoadString", p.LoadString) &&
              bind(handle, "mxml_opaque_cb", p.OpaqueCallback) &&
              bind(handle, "mxmlNewElement", p.NewElement) &&
              bind(handle, "mxmlNewOpaque", p.NewOpaque) && bind(handle, "mxmlNewText", p.NewText) &&
              bind(handle, "mxmlElementSetAttr", p.ElementSetAttr) &&
              bind(handle, "mxmlDelete", p.Delete) && bind(handle, "mxmlGetType", p.GetType) &&
              bind(handle, "mxmlGetElement", p.GetElement) &&
              bind(handle, "mxmlGetOpaque", p.GetOpaque) &&
              bind(handle, "mxmlGetFirstChild", p.GetFirstChild) &&
              bind(handle, "mxmlGetNextSibling", p.GetNextSibling) &&
              bind(handle, "mxmlElementGetAttrCount", p.ElementGetAttrCount) &&
              bind(handle, "mxmlElementGetAttrByIndex", p.ElementGetAttrByIndex);
    return ok ? &p : nullptr;
  }
};

}  // namespace markup_test

#endif /* TESTS_MARKUP_MXML_PEER_H */
