// fenced_input.h - a copy of a fuzz input that ends exactly where an
// inaccessible page begins, so that reading one byte past it faults at once
// (the sanitizer's redzones would miss a read that jumps further).
#ifndef UTILS_FUZZ_FENCED_INPUT_H
#define UTILS_FUZZ_FENCED_INPUT_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace fuzz_support {

class FencedInput {
 public:
  FencedInput(const uint8_t *data, size_t size) {
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    span_ = (size + page - 1) / page * page + page;
    void *m = mmap(nullptr, span_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m == MAP_FAILED) std::abort();
    base_ = static_cast<uint8_t *>(m);
    if (mprotect(base_ + span_ - page, page, PROT_NONE) != 0) std::abort();
    data_ = base_ + span_ - page - size;
    if (size > 0) std::memcpy(data_, data, size);
  }
  ~FencedInput() { munmap(base_, span_); }
  FencedInput(const FencedInput &) = delete;
  FencedInput &operator=(const FencedInput &) = delete;

  const uint8_t *data() const { return data_; }

 private:
  uint8_t *base_;
  uint8_t *data_;
  size_t span_;
};

}  // namespace fuzz_support

#endif  // UTILS_FUZZ_FENCED_INPUT_H
