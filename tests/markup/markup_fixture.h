/* markup_fixture.h - shared helpers of the markup tests: an owned utterance,
 * a compact printed form of a markup tree, and saving to a string. */
#ifndef TESTS_MARKUP_MARKUP_FIXTURE_H
#define TESTS_MARKUP_MARKUP_FIXTURE_H

#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

#include "bsr_unicode.h"
#include "ssml_io.h"
#include "utterance.h"
#include "utt_walk.h"

namespace markup_test {

inline std::string utf8(const bsr_wchar *s) {
  if (!s) return "(null)";
  std::u16string w(s);
  std::string out(w.size() * 4 + 4, '\0');
  bsr_UTF16ToUTF8(s, static_cast<uint32_t>(w.size()), &out[0], static_cast<uint32_t>(out.size()));
  out.resize(strlen(out.c_str()));
  return out;
}

inline std::string read_file(const std::string &path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream buf;
  buf << in.rdbuf();
  return buf.str();
}

// A temporary file path, removed when the object goes.
class TempPath {
 public:
  TempPath() {
    char name[] = "/tmp/markup_test_XXXXXX";
    int fd = mkstemp(name);
    if (fd >= 0) close(fd);
    path_ = name;
  }
  ~TempPath() { unlink(path_.c_str()); }
  const char *c_str() const { return path_.c_str(); }

 private:
  std::string path_;
};

// One item and its subtree as text: an element is tag[attr=value,...]
// followed by (daughters, ...) when it has any; a text item is its text in
// quotes. Attributes come in feature-list order.
inline std::string describe(const item *i) {
  if (!i) return "(none)";
  std::string out;
  if (!item_feat_present(i, "tag")) return "\"" + utf8(item_feat_wstring(i, "text")) + "\"";
  out += utf8(item_feat_wstring(i, "tag"));
  std::string attrs;
  for (feature_pair *p = item_feats(i)->head; p; p = p->next) {
    if (std::string(p->name) == "tag") continue;
    if (!attrs.empty()) attrs += ",";
    attrs += std::string(p->name) + "=" + utf8(val_wstring(p->value));
  }
  if (!attrs.empty()) out += "[" + attrs + "]";
  if (item_daughter(i)) {
    out += "(";
    for (const item *d = item_daughter(i); d; d = item_next(d)) {
      if (d != item_daughter(i)) out += ",";
      out += describe(d);
    }
    out += ")";
  }
  return out;
}

// An utterance owned by the test.
class Utt {
 public:
  Utt() : u_(new_utterance()) {}
  ~Utt() { delete_utterance(u_); }
  Utt(const Utt &) = delete;
  Utt &operator=(const Utt &) = delete;

  utterance *get() const { return u_; }
  int load(const std::string &ssml) { return utt_load_ssml(u_, ssml.c_str()); }
  item *root() const { return relation_head(utt_relation(u_, "ssml")); }
  std::string tree() const { return describe(root()); }
  std::string save() const {
    TempPath path;
    if (utt_save_ssml(u_, path.c_str()) != 0) return "(save failed)";
    return read_file(path.c_str());
  }

 private:
  utterance *u_;
};

// First item below `top` (document order) whose tag is `tag`.
inline item *find_tag(item *top, const char16_t *tag) { return utt_walk_next_tag(top, top, 1, tag); }

}  // namespace markup_test

#endif /* TESTS_MARKUP_MARKUP_FIXTURE_H */
