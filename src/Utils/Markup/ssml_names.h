// ssml_names.h - the names the markup tree is built from: the relation that
// holds it, the root element, and the feature keys of its items.
#ifndef UTILS_MARKUP_SSML_NAMES_H
#define UTILS_MARKUP_SSML_NAMES_H

namespace utils::markup {

// The relation of an utterance that mirrors its markup.
constexpr char kRelationName[] = "ssml";
// The element every document is rooted at, as Mini-XML names it (UTF-8).
constexpr char kRootElement[] = "speak";
// The feature that holds an element item's name; an item is an element
// exactly when it has one.
constexpr char kTagFeature[] = "tag";
// The feature that holds a text item's character data.
constexpr char kTextFeature[] = "text";
// The attribute that names a mark element.
constexpr char kNameFeature[] = "name";
// The root's attributes that name the marks a spoken span starts and ends at.
constexpr char kStartMarkFeature[] = "startmark";
constexpr char kEndMarkFeature[] = "endmark";

}  // namespace utils::markup

#endif  // UTILS_MARKUP_SSML_NAMES_H
