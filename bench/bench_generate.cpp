// bench_generate.cpp - parameter generation ("utts generate") with the
// demonstration voice: speed as a real-time factor, and the resident size
// over 10,000 utterances in one process.
//
// The utterances are built by the library as "utts labels" builds them:
// Mandarin-like words with pronunciation strings and tones, ten words a
// phrase, the prosodic hierarchy, and one context label per phone from the
// bundled label-field table. Then:
//
//   Generate/500     the labels of a 500-phone utterance through the trees,
//                    the durations, three streams and MLPG (log F0, four
//                    spectral dimensions); the time per utterance beside
//                    the duration of the frames made (5 ms each) gives the
//                    real-time factor (RTF, below 1 is faster than real time);
//   Labels+Generate  the same with the hierarchy and labels built from the
//                    SSML each time: the front end's part included.
//
// Before timing, 10,000 utterances of 20 to 120 phones are made and
// generated in turn, each freed before the next, and the resident size is
// printed every 1,000; it must not grow once the first thousand have run.
// There is no outside generator to run beside this one; the ratio reported is
// against real time (MLPG alone is compared with LAPACK in bench_mlpg).
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "bench_runner.h"
#include "context_label.h"
#include "prosodic_hierarchy.h"
#include "resident_size.h"
#include "ssml_io.h"
#include "ssml_tags.h"
#include "utt_walk.h"
#include "utterance.h"
#include "utts/voice.h"

namespace {

std::string read_file(const char *path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// The label-field table: path, prefix, suffix a line; "" an empty column.
utts::LabelTable read_fields(const std::string &text) {
  utts::LabelTable t;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    std::istringstream words(line);
    std::vector<std::string> w;
    std::string word;
    while (words >> word) w.push_back(word == "\"\"" ? "" : word);
    if (w.empty() || w[0][0] == '#') continue;
    w.resize(3);
    t.names.push_back(w[0]);
    t.prefixes.push_back(w[1]);
    t.suffixes.push_back(w[2]);
  }
  return t;
}

// Words of two syllables (IPA, tone digits), cycled.
const char *const kWords[] = {"ni3.xau3",
                              "\xCA\x88\xCA\x82\xCA\x8A\xC5\x8B"
                              "1.kuo2",
                              "pei3.t\xC9\x95i\xC5\x8B"
                              "1",
                              "ma1.ma5",
                              "\xC9\x95j\xC9\x9B"
                              "4.\xC9\x95j\xC9\x9B"
                              "5",
                              "tai4.ja\xC5\x8B"
                              "2",
                              "s\xC9\xA4\xC5\x8B"
                              "1.xuo2"};
constexpr int kWordCount = sizeof kWords / sizeof kWords[0];

// An SSML document of `words` words from word `first` on, a phrase every ten.
std::string document(int first, int words) {
  std::string ssml = "<speak xml:lang=\"zh-CN\"><s>";
  for (int w = 0; w < words; ++w) {
    ssml += "<word ph=\"" + std::string(kWords[(first + w) % kWordCount]) + "\"";
    if (w % 2 == 1) ssml += " break=\"1\"";
    if (w % 10 == 9) ssml += " delay=\"200ms\"";
    ssml += "/>";
  }
  return ssml + "</s></speak>";
}

// Builds the hierarchy of `ssml` and appends one label per phone.
void make_labels(const std::string &ssml, const utts::LabelTable &table,
                 std::vector<std::string> &labels) {
  std::vector<const char *> names, prefixes, suffixes;
  for (int j = 0; j < table.count(); ++j) {
    names.push_back(table.names[j].c_str());
    prefixes.push_back(table.prefixes[j].c_str());
    suffixes.push_back(table.suffixes[j].c_str());
  }
  utterance *u = new_utterance();
  utt_load_ssml(u, ssml.c_str());
  item *root = relation_head(utt_relation(u, "ssml"));
  for (item *w = utt_walk_next_tag(root, root, 1, WordTagName()); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, WordTagName()))
    CreatePhonemeWord(w, item_feat_wstring(w, "ph"));
  feat_set(u->features, "focus", item_val(root));
  FocusPhraseCreate(u);
  static char label[8192];
  for (item *phrase = relation_head(utt_relation(u, "focus_phrase")); phrase != nullptr;
       phrase = item_next(phrase)) {
    feat_set(u->features, "focus_phrase", item_val(phrase));
    PhraseCreate(u, u"zh-CN");
    for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
      MakeFeatureLabel(p, names.data(), prefixes.data(), suffixes.data(), table.count(), label);
      labels.push_back(label);
    }
  }
  delete_utterance(u);
}

