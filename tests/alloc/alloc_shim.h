// alloc_shim.h - the allocation counter and failure switch of the
// allocation-failure test: every malloc, calloc, realloc and aligned
// allocation of the process (operator new and the C library's own callers
// included) passes through it.
#ifndef UTILS_ALLOC_ALLOC_SHIM_H
#define UTILS_ALLOC_ALLOC_SHIM_H

#include <cstdint>

namespace alloc_test {

// Starts counting allocation calls from zero; when fail_at > 0, the
// fail_at-th call fails (returns null) and every other succeeds.
void arm(uint64_t fail_at);
// Stops counting and failing.
void disarm();
// Allocation calls since arm().
uint64_t calls();
// Whether the allocation chosen to fail was made on behalf of RE2 and
// therefore not failed (see inside_re2 in alloc_shim.cpp).
bool spared();
// Blocks allocated and not yet freed, counted from the start of the process.
int64_t live_blocks();

}  // namespace alloc_test

#endif  // UTILS_ALLOC_ALLOC_SHIM_H
