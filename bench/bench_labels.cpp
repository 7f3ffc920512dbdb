// bench_labels.cpp - context labels and the hierarchy they are read from:
//   Label/Utils       one label per phone of a built phrase of 50 words and
//                     500 phones (plus its two pauses) with a 40-field
//                     table; time per label and heap allocations per label;
//   Label/ffeature    the peer: the same fields read through the generic
//                     feature-path walker (ffeature) with the structural
//                     features registered as the utterance's feature
//                     functions, each value printed with snprintf;
//   Hierarchy         pronunciations, focus phrase and phrase relations
//                     built for the same 50 words; time and allocations per
//                     phone;
//   Predicate/Utils   IsIPAVowel and IsIPAFricative over the code points
//                     below U+0400; time per call;
//   Predicate/Search  the peer: the same two questions answered by a binary
//                     search over a copy of the 115 rows.
// Allocations are counted by replacing malloc and its relatives in this
// program, which the library's own calls reach as well. The ratio table at
// the end compares the best repetition of each with its peer.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "allocation_count.h"
#include "bench_runner.h"
#include "bsr_unicode.h"
#include "context_label.h"
#include "ipa_phoneme.h"
#include "label_phrase.h"
#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_ffeature.h"
#include "utt_walk.h"

using bench::g_allocations;

