// lookup_command.cpp - "utts lookup": a tree file or a model section plus
// context labels in, the leaf of each label out.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bsr_unicode.h"
#include "dtree.h"
#include "hts_model.h"
#include "utterance.h"
#include "utts/arguments.h"
#include "utts/command.h"
#include "utts/file_io.h"
#include "utts/image_kinds.h"
#include "utts/label_fields.h"
#include "utts/tree_file.h"
#include "utts/voice.h"

namespace utts {

namespace {

const char kUsage[] =
    "Usage: utts lookup [-f FIELDS] [-t TREE] IMAGE [LABELS]\n"
    "\n"
    "Reads the tree file or model section IMAGE and the context labels in\n"
    "LABELS (standard input when absent or \"-\"), one a line, and writes for\n"
    "each label the leaf that each tree gives it, separated by blanks.\n"
    "\n"
    "A label is read back into its field values with the label fields: a\n"
    "model's own, or for a tree file the table FIELDS, in the format of\n"
    "'utts labels -f' (path, prefix, suffix). Each field's value runs from\n"
    "its prefix to its suffix (or, when the suffix is empty, to the next\n"
    "field's prefix), so labels written with the same table read back.\n"
    "\n"
    "Options:\n"
    "  -f, --fields FILE  the label fields of a tree file\n"
    "  -t, --tree N       only tree N (from 0)\n"
    "  -h, --help         show this help\n";

struct Options {
  std::string fields_file, image_file, labels_file = "-";
  int tree = -1;
  bool help = false;
};

bool parse_options(int argc, char **argv, Options &o, std::string &error) {
  Arguments args("lookup", argc, argv);
  std::vector<std::string> operands;
  while (args.next()) {
    std::string n;
    if (args.is("-h", "--help")) {
      o.help = true;
    } else if (args.is("-f", "--fields")) {
      args.value(o.fields_file, "a value");
    } else if (args.is("-t", "--tree")) {
      if (!args.value(n, "a value")) continue;
      if (n.find_first_not_of("0123456789") != std::string::npos || n.size() > 2)
        args.fail("the tree is a number from 0");
      else
        o.tree = std::stoi(n);
    } else if (args.operand(operands) && operands.size() > 2) {
      args.fail("more than an image and a label file given");
    }
  }
  error = args.error();
  if (!args.ok()) return false;
  if (!operands.empty()) o.image_file = operands[0];
  if (operands.size() > 1) o.labels_file = operands[1];
  if (!o.help && o.image_file.empty()) {
    error = "no image given (see 'utts lookup --help')";
    return false;
  }
  return true;
}

// The field tables the trees read: values come from item features named
// f0, f1, ... that the labels fill in.
struct Fields {
  std::vector<std::string> keys;
  std::vector<const char *> names, prefixes, suffixes;
  int count() const { return static_cast<int>(names.size()); }
};

void add_field(Fields &f, const char *name, const char *prefix, const char *suffix) {
  const bool zero = name != nullptr && name[0] == '0' && name[1] == '\0';
  f.keys.push_back(zero ? "0" : "f" + std::to_string(f.keys.size()));
  f.prefixes.push_back(prefix != nullptr ? prefix : "");
  f.suffixes.push_back(suffix != nullptr ? suffix : "");
}

void finish_fields(Fields &f) {
  for (const std::string &k : f.keys) f.names.push_back(k.c_str());
}

// The label table that splits labels into the fields' values.
LabelTable label_table(const Fields &f) {
  LabelTable table;
  table.names.assign(f.keys.begin(), f.keys.end());
  table.prefixes.assign(f.prefixes.begin(), f.prefixes.end());
  table.suffixes.assign(f.suffixes.begin(), f.suffixes.end());
  return table;
}

int run(const Options &o) {
  std::string image, labels, error, table;
  if (!read_all(o.image_file, image, error) || !read_all(o.labels_file, labels, error))
    return fail(error);
  // The image must outlive the trees; the copy below never moves.
  const ImageKind *kind = find_image_kind(image, "");
  if (kind == nullptr || (std::string(kind->name) != "tree" && std::string(kind->name) != "model"))
    return fail("'" + o.image_file + "' is neither a tree file nor a model section");
  const bool is_model = std::string(kind->name) == "model";
  Fields fields;
  LabelFields file_fields;
  HTSModel *model = nullptr;
  DTree *tree = nullptr;
  int tree_count = 0;
  if (is_model) {
    if (!o.fields_file.empty()) return fail("a model carries its own label fields: drop -f");
    model = HTSModel_Create(image.data(), nullptr);
    if (model == nullptr) return fail("out of memory");
    for (int j = 0; j < model->num_features; ++j)
      add_field(fields, model->feature_names[j], model->feature_prefixes[j],
                model->feature_suffixes[j]);
    finish_fields(fields);
    // The trees were made with the model's feature paths; the tool reads
    // values from the features it sets, under names of its own.
    tree = model->trees;
    tree->FeatureNames = fields.names.data();
    tree_count = model->num_trees;
  } else {
    if (o.fields_file.empty()) return fail("a tree file needs its label fields: give -f FIELDS");
    if (!read_all(o.fields_file, table, error)) return fail(error);
    if (!file_fields.parse(table, error)) return fail(o.fields_file + ": " + error);
    for (int j = 0; j < file_fields.count(); ++j)
      add_field(fields, file_fields.names()[j], file_fields.prefixes()[j],
                file_fields.suffixes()[j]);
    finish_fields(fields);
    tree_count = tree_file_count(image);
    const void *at = image.data();
    tree = DTree_Create(&at, tree_count, fields.names.data(), fields.prefixes.data(),
                        fields.suffixes.data(), fields.count());
    if (tree == nullptr) return fail("out of memory");
  }
  struct Release {
    HTSModel *model;
    DTree *tree;
    ~Release() {
      if (model != nullptr)
        HTSModel_Destroy(model);
      else
        DTree_Destroy(tree);
    }
  } release{model, tree};
  if (o.tree >= tree_count)
    return fail("tree " + std::to_string(o.tree) + " asked for; the image holds " +
                std::to_string(tree_count));

  utterance *u = new_utterance();
  if (u == nullptr) return fail("out of memory");
  struct ReleaseUtt {
    utterance *u;
    ~ReleaseUtt() { delete_utterance(u); }
  } release_utt{u};
  relation *r = utt_relation_create(u, "Label");
  int number = 0;
  size_t start = 0;
  std::vector<std::string> values;
  const LabelTable splitter = label_table(fields);
  while (start < labels.size()) {
    size_t end = labels.find('\n', start);
    if (end == std::string::npos) end = labels.size();
    std::string label = labels.substr(start, end - start);
    start = end + 1;
    ++number;
    if (!label.empty() && label.back() == '\r') label.pop_back();
    if (label.empty()) continue;
    if (!splitter.split(label, values, error))
      return fail("label " + std::to_string(number) + ": " + error);
    item *i = relation_append(r, nullptr);
    for (int j = 0; j < fields.count(); ++j) {
      if (fields.keys[j] == "0") continue;
      std::u16string wide(values[j].size() + 1, u'\0');
      bsr_UTF8ToUTF16(values[j].c_str(), static_cast<uint32_t>(values[j].size()), &wide[0],
                      static_cast<uint32_t>(wide.size()));
      item_set_wstring(i, fields.keys[j].c_str(), wide.c_str());
    }
    std::string line;
    for (int t = 0; t < tree_count; ++t) {
      if (o.tree >= 0 && t != o.tree) continue;
      if (!line.empty()) line += ' ';
      line += std::to_string(DTree_Lookup(tree, t, i));
    }
    std::printf("%s\n", line.c_str());
    delete_item(i);
  }
  return 0;
}

int run_lookup(int argc, char **argv) {
  Options o;
  std::string error;
  if (!parse_options(argc, argv, o, error)) return fail(error, 2);
  if (o.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  return run(o);
}

const Command kCommand = {"lookup", "look context labels up in a tree file or model section",
                          kUsage, run_lookup};
const Registration kRegistration(kCommand);

}  // namespace

}  // namespace utts
