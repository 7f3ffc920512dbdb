// bench_ssml.cpp - loading and saving a 100 KB SSML document: Mini-XML's own
// parse, the time our conversion into an utterance adds to it, saving and
// converting back, and libxml2 on the same document for reference.
#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <mxml.h>
#include <stdio.h>
#include <time.h>
#include <unistd.h>

#include <string>

#include "ssml_io.h"
#include "utterance.h"

// This program links Mini-XML's static archive for timing the bare parse, and
// libUtils holds its own hidden copy of the same archive. Both copies come
// from one Mini-XML build, so their nodes have one layout: a tree parsed by
// this program's copy may be read by utt_load_xml, and a tree from
// utt_to_xml released by either copy's mxmlRelease (this program's own
// definition of mxmlRelease takes precedence over the one libUtils exports).

namespace {

// One paragraph in the style of the SSML examples: sentences with say-as,
// sub, prosody, break, emphasis, mark, entity references, accented Latin
// and Chinese text, indented as people write it.
std::string paragraph(int n) {
  std::string id = std::to_string(n);
  return "  <p xml:lang=\"en-US\">\n"
         "    <s>On <say-as interpret-as=\"date\" format=\"mdy\">10/19/2010</say-as> the\n"
         "       <sub alias=\"World Wide Web Consortium\">W3C</sub> published version 1." +
         id +
         ".</s>\n"
         "    <s>Prices rose by <prosody rate=\"slow\" volume=\"loud\">3.5 %</prosody> &amp; fell\n"
         "       again.<break time=\"300ms\"/> Item <say-as interpret-as=\"cardinal\">" +
         id +
         "</say-as>.</s>\n"
         "    <s "
         "xml:lang=\"zh-CN\">"
         "\xE4\xBB\x8A\xE5\xA4\xA9\xE5\xA4\xA9\xE6\xB0\x94\xE5\xBE\x88\xE5\xA5\xBD"
         "\xEF\xBC\x8C\xE6\x88\x91\xE4\xBB\xAC\xE5\x8E\xBB\xE5\x85\xAC\xE5\x9B\xAD\xE6\x95\xA3\xE6"
         "\xAD\xA5"
         "\xE3\x80\x82</s>\n"
         "    <s>Caf\xC3\xA9 cr\xC3\xA8me \xC3\xA0 la fran\xC3\xA7"
         "aise, <emphasis level=\"strong\">s'il vous "
         "pla\xC3\xAEt</emphasis>.<mark name=\"m" +
         id +
         "\"/></s>\n"
         "  </p>\n";
}

const std::string &document() {
  static const std::string doc = [] {
    std::string d =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<speak version=\"1.1\" xmlns=\"http://www.w3.org/2001/10/synthesis\" "
        "xml:lang=\"en-US\">\n";
    for (int n = 0; d.size() < 100 * 1024; ++n) d += paragraph(n);
    return d + "</speak>\n";
  }();
  return doc;
}

void count_document(benchmark::State &state) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(document().size()));
  state.counters["doc_bytes"] = static_cast<double>(document().size());
}

// What utt_load_ssml asks of Mini-XML: parse to an opaque-text tree, and
// delete the tree afterwards.
void BM_MiniXml_Parse(benchmark::State &state) {
  for (auto _ : state) {
    mxml_node_t *tree = mxmlLoadString(nullptr, document().c_str(), MXML_OPAQUE_CALLBACK);
    benchmark::DoNotOptimize(tree);
    mxmlDelete(tree);
  }
  count_document(state);
}
BENCHMARK(BM_MiniXml_Parse)->Unit(benchmark::kMicrosecond);

// The conversion alone: an already parsed tree into a fresh utterance.
void BM_Utt_ConvertTree(benchmark::State &state) {
  mxml_node_t *tree = mxmlLoadString(nullptr, document().c_str(), MXML_OPAQUE_CALLBACK);
  for (auto _ : state) {
    state.PauseTiming();
    utterance *u = new_utterance();
    state.ResumeTiming();
    utt_load_xml(u, tree);
    state.PauseTiming();
    delete_utterance(u);
    state.ResumeTiming();
  }
  mxmlDelete(tree);
  count_document(state);
}
BENCHMARK(BM_Utt_ConvertTree)->Unit(benchmark::kMicrosecond);

// Parse and conversion together, as a caller sees utt_load_ssml.
void BM_Utt_LoadSsml(benchmark::State &state) {
  for (auto _ : state) {
    state.PauseTiming();
    utterance *u = new_utterance();
    state.ResumeTiming();
    benchmark::DoNotOptimize(utt_load_ssml(u, document().c_str()));
    state.PauseTiming();
    delete_utterance(u);
    state.ResumeTiming();
  }
  count_document(state);
}
BENCHMARK(BM_Utt_LoadSsml)->Unit(benchmark::kMicrosecond);

