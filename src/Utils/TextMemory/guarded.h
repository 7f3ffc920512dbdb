// guarded.h - the exception boundary of exported functions.
//
// The interface is plain C: nothing may unwind through it. Library code does
// not throw, but RE2 and the standard containers report exhausted memory with
// std::bad_alloc. An exported function that reaches them runs its body
// through guarded(), which turns any exception into the function's failure
// result. The body releases what it built on the way out (RAII or explicit
// clean-up before the throwing call), so the boundary only translates.
#ifndef UTILS_TEXTMEMORY_GUARDED_H
#define UTILS_TEXTMEMORY_GUARDED_H

#include <utility>

namespace utils {

// Runs body() and returns its result, or `failed` when it throws.
template <typename Result, typename Body>
Result guarded(Result failed, Body &&body) noexcept {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    return failed;
  }
}

// The same for bodies without a result: returns false when body() threw.
template <typename Body>
bool guarded_void(Body &&body) noexcept {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace utils

#endif  // UTILS_TEXTMEMORY_GUARDED_H
