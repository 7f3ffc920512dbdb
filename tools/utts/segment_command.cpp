// segment_command.cpp - "utts segment": text in, one line of words with
// their classes out per input line.
#include <cstdio>
#include <string>

#include "nlp_dict.h"
#include "utts/command.h"
#include "utts/dict_source.h"
#include "utts/line_command.h"

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

// The words of one line with their classes (and scores).
bool line_words(NLPDIC *dict, const std::u16string &text, bool tokens, bool scores,
                std::string &out) {
  NLPDIC_Node *head = text.empty() ? nullptr : NLPDIC_DictBreak(dict, text.c_str(), tokens ? 0 : 1);
  bool ok = true;
  if (head == nullptr && !text.empty() &&
      (!tokens || text.find_first_not_of(u' ') != std::u16string::npos)) {
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
  NLPDIC_DeleNode(head);
  return ok;
}

const LineCommand kLines = {"segment", kUsage, "-s", "--scores", line_words};

int run_segment(int argc, char **argv) { return run_line_command(kLines, argc, argv); }

const Command kCommand = {"segment", "segment text into dictionary words with classes", kUsage,
                          run_segment};
const Registration kRegistration(kCommand);

}  // namespace
}  // namespace utts