namespace {

constexpr int kWords = 50;

// 50 words of four syllables and ten phones each, a prosodic-word break
// every third word.
std::string document() {
  std::string ssml = "<speak xml:lang=\"en-US\"><s>";
  for (int w = 0; w < kWords; ++w) {
    ssml += "<word ph=\"p\xC9\x91n1.t\xC9\x99k.s\xC9\x99.ti\xCB\x90\"";
    if (w % 3 == 2) ssml += " break=\"1\"";
    ssml += "/>";
  }
  return ssml + "</s></speak>";
}

const auto &kNames = bench::kLabelFields;
constexpr int kFields = bench::kLabelFieldCount;

struct Tables {
  std::vector<const char *> prefixes, suffixes;
  std::vector<std::string> text;
  Tables() {
    for (int j = 0; j < kFields; ++j) text.push_back("/" + std::to_string(j) + ":");
    for (int j = 0; j < kFields; ++j) {
      prefixes.push_back(text[j].c_str());
      suffixes.push_back("");
    }
  }
};

void labels(benchmark::State &state) {
  const Tables tables;
  utterance *u = bench::build_phrase(document());
  const std::vector<item *> phones = bench::phrase_phones(u);
  static char label[4096];
  uint64_t allocations = 0;
  for (auto _ : state) {
    const uint64_t before = g_allocations;
    for (item *p : phones) {
      MakeFeatureLabel(p, kNames, tables.prefixes.data(), tables.suffixes.data(), kFields, label);
      benchmark::DoNotOptimize(label[0]);
    }
    allocations += g_allocations - before;
  }
  const double n = static_cast<double>(state.iterations()) * static_cast<double>(phones.size());
  state.counters["phones"] = static_cast<double>(phones.size());
  state.counters["time/label"] =
      benchmark::Counter(n, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["allocs/label"] = static_cast<double>(allocations) / n;
  delete_utterance(u);
}

// The peer: each field through ffeature, printed with snprintf.
void labels_ffeature(benchmark::State &state) {
  const Tables tables;
  utterance *u = bench::build_phrase(document());
  for (const char *name : kNames) {
    if (ffunc fn = GetFeatFunc(name); fn != nullptr) ff_register(u->ffunctions, name, fn);
  }
  for (const char *name : kNames) {
    const char *last = name;
    for (const char *c = name; *c != '\0'; ++c)
      if (*c == '.') last = c + 1;
    if (ffunc fn = GetFeatFunc(last); fn != nullptr) ff_register(u->ffunctions, last, fn);
  }
  const std::vector<item *> phones = bench::phrase_phones(u);
  static char label[8192];
  uint64_t allocations = 0;
  for (auto _ : state) {
    const uint64_t before = g_allocations;
    for (item *p : phones) {
      size_t len = 0;
      for (int j = 0; j < kFields; ++j) {
        char value[128] = "0";
        if (kNames[j][0] != '0' || kNames[j][1] != '\0') {
          const val *v = ffeature(p, kNames[j]);
          if (const bsr_wchar *w = val_wstring(v); w != nullptr) {
            bsr_UTF16ToUTF8(w, BSR_ZERO_TERMINATED, value, sizeof value);
          } else {
            std::snprintf(value, sizeof value, "%d", val_int(v));
          }
        }
        len += static_cast<size_t>(std::snprintf(label + len, sizeof label - len, "%s%s%s",
                                                 tables.prefixes[j], value, tables.suffixes[j]));
      }
      benchmark::DoNotOptimize(label[0]);
    }
    allocations += g_allocations - before;
  }
  const double n = static_cast<double>(state.iterations()) * static_cast<double>(phones.size());
  state.counters["time/label"] =
      benchmark::Counter(n, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["allocs/label"] = static_cast<double>(allocations) / n;
  delete_utterance(u);
}

void hierarchy(benchmark::State &state) {
  const std::string ssml = document();
  uint64_t allocations = 0;
  int phones = 0;
  for (auto _ : state) {
    const uint64_t before = g_allocations;
    utterance *u = bench::build_phrase(ssml);
    allocations += g_allocations - before;
    state.PauseTiming();
    phones = 0;
    for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
      ++phones;
    }
    delete_utterance(u);
    state.ResumeTiming();
  }
  const double n = static_cast<double>(state.iterations()) * phones;
  state.counters["time/phone"] =
      benchmark::Counter(n, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["allocs/phone"] = static_cast<double>(allocations) / n;
}

void predicate(benchmark::State &state) {
  for (auto _ : state) {
    int hits = 0;
    for (uint32_t c = 0; c < 0x400; ++c) hits += IsIPAVowel(c) + IsIPAFricative(c);
    benchmark::DoNotOptimize(hits);
  }
  state.counters["time/call"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * 0x800,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// The peer: a binary search over the rows for every question.
struct Rows {
  IPAPhonemeFeat row[115];
  Rows() {
    bsr_wchar set[116];
    GetIPAPhonemeSet(set);
    for (int r = 0; r < 115; ++r) row[r] = *GetIPAPhonemeFeat(set[r]);
  }
  const IPAPhonemeFeat *find(uint32_t c) const {
    int lo = 0, hi = 114;
    while (lo <= hi) {
      const int mid = (lo + hi) / 2;
      if (row[mid].CodePoint == c) return &row[mid];
      if (c > row[mid].CodePoint)
        lo = mid + 1;
      else
        hi = mid - 1;
    }
    return nullptr;
  }
};

int searched_vowel(const Rows &rows, uint32_t c) {
  const IPAPhonemeFeat *r = rows.find(c);
  return r != nullptr && r->Class == 1;
}

int searched_fricative(const Rows &rows, uint32_t c) {
  const IPAPhonemeFeat *r = rows.find(c);
  return r != nullptr && r->Manner == 2;
}

void predicate_search(benchmark::State &state) {
  static const Rows rows;
  for (auto _ : state) {
    int hits = 0;
    for (uint32_t c = 0; c < 0x400; ++c) {
      benchmark::DoNotOptimize(c);
      hits += searched_vowel(rows, c) + searched_fricative(rows, c);
    }
    benchmark::DoNotOptimize(hits);
  }
  state.counters["time/call"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * 0x800,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Console output as usual, then each measurement against its peer, from
// the best repetition of each (names "<what>/<variant>").
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(OutputOptions opts) : ConsoleReporter(opts) {}

  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      for (const char *counter : {"time/label", "time/call"}) {
        auto it = run.counters.find(counter);
        if (it == run.counters.end()) continue;
        double &best = seconds_[run.run_name.function_name];
        if (best == 0 || it->second.value < best) best = it->second.value;
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\n%-10s %14s %14s %8s\n", "", "Utils", "peer", "ratio");
    const char *const kPairs[][3] = {{"label", "Label/Utils", "Label/ffeature"},
                                     {"predicate", "Predicate/Utils", "Predicate/Search"}};
    for (const auto &pair : kPairs) {
      const double ours = seconds_[pair[1]], peer = seconds_[pair[2]];
      std::printf("%-10s %11.4f us %11.4f us %8.2f\n", pair[0], ours * 1e6, peer * 1e6,
                  ours > 0 ? peer / ours : 0.0);
    }
    std::printf("(best of the repetitions; time per label or per call; ratio = peer / Utils)\n");
  }

 private:
  std::map<std::string, double> seconds_;
};

}  // namespace

int main(int argc, char **argv) {
  const std::pair<const char *, void (*)(benchmark::State &)> timed[] = {
      {"Label/Utils", labels},
      {"Label/ffeature", labels_ffeature},
      {"Predicate/Utils", predicate},
      {"Predicate/Search", predicate_search}};
  for (const auto &t : timed) {
    benchmark::RegisterBenchmark(t.first, t.second)
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.1)
        ->Repetitions(5);
  }
  benchmark::RegisterBenchmark("Hierarchy/50words", hierarchy)->Unit(benchmark::kMicrosecond);
  return bench::run_benchmarks<RatioReporter>(argc, argv, /*interleave=*/true);
}
