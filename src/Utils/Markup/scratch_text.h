// scratch_text.h - a reusable conversion buffer for moving strings between
// the document's UTF-8 and the model's UTF-16, grown as needed and freed once
// instead of allocating a temporary buffer per string.
#ifndef UTILS_MARKUP_SCRATCH_TEXT_H
#define UTILS_MARKUP_SCRATCH_TEXT_H

#include "utils_types.h"

namespace utils::markup {

class ScratchText {
 public:
  ScratchText() = default;
  ~ScratchText();
  ScratchText(const ScratchText &) = delete;
  ScratchText &operator=(const ScratchText &) = delete;

  // `wide` as UTF-8 in this buffer (valid until the next call); stops at an
  // unpaired surrogate. Null when `wide` is null or memory runs out.
  const char *utf8_from_wide(const bsr_wchar *wide);

 private:
  void *room(uint64_t bytes);

  void *data_ = nullptr;
  uint32_t size_ = 0;
};

}  // namespace utils::markup

#endif  // UTILS_MARKUP_SCRATCH_TEXT_H
