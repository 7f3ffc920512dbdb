// label_phrase.h - what the label and tree benchmarks share: an English
// phrase built from SSML whose words carry their phones, and the 40 label
// fields they read of every phone (phones around, places and sizes at every
// level, tones).
#ifndef UTILS_BENCH_LABEL_PHRASE_H
#define UTILS_BENCH_LABEL_PHRASE_H

#include <string>
#include <vector>

#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"
#include "utterance.h"

namespace bench {

inline const char *const kLabelFields[] = {"p.p.name",
                                           "p.name",
                                           "name",
                                           "n.name",
                                           "n.n.name",
                                           "R:Phrase.PositionFW",
                                           "R:Phrase.PositionBW",
                                           "R:Phrase.PositionFW2",
                                           "R:Phrase.PositionBW2",
                                           "R:Phrase.PositionFW3",
                                           "R:Phrase.PositionBW3",
                                           "R:Phrase.PositionFW4",
                                           "R:Phrase.PositionBW4",
                                           "R:Phrase.parent.tone",
                                           "R:Phrase.parent.p.tone",
                                           "R:Phrase.parent.n.tone",
                                           "R:Phrase.parent.NumDaughter",
                                           "R:Phrase.parent.PositionFW",
                                           "R:Phrase.parent.PositionBW",
                                           "R:Phrase.parent.PositionFW2",
                                           "R:Phrase.parent.PositionBW2",
                                           "R:Phrase.parent.PositionFW3",
                                           "R:Phrase.parent.PositionBW3",
                                           "R:Phrase.parent.parent.NumDaughter",
                                           "R:Phrase.parent.parent.NumDaughter2",
                                           "R:Phrase.parent.parent.PositionFW",
                                           "R:Phrase.parent.parent.PositionBW",
                                           "R:Phrase.parent.parent.PositionFW2",
                                           "R:Phrase.parent.parent.PositionBW2",
                                           "R:Phrase.parent.parent.p.NumDaughter",
                                           "R:Phrase.parent.parent.n.NumDaughter",
                                           "R:Phrase.parent.parent.parent.NumDaughter",
                                           "R:Phrase.parent.parent.parent.NumDaughter3",
                                           "R:Phrase.parent.parent.parent.PositionFW",
                                           "R:Phrase.parent.parent.parent.PositionBW",
                                           "R:Phrase.parent.parent.parent.parent.NumDaughter",
                                           "R:Phrase.parent.parent.parent.parent.NumDaughter2",
                                           "R:Phrase.parent.parent.parent.parent.NumDaughter3",
                                           "pho-pos",
                                           "0"};
inline constexpr int kLabelFieldCount = sizeof kLabelFields / sizeof kLabelFields[0];
static_assert(kLabelFieldCount == 40, "a 40-field table");

// Loads `ssml`, gives every word the phones of its "ph" attribute and builds
// the phrase; the utterance is the caller's.
inline utterance *build_phrase(const std::string &ssml) {
  utterance *u = new_utterance();
  utt_load_ssml(u, ssml.c_str());
  item *root = relation_head(utt_relation(u, "ssml"));
  for (item *w = utt_walk_next_tag(root, root, 1, WordTagName()); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, WordTagName()))
    CreatePhonemeWord(w, item_feat_wstring(w, "ph"));
  feat_set(u->features, "focus", item_val(root));
  FocusPhraseCreate(u);
  feat_set(u->features, "focus_phrase", item_val(relation_head(utt_relation(u, "focus_phrase"))));
  PhraseCreate(u, u"en-US");
  return u;
}

// The phones of the phrase, in order.
inline std::vector<item *> phrase_phones(utterance *u) {
  std::vector<item *> phones;
  for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p))
    phones.push_back(p);
  return phones;
}

}  // namespace bench

#endif  // UTILS_BENCH_LABEL_PHRASE_H
