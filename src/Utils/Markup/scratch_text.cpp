// scratch_text.cpp - the reusable UTF-8 <-> UTF-16 conversion buffer of the
// markup loaders and savers, on the local allocator.
#include "Utils/Markup/scratch_text.h"

#include <string.h>

#include "bsr_string.h"
#include "bsr_unicode.h"

namespace utils::markup {

namespace {

// Sizes above this are refused rather than risk 32-bit overflow.
constexpr uint64_t kMaxScratchBytes = 0x7FFFFFF0u;

}  // namespace

ScratchText::~ScratchText() { bsr_free(data_); }

void *ScratchText::room(uint64_t bytes) {
  if (bytes <= size_) return data_;
  if (bytes > kMaxScratchBytes) return nullptr;
  uint64_t grown = 2 * static_cast<uint64_t>(size_);
  uint64_t want = grown > bytes && grown <= kMaxScratchBytes ? grown : bytes;
  // The old contents are never needed again: a fresh block avoids a copy.
  void *fresh = bsr_safe_alloc(static_cast<uint32_t>(want));
  if (fresh == nullptr) return nullptr;
  bsr_free(data_);
  data_ = fresh;
  size_ = static_cast<uint32_t>(want);
  return data_;
}

const char *ScratchText::utf8_from_wide(const bsr_wchar *wide) {
  if (wide == nullptr) return nullptr;
  // Four bytes per unit is more than any UTF-16 unit needs, plus room for
  // the terminator.
  uint64_t units = bsr_wcslen(wide);
  uint64_t bytes = units * 4 + 4;
  auto *out = static_cast<char *>(room(bytes));
  if (out == nullptr) return nullptr;
  return bsr_UTF16ToUTF8(wide, static_cast<uint32_t>(units), out, static_cast<uint32_t>(bytes));
}

}  // namespace utils::markup
