// arguments.cpp - walking a command's arguments.
#include "utts/arguments.h"

namespace utts {

Arguments::Arguments(const char *command, int argc, char **argv)
    : command_(command), argc_(argc), argv_(argv) {}

bool Arguments::next() {
  if (!ok() || at_ + 1 >= argc_) return false;
  arg_ = argv_[++at_];
  return true;
}

bool Arguments::is(const char *short_name, const char *long_name) const {
  return (short_name != nullptr && arg_ == short_name) ||
         (long_name != nullptr && arg_ == long_name);
}

bool Arguments::value(std::string &into, const char *what) {
  if (at_ + 1 >= argc_ || argv_[at_ + 1][0] == '\0')
    return fail("option '" + arg_ + "' needs " + what);
  into = argv_[++at_];
  return true;
}

bool Arguments::unknown_option() {
  // "-" alone is standard input, not an option.
  if (arg_.size() > 1 && arg_[0] == '-')
    return !fail("unknown option '" + arg_ + "' (see 'utts " + command_ + " --help')");
  return false;
}

bool Arguments::input(std::string &into) {
  if (unknown_option()) return false;
  if (have_input_)
    return fail("more than one input file given ('" + first_input_ + "', '" + arg_ + "')");
  into = first_input_ = arg_;
  have_input_ = true;
  return true;
}

bool Arguments::operand(std::vector<std::string> &into) {
  if (unknown_option()) return false;
  into.push_back(arg_);
  return true;
}

bool Arguments::fail(const std::string &message) {
  if (ok()) error_ = message;
  return false;
}

}  // namespace utts
