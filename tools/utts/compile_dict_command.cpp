// compile_dict_command.cpp - "utts compile-dict": a class list, a class-pair
// table and a lexicon (text) in, a dictionary image out.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "nlp_dict.h"
#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/dict_source.h"
#include "utts/file_io.h"

namespace utts {
namespace {

const char kUsage[] =
    "Usage: utts compile-dict [-c CLASSES] [-p PAIRS] [-l LEXICON]\n"
    "                         [--phrase-break MODEL] [--stress MODEL] -o OUTPUT [SOURCE...]\n"
    "\n"
    "Compiles a dictionary image. The text is line based, fields separated by\n"
    "tabs or spaces, \"#\" starting a comment line:\n"
    "  CLASSES  one class a line: NAME [CODE] (code 0..255, by default the\n"
    "           line's position), and a line \"default NAME\" naming the class\n"
    "           of words not in the dictionary\n"
    "  PAIRS    EARLIER LATER SCORE ASSOCIATION: class names, the pair's\n"
    "           log-domain score and its association (negative: a prosodic\n"
    "           word boundary); the first line of a pair wins\n"
    "  LEXICON  WORD CLASS SCORE: one reading a line, a word's readings in\n"
    "           file order; \"range L MAX MIN\" fixes the score range of words\n"
    "           of length L (by default that of their scores)\n"
    "A SOURCE holds any of the three, each part after a line \"[classes]\",\n"
    "\"[pairs]\" or \"[words]\", and models in the readable form of \"utts\n"
    "compile-model\" after \"[phrase_break]\" or \"[stress]\" (the form \"utts\n"
    "dump\" writes). Classes are read first, then the rest in the order given.\n"
    "\n"
    "Options:\n"
    "  --phrase-break MODEL  embed a compiled phrase-break model\n"
    "  --stress MODEL        embed a compiled sentence-stress model\n"
    "  -o, --output FILE     the image to write\n"
    "  -h, --help            show this help\n";

int run_compile_dict(int argc, char **argv) {
  std::vector<std::pair<std::string, std::string>> inputs;  // (file, section)
  std::string output, phrase_break, stress;
  Arguments args("compile-dict", argc, argv);
  std::vector<std::string> files;
  while (args.next()) {
    std::string v;
    if (args.is("-h", "--help")) {
      std::fputs(kUsage, stdout);
      return 0;
    } else if (args.is("-c", "--classes") || args.is("-p", "--pairs") ||
               args.is("-l", "--lexicon")) {
      const std::string &arg = args.arg();
      const char kind = arg[1] == '-' ? arg[2] : arg[1];
      if (args.value(v, "a file name"))
        inputs.emplace_back(v, kind == 'c' ? "classes" : kind == 'p' ? "pairs" : "words");
    } else if (args.is(nullptr, "--phrase-break")) {
      args.value(phrase_break, "a file name");
    } else if (args.is(nullptr, "--stress")) {
      args.value(stress, "a file name");
    } else if (args.is("-o", "--output")) {
      args.value(output, "a file name");
    } else if (args.operand(files)) {
      inputs.emplace_back(files.back(), "");
    }
  }
  if (!args.ok()) return fail(args.error(), 2);
  if (output.empty()) return fail("no output file given (-o)", 2);
  if (inputs.empty()) return fail("no input given", 2);
  // Classes first, so that pairs and words can name them in any file order.
  std::stable_sort(inputs.begin(), inputs.end(), [](const auto &a, const auto &b) {
    return (a.second == "classes") > (b.second == "classes");
  });
  DictSource source;
  std::string error, text;
  for (const auto &[file, section] : inputs) {
    if (!read_all(file, text, error)) return fail(error);
    if (!read_dict_source(text, file, section, source, error)) return fail(error);
  }
  if (!encode_models(source, error)) return fail(error);
  if (source.classes.empty()) return fail("no classes given");
  if (source.default_class.empty()) return fail("no default class given (a line: default NAME)");
  for (auto [file, into] :
       {std::pair{phrase_break, &source.phrase_break}, std::pair{stress, &source.stress}}) {
    if (file.empty()) continue;
    if (!read_all(file, text, error)) return fail(error);
    into->assign(text.begin(), text.end());
  }
  const std::vector<uint8_t> image = compile_dict(source);
  if (const size_t fault = NLPDIC_Check(image.data(), image.size()); fault != 0)
    return fail("the compiled image is not sound at offset " + std::to_string(fault) +
                " (a model file that is not a compiled model?)");
  if (!write_all(output, std::string(image.begin(), image.end()), error)) return fail(error);
  return 0;
}

const Command kCommand = {"compile-dict", "compile a dictionary image from its text form", kUsage,
                          run_compile_dict};
const Registration kRegistration(kCommand);

}  // namespace
}  // namespace utts
