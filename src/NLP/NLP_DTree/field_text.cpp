// field_text.cpp - the field a pattern asks about and the printed value of
// a feature, shared by MakeFeatureLabel2 and the tree lookup.
#include "NLP/NLP_DTree/field_text.h"

#include <cstring>

#include "Utils/Model/val_cell.h"
#include "bsr_unicode.h"
#include "context_label.h"

namespace utils::dtree {

int field_of_pattern(const char *pattern, const char *const *prefixes, int count) {
  const char *asked = pattern[0] == '*' ? pattern + 1 : pattern;
  for (int j = 0; j < count; ++j) {
    const char *prefix = prefixes[j];
    if (prefix == nullptr || prefix[0] != '[') continue;
    size_t k = 0;
    while (prefix[k] != '\0' && prefix[k] == asked[k]) ++k;
    if (prefix[k] == '\0') return j;
  }
  return count;
}

size_t field_value(const item *i, const char *name, char *value) {
  value[0] = '\0';
  if (name == nullptr || (name[0] == '0' && name[1] == '\0')) {
    value[0] = '0';
    value[1] = '\0';
    return 1;
  }
  const val *v = GetFeature(i, name);
  if (utils::model::cell_is_atom_of(v, utils::model::kValInt)) {
    char digits[12];
    char *d = digits + sizeof digits;
    *--d = '\0';
    // Built on the negative side, where INT32_MIN fits.
    const int32_t n = val_int(v);
    int32_t rest = n < 0 ? n : -n;
    do {
      *--d = static_cast<char>('0' - rest % 10);
      rest /= 10;
    } while (rest != 0);
    if (n < 0) *--d = '-';
    const size_t length = static_cast<size_t>(digits + sizeof digits - 1 - d);
    std::memcpy(value, d, length + 1);
    return length;
  }
  if (utils::model::cell_is_atom_of(v, utils::model::kValWstring)) {
    const bsr_wchar *s = val_wstring(v);
    if (s != nullptr) bsr_UTF16ToUTF8(s, BSR_ZERO_TERMINATED, value, kValueBytes);
    return std::strlen(value);
  }
  return 0;
}

}  // namespace utils::dtree
