// cstr.cpp - CStr: a growable zero-terminated narrow string. Appending a string
// grows the buffer to exactly what is needed; appending a byte grows it by 64.
#include "bsr_cstr.h"

#include <cstring>

#include "Utils/TextMemory/cstr_layout.h"
#include "bsr_string.h"

static_assert(sizeof(CStr) == utils::text::kCStrRecordSize,
              "the exported CStr size must match the header");

namespace {

constexpr uint32_t kCharGrowth = 64;

// Resizes s->buffer to `size` bytes. On failure the old storage is released
// and the buffer is left null: a CStr that failed to grow is only destroyed.
bool resize(CStr *s, uint32_t size) {
  void *grown = bsr_safe_realloc(s->buffer, size);
  if (grown == nullptr) {
    bsr_free(s->buffer);
    s->buffer = nullptr;
    return false;
  }
  s->buffer = static_cast<char *>(grown);
  return true;
}

}  // namespace

extern "C" {

UTILS_API CStr *CStrCreate(uint32_t initial) {
  auto *s = static_cast<CStr *>(bsr_safe_alloc(sizeof(CStr)));
  if (s == nullptr) return nullptr;
  uint32_t size = initial == 0 ? 1 : initial;
  s->buffer = static_cast<char *>(bsr_safe_alloc(size));
  if (s->buffer == nullptr) {
    bsr_free(s);
    return nullptr;
  }
  s->capacity = size;
  s->used = 1;
  return s;
}

UTILS_API void CStrDestroy(CStr *s) {
  if (s == nullptr) return;
  bsr_free(s->buffer);
  bsr_free(s);
}

UTILS_API uint32_t CStrLength(const CStr *s) { return s != nullptr ? s->used - 1 : 0; }

UTILS_API char *CStrStr(const CStr *s) { return s != nullptr ? s->buffer : nullptr; }

UTILS_API int32_t CStrAppend(CStr *s, const char *text) {
  if (s == nullptr || text == nullptr) return CSTR_EBADARG;
  uint32_t len = bsr_strlen(text);
  if (len == 0) return CSTR_OK;
  uint32_t needed = s->used + len;
  if (needed > s->capacity) {
    if (!resize(s, needed)) return CSTR_ENOMEM;
    s->capacity = needed;
  }
  std::memcpy(s->buffer + s->used - 1, text, len + 1);
  s->used = needed;
  return CSTR_OK;
}

UTILS_API int32_t CStrAppendC(CStr *s, char c) {
  if (s == nullptr) return CSTR_EBADARG;
  if (c == 0) return CSTR_OK;
  if (s->used + 1 > s->capacity) {
    s->capacity += kCharGrowth;
    if (!resize(s, s->capacity)) return CSTR_ENOMEM;
  }
  s->buffer[s->used - 1] = c;
  s->buffer[s->used] = 0;
  s->used += 1;
  return CSTR_OK;
}

UTILS_API char CStrLastC(const CStr *s) {
  if (s == nullptr || s->buffer == nullptr || s->used < 2) return 0;
  return s->buffer[s->used - 2];
}

UTILS_API void CStrErase(CStr *s, uint32_t pos) {
  if (s == nullptr || s->buffer == nullptr || pos > s->used - 1) return;
  s->buffer[pos] = 0;
  s->used = pos + 1;
}

}  // extern "C"
