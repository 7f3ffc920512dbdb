// mxml_safe.cpp - the byte check that keeps Mini-XML's string reader in
// UTF-8, where it stops at the terminating zero.
#include "Utils/Markup/mxml_safe.h"

namespace utils::markup {

// Parse errors are reported through results alone. This Mini-XML copy is
// private to the library, so silencing its messages affects nobody else.
void quiet_parse_errors(const char *) {}

namespace {

// Mini-XML allocates its per-thread state on a thread's first call and does
// not check that allocation. Making that first call while the library loads
// means the loading thread (the one an engine, or a test that fails
// allocations, normally calls from) never meets it in the middle of a load,
// where running out of memory must give a failure result, not a crash.
__attribute__((constructor)) void prepare_mxml_state() { mxmlSetErrorCallback(quiet_parse_errors); }

}  // namespace

bool safe_for_mxml(const char *text) {
  for (const auto *p = reinterpret_cast<const unsigned char *>(text); *p != 0; ++p) {
    if (*p >= 0xFE) return false;
  }
  return true;
}

mxml_node_t *load_string_safely(mxml_node_t *holder, const char *text, mxml_load_cb_t cb) {
  if (text == nullptr || !safe_for_mxml(text)) return nullptr;
  return mxmlLoadString(holder, text, cb);
}

}  // namespace utils::markup
