// mxml_safe.cpp - the byte check that keeps Mini-XML's string reader in
// UTF-8, where it stops at the terminating zero, and the string copies that
// never give Mini-XML a null.
#include "Utils/Markup/mxml_safe.h"

#include <cstdlib>
#include <cstring>

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

namespace {

constexpr int kReserved = 8;

// Empty strings in real blocks, so that Mini-XML may free them. Released
// when the thread ends.
struct CopyReserve {
  char *blocks[kReserved] = {};
  int count = 0;
  bool lost = false;
  ~CopyReserve() {
    while (count > 0) std::free(blocks[--count]);
  }
};

thread_local CopyReserve reserve;

}  // namespace

bool prepare_mxml_copies() {
  CopyReserve &r = reserve;
  r.lost = false;
  while (r.count < kReserved) {
    auto *block = static_cast<char *>(std::malloc(1));
    if (block == nullptr) return false;
    block[0] = '\0';
    r.blocks[r.count++] = block;
  }
  return true;
}

bool mxml_copy_lost() { return reserve.lost; }

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

// The strdup of the library's link unit: the C library's, except that an
// exhausted heap gives an empty string from the reserve instead of a null.
extern "C" __attribute__((visibility("hidden"))) char *strdup(const char *s) {
  const size_t bytes = std::strlen(s) + 1;
  if (auto *copy = static_cast<char *>(std::malloc(bytes)); copy != nullptr)
    return static_cast<char *>(std::memcpy(copy, s, bytes));
  utils::markup::CopyReserve &r = utils::markup::reserve;
  if (r.count == 0) return nullptr;
  r.lost = true;
  return r.blocks[--r.count];
}
