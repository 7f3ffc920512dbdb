// feature_label.cpp - MakeFeatureLabel: a label written field by field into
// the caller's buffer, with no allocation. The caller sizes the buffer from
// the field table: every value takes at most 127 bytes.
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "bsr_unicode.h"
#include "context_label.h"

namespace {

// A string value contributes at most this many UTF-8 bytes.
constexpr uint32_t kValueBytes = 128;

class LabelWriter {
 public:
  explicit LabelWriter(char *out) : out_(out) { out_[0] = '\0'; }

  void put(const char *text) {
    if (text == nullptr) return;
    for (; *text != '\0'; ++text) out_[len_++] = *text;
    out_[len_] = '\0';
  }

  void put_int(int32_t n) {
    char digits[12];
    char *d = digits + sizeof digits;
    *--d = '\0';
    // Negative numbers are built on the negative side, where INT32_MIN fits.
    const bool negative = n < 0;
    int32_t rest = negative ? n : -n;
    do {
      *--d = static_cast<char>('0' - rest % 10);
      rest /= 10;
    } while (rest != 0);
    if (negative) *--d = '-';
    put(d);
  }

  void put_wide(const bsr_wchar *s) {
    if (s == nullptr) return;
    char utf8[kValueBytes];
    bsr_UTF16ToUTF8(s, BSR_ZERO_TERMINATED, utf8, kValueBytes);
    put(utf8);
  }

 private:
  char *out_;
  size_t len_ = 0;
};

bool is_zero_name(const char *name) { return name[0] == '0' && name[1] == '\0'; }

}  // namespace

extern "C" UTILS_API int MakeFeatureLabel(const item *i, const char *const *names,
                                          const char *const *prefixes, const char *const *suffixes,
                                          int count, char *out) {
  if (out == nullptr) return 0;
  LabelWriter label(out);
  // A missing table is an empty one: there is nothing to print from it.
  if (names == nullptr || prefixes == nullptr || suffixes == nullptr) return 0;
  for (int j = 0; j < count; ++j) {
    label.put(prefixes[j]);
    if (names[j] == nullptr || is_zero_name(names[j])) {
      label.put("0");
    } else {
      const val *v = GetFeature(i, names[j]);
      if (utils::model::cell_is_atom_of(v, utils::model::kValInt)) {
        label.put_int(val_int(v));
      } else if (utils::model::cell_is_atom_of(v, utils::model::kValWstring)) {
        label.put_wide(val_wstring(v));
      }
    }
    label.put(suffixes[j]);
  }
  return 0;
}