struct Fixture {
  utts::Voice voice;
  utts::LabelTable table;
  std::vector<std::string> labels500;
  std::string ssml500;
  bool ok = false;

  Fixture() {
    table = read_fields(read_file(UTTS_CONTEXT_FIELDS));
    std::string error;
    if (!voice.add_image("demo-voice.img", read_file(UTTS_DEMO_VOICE), error) ||
        !voice.finish(table, error)) {
      std::fprintf(stderr, "bench_generate: %s\n", error.c_str());
      return;
    }
    // Words until the phones reach 500.
    for (int words = 80; labels500.size() < 500 && words < 400; ++words) {
      labels500.clear();
      ssml500 = document(0, words);
      make_labels(ssml500, table, labels500);
    }
    if (labels500.size() < 500) {
      std::fprintf(stderr, "bench_generate: the phrases give too few phones\n");
      return;
    }
    labels500.resize(500);
    ok = true;
  }
};

Fixture &fixture() {
  static Fixture f;
  return f;
}

// 10,000 utterances, each built, generated and freed; the resident size
// every 1,000.
void resident_size_check() {
  Fixture &f = fixture();
  if (!f.ok) return;
  std::printf("Resident size over 10,000 utterances (labels built and generated):\n");
  long after_first = 0, after_second = 0, last = 0;
  utts::Tracks tracks;
  std::string error;
  std::vector<std::string> labels;
  for (int n = 1; n <= 10000; ++n) {
    labels.clear();
    make_labels(document(n, 4 + n % 20), f.table, labels);
    if (!f.voice.generate(labels, tracks, error)) {
      std::printf("  utterance %d: %s\n", n, error.c_str());
      return;
    }
    if (n % 1000 == 0) {
      last = bench::resident_kb();
      if (n == 1000) after_first = last;
      if (n == 2000) after_second = last;
      std::printf("  %5d utterances: %ld KB\n", n, last);
    }
  }
  std::printf("  growth from 1,000 to 10,000: %ld KB; from 2,000 to 10,000: %ld KB\n\n",
              last - after_first, last - after_second);
}

void report_rtf(benchmark::State &state, double seconds, int frames) {
  const double audio = frames * utts::kFrameMs / 1000.0;
  state.counters["frames"] = frames;
  state.counters["audio_s"] = audio;
  state.counters["RTF"] = seconds / static_cast<double>(state.iterations()) / audio;
}

void generate_500(benchmark::State &state) {
  Fixture &f = fixture();
  if (!f.ok) {
    state.SkipWithError("no voice");
    return;
  }
  utts::Tracks tracks;
  std::string error;
  double seconds = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    if (!f.voice.generate(f.labels500, tracks, error)) {
      state.SkipWithError(error.c_str());
      return;
    }
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    benchmark::DoNotOptimize(tracks.values.data());
  }
  report_rtf(state, seconds, tracks.frames);
}

void labels_and_generate(benchmark::State &state) {
  Fixture &f = fixture();
  if (!f.ok) {
    state.SkipWithError("no voice");
    return;
  }
  utts::Tracks tracks;
  std::string error;
  std::vector<std::string> labels;
  double seconds = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    labels.clear();
    make_labels(f.ssml500, f.table, labels);
    if (!f.voice.generate(labels, tracks, error)) {
      state.SkipWithError(error.c_str());
      return;
    }
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    benchmark::DoNotOptimize(tracks.values.data());
  }
  state.counters["phones"] = static_cast<double>(labels.size());
  report_rtf(state, seconds, tracks.frames);
}

BENCHMARK(generate_500)->Name("Generate/500")->Unit(benchmark::kMillisecond);
BENCHMARK(labels_and_generate)->Name("Labels+Generate/500")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) {
  return bench::run_benchmarks<benchmark::ConsoleReporter>(argc, argv, false, resident_size_check);
}
