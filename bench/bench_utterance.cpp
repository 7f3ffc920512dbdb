// bench_utterance.cpp - utterance-model speed of libUtils beside the Edinburgh
// Speech Tools (EST_Utterance, EST_Relation, EST_Item, EST_Features) doing the
// same work:
//   Build     an utterance with three relations of 10,000 items each, the
//             second and third sharing the first one's contents, five
//             features per item (three ints, two strings), then deleted;
//             time per item and the peak heap bytes per item;
//   Features  a fresh feature set given 8 or 32 names (ints and strings),
//             each read back, then dropped; time per set/read pair;
//   Path      a four-step feature path (relation switch, parent, next,
//             feature) from every syllable of a built tree.
// EST has no item-path walker of its own, so its side of Path uses the same
// tokeniser as ours over EST's navigation (as_relation, parent, inext) and
// EST_Item::f. A closing table gives the Utils/EST speed ratios.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "EST.h"
#include "bench_runner.h"
#include "ling_class/EST_Relation_tree.h"

// EST declares functions named val, item, relation and utterance; our model's
// types of those names are kept apart in a namespace (the functions keep
// their C linkage, so they still bind to libUtils).
namespace ut {
#include "utt_ffeature.h"
}  // namespace ut
using namespace ut;

// EST's type tags for int and float values are the data symbols val_int and
// val_float, which share their names with two of our functions. Lookup would
// hand EST whichever library comes first, so this program defines EST's two
// tags itself: a program's own definitions win for every library. (libUtils
// never calls its exported val_int/val_float internally, and this file never
// calls them, so nothing here needs our functions under those names.)
val_type val_int = "int";
val_type val_float = "float";

namespace {

constexpr int kItems = 10000;
constexpr int kRelations = 3;

// Heap bytes in use (small blocks and mmapped large ones).
size_t heap_in_use() {
  struct mallinfo2 m = mallinfo2();
  return m.uordblks + m.hblkhd;
}

const char *const kWordTexts[] = {"ni", "hao", "shi", "jie", "zhong", "guo", "ren", "min"};
const bsr_wchar *const kWideTexts[] = {u"ni",    u"hao", u"shi", u"jie",
                                       u"zhong", u"guo", u"ren", u"min"};
constexpr int kTexts = 8;

// ---- Case 1: build and delete --------------------------------------------

ut::utterance *build_utils() {
  ut::utterance *u = new_utterance();
  ut::relation *word = utt_relation_create(u, "Word");
  ut::relation *token = utt_relation_create(u, "Token");
  ut::relation *phrase = utt_relation_create(u, "Phrase");
  for (int k = 0; k < kItems; ++k) {
    ut::item *i = relation_append(word, nullptr);
    item_set_int(i, "id", k);
    item_set_int(i, "pos", k % 7);
    item_set_int(i, "name_Len", k % 5 + 1);
    item_set_wstring(i, "name", kWideTexts[k % kTexts]);
    item_set_wstring(i, "tag", u"w");
    relation_append(token, i);
    relation_append(phrase, i);
  }
  return u;
}

// EST users hold names as EST_Strings; the tables are built once.
struct EstNames {
  EST_String id{"id"}, pos{"pos"}, len{"name_Len"}, name{"name"}, tag{"tag"};
  EST_String w{"w"};
  std::vector<EST_String> texts{std::begin(kWordTexts), std::end(kWordTexts)};
};
const EstNames &est_names() {
  static const EstNames names;
  return names;
}

EST_Utterance *build_est() {
  const EstNames &n = est_names();
  auto *u = new EST_Utterance;
  EST_Relation *word = u->create_relation("Word");
  EST_Relation *token = u->create_relation("Token");
  EST_Relation *phrase = u->create_relation("Phrase");
  for (int k = 0; k < kItems; ++k) {
    EST_Item *i = word->append();
    i->set(n.id, k);
    i->set(n.pos, k % 7);
    i->set(n.len, k % 5 + 1);
    i->set(n.name, n.texts[k % kTexts]);
    i->set(n.tag, n.w);
    token->append(i);
    phrase->append(i);
  }
  return u;
}

template <typename Build, typename Destroy>
void run_build(benchmark::State &state, Build build, Destroy destroy) {
  size_t peak = 0;
  for (auto _ : state) {
    size_t before = heap_in_use();
    auto *u = build();
    size_t held = heap_in_use() - before;
    if (held > peak) peak = held;
    destroy(u);
  }
  const double items = static_cast<double>(kItems) * kRelations;
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * items));
  state.counters["time_per_item"] =
      benchmark::Counter(items * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["bytes_per_item"] = static_cast<double>(peak) / items;
}

