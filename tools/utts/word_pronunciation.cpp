// word_pronunciation.cpp - syllables and phones for the words.
#include "utts/word_pronunciation.h"

#include "prosodic_hierarchy.h"
#include "ssml_tags.h"
#include "utt_walk.h"
#include "utts/mandarin_pronunciation.h"

namespace utts {

bool is_mandarin(const std::u16string &lang) {
  auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c - u'A' + u'a') : c; };
  size_t n = 0;
  while (n < lang.size() && lang[n] != u'-' && lang[n] != u'_') ++n;
  std::u16string primary;
  for (size_t k = 0; k < n; ++k) primary += lower(lang[k]);
  return primary == u"zh" || primary == u"cmn";
}

std::u16string mandarin_word_pronunciation(const std::u16string &word) {
  // Digits left by normalisation are read one by one, as codes are.
  static const char16_t kNumerals[] = u"零一二三四五六七八九";
  std::u16string han;
  for (char16_t c : word) {
    if (c >= u'0' && c <= u'9')
      han += kNumerals[c - u'0'];
    else if (c >= u'\uFF10' && c <= u'\uFF19')
      han += kNumerals[c - u'\uFF10'];
    else
      han += c;
  }
  std::u16string pron;
  if (!mandarin::han_word_pronunciation(han.c_str(), han.size(), pron)) return u"";
  return pron;
}

PronunciationCount pronounce_words(item *root) {
  PronunciationCount count;
  const bsr_wchar *word_tag = WordTagName();
  for (item *w = utt_walk_next_tag(root, root, 1, word_tag); w != nullptr;
       w = utt_walk_next_tag(w, root, 1, word_tag)) {
    const bsr_wchar *lang = GetInheritAtt(w, "xml:lang");
    if (lang == nullptr || !is_mandarin(lang)) {
      ++count.other;
      continue;
    }
    const bsr_wchar *name = item_feat_wstring(w, "name");
    const std::u16string pron = mandarin_word_pronunciation(name != nullptr ? name : u"");
    if (pron.empty() || CreatePhonemeWord(w, pron.c_str()) <= 0) {
      ++count.unknown;
      continue;
    }
    item_set_wstring(w, "ph", pron.c_str());
    ++count.pronounced;
  }
  return count;
}

}  // namespace utts
