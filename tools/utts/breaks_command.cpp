// breaks_command.cpp - "utts breaks": text in, words with their classes and
// the prosodic-word and phrase breaks between them out.
#include <string>

#include "nlp_dict.h"
#include "phrase_break.h"
#include "utt_features.h"
#include "utterance.h"
#include "utts/command.h"
#include "utts/dict_source.h"
#include "utts/line_command.h"

namespace utts {
namespace {

const char kUsage[] =
    "Usage: utts breaks [-d DICT] [-t] [-o OUTPUT] [INPUT]\n"
    "\n"
    "Segments each line of INPUT (UTF-8; standard input when absent or \"-\")\n"
    "like \"utts segment\", then marks prosodic-word breaks (from the\n"
    "association of the class pairs) and phrase breaks (from the\n"
    "dictionary's phrase-break model). Writes WORD/CLASS separated by\n"
    "spaces, with \xE2\x88\xA3 (U+2223) after a word that ends a prosodic word and\n"
    "\xE2\x88\x95 (U+2215) after one that ends a phrase; one line per input line.\n"
    "\n"
    "Options:\n"
    "  -d, --dict FILE    the dictionary image (default: the sample Chinese\n"
    "                     dictionary the build made)\n"
    "  -t, --tokens       token mode: the line is split at spaces\n"
    "  -o, --output FILE  write to FILE\n"
    "  -h, --help         show this help\n";

// The words of one line with their breaks.
bool line_breaks(NLPDIC *dict, const std::u16string &text, bool tokens, bool, std::string &line) {
  NLPDIC_Node *head = NLPDIC_DictBreak(dict, text.c_str(), tokens ? 0 : 1);
  if (head == nullptr) return true;
  utterance *u = new_utterance();
  relation *words = utt_relation_create(u, "_Word_");
  for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link) {
    item *w = relation_append(words, nullptr);
    item_set_wstring(w, "name", n->Word);
    item_set_int(w, "pos", n->ClassId);
    item_set_int(w, "name_Len", n->Length);
    if (n->ClassName != nullptr) item_set_wstring(w, "class", n->ClassName);
  }
  NLPDIC_DeleNode(head);
  PWordBreak(dict, u);
  PhraseBreak_Process(NLPDIC_GetPhraseBreakPointer(dict), u);
  std::string out;
  for (item *w = relation_head(words); w != nullptr; w = item_next(w)) {
    if (!out.empty()) out += ' ';
    const bsr_wchar *cls = item_feat_wstring(w, "class");
    out += utf16_to_utf8(item_feat_wstring(w, "name")) + "/" +
           (cls != nullptr ? utf16_to_utf8(cls) : std::to_string(item_feat_int(w, "pos")));
    if (item_next(w) == nullptr) break;
    const int32_t b = item_feat_int(w, "break");
    if (b >= 3)
      out += " " + utf16_to_utf8(g_pmPhraseBreak);
    else if (b >= 1)
      out += " " + utf16_to_utf8(g_pmWordBreak);
  }
  delete_utterance(u);
  line += out;
  return true;
}

const LineCommand kLines = {"breaks", kUsage, nullptr, nullptr, line_breaks};

int run_breaks(int argc, char **argv) { return run_line_command(kLines, argc, argv); }

const Command kCommand = {"breaks", "segment text and mark prosodic-word and phrase breaks", kUsage,
                          run_breaks};
const Registration kRegistration(kCommand);

}  // namespace
}  // namespace utts
