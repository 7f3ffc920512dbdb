// consumer.c - a program built against the installed libUtils, through its
// CMake package or its pkg-config file: loads an SSML document, walks its
// text and prints it back as UTF-8 with the element it stands in.
#include <stdio.h>
#include <string.h>

#include "bsr_unicode.h"
#include "ssml_io.h"
#include "utt_walk.h"
#include "utterance.h"

static const char kDocument[] =
    "<speak xml:lang=\"en-US\"><s>Hello, <emphasis>world</emphasis>.</s></speak>";

int main(void) {
  utterance *u = new_utterance();
  if (u == NULL || utt_load_ssml(u, kDocument) != 1) {
    fprintf(stderr, "consumer: the document did not load\n");
    delete_utterance(u);
    return 1;
  }
  item *root = relation_head(utt_relation(u, "ssml"));
  int texts = 0;
  for (item *i = utt_walk_next(root, root, 1); i != NULL; i = utt_walk_next(i, root, 1)) {
    const bsr_wchar *text = item_feat_wstring(i, "text");
    if (text == NULL) continue;
    char utf8[256];
    bsr_UTF16ToUTF8(text, BSR_ZERO_TERMINATED, utf8, sizeof utf8);
    printf("%s\n", utf8);
    ++texts;
  }
  delete_utterance(u);
  return texts == 3 ? 0 : 1;
}
