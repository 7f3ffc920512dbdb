// phone_split.h - cutting a syllable's text into phones: a phone begins at
// every symbol of the IPA inventory, and whatever the inventory does not
// know (length marks, diacritics) stays with the phone before it.
#ifndef UTILS_HIERARCHY_PHONE_SPLIT_H
#define UTILS_HIERARCHY_PHONE_SPLIT_H

#include <cstddef>

#include "utterance.h"

namespace utils::hierarchy {

// The end of the phone that starts at text[start] (start < len): the next
// inventory symbol after it, or len. Characters before the first inventory
// symbol of a text thus form a phone of their own.
size_t phone_end(const bsr_wchar *text, size_t start, size_t len);

// The length of the longest phone of text[0, len); 0 for an empty text.
size_t longest_phone(const bsr_wchar *text, size_t len);

// Adds text[0, len) as "phone" elements under `syllable`, each named by its
// text. Returns the number added, or -1 when an item could not be made or a
// phone exceeds `max_phone` characters (callers check that first).
int add_phones(item *syllable, const bsr_wchar *text, size_t len, size_t max_phone);

}  // namespace utils::hierarchy

#endif  // UTILS_HIERARCHY_PHONE_SPLIT_H
