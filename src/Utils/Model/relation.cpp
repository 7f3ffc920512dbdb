// relation.cpp - relations: named lists (or trees) of items on their
// utterance's heap, and the making of new items with shared or fresh contents.
#include "Utils/Model/item_contents.h"
#include "Utils/TextMemory/private_heap.h"
#include "bsr_string.h"

using utils::model::attach_contents;
using utils::model::heap_of;

namespace {

// Contents appear at most once per relation, and never across utterances
// (their records live on one utterance's heap).
bool can_share_into(const relation *r, const item *shared) {
  if (shared == nullptr) return true;
  if (shared->contents == nullptr || shared->relation == nullptr) return false;
  if (shared->relation->utterance != r->utterance) return false;
  return !feat_present(shared->contents->relations, r->name);
}

}  // namespace

extern "C" {

UTILS_API relation *new_relation(const char *name, utterance *u) {
  bsr_heap *heap = u != nullptr ? u->heap : nullptr;
  auto *r = static_cast<relation *>(utils::text::alloc_on(heap, sizeof(relation)));
  if (r == nullptr) return nullptr;
  r->name = tts_strdup(name);
  r->features = new_features_local(heap);
  // A relation without its name could never be found again from its items'
  // contents: refused whole.
  if ((name != nullptr && r->name == nullptr) || r->features == nullptr) {
    bsr_free(r->name);
    delete_features(r->features);
    utils::text::free_on(heap, r);
    return nullptr;
  }
  r->utterance = u;
  return r;
}

UTILS_API void delete_relation(relation *r) {
  if (r == nullptr) return;
  while (r->head != nullptr) delete_item(r->head);
  delete_features(r->features);
  bsr_free(r->name);
  utils::text::free_on(heap_of(r), r);
}

UTILS_API const char *relation_name(const relation *r) { return r != nullptr ? r->name : "NoName"; }

UTILS_API item *relation_head(const relation *r) { return r != nullptr ? r->head : nullptr; }

UTILS_API item *relation_tail(const relation *r) { return r != nullptr ? r->tail : nullptr; }

// Also refuses `shared` when its contents already have an item in a relation
// of this name, or belong to another utterance: either would leave contents
// that outlive or precede some of their items.
UTILS_API item *new_item_relation(relation *r, const item *shared) {
  if (r == nullptr || !can_share_into(r, shared)) return nullptr;
  bsr_heap *heap = heap_of(r);
  auto *i = static_cast<item *>(utils::text::alloc_on(heap, sizeof(item)));
  if (i == nullptr) return nullptr;
  i->relation = r;
  if (!attach_contents(i, shared)) {
    utils::text::free_on(heap, i);
    return nullptr;
  }
  return i;
}

UTILS_API item *relation_append(relation *r, const item *shared) {
  item *i = new_item_relation(r, shared);
  if (i == nullptr) return nullptr;
  i->prev = r->tail;
  if (r->tail != nullptr)
    r->tail->next = i;
  else
    r->head = i;
  r->tail = i;
  return i;
}

UTILS_API item *relation_prepend(relation *r, const item *shared) {
  item *i = new_item_relation(r, shared);
  if (i == nullptr) return nullptr;
  i->next = r->head;
  if (r->head != nullptr)
    r->head->prev = i;
  else
    r->tail = i;
  r->head = i;
  return i;
}

}  // extern "C"
