// workload_textnorm.cpp - text normalisation: a rule set loaded into a
// replacer and run over a document's tree, then the marked elements and
// say-as elements read aloud by a converter.
#include <mxml.h>

#include <cstring>

#include "bsr_cstr.h"
#include "hconverter.h"
#include "hreplacer.h"
#include "ssml_io.h"
#include "utterance.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

const char kRules[] =
    "\\b(\\d+)%\txpercent{\"?0\"}\n"
    "\\b(\\d{4})-(\\d\\d)-(\\d\\d)\\b\txdate{ year{\"?0\"} \" \" month{\"?1\"} }\n"
    "\\b(\\d+)\\b\txnumber{\"?0\"}\n";

const char kDocument[] =
    "<speak xml:lang=\"en-US\"><s>On 2026-11-24 sales rose 12% to 340 units.</s>"
    "<s>Call <say-as interpret-as=\"digits\">42</say-as> now.</s></speak>";

int read_number(const char *text, CStr *out) {
  return CStrAppend(out, "n") == CSTR_OK && CStrAppend(out, text) == CSTR_OK ? 0 : -1;
}

int read_say_as(const char *text, CStr *out, const char *, const char *, const char *) {
  return CStrAppend(out, "digits ") == CSTR_OK && CStrAppend(out, text) == CSTR_OK ? 0 : -1;
}

// The document's tree replaced, converted and written out.
Outcome normalise(HReplacer *replacer, HConverter *converter, Record &out) {
  utterance *u = new_utterance();
  if (u == nullptr) return kFailed;
  Outcome outcome = kFailed;
  if (utt_load_ssml(u, kDocument) == 1) {
    if (mxml_node_t *tree = utt_to_xml(u); tree != nullptr) {
      HReplacer_replace(replacer, tree);
      HConverter_convert(converter, tree);
      // Both report running out of memory only by doing less, so the text
      // is made but not recorded.
      if (char *text = mxmlSaveAllocString(tree, MXML_NO_CALLBACK); text != nullptr) {
        free(text);
        outcome = kDone;
      }
      mxmlRelease(tree);
    }
  }
  delete_utterance(u);
  return outcome;
}

Outcome textnorm_workload(Record &out) {
  HReplacer *replacer = HReplacer_create();
  HConverter *converter = HConverter_create();
  Outcome outcome = kFailed;
  if (replacer != nullptr && converter != nullptr) {
    const int rejected = HReplacer_addRuleSet(replacer, kRules, static_cast<int>(strlen(kRules)));
    out.append_int(rejected);
    const bool added = HConverter_add(converter, "xnumber", read_number) != 0 &&
                       HConverter_add(converter, "xpercent", read_number) != 0;
    HConverter_setSayAs(converter, read_say_as);
    // Running out of memory while reading rejects at least the line read.
    if (rejected == 0 && added) outcome = normalise(replacer, converter, out);
  }
  HConverter_delete(converter);
  HReplacer_delete(replacer);
  return outcome;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(textnorm, textnorm_workload)
