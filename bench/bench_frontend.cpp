// bench_frontend.cpp - the whole front end with generation ("utts analyze"
// piped into "utts generate") on the Chinese news example: its real-time
// factor, and the resident size over 10,000 utterances in one process.
//
// Each utterance goes through normalisation, sentences, segmentation with
// the sample dictionary, pronunciations, breaks, stress, the hierarchy and
// labels, then the demonstration voice's trees, durations and MLPG. The
// real-time factor is the processing time over the duration of the frames
// made (5 ms each); below 1 is faster than real time. There is no outside
// front end to run beside it, so the ratio is against real time.
//
//   FrontEnd           analysis and labels only
//   FrontEndGenerate   analysis, labels and generation
//
// Before timing, 10,000 utterances are analysed and generated in turn, each
// freed before the next, and the resident size printed every 1,000; it must
// not grow once the first thousand have run.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "bench_runner.h"
#include "resident_size.h"
#include "utterance.h"
#include "utts/front_end.h"
#include "utts/label_fields.h"
#include "utts/label_writer.h"
#include "utts/voice.h"

namespace utts {
extern const char kContextFields[];
extern const std::size_t kContextFieldsSize;
}  // namespace utts

namespace {

std::string read_file(const char *path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

struct Fixture {
  utts::FrontEnd front_end;
  utts::LabelFields fields;
  utts::Voice voice;
  std::string document;
  bool ok = false;

  Fixture() {
    std::string error;
    document = read_file(UTTS_NEWS_EXAMPLE);
    utts::LabelTable table;
    if (!fields.parse(std::string(utts::kContextFields, utts::kContextFieldsSize), error) ||
        !front_end.open_dictionary(UTTS_SAMPLE_DICT, error) ||
        !voice.add_image("demo-voice.img", read_file(UTTS_DEMO_VOICE), error)) {
      std::fprintf(stderr, "bench_frontend: %s\n", error.c_str());
      return;
    }
    for (int k = 0; k < fields.count(); ++k) {
      table.names.push_back(fields.names()[k]);
      table.prefixes.push_back(fields.prefixes()[k]);
      table.suffixes.push_back(fields.suffixes()[k]);
    }
    if (!voice.finish(table, error)) {
      std::fprintf(stderr, "bench_frontend: %s\n", error.c_str());
      return;
    }
    ok = true;
  }

  // One utterance: its labels into `labels`; false on failure.
  bool analyze(std::vector<std::string> &labels) {
    utterance *u = new_utterance();
    utts::Analysis result;
    std::string error;
    const bool done =
        front_end.analyze(u, document, "news", utts::AnalysisOptions(), result, error);
    labels.clear();
    if (done) utts::collect_phrase_labels(u, result.lang, fields, labels);
    delete_utterance(u);
    return done && !labels.empty();
  }
};

Fixture &fixture() {
  static Fixture f;
  return f;
}

// 10,000 utterances analysed, generated and freed; the resident size every
// 1,000, and the real-time factor over all of them.
void resident_size_check() {
  Fixture &f = fixture();
  if (!f.ok) return;
  std::printf("Resident size over 10,000 utterances (analysed and generated):\n");
  std::vector<std::string> labels;
  utts::Tracks tracks;
  std::string error;
  long after_first = 0, last = 0;
  double audio_s = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int n = 1; n <= 10000; ++n) {
    if (!f.analyze(labels) || !f.voice.generate(labels, tracks, error)) {
      std::printf("  utterance %d failed: %s\n", n, error.c_str());
      return;
    }
    audio_s += tracks.frames * utts::kFrameMs / 1000.0;
    if (n % 1000 == 0) {
      last = bench::resident_kb();
      if (n == 1000) after_first = last;
      std::printf("  %5d utterances: %ld KB\n", n, last);
    }
  }
  const double spent =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("  growth from 1,000 to 10,000: %ld KB\n", last - after_first);
  std::printf("  %.1f s of frames made in %.2f s: real-time factor %.4f\n\n", audio_s, spent,
              spent / audio_s);
}

void BM_FrontEnd(benchmark::State &state) {
  Fixture &f = fixture();
  if (!f.ok) {
    state.SkipWithError("no fixture");
    return;
  }
  std::vector<std::string> labels;
  for (auto _ : state) benchmark::DoNotOptimize(f.analyze(labels));
  state.counters["labels"] = static_cast<double>(labels.size());
}
BENCHMARK(BM_FrontEnd)->Unit(benchmark::kMillisecond);

void BM_FrontEndGenerate(benchmark::State &state) {
  Fixture &f = fixture();
  if (!f.ok) {
    state.SkipWithError("no fixture");
    return;
  }
  std::vector<std::string> labels;
  utts::Tracks tracks;
  std::string error;
  for (auto _ : state) {
    f.analyze(labels);
    benchmark::DoNotOptimize(f.voice.generate(labels, tracks, error));
  }
  // Seconds of frames per utterance: with the time per iteration, the
  // real-time factor.
  state.counters["audio_s"] = tracks.frames * utts::kFrameMs / 1000.0;
}
BENCHMARK(BM_FrontEndGenerate)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) {
  return bench::run_benchmarks<benchmark::ConsoleReporter>(argc, argv, false, resident_size_check);
}
