// markup_fixture.h - helpers of the markup tests: an owned utterance, trees as
// text, case files, and the system's Mini-XML opened at run time.
#ifndef UTILS_MARKUP_MARKUP_FIXTURE_H
#define UTILS_MARKUP_MARKUP_FIXTURE_H

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <mxml.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "bsr_unicode.h"
#include "ssml_io.h"
#include "utt_walk.h"

namespace markup_test {

inline std::string utf8(const bsr_wchar *s) {
  std::u16string w = s != nullptr ? s : u"";
  std::string out(w.size() * 3 + 1, '\0');
  bsr_UTF16ToUTF8(w.c_str(), static_cast<uint32_t>(w.size()), &out[0],
                  static_cast<uint32_t>(out.size()));
  return out.c_str();
}

inline std::string read_file(const std::string &path) {
  std::stringstream buf;
  buf << std::ifstream(path, std::ios::binary).rdbuf();
  return buf.str();
}

// The cases in data/markup/<name>: a line "----" ends a case, "==" a field.
inline std::vector<std::vector<std::string>> read_cases(const std::string &name) {
  std::vector<std::vector<std::string>> cases{{""}};
  auto end_field = [&] {
    if (!cases.back().back().empty()) cases.back().back().pop_back();  // its last line feed
  };
  std::istringstream in(read_file("data/markup/" + name));
  for (std::string line; std::getline(in, line);) {
    if (line != "----" && line != "==") cases.back().back() += line + "\n";
    if (line == "----" || line == "==")
      end_field(), line == "==" ? cases.back().push_back("") : cases.push_back({""});
  }
  end_field();
  EXPECT_GT(cases.size(), 1u) << name;
  return cases;
}

// Element: tag[attr=value,...](daughters,...), attributes in feature-list
// order and the tag left out; text: its text in quotes.
inline std::string describe(const item *i) {
  if (!item_feat_present(i, "tag")) return "\"" + utf8(item_feat_wstring(i, "text")) + "\"";
  std::string out = utf8(item_feat_wstring(i, "tag")), attrs;
  for (feature_pair *p = item_feats(i)->head; p != nullptr; p = p->next) {
    if (std::string(p->name) != "tag")
      attrs +=
          (attrs.empty() ? "" : ",") + std::string(p->name) + "=" + utf8(val_wstring(p->value));
  }
  if (!attrs.empty()) out += "[" + attrs + "]";
  for (const item *d = item_daughter(i); d != nullptr; d = item_next(d))
    out += (d == item_daughter(i) ? "(" : ",") + describe(d);
  return item_daughter(i) != nullptr ? out + ")" : out;
}

// The system's Mini-XML, the same version as the copy inside libUtils (which
// exports only mxmlRelease), for building and reading trees.
template <typename F>
F mxml_fn(const char *name) {
  static void *lib = dlopen("libmxml.so.1", RTLD_NOW | RTLD_LOCAL);
  return lib ? reinterpret_cast<F>(dlsym(lib, name)) : nullptr;
}
#define UTILS_MXML(fn) markup_test::mxml_fn<decltype(&fn)>(#fn)

// A Mini-XML node in the form of describe().
inline std::string describe(mxml_node_t *node) {
  if (UTILS_MXML(mxmlGetType)(node) == MXML_OPAQUE)
    return "\"" + std::string(UTILS_MXML(mxmlGetOpaque)(node)) + "\"";
  std::string out = UTILS_MXML(mxmlGetElement)(node), attrs;
  for (int k = 0; k < UTILS_MXML(mxmlElementGetAttrCount)(node); ++k) {
    const char *name = nullptr, *value = UTILS_MXML(mxmlElementGetAttrByIndex)(node, k, &name);
    attrs += (k ? "," : "") + std::string(name) + "=" + value;
  }
  if (!attrs.empty()) out += "[" + attrs + "]";
  mxml_node_t *first = UTILS_MXML(mxmlGetFirstChild)(node);
  for (mxml_node_t *c = first; c != nullptr; c = UTILS_MXML(mxmlGetNextSibling)(c))
    out += (c == first ? "(" : ",") + describe(c);
  return first != nullptr ? out + ")" : out;
}

// An utterance owned by the test.
struct Utt {
  utterance *u = new_utterance();
  ~Utt() { delete_utterance(u); }
  int load(const std::string &ssml) { return utt_load_ssml(u, ssml.c_str()); }
  item *root() const { return relation_head(utt_relation(u, "ssml")); }
  std::string tree() const { return describe(root()); }
  std::string save() const {
    std::string path = "/tmp/markup_test_" + std::to_string(getpid());
    std::string out = utt_save_ssml(u, path.c_str()) == 0 ? read_file(path) : "(save failed)";
    unlink(path.c_str());
    return out;
  }
};

// First item below `top` (document order) whose tag is `tag`.
inline item *find_tag(item *top, const char16_t *tag) {
  return utt_walk_next_tag(top, top, 1, tag);
}

}  // namespace markup_test

#endif  // UTILS_MARKUP_MARKUP_FIXTURE_H
