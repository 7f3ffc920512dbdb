// bench_unicode.cpp - UTF-8 <-> UTF-16 conversion speed of libUtils beside
// ICU's u_strFromUTF8 and u_strToUTF8, on four generated texts of about 64 KB
// each.
//
// Both directions count the UTF-8 size of the text as the bytes processed, so
// the figures of the two directions compare. After the runs a table gives
// bytes per second for both libraries and the ratio libUtils / ICU.
#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "bench_runner.h"
#include "bsr_unicode.h"

namespace {

constexpr size_t kTextBytes = 64 * 1024;

// ---- Generated texts ------------------------------------------------------

const std::vector<std::string> kEnglish = {
    "the",     "of",      "and",       "to",       "in",        "is",      "that",    "for",
    "it",      "as",      "was",       "with",     "be",        "by",      "on",      "not",
    "he",      "this",    "are",       "or",       "his",       "from",    "at",      "which",
    "but",     "have",    "an",        "had",      "they",      "you",     "were",    "their",
    "one",     "all",     "we",        "can",      "her",       "has",     "there",   "been",
    "speech",  "voice",   "sentence",  "reading",  "language",  "sound",   "morning", "station",
    "weather", "towards", "important", "question", "synthesis", "engine",  "model",   "phrase",
    "quickly", "number",  "people",    "between",  "through",   "another", "without", "evening"};

const std::vector<std::string> kAccented = {
    "le",       "la",      "de",      "et",      "une",    "que",     "und",        "der",
    "die",      "el",      "los",     "para",    "com",    "uma",     "été",        "façade",
    "garçon",   "élève",   "naïve",   "über",    "straße", "mañana",  "coração",    "São",
    "Ångström", "øre",     "crème",   "brûlée",  "déjà",   "où",      "très",       "français",
    "Künstler", "Größe",   "señor",   "pequeño", "ação",   "não",     "informação", "année",
    "fenêtre",  "hôpital", "château", "cœur",    "être",   "Mädchen", "schön",      "Tür",
    "año",      "canción", "niño",    "música",  "café",   "città",   "perché",     "più",
    "także",    "żółw",    "český",   "příliš",  "Ærø",    "fjørd",   "Zürich"};

// Common Chinese words; the punctuation is added by the sentence maker.
const std::vector<std::string> kChinese = {
    "我们", "中国", "语音", "合成", "系统", "文本", "处理", "的",   "是",   "在",   "有",   "和",
    "这个", "一个", "今天", "天气", "非常", "好",   "北京", "上海", "时间", "问题", "发展", "经济",
    "社会", "人民", "工作", "学习", "研究", "技术", "计算", "机器", "声音", "朗读", "句子", "词语",
    "音节", "声调", "重音", "停顿", "可以", "需要", "已经", "因为", "所以", "但是", "如果", "虽然",
    "还是", "就是", "世界", "国家", "城市", "地方", "朋友", "家庭", "学校", "老师", "学生", "电话"};

// Emoji (four bytes in UTF-8, a surrogate pair in UTF-16) and a few
// three-byte symbols that often go with them.
const std::vector<std::string> kEmoji = {"😀", "😂", "😍", "🙏", "👍", "🎉", "🔥", "🚀",
                                         "🌍", "🍕", "🐱", "💡", "❤", "✨", "☕", "✔"};

// Deterministic word picker.
class WordSource {
 public:
  explicit WordSource(uint32_t seed) : gen_(seed) {}
  const std::string &pick(const std::vector<std::string> &words) {
    return words[std::uniform_int_distribution<size_t>(0, words.size() - 1)(gen_)];
  }
  uint32_t below(uint32_t n) { return std::uniform_int_distribution<uint32_t>(0, n - 1)(gen_); }

