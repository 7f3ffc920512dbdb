// generate_command.cpp - "utts generate": context labels and a voice's model
// sections in, acoustic parameter tracks out (text or raw float32), with an
// optional plot.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/file_io.h"
#include "utts/label_fields.h"
#include "utts/track_plot.h"
#include "utts/voice.h"

namespace utts {

extern const char kContextFields[];
extern const std::size_t kContextFieldsSize;

namespace {

const char kUsage[] =
    "Usage: utts generate [OPTIONS] MODEL [LABELS]\n"
    "\n"
    "Reads the voice in MODEL (model sections, one or several back to back,\n"
    "as 'utts compile-model' writes them; -m adds more files) and the context\n"
    "labels in LABELS (standard input when absent or \"-\"), one per phone as\n"
    "'utts labels' writes them. Each label goes through the trees: the\n"
    "duration section gives its states' lengths in 5 ms frames, each stream\n"
    "section a row of means and inverse variances per state. MLPG then\n"
    "turns each stream into smooth tracks, written one frame per line: a\n"
    "'#' line naming the columns, then per frame the static values of every\n"
    "stream in section order. Log F0 is written as -1e+10 where a frame is\n"
    "unvoiced. How the sections encode all this: docs/generation.md.\n"
    "\n"
    "Options:\n"
    "  -m, --model FILE      more model sections (may be repeated)\n"
    "      --fields FILE     the label fields the labels were written with\n"
    "                        (default: the bundled table of 'utts labels'); the\n"
    "                        trees' fields are found in it by feature path\n"
    "      --model-fields    read the labels with the first section's own fields\n"
    "  -f, --format FORMAT   text (default) or raw: little-endian float32, frame\n"
    "                        by frame, no header\n"
    "  -o, --output FILE     write the tracks to FILE\n"
    "      --plot FILE.png   also draw the tracks into a PNG with gnuplot (F0 in\n"
    "                        Hz with gaps where unvoiced, the other streams\n"
    "                        below, phone boundaries marked)\n"
    "  -h, --help            show this help\n";

struct Options {
  std::vector<std::string> models;
  std::string labels_file = "-", fields_file, output = "-", format = "text", plot;
  bool model_fields = false, help = false;
};

bool parse_options(int argc, char **argv, Options &o, std::string &error) {
  Arguments args("generate", argc, argv);
  std::vector<std::string> operands, models;
  while (args.next()) {
    std::string m;
    if (args.is("-h", "--help")) {
      o.help = true;
    } else if (args.is("-m", "--model")) {
      if (args.value(m, "a value")) models.push_back(m);
    } else if (args.is(nullptr, "--fields")) {
      args.value(o.fields_file, "a value");
    } else if (args.is(nullptr, "--model-fields")) {
      o.model_fields = true;
    } else if (args.is("-f", "--format")) {
      if (args.value(o.format, "a value") && o.format != "text" && o.format != "raw")
        args.fail("the format is text or raw, not '" + o.format + "'");
    } else if (args.is("-o", "--output")) {
      args.value(o.output, "a value");
    } else if (args.is(nullptr, "--plot")) {
      args.value(o.plot, "a value");
    } else if (args.operand(operands) && operands.size() > 2) {
      args.fail("more than a model and a label file given");
    }
  }
  error = args.error();
  if (!args.ok() || o.help) return args.ok();
  if (operands.empty()) {
    error = "no model given (see 'utts generate --help')";
    return false;
  }
  o.models.push_back(operands[0]);
  o.models.insert(o.models.end(), models.begin(), models.end());
  if (operands.size() > 1) o.labels_file = operands[1];
  if (o.model_fields && !o.fields_file.empty()) {
    error = "--fields and --model-fields exclude each other";
    return false;
  }
  return true;
}

std::vector<std::string> label_lines(const std::string &text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

std::string tracks_text(const Tracks &t) {
  std::string out = "#";
  for (const std::string &c : t.columns) out += " " + c;
  out += '\n';
  char buf[32];
  for (int f = 0; f < t.frames; ++f) {
    for (size_t c = 0; c < t.columns.size(); ++c) {
      std::snprintf(buf, sizeof buf, c == 0 ? "%.6g" : " %.6g",
                    static_cast<double>(t.at(f, static_cast<int>(c))));
      out += buf;
    }
    out += '\n';
  }
  return out;
}

std::string tracks_raw(const Tracks &t) {
  std::string out(t.values.size() * sizeof(float), '\0');
  // Little-endian whatever the host: byte by byte.
  for (size_t i = 0; i < t.values.size(); ++i) {
    uint32_t bits;
    std::memcpy(&bits, &t.values[i], sizeof bits);
    for (int b = 0; b < 4; ++b) out[i * 4 + b] = static_cast<char>((bits >> (8 * b)) & 0xff);
  }
  return out;
}

int run(const Options &o) {
  std::string error;
  // Before any work: a plot needs gnuplot.
  std::string gnuplot;
  if (!o.plot.empty()) {
    gnuplot = find_gnuplot();
    if (gnuplot.empty())
      return fail(
          "--plot needs gnuplot, which is not installed or not on PATH (Debian: "
          "apt-get install gnuplot-nox)");
  }
  Voice voice;
  for (const std::string &file : o.models) {
    std::string bytes;
    if (!read_all(file, bytes, error)) return fail(error);
    if (!voice.add_image(file, bytes, error)) return fail(error);
  }
  LabelTable table;
  if (o.model_fields) {
    table = voice.first_section_fields();
  } else {
    LabelFields fields;
    std::string text;
    if (o.fields_file.empty()) {
      text.assign(kContextFields, kContextFieldsSize);
    } else if (!read_all(o.fields_file, text, error)) {
      return fail(error);
    }
    if (!fields.parse(text, error))
      return fail((o.fields_file.empty() ? "the bundled label fields" : o.fields_file) + ": " +
                  error);
    for (int j = 0; j < fields.count(); ++j) {
      table.names.push_back(fields.names()[j]);
      table.prefixes.push_back(fields.prefixes()[j]);
      table.suffixes.push_back(fields.suffixes()[j]);
    }
  }
  if (!voice.finish(table, error)) return fail(error);

  std::string text;
  if (!read_all(o.labels_file, text, error)) return fail(error);
  const std::vector<std::string> labels = label_lines(text);
  const std::string labels_name = o.labels_file == "-" ? "standard input" : o.labels_file;
  if (labels.empty()) return fail(labels_name + ": no labels in it");
  Tracks tracks;
  if (!voice.generate(labels, tracks, error)) return fail(labels_name + ": " + error);
  if (!write_all(o.output, o.format == "raw" ? tracks_raw(tracks) : tracks_text(tracks), error))
    return fail(error);
  if (!o.plot.empty() && !plot_tracks(tracks, gnuplot, o.plot, error)) return fail(error);
  return 0;
}

int run_generate(int argc, char **argv) {
  Options o;
  std::string error;
  if (!parse_options(argc, argv, o, error)) return fail(error, 2);
  if (o.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  return run(o);
}

const Command kCommand = {"generate", "generate parameter tracks from context labels", kUsage,
                          run_generate};
const Registration kRegistration(kCommand);

}  // namespace

}  // namespace utts
