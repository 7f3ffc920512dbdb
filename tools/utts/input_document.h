// input_document.h - the input of the front-end commands as a Mini-XML tree:
// SSML, or plain text wrapped in a speak element, and its normalisation by
// the language pack of its language.
#ifndef UTILS_UTTS_INPUT_DOCUMENT_H
#define UTILS_UTTS_INPUT_DOCUMENT_H

#include <mxml.h>

#include <string>
#include <vector>

namespace utts {

// The input as a tree holding a <speak> element: the document itself when
// the input starts with '<' and is SSML, else the input as the text of a new
// speak element with xml:lang `lang` (a note on standard error says so when
// the input looked like markup). Null with a message in `error` when not
// even the text can be read (bytes that are not UTF-8). The caller deletes
// the tree with mxmlDelete.
mxml_node_t *read_input(const std::string &input, const std::string &input_name,
                        const std::string &lang, std::string &error);

// The speak element of a tree from read_input.
mxml_node_t *find_speak(mxml_node_t *tree);

// The speak element's xml:lang, or `fallback` when it has none.
std::string document_language(mxml_node_t *tree, const std::string &fallback);

// Runs the rule sets and readers of the language pack of `lang` over the
// tree: the pack's bundled rules, or instead the given rule texts (named by
// `rule_names` in messages). False with a message when a rule is rejected or
// memory runs out.
bool normalize_document(mxml_node_t *tree, const std::string &lang,
                        const std::vector<std::string> &rule_texts,
                        const std::vector<std::string> &rule_names, std::string &error);

}  // namespace utts

#endif  // UTILS_UTTS_INPUT_DOCUMENT_H
