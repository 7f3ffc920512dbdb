// bench_textnorm.cpp - text normalisation speed: the replacer with the bundled
// English rule set over about 1 MB of news-like text, against a bare RE2 scan
// of the same text with the same patterns (every match found, nothing built).
#include <benchmark/benchmark.h>
#include <mxml.h>
#include <re2/re2.h>

#include <ctime>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "hconverter.h"
#include "hreplacer.h"
#include "utts/text_normalizer.h"

namespace {

constexpr size_t kTextBytes = 1 << 20;

// Sentences in the manner of news copy; {x} marks a written form to fill in.
const char *const kSentences[] = {
    "The council met on {date} to discuss the budget for the coming year.",
    "Officials said the project would cost about {money} and take {n} months.",
    "Shares of the company rose {pct} in early trading, closing at {money}.",
    "Police said the crash happened at {time} on a quiet road outside the town.",
    "The storm brought winds of {measure} and left {big} homes without power.",
    "{abbr} Smith, who has run the clinic since {year}, said demand had doubled.",
    "Residents can call {phone} for more information about the new service.",
    "She finished {ord} in the final after a difficult season.",
    "Unemployment fell to {dec} percent, the lowest level in a decade.",
    "The report, published on {mdate}, found that {pct} of schools lacked funding.",
    "Temperatures are expected to drop to {temp} overnight.",
    "The museum will reopen on {usdate} after a long renovation.",
    "Negotiators worked through the night but failed to reach an agreement.",
    "Local businesses say the new rules have made it harder to hire staff.",
    "The minister defended the decision in a statement on Tuesday evening.",
    "Critics argue that the plan does little to address the underlying problems.",
    "Supporters of the measure gathered outside the courthouse in the rain.",
    "The team is expected to announce its decision later this week.",
    "Analysts warned that prices could rise further if supply remains tight.",
    "Several witnesses described hearing a loud noise shortly before the fire.",
    "The airline said all flights would operate as normal from tomorrow.",
    "Voters in the district will go to the polls again in the spring.",
    "Engineers are still inspecting the bridge for signs of damage.",
    "The company plans to open {n} new stores and hire {big} workers.",
    "A spokesperson for the hospital declined to comment on the case.",
    "The festival drew crowds from across the region despite the weather.",
};

class Filler {
 public:
  explicit Filler(unsigned seed) : rng_(seed) {}

  std::string sentence() {
    std::string tmpl = kSentences[pick(sizeof kSentences / sizeof *kSentences)];
    std::string out;
    for (size_t i = 0; i < tmpl.size(); ++i) {
      if (tmpl[i] != '{') {
        out += tmpl[i];
        continue;
      }
      size_t close = tmpl.find('}', i);
      out += fill(tmpl.substr(i + 1, close - i - 1));
      i = close;
    }
    return out;
  }

 private:
  size_t pick(size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng_); }
  int num(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
  std::string two(int v) { return (v < 10 ? "0" : "") + std::to_string(v); }

  std::string fill(const std::string &kind) {
    static const char *const months[] = {"Jan.",  "February", "March", "April",
                                         "May",   "June",     "July",  "Aug.",
                                         "Sept.", "October",  "Nov.",  "December"};
    static const char *const titles[] = {"Dr.", "Mr.", "Mrs.", "Prof.", "Gov."};
    static const char *const units[] = {"km/h", "mph", "kg", "GB", "GHz", "km"};
    static const char *const ords[] = {"1st", "2nd", "3rd", "4th", "11th", "22nd"};
    if (kind == "n") return std::to_string(num(2, 48));
    if (kind == "big") return std::to_string(num(1, 99)) + "," + std::to_string(num(100, 999));
    if (kind == "dec") return std::to_string(num(2, 9)) + "." + std::to_string(num(0, 9));
    if (kind == "pct") return std::to_string(num(1, 60)) + "%";
    if (kind == "money")
      return "$" + std::to_string(num(1, 900)) + (num(0, 1) ? "." + two(num(0, 99)) : " million");
    if (kind == "date")
      return std::to_string(num(1990, 2030)) + "-" + two(num(1, 12)) + "-" + two(num(1, 28));
    if (kind == "usdate")
      return std::to_string(num(1, 12)) + "/" + std::to_string(num(1, 28)) + "/" +
             std::to_string(num(1990, 2030));
    if (kind == "mdate")
      return std::string(months[pick(12)]) + " " + std::to_string(num(1, 28)) + ", " +
             std::to_string(num(1990, 2030));
    if (kind == "time")
      return std::to_string(num(1, 12)) + ":" + two(num(0, 59)) + (num(0, 1) ? " pm" : "");
    if (kind == "phone")
      return "(555) " + std::to_string(num(200, 999)) + "-" + std::to_string(num(1000, 9999));
    if (kind == "measure") return std::to_string(num(5, 140)) + " " + units[pick(6)];
    if (kind == "temp")
      return "-" + std::to_string(num(1, 20)) +
             " \xC2\xB0"
             "C";
    if (kind == "ord") return ords[pick(6)];
    if (kind == "year") return std::to_string(num(1980, 2024));
    if (kind == "abbr") return titles[pick(5)];
    return kind;
  }

  std::mt19937 rng_;
};

// About 1 MB of text in paragraphs of five sentences.
const std::vector<std::string> &paragraphs() {
  static const std::vector<std::string> result = [] {
    std::vector<std::string> out;
    Filler filler(20261121);
    size_t bytes = 0;
    while (bytes < kTextBytes) {
      std::string p;
      for (int s = 0; s < 5; ++s) p += (s ? " " : "") + filler.sentence();
      bytes += p.size();
      out.push_back(p);
    }
    return out;
  }();
  return result;
}

std::string plain_text() {
  std::string text;
  for (const std::string &p : paragraphs()) text += p + "\n";
  return text;
}

std::string ssml_text() {
  std::string xml = "<speak>\n";
  for (const std::string &p : paragraphs()) xml += "<p>" + p + "</p>\n";
  return xml + "</speak>\n";
}

// The patterns of the bundled rule set, compiled as the replacer compiles them.
std::vector<std::unique_ptr<re2::RE2>> rule_patterns() {
  std::vector<std::unique_ptr<re2::RE2>> patterns;
  const std::string rules(utts::kEnglishRules, utts::kEnglishRulesSize);
  for (size_t start = 0; start < rules.size();) {
    size_t end = rules.find('\n', start);
    if (end == std::string::npos) end = rules.size();
    std::string line = rules.substr(start, end - start);
    size_t tab = line.find('\t');
    if (tab != std::string::npos && line[0] != '#')
      patterns.emplace_back(new re2::RE2(line.substr(0, tab)));
    start = end + 1;
  }
  return patterns;
}

// Finds every match of every pattern in `text`, with submatches, resuming
// after each match. Returns the number of matches.
size_t scan(const std::vector<std::unique_ptr<re2::RE2>> &patterns, const re2::StringPiece &text) {
  size_t matches = 0;
  for (const auto &re : patterns) {
    std::vector<re2::StringPiece> groups(re->NumberOfCapturingGroups() + 1);
    size_t pos = 0;
    while (pos <= text.size() && re->Match(text, pos, text.size(), re2::RE2::UNANCHORED,
                                           groups.data(), static_cast<int>(groups.size()))) {
      ++matches;
      size_t end = static_cast<size_t>(groups[0].data() - text.data()) + groups[0].size();
      pos = end > pos ? end : pos + 1;
    }
  }
  return matches;
}

HReplacer *english_replacer() {
  HReplacer *replacer = HReplacer_create();
  HReplacer_addRuleSet(replacer, utts::kEnglishRules, static_cast<int>(utts::kEnglishRulesSize));
  return replacer;
}

mxml_node_t *parse(const std::string &xml) {
  return mxmlLoadString(nullptr, xml.c_str(), MXML_OPAQUE_CALLBACK);
}

// CPU time of this thread: the ratio below should not depend on what else
// the machine runs at the same time.
double thread_seconds() {
  timespec ts;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) + ts.tv_nsec * 1e-9;
}

