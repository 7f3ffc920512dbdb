// front_end.h - the analysis chain of the front end as one object: text or
// SSML in, an utterance with its words, breaks, stress and focus phrases
// out, ready for the labels. "utts analyze" and the front-end benchmark
// both run it.
#ifndef UTILS_UTTS_FRONT_END_H
#define UTILS_UTTS_FRONT_END_H

#include <functional>
#include <string>
#include <vector>

#include "nlp_dict.h"
#include "utterance.h"
#include "utts/dictionary_file.h"
#include "utts/word_pronunciation.h"

namespace utts {

// Called after each stage with its name, a short note and the speak item.
using StageObserver = std::function<void(const char *stage, const std::string &note, item *root)>;

struct AnalysisOptions {
  std::string lang;  // empty: the document's xml:lang, or a guess for plain text
  std::vector<std::string> rule_texts, rule_names;  // instead of the bundled rules
  StageObserver observer;                           // may be empty
};

struct Analysis {
  std::u16string lang;            // the language the utterance was built in
  PronunciationCount pronounced;  // what the pronunciation stage found
};

class FrontEnd {
 public:
  FrontEnd() = default;
  FrontEnd(const FrontEnd &) = delete;
  FrontEnd &operator=(const FrontEnd &) = delete;

  // Reads and checks the dictionary image at `path` and makes the
  // dictionary on it. False with a message when it cannot.
  bool open_dictionary(const std::string &path, std::string &error);

  // Runs normalisation, sentences, words, pronunciation, breaks and stress
  // on `input` (SSML, or plain UTF-8 text) into the empty utterance `u`; its
  // "focus_phrase" relation then holds the phrases to label. False with a
  // message when the input cannot be read or normalised.
  bool analyze(utterance *u, const std::string &input, const std::string &input_name,
               const AnalysisOptions &options, Analysis &result, std::string &error) const;

 private:
  DictionaryFile dictionary_;
};

// The language plain text is taken for: zh-CN when it holds a Han
// character, else en-US.
std::string guess_language(const std::string &text);

}  // namespace utts

#endif  // UTILS_UTTS_FRONT_END_H
