// workload_hmm.cpp - parameter generation: a stream made, filled and solved
// with delta windows, and the DSP tables read.
#include <cstdio>

#include "dsp_tables.h"
#include "hts_pstream.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

Outcome hmm_workload(Record &out) {
  int left[3] = {0, -1, -1};
  int right[3] = {0, 1, 1};
  float static_window[] = {1.0f};
  float delta[] = {-0.5f, 0.0f, 0.5f};
  float accel[] = {1.0f, -2.0f, 1.0f};
  float *coefficients[3] = {static_window, delta, accel};
  PStream *ps = PStream_Create(3, left, right, coefficients, 6, 1, 40);
  if (ps == nullptr) return kFailed;
  for (int t = 0; t < ps->length; ++t) {
    for (int i = 0; i < ps->vector_size; ++i) {
      ps->mean[t][i] = static_cast<int16_t>(i < 2 ? 100 * t : 0);
      ps->ivar[t][i] = static_cast<uint16_t>(i < 2 ? 4 : 1);
    }
  }
  HTS_PStream_mlpg(ps, 1);
  char value[32];
  snprintf(value, sizeof value, "%.3f %.3f ", ps->par[0], ps->par[39]);
  out.append(value);
  PStream_Destroy(ps);
  out.append_int(LookupCosTable(100));
  return kDone;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(hmm, hmm_workload)
