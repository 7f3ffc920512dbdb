// label_writer.cpp - context labels phrase by phrase.
#include "utts/label_writer.h"

#include "context_label.h"
#include "prosodic_hierarchy.h"
#include "utt_features.h"

namespace utts {

namespace {

// Builds each phrase in turn and hands every phone's label to `take`.
template <typename Take>
void each_label(utterance *u, const std::u16string &lang, const LabelFields &fields, Take take) {
  std::string label(fields.label_bytes(), '\0');
  for (item *phrase = relation_head(utt_relation(u, "focus_phrase")); phrase != nullptr;
       phrase = item_next(phrase)) {
    feat_set(u->features, "focus_phrase", item_val(phrase));
    PhraseCreate(u, lang.c_str());
    for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
      MakeFeatureLabel(p, fields.names(), fields.prefixes(), fields.suffixes(), fields.count(),
                       &label[0]);
      take(label.c_str());
    }
  }
}

}  // namespace

bool write_phrase_labels(utterance *u, const std::u16string &lang, const LabelFields &fields,
                         std::FILE *out, std::string &error) {
  each_label(u, lang, fields, [out](const char *label) { std::fprintf(out, "%s\n", label); });
  if (std::ferror(out) != 0) {
    error = "cannot write the labels";
    return false;
  }
  return true;
}

void collect_phrase_labels(utterance *u, const std::u16string &lang, const LabelFields &fields,
                           std::vector<std::string> &labels) {
  each_label(u, lang, fields, [&labels](const char *label) { labels.emplace_back(label); });
}

}  // namespace utts
