// bench_dtree.cpp - decision-tree lookups of libUtils beside a direct
// interpretation of the same questions with the matchers one would
// otherwise reach for.
//
// The tree: 2,000 internal nodes in a random shape (stored parents first),
// 200 questions of 4 patterns each over a 40-field label table, asked of
// the 502 phones of a built phrase of 50 words. Questions ask mostly about
// the phone names around the phone, the rest about positions and counts;
// three patterns of each are exact ("[7]3|"), the last one marked
// ("*[2]a*": the field begins with "a").
//
//   Lookup/Utils    DTree_Lookup: only the fields a question needs, built
//                   per node from the item;
//   Lookup/fnmatch  the whole label (MakeFeatureLabel) once per phone, then
//                   the same tree walked by index with fnmatch on each
//                   pattern made a substring pattern ("*\[7]3|*");
//   Lookup/RE2      the same with RE2 full matches of the patterns turned
//                   into regular expressions (".*\[7\]3\|.*").
// All three must give the same leaf for every phone (checked before timing).
// Heap allocations per lookup are counted by replacing malloc in this program.
#include <benchmark/benchmark.h>
#include <fnmatch.h>
#include <re2/re2.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "allocation_count.h"
#include "bench_runner.h"
#include "context_label.h"
#include "dtree.h"
#include "label_phrase.h"
#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"

using bench::g_allocations;

namespace {

constexpr int kWords = 50;
constexpr int kNodes = 2000;
constexpr int kQuestions = 200;
constexpr int kPatternsPerQuestion = 4;

std::string document() {
  std::string ssml = "<speak xml:lang=\"en-US\"><s>";
  const char *words[] = {"p\xC9\x91n1.t\xC9\x99k", "s\xC9\x99.ti\xCB\x90", "m\xC9\x9B.n\xC9\x99",
                         "k\xC9\x94\xCB\x90.li\xC5\x8B", "\xCA\x83\xC9\x91.d\xC9\x99z"};
  for (int w = 0; w < kWords; ++w) {
    ssml += "<word ph=\"" + std::string(words[w % 5]) + "." + words[(w * 3 + 1) % 5] + "\"";
    if (w % 3 == 2) ssml += " break=\"1\"";
    ssml += "/>";
  }
  return ssml + "</s></speak>";
}

const auto &kNames = bench::kLabelFields;
constexpr int kFields = bench::kLabelFieldCount;

struct Node {
  int16_t id, question, no, yes;
};

// Everything the three contenders share: the phrase, the label table, the
// questions and the tree, as an image and as plain arrays.
struct Fixture {
  utterance *u = nullptr;
  std::vector<item *> phones;
  std::vector<std::string> prefix_text;
  std::vector<const char *> prefixes, suffixes;
  std::vector<std::vector<std::string>> questions;  // patterns
  std::vector<Node> nodes;                          // stored order
  std::map<int16_t, size_t> index_of;               // Id -> stored position
  std::string image;
  DTree *tree = nullptr;
  // The peers' forms of the patterns.
  std::vector<std::vector<std::string>> globs;
  std::vector<std::vector<std::unique_ptr<re2::RE2>>> regexes;

  Fixture() {
    build_phrase();
    for (int j = 0; j < kFields; ++j) prefix_text.push_back("[" + std::to_string(j) + "]");
    for (int j = 0; j < kFields; ++j) {
      prefixes.push_back(prefix_text[j].c_str());
      suffixes.push_back("|");
    }
    std::mt19937 random(12345);
    make_questions(random);
    make_tree(random);
    make_image();
    const void *at = image.data();
    tree = DTree_Create(&at, 1, kNames, prefixes.data(), suffixes.data(), kFields);
  }
  ~Fixture() {
    DTree_Destroy(tree);
    delete_utterance(u);
  }

  void build_phrase() {
    u = bench::build_phrase(document());
    phones = bench::phrase_phones(u);
  }

  // The values each field takes over the phrase, to ask questions that hold
  // for some phones.
  std::vector<std::vector<std::string>> field_values() {
    std::vector<std::vector<std::string>> values(kFields);
    static char label[4096];
    const char *one_name[1];
    const char *one_prefix[1] = {"["};
    const char *one_suffix[1] = {"|"};
    for (int j = 0; j < kFields; ++j) {
      one_name[0] = kNames[j];
      std::map<std::string, int> seen;
      for (item *p : phones) {
        MakeFeatureLabel(p, one_name, one_prefix, one_suffix, 1, label);
        const std::string text(label + 1, std::strlen(label) - 2);
        if (seen[text]++ == 0) values[j].push_back(text);
      }
    }
    return values;
  }

