// word_elements.h - the word stage of the analysis chain: the text of every
// sentence becomes "word" elements with their classes from the dictionary,
// recorded in the relation "_Word_".
#ifndef UTILS_UTTS_WORD_ELEMENTS_H
#define UTILS_UTTS_WORD_ELEMENTS_H

#include <string>

#include "nlp_dict.h"
#include "utterance.h"

namespace utts {

// Replaces each text item below `root` by word elements, in order: runs of
// Han characters segmented by the dictionary in character mode, runs of
// letters or digits one word each (classed by the dictionary in token
// mode). A "sub" element's alias stands in for its content. Each word
// element carries "tag" "word", "name" (its text), "pos" (class code),
// "name_Len" (length in UTF-16 units) and a text daughter, and is appended
// to "_Word_" (sharing its contents). A word of letters in a document whose
// language `lang` is not English-like gets "xml:lang" "en-US", so that the
// phrase builds treat it as a word of another language. A punctuation mark
// ends a phrase: the word before it gets "delay" ("short", or "long" after
// a sentence end) and "break" -1, which the break predictors leave alone.
// Returns the number of words made.
int make_word_elements(utterance *u, item *root, NLPDIC *dict, const std::u16string &lang);

}  // namespace utts

#endif  // UTILS_UTTS_WORD_ELEMENTS_H
