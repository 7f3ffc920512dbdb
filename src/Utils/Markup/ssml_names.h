/* ssml_names.h - the names the markup tree is built from: the relation that
 * holds it, the feature keys of its items, and the root element. */
#ifndef UTILS_MARKUP_SSML_NAMES_H
#define UTILS_MARKUP_SSML_NAMES_H

// The relation of an utterance that mirrors its markup.
#define SSML_RELATION "ssml"
// The element every document is rooted at, as Mini-XML names it (UTF-8).
#define SSML_ROOT_ELEMENT "speak"

#endif /* UTILS_MARKUP_SSML_NAMES_H */