  void make_questions(std::mt19937 &random) {
    const auto values = field_values();
    for (int q = 0; q < kQuestions; ++q) {
      // Three questions in five about the phones around, as in real trees.
      const int j = random() % 5 < 3 ? static_cast<int>(random() % 5)
                                     : 5 + static_cast<int>(random() % (kFields - 6));
      const auto &v = values[j];
      std::vector<std::string> patterns;
      for (int k = 0; k < kPatternsPerQuestion - 1; ++k)
        patterns.push_back(prefix_text[j] + v[random() % v.size()] + "|");
      const std::string &last = v[random() % v.size()];
      // Its first character, all the bytes of it.
      size_t first = 1;
      while (first < last.size() && (static_cast<unsigned char>(last[first]) & 0xC0) == 0x80)
        ++first;
      patterns.push_back("*" + prefix_text[j] + last.substr(0, first) + "*");
      questions.push_back(patterns);
    }
    for (const auto &q : questions) {
      globs.emplace_back();
      regexes.emplace_back();
      for (const std::string &p : q) {
        // The field appears somewhere in the whole label: a substring
        // pattern, "[" escaped for fnmatch, everything quoted for RE2.
        const bool marked = p[0] == '*';
        const std::string body = marked ? p.substr(1, p.size() - 2) : p;
        globs.back().push_back("*\\" + body + "*");
        regexes.back().emplace_back(new re2::RE2(".*" + re2::RE2::QuoteMeta(body) + ".*"));
      }
    }
  }

  // A random binary tree of kNodes internal nodes: open slots are turned
  // into nodes at random, the rest become leaves; stored breadth first so
  // that children follow their parents.
  void make_tree(std::mt19937 &random) {
    struct Built {
      int question, no = 0, yes = 0;  // children: index + 1 of a built node, or 0 for a leaf
    };
    std::vector<Built> built{{static_cast<int>(random() % kQuestions)}};
    std::vector<std::pair<int, bool>> open{{0, false}, {0, true}};
    while (static_cast<int>(built.size()) < kNodes) {
      const size_t pick = random() % open.size();
      const auto [parent, yes] = open[pick];
      open[pick] = open.back();
      open.pop_back();
      built.push_back({static_cast<int>(random() % kQuestions)});
      const int child = static_cast<int>(built.size());
      (yes ? built[parent].yes : built[parent].no) = child;
      open.push_back({child - 1, false});
      open.push_back({child - 1, true});
    }
    std::vector<int> order{0}, id_of(built.size());
    for (size_t k = 0; k < order.size(); ++k) {
      id_of[order[k]] = -static_cast<int>(k);
      for (int c : {built[order[k]].no, built[order[k]].yes})
        if (c != 0) order.push_back(c - 1);
    }
    int16_t leaf = 1;
    for (int b : order) {
      auto next = [&](int c) { return c != 0 ? static_cast<int16_t>(id_of[c - 1]) : leaf++; };
      const int16_t no = next(built[b].no);
      const int16_t yes = next(built[b].yes);
      index_of[static_cast<int16_t>(id_of[b])] = nodes.size();
      nodes.push_back(
          {static_cast<int16_t>(id_of[b]), static_cast<int16_t>(built[b].question), no, yes});
    }
  }

  void put_u32(uint32_t v) {
    for (int k = 0; k < 4; ++k) image += static_cast<char>(v >> 8 * k & 0xFF);
  }
  void put_i16(int16_t v) {
    image += static_cast<char>(static_cast<uint16_t>(v) & 0xFF);
    image += static_cast<char>(static_cast<uint16_t>(v) >> 8);
  }
  void pad() {
    while (image.size() % 4 != 0) image += '\0';
  }

  void make_image() {
    put_u32(1);
    put_u32(kQuestions * kPatternsPerQuestion);
    for (const auto &q : questions)
      for (const std::string &p : q) image += p + '\0';
    pad();
    put_u32(kQuestions);
    for (int q = 0; q < kQuestions; ++q) {
      put_i16(kPatternsPerQuestion);
      for (int k = 0; k < kPatternsPerQuestion; ++k)
        put_i16(static_cast<int16_t>(q * kPatternsPerQuestion + k));
      pad();
    }
    put_u32(static_cast<uint32_t>(8 * nodes.size()));
    for (const Node &n : nodes) {
      put_i16(n.id);
      put_i16(n.question);
      put_i16(n.no);
      put_i16(n.yes);
    }
  }

  // The peers' walk: the whole label once, then the tree by index.
  template <typename Match>
  int32_t peer_lookup(const item *p, char *label, size_t size, Match match) const {
    MakeFeatureLabel(p, kNames, prefixes.data(), suffixes.data(), kFields, label);
    size_t at = 0;
    for (;;) {
      const Node &n = nodes[at];
      bool yes = false;
      for (int k = 0; k < kPatternsPerQuestion && !yes; ++k) yes = match(n.question, k, label);
      const int16_t next = yes ? n.yes : n.no;
      if (next > 0) return next;
      at = index_of.at(next);
    }
  }

