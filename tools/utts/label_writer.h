// label_writer.h - the context labels of an utterance whose focus phrases
// are built: phrase by phrase, the hierarchy and one label per phone.
#ifndef UTILS_UTTS_LABEL_WRITER_H
#define UTILS_UTTS_LABEL_WRITER_H

#include <cstdio>
#include <string>
#include <vector>

#include "utterance.h"
#include "utts/label_fields.h"

namespace utts {

// For every item of "focus_phrase" in order: makes it the utterance's
// "focus_phrase", builds the phrase's relations with PhraseCreate in `lang`
// and writes one line per item of "Phone" with the fields of `fields`.
// False with a message when the output cannot be written.
bool write_phrase_labels(utterance *u, const std::u16string &lang, const LabelFields &fields,
                         std::FILE *out, std::string &error);

// The same labels appended to `labels`, one string a phone.
void collect_phrase_labels(utterance *u, const std::u16string &lang, const LabelFields &fields,
                           std::vector<std::string> &labels);

}  // namespace utts

#endif  // UTILS_UTTS_LABEL_WRITER_H
