// shared_values.cpp - a small direct-mapped table from short UTF-8 texts to
// counted wide-string values, used while one document is converted.
#include "Utils/Markup/shared_values.h"

#include <string.h>

#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "bsr_unicode.h"

namespace utils::markup {

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
  val *v = utils::model::wstring_val_with_room(static_cast<uint32_t>(units));
  if (v == nullptr) return nullptr;
  auto *text = static_cast<bsr_wchar *>(v->c.atom.payload.p);
  if (lead_blank) *text++ = u' ';
  bsr_UTF8ToUTF16(utf8, static_cast<uint32_t>(length), text, static_cast<uint32_t>(length + 1));
  uint64_t used = bsr_wcslen(static_cast<bsr_wchar *>(v->c.atom.payload.p)) + 1;
  if (units - used > 16 && units - used > units / 4) {
    v = utils::model::wstring_val_fit(v, static_cast<uint32_t>(used));
  }
  return v;
}

namespace {

// Reads 1 to 8 bytes as one little word; zero bytes pad a short text.
uint64_t word_at(const char *s, uint32_t bytes) {
  uint64_t word = 0;
  memcpy(&word, s, bytes);
  return word;
}

// A text of at most 31 bytes is folded into two words (its first and last
// eight bytes, overlapping for short texts, plus a middle word for long
// ones) and mixed with the 64-bit finalizer of MurmurHash3; the slot check
// compares the whole key anyway.
uint32_t hash_of(const char *s, uint32_t length, bool lead_blank) {
  uint64_t h =
      (static_cast<uint64_t>(length) << 1 | (lead_blank ? 1u : 0u)) * 0x9E3779B97F4A7C15ull;
  if (length >= 8) {
    h ^= word_at(s, 8) ^ (word_at(s + length - 8, 8) * 0xC2B2AE3D27D4EB4Full);
    if (length > 16) h += word_at(s + 8, 8) * 0x165667B19E3779F9ull;
  } else if (length > 0) {
    h ^= word_at(s, length);
  }
  h ^= h >> 33;
  h *= 0xFF51AFD7ED558CCDull;
  h ^= h >> 33;
  h *= 0xC4CEB9FE1A85EC53ull;
  h ^= h >> 33;
  return static_cast<uint32_t>(h);
}

}  // namespace

val *SharedValues::get(const char *utf8, bool lead_blank) {
  size_t length = strlen(utf8);
  if (length > kMaxKey) return make(utf8, length, lead_blank);
  uint32_t n = static_cast<uint32_t>(length);
  Slot &slot = slots_[hash_of(utf8, n, lead_blank) & (kSlots - 1)];
  if (slot.value != nullptr && slot.length == n && slot.lead_blank == lead_blank &&
      memcmp(slot.key, utf8, n) == 0 && slot.value->c.atom.ref_count < kMaxShares) {
    return slot.value;
  }
  val *fresh = make(utf8, n, lead_blank);
  if (fresh == nullptr) return nullptr;
  delete_val(slot.value);  // the table's reference to the text it replaces
  val_inc_refcount(fresh);
  slot.value = fresh;
  slot.length = static_cast<uint8_t>(n);
  slot.lead_blank = lead_blank;
  memcpy(slot.key, utf8, n);
  return fresh;
}

}  // namespace utils::markup
