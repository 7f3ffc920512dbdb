// normalize_command.cpp - "utts normalize": parse SSML, run the rule sets and
// the English readers, mirror the result in an utterance and save it as SSML.
#include "utts/command.h"

#include <mxml.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ssml_io.h"
#include "utterance.h"
#include "utts/file_io.h"
#include "utts/text_normalizer.h"

namespace utts {

namespace {

const char kUsage[] =
    "Usage: utts normalize [-r RULES]... [-o OUTPUT] [INPUT]\n"
    "\n"
    "Reads the SSML document INPUT (standard input when absent or \"-\"), turns\n"
    "written numbers, dates, times, money, measures, telephone numbers and\n"
    "abbreviations into words, and writes the document with each of them as\n"
    "  <sub alias=\"spoken form\">written form</sub>\n"
    "to OUTPUT (standard output when absent or \"-\"). say-as elements are read\n"
    "too (interpret-as cardinal, ordinal, digits, characters, telephone, date\n"
    "with format mdy, dmy or ymd, and time).\n"
    "\n"
    "Options:\n"
    "  -r, --rules FILE   use the rule set in FILE instead of the bundled English\n"
    "                     rules; give it several times to load several sets in order\n"
    "  -o, --output FILE  write the result to FILE\n"
    "  -h, --help         show this help\n"
    "\n"
    "A rule set has one rule per line: an RE2 pattern, a TAB, and a template such\n"
    "as xcardinal{\"?0\"}; lines starting with # and holding a TAB are comments.\n";

struct Options {
  std::vector<std::string> rule_files;
  std::string input = "-";
  std::string output = "-";
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
    auto value = [&](std::string &into) {
      if (i + 1 >= argc) {
        error = "option '" + arg + "' needs a file name";
        return false;
      }
      into = argv[++i];
      return true;
    };
    if (arg == "-h" || arg == "--help") {
      options.help = true;
    } else if (arg == "-r" || arg == "--rules") {
      std::string file;
      if (!value(file)) return false;
      options.rule_files.push_back(file);
    } else if (arg == "-o" || arg == "--output") {
      if (!value(options.output)) return false;
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
std::string g_parseError;
void keep_parse_error(const char *message) {
  if (g_parseError.empty() && message != nullptr) g_parseError = message;
}

mxml_node_t *find_speak(mxml_node_t *tree) {
  return mxmlFindElement(tree, tree, "speak", nullptr, nullptr, MXML_DESCEND);
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

  TextNormalizer normalizer;
  if (!normalizer.ok()) return fail("out of memory");
  if (options.rule_files.empty()) {
    if (!load_rules(normalizer, std::string(kEnglishRules, kEnglishRulesSize), "bundled rules",
                    error))
      return fail(error);
  }
  for (const std::string &file : options.rule_files) {
    std::string text;
    if (!read_all(file, text, error) || !load_rules(normalizer, text, file, error))
      return fail(error);
  }

  std::string ssml;
  if (!read_all(options.input, ssml, error)) return fail(error);
  const std::string input_name =
      options.input == "-" ? "standard input" : "'" + options.input + "'";
  g_parseError.clear();
  mxmlSetErrorCallback(keep_parse_error);
  // The document goes under a holder node: on a parse error Mini-XML frees
  // the half-built tree only when it has a parent to hang it on.
  mxml_node_t *tree = mxmlNewElement(MXML_NO_PARENT, "document");
  if (tree == nullptr) return fail("out of memory");
  if (mxmlLoadString(tree, ssml.c_str(), MXML_OPAQUE_CALLBACK) == nullptr) {
    mxmlDelete(tree);
    return fail(input_name + " is not well-formed SSML" +
                (g_parseError.empty() ? std::string() : ": " + g_parseError));
  }
  if (find_speak(tree) == nullptr) {
    mxmlDelete(tree);
    return fail(input_name + " has no <speak> element");
  }

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
