// field_text.h - the pieces of one label field: which field a pattern asks
// about, and the printed value of a feature on an item.
#ifndef UTILS_NLP_DTREE_FIELD_TEXT_H
#define UTILS_NLP_DTREE_FIELD_TEXT_H

#include <cstddef>

#include "utterance.h"

namespace utils::dtree {

// Room for a printed value: at most 127 bytes of UTF-8 or an integer, and
// the terminator.
constexpr size_t kValueBytes = 128;

// The first field whose prefix begins with "[" and starts `pattern` (its
// leading "*" skipped), or `count` when there is none.
int field_of_pattern(const char *pattern, const char *const *prefixes, int count);

// Writes into `value` (kValueBytes) the feature `name` of `i` as a label
// prints it: "0" for the name "0" (or null) without evaluating anything, an
// integer in decimal, a wide string as UTF-8, any other value as nothing.
// Returns its length.
size_t field_value(const item *i, const char *name, char *value);

}  // namespace utils::dtree

#endif  // UTILS_NLP_DTREE_FIELD_TEXT_H
