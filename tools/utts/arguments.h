// arguments.h - a command's arguments, walked one at a time: options, the
// values they take and the operands, with the one-line errors every command
// gives for a missing value, an unknown option or an extra input.
//
//   Arguments args("segment", argc, argv);
//   while (args.next()) {
//     if (args.is("-o", "--output")) args.value(output, "a file name");
//     else if (args.is("-t", "--tokens")) tokens = true;
//     else args.input(input);
//   }
//   if (!args.ok()) return fail(args.error(), 2);
#ifndef UTILS_UTTS_ARGUMENTS_H
#define UTILS_UTTS_ARGUMENTS_H

#include <string>
#include <vector>

namespace utts {

class Arguments {
 public:
  // `command` names the command in "see 'utts COMMAND --help'".
  Arguments(const char *command, int argc, char **argv);

  // Moves to the next argument; false at the end, and after an error.
  bool next();

  // The current argument.
  const std::string &arg() const { return arg_; }

  // True when the current argument is `short_name` or `long_name` (either
  // may be null).
  bool is(const char *short_name, const char *long_name) const;

  // Takes the argument after the current option as its value. Without one,
  // or with an empty one, fails with "option 'ARG' needs WHAT".
  bool value(std::string &into, const char *what);

  // Takes the current argument as the one input file; fails on an option it
  // was not asked about ("unknown option ...") and on a second input.
  bool input(std::string &into);

  // The same for commands that take several operands: each is appended.
  bool operand(std::vector<std::string> &into);

  // Fails with `message` (a command's own check of what it was given).
  bool fail(const std::string &message);

  bool ok() const { return error_.empty(); }
  const std::string &error() const { return error_; }

 private:
  bool unknown_option();

  std::string command_;
  int argc_;
  char **argv_;
  int at_ = -1;
  std::string arg_, error_, first_input_;
  bool have_input_ = false;
};

}  // namespace utts

#endif  // UTILS_UTTS_ARGUMENTS_H
