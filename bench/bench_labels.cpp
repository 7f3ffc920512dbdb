// bench_labels.cpp - context labels and the hierarchy they are read from:
//   Label      one label per phone of a built phrase of 50 words and 500
//              phones (plus its two pauses) with a 40-field table; time per
//              label and heap allocations per label;
//   Hierarchy  pronunciations, focus phrase and phrase relations built for
//              the same 50 words; time and allocations per phone;
//   Predicate  IsIPAVowel and IsIPAFricative over the code points below
//              U+0400; time per call.
// Allocations are counted by replacing malloc and its relatives in this
// program, which the library's own calls reach as well.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench_runner.h"
#include "context_label.h"
#include "ipa_phoneme.h"
#include "prosodic_hierarchy.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"

extern "C" {
void *__libc_malloc(size_t);
void *__libc_calloc(size_t, size_t);
void *__libc_realloc(void *, size_t);
void __libc_free(void *);
}

namespace {
uint64_t g_allocations = 0;
}  // namespace

extern "C" {
void *malloc(size_t n) {
  ++g_allocations;
  return __libc_malloc(n);
}
void *calloc(size_t n, size_t size) {
  ++g_allocations;
  return __libc_calloc(n, size);
}
void *realloc(void *p, size_t n) {
  ++g_allocations;
  return __libc_realloc(p, n);
}
void free(void *p) { __libc_free(p); }
}

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

// The 40 fields: phones around, places and sizes at every level, tones.
const char *const kNames[] = {"p.p.name",
                              "p.name",
                              "name",
                              "n.name",
                              "n.n.name",
                              "R:Phrase.PositionFW",
                              "R:Phrase.PositionBW",
                              "R:Phrase.PositionFW2",
                              "R:Phrase.PositionBW2",
                              "R:Phrase.PositionFW3",
                              "R:Phrase.PositionBW3",
                              "R:Phrase.PositionFW4",
                              "R:Phrase.PositionBW4",
                              "R:Phrase.parent.tone",
                              "R:Phrase.parent.p.tone",
                              "R:Phrase.parent.n.tone",
                              "R:Phrase.parent.NumDaughter",
                              "R:Phrase.parent.PositionFW",
                              "R:Phrase.parent.PositionBW",
                              "R:Phrase.parent.PositionFW2",
                              "R:Phrase.parent.PositionBW2",
                              "R:Phrase.parent.PositionFW3",
                              "R:Phrase.parent.PositionBW3",
                              "R:Phrase.parent.parent.NumDaughter",
                              "R:Phrase.parent.parent.NumDaughter2",
                              "R:Phrase.parent.parent.PositionFW",
                              "R:Phrase.parent.parent.PositionBW",
                              "R:Phrase.parent.parent.PositionFW2",
                              "R:Phrase.parent.parent.PositionBW2",
                              "R:Phrase.parent.parent.p.NumDaughter",
                              "R:Phrase.parent.parent.n.NumDaughter",
                              "R:Phrase.parent.parent.parent.NumDaughter",
                              "R:Phrase.parent.parent.parent.NumDaughter3",
                              "R:Phrase.parent.parent.parent.PositionFW",
                              "R:Phrase.parent.parent.parent.PositionBW",
                              "R:Phrase.parent.parent.parent.parent.NumDaughter",
                              "R:Phrase.parent.parent.parent.parent.NumDaughter2",
                              "R:Phrase.parent.parent.parent.parent.NumDaughter3",
                              "pho-pos",
                              "0"};
constexpr int kFields = sizeof kNames / sizeof kNames[0];
static_assert(kFields == 40, "a 40-field table");

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

// Loads the document, gives every word its pronunciation and builds the
// phrase; the utterance is the caller's.
utterance *build(const std::string &ssml) {
  utterance *u = new_utterance();
  utt_load_ssml(u, ssml.c_str());
  item *root = relation_head(utt_relation(u, "ssml"));
  for (item *w = utt_walk_next_tag(root, root, 1, WordTagName()); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, WordTagName())) {
    CreatePhonemeWord(w, item_feat_wstring(w, "ph"));
  }
  feat_set(u->features, "focus", item_val(root));
  FocusPhraseCreate(u);
  feat_set(u->features, "focus_phrase", item_val(relation_head(utt_relation(u, "focus_phrase"))));
  PhraseCreate(u, u"en-US");
  return u;
}

void labels(benchmark::State &state) {
  const Tables tables;
  utterance *u = build(document());
  std::vector<item *> phones;
  for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
    phones.push_back(p);
  }
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

void hierarchy(benchmark::State &state) {
  const std::string ssml = document();
  uint64_t allocations = 0;
  int phones = 0;
  for (auto _ : state) {
    const uint64_t before = g_allocations;
    utterance *u = build(ssml);
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

}  // namespace

int main(int argc, char **argv) {
  benchmark::RegisterBenchmark("Label/40fields", labels)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("Hierarchy/50words", hierarchy)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("Predicate/IsIPA", predicate)->Unit(benchmark::kMicrosecond);
  return bench::run_benchmarks<benchmark::ConsoleReporter>(argc, argv);
}
