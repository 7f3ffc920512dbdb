// sentence_wrap.h - sentence elements for the analysis chain: every stretch
// of text and inline elements that may stand in a sentence is wrapped in an
// "s" element, and text is cut after each sentence-final mark.
#ifndef UTILS_UTTS_SENTENCE_WRAP_H
#define UTILS_UTTS_SENTENCE_WRAP_H

#include <string>

#include "utterance.h"

namespace utts {

// True for a unit that ends a sentence: 。！？!?；; and a full stop followed
// by a blank or the end of the text (`next` is the unit after, 0 at the end).
bool ends_sentence(char16_t unit, char16_t next);

// Wraps the content below `root` (the speak element of the "ssml" relation)
// in sentence elements with AddTag and the schema's sentence lists. Text is
// split after each sentence end, so one text item may open several
// sentences; blank text between sentences is dropped. Returns the number of
// sentence elements made.
int wrap_sentences(item *root);

}  // namespace utts

#endif  // UTILS_UTTS_SENTENCE_WRAP_H
