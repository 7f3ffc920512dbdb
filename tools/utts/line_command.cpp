// line_command.cpp - the option handling, reading and writing of the
// commands that turn text into words line by line.
#include "utts/line_command.h"

#include <cstdio>
#include <sstream>

#include "utts/arguments.h"
#include "utts/dict_source.h"
#include "utts/dictionary_file.h"
#include "utts/file_io.h"

#ifndef UTTS_SAMPLE_DICT
#define UTTS_SAMPLE_DICT ""
#endif

namespace utts {

int run_line_command(const LineCommand &command, int argc, char **argv) {
  std::string dict_file = UTTS_SAMPLE_DICT, input = "-", output = "-";
  bool tokens = false, flag = false;
  Arguments args(command.name, argc, argv);
  while (args.next()) {
    if (args.is("-h", "--help")) {
      std::fputs(command.usage, stdout);
      return 0;
    } else if (args.is("-d", "--dict")) {
      args.value(dict_file, "a file name");
    } else if (args.is("-o", "--output")) {
      args.value(output, "a file name");
    } else if (args.is("-t", "--tokens")) {
      tokens = true;
    } else if (args.is(command.flag_short, command.flag_long)) {
      flag = true;
    } else {
      args.input(input);
    }
  }
  if (!args.ok()) return fail(args.error(), 2);
  if (dict_file.empty()) return fail("no dictionary given (-d)", 2);
  std::string text, error;
  DictionaryFile dictionary;
  if (!dictionary.open(dict_file, error)) return fail(error);
  if (!read_all(input, text, error)) return fail(error);
  std::string out, line;
  std::istringstream lines(text);
  bool ok = true;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    ok = command.line(dictionary.get(), utf8_to_utf16(line), tokens, flag, out) && ok;
    out += '\n';
  }
  if (!write_all(output, out, error)) return fail(error);
  return ok ? 0 : 1;
}

}  // namespace utts
