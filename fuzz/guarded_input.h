// guarded_input.h - fuzz inputs copied so that they end exactly where an
// inaccessible page begins.
//
// libFuzzer hands a harness its bytes in a heap block that ASan watches, but
// the dependencies (Mini-XML, RE2) are not instrumented: a read one byte past
// the block by them goes unseen unless it faults. Parsing harnesses therefore
// hand the library a copy whose last byte is the last readable byte before a
// PROT_NONE page, so that any over-read faults at once. The mapping is kept
// between runs and grown when an input needs more room.
#ifndef UTILS_FUZZ_GUARDED_INPUT_H
#define UTILS_FUZZ_GUARDED_INPUT_H

#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

namespace fuzz_support {

class GuardedRegion {
 public:
  // `bytes` bytes whose end touches the guard page; null only if mapping fails,
  // which aborts: a harness that cannot guard its input must not pass silently.
  unsigned char *end_aligned(size_t bytes) {
    if (bytes > capacity_) grow(bytes);
    return base_ + capacity_ - bytes;
  }

 private:
  void grow(size_t bytes) {
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    if (base_ != nullptr) munmap(base_, capacity_ + page);
    capacity_ = (bytes + page - 1) / page * page;
    if (capacity_ == 0) capacity_ = page;
    void *map =
        mmap(nullptr, capacity_ + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (map == MAP_FAILED) abort();
    base_ = static_cast<unsigned char *>(map);
    if (mprotect(base_ + capacity_, page, PROT_NONE) != 0) abort();
  }

  unsigned char *base_ = nullptr;
  size_t capacity_ = 0;
};

// Two regions, so that a harness can hold two guarded inputs at once (rules
// and a document, say); a copy stays valid until the next copy into its slot.
inline GuardedRegion &guarded_region(int slot) {
  static GuardedRegion regions[2];
  return regions[slot & 1];
}

// The bytes as a memory image: exactly `size` bytes, the last one before the
// guard page.
inline const unsigned char *guarded_bytes(const uint8_t *data, size_t size, int slot = 0) {
  unsigned char *copy = guarded_region(slot).end_aligned(size);
  if (size > 0) memcpy(copy, data, size);
  return copy;
}

// The bytes up to the first zero byte as a zero-terminated string whose
// terminating zero is the last readable byte.
inline const char *guarded_c_string(const uint8_t *data, size_t size, int slot = 0) {
  const void *nul = memchr(data, 0, size);
  const size_t length =
      nul != nullptr ? static_cast<size_t>(static_cast<const uint8_t *>(nul) - data) : size;
  unsigned char *copy = guarded_region(slot).end_aligned(length + 1);
  if (length > 0) memcpy(copy, data, length);
  copy[length] = 0;
  return reinterpret_cast<const char *>(copy);
}

}  // namespace fuzz_support

#endif  // UTILS_FUZZ_GUARDED_INPUT_H
