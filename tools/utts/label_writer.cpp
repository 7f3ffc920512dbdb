// label_writer.cpp - context labels phrase by phrase.
#include "utts/label_writer.h"

#include "context_label.h"
#include "prosodic_hierarchy.h"
#include "utt_features.h"

namespace utts {

bool write_phrase_labels(utterance *u, const std::u16string &lang, const LabelFields &fields,
                         std::FILE *out, std::string &error) {
  std::string label(fields.label_bytes(), '\0');
  for (item *phrase = relation_head(utt_relation(u, "focus_phrase")); phrase != nullptr;
       phrase = item_next(phrase)) {
    feat_set(u->features, "focus_phrase", item_val(phrase));
    PhraseCreate(u, lang.c_str());
    for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
      MakeFeatureLabel(p, fields.names(), fields.prefixes(), fields.suffixes(), fields.count(),
                       &label[0]);
      std::fprintf(out, "%s\n", label.c_str());
    }
  }
  if (std::ferror(out) != 0) {
    error = "cannot write the labels";
    return false;
  }
  return true;
}

}  // namespace utts
