// pstream.cpp - creation and release of a parameter stream: the record, its
// per-frame rows and work vectors, all zero-filled from the local allocator.
#include "hts_pstream.h"

#include <cstdint>

#include "bsr_string.h"

namespace {

// Zero-filled array of `count` elements, or null when memory is exhausted or
// the byte size would not fit the allocator's 32-bit size. A count of 0
// still gives a real block (the allocator raises 0 bytes to 1).
template <typename T>
T *alloc_array(int64_t count) {
  uint64_t bytes = static_cast<uint64_t>(count) * sizeof(T);
  if (bytes > UINT32_MAX) return nullptr;
  return static_cast<T *>(bsr_safe_alloc(static_cast<uint32_t>(bytes)));
}

// A table of `rows` row pointers, each row `cols` zero elements. On any
// failure everything allocated so far is released and null returned.
template <typename T>
T **alloc_rows(int rows, int cols) {
  T **table = alloc_array<T *>(rows);
  if (table == nullptr) return nullptr;
  for (int t = 0; t < rows; ++t) {
    table[t] = alloc_array<T>(cols);
    if (table[t] == nullptr) {
      for (int u = 0; u < t; ++u) bsr_free(table[u]);
      bsr_free(table);
      return nullptr;
    }
  }
  return table;
}

template <typename T>
void free_rows(T **table, int rows) {
  if (table == nullptr) return;
  for (int t = 0; t < rows; ++t) bsr_free(table[t]);
  bsr_free(table);
}

// Delta windows span a few frames; an offset beyond this is not a window
// (and would make the loops over a window's offsets run away).
constexpr int kMaxWindowOffset = 1 << 16;

bool windows_usable(int num_windows, const int *left, const int *right, float *const *coef) {
  if (num_windows < 1 || left == nullptr || right == nullptr || coef == nullptr) return false;
  for (int w = 0; w < num_windows; ++w) {
    if (left[w] < -kMaxWindowOffset || right[w] > kMaxWindowOffset) return false;
    if (coef[w] == nullptr && right[w] >= left[w]) return false;
  }
  return true;
}

}  // namespace

extern "C" {

UTILS_API PStream *PStream_Create(int num_windows, int *win_l_width, int *win_r_width,
                                  float **win_coefficient, int vector_size, int max_half_width,
                                  int length) {
  if (!windows_usable(num_windows, win_l_width, win_r_width, win_coefficient)) return nullptr;
  if (vector_size < 0 || max_half_width < 0 || length < 0) return nullptr;
  int64_t width = 2 * static_cast<int64_t>(max_half_width) + 1;
  if (width > INT32_MAX) return nullptr;

  auto *ps = static_cast<PStream *>(bsr_safe_alloc(sizeof(PStream)));
  if (ps == nullptr) return nullptr;
  ps->vector_size = vector_size;
  ps->vector_length = vector_size / num_windows;
  ps->length = length;
  ps->alloc_length = length;
  ps->width = static_cast<int>(width);
  ps->num_windows = num_windows;
  ps->win_l_width = win_l_width;
  ps->win_r_width = win_r_width;
  ps->win_coefficient = win_coefficient;

  ps->par = alloc_array<float>(length);
  ps->g = alloc_array<float>(length);
  ps->wum = alloc_array<float>(length);
  ps->mean = alloc_rows<int16_t>(length, vector_size);
  ps->ivar = alloc_rows<uint16_t>(length, vector_size);
  ps->wuw = alloc_rows<float>(length, ps->width);
  if (ps->par == nullptr || ps->g == nullptr || ps->wum == nullptr || ps->mean == nullptr ||
      ps->ivar == nullptr || ps->wuw == nullptr) {
    PStream_Destroy(ps);
    return nullptr;
  }
  return ps;
}

UTILS_API void PStream_Destroy(PStream *ps) {
  if (ps == nullptr) return;
  free_rows(ps->mean, ps->alloc_length);
  free_rows(ps->ivar, ps->alloc_length);
  free_rows(ps->wuw, ps->alloc_length);
  bsr_free(ps->wum);
  bsr_free(ps->g);
  bsr_free(ps->par);
  bsr_free(ps);
}

}  // extern "C"
