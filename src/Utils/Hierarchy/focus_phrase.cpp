// focus_phrase.cpp - grouping the words of the focus text into prosodic
// words and phrases: the tree relation "focus_phrase", whose word, syllable
// and phone items share their contents with the SSML elements.
#include "Utils/Hierarchy/hierarchy_names.h"
#include "prosodic_hierarchy.h"
#include "ssml_tags.h"
#include "utt_walk.h"

namespace utils::hierarchy {

namespace {

constexpr const char *kFocusRelations[] = {"focus_phrase", "focus_pword", "focus_word",
                                           "focus_syllable", "focus_phone"};

// Adds the syllable and phone elements below `word` under `word_item`;
// returns the number of phones placed, or -1 when an item could not be made.
int add_syllables(item *word, item *word_item) {
  int phones = 0;
  const bsr_wchar *syllable_tag = SyllableTagName();
  const bsr_wchar *phone_tag = PhoneTagName();
  for (item *s = utt_walk_next_tag(word, word, 1, syllable_tag); s != nullptr;
       s = utt_walk_next_tag(s, word, 1, syllable_tag)) {
    item *syllable_item = item_add_daughter(word_item, s);
    if (syllable_item == nullptr) return -1;
    for (item *p = utt_walk_next_tag(s, s, 1, phone_tag); p != nullptr;
         p = utt_walk_next_tag(p, s, 1, phone_tag)) {
      if (item_add_daughter(syllable_item, p) == nullptr) return -1;
      ++phones;
    }
  }
  return phones;
}

}  // namespace

}  // namespace utils::hierarchy

extern "C" {

UTILS_API int FocusPhraseDestroy(utterance *u) {
  int last = 0;
  for (const char *name : utils::hierarchy::kFocusRelations) last = utt_relation_delete(u, name);
  return last;
}

UTILS_API int FocusPhraseCreate(utterance *u) {
  using namespace utils::hierarchy;
  if (u == nullptr) return 0;
  FocusPhraseDestroy(u);
  item *top = item_as(val_item(feat_val(u->features, kFocusFeature)), "ssml");
  if (top == nullptr) return 0;
  relation *phrases = utt_relation_create(u, kFocusPhrase);
  if (phrases == nullptr) return 0;
  const bsr_wchar *word_tag = WordTagName();
  item *phrase = nullptr;
  item *pword = nullptr;
  int phones = 0;
  for (item *w = utt_walk_next_tag(top, top, 1, word_tag); w != nullptr;
       w = utt_walk_next_tag(w, top, 1, word_tag)) {
    if (phrase == nullptr) {
      phrase = relation_append(phrases, nullptr);
      if (phrase == nullptr) return 0;
      pword = nullptr;
    }
    if (pword == nullptr) pword = item_add_daughter(phrase, nullptr);
    if (pword == nullptr) return 0;
    item *word_item = item_add_daughter(pword, w);
    if (word_item == nullptr) return 0;
    const int placed = add_syllables(w, word_item);
    if (placed < 0) return 0;
    phones += placed;
    if (item_feat_int(w, kBreakFeature) >= 1) pword = nullptr;
    if (item_feat_present(w, kDelayFeature)) phrase = nullptr;
  }
  return phones != 0 ? 1 : 0;
}

}  // extern "C"
