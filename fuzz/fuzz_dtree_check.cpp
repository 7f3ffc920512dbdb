// fuzz_dtree_check.cpp - fuzzes DTree_Check on tree images (the first input
// byte gives the tree count, the rest is the image, copied to end at an
// inaccessible page); every image it accepts is created and looked up for a
// few items, which must end at a leaf without reading outside the image.
#include <cstdint>
#include <cstdlib>

#include "dtree.h"
#include "guard_page.h"
#include "lookup_items.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 1) return 0;
  const int trees = data[0] % (DTREE_MAX_TREES + 1);
  const fuzz::GuardedCopy image(data + 1, size - 1);
  const size_t fault = DTree_Check(image.data(), image.size(), trees);
  if (fault > image.size() + 4) std::abort();
  if (fault != 0) return 0;
  const void *at = image.data();
  DTree *tree = DTree_Create(&at, trees, fuzz::kFieldNames, fuzz::kFieldPrefixes,
                             fuzz::kFieldSuffixes, fuzz::kFieldCount);
  if (tree == nullptr) return 0;  // exhausted memory only
  const auto *end = static_cast<const uint8_t *>(at);
  if (end < image.data() || end > image.data() + image.size()) std::abort();
  static const fuzz::LookupItems items;
  items.look_up_all(tree);
  DTree_Destroy(tree);
  return 0;
}
