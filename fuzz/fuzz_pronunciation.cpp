// fuzz_pronunciation.cpp - fuzzes the outside input of the hierarchy and
// label code: a pronunciation string (UTF-16, from the first part of the
// input) given to a word, the same text as a syllable name, and a feature
// path (the rest of the input) read from every phone of both phrase builds.
// A taken pronunciation must come back phone by phone; a refused one must
// leave the word untouched; labels must stay inside their buffer.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "context_label.h"
#include "prosodic_hierarchy.h"
#include "utterance.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

std::u16string units_of(const uint8_t *data, size_t size) {
  std::u16string out;
  for (size_t k = 0; k + 1 < size; k += 2) {
    const char16_t unit = static_cast<char16_t>(data[k] | data[k + 1] << 8);
    if (unit == 0) break;
    out += unit;
  }
  return out;
}

std::u16string text_of(const item *i) {
  const bsr_wchar *s = item_feat_wstring(i, "name");
  return s != nullptr ? std::u16string(s) : std::u16string();
}

// The syllables of `pron` as CreatePhonemeWord reads them, tones removed.
std::u16string expected_phones(const std::u16string &pron) {
  std::u16string out, syllable;
  for (size_t k = 0; k <= pron.size(); ++k) {
    if (k < pron.size() && pron[k] != u'.') {
      syllable += pron[k];
      continue;
    }
    if (!syllable.empty() && syllable.back() >= u'0' && syllable.back() <= u'9')
      syllable.pop_back();
    out += syllable;
    syllable.clear();
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 1) return 0;
  const size_t split = 1 + std::min<size_t>(size - 1, static_cast<size_t>(data[0]) * 2);
  const std::u16string pron = units_of(data + 1, split - 1);
  const std::string path(reinterpret_cast<const char *>(data + split), size - split);

  utterance *u = new_utterance();
  relation *ssml = utt_relation_create(u, "ssml");
  item *root = relation_append(ssml, nullptr);
  item_set_wstring(root, "tag", u"speak");
  item_set_wstring(root, "xml:lang", u"x");
  item *word = item_add_daughter(root, nullptr);
  item_set_wstring(word, "tag", u"word");
  item *named = item_add_daughter(root, nullptr);
  item_set_wstring(named, "tag", u"word");
  item_set_wstring(named, "xml:lang", u"y");
  item *syllable = item_add_daughter(named, nullptr);
  item_set_wstring(syllable, "tag", u"syllable");
  item_set_wstring(syllable, "name", pron.c_str());

  const int syllables = CreatePhonemeWord(word, pron.c_str());
  if (syllables <= 0) {
    check(item_daughter(word) == nullptr);
  } else {
    std::u16string phones;
    int counted = 0;
    for (item *s = item_daughter(word); s != nullptr; s = item_next(s), ++counted) {
      for (item *p = item_daughter(s); p != nullptr; p = item_next(p)) {
        const std::u16string phone = text_of(p);
        check(!phone.empty() && phone.size() <= UTILS_PRON_PHONE_MAX);
        phones += phone;
      }
    }
    check(counted == syllables);
    check(phones == expected_phones(pron));
  }
  const int named_phones = ParseSylName(named);
  check(named_phones == -1 || named_phones <= static_cast<int>(pron.size()));

  feat_set(u->features, "focus", item_val(root));
  FocusPhraseCreate(u);
  feat_set(u->features, "focus_phrase", item_val(relation_head(utt_relation(u, "focus_phrase"))));
  const char *names[] = {path.c_str(), "name", "R:Phrase.parent.PositionBW2", "p.pho-pos"};
  const char *prefixes[] = {"<", "|", "|", "|"};
  const char *suffixes[] = {">", "", "", ""};
  for (const char16_t *lang : {u"x", u"y"}) {
    PhraseCreate(u, lang);
    for (item *p = relation_head(utt_relation(u, "Phone")); p != nullptr; p = item_next(p)) {
      check(GetFeature(p, path.c_str()) != nullptr);
      // The documented bound: prefixes and suffixes, 127 bytes a field, the
      // terminator; the guard bytes after it stay untouched.
      constexpr size_t kBound = 4 + 4 * UTILS_LABEL_VALUE_MAX + 1;
      char label[kBound + 8];
      std::memset(label, 0x7F, sizeof label);
      check(MakeFeatureLabel(p, names, prefixes, suffixes, 4, label) == 0);
      check(std::strlen(label) < kBound);
      for (size_t k = kBound; k < sizeof label; ++k) check(label[k] == 0x7F);
    }
  }
  delete_utterance(u);
  return 0;
}
