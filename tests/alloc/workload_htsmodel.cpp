// workload_htsmodel.cpp - model sections: one with fields, windows, two
// trees, statistics and a trailing block, created, read and looked up; and
// one that ends after its trees.
#include <initializer_list>

#include "hts_model.h"
#include "image_writer.h"
#include "utterance.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

void write_section(alloc_test::ImageWriter &w, bool statistics) {
  w.size = 0;
  w.u32(2);
  for (const char *s : {"name", "[C]", "/", "p.name", "[L]", "/"}) w.str(s);
  w.pad();
  const size_t windows = w.size;
  w.u32(2);
  w.u32(0);
  w.u32(static_cast<uint32_t>(-1));
  w.u32(0);
  w.u32(1);
  const float coefficients[] = {1.0f, -0.5f, 0.0f, 0.5f};
  for (float f : coefficients) {
    uint32_t bits;
    std::memcpy(&bits, &f, 4);
    w.u32(bits);
  }
  w.u32(3);  // window value
  w.pad(windows);
  w.u32(4);  // stream value
  w.u32(2);  // trees
  w.u32(11);
  w.u32(12);
  w.u32(3);  // rows
  w.trees(w.size);
  const size_t block = w.size;
  w.u32(statistics ? 2 : 0);
  if (!statistics) return;
  w.u32(1);
  for (int k = 0; k < 2 * 3 * 256; ++k) w.i16(static_cast<int16_t>(k));
  w.i16(0x0102);
  w.pad(block);
}

Outcome htsmodel_workload(Record &out) {
  static alloc_test::ImageWriter image;
  utterance *u = new_utterance();
  if (u == nullptr) return kFailed;
  relation *r = utt_relation_create(u, "Segment");
  item *a = r != nullptr ? relation_append(r, nullptr) : nullptr;
  item *n = r != nullptr ? relation_append(r, nullptr) : nullptr;
  if (a != nullptr) item_set_wstring(a, "name", u"a");
  if (n != nullptr) item_set_wstring(n, "name", u"n");
  bool ok =
      a != nullptr && n != nullptr && item_feat_present(a, "name") && item_feat_present(n, "name");
  for (bool statistics : {true, false}) {
    if (!ok) break;
    write_section(image, statistics);
    int consumed = -1;
    HTSModel *m = HTSModel_Create(image.bytes, &consumed);
    if (m == nullptr) {
      ok = false;
      break;
    }
    out.append_int(consumed);
    out.append(" ");
    out.append_int(m->num_features + m->num_windows + m->num_trees);
    out.append(" ");
    out.append(m->feature_prefixes[1]);
    out.append_int(m->mean_rows != nullptr ? m->mean_rows[2][5] : -1);
    out.append(" ");
    out.append_int(m->ivar_rows != nullptr ? m->ivar_rows[0][1] : -1);
    out.append(" ");
    out.append_int(DTree_Lookup(m->trees, 0, n));
    out.append_int(DTree_Lookup(m->trees, 1, n));
    out.append(" ");
    HTSModel_Destroy(m);
  }
  delete_utterance(u);
  return ok ? kDone : kFailed;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(htsmodel, htsmodel_workload)
