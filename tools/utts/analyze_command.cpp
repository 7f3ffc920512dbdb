// analyze_command.cpp - "utts analyze": the whole front end, marked-up or
// plain text in, context labels out, each stage shown on request.
#include <cstdio>
#include <string>
#include <vector>

#include "ssml_io.h"
#include "utt_features.h"
#include "utterance.h"
#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/file_io.h"
#include "utts/front_end.h"
#include "utts/label_fields.h"
#include "utts/label_writer.h"
#include "utts/tree_view.h"

#ifndef UTTS_SAMPLE_DICT
#define UTTS_SAMPLE_DICT ""
#endif

namespace utts {

extern const char kContextFields[];
extern const std::size_t kContextFieldsSize;

namespace {

const char kUsage[] =
    "Usage: utts analyze [-l LANG] [-d DICT] [-f FIELDS] [-r RULES]... [--stages]\n"
    "                    [-o OUTPUT] [INPUT]\n"
    "\n"
    "Runs the front end on INPUT (SSML or plain UTF-8 text; standard input when\n"
    "absent or \"-\") and writes one context label per phone:\n"
    "  normalisation  the rule sets and readers of the language (utts normalize)\n"
    "  sentences      s elements around the sentences (AddTag)\n"
    "  words          word elements from the dictionary's segmentation, with\n"
    "                 their classes; letters in a Chinese text are English words\n"
    "  pronunciation  syllables and phones of the Mandarin words\n"
    "  breaks         prosodic-word breaks from the class pairs, phrase breaks\n"
    "                 from the dictionary's phrase-break model\n"
    "  stress         focus phrases and sentence stress from the stress model\n"
    "  labels         the prosodic hierarchy phrase by phrase, one label a phone\n"
    "\n"
    "Options:\n"
    "  -l, --lang LANG    the language (default: the document's xml:lang; for\n"
    "                     plain text zh-CN when it holds Han characters, else en-US)\n"
    "  -d, --dict FILE    the dictionary image (default: the sample Chinese\n"
    "                     dictionary the build made)\n"
    "  -f, --fields FILE  the label-field table (default: data/context.fields)\n"
    "  -r, --rules FILE   rule sets instead of the language's bundled ones\n"
    "  -s, --stages       show the tree after each stage before the labels\n"
    "  -o, --output FILE  write to FILE\n"
    "  -h, --help         show this help\n"
    "\n"
    "Words of a language without a pronunciation source (English, for now) get\n"
    "no phones: in a Chinese text they stand as placeholder words in the labels.\n";

struct Options {
  std::string input = "-", output = "-", lang, dict = UTTS_SAMPLE_DICT, fields;
  std::vector<std::string> rule_files;
  bool stages = false, help = false;
};

bool parse_options(int argc, char **argv, Options &options, std::string &error) {
  Arguments args("analyze", argc, argv);
  while (args.next()) {
    std::string rules;
    if (args.is("-h", "--help")) {
      options.help = true;
    } else if (args.is("-s", "--stages")) {
      options.stages = true;
    } else if (args.is("-l", "--lang")) {
      args.value(options.lang, "a language tag");
    } else if (args.is("-d", "--dict")) {
      args.value(options.dict, "a file name");
    } else if (args.is("-f", "--fields")) {
      args.value(options.fields, "a file name");
    } else if (args.is("-o", "--output")) {
      args.value(options.output, "a file name");
    } else if (args.is("-r", "--rules")) {
      if (args.value(rules, "a file name")) options.rule_files.push_back(rules);
    } else {
      args.input(options.input);
    }
  }
  error = args.error();
  return args.ok();
}

class Stages {
 public:
  Stages(bool show, std::FILE *out) : show_(show), out_(out) {}
  void show(const char *name, const std::string &note, item *root) {
    if (!show_) return;
    std::fprintf(out_, "== %s%s%s\n%s\n", name, note.empty() ? "" : ": ", note.c_str(),
                 tree_view(root).c_str());
  }
  void heading(const char *name) {
    if (show_) std::fprintf(out_, "== %s\n", name);
  }

 private:
  bool show_;
  std::FILE *out_;
};

int analyze(const Options &options, utterance *u, std::FILE *out) {
  std::string error, input, table;
  if (options.fields.empty()) {
    table.assign(kContextFields, kContextFieldsSize);
  } else if (!read_all(options.fields, table, error)) {
    return fail(error);
  }
  LabelFields fields;
  if (!fields.parse(table, error))
    return fail((options.fields.empty() ? "bundled fields" : options.fields) + ": " + error);
  FrontEnd front_end;
  if (!front_end.open_dictionary(options.dict, error)) return fail(error);
  AnalysisOptions analysis;
  analysis.lang = options.lang;
  analysis.rule_names = options.rule_files;
  analysis.rule_texts.resize(options.rule_files.size());
  for (size_t k = 0; k < options.rule_files.size(); ++k)
    if (!read_all(options.rule_files[k], analysis.rule_texts[k], error)) return fail(error);
  Stages stages(options.stages, out);
  analysis.observer = [&stages](const char *stage, const std::string &note, item *root) {
    stages.show(stage, note, root);
  };

  if (!read_all(options.input, input, error)) return fail(error);
  const std::string input_name =
      options.input == "-" ? "standard input" : "'" + options.input + "'";
  Analysis result;
  if (!front_end.analyze(u, input, input_name, analysis, result, error)) return fail(error);
  if (result.pronounced.pronounced == 0 ||
      relation_head(utt_relation(u, "focus_phrase")) == nullptr) {
    std::fprintf(stderr, "utts: note: %s has no word with a pronunciation; no labels\n",
                 input_name.c_str());
    return 0;
  }
  stages.heading("labels");
  return write_phrase_labels(u, result.lang, fields, out, error) ? 0 : fail(error);
}

int run_analyze(int argc, char **argv) {
  Options options;
  std::string error;
  if (!parse_options(argc, argv, options, error)) return fail(error, 2);
  if (options.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  std::FILE *out = options.output == "-" ? stdout : std::fopen(options.output.c_str(), "wb");
  if (out == nullptr) return fail("cannot write '" + options.output + "'");
  utterance *u = new_utterance();
  if (u == nullptr) return fail("out of memory");
  int status = analyze(options, u, out);
  delete_utterance(u);
  if (out != stdout && std::fclose(out) != 0 && status == 0)
    status = fail("cannot write '" + options.output + "'");
  return status;
}

const Command kCommand = {"analyze",
                          "the whole front end: text in, context labels out (--stages shows each)",
                          kUsage, run_analyze};
const Registration kRegistration(kCommand);

}  // namespace
}  // namespace utts
