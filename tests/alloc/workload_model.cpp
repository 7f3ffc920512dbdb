// workload_model.cpp - the utterance model: values, feature sets, items in
// relations, feature paths. Most makers report exhausted memory only by
// leaving something out, so the record is compared only when every piece
// is there.
#include "utt_features.h"
#include "utt_ffeature.h"
#include "utt_val.h"
#include "utterance.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

// Builds words with syllables below them in a second relation.
bool build(utterance *u) {
  relation *words = utt_relation_create(u, "Word");
  relation *syls = utt_relation_create(u, "SylStructure");
  if (words == nullptr || syls == nullptr) return false;
  const char16_t *names[] = {u"one", u"two", u"three", u"four", u"five", u"six"};
  for (int k = 0; k < 6; ++k) {
    item *w = relation_append(words, nullptr);
    if (w == nullptr) return false;
    item_set_wstring(w, "name", names[k]);
    item_set_int(w, "pos", k);
    item *s = relation_append(syls, w);
    if (s == nullptr) return false;
    for (int j = 0; j <= k % 3; ++j) {
      item *syl = item_add_daughter(s, nullptr);
      if (syl == nullptr) return false;
      item_set_int(syl, "stress", j);
    }
  }
  return true;
}

// Everything readable back, or false when a piece is missing.
bool describe(utterance *u, Record &out) {
  int n = 0;
  for (item *w = relation_head(utt_relation(u, "Word")); w != nullptr; w = item_next(w)) {
    const bsr_wchar *name = item_feat_wstring(w, "name");
    if (name == nullptr || !item_feat_present(w, "pos")) return false;
    out.append_int(item_feat_int(w, "pos"));
    out.append(":");
    out.append_int(ffeature_int(w, "R:SylStructure.daughter.stress"));
    ++n;
  }
  return n == 6;
}

Outcome model_workload(Record &out) {
  utterance *u = new_utterance();
  if (u == nullptr) return kFailed;
  const bool built = build(u) && describe(u, out);
  features *f = new_features();
  if (f != nullptr) {
    feat_set_int(f, "a", 1);
    feat_set_float(f, "b", 2.5f);
    feat_set_wstring(f, "c", u"three");
    // A value the set could not take is still the caller's to release.
    val *made = int_val(7);
    feat_set(f, "d", made);
    if (made != nullptr && !feat_present(f, "d")) delete_val(made);
    // Setting reports exhausted memory only by leaving the set unchanged.
    const bool all_set = feat_present(f, "a") && feat_present(f, "b") && feat_present(f, "c") &&
                         feat_present(f, "d");
    out.append_int(feat_length(f));
    delete_features(f);
    if (!all_set) {
      delete_utterance(u);
      return kFailed;
    }
  }
  delete_utterance(u);
  return built && f != nullptr ? kDone : kFailed;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(model, model_workload)
