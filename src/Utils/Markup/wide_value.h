// wide_value.h - the wide-string value that loading makes for each element
// name, attribute value and text run of a document.
#ifndef UTILS_MARKUP_WIDE_VALUE_H
#define UTILS_MARKUP_WIDE_VALUE_H

#include "utt_val.h"

namespace utils::markup {

// A fresh wide-string value (count 0) holding `utf8` converted to UTF-16,
// with a blank before it when `lead_blank`; the conversion stops at an
// ill-formed sequence. Every call makes a value of its own, so that no two
// items share one: a caller may count references or edit one item's text
// in place without touching another's. Null when memory runs out.
val *make_wide_value(const char *utf8, bool lead_blank);

}  // namespace utils::markup

#endif  // UTILS_MARKUP_WIDE_VALUE_H
