// fuzz_mandarin.cpp - fuzzes the Mandarin pack of utts: the input is text
// normalised with the bundled Chinese rules and readers, handed to every
// reader and to the say-as reader on its own, read as pinyin, and, taken as
// UTF-16 units, split into runs whose Han runs get pronunciations.
#include <mxml.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "bsr_cstr.h"
#include "guarded_input.h"
#include "hconverter.h"
#include "hreplacer.h"
#include "utts/chinese_readers.h"
#include "utts/mandarin_pronunciation.h"

namespace {

struct Pack {
  HReplacer *replacer = HReplacer_create();
  HConverter *converter = HConverter_create();
  Pack() {
    HReplacer_addRuleSet(replacer, utts::kChineseRules, static_cast<int>(utts::kChineseRulesSize));
    utts::chinese::add_readers(converter);
  }
};

using Reader = bool (*)(const std::string &, std::string &);
const Reader kReaders[] = {
    utts::chinese::read_cardinal,
    utts::chinese::read_count,
    utts::chinese::read_ordinal,
    utts::chinese::read_digits,
    utts::chinese::read_code,
    utts::chinese::read_telephone,
    utts::chinese::read_year,
    utts::chinese::read_date,
    utts::chinese::read_time,
    utts::chinese::read_clock,
    utts::chinese::read_money,
    utts::chinese::read_amount,
    utts::chinese::read_percent,
    utts::chinese::read_percent_bare,
    utts::chinese::read_fraction,
    utts::chinese::read_temperature,
    utts::chinese::read_temperature_bare,
    utts::chinese::read_measure,
};

const char *const kSayAs[] = {"cardinal", "ordinal", "digits",   "telephone", "characters",
                              "date",     "time",    "currency", "percent",   "number"};

void normalise(const char *text) {
  static Pack pack;
  mxml_node_t *speak = mxmlNewElement(MXML_NO_PARENT, "speak");
  mxmlNewOpaque(speak, text);
  HReplacer_replace(pack.replacer, speak);
  HConverter_convert(pack.converter, speak);
  if (char *saved = mxmlSaveAllocString(speak, MXML_NO_CALLBACK); saved != nullptr)
    std::free(saved);
  mxmlDelete(speak);
}

void read_runs(const uint8_t *data, size_t size) {
  const size_t units = size / 2;
  // The units end exactly where the guard page begins.
  const auto *text =
      reinterpret_cast<const bsr_wchar *>(fuzz::guarded_bytes(data, units * sizeof(bsr_wchar), 1));
  utts::mandarin::TextRun run{};
  for (size_t at = 0; utts::mandarin::next_run(text, units, at, run); at = run.end) {
    if (run.begin != at || run.end <= at || run.end > units) std::abort();
    if (run.kind != utts::mandarin::RunKind::kHan) continue;
    std::u16string pronunciation;
    size_t failed_at = 0;
    if (!utts::mandarin::han_word_pronunciation(text + run.begin, run.end - run.begin,
                                                pronunciation, &failed_at) &&
        failed_at >= run.end - run.begin)
      std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > 1 << 14) return 0;
  const char *text = fuzz::guarded_c_string(data, size);
  normalise(text);
  const std::string written(text);
  for (Reader read : kReaders) {
    std::string out;
    read(written, out);
  }
  for (const char *kind : kSayAs) {
    CStr *out = CStrCreate(16);
    utts::chinese::read_say_as(text, out, kind, size > 0 && data[0] % 2 ? "dmy" : nullptr, nullptr);
    CStrDestroy(out);
  }
  std::u16string pronunciation;
  utts::mandarin::pinyin_word_pronunciation(written, pronunciation);
  read_runs(data, size);
  return 0;
}
