// val_print.cpp - printing values on a stdio stream: numbers, wide strings as
// UTF-8, typed atoms as "[Val <type> 0x<payload>]", and lists in parentheses.
#include <cstdio>

#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "bsr_unicode.h"

using utils::model::cell_is_cons;
using utils::model::cell_start;
using utils::model::kValFloat;
using utils::model::kValInt;
using utils::model::kValWstring;

namespace {

const char *type_name(int16_t type) {
  int row = (type - 1) / 2;
  return type > 0 && row < BSR_VAL_TYPE_COUNT ? bsr_val_defs[row].name : "unknown";
}

// UTF-8 takes at most 4 bytes per UTF-16 unit (3 in fact, 4 per surrogate
// pair), so (length + 1) * 4 bytes always suffice. Short strings use the
// stack; longer ones a temporary block.
void print_wstring(FILE *stream, const bsr_wchar *s) {
  if (s == nullptr) return;
  uint32_t size = (bsr_wcslen(s) + 1) * 4;
  char local[256];
  char *buf = size <= sizeof local ? local : static_cast<char *>(bsr_safe_alloc(size));
  if (buf == nullptr) return;
  bsr_UTF16ToUTF8(s, BSR_ZERO_TERMINATED, buf, size);
  std::fprintf(stream, "%s", buf);
  if (buf != local) bsr_free(buf);
}

void print_atom(FILE *stream, const val *v) {
  switch (cell_start(v)) {
    case kValInt:
      std::fprintf(stream, "%d", v->c.atom.payload.i);
      break;
    case kValFloat:
      std::fprintf(stream, "%f", static_cast<double>(v->c.atom.payload.f));
      break;
    case kValWstring:
      print_wstring(stream, static_cast<const bsr_wchar *>(v->c.atom.payload.p));
      break;
    default:
      std::fprintf(stream, "[Val %s 0x%p]", type_name(cell_start(v)), v->c.atom.payload.p);
  }
}

}  // namespace

extern "C" {

// In a list, the walk stops at the first cdr that is not a cons: a final
// atom cdr is not printed.
UTILS_API void val_print(FILE *stream, const val *v) {
  if (stream == nullptr) return;
  if (v == nullptr) {
    std::fputs("[null]", stream);
    return;
  }
  if (!cell_is_cons(v)) {
    print_atom(stream, v);
    return;
  }
  std::fputc('(', stream);
  for (const val *p = v; p != nullptr && cell_is_cons(p); p = p->c.cons.cdr) {
    if (p != v) std::fputc(' ', stream);
    val_print(stream, p->c.cons.car);
  }
  std::fputc(')', stream);
}

}  // extern "C"
