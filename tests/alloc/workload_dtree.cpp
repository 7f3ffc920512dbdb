// workload_dtree.cpp - decision trees: an image created and looked up for
// three items, single fields built with a cache, a classification tree
// walked over values. Lookups allocate nothing; a field the cache cannot
// keep is reported, and the classification walk loses only its cache when
// memory runs out, so its results must not change.
#include <initializer_list>

#include "bsr_string.h"
#include "dtree.h"
#include "image_writer.h"
#include "utterance.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

const char *const kNames[] = {"name", "p.name"};
const char *const kPrefixes[] = {"[C]", "[L]"};
const char *const kSuffixes[] = {"/", "/"};

bool make_items(utterance *u, item *items[3]) {
  relation *r = utt_relation_create(u, "Segment");
  if (r == nullptr) return false;
  const char16_t *names[] = {u"a", u"a", u"n"};
  for (int k = 0; k < 3; ++k) {
    items[k] = relation_append(r, nullptr);
    if (items[k] == nullptr) return false;
    item_set_wstring(items[k], "name", names[k]);
    item_set_int(items[k], "k", k);
    if (!item_feat_present(items[k], "name") || !item_feat_present(items[k], "k")) return false;
  }
  return true;
}

bool walk_cart(item *items[3], Record &out) {
  val *one = int_val(1);
  val *leaf_small = int_val(10);
  val *leaf_large = int_val(20);
  bool ok = one != nullptr && leaf_small != nullptr && leaf_large != nullptr;
  if (ok) {
    const char *names[] = {"k"};
    cart_node nodes[] = {
        {0, 2, 2, one}, {0, CART_LEAF, 0, leaf_small}, {0, CART_LEAF, 0, leaf_large}};
    const cart c = {nodes, names};
    for (int k = 0; k < 3; ++k) {
      out.append_int(val_int(cart_interpret_questions(items[k], &c, 0)));
      out.append(" ");
    }
  }
  delete_val(one);
  delete_val(leaf_small);
  delete_val(leaf_large);
  return ok;
}

Outcome dtree_workload(Record &out) {
  static alloc_test::ImageWriter image;
  image.size = 0;
  image.trees(0);
  utterance *u = new_utterance();
  if (u == nullptr) return kFailed;
  item *items[3] = {};
  bool ok = make_items(u, items);
  const void *at = image.bytes;
  DTree *tree = ok ? DTree_Create(&at, 2, kNames, kPrefixes, kSuffixes, 2) : nullptr;
  if (tree != nullptr) {
    for (int t = 0; t < 2; ++t) {
      for (item *i : items) {
        out.append_int(DTree_Lookup(tree, t, i));
        out.append(" ");
      }
    }
    DTree_Destroy(tree);
  }
  ok = ok && tree != nullptr;
  if (ok) {
    char *cache[256] = {};
    char label[64];
    for (const char *pattern : {"[C]x", "*[C]a/*", "*[L]a/*"}) {
      if (MakeFeatureLabel2(items[1], pattern, kNames, kPrefixes, kSuffixes, 2, label, cache) != 0)
        ok = false;
      out.append(label);
      out.append(" ");
    }
    for (char *entry : cache) bsr_free(entry);
    ok = walk_cart(items, out) && ok;
  }
  delete_utterance(u);
  return ok ? kDone : kFailed;
}

}  // namespace

UTILS_ALLOC_WORKLOAD(dtree, dtree_workload)