// The peer a user would otherwise pick: libxml2 parsing the same bytes.
void BM_LibXml2_ReadMemory(benchmark::State &state) {
  const std::string &doc = document();
  for (auto _ : state) {
    xmlDocPtr parsed = xmlReadMemory(doc.data(), static_cast<int>(doc.size()), "bench.ssml",
                                     nullptr, XML_PARSE_NONET);
    benchmark::DoNotOptimize(parsed);
    xmlFreeDoc(parsed);
  }
  count_document(state);
}
BENCHMARK(BM_LibXml2_ReadMemory)->Unit(benchmark::kMicrosecond);

double thread_cpu_us() {
  timespec t;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

// Rebuilds the shape of `from` under `to` with the model's calls alone: one
// item per item and the same features, storing the very same values (no
// text conversion, no string copies). This is what any loader must at least
// pay the utterance model for the tree.
void copy_shape(item *from, item *to) {
  for (feature_pair *p = item_feats(from)->head; p != nullptr; p = p->next)
    item_set(to, p->name, p->value);
  item *last = nullptr;
  for (item *d = item_daughter(from); d != nullptr; d = item_next(d)) {
    last = last != nullptr ? item_append(last, nullptr) : item_add_daughter(to, nullptr);
    copy_shape(d, last);
  }
}

// The same steps in one loop, each timed on the thread's CPU clock, so that
// the ratios hold even on a busy machine: Mini-XML parses and later releases
// its tree (as utt_load_ssml has it do), our conversion runs in between, and
// libxml2 parses the same bytes.
void BM_LoadBreakdown(benchmark::State &state) {
  const std::string &doc = document();
  double parse = 0, convert = 0, libxml2 = 0, floor = 0;
  utterance *model = new_utterance();
  utt_load_ssml(model, doc.c_str());
  item *model_root = relation_head(utt_relation(model, "ssml"));
  for (auto _ : state) {
    utterance *u = new_utterance();
    double t0 = thread_cpu_us();
    mxml_node_t *tree = mxmlLoadString(nullptr, doc.c_str(), MXML_OPAQUE_CALLBACK);
    double t1 = thread_cpu_us();
    utt_load_xml(u, tree);
    double t2 = thread_cpu_us();
    mxmlDelete(tree);
    double t3 = thread_cpu_us();
    xmlDocPtr parsed = xmlReadMemory(doc.data(), static_cast<int>(doc.size()), "bench.ssml",
                                     nullptr, XML_PARSE_NONET);
    xmlFreeDoc(parsed);
    double t4 = thread_cpu_us();
    delete_utterance(u);
    utterance *shape = new_utterance();
    double t5 = thread_cpu_us();
    copy_shape(model_root, relation_append(utt_relation_create(shape, "ssml"), nullptr));
    floor += thread_cpu_us() - t5;
    delete_utterance(shape);
    parse += (t1 - t0) + (t3 - t2);
    convert += t2 - t1;
    libxml2 += t4 - t3;
  }
  delete_utterance(model);
  double n = static_cast<double>(state.iterations());
  state.counters["model_floor_us"] = floor / n;
  state.counters["minixml_us"] = parse / n;
  state.counters["convert_us"] = convert / n;
  state.counters["libxml2_us"] = libxml2 / n;
  state.counters["convert_per_parse"] = convert / parse;
  state.counters["load_per_libxml2"] = (parse + convert) / libxml2;
  state.counters["minixml_per_libxml2"] = parse / libxml2;
}
BENCHMARK(BM_LoadBreakdown)->Unit(benchmark::kMicrosecond);

std::string temp_path() {
  char name[] = "/tmp/bench_ssml_XXXXXX";
  int fd = mkstemp(name);
  if (fd >= 0) close(fd);
  return name;
}

void BM_Utt_SaveSsml(benchmark::State &state) {
  utterance *u = new_utterance();
  utt_load_ssml(u, document().c_str());
  std::string path = temp_path();
  for (auto _ : state) benchmark::DoNotOptimize(utt_save_ssml(u, path.c_str()));
  unlink(path.c_str());
  delete_utterance(u);
  count_document(state);
}
BENCHMARK(BM_Utt_SaveSsml)->Unit(benchmark::kMicrosecond);

void BM_LibXml2_SaveFile(benchmark::State &state) {
  const std::string &doc = document();
  xmlDocPtr parsed = xmlReadMemory(doc.data(), static_cast<int>(doc.size()), "bench.ssml", nullptr,
                                   XML_PARSE_NONET);
  std::string path = temp_path();
  for (auto _ : state) benchmark::DoNotOptimize(xmlSaveFile(path.c_str(), parsed));
  unlink(path.c_str());
  xmlFreeDoc(parsed);
  count_document(state);
}
BENCHMARK(BM_LibXml2_SaveFile)->Unit(benchmark::kMicrosecond);

void BM_Utt_ToXml(benchmark::State &state) {
  utterance *u = new_utterance();
  utt_load_ssml(u, document().c_str());
  for (auto _ : state) mxmlRelease(utt_to_xml(u));
  delete_utterance(u);
  count_document(state);
}
BENCHMARK(BM_Utt_ToXml)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
