// front_end.cpp - the stages of the analysis chain in order.
#include "utts/front_end.h"

#include "bsr_unicode.h"
#include "phrase_break.h"
#include "prosodic_hierarchy.h"
#include "sentence_stress.h"
#include "ssml_io.h"
#include "utt_features.h"
#include "utts/file_io.h"
#include "utts/input_document.h"
#include "utts/mandarin_pronunciation.h"
#include "utts/sentence_wrap.h"
#include "utts/word_elements.h"

namespace utts {
namespace {

std::u16string widen(const std::string &s) {
  std::u16string out(s.size() + 1, u'\0');
  bsr_UTF8ToUTF16(s.c_str(), static_cast<uint32_t>(s.size()), &out[0],
                  static_cast<uint32_t>(out.size()));
  return out.c_str();
}

// Focus phrases and stress: the stress model builds the focus phrases as it
// goes; without one, they are built directly.
void stress_and_phrases(utterance *u, NLPDIC *dict, item *root, const std::u16string &lang) {
  if (void *stress = NLPDIC_GetStressPointer(dict); stress != nullptr) {
    Stress_Process(stress, root, lang.c_str());
    return;
  }
  feat_set(u->features, "focus", item_val(root));
  FocusPhraseCreate(u);
}

}  // namespace

std::string guess_language(const std::string &text) {
  const std::u16string wide = widen(text);
  mandarin::TextRun run{};
  for (size_t at = 0; mandarin::next_run(wide.c_str(), wide.size(), at, run); at = run.end)
    if (run.kind == mandarin::RunKind::kHan) return "zh-CN";
  return "en-US";
}

bool FrontEnd::open_dictionary(const std::string &path, std::string &error) {
  if (path.empty()) {
    error = "no dictionary given (-d)";
    return false;
  }
  return dictionary_.open(path, error);
}

bool FrontEnd::analyze(utterance *u, const std::string &input, const std::string &input_name,
                       const AnalysisOptions &options, Analysis &result, std::string &error) const {
  auto show = [&](const char *stage, const std::string &note, item *root) {
    if (options.observer) options.observer(stage, note, root);
  };
  const std::string plain_lang = options.lang.empty() ? guess_language(input) : options.lang;
  mxml_node_t *tree = read_input(input, input_name, plain_lang, error);
  if (tree == nullptr) return false;
  const std::string lang =
      options.lang.empty() ? document_language(tree, plain_lang) : options.lang;
  const bool normalised =
      normalize_document(tree, lang, options.rule_texts, options.rule_names, error);
  if (normalised) utt_load_xml(u, tree);
  mxmlDelete(tree);
  if (!normalised) return false;
  item *root = relation_head(utt_relation(u, "ssml"));
  if (root == nullptr) {
    error = input_name + " holds no speak element";
    return false;
  }
  result.lang = widen(lang);
  // The builds compare each word's language with the document's own.
  item_set_wstring(root, "xml:lang", result.lang.c_str());

  show("normalisation", lang, root);
  const int sentences = wrap_sentences(root);
  show("sentences", std::to_string(sentences), root);
  const int words = make_word_elements(u, root, dictionary_.get(), result.lang);
  show("words", std::to_string(words), root);
  result.pronounced = pronounce_words(root);
  const PronunciationCount &said = result.pronounced;
  show("pronunciation",
       std::to_string(said.pronounced) + " pronounced, " + std::to_string(said.unknown) +
           " without a reading, " + std::to_string(said.other) + " of other languages",
       root);
  PWordBreak(dictionary_.get(), u);
  PhraseBreak_Process(NLPDIC_GetPhraseBreakPointer(dictionary_.get()), u);
  show("breaks", "", root);
  stress_and_phrases(u, dictionary_.get(), root, result.lang);
  show("stress", "", root);
  return true;
}

}  // namespace utts
