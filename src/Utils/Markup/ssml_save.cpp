// ssml_save.cpp - writes an utterance's "ssml" relation as an SSML file:
// a declaration line, then each element on a new line, nothing escaped.
#include "ssml_io.h"

#include <stdio.h>

#include "Utils/Markup/item_tag.h"
#include "Utils/Markup/scratch_text.h"
#include "Utils/Markup/ssml_names.h"
#include "Utils/Markup/tree_visit.h"

using utils::markup::is_element;
using utils::markup::kRelationName;
using utils::markup::kTextFeature;
using utils::markup::ScratchText;
using utils::markup::tag_of;
using utils::markup::visit_tree;

namespace {

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

class SsmlWriter {
 public:
  explicit SsmlWriter(FILE *out) : out_(out) {}

  // Opening tag (or self-closing tag) of an element, or a text run.
  bool open(item *i) {
    if (!is_element(i)) {
      write_text(i);
      return false;
    }
    fprintf(out_, "\n<%s", tag_utf8(i));
    // Every feature but "tag", in list order, as name="value".
    feat_print(out_, item_feats(i));
    if (item_daughter(i) == nullptr) {
      fputs("/>", out_);
      return false;
    }
    fputs(">", out_);
    return true;
  }

  void close(item *i) { fprintf(out_, "</%s>", tag_utf8(i)); }

 private:
  const char *tag_utf8(item *i) {
    const char *tag = scratch_.utf8_from_wide(tag_of(i));
    return tag != nullptr ? tag : "";
  }

  void write_text(item *i) {
    if (const char *text = scratch_.utf8_from_wide(item_feat_wstring(i, kTextFeature));
        text != nullptr) {
      fputs(text, out_);
    }
  }

  FILE *out_;
  ScratchText scratch_;
};

}  // namespace

extern "C" UTILS_API int utt_save_ssml(utterance *u, const char *path) {
  if (u == nullptr || path == nullptr) return -1;
  FILE *out = fopen(path, "wb");
  if (out == nullptr) return -1;
  fputs(kDeclaration, out);
  if (item *root = relation_head(utt_relation(u, kRelationName)); root != nullptr) {
    SsmlWriter writer(out);
    visit_tree(root, true, writer);
  }
  return fclose(out);
}
