// hts_model.cpp - HTSModel_Create and HTSModel_Destroy: a model section read
// in one forward pass, referenced in place; only pointer tables are built.
#include <cstring>

#include "NLP/NLP_DTree/image_read.h"
#include "bsr_string.h"
#include "hts_model.h"

namespace utils::hmm {

namespace {

using utils::dtree::align_from;
using utils::dtree::load_u32;

constexpr size_t kRowBytes = 2 * HTS_MODEL_ROW_VALUES;

// A zero-filled table of `count` pointers (a request of 0 raised to 1).
template <typename T>
T **pointer_table(uint32_t count) {
  const uint64_t bytes = static_cast<uint64_t>(count) * sizeof(T *);
  if (bytes > UINT32_MAX) return nullptr;
  return static_cast<T **>(bsr_safe_alloc(bytes > 0 ? static_cast<uint32_t>(bytes) : 1));
}

HTSModel *fail(HTSModel *model, int *consumed) {
  HTSModel_Destroy(model);
  if (consumed != nullptr) *consumed = 0;
  return nullptr;
}

}  // namespace

}  // namespace utils::hmm

extern "C" UTILS_API HTSModel *HTSModel_Create(const void *image, int *consumed) {
  using namespace utils::hmm;
  if (image == nullptr) return nullptr;
  const auto *base = static_cast<const unsigned char *>(image);
  const unsigned char *p = base;
  auto *model = static_cast<HTSModel *>(bsr_safe_alloc(sizeof(HTSModel)));
  if (model == nullptr) return fail(nullptr, consumed);

  // Label fields.
  const uint32_t fields = load_u32(p);
  p += 4;
  if (fields > INT32_MAX) return fail(model, consumed);
  model->num_features = static_cast<int32_t>(fields);
  model->feature_names = pointer_table<const char>(fields);
  model->feature_prefixes = pointer_table<const char>(fields);
  model->feature_suffixes = pointer_table<const char>(fields);
  if (model->feature_names == nullptr || model->feature_prefixes == nullptr ||
      model->feature_suffixes == nullptr)
    return fail(model, consumed);
  for (uint32_t f = 0; f < fields; ++f) {
    const char **tables[3] = {model->feature_names, model->feature_prefixes,
                              model->feature_suffixes};
    for (const char **table : tables) {
      table[f] = reinterpret_cast<const char *>(p);
      p += std::strlen(table[f]) + 1;
    }
  }
  p = align_from(base, p);

  // Windows.
  const unsigned char *windows = p;
  const uint32_t window_count = load_u32(p);
  p += 4;
  if (window_count > HTS_MODEL_MAX_WINDOWS) return fail(model, consumed);
  model->num_windows = static_cast<int32_t>(window_count);
  if (window_count > 0) {
    model->win_l_width = reinterpret_cast<int *>(const_cast<unsigned char *>(p));
    const unsigned char *left = p;
    p += 4 * window_count;
    model->win_r_width = reinterpret_cast<int *>(const_cast<unsigned char *>(p));
    const unsigned char *right = p;
    p += 4 * window_count;
    for (uint32_t w = 0; w < window_count; ++w) {
      const int32_t l = static_cast<int32_t>(load_u32(left + 4 * w));
      const int32_t r = static_cast<int32_t>(load_u32(right + 4 * w));
      model->win_coefficient[w] = reinterpret_cast<float *>(const_cast<unsigned char *>(p));
      const int64_t count = static_cast<int64_t>(r) - l + 1;
      if (count > 0) p += 4 * static_cast<size_t>(count);
    }
    model->window_value = load_u32(p);
    p += 4;
  }
  p = align_from(windows, p);

  model->stream_value = load_u32(p);
  p += 4;

  // Trees.
  const uint32_t tree_count = load_u32(p);
  p += 4;
  if (tree_count > HTS_MODEL_MAX_TREES) return fail(model, consumed);
  model->num_trees = static_cast<int32_t>(tree_count);
  for (uint32_t t = 0; t < tree_count; ++t) {
    model->tree_value[t] = load_u32(p);
    p += 4;
  }
  model->num_rows = load_u32(p);
  p += 4;
  const void *at = p;
  model->trees =
      DTree_Create(&at, static_cast<int>(tree_count), model->feature_names, model->feature_prefixes,
                   model->feature_suffixes, model->num_features);
  if (model->trees == nullptr) return fail(model, consumed);
  p = static_cast<const unsigned char *>(at);

  // Statistics.
  const unsigned char *block = p;
  const uint32_t extra_bytes = load_u32(p);
  p += 4;
  if (extra_bytes == 0) {
    if (consumed != nullptr) *consumed = static_cast<int>(p - base);
    return model;
  }
  model->has_ivar = load_u32(p);
  p += 4;
  const uint32_t rows = model->num_rows;
  model->mean_rows = pointer_table<const int16_t>(rows);
  if (model->mean_rows == nullptr) return fail(model, consumed);
  for (uint32_t r = 0; r < rows; ++r)
    model->mean_rows[r] = reinterpret_cast<const int16_t *>(p + kRowBytes * r);
  p += kRowBytes * rows;
  if (model->has_ivar != 0) {
    model->ivar_rows = pointer_table<const uint16_t>(rows);
    if (model->ivar_rows == nullptr) return fail(model, consumed);
    for (uint32_t r = 0; r < rows; ++r)
      model->ivar_rows[r] = reinterpret_cast<const uint16_t *>(p + kRowBytes * r);
    p += kRowBytes * rows;
  }
  model->extra = p;
  p += extra_bytes;
  p = align_from(block, p);
  if (consumed != nullptr) *consumed = static_cast<int>(p - base);
  return model;
}

extern "C" UTILS_API void HTSModel_Destroy(HTSModel *model) {
  if (model == nullptr) return;
  DTree_Destroy(model->trees);
  bsr_free(static_cast<void *>(model->feature_names));
  bsr_free(static_cast<void *>(model->feature_prefixes));
  bsr_free(static_cast<void *>(model->feature_suffixes));
  bsr_free(static_cast<void *>(model->mean_rows));
  bsr_free(static_cast<void *>(model->ivar_rows));
  bsr_free(model);
}
