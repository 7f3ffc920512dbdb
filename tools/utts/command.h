// command.h - the subcommands of utts: each command file registers itself.
//
// A command file defines one `const utts::Command` at namespace scope and
// hands it to utts::Registration; main() finds commands by name and lists
// them, sorted, in its help. New stages of the front end add a file and a
// line in tools/CMakeLists.txt, nothing in main().
#ifndef UTILS_UTTS_COMMAND_H
#define UTILS_UTTS_COMMAND_H

namespace utts {

struct Command {
  const char *name;     // as typed after "utts"
  const char *summary;  // one line for the command list
  const char *usage;    // the whole help text of the command
  // Runs the command with the arguments after its name; returns the exit
  // status (0 success, 1 failure, 2 bad usage).
  int (*run)(int argc, char **argv);
};

// Adds `command` to the list main() searches. Used once per command file:
//   const utts::Registration kRegistration(kCommand);
class Registration {
 public:
  explicit Registration(const Command &command);
};

// The registered commands, sorted by name, ending with a null entry.
const Command *const *registered_commands();

}  // namespace utts

#endif  // UTILS_UTTS_COMMAND_H
