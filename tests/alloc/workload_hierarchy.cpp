// workload_hierarchy.cpp - the prosodic hierarchy and context labels: a
// small two-language document with pronunciations and a named syllable is
// loaded, given its syllables and phones, grouped into focus phrases and
// built phrase by phrase in both languages; the labels workload then
// writes the context labels of every phone.
//
// Several steps report exhausted memory only by leaving something out
// (loading keeps what it built, a feature that could not be set is absent,
// PhraseCreate returns nothing). Each step's result is checked where it
// has one, and a built phrase is recorded only when every piece of it is
// there; a phrase with a piece missing counts as the documented failure.
#include <initializer_list>

#include "bsr_unicode.h"
#include "context_label.h"
#include "ipa_phoneme.h"
#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"
#include "utterance.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

// Phrases: (ni3.hau3 | mary) (ma1.ma0) (a named syllable "wo3").
const char kDocument[] =
    "<speak xml:lang=\"zh-CN\"><s>"
    "<word ph=\"ni3.hau3\" break=\"1\"/>"
    "<word xml:lang=\"en-US\" ph=\"m\xC9\x9B.\xC9\xB9i\" delay=\"1\"/>"
    "<word ph=\"ma1.ma0\" delay=\"1\"/>"
    "<word><syllable name=\"wo3\"/></word>"
    "</s></speak>";
constexpr int kWords = 4;

// Phones each build must hold, phrase by phrase, pauses included.
constexpr int kMainPhones[] = {2 + 5 + 2, 2 + 4, 2 + 2};
constexpr int kOtherPhones[] = {1 + 4 + 1, 1, 1};
constexpr int kPhrases = 3;

// The attributes each word element must have kept when the document was
// loaded, in document order.
const char *const kWordAttributes[kWords][3] = {
    {"ph", "break", nullptr},
    {"ph", "xml:lang", "delay"},
    {"ph", "delay", nullptr},
    {nullptr, nullptr, nullptr},
};

// Whether the loaded document is whole: loading leaves out what it could
// not make and still reports success.
bool whole(item *root) {
  if (item_feat_wstring(root, "xml:lang") == nullptr) return false;
  int k = 0;
  for (item *w = utt_walk_next_tag(root, root, 1, WordTagName()); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, WordTagName()), ++k) {
    if (k == kWords) return false;
    for (const char *name : kWordAttributes[k]) {
      if (name != nullptr && item_feat_wstring(w, name) == nullptr) return false;
    }
  }
  item *named = utt_walk_next_tag(root, root, 1, SyllableTagName());
  return k == kWords && item_feat_wstring(named, "name") != nullptr;
}

// Sets the utterance feature `name` to `i`; a value the set could not
// take is released here.
bool set_item(utterance *u, const char *name, item *i) {
  val *v = item_val(i);
  if (v == nullptr) return false;
  feat_set(u->features, name, v);
  if (val_item(feat_val(u->features, name)) == i) return true;
  delete_val(v);
  return false;
}

// Loads the document and gives it its hierarchy up to the focus phrases;
// null when a step reported failure or left something out.
utterance *prepare() {
  utterance *u = new_utterance();
  if (u == nullptr) return nullptr;
  // The utterance's sets are made without a check.
  bool ok = u->features != nullptr && u->relations != nullptr && u->ffunctions != nullptr;
  ok = ok && utt_load_ssml(u, kDocument) == 1;
  item *root = ok ? relation_head(utt_relation(u, "ssml")) : nullptr;
  ok = ok && whole(root);
  for (item *w = ok ? utt_walk_next_tag(root, root, 1, WordTagName()) : nullptr; w != nullptr;
       w = utt_walk_next_tag(w, root, 1, WordTagName())) {
    const bsr_wchar *ph = item_feat_wstring(w, "ph");
    if (ph != nullptr && CreatePhonemeWord(w, ph) <= 0) ok = false;
  }
  ok = ok && ParseSylName(root) == 2 && set_item(u, "focus", root) && FocusPhraseCreate(u) == 1;
  if (!ok) {
    delete_utterance(u);
    return nullptr;
  }
  return u;
}

