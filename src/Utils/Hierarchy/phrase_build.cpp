// phrase_build.cpp - the relations of one phrase ("Phrase", "PWord", "Word",
// "Syllable", "Phone") built from a focus phrase, in the language of the
// document or in another one, and the placeholder word that stands in for
// a word of another language.
//
// Which build runs is decided per call by comparing the language asked for
// with the document's own "xml:lang": the engine synthesises the main
// language with the foreign words replaced, and may then run a second pass
// in a foreign language over the same utterance, keeping only that
// language's words. One exported entry point serves both, since the
// document already tells them apart.
#include "Utils/Hierarchy/hierarchy_names.h"
#include "bsr_string.h"
#include "prosodic_hierarchy.h"
#include "utt_walk.h"

namespace utils::hierarchy {

namespace {

constexpr const char *kBuiltRelations[] = {kPhrase, kPWord, kWord, kSyllable, kPhone};

// Sets `name` of `to` to the value `from` has, unless there is none or the
// two already hold the same value (shared contents).
void copy_feature(item *to, const item *from, const char *name) {
  const val *v = item_feat(from, name);
  if (v == nullptr || item_feat(to, name) == v) return;
  item_set(to, name, v);
}

int phones_of(const item *word) {
  int n = 0;
  for (const item *s = item_daughter(word); s != nullptr; s = item_next(s)) {
    for (const item *p = item_daughter(s); p != nullptr; p = item_next(p)) ++n;
  }
  return n;
}

// Appends `from` (or, when null, a new item) to the flat relation `rel` and
// adds that under `parent` in the tree; returns the tree's item, and the
// flat one in `*flat` when asked, or null when either step fails. A failed
// append never turns into a daughter with contents of its own, and an item
// that could not join the tree leaves the flat relation again, so the two
// never disagree.
item *place(relation *rel, item *from, item *parent, item **flat = nullptr) {
  item *in_rel = relation_append(rel, from);
  if (in_rel == nullptr) return nullptr;
  item *tree = item_add_daughter(parent, in_rel);
  if (tree == nullptr) {
    delete_item(in_rel);
    return nullptr;
  }
  if (flat != nullptr) *flat = in_rel;
  return tree;
}

// Names a new pause item; one that cannot take its name is taken out
// again, so every item of "Phone" has a name.
void new_pause(item *at) {
  if (at == nullptr) return;
  item_set_wstring(at, kNameFeature, kPause);
  if (!item_feat_present(at, kNameFeature)) delete_item(at);
}

class PhraseBuilder {
 public:
  PhraseBuilder(utterance *u, const bsr_wchar *lang) : lang_(lang) {
    for (int k = 0; k < 5; ++k) rel_[k] = utt_relation_create(u, kBuiltRelations[k]);
    focus_ = val_item(feat_val(u->features, kFocusPhrase));
  }

  bool ready() const {
    for (relation *r : rel_) {
      if (r == nullptr) return false;
    }
    return true;
  }

  // Words of other languages are replaced by the placeholder; pauses frame
  // the whole "Phone" relation.
  void build_main() {
    item *phrase = relation_append(rel_[kPhraseRel], focus_);
    if (phrase == nullptr) return;
    copy_feature(phrase, focus_, kPositionFW);
    copy_feature(phrase, focus_, kPositionBW);
    for (item *pw = item_daughter(focus_); pw != nullptr; pw = item_next(pw)) {
      item *pword = place(rel_[kPWordRel], pw, phrase);
      if (pword == nullptr) return;
      for (item *w = item_daughter(pw); w != nullptr; w = item_next(w)) {
        item *word = place(rel_[kWordRel], w, pword);
        if (word == nullptr) return;
        if (in_language(w)) {
          if (!add_syllables(word, w)) return;
        } else {
          counter_ += phones_of(w);
          CreateFakeWord(lang_, rel_[kSyllableRel], rel_[kPhoneRel], word);
        }
      }
    }
  }

  void frame_with_pauses() {
    new_pause(relation_prepend(rel_[kPhoneRel], nullptr));
    new_pause(relation_append(rel_[kPhoneRel], nullptr));
  }

  // Only words of the language are kept; a foreign word ends the phrase.
  // The prosodic word opened for the first kept word is never closed, so
  // every later kept word joins it, in the first phrase.
  void build_other() {
    item *phrase = nullptr;
    item *pword = nullptr;
    for (item *pw = item_daughter(focus_); pw != nullptr; pw = item_next(pw)) {
      for (item *w = item_daughter(pw); w != nullptr; w = item_next(w)) {
        if (!in_language(w)) {
          phrase = nullptr;
          counter_ += phones_of(w);
          continue;
        }
        if (phrase == nullptr) {
          phrase = relation_append(rel_[kPhraseRel], nullptr);
          if (phrase == nullptr) return;
          copy_feature(phrase, focus_, kPositionFW);
          copy_feature(phrase, focus_, kPositionBW);
        }
        if (pword == nullptr) {
          pword = place(rel_[kPWordRel], pw, phrase);
          if (pword == nullptr) return;
        }
        item *word = place(rel_[kWordRel], w, pword);
        if (word == nullptr || !add_syllables(word, w)) return;
      }
    }
  }

