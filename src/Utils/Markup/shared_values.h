// shared_values.h - wide-string values shared between the items of one
// load: element names, short attribute values and white-space runs recur
// throughout a document, and one counted value can stand for every copy.
#ifndef UTILS_MARKUP_SHARED_VALUES_H
#define UTILS_MARKUP_SHARED_VALUES_H

#include <stdint.h>

#include "utt_val.h"

namespace utils::markup {

class SharedValues {
 public:
  SharedValues() = default;
  // Gives back the references the table holds; values that items hold live on.
  ~SharedValues();
  SharedValues(const SharedValues &) = delete;
  SharedValues &operator=(const SharedValues &) = delete;

  // A wide-string value holding `utf8` converted to UTF-16 (with a blank
  // before it when `lead_blank`; the conversion stops at an ill-formed
  // sequence), for the caller to store with feat_set. Short texts get a
  // value shared with earlier requests for the same text; longer ones a
  // fresh value. Null when memory runs out.
  val *get(const char *utf8, bool lead_blank = false);

 private:
  // Texts up to this many bytes are shared.
  static constexpr uint32_t kMaxKey = 31;
  // A value shared this often is replaced by a fresh one: counts are 16 bits.
  static constexpr int16_t kMaxShares = 30000;
  static constexpr uint32_t kSlots = 256;  // a power of two

  struct Slot {
    val *value;  // null when empty; the table holds one reference
    uint8_t length;
    bool lead_blank;
    char key[kMaxKey];
  };

  static val *make(const char *utf8, size_t length, bool lead_blank);

  Slot slots_[kSlots] = {};
};

}  // namespace utils::markup

#endif  // UTILS_MARKUP_SHARED_VALUES_H
