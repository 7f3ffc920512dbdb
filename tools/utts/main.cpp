// utts: the command-line front end of the speech engine. Each stage of the
// front end is a subcommand; "normalize" turns written text into words.
#include <cstdio>
#include <cstring>
#include <string>

#include "utts/normalize_command.h"

namespace {

const char kUsage[] =
    "Usage: utts COMMAND [OPTIONS]\n"
    "\n"
    "The text-to-speech front end, one stage per command:\n"
    "  normalize   turn numbers, dates, times, money, measures and abbreviations\n"
    "              in an SSML document into words (sub elements with an alias)\n"
    "  help        show this help, or 'utts help COMMAND' for a command's options\n"
    "\n"
    "Example:\n"
    "  echo '<speak>It costs $12.50 on 11/21/2026.</speak>' | utts normalize\n";

}  // namespace

int main(int argc, char **argv) {
  if (argc < 2) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  const std::string command = argv[1];
  if (command == "normalize") return utts::runNormalize(argc - 2, argv + 2);
  if (command == "help" || command == "-h" || command == "--help") {
    if (argc > 2 && std::strcmp(argv[2], "normalize") == 0)
      std::fputs(utts::normalizeUsage(), stdout);
    else
      std::fputs(kUsage, stdout);
    return 0;
  }
  std::fprintf(stderr, "utts: unknown command '%s' (see 'utts --help')\n", command.c_str());
  return 2;
}
