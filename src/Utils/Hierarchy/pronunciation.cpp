// pronunciation.cpp - syllable and phone elements from pronunciation
// strings (CreatePhonemeWord) and from the names of syllable elements
// (ParseSylName). Over-long syllables and phones are refused before
// anything is added, so a refused string leaves the word as it was.
#include "Utils/Hierarchy/hierarchy_names.h"
#include "Utils/Hierarchy/phone_split.h"
#include "Utils/Markup/ssml_names.h"
#include "bsr_string.h"
#include "prosodic_hierarchy.h"
#include "ssml_tags.h"
#include "utt_walk.h"

namespace utils::hierarchy {

namespace {

constexpr bsr_wchar kSyllableBreak = u'.';

bool is_tone_digit(bsr_wchar c) { return c >= u'0' && c <= u'9'; }

// One syllable of a pronunciation string: text[begin, end), with its tone
// digit (if any) split off.
struct Syllable {
  const bsr_wchar *text;
  size_t len;      // without the tone digit
  bsr_wchar tone;  // 0 when there is none
};

Syllable syllable_of(const bsr_wchar *begin, size_t len) {
  Syllable s{begin, len, 0};
  if (is_tone_digit(begin[len - 1])) {
    s.tone = begin[len - 1];
    --s.len;
  }
  return s;
}

// Calls fn(syllable) for each non-empty syllable of `pron`, in order;
// stops and returns false as soon as fn does.
template <typename Fn>
bool each_syllable(const bsr_wchar *pron, Fn fn) {
  const bsr_wchar *begin = pron;
  for (const bsr_wchar *p = pron;; ++p) {
    if (*p != kSyllableBreak && *p != 0) continue;
    const size_t len = static_cast<size_t>(p - begin);
    if (len > 0 && !fn(begin, len)) return false;
    if (*p == 0) return true;
    begin = p + 1;
  }
}

bool fits(const bsr_wchar *begin, size_t len) {
  if (len > UTILS_PRON_SYLLABLE_MAX) return false;
  const Syllable s = syllable_of(begin, len);
  return longest_phone(s.text, s.len) <= UTILS_PRON_PHONE_MAX;
}

}  // namespace

}  // namespace utils::hierarchy

extern "C" {

UTILS_API int CreatePhonemeWord(item *word, const bsr_wchar *pron) {
  using namespace utils::hierarchy;
  if (word == nullptr || pron == nullptr || pron[0] == 0) return 0;
  if (!each_syllable(pron, fits)) return -1;
  int added = 0;
  const bool built = each_syllable(pron, [&](const bsr_wchar *begin, size_t len) {
    const Syllable s = syllable_of(begin, len);
    item *syllable = item_add_daughter(word, nullptr);
    if (syllable == nullptr) return false;
    ++added;
    item_set_wstring(syllable, utils::markup::kTagFeature, SyllableTagName());
    if (!item_feat_present(syllable, utils::markup::kTagFeature)) return false;
    if (s.tone != 0) {
      const bsr_wchar tone[2] = {s.tone, 0};
      item_set_wstring(syllable, kToneFeature, tone);
      if (!item_feat_present(syllable, kToneFeature)) return false;
    }
    return add_phones(syllable, s.text, s.len, UTILS_PRON_PHONE_MAX) >= 0;
  });
  return built ? added : -1;
}

UTILS_API int ParseSylName(item *top) {
  using namespace utils::hierarchy;
  if (top == nullptr) return 0;
  int added = 0;
  bool refused = false;
  const bsr_wchar *tag = SyllableTagName();
  for (item *s = utt_walk_next_tag(top, top, 1, tag); s != nullptr;
       s = utt_walk_next_tag(s, top, 1, tag)) {
    const bsr_wchar *name = item_feat_wstring(s, kNameFeature);
    if (name == nullptr || name[0] == 0) continue;
    const size_t len = bsr_wcslen(name);
    if (longest_phone(name, len) > UTILS_SYLNAME_PHONE_MAX) {
      refused = true;
      continue;
    }
    const int phones = add_phones(s, name, len, UTILS_SYLNAME_PHONE_MAX);
    if (phones < 0) return -1;
    added += phones;
  }
  return refused ? -1 : added;
}

}  // extern "C"
