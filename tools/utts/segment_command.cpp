// segment_command.cpp - "utts segment": text in, one line of words with
// their classes out per input line.
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "nlp_dict.h"
#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/dict_source.h"
#include "utts/dictionary_file.h"
#include "utts/file_io.h"

#ifndef UTTS_SAMPLE_DICT
#define UTTS_SAMPLE_DICT ""
#endif

namespace utts {
namespace {

const char kUsage[] =
    "Usage: utts segment [-d DICT] [-t] [-s] [-o OUTPUT] [INPUT]\n"
    "\n"
    "Segments each line of INPUT (UTF-8; standard input when absent or \"-\")\n"
    "into dictionary words and writes them as WORD/CLASS separated by spaces,\n"
    "one output line per input line. Words not in the dictionary are marked\n"
    "with a \"?\" after their class.\n"
    "\n"
    "Options:\n"
    "  -d, --dict FILE    the dictionary image (default: the sample Chinese\n"
    "                     dictionary the build made)\n"
    "  -t, --tokens       token mode: the line is split at spaces and each\n"
    "                     token only gets its class\n"
    "  -s, --scores       write each word's score and path score too\n"
    "  -o, --output FILE  write to FILE\n"
    "  -h, --help         show this help\n";

int run_segment(int argc, char **argv) {
  std::string dict_file = UTTS_SAMPLE_DICT, input = "-", output = "-";
  bool tokens = false, scores = false;
  Arguments args("segment", argc, argv);
  while (args.next()) {
    if (args.is("-h", "--help")) {
      std::fputs(kUsage, stdout);
      return 0;
    } else if (args.is("-d", "--dict")) {
      args.value(dict_file, "a file name");
    } else if (args.is("-o", "--output")) {
      args.value(output, "a file name");
    } else if (args.is("-t", "--tokens")) {
      tokens = true;
    } else if (args.is("-s", "--scores")) {
      scores = true;
    } else {
      args.input(input);
    }
  }
  if (!args.ok()) return fail(args.error(), 2);
  std::string text, error;
  if (dict_file.empty()) return fail("no dictionary given (-d)", 2);
  DictionaryFile dictionary;
  if (!dictionary.open(dict_file, error)) return fail(error);
  if (!read_all(input, text, error)) return fail(error);
  NLPDIC *dict = dictionary.get();
  std::string out;
  std::istringstream lines(text);
  std::string line;
  bool ok = true;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::u16string wide = utf8_to_utf16(line);
    NLPDIC_Node *head =
        wide.empty() ? nullptr : NLPDIC_DictBreak(dict, wide.c_str(), tokens ? 0 : 1);
    if (head == nullptr && !wide.empty() &&
        (!tokens || wide.find_first_not_of(u' ') != std::u16string::npos)) {
      ok = false;
      std::fprintf(stderr, "utts: a line could not be segmented (more than 256 tokens?)\n");
    }
    bool first = true;
    for (NLPDIC_Node *n = head == nullptr ? nullptr : head->Link; n != nullptr && n->ClassId != -1;
         n = n->Link) {
      if (!first) out += ' ';
      first = false;
      out += utf16_to_utf8(n->Word) + "/" +
             (n->ClassName != nullptr ? utf16_to_utf8(n->ClassName) : std::to_string(n->ClassId));
      if (n->Mark < 0) out += '?';
      if (scores) {
        char buf[64];
        std::snprintf(buf, sizeof buf, "(%.4g,%.4g)", n->Score, n->PathScore);
        out += buf;
      }
    }
    out += '\n';
    NLPDIC_DeleNode(head);
  }
  if (!write_all(output, out, error)) return fail(error);
  return ok ? 0 : 1;
}

const Command kCommand = {"segment", "segment text into dictionary words with classes", kUsage,
                          run_segment};
const Registration kRegistration(kCommand);

}  // namespace
}  // namespace utts
