// wide_value.cpp - converts a UTF-8 text from the parser straight into the
// room of a new wide-string value.
#include "Utils/Markup/wide_value.h"

#include <string.h>

#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "bsr_unicode.h"

namespace utils::markup {

// One allocation holds cell and string together, sparing the copy that
// wstring_val makes. One UTF-16 unit per byte is always enough; a block that
// turns out much too large (text outside ASCII) is shrunk.
val *make_wide_value(const char *utf8, bool lead_blank) {
  size_t length = strlen(utf8);
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

}  // namespace utils::markup
