// dump_command.cpp - "utts dump": any image the front end knows back to its
// readable form, the kind recognised through the table of image kinds.
#include <cstdio>
#include <string>

#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/file_io.h"
#include "utts/image_kinds.h"

namespace utts {

namespace {

std::string usage_text() {
  std::string usage =
      "Usage: utts dump [--kind KIND] [IMAGE]\n"
      "\n"
      "Reads an image from IMAGE (standard input when absent or \"-\") and\n"
      "writes its readable form to standard output; compiling that form gives\n"
      "the same bytes again. The kind is recognised from the image (the first\n"
      "kind below that accepts it as a whole) unless --kind names it:\n";
  for (const ImageKind *k = kImageKinds; k->name != nullptr; ++k)
    usage += "  " + std::string(k->name) + std::string(10 - std::string(k->name).size(), ' ') +
             k->description + "\n";
  usage +=
      "\n"
      "Options:\n"
      "  -k, --kind KIND  the kind of image\n"
      "  -h, --help       show this help\n";
  return usage;
}

const std::string kUsage = usage_text();

int run_dump(int argc, char **argv) {
  std::string input = "-", kind, image, error;
  Arguments args("dump", argc, argv);
  while (args.next()) {
    if (args.is("-h", "--help")) {
      std::fputs(kUsage.c_str(), stdout);
      return 0;
    } else if (args.is("-k", "--kind")) {
      if (!args.value(kind, "a kind")) break;
      bool known = false;
      for (const ImageKind *k = kImageKinds; k->name != nullptr; ++k) known |= kind == k->name;
      if (!known) args.fail("unknown kind '" + kind + "' (see 'utts dump --help')");
    } else {
      args.input(input);
    }
  }
  if (!args.ok()) return fail(args.error(), 2);
  if (!read_all(input, image, error)) return fail(error);
  const ImageKind *k = find_image_kind(image, kind);
  const std::string name = input == "-" ? "standard input" : "'" + input + "'";
  if (k == nullptr)
    return fail(name + " is not " +
                (kind.empty() ? "an image of a known kind" : "a sound " + kind + " image"));
  std::fputs(k->dump(image).c_str(), stdout);
  return 0;
}

const Command kCommand = {"dump", "write a tree, model or other image in its readable form",
                          kUsage.c_str(), run_dump};
const Registration kRegistration(kCommand);

}  // namespace

}  // namespace utts
