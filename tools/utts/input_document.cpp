// input_document.cpp - reading the front end's input into a Mini-XML tree
// and normalising it with the language pack of its language.
#include "utts/input_document.h"

#include <cstdio>
#include <string>
#include <vector>

#include "utts/file_io.h"
#include "utts/language_packs.h"
#include "utts/text_normalizer.h"

namespace utts {
namespace {

// Loads one rule set; on rejected lines returns false with a message.
bool load_rules(TextNormalizer &normalizer, const std::string &text, const std::string &name,
                std::string &error) {
  std::vector<int> rejected;
  {
    // RE2 prints its own complaint about a bad pattern; ours names the line.
    QuietStderr quiet;
    rejected = normalizer.add_rules(text);
  }
  if (rejected.empty()) return true;
  error = name + ":" + std::to_string(rejected[0]) + ": rule rejected";
  if (rejected.size() == 2) error += " (and 1 more line)";
  if (rejected.size() > 2) error += " (and " + std::to_string(rejected.size() - 1) + " more lines)";
  return false;
}

// The first error message of Mini-XML while parsing.
std::string g_parse_error;
void keep_parse_error(const char *message) {
  if (g_parse_error.empty() && message != nullptr) g_parse_error = message;
}

// Parses `text` under a holder node: on a parse error Mini-XML frees the
// half-built tree only when it has a parent to hang it on. Null when the
// text is rejected, with Mini-XML's first complaint in g_parse_error.
mxml_node_t *parse(const std::string &text) {
  g_parse_error.clear();
  // Mini-XML's string reader takes the byte FE or FF for a UTF-16 byte order
  // mark wherever it stands and then reads past the end of the text. Neither
  // byte occurs in UTF-8, so such text is refused before Mini-XML sees it.
  if (text.find_first_of("\xFE\xFF") != std::string::npos) {
    g_parse_error = "it holds the byte FE or FF, which UTF-8 text never does";
    return nullptr;
  }
  mxmlSetErrorCallback(keep_parse_error);
  mxml_node_t *holder = mxmlNewElement(MXML_NO_PARENT, "document");
  if (holder == nullptr) {
    g_parse_error = "out of memory";
    return nullptr;
  }
  if (mxmlLoadString(holder, text.c_str(), MXML_OPAQUE_CALLBACK) == nullptr) {
    mxmlDelete(holder);
    return nullptr;
  }
  return holder;
}

// True when the first character after blanks (and a UTF-8 byte order mark)
// is '<': only such input is taken for a document.
bool looks_like_markup(const std::string &text) {
  size_t at = text.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
  at = text.find_first_not_of(" \t\r\n", at);
  return at != std::string::npos && text[at] == '<';
}

// `text` with the characters that cannot stand as they are in XML text or in
// a double-quoted attribute value written as references.
std::string escaped(const std::string &text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

// Parts of the document in another language are read by their own pack
// first; the pass of the document's pack then leaves the sub elements they
// became alone.
void normalize_other_languages(mxml_node_t *node, const LanguagePack &pack) {
  for (mxml_node_t *child = mxmlGetFirstChild(node); child != nullptr;
       child = mxmlGetNextSibling(child)) {
    if (mxmlGetType(child) != MXML_ELEMENT) continue;
    const char *lang = mxmlElementGetAttr(child, "xml:lang");
    const LanguagePack &own = lang != nullptr && *lang != '\0' ? language_pack(lang) : pack;
    normalize_other_languages(child, own);
    if (&own == &pack) continue;
    TextNormalizer normalizer(own);
    if (normalizer.ok() && normalizer.add_rules(std::string(own.rules, own.rules_size)).empty())
      normalizer.normalize(child);
  }
}

}  // namespace

mxml_node_t *find_speak(mxml_node_t *tree) {
  return mxmlFindElement(tree, tree, "speak", nullptr, nullptr, MXML_DESCEND);
}

// The input as a tree holding a <speak> element: the document itself when it
// is SSML, else the input as the text of a new speak element in `lang`. Null
// with a message when not even the text can be read (Mini-XML stops at a
// byte sequence that is not UTF-8).
mxml_node_t *read_input(const std::string &input, const std::string &input_name,
                        const std::string &lang, std::string &error) {
  if (looks_like_markup(input)) {
    mxml_node_t *tree = parse(input);
    if (tree != nullptr && find_speak(tree) != nullptr) return tree;
    std::string why = tree != nullptr ? "it has no <speak> element" : "it is not well-formed";
    if (tree == nullptr && !g_parse_error.empty()) why += ": " + g_parse_error;
    if (tree != nullptr) mxmlDelete(tree);
    std::fprintf(stderr, "utts: note: %s is not SSML (%s); reading it as plain text\n",
                 input_name.c_str(), why.c_str());
  }
  // A byte order mark is not part of the text.
  const size_t skip = input.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
  mxml_node_t *tree = parse("<speak xml:lang=\"" + escaped(lang) + "\">" +
                            escaped(input.substr(skip)) + "</speak>");
  // Mini-XML's complaint would be about the wrapper; the cause is the input.
  if (tree == nullptr) error = input_name + " cannot be read as UTF-8 text";
  return tree;
}

std::string document_language(mxml_node_t *tree, const std::string &fallback) {
  const char *own = mxmlElementGetAttr(find_speak(tree), "xml:lang");
  return own != nullptr && *own != '\0' ? own : fallback;
}

bool normalize_document(mxml_node_t *tree, const std::string &lang,
                        const std::vector<std::string> &rule_texts,
                        const std::vector<std::string> &rule_names, std::string &error) {
  const LanguagePack &pack = language_pack(lang);
  TextNormalizer normalizer(pack);
  if (!normalizer.ok()) {
    error = "out of memory";
    return false;
  }
  if (rule_texts.empty() &&
      !load_rules(normalizer, std::string(pack.rules, pack.rules_size), "bundled rules", error))
    return false;
  for (std::size_t i = 0; i < rule_texts.size(); ++i)
    if (!load_rules(normalizer, rule_texts[i], rule_names[i], error)) return false;
  // The speak element itself is read in `lang`; with rule files of their
  // own, users decide everything in one pass.
  if (rule_texts.empty()) normalize_other_languages(find_speak(tree), pack);
  normalizer.normalize(tree);
  return true;
}

}  // namespace utts