 private:
  std::mt19937 gen_;
};

// Sentences of 6 to 17 words until the text reaches the target size.
template <typename NextWord>
std::string make_text(WordSource &src, const char *space, const char *comma, const char *stop,
                      NextWord next_word) {
  std::string text;
  while (text.size() < kTextBytes) {
    const uint32_t words = 6 + src.below(12);
    for (uint32_t w = 0; w < words; ++w) {
      text += next_word();
      if (w + 1 < words) text += (src.below(8) == 0) ? comma : space;
    }
    text += stop;
    text += (src.below(5) == 0) ? "\n" : space;
  }
  return text;
}

std::string english_text() {
  WordSource src(1);
  return make_text(src, " ", ", ", ".", [&] { return src.pick(kEnglish); });
}

std::string accented_text() {
  WordSource src(2);
  return make_text(src, " ", ", ", ".", [&] { return src.pick(kAccented); });
}

std::string chinese_text() {
  WordSource src(3);
  return make_text(src, "", "，", "。", [&] { return src.pick(kChinese); });
}

std::string mixed_text() {
  WordSource src(4);
  return make_text(src, " ", ", ", ".", [&]() -> std::string {
    switch (src.below(10)) {
      case 0:
      case 1:
      case 2:
        return src.pick(kEnglish);
      case 3:
      case 4:
        return src.pick(kAccented);
      case 5:
      case 6:
      case 7:
        return src.pick(kChinese);
      default:
        return src.pick(kEmoji);
    }
  });
}

// Code-switched text as Chinese-English messages have it: the script
// changes every one to four characters (short ASCII words, single Chinese
// characters, accented letters, emoji), with no long run of any kind.
std::string switching_text() {
  static const std::vector<std::string> ascii = {"a", "to", "OK", "is", "3", "AI", "go", "x1"};
  static const std::vector<std::string> accented = {"\xC3\xA9",
                                                    "\xC3\xB1",
                                                    "\xC3\xBC",
                                                    "\xC3\xA7"
                                                    "a",
                                                    "\xC3\xA0",
                                                    "\xC3\xB8"};
  WordSource src(5);
  std::string text;
  while (text.size() < kTextBytes) {
    switch (src.below(5)) {
      case 0:
        text += src.pick(ascii);
        break;
      case 1:
        text += src.pick(kChinese).substr(0, 3);  // one character
        break;
      case 2:
        text += src.pick(accented);
        break;
      case 3:
        text += src.pick(kEmoji);
        break;
      default:
        text += src.below(2) == 0 ? " " : ",";
        break;
    }
  }
  return text;
}

struct Text {
  std::string name;
  std::string utf8;
  std::vector<UChar> utf16;  // UChar and bsr_wchar are both char16_t
};

// Builds a text and checks, before any timing, that libUtils and ICU
// convert it to the same thing in both directions.
Text prepare(const std::string &name, std::string utf8) {
  Text t{name, std::move(utf8), {}};
  UErrorCode err = U_ZERO_ERROR;
  int32_t length = 0;
  t.utf16.resize(t.utf8.size() + 1);
  u_strFromUTF8(t.utf16.data(), static_cast<int32_t>(t.utf16.size()), &length, t.utf8.data(),
                static_cast<int32_t>(t.utf8.size()), &err);
  if (U_FAILURE(err)) std::abort();
  t.utf16.resize(static_cast<size_t>(length));

  std::vector<bsr_wchar> wide(t.utf16.size() + 1);
  bsr_UTF8ToUTF16(t.utf8.data(), static_cast<uint32_t>(t.utf8.size()), wide.data(),
                  static_cast<uint32_t>(wide.size()));
  std::vector<char> narrow(t.utf8.size() + 1);
  bsr_UTF16ToUTF8(t.utf16.data(), static_cast<uint32_t>(t.utf16.size()), narrow.data(),
                  static_cast<uint32_t>(narrow.size()));
  if (std::memcmp(wide.data(), t.utf16.data(), t.utf16.size() * 2) != 0 ||
      std::memcmp(narrow.data(), t.utf8.data(), t.utf8.size()) != 0) {
    std::fprintf(stderr, "libUtils and ICU disagree on the %s text\n", name.c_str());
    std::abort();
  }
  return t;
}

// ---- Timed loops ----------------------------------------------------------

void utils_from_utf8(benchmark::State &state, const Text *t) {
  std::vector<bsr_wchar> out(t->utf16.size() + 1);
  for (auto _ : state) {
    bsr_UTF8ToUTF16(t->utf8.data(), static_cast<uint32_t>(t->utf8.size()), out.data(),
                    static_cast<uint32_t>(out.size()));
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * t->utf8.size()));
}

