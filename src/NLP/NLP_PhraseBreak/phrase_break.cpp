// phrase_break.cpp - prosodic-word breaks from the class pairs' association
// and phrase breaks at the best-scoring words of long stretches.
#include "phrase_break.h"

#include "NLP/NLP_Dict/dict_image.h"
#include "NLP/NLP_Dict/model_holder.h"
#include "bsr_string.h"
#include "context_label.h"
#include "dtree.h"
#include "hts_model.h"
#include "utt_features.h"
#include "utt_val.h"

namespace utils::phrasebreak {
namespace {

constexpr float kMissingPair = -100.0f;
constexpr float kSingles = 0.00001f;  // two one-character words: never a break
constexpr int kEdge = 3;              // the range runs from word 3 to word n - 3
constexpr int kMinSpan = 7;           // stretches shorter than this are left whole
constexpr size_t kLabelBytes = 2048;
constexpr int kLocalWords = 128;  // words scored without allocating

const char *const kNoScore[] = {"xx", "c1=0", "c2=0", "c3=0", "c4=0", "c5=0"};

float association(const NLPDIC *dict, int32_t prev, int32_t next) {
  if (dict == nullptr || prev < 0 || next < 0) return 0.0f;
  const uint8_t *entry = utils::nlpdict::pair_entry(dict->Bigram, static_cast<uint16_t>(prev),
                                                    static_cast<uint16_t>(next));
  return entry == nullptr ? kMissingPair : utils::nlpdict::read_f32(entry + 8);
}

// The room a label of the model's fields can take: every prefix and suffix
// and the longest value of each field, and the terminator.
size_t label_room(const HTSModel *model) {
  size_t bytes = 1;
  for (int k = 0; k < model->num_features; ++k)
    bytes += bsr_strlen(model->feature_prefixes[k]) + bsr_strlen(model->feature_suffixes[k]) +
             UTILS_LABEL_VALUE_MAX;
  return bytes;
}

int32_t score_of(const HTSModel *model, const item *word) {
  if (model == nullptr || model->trees == nullptr) return 0;
  // Usual field tables fit the stack buffer; a table that could write past
  // it gets a block of its own, or no score when none can be had.
  char local[kLabelBytes];
  char *label = local;
  if (label_room(model) > sizeof local) {
    label = static_cast<char *>(bsr_safe_alloc(static_cast<uint32_t>(label_room(model))));
    if (label == nullptr) return 0;
  }
  MakeFeatureLabel(word, model->feature_names, model->feature_prefixes, model->feature_suffixes,
                   model->num_features, label);
  bool scored = true;
  for (const char *marker : kNoScore)
    if (bsr_strstr(label, marker) != nullptr) scored = false;
  if (label != local) bsr_free(label);
  return scored ? DTree_Lookup(model->trees, 0, word) : 0;
}

void mark_phrase(item *word) {
  item_set(word, "break", val_string_n(3));
  item_set_wstring(word, "delay", u"short");
}

// Breaks at the best word of the longer side, until the stretch is short.
void split(item **words, const int32_t *scores, int start, int end, int span) {
  while (end - start >= span) {
    int best = start;
    int32_t max = -1;
    for (int p = start; p <= end; ++p) {
      if (scores[p] > max) {
        max = scores[p];
        best = p;
      }
    }
    if (best <= start || best >= end) return;
    mark_phrase(words[best]);
    if (best - start > end - best)
      end = best;
    else
      start = best;
  }
}

}  // namespace
}  // namespace utils::phrasebreak

using namespace utils::phrasebreak;

extern "C" {

// Declared with their visibility in the header.
const bsr_wchar g_pmWordBreak[2] = {0x2223, 0};
const bsr_wchar g_pmTokenBreak[2] = {0x2225, 0};
const bsr_wchar g_pmPhraseBreak[2] = {0x2215, 0};

UTILS_API void *PhraseBreak_Create(const void *body) {
  return utils::nlpdict::create_model_holder(static_cast<const uint8_t *>(body),
                                             utils::nlpdict::kPhraseBreakKeyword);
}

UTILS_API int PhraseBreak_Destroy(void *holder) {
  utils::nlpdict::destroy_model_holder(static_cast<utils::nlpdict::ModelHolder *>(holder));
  return 0;
}

UTILS_API int PWordBreak(const NLPDIC *dict, utterance *u) {
  relation *words = u == nullptr ? nullptr : utt_relation(u, "_Word_");
  for (item *w = relation_head(words); w != nullptr; w = item_next(w)) {
    item *n = item_next(w);
    if (n == nullptr) break;
    const int32_t pos = item_feat_int(w, "pos"), next_pos = item_feat_int(n, "pos");
    const int32_t len = item_feat_int(w, "name_Len"), next_len = item_feat_int(n, "name_Len");
    const float mi = association(dict, pos, next_pos);
    item_set_float(w, "MI", mi);
    const float x = (len == 1 && next_len == 1) ? kSingles : mi;
    if (item_feat_int(w, "break") != -1 && x < 0.0f) item_set(w, "break", val_string_n(1));
  }
  return 1;
}

UTILS_API int PhraseBreak_Process(void *holder, utterance *u) {
  relation *words = u == nullptr ? nullptr : utt_relation(u, "_Word_");
  int n = 0;
  for (item *w = relation_head(words); w != nullptr; w = item_next(w)) ++n;
  if (n == 0) return 0;
  // Sentences of usual length need no allocation.
  item *local_list[kLocalWords];
  int32_t local_scores[kLocalWords];
  const bool local = n <= kLocalWords;
  auto *list =
      local ? local_list
            : static_cast<item **>(bsr_safe_calloc(static_cast<uint32_t>(n) * sizeof(item *)));
  auto *scores =
      local ? local_scores : static_cast<int32_t *>(bsr_safe_calloc(static_cast<uint32_t>(n) * 4));
  if (list != nullptr && scores != nullptr) {
    const HTSModel *model =
        holder == nullptr ? nullptr : static_cast<utils::nlpdict::ModelHolder *>(holder)->model;
    int k = 0;
    for (item *w = relation_head(words); w != nullptr; w = item_next(w), ++k) {
      list[k] = w;
      scores[k] = item_feat_int(w, "break") == -1 ? 0 : score_of(model, w);
    }
    split(list, scores, kEdge, n - kEdge, kMinSpan);
  }
  if (!local) {
    bsr_free(list);
    bsr_free(scores);
  }
  return 0;
}

}  // extern "C"