void BM_Build_Utils(benchmark::State &state) { run_build(state, build_utils, delete_utterance); }

void BM_Build_EST(benchmark::State &state) {
  run_build(state, build_est, [](EST_Utterance *u) { delete u; });
}

// ---- Case 2: feature sets -------------------------------------------------

struct Names {
  std::vector<std::string> text;
  std::vector<EST_String> est;
  explicit Names(int n) {
    for (int k = 0; k < n; ++k) {
      text.push_back("feature_" + std::to_string(k));
      est.emplace_back(text.back().c_str());
    }
  }
};

void BM_Features_Utils(benchmark::State &state) {
  const int n = static_cast<int>(state.range(0));
  Names names(n);
  int64_t sum = 0;
  for (auto _ : state) {
    features *f = new_features();
    for (int k = 0; k < n; ++k) {
      if (k % 2 == 0)
        feat_set_int(f, names.text[k].c_str(), k);
      else
        feat_set_wstring(f, names.text[k].c_str(), kWideTexts[k % kTexts]);
    }
    for (int k = 0; k < n; ++k) {
      if (k % 2 == 0)
        sum += feat_int(f, names.text[k].c_str());
      else
        sum += feat_wstring(f, names.text[k].c_str())[0];
    }
    delete_features(f);
  }
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * n);
}

void BM_Features_EST(benchmark::State &state) {
  const int n = static_cast<int>(state.range(0));
  Names names(n);
  const EstNames &texts = est_names();
  int64_t sum = 0;
  for (auto _ : state) {
    auto *f = new EST_Features;
    for (int k = 0; k < n; ++k) {
      if (k % 2 == 0)
        f->set(names.est[k], k);
      else
        f->set(names.est[k], texts.texts[k % kTexts]);
    }
    for (int k = 0; k < n; ++k) {
      if (k % 2 == 0)
        sum += f->I(names.est[k]);
      else
        sum += f->S(names.est[k])[0];
    }
    delete f;
  }
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * n);
}

// ---- Case 3: feature paths ----------------------------------------------

// Words in a flat "Word" relation and as roots of a "SylStructure" tree,
// three syllables under each, the syllables also in a flat "Syllable" list.
constexpr int kWords = 2000;
constexpr int kSylsPerWord = 3;
const char kPath[] = "R:SylStructure.parent.n.name";

struct UtilsTree {
  ut::utterance *u = new_utterance();
  std::vector<ut::item *> syllables;
  UtilsTree() {
    ut::relation *word = utt_relation_create(u, "Word");
    ut::relation *tree = utt_relation_create(u, "SylStructure");
    ut::relation *syl = utt_relation_create(u, "Syllable");
    for (int k = 0; k < kWords; ++k) {
      ut::item *w = relation_append(word, nullptr);
      item_set_wstring(w, "name", kWideTexts[k % kTexts]);
      ut::item *root = relation_append(tree, w);
      for (int j = 0; j < kSylsPerWord; ++j) {
        ut::item *s = relation_append(syl, nullptr);
        item_set_int(s, "stress", j);
        item_add_daughter(root, s);
        syllables.push_back(s);
      }
    }
  }
  ~UtilsTree() { delete_utterance(u); }
};