void icu_from_utf8(benchmark::State &state, const Text *t) {
  std::vector<UChar> out(t->utf16.size() + 1);
  for (auto _ : state) {
    UErrorCode err = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(out.data(), static_cast<int32_t>(out.size()), &length, t->utf8.data(),
                  static_cast<int32_t>(t->utf8.size()), &err);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * t->utf8.size()));
}

void utils_to_utf8(benchmark::State &state, const Text *t) {
  std::vector<char> out(t->utf8.size() + 1);
  for (auto _ : state) {
    bsr_UTF16ToUTF8(t->utf16.data(), static_cast<uint32_t>(t->utf16.size()), out.data(),
                    static_cast<uint32_t>(out.size()));
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * t->utf8.size()));
}

void icu_to_utf8(benchmark::State &state, const Text *t) {
  std::vector<char> out(t->utf8.size() + 1);
  for (auto _ : state) {
    UErrorCode err = U_ZERO_ERROR;
    int32_t length = 0;
    u_strToUTF8(out.data(), static_cast<int32_t>(out.size()), &length, t->utf16.data(),
                static_cast<int32_t>(t->utf16.size()), &err);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * t->utf8.size()));
}

// ---- Ratio table ----------------------------------------------------------

// Console output as usual, plus a closing table of libUtils against ICU for
// each direction and text. Benchmark names are "<direction>/<text>/<library>".
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(OutputOptions opts) : ConsoleReporter(opts) {}

  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      auto it = run.counters.find("bytes_per_second");
      if (it == run.counters.end()) continue;
      Sample &s = samples_[run.run_name.function_name];
      s.total += it->second.value;
      s.count += 1;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    std::FILE *out = stdout;
    std::fprintf(out, "\n%-22s %14s %14s %8s\n", "direction/text", "libUtils MB/s", "ICU MB/s",
                 "ratio");
    for (const auto &entry : samples_) {
      const std::string &name = entry.first;
      const std::string suffix = "/Utils";
      if (name.size() <= suffix.size() ||
          name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
        continue;
      const std::string key = name.substr(0, name.size() - suffix.size());
      auto icu = samples_.find(key + "/ICU");
      if (icu == samples_.end()) continue;
      const double ours = entry.second.mean(), theirs = icu->second.mean();
      std::fprintf(out, "%-22s %14.0f %14.0f %8.2f\n", key.c_str(), ours / 1e6, theirs / 1e6,
                   ours / theirs);
    }
  }

 private:
  struct Sample {
    double total = 0;
    int count = 0;
    double mean() const { return count ? total / count : 0; }
  };
  std::map<std::string, Sample> samples_;
};

}  // namespace

int main(int argc, char **argv) {
  static const std::vector<Text> texts = {
      prepare("ascii", english_text()), prepare("latin", accented_text()),
      prepare("chinese", chinese_text()), prepare("mixed", mixed_text()),
      prepare("switching", switching_text())};
  for (const Text &t : texts) {
    benchmark::RegisterBenchmark(("UTF8ToUTF16/" + t.name + "/Utils").c_str(), utils_from_utf8, &t);
    benchmark::RegisterBenchmark(("UTF8ToUTF16/" + t.name + "/ICU").c_str(), icu_from_utf8, &t);
    benchmark::RegisterBenchmark(("UTF16ToUTF8/" + t.name + "/Utils").c_str(), utils_to_utf8, &t);
    benchmark::RegisterBenchmark(("UTF16ToUTF8/" + t.name + "/ICU").c_str(), icu_to_utf8, &t);
  }
  return bench::run_benchmarks<RatioReporter>(argc, argv);
}
