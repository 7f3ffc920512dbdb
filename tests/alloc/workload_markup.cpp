// workload_markup.cpp - SSML: a document loaded into an utterance, turned
// into a Mini-XML tree and back, and saved. Loading keeps what it built when
// memory runs out part way and reports success, so only the results that
// report failure (load, tree, save) are checked, with no leak and no crash.
#include <mxml.h>
#include <unistd.h>

#include <cstdio>

#include "ssml_io.h"
#include "utt_walk.h"
#include "utterance.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

const char kDocument[] =
    "<?xml version=\"1.0\"?><speak version=\"1.0\" xml:lang=\"en-US\">"
    "<p><s>Hello <emphasis level=\"strong\">big</emphasis> world.</s>"
    "<s>Call <say-as interpret-as=\"telephone\">555-0199</say-as> now"
    "<break time=\"300ms\"/><mark name=\"m1\"/>please.</s></p>"
    "<voice gender=\"female\"><s>\xE4\xB8\xAD\xE6\x96\x87 text &amp; more</s></voice></speak>";

// Counts the items of the "ssml" relation, depth first.
int count_items(item *i) {
  int n = 0;
  for (; i != nullptr; i = item_next(i)) n += 1 + count_items(item_daughter(i));
  return n;
}

Outcome markup_workload(Record &out) {
  utterance *u = new_utterance();
  if (u == nullptr) return kFailed;
  Outcome outcome = kFailed;
  if (utt_load_ssml(u, kDocument) == 1) {
    count_items(relation_head(utt_relation(u, "ssml")));
    if (mxml_node_t *tree = utt_to_xml(u); tree != nullptr) {
      utterance *again = new_utterance();
      if (again != nullptr) {
        utt_load_xml(again, tree);
        count_items(relation_head(utt_relation(again, "ssml")));
        char path[64];
        snprintf(path, sizeof path, "/tmp/alloc_markup_%d.ssml", static_cast<int>(getpid()));
        if (utt_save_ssml(again, path) == 0) {
          outcome = kDone;
          out.append("saved");
        }
        unlink(path);
        delete_utterance(again);
      }
      mxmlRelease(tree);
    }
  }
  delete_utterance(u);
  return outcome;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(markup, markup_workload)