  static bool glob(const Fixture &f, int q, int k, const char *label) {
    return fnmatch(f.globs[q][k].c_str(), label, 0) == 0;
  }
  static bool regex(const Fixture &f, int q, int k, const char *label) {
    return re2::RE2::FullMatch(label, *f.regexes[q][k]);
  }
};

Fixture &fixture() {
  static Fixture f;
  return f;
}

char g_label[8192];

void report(benchmark::State &state, uint64_t allocations) {
  const double n = static_cast<double>(state.iterations()) * fixture().phones.size();
  state.counters["lookups_per_second"] = benchmark::Counter(n, benchmark::Counter::kIsRate);
  state.counters["allocs/lookup"] = static_cast<double>(allocations) / n;
}

void utils_lookup(benchmark::State &state) {
  const Fixture &f = fixture();
  uint64_t allocations = 0;
  for (auto _ : state) {
    const uint64_t before = g_allocations;
    for (const item *p : f.phones) benchmark::DoNotOptimize(DTree_Lookup(f.tree, 0, p));
    allocations += g_allocations - before;
  }
  report(state, allocations);
}

// A peer's lookups, matching each pattern with `match` (glob or regex).
template <typename Match>
void peer_lookups(benchmark::State &state, Match match) {
  const Fixture &f = fixture();
  uint64_t allocations = 0;
  for (auto _ : state) {
    const uint64_t before = g_allocations;
    for (const item *p : f.phones)
      benchmark::DoNotOptimize(
          f.peer_lookup(p, g_label, sizeof g_label,
                        [&](int q, int k, const char *l) { return match(f, q, k, l); }));
    allocations += g_allocations - before;
  }
  report(state, allocations);
}

void fnmatch_lookup(benchmark::State &state) { peer_lookups(state, Fixture::glob); }
void re2_lookup(benchmark::State &state) { peer_lookups(state, Fixture::regex); }

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(OutputOptions opts) : ConsoleReporter(opts) {}

  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      const auto it = run.counters.find("lookups_per_second");
      if (it == run.counters.end()) continue;
      const std::string name = run.run_name.function_name;
      double &best = rates_[name.substr(name.find('/') + 1)];
      if (it->second.value > best) best = it->second.value;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    const double ours = rates_["Utils"], glob = rates_["fnmatch"], regex = rates_["RE2"];
    std::printf("\n%14s %14s %14s %12s %12s\n", "Utils lk/s", "fnmatch lk/s", "RE2 lk/s",
                "vs fnmatch", "vs RE2");
    std::printf("%14.0f %14.0f %14.0f %12.2f %12.2f\n", ours, glob, regex,
                glob > 0 ? ours / glob : 0.0, regex > 0 ? ours / regex : 0.0);
    std::printf(
        "(best of the repetitions; lookups of one tree of %d nodes, %d questions of %d "
        "patterns, %d label fields)\n",
        kNodes, kQuestions, kPatternsPerQuestion, kFields);
  }

 private:
  std::map<std::string, double> rates_;
};

// The three must agree on every phone, or the comparison means nothing.
void check_agreement() {
  const Fixture &f = fixture();
  int differ = 0;
  std::map<int32_t, int> leaves;
  for (const item *p : f.phones) {
    const int32_t ours = DTree_Lookup(f.tree, 0, p);
    const int32_t glob =
        f.peer_lookup(p, g_label, sizeof g_label,
                      [&](int q, int k, const char *l) { return Fixture::glob(f, q, k, l); });
    const int32_t regex =
        f.peer_lookup(p, g_label, sizeof g_label,
                      [&](int q, int k, const char *l) { return Fixture::regex(f, q, k, l); });
    differ += ours != glob || ours != regex;
    ++leaves[ours];
  }
  std::printf("%zu phones, %zu different leaves reached, %d lookups where the three differ\n",
              f.phones.size(), leaves.size(), differ);
  if (differ != 0) std::exit(1);
}

}  // namespace

int main(int argc, char **argv) {
  const std::pair<const char *, benchmark::internal::Function *> variants[] = {
      {"Lookup/Utils", utils_lookup},
      {"Lookup/fnmatch", fnmatch_lookup},
      {"Lookup/RE2", re2_lookup}};
  for (const auto &v : variants)
    benchmark::RegisterBenchmark(v.first, v.second)
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.1)
        ->Repetitions(8);
  return bench::run_benchmarks<RatioReporter>(argc, argv, /*interleave=*/true, check_agreement);
}
