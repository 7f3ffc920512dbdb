// labels_command.cpp - "utts labels": SSML whose word elements carry
// pronunciation strings in, context labels out, one line per phone.
#include <cstdio>
#include <string>

#include "bsr_unicode.h"
#include "context_label.h"
#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"
#include "utterance.h"
#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/file_io.h"
#include "utts/label_fields.h"
#include "utts/label_writer.h"

namespace utts {

extern const char kContextFields[];
extern const std::size_t kContextFieldsSize;

namespace {

const char kUsage[] =
    "Usage: utts labels [-f FIELDS] [-a ATTR] [-l LANG] [-o OUTPUT] [INPUT]\n"
    "\n"
    "Reads the SSML document INPUT (standard input when absent or \"-\"), whose\n"
    "word elements carry pronunciation strings in the attribute ATTR (default\n"
    "\"ph\"): IPA symbols, syllables separated by \".\", a tone digit at the end\n"
    "of a syllable, as in <word ph=\"ni3.hau3\">. Syllable elements with a\n"
    "\"name\" attribute are split into phones too. A word's break=\"1\" (or more)\n"
    "ends a prosodic word, a delay attribute ends a phrase.\n"
    "\n"
    "Builds the prosodic hierarchy phrase by phrase and writes to OUTPUT\n"
    "(standard output when absent or \"-\") one context label per phone, the\n"
    "pauses that frame each phrase included.\n"
    "\n"
    "Options:\n"
    "  -f, --fields FILE  the label-field table (default: the bundled\n"
    "                     data/context.fields); one field a line: feature path,\n"
    "                     prefix, suffix, separated by blanks, \"\" for an empty\n"
    "                     column, # starting a comment line\n"
    "  -a, --attr ATTR    the attribute that holds pronunciations (default ph)\n"
    "  -l, --lang LANG    the language to build (default: the document's\n"
    "                     xml:lang). Words of other languages are replaced by a\n"
    "                     placeholder when LANG is the document's language, and\n"
    "                     left out otherwise\n"
    "  -o, --output FILE  write the labels to FILE\n"
    "  -h, --help         show this help\n";

struct Options {
  std::string fields_file, input = "-", output = "-", attr = "ph", lang;
  bool help = false;
};

bool parse_options(int argc, char **argv, Options &options, std::string &error) {
  Arguments args("labels", argc, argv);
  while (args.next()) {
    if (args.is("-h", "--help")) {
      options.help = true;
    } else if (args.is("-f", "--fields")) {
      args.value(options.fields_file, "a file name");
    } else if (args.is("-a", "--attr")) {
      args.value(options.attr, "an attribute name");
    } else if (args.is("-l", "--lang")) {
      args.value(options.lang, "a language tag");
    } else if (args.is("-o", "--output")) {
      args.value(options.output, "a file name");
    } else {
      args.input(options.input);
    }
  }
  error = args.error();
  return args.ok();
}

std::u16string widen(const std::string &s) {
  std::u16string out(s.size() + 1, u'\0');
  bsr_UTF8ToUTF16(s.c_str(), static_cast<uint32_t>(s.size()), &out[0],
                  static_cast<uint32_t>(out.size()));
  return out.c_str();
}

// Gives every word its syllables and phones; false with a message when a
// pronunciation is refused.
bool pronounce(item *root, const std::string &attr, std::string &error) {
  int number = 0;
  const bsr_wchar *word_tag = WordTagName();
  for (item *w = utt_walk_next_tag(root, root, 1, word_tag); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, word_tag)) {
    ++number;
    const bsr_wchar *pron = item_feat_wstring(w, attr.c_str());
    if (pron != nullptr && CreatePhonemeWord(w, pron) < 0) {
      error = "word " + std::to_string(number) +
              ": pronunciation refused (a syllable holds at most " +
              std::to_string(UTILS_PRON_SYLLABLE_MAX) + " characters, a phone at most " +
              std::to_string(UTILS_PRON_PHONE_MAX) + ")";
      return false;
    }
  }
  if (ParseSylName(root) < 0) {
    error = "a syllable name holds a phone of more than " +
            std::to_string(UTILS_SYLNAME_PHONE_MAX) + " characters";
    return false;
  }
  return true;
}

int run(const Options &options) {
  std::string error, table, input;
  if (options.fields_file.empty()) {
    table.assign(kContextFields, kContextFieldsSize);
  } else if (!read_all(options.fields_file, table, error)) {
    return fail(error);
  }
  LabelFields fields;
  if (!fields.parse(table, error)) {
    return fail((options.fields_file.empty() ? "bundled fields" : options.fields_file) + ": " +
                error);
  }
  if (!read_all(options.input, input, error)) return fail(error);
  const std::string input_name =
      options.input == "-" ? "standard input" : "'" + options.input + "'";

  utterance *u = new_utterance();
  if (u == nullptr) return fail("out of memory");
  struct Release {
    utterance *u;
    ~Release() { delete_utterance(u); }
  } release{u};
  if (utt_load_ssml(u, input.c_str()) != 1 || relation_head(utt_relation(u, "ssml")) == nullptr) {
    return fail(input_name + " is not an SSML document");
  }
  item *root = relation_head(utt_relation(u, "ssml"));
  if (!pronounce(root, options.attr, error)) return fail(input_name + ": " + error);

  std::u16string lang = widen(options.lang);
  if (options.lang.empty()) {
    const bsr_wchar *own = item_feat_wstring(root, "xml:lang");
    if (own == nullptr) return fail(input_name + " has no xml:lang: give the language with -l");
    lang = own;
  }
  feat_set(u->features, "focus", item_val(root));
  if (FocusPhraseCreate(u) != 1) {
    return fail(input_name + ": no word carries a pronunciation in '" + options.attr + "'");
  }

  FILE *out = options.output == "-" ? stdout : std::fopen(options.output.c_str(), "wb");
  if (out == nullptr) return fail("cannot write '" + options.output + "'");
  const bool written = write_phrase_labels(u, lang, fields, out, error);
  if (out != stdout && std::fclose(out) != 0 && written) {
    return fail("cannot write '" + options.output + "'");
  }
  return written ? 0 : fail(error);
}

int run_labels(int argc, char **argv) {
  Options options;
  std::string error;
  if (!parse_options(argc, argv, options, error)) return fail(error, 2);
  if (options.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  return run(options);
}

const Command kCommand = {"labels", "build the prosodic hierarchy and write context labels", kUsage,
                          run_labels};
const Registration kRegistration(kCommand);

}  // namespace

}  // namespace utts