void BM_BareRe2Scan(benchmark::State &state) {
  const auto patterns = rule_patterns();
  const std::string text = plain_text();
  size_t matches = 0;
  for (auto _ : state) matches = scan(patterns, text);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
  state.counters["matches"] = static_cast<double>(matches);
  state.counters["rules"] = static_cast<double>(patterns.size());
}
BENCHMARK(BM_BareRe2Scan)->Unit(benchmark::kMillisecond);

void BM_HReplacerReplace(benchmark::State &state) {
  HReplacer *replacer = english_replacer();
  const std::string xml = ssml_text();
  const size_t bytes = plain_text().size();
  for (auto _ : state) {
    state.PauseTiming();
    mxml_node_t *tree = parse(xml);
    state.ResumeTiming();
    HReplacer_replace(replacer, tree);
    state.PauseTiming();
    mxmlDelete(tree);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
  HReplacer_delete(replacer);
}
BENCHMARK(BM_HReplacerReplace)->Unit(benchmark::kMillisecond);

// Both in the same iterations, timed by hand in thread CPU time, so that the
// ratio compares runs under the same conditions. The reported time is the
// replacer's.
void BM_ReplaceOverScan(benchmark::State &state) {
  HReplacer *replacer = english_replacer();
  const auto patterns = rule_patterns();
  const std::string xml = ssml_text(), text = plain_text();
  double replace_seconds = 0, scan_seconds = 0;
  for (auto _ : state) {
    double start = thread_seconds();
    benchmark::DoNotOptimize(scan(patterns, text));
    scan_seconds += thread_seconds() - start;
    mxml_node_t *tree = parse(xml);
    start = thread_seconds();
    HReplacer_replace(replacer, tree);
    double seconds = thread_seconds() - start;
    replace_seconds += seconds;
    mxmlDelete(tree);
    state.SetIterationTime(seconds);
  }
  state.counters["ratio"] = replace_seconds / scan_seconds;
  state.counters["replace_MB/s"] = state.iterations() * text.size() / replace_seconds / 1e6;
  state.counters["scan_MB/s"] = state.iterations() * text.size() / scan_seconds / 1e6;
  HReplacer_delete(replacer);
}
BENCHMARK(BM_ReplaceOverScan)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

// Replace and convert with the English readers, the whole normalisation.
void BM_NormalizeEnglish(benchmark::State &state) {
  utts::TextNormalizer normalizer;
  normalizer.add_rules(std::string(utts::kEnglishRules, utts::kEnglishRulesSize));
  const std::string xml = ssml_text();
  const size_t bytes = plain_text().size();
  for (auto _ : state) {
    state.PauseTiming();
    mxml_node_t *tree = parse(xml);
    state.ResumeTiming();
    normalizer.normalize(tree);
    state.PauseTiming();
    mxmlDelete(tree);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
}
BENCHMARK(BM_NormalizeEnglish)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
