// normalize_command.cpp - "utts normalize": read SSML or plain text, run the
// rule sets and the readers of the language, mirror the result in an utterance and
// save it as SSML.
#include "utts/arguments.h"
#include "utts/command.h"

#include <mxml.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ssml_io.h"
#include "utterance.h"
#include "utts/file_io.h"
#include "utts/input_document.h"

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

// Parses the options; on error returns false with a message.
bool parse_options(int argc, char **argv, Options &options, std::string &error) {
  Arguments args("normalize", argc, argv);
  while (args.next()) {
    std::string file;
    if (args.is("-h", "--help")) {
      options.help = true;
    } else if (args.is("-r", "--rules")) {
      if (args.value(file, "a file name")) options.rule_files.push_back(file);
    } else if (args.is("-o", "--output")) {
      args.value(options.output, "a file name");
    } else if (args.is("-l", "--lang")) {
      options.lang_given = args.value(options.lang, "a language tag");
    } else {
      args.input(options.input);
    }
  }
  error = args.error();
  return args.ok();
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
  const std::string lang =
      options.lang_given ? options.lang : document_language(tree, options.lang);
  if (!normalize_document(tree, lang, rule_texts, options.rule_files, error)) {
    mxmlDelete(tree);
    return fail(error);
  }
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
