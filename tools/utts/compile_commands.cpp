// compile_commands.cpp - "utts compile-tree" and "utts compile-model": the
// readable form of decision trees or of a model section in, its image out.
#include <cstdio>
#include <cstring>
#include <string>

#include "dtree.h"
#include "hts_model.h"
#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/file_io.h"
#include "utts/model_text.h"
#include "utts/tree_file.h"

namespace utts {

namespace {

const char kTreeUsage[] =
    "Usage: utts compile-tree [-o OUTPUT] [INPUT]\n"
    "\n"
    "Reads decision trees in their readable form from INPUT (standard input\n"
    "when absent or \"-\") and writes the tree image to OUTPUT (standard\n"
    "output when absent or \"-\"). The form is described in\n"
    "docs/trees-and-models.md: optional label fields, named questions with\n"
    "their wildcard patterns, and trees as lists of nodes. The image's first\n"
    "word holds the number of trees. Patterns that ask about none of the\n"
    "fields given are reported on standard error.\n"
    "\n"
    "Options:\n"
    "  -o, --output FILE  write the image to FILE\n"
    "  -h, --help         show this help\n";

const char kModelUsage[] =
    "Usage: utts compile-model [-o OUTPUT] [INPUT]\n"
    "\n"
    "Reads a model section in its readable form from INPUT (standard input\n"
    "when absent or \"-\") and writes the section image, as HTSModel_Create\n"
    "reads it, to OUTPUT (standard output when absent or \"-\"): label\n"
    "fields, delta windows, the stream value, the trees with their values and\n"
    "questions, and the statistics rows with the trailing block. The form is\n"
    "described in docs/trees-and-models.md. Patterns that ask about none of\n"
    "the fields are reported on standard error.\n"
    "\n"
    "Options:\n"
    "  -o, --output FILE  write the image to FILE\n"
    "  -h, --help         show this help\n";

// Reads the arguments common to both commands: -o and one input. Returns
// -1 to go on, else the exit status.
int read_arguments(int argc, char **argv, const char *usage, const char *command,
                   std::string &input, std::string &output) {
  Arguments args(command, argc, argv);
  while (args.next()) {
    if (args.is("-h", "--help")) {
      std::fputs(usage, stdout);
      return 0;
    } else if (args.is("-o", "--output")) {
      args.value(output, "a file name");
    } else {
      args.input(input);
    }
  }
  return args.ok() ? -1 : fail(args.error(), 2);
}

std::string name_of(const std::string &input) { return input == "-" ? "standard input" : input; }

int run_compile_tree(int argc, char **argv) {
  std::string input = "-", output = "-", text, error, image;
  if (const int status = read_arguments(argc, argv, kTreeUsage, "compile-tree", input, output);
      status >= 0)
    return status;
  if (!read_all(input, text, error)) return fail(error);
  TreeSet set;
  if (!parse_tree_file(text, set, error) || !encode_tree_file(set, image, error))
    return fail(name_of(input) + ": " + error);
  if (!set.fields.empty()) {
    const std::string warnings = unasked_patterns(set);
    if (!warnings.empty()) std::fprintf(stderr, "%s", warnings.c_str());
  }
  // The compiler and the checker must agree; a difference is a bug here.
  if (const size_t fault =
          DTree_Check(image.data(), image.size(), static_cast<int>(set.trees.size()));
      fault != 0)
    return fail("internal error: the image fails its check at offset " + std::to_string(fault));
  return write_all(output, image, error) ? 0 : fail(error);
}

int run_compile_model(int argc, char **argv) {
  std::string input = "-", output = "-", text, error, image;
  if (const int status = read_arguments(argc, argv, kModelUsage, "compile-model", input, output);
      status >= 0)
    return status;
  if (!read_all(input, text, error)) return fail(error);
  ModelText model;
  if (!parse_model(text, model, error) || !encode_model(model, image, error))
    return fail(name_of(input) + ": " + error);
  const std::string warnings = unasked_patterns(model.trees);
  if (!warnings.empty()) std::fprintf(stderr, "%s", warnings.c_str());
  if (const size_t fault = HTSModel_Check(image.data(), image.size()); fault != 0)
    return fail("internal error: the image fails its check at offset " + std::to_string(fault));
  return write_all(output, image, error) ? 0 : fail(error);
}

const Command kTreeCommand = {"compile-tree", "compile decision trees from their readable form",
                              kTreeUsage, run_compile_tree};
const Registration kTreeRegistration(kTreeCommand);
const Command kModelCommand = {"compile-model", "compile a model section from its readable form",
                               kModelUsage, run_compile_model};
const Registration kModelRegistration(kModelCommand);

}  // namespace

}  // namespace utts
