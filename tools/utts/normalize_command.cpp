// normalize_command.cpp - "utts normalize": read SSML or plain text, run the
// rule sets and the readers of the language, mirror the result in an utterance and
// save it as SSML.
#include "utts/command.h"

#include <mxml.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ssml_io.h"
#include "utterance.h"
#include "utts/file_io.h"
#include "utts/language_packs.h"
#include "utts/text_normalizer.h"

namespace utts {

namespace {

const char kUsage[] =
    "Usage: utts normalize [-r RULES]... [-l LANG] [-o OUTPUT] [INPUT]\n"
    "\n"
    "Reads INPUT (standard input when absent or \"-\"), turns written numbers,\n"
    "dates, times, money, measures, telephone numbers and abbreviations into\n"
    "words, and writes the document with each of them as\n"
    "  <sub alias=\"spoken form\">written form</sub>\n"
    "to OUTPUT (standard output when absent or \"-\"). say-as elements are read\n"
    "too (interpret-as cardinal, ordinal, digits, characters, telephone, date\n"
    "with format mdy, dmy or ymd, and time).\n"
    "\n"
    "INPUT is an SSML document when its first non-blank character is '<' and it\n"
    "parses with a <speak> element. Anything else is plain text, read as the\n"
    "content of <speak xml:lang=\"LANG\">; input that starts with '<' but is not\n"
    "such a document is read as text too, with a note on standard error.\n"
    "\n"
    "Options:\n"
    "  -r, --rules FILE   use the rule set in FILE instead of the bundled rules of\n"
    "                     the language; give it several times to load several sets\n"
    "                     in order\n"
    "  -l, --lang LANG    the language of plain-text input (default en-US); it also\n"
    "                     picks the bundled rules and the readers, as the document's\n"
    "                     xml:lang does for SSML input without --lang: zh (zh-CN,\n"
    "                     cmn ...) reads in Mandarin, any other language in English;\n"
    "                     an element whose xml:lang names another of these is read\n"
    "                     in its own language (with the bundled rules only)\n"
    "  -o, --output FILE  write the result to FILE\n"
    "  -h, --help         show this help\n"
    "\n"
    "A rule set has one rule per line: an RE2 pattern, a TAB, and a template such\n"
    "as xcardinal{\"?0\"}; lines starting with # and holding a TAB are comments.\n";

struct Options {
  std::vector<std::string> rule_files;
  std::string input = "-";
  std::string output = "-";
  std::string lang = "en-US";
  bool lang_given = false;
  bool help = false;
};

int fail(const std::string &message, int status = 1) {
  std::fprintf(stderr, "utts: %s\n", message.c_str());
  return status;
}

// Parses the options; on error returns false with a message.
bool parse_options(int argc, char **argv, Options &options, std::string &error) {
  bool have_input = false;
  for (int i = 0; i < argc; ++i) {
    const std::string arg = argv[i];
    auto value = [&](std::string &into, const char *what) {
      if (i + 1 >= argc || argv[i + 1][0] == '\0') {
        error = "option '" + arg + "' needs " + what;
        return false;
      }
      into = argv[++i];
      return true;
    };
    if (arg == "-h" || arg == "--help") {
      options.help = true;
    } else if (arg == "-r" || arg == "--rules") {
      std::string file;
      if (!value(file, "a file name")) return false;
      options.rule_files.push_back(file);
    } else if (arg == "-o" || arg == "--output") {
      if (!value(options.output, "a file name")) return false;
    } else if (arg == "-l" || arg == "--lang") {
      if (!value(options.lang, "a language tag")) return false;
      options.lang_given = true;
    } else if (arg.size() > 1 && arg[0] == '-') {
      error = "unknown option '" + arg + "' (see 'utts normalize --help')";
      return false;
    } else if (have_input) {
      error = "more than one input file given ('" + options.input + "', '" + arg + "')";
      return false;
    } else {
      options.input = arg;
      have_input = true;
    }
  }
  return true;
}

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

mxml_node_t *find_speak(mxml_node_t *tree) {
  return mxmlFindElement(tree, tree, "speak", nullptr, nullptr, MXML_DESCEND);
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

// Mirrors the tree in an utterance and saves it as SSML to `path` ("-":
// standard output, through a temporary file since the saver writes files).
bool save(mxml_node_t *tree, const std::string &path, std::string &error) {
  utterance *u = new_utterance();
  if (u == nullptr) {
    error = "out of memory";
    return false;
  }
  utt_load_xml(u, tree);
  const bool to_stdout = path == "-";
  std::string file = to_stdout ? make_temp_file(error) : path;
  bool ok = !file.empty();
  if (ok && utt_save_ssml(u, file.c_str()) != 0) {
    error = "cannot write '" + file + "'";
    ok = false;
  }
  delete_utterance(u);
  if (ok && to_stdout) ok = copy_to_stdout(file, error);
  if (to_stdout && !file.empty()) std::remove(file.c_str());
  return ok;
}

// Normalises, with the pack of its own language and that pack's bundled
// rules, every outermost element below `node` whose xml:lang picks another
// pack than `pack` (a Chinese name in an English text, an English name with
// numbers in a Chinese one), innermost languages first.
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

namespace {

int run_normalize(int argc, char **argv) {
  Options options;
  std::string error;
  if (!parse_options(argc, argv, options, error)) return fail(error, 2);
  if (options.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }

  std::vector<std::string> rule_texts;
  for (const std::string &file : options.rule_files) {
    rule_texts.emplace_back();
    if (!read_all(file, rule_texts.back(), error)) return fail(error);
  }

  std::string input;
  if (!read_all(options.input, input, error)) return fail(error);
  const std::string input_name =
      options.input == "-" ? "standard input" : "'" + options.input + "'";
  mxml_node_t *tree = read_input(input, input_name, options.lang, error);
  if (tree == nullptr) return fail(error);

  // The language picks the bundled rules and the readers: --lang when given,
  // else the document's own xml:lang.
  std::string lang = options.lang;
  if (!options.lang_given) {
    const char *own = mxmlElementGetAttr(find_speak(tree), "xml:lang");
    if (own != nullptr && *own != '\0') lang = own;
  }
  const LanguagePack &pack = language_pack(lang);
  TextNormalizer normalizer(pack);
  bool loaded = normalizer.ok();
  if (!loaded) error = "out of memory";
  if (loaded && options.rule_files.empty())
    loaded =
        load_rules(normalizer, std::string(pack.rules, pack.rules_size), "bundled rules", error);
  for (std::size_t i = 0; loaded && i < rule_texts.size(); ++i)
    loaded = load_rules(normalizer, rule_texts[i], options.rule_files[i], error);
  if (!loaded) {
    mxmlDelete(tree);
    return fail(error);
  }

  // Parts in another language are read by their own pack first; the pass of
  // the document's pack then leaves the sub elements they became alone. The
  // speak element itself is read in the language chosen above (so --lang
  // overrides it). With rule files of their own users decide, in one pass.
  if (options.rule_files.empty()) normalize_other_languages(find_speak(tree), pack);
  normalizer.normalize(tree);
  bool saved = save(tree, options.output, error);
  mxmlDelete(tree);
  return saved ? 0 : fail(error);
}

const Command kCommand = {
    "normalize", "turn numbers, dates, times, money, measures and abbreviations into words", kUsage,
    run_normalize};
const Registration kRegistration(kCommand);

}  // namespace

}  // namespace utts
