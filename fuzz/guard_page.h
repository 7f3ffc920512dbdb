// guard_page.h - a fuzz input copied so that it ends exactly where an
// inaccessible page begins: a parser that reads one byte past the end of
// its input faults at once, sanitizers or not.
#ifndef UTILS_FUZZ_GUARD_PAGE_H
#define UTILS_FUZZ_GUARD_PAGE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace fuzz {

class GuardedCopy {
 public:
  GuardedCopy(const uint8_t *data, size_t size) : size_(size) {
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    mapped_ = (size + page - 1) / page * page + page;
    void *base = mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) std::abort();
    base_ = static_cast<uint8_t *>(base);
    if (mprotect(base_ + mapped_ - page, page, PROT_NONE) != 0) std::abort();
    data_ = base_ + mapped_ - page - size;
    if (size > 0) std::memcpy(data_, data, size);
  }
  ~GuardedCopy() { munmap(base_, mapped_); }
  GuardedCopy(const GuardedCopy &) = delete;
  GuardedCopy &operator=(const GuardedCopy &) = delete;

  const uint8_t *data() const { return data_; }
  size_t size() const { return size_; }

 private:
  uint8_t *base_ = nullptr;
  uint8_t *data_ = nullptr;
  size_t size_ = 0, mapped_ = 0;
};

}  // namespace fuzz

#endif  // UTILS_FUZZ_GUARD_PAGE_H
