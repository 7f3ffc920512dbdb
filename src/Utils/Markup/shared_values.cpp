/* shared_values.cpp - a small direct-mapped table from short UTF-8 texts to
 * counted wide-string values, used while one document is converted. */
#include "Utils/Markup/shared_values.h"

#include <string.h>

#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "bsr_unicode.h"

SharedValues::~SharedValues() {
  for (Slot &slot : slots_) delete_val(slot.value);
}

// Converts straight into the room carried by the value's own block (one
// allocation for cell and string together, sparing the copy that
// wstring_val makes). One UTF-16 unit per byte is always enough; a block
// that turns out much too large (text outside ASCII) is shrunk.
val *SharedValues::make(const char *utf8, size_t length, bool lead_blank) {
  uint64_t units = static_cast<uint64_t>(length) + 1 + (lead_blank ? 1 : 0);
  if (units * sizeof(bsr_wchar) > 0x7FFFFFF0u) return nullptr;
  val *v = bsr_wstring_val_with_room(static_cast<uint32_t>(units));
  if (!v) return nullptr;
  auto *text = static_cast<bsr_wchar *>(v->c.atom.payload.p);
  if (lead_blank) *text++ = u' ';
  bsr_UTF8ToUTF16(utf8, static_cast<uint32_t>(length), text, static_cast<uint32_t>(length + 1));
  uint64_t used = bsr_wcslen(static_cast<bsr_wchar *>(v->c.atom.payload.p)) + 1;
  if (units - used > 16 && units - used > units / 4) {
    v = bsr_wstring_val_fit(v, static_cast<uint32_t>(used));
  }
  return v;
}

// Measures and hashes (FNV-1a) in one pass, and only as far as a text may
// be shared; a longer text is measured to its end for a fresh value.
val *SharedValues::get(const char *utf8, bool lead_blank) {
  uint32_t h = lead_blank ? 0x811C9DC5u ^ 0x20u : 0x811C9DC5u;
  uint32_t n = 0;
  for (; n <= kMaxKey && utf8[n] != 0; ++n) {
    h ^= static_cast<unsigned char>(utf8[n]);
    h *= 0x01000193u;
  }
  if (n > kMaxKey) return make(utf8, n + strlen(utf8 + n), lead_blank);
  Slot &slot = slots_[h & (kSlots - 1)];
  if (slot.value && slot.length == n && slot.lead_blank == lead_blank &&
      memcmp(slot.key, utf8, n) == 0 && slot.value->c.atom.ref_count < kMaxShares) {
    return slot.value;
  }
  val *fresh = make(utf8, n, lead_blank);
  if (!fresh) return nullptr;
  delete_val(slot.value);  // the table's reference to the text it replaces
  val_inc_refcount(fresh);
  slot.value = fresh;
  slot.length = static_cast<uint8_t>(n);
  slot.lead_blank = lead_blank;
  memcpy(slot.key, utf8, n);
  return fresh;
}
