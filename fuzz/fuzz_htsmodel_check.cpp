// fuzz_htsmodel_check.cpp - fuzzes HTSModel_Check on model sections (copied
// to end at an inaccessible page); every section it accepts is created, its
// consumed count, windows, rows and trailing block held inside the input,
// and its trees looked up for a few items.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "guard_page.h"
#include "hts_model.h"
#include "lookup_items.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

// Reads `bytes` bytes at `p`, which must lie inside the image.
uint32_t touch(const fuzz::GuardedCopy &image, const void *p, size_t bytes) {
  const auto *b = static_cast<const uint8_t *>(p);
  check(b >= image.data() && b + bytes <= image.data() + image.size());
  uint32_t sum = 0;
  for (size_t k = 0; k < bytes; ++k) sum += b[k];
  return sum;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const fuzz::GuardedCopy image(data, size);
  const size_t fault = HTSModel_Check(image.data(), image.size());
  check(fault <= image.size() + 4);
  if (fault != 0) return 0;
  int consumed = -1;
  HTSModel *m = HTSModel_Create(image.data(), &consumed);
  if (m == nullptr) return 0;  // exhausted memory only
  check(consumed > 0 && static_cast<size_t>(consumed) <= image.size());
  volatile uint32_t sum = 0;
  for (int w = 0; w < m->num_windows; ++w) {
    int32_t left, right;
    std::memcpy(&left, &m->win_l_width[w], 4);
    std::memcpy(&right, &m->win_r_width[w], 4);
    check(right >= left);
    sum += touch(image, m->win_coefficient[w], 4 * (static_cast<size_t>(right - left) + 1));
  }
  for (int j = 0; j < m->num_features; ++j)
    sum += touch(image, m->feature_suffixes[j], std::strlen(m->feature_suffixes[j]) + 1);
  if (m->mean_rows != nullptr && m->num_rows > 0) {
    sum += touch(image, m->mean_rows[m->num_rows - 1], 2 * HTS_MODEL_ROW_VALUES);
    if (m->ivar_rows != nullptr)
      sum += touch(image, m->ivar_rows[m->num_rows - 1], 2 * HTS_MODEL_ROW_VALUES);
  }
  if (m->extra != nullptr) sum += touch(image, m->extra, 1);
  static const fuzz::LookupItems items;
  items.look_up_all(m->trees);
  HTSModel_Destroy(m);
  return 0;
}