item *focus_phrase(utterance *u, int k) {
  item *p = relation_head(utt_relation(u, "focus_phrase"));
  for (; k > 0 && p != nullptr; --k) p = item_next(p);
  return p;
}

// Builds phrase k in `lang`; false when a piece is missing: the feature,
// the relations, or a phone (each phone has a name; a real one, in the
// tree, a "pho-pos").
bool build(utterance *u, int k, const bsr_wchar *lang, int phones) {
  item *phrase = focus_phrase(u, k);
  if (phrase == nullptr) return false;
  if (!set_item(u, "focus_phrase", phrase)) return false;
  PhraseCreate(u, lang);
  int n = 0;
  for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p), ++n) {
    if (item_feat_wstring(p, "name") == nullptr) return false;
    if (item_as(p, "Phrase") != nullptr && !item_feat_present(p, "pho-pos") &&
        !item_feat_present(p, "voiced")) {
      return false;
    }
  }
  return n == phones;
}

// "name" (and "pho-pos") of every phone, and the tree's shape as counts.
void describe(utterance *u, Record &out) {
  for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
    char utf8[16];
    bsr_UTF16ToUTF8(item_feat_wstring(p, "name"), BSR_ZERO_TERMINATED, utf8, sizeof utf8);
    out.append(utf8);
    if (item_feat_present(p, "pho-pos")) {
      out.append("@");
      out.append_int(item_feat_int(p, "pho-pos"));
    }
    out.append(" ");
  }
  for (const char *rel : {"Phrase", "PWord", "Word", "Syllable"}) {
    int n = 0;
    for (item *i = relation_head(utt_relation(u, rel)); i != nullptr; i = item_next(i)) ++n;
    out.append_int(n);
    out.append(",");
  }
  out.append("\n");
}

Outcome hierarchy_workload(Record &out) {
  utterance *u = prepare();
  if (u == nullptr) return kFailed;
  Outcome outcome = kDone;
  for (int k = 0; k < kPhrases && outcome == kDone; ++k) {
    if (!build(u, k, u"zh-CN", kMainPhones[k])) {
      outcome = kFailed;
      break;
    }
    describe(u, out);
    if (!build(u, k, u"en-US", kOtherPhones[k])) {
      outcome = kFailed;
      break;
    }
    describe(u, out);
  }
  out.append_int(FocusPhraseDestroy(u));
  delete_utterance(u);
  return outcome;
}

// Structural fields, a path off the structure, a feature carried by the
// placeholder, the constant field.
const char *const kNames[] = {"p.name",
                              "name",
                              "n.name",
                              "R:Phrase.PositionFW",
                              "R:Phrase.PositionBW2",
                              "R:Phrase.parent.tone",
                              "R:Phrase.parent.parent.parent.parent.NumGreatGrandDaughter",
                              "voiced",
                              "pho-pos",
                              "0"};
const char *const kPrefixes[] = {"", "-", "+", "/A:", "_", "/T:", "/P:", "/V:", "/N:", "/Z:"};
const char *const kSuffixes[] = {"", "", "", "", "", "", "", "", "", "|"};
constexpr int kFields = 10;

Outcome labels_workload(Record &out) {
  utterance *u = prepare();
  if (u == nullptr) return kFailed;
  Outcome outcome = kDone;
  char label[16 + kFields * (UTILS_LABEL_VALUE_MAX + 8)];
  for (int k = 0; k < kPhrases; ++k) {
    if (!build(u, k, u"zh-CN", kMainPhones[k])) {
      outcome = kFailed;
      break;
    }
    for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
      if (MakeFeatureLabel(p, kNames, kPrefixes, kSuffixes, kFields, label) != 0) {
        outcome = kFailed;
        break;
      }
      out.append(label);
      // The phone's own symbol through the inventory.
      const bsr_wchar *name = item_feat_wstring(p, "name");
      out.append(IsIPAVoiced(name) != 0 ? "V" : "-");
      out.append(IsIPASyllable(name) != 0 ? "S\n" : "-\n");
    }
  }
  delete_utterance(u);
  return outcome;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(hierarchy, hierarchy_workload)
UTILS_ALLOC_WORKLOAD(labels, labels_workload)
