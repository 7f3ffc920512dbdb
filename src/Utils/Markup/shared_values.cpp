/* shared_values.cpp - a small direct-mapped table from short UTF-8 texts to
 * counted wide-string values, used while one document is converted. */
#include "Utils/Markup/shared_values.h"

#include <string.h>

#include "bsr_string.h"
#include "bsr_unicode.h"

namespace {

// FNV-1a over the bytes of the text.
uint32_t hash_of(const char *s, uint32_t length, bool lead_blank) {
  uint32_t h = lead_blank ? 0x811C9DC5u ^ 0x20u : 0x811C9DC5u;
  for (uint32_t k = 0; k < length; ++k) {
    h ^= static_cast<unsigned char>(s[k]);
    h *= 0x01000193u;
  }
  return h;
}

}  // namespace

SharedValues::~SharedValues() {
  for (Slot &slot : slots_) delete_val(slot.value);
}

// Converts straight into the block the value will own (a "wstring" atom
// frees its string with bsr_free), sparing the copy that wstring_val makes.
// One UTF-16 unit per byte is always enough; a block that turns out much too
// large (text outside ASCII) is shrunk.
val *SharedValues::make(const char *utf8, size_t length, bool lead_blank) {
  uint64_t units = static_cast<uint64_t>(length) + 1 + (lead_blank ? 1 : 0);
  if (units * sizeof(bsr_wchar) > 0x7FFFFFF0u) return nullptr;
  auto *owned = static_cast<bsr_wchar *>(bsr_safe_alloc(static_cast<uint32_t>(units * sizeof(bsr_wchar))));
  if (!owned) return nullptr;
  bsr_wchar *text = owned;
  if (lead_blank) *text++ = u' ';
  bsr_UTF8ToUTF16(utf8, static_cast<uint32_t>(length), text, static_cast<uint32_t>(length + 1));
  uint64_t used = bsr_wcslen(owned) + 1;
  if (units - used > 16 && units - used > units / 4) {
    if (void *fitted = bsr_safe_realloc(owned, static_cast<uint32_t>(used * sizeof(bsr_wchar)))) {
      owned = static_cast<bsr_wchar *>(fitted);
    }
  }
  val *v = val_new_typed(BSR_VAL_WSTRING, owned);
  if (!v) bsr_free(owned);
  return v;
}

val *SharedValues::get(const char *utf8, bool lead_blank) {
  size_t length = strlen(utf8);
  if (length > kMaxKey) return make(utf8, length, lead_blank);
  uint32_t n = static_cast<uint32_t>(length);
  Slot &slot = slots_[hash_of(utf8, n, lead_blank) & (kSlots - 1)];
  if (slot.value && slot.length == n && slot.lead_blank == lead_blank &&
      memcmp(slot.key, utf8, n) == 0 && slot.value->c.atom.ref_count < kMaxShares) {
    return slot.value;
  }
  val *fresh = make(utf8, length, lead_blank);
  if (!fresh) return nullptr;
  delete_val(slot.value);  // the table's reference to the text it replaces
  val_inc_refcount(fresh);
  slot.value = fresh;
  slot.length = static_cast<uint8_t>(n);
  slot.lead_blank = lead_blank;
  memcpy(slot.key, utf8, n);
  return fresh;
}
