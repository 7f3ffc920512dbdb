// sentence_stress.cpp - Stress_Process: the focus phrases built, and each
// word of each phrase given the stress tree's level.
#include "sentence_stress.h"

#include "NLP/NLP_Dict/model_holder.h"
#include "dtree.h"
#include "hts_model.h"
#include "prosodic_hierarchy.h"
#include "utt_features.h"
#include "utt_val.h"

namespace utils::stress {
namespace {

constexpr int32_t kMaxStress = 60;  // the largest shared constant value

const val *stress_value(int32_t leaf) {
  const int32_t s = leaf - 1;
  if (s < 0) return val_string_n(0);
  return val_string_n(s > kMaxStress ? kMaxStress : s);
}

}  // namespace
}  // namespace utils::stress

extern "C" UTILS_API int Stress_Process(void *holder, item *focus, const bsr_wchar *text) {
  if (holder == nullptr || focus == nullptr) return -1;
  utterance *u = item_utt(focus);
  if (u == nullptr) return 0;
  feat_set(u->features, "focus", item_val(focus));
  if (FocusPhraseCreate(u) == 0) return 0;
  relation *phrases = utt_relation(u, "focus_phrase");
  const HTSModel *model = static_cast<utils::nlpdict::ModelHolder *>(holder)->model;
  const DTree *tree = model == nullptr ? nullptr : model->trees;
  for (item *fp = relation_head(phrases); fp != nullptr; fp = item_next(fp)) {
    feat_set(u->features, "focus_phrase", item_val(fp));
    PhraseCreate(u, text);
    for (item *w = relation_head(utt_relation(u, "Word")); w != nullptr; w = item_next(w))
      item_set(w, "stress", utils::stress::stress_value(DTree_Lookup(tree, 0, w)));
  }
  return 0;
}
