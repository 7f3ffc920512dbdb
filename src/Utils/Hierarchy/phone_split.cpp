// phone_split.cpp - phones of a syllable's text, named and added as "phone"
// elements. Names are terminated in a stack buffer, never on the heap.
#include "Utils/Hierarchy/phone_split.h"

#include "Utils/Markup/ssml_names.h"
#include "Utils/Phonetics/ipa_inventory.h"
#include "ssml_tags.h"
#include "utterance.h"

namespace utils::hierarchy {

namespace {

// Room for the longest phone either caller allows, and its terminator.
constexpr size_t kPhoneRoom = 32;

}  // namespace

size_t phone_end(const bsr_wchar *text, size_t start, size_t len) {
  size_t end = start + 1;
  while (end < len && utils::phonetics::ipa_row(text[end]) == nullptr) ++end;
  return end;
}

size_t longest_phone(const bsr_wchar *text, size_t len) {
  size_t longest = 0;
  for (size_t start = 0; start < len;) {
    const size_t end = phone_end(text, start, len);
    if (end - start > longest) longest = end - start;
    start = end;
  }
  return longest;
}

int add_phones(item *syllable, const bsr_wchar *text, size_t len, size_t max_phone) {
  if (max_phone >= kPhoneRoom) max_phone = kPhoneRoom - 1;
  bsr_wchar name[kPhoneRoom];
  int added = 0;
  for (size_t start = 0; start < len;) {
    const size_t end = phone_end(text, start, len);
    if (end - start > max_phone) return -1;
    for (size_t k = start; k < end; ++k) name[k - start] = text[k];
    name[end - start] = 0;
    item *phone = item_add_daughter(syllable, nullptr);
    if (phone == nullptr) return -1;
    ++added;
    item_set_wstring(phone, utils::markup::kTagFeature, PhoneTagName());
    item_set_wstring(phone, utils::markup::kNameFeature, name);
    // Setting a feature reports exhausted memory only by its absence.
    if (!item_feat_present(phone, utils::markup::kTagFeature) ||
        !item_feat_present(phone, utils::markup::kNameFeature)) {
      return -1;
    }
    start = end;
  }
  return added;
}

}  // namespace utils::hierarchy
