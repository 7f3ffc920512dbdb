// line_command.h - what "utts segment" and "utts breaks" share: the options
// (-d DICT, -t, -o OUTPUT, one input, and one flag of the command's own),
// the dictionary opened, each input line turned into one output line by
// the command, and the output written.
#ifndef UTILS_UTTS_LINE_COMMAND_H
#define UTILS_UTTS_LINE_COMMAND_H

#include <string>

#include "nlp_dict.h"

namespace utts {

struct LineCommand {
  const char *name;                    // as in "see 'utts NAME --help'"
  const char *usage;                   // printed for -h
  const char *flag_short, *flag_long;  // the command's own flag, or null
  // Appends the output line of `text` (one input line, without its line
  // feed) to `out`, without a line feed; false when the line failed, with a
  // message already written, which makes the exit status 1.
  bool (*line)(NLPDIC *dict, const std::u16string &text, bool tokens, bool flag, std::string &out);
};

// Runs `command` on its arguments; returns the exit status.
int run_line_command(const LineCommand &command, int argc, char **argv);

}  // namespace utts

#endif  // UTILS_UTTS_LINE_COMMAND_H