struct EstTree {
  EST_Utterance u;
  std::vector<EST_Item *> syllables;
  EstTree() {
    EST_Relation *word = u.create_relation("Word");
    EST_Relation *tree = u.create_relation("SylStructure");
    EST_Relation *syl = u.create_relation("Syllable");
    for (int k = 0; k < kWords; ++k) {
      EST_Item *w = word->append();
      w->set("name", kWordTexts[k % kTexts]);
      EST_Item *root = tree->append(w);
      for (int j = 0; j < kSylsPerWord; ++j) {
        EST_Item *s = syl->append();
        s->set("stress", j);
        root->append_daughter(s);
        syllables.push_back(s);
      }
    }
  }
};

// The peer walker: the same tokenising as libUtils (fixed buffer, '.' and
// ':' separators), moving with EST's own navigation, reading with f().
EST_Val est_ffeature(EST_Item *i, const char *path) {
  char buf[200];
  const char *tokens[100];
  int count = 0;
  size_t len = std::strlen(path);
  if (len > 199) len = 199;
  std::memcpy(buf, path, len);
  buf[len] = '\0';
  tokens[count++] = buf;
  for (size_t k = 0; k < len; ++k)
    if (buf[k] == '.' || buf[k] == ':') {
      buf[k] = '\0';
      tokens[count++] = buf + k + 1;
    }
  for (int t = 0; t < count - 1 && i != nullptr; ++t) {
    const char *s = tokens[t];
    if (std::strcmp(s, "n") == 0)
      i = inext(i);
    else if (std::strcmp(s, "p") == 0)
      i = iprev(i);
    else if (std::strcmp(s, "parent") == 0)
      i = parent(i);
    else if (std::strcmp(s, "daughter") == 0)
      i = daughter1(i);
    else if (std::strcmp(s, "R") == 0)
      i = i->as_relation(tokens[++t]);
    else
      return EST_Val();
  }
  if (i == nullptr) return EST_Val("0");
  return i->f(tokens[count - 1], EST_Val("0"));
}

void BM_Path_Utils(benchmark::State &state) {
  UtilsTree tree;
  int64_t sum = 0;
  for (auto _ : state)
    for (ut::item *s : tree.syllables) sum += ffeature_wstring(s, kPath)[0];
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(tree.syllables.size()));
}

void BM_Path_EST(benchmark::State &state) {
  EstTree tree;
  int64_t sum = 0;
  for (auto _ : state)
    for (EST_Item *s : tree.syllables) sum += est_ffeature(s, kPath).string()[0];
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(tree.syllables.size()));
}

BENCHMARK(BM_Build_Utils)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Build_EST)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Features_Utils)->Arg(8)->Arg(32);
BENCHMARK(BM_Features_EST)->Arg(8)->Arg(32);
BENCHMARK(BM_Path_Utils)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Path_EST)->Unit(benchmark::kMicrosecond);

// Prints the usual console output, then EST time / Utils time per case, in
// CPU time (the benchmark machine is usually shared).
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  using ConsoleReporter::ConsoleReporter;
  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs)
      if (run.run_type == Run::RT_Iteration && run.iterations > 0)
        times_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    std::printf("\nSpeed ratio (EST CPU time / Utils CPU time; above 1: Utils is faster):\n");
    for (const auto &[name, utils_time] : times_) {
      size_t at = name.find("_Utils");
      if (at == std::string::npos) continue;
      std::string peer = name.substr(0, at) + "_EST" + name.substr(at + 6);
      auto hit = times_.find(peer);
      if (hit != times_.end() && utils_time > 0)
        std::printf("  %-24s %6.2fx\n", name.substr(3, at - 3).append(name.substr(at + 6)).c_str(),
                    hit->second / utils_time);
    }
    ConsoleReporter::Finalize();
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char **argv) { return bench::run_benchmarks<RatioReporter>(argc, argv); }
