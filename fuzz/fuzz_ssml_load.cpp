// fuzz_ssml_load.cpp - arbitrary bytes as an SSML document: every document
// that loads is also saved to a file, converted to a Mini-XML tree, and has
// sentence elements inserted with AddTag.
#include <stdint.h>
#include <stdlib.h>
#include <unistd.h>

#include "guarded_input.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"

namespace {

char g_save_path[] = "/tmp/fuzz_ssml_load_XXXXXX";

void remove_save_file() { unlink(g_save_path); }

item *wrap_text(item *text, item *wrapper, void *) {
  if (wrapper == nullptr) {
    wrapper = item_prepend(text, nullptr);
    item_set_wstring(wrapper, "tag", SentenceTagName());
  }
  item_set_wstring(item_add_daughter(wrapper, nullptr), "text", item_feat_wstring(text, "text"));
  return wrapper;
}

item *wrap_element(item *element, item *wrapper, void *) {
  if (wrapper == nullptr) {
    wrapper = item_prepend(element, nullptr);
    item_set_wstring(wrapper, "tag", SentenceTagName());
  }
  move_tree(wrapper, element);
  return wrapper;
}

void exercise(utterance *u) {
  utt_save_ssml(u, g_save_path);
  mxmlRelease(utt_to_xml(u));
  item *root = relation_head(utt_relation(u, "ssml"));
  AddTag(root, SentenceTagName(), SentenceChildTag(), SentenceParentTag(), wrap_text, wrap_element,
         nullptr);
  for (item *i = utt_walk_next(root, root, 1); i; i = utt_walk_next(i, root, 1)) {
    GetInheritAtt(i, "xml:lang");
  }
  utt_save_ssml(u, g_save_path);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  int fd = mkstemp(g_save_path);
  if (fd < 0) abort();
  close(fd);
  atexit(remove_save_file);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  // The loader reads a zero-terminated string: a zero byte ends the document,
  // and that zero is the last byte before an unreadable page.
  const char *text = fuzz_support::guarded_c_string(data, size);
  utterance *u = new_utterance();
  if (utt_load_ssml(u, text)) exercise(u);
  delete_utterance(u);
  return 0;
}