  // A pause opens "Phone"; another follows the last phone of each phrase.
  void pause_after_phrases() {
    new_pause(relation_prepend(rel_[kPhoneRel], nullptr));
    for (item *phrase = relation_head(rel_[kPhraseRel]); phrase != nullptr;
         phrase = item_next(phrase)) {
      item *last = phrase;
      for (int level = 0; level < 4 && last != nullptr; ++level) last = item_last_daughter(last);
      if (last == nullptr) continue;
      if (item *phone = item_as(last, kPhone); phone != nullptr) {
        new_pause(item_append(phone, nullptr));
      }
    }
  }

 private:
  enum { kPhraseRel, kPWordRel, kWordRel, kSyllableRel, kPhoneRel };

  bool in_language(item *word) const {
    return IsHasInheritAtt(item_as(word, "ssml"), kLangFeature, lang_) == 1;
  }

  // The syllables and phones of focus word `w` under `word`, flat and in
  // the tree, "tone" taken from "stress", "pho-pos" counted.
  bool add_syllables(item *word, item *w) {
    for (item *s = item_daughter(w); s != nullptr; s = item_next(s)) {
      item *syllable = place(rel_[kSyllableRel], s, word);
      if (syllable == nullptr) return false;
      // The contents are the SSML element's: a stress replaces its tone digit.
      if (const val *stress = item_feat(syllable, kStressFeature); stress != nullptr) {
        if (item_feat(syllable, kToneFeature) != stress) item_set(syllable, kToneFeature, stress);
        if (item_feat(syllable, kToneFeature) != stress) return false;
      }
      for (item *p = item_daughter(s); p != nullptr; p = item_next(p)) {
        item *flat = nullptr;
        item *phone = place(rel_[kPhoneRel], p, syllable, &flat);
        if (phone == nullptr) return false;
        item_set_int(phone, kPhonePosFeature, counter_++);
        if (!item_feat_present(phone, kPhonePosFeature)) {
          delete_item(flat);
          delete_item(phone);
          return false;
        }
      }
    }
    return true;
  }

  const bsr_wchar *lang_;
  relation *rel_[5] = {};
  item *focus_ = nullptr;
  int counter_ = 0;
};

// Compared as every string of the document is: a null language equals a
// missing "xml:lang".
bool same_language(const bsr_wchar *a, const bsr_wchar *b) { return bsr_wcscmp(a, b) == 0; }

}  // namespace

}  // namespace utils::hierarchy

extern "C" {

UTILS_API void PhraseCreate(utterance *u, const bsr_wchar *lang) {
  using namespace utils::hierarchy;
  if (u == nullptr) return;
  const item *root = relation_head(utt_relation(u, "ssml"));
  const bool main_language = same_language(lang, item_feat_wstring(root, kLangFeature));
  PhraseBuilder builder(u, lang);
  if (!builder.ready()) return;
  if (main_language) {
    builder.build_main();
    builder.frame_with_pauses();
  } else {
    builder.build_other();
    builder.pause_after_phrases();
  }
}

UTILS_API void CreateFakeWord(const bsr_wchar *lang, relation *syllables, relation *phones,
                              item *word) {
  using namespace utils::hierarchy;
  if (syllables == nullptr || phones == nullptr || word == nullptr) return;
  struct FakePhone {
    const char16_t *name;
    const char16_t *voiced;
  };
  static constexpr FakePhone kFakePhones[] = {{u"s", u"0"}, {u"a", u"1"}};
  // The placeholder goes in whole or not at all: what was made before
  // memory ran out is taken out again.
  item *flat_syllable = nullptr;
  item *syllable = place(syllables, nullptr, word, &flat_syllable);
  if (syllable == nullptr) return;
  item_set_wstring(syllable, kToneFeature, u"1");
  item_set_wstring(syllable, kVowelFeature, u"a");
  bool whole =
      item_feat_present(syllable, kToneFeature) && item_feat_present(syllable, kVowelFeature);
  item *flat_phones[2] = {nullptr, nullptr};
  for (int k = 0; k < 2 && whole; ++k) {
    item *phone = place(phones, nullptr, syllable, &flat_phones[k]);
    if (phone == nullptr) {
      whole = false;
      break;
    }
    item_set_wstring(phone, kNameFeature, kFakePhones[k].name);
    item_set_wstring(phone, kVoicedFeature, kFakePhones[k].voiced);
    whole = item_feat_present(phone, kNameFeature) && item_feat_present(phone, kVoicedFeature);
  }
  if (whole) return;
  for (item *flat : flat_phones) delete_item(flat);
  delete_item(syllable);  // and its phones in the tree
  delete_item(flat_syllable);
}

}  // extern "C"
