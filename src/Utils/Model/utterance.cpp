// utterance.cpp - utterances: a private heap, the utterance's features, its
// feature functions and its table of named relations.
#include "utterance.h"

#include "Utils/Model/feature_store.h"
#include "Utils/TextMemory/private_heap.h"
#include "bsr_string.h"

extern "C" {

UTILS_API utterance *new_utterance(void) {
  auto *u = static_cast<utterance *>(bsr_safe_alloc(sizeof(utterance)));
  if (u == nullptr) return nullptr;
  u->heap = utils::text::heap_create();
  if (u->heap == nullptr) {
    bsr_free(u);
    return nullptr;
  }
  u->features = new_features_local(u->heap);
  u->ffunctions = new_features_local(u->heap);
  u->relations = new_features_local(u->heap);
  return u;
}

// Everything on the local allocator (names, values) is released piece by
// piece; the records themselves go with the heap at the end.
UTILS_API void delete_utterance(utterance *u) {
  if (u == nullptr) return;
  delete_features(u->features);
  delete_features(u->ffunctions);
  if (u->relations != nullptr)
    for (feature_pair *p = u->relations->head; p != nullptr; p = p->next)
      delete_relation(val_relation(p->value));
  delete_features(u->relations);
  utils::text::heap_destroy(u->heap);
  bsr_free(u);
}

UTILS_API relation *utt_relation_create(utterance *u, const char *name) {
  if (u == nullptr) return nullptr;
  utt_relation_delete(u, name);
  relation *r = new_relation(name, u);
  if (r == nullptr) return nullptr;
  // A relation that cannot be entered in the table is not kept.
  if (!utils::model::adopt_value(u->relations, name, relation_val(r))) {
    delete_relation(r);
    return nullptr;
  }
  return r;
}

UTILS_API int utt_relation_delete(utterance *u, const char *name) {
  if (u == nullptr) return 0;
  delete_relation(val_relation(feat_val(u->relations, name)));
  return feat_remove(u->relations, name);
}

UTILS_API int utt_relation_present(const utterance *u, const char *name) {
  return u != nullptr ? feat_present(u->relations, name) : 0;
}

UTILS_API relation *utt_relation(const utterance *u, const char *name) {
  return u != nullptr ? val_relation(feat_val(u->relations, name)) : nullptr;
}

}  // extern "C"
