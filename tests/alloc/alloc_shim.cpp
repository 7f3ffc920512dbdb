// alloc_shim.cpp - replaces the C library's allocation entry points with
// counting ones that can be told to fail one call; the real work is done by
// glibc's own __libc_* functions.
#include "alloc_shim.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *ptr, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void __libc_free(void *ptr);
}

namespace {

// The test is single-threaded; plain globals do.
bool g_armed = false;
uint64_t g_calls = 0;
uint64_t g_fail_at = 0;
int64_t g_live = 0;

uint64_t g_spared = 0;
bool g_inside = false;  // the shim's own work (a backtrace) allocates too

// Whether an allocation is made on behalf of RE2: its code is not
// exception-safe, and what it had built when an allocation throws is lost
// whatever its caller does. Such allocations are counted but never failed;
// the library's boundary around RE2 is tested through every other one.
bool inside_re2() {
  static const bool fail_re2_too = getenv("UTILS_ALLOC_FAIL_RE2") != nullptr;
  if (fail_re2_too) return false;
  void *frames[24];
  const int n = backtrace(frames, 24);
  for (int k = 2; k < n; ++k) {
    Dl_info info;
    if (dladdr(frames[k], &info) != 0 && info.dli_fname != nullptr &&
        strstr(info.dli_fname, "libre2") != nullptr)
      return true;
  }
  return false;
}

// Who asks: RE2 allocates only through operator new, so only those calls
// are looked at. (The check is also made only there because on 32-bit ARM
// glibc's backtrace cannot unwind out of malloc, but can out of operator new.)
enum Caller { kCFunction, kOperatorNew };

// Counts an allocation call; true when this one must fail.
bool must_fail(Caller caller = kCFunction) {
  if (!g_armed || g_inside) return false;
  ++g_calls;
  if (g_calls != g_fail_at) return false;
  g_inside = true;
  const bool spared = caller == kOperatorNew && inside_re2();
  g_inside = false;
  if (spared) {
    ++g_spared;
    return false;
  }
  errno = ENOMEM;
  return true;
}

void *counted(void *p) {
  if (p != nullptr) ++g_live;
  return p;
}

}  // namespace

namespace alloc_test {

void arm(uint64_t fail_at) {
  // The first backtrace loads the unwinder, which allocates and keeps what
  // it allocated: done once, before anything is counted or failed.
  static bool unwinder_loaded = false;
  if (!unwinder_loaded) {
    void *frame;
    backtrace(&frame, 1);
    unwinder_loaded = true;
  }
  g_calls = 0;
  g_fail_at = fail_at;
  g_armed = true;
}

void disarm() { g_armed = false; }

uint64_t calls() { return g_calls; }

bool spared() { return g_spared != 0; }

int64_t live_blocks() { return g_live; }

}  // namespace alloc_test

extern "C" {

void *malloc(size_t size) {
  if (must_fail()) return nullptr;
  return counted(__libc_malloc(size));
}

void *calloc(size_t count, size_t size) {
  if (must_fail()) return nullptr;
  return counted(__libc_calloc(count, size));
}

void free(void *ptr);

void *realloc(void *ptr, size_t size) {
  if (ptr == nullptr) return malloc(size);
  if (size == 0) {
    free(ptr);
    return nullptr;
  }
  if (must_fail()) return nullptr;  // the old block stays
  return __libc_realloc(ptr, size);
}

void *memalign(size_t alignment, size_t size) {
  if (must_fail()) return nullptr;
  return counted(__libc_memalign(alignment, size));
}

void *aligned_alloc(size_t alignment, size_t size) { return memalign(alignment, size); }

int posix_memalign(void **out, size_t alignment, size_t size) {
  void *p = memalign(alignment, size);
  if (p == nullptr) return ENOMEM;
  *out = p;
  return 0;
}

void free(void *ptr) {
  if (ptr == nullptr) return;
  --g_live;
  __libc_free(ptr);
}

}  // extern "C"

// operator new is replaced as well, so that an allocation of C++ code is
// counted and failed where it is made: it throws std::bad_alloc as the
// standard one does, and the library's boundaries must catch it.
void *operator new(size_t size) {
  if (must_fail(kOperatorNew)) throw std::bad_alloc();
  void *p = counted(__libc_malloc(size == 0 ? 1 : size));
  if (p == nullptr) throw std::bad_alloc();
  return p;
}

void *operator new[](size_t size) { return operator new(size); }

void *operator new(size_t size, const std::nothrow_t &) noexcept {
  if (must_fail(kOperatorNew)) return nullptr;
  return counted(__libc_malloc(size == 0 ? 1 : size));
}

void *operator new[](size_t size, const std::nothrow_t &tag) noexcept {
  return operator new(size, tag);
}

void operator delete(void *p) noexcept { free(p); }
void operator delete[](void *p) noexcept { free(p); }
void operator delete(void *p, size_t) noexcept { free(p); }
void operator delete[](void *p, size_t) noexcept { free(p); }
