// model_holder.cpp - reading the model body of a "PHRASEBREAK" or "STRESS"
// section: an unread word, three strings that name the model (not used), and
// keyword sub-sections up to the first keyword that is not the model's.
#include "NLP/NLP_Dict/model_holder.h"

#include "bsr_string.h"

namespace utils::nlpdict {
namespace {

uint32_t pad4(uint32_t n) { return (n + 3) & ~3u; }

HTSModel *create_model(const uint8_t *image, int32_t *consumed) {
  int taken = 0;
  HTSModel *model = HTSModel_Create(image, &taken);
  *consumed = taken;
  return model;
}

void destroy_model(HTSModel *model) { HTSModel_Destroy(model); }

}  // namespace

ModelHolder *create_model_holder(const uint8_t *body, const char *keyword) {
  if (body == nullptr) return nullptr;
  auto *holder = static_cast<ModelHolder *>(bsr_safe_calloc(sizeof(ModelHolder)));
  if (holder == nullptr) return nullptr;
  uint32_t at = 4;
  for (int s = 0; s < 3; ++s) at += bsr_strlen(reinterpret_cast<const char *>(body + at)) + 1;
  at = pad4(at);
  for (;;) {
    const char *name = reinterpret_cast<const char *>(body + at);
    if (bsr_strcmp(name, keyword) != 0) break;
    at = pad4(at + bsr_strlen(name) + 1);
    int32_t consumed = 0;
    HTSModel *model = create_model(body + at, &consumed);
    if (model == nullptr) break;
    // A repeated sub-section replaces the earlier model, which is released.
    destroy_model(holder->model);
    holder->model = model;
    at += static_cast<uint32_t>(consumed);
  }
  return holder;
}

void destroy_model_holder(ModelHolder *holder) {
  if (holder == nullptr) return;
  destroy_model(holder->model);
  bsr_free(holder);
}

uint32_t model_body_header(const uint8_t *body, uint32_t size) {
  if (body == nullptr || size < 4) return 0;
  uint32_t at = 4;
  for (int s = 0; s < 3; ++s) {
    while (at < size && body[at] != 0) ++at;
    if (at >= size) return 0;
    ++at;
  }
  at = pad4(at);
  return at <= size ? at : 0;
}

}  // namespace utils::nlpdict

namespace utils::nlpdict {

size_t checked_model_size(const uint8_t *model, size_t size) {
  // A section that is sound within n bytes is sound within any more, and
  // the check reads up to its final padding: the least sound n is the
  // section's own size. Found without building the model.
  if (HTSModel_Check(model, size) != 0) return 0;
  size_t lo = 1, hi = size;
  while (lo < hi) {
    const size_t mid = lo + (hi - lo) / 2;
    if (HTSModel_Check(model, mid) == 0)
      hi = mid;
    else
      lo = mid + 1;
  }
  return hi;
}

}  // namespace utils::nlpdict
