// local_object.h - objects of the text normalisation classes live in the local
// allocator: zero-filled blocks, and a null result (not an exception) when
// memory runs out.
#ifndef UTILS_NLP_TEXTNORM_LOCAL_OBJECT_H
#define UTILS_NLP_TEXTNORM_LOCAL_OBJECT_H

#include <cstddef>

#include "bsr_string.h"

namespace utils::textnorm {

// Base for classes made with `new`: a non-throwing allocation function makes
// the new-expression yield null instead of running the constructor.
struct LocalObject {
  static void *operator new(std::size_t size) noexcept {
    return bsr_safe_calloc(static_cast<uint32_t>(size));
  }
  static void operator delete(void *block) noexcept { bsr_free(block); }
};

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_LOCAL_OBJECT_H
