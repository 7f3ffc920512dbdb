/* dtree.h - context-clustering decision trees over feature labels, and
 * classification trees over feature values.
 *
 * A tree image (little-endian; padding is counted from the image start):
 *   u32 header (not read); u32 PatternCount;
 *   PatternCount NUL-terminated patterns, zero-padded to a multiple of 4;
 *   u32 QuestionCount; QuestionCount records: i16 n, n x i16 pattern
 *   indexes, each record zero-padded to a multiple of 4;
 *   per tree: u32 size S, then S bytes of 8-byte nodes (i16 Id, Question,
 *   No, Yes), padded to a multiple of 4.
 * A next value (No or Yes) above 0 is a leaf, the lookup's answer; 0 or less
 * is the Id of an internal node stored further on. The root has Id 0.
 *
 * Questions ask whether one field of the item's label matches a wildcard
 * pattern ("*" any run, "?" any one character; anchored at the start of the
 * field only). The field is the first one whose prefix begins with "[" and
 * starts the pattern (a leading "*" of the pattern skipped). A pattern that
 * starts with "*" sees the field with a "!" in front, one that ends with "*"
 * with a "!" behind, so that "*[C]a*" matches "![C]a!".
 *
 * The tree points into the image and into the caller's feature tables
 * without copying: both must outlive it and stay unchanged.
 * */
#ifndef UTILS_DTREE_H
#define UTILS_DTREE_H

#include "utt_val.h"
#include "utterance.h"

UTILS_BEGIN_DECLS

/* The most trees one DTree holds. */
#define DTREE_MAX_TREES 16

/* One node as stored in the image (8 bytes). Read through the pointers
 * below with memcpy when the image may be unaligned. */
typedef struct DTreeNode {
  int16_t Id;       /* 0 for the root, -1, -2, ... for the others */
  int16_t Question; /* index into Questions */
  int16_t No;       /* next when no pattern matches: leaf (> 0) or node Id */
  int16_t Yes;      /* next when a pattern matches */
} DTreeNode;

typedef struct DTree {
  int32_t TreeCount;                       /* trees in the set */
  const DTreeNode *Trees[DTREE_MAX_TREES]; /* tree t's first node, in the image */
  int32_t PatternCount;                    /* patterns in the table */
  const char **Patterns;                   /* [PatternCount] strings in the image */
  int32_t QuestionCount;                   /* questions in the table */
  const int16_t **Questions;               /* [QuestionCount] records in the
                                              image, each at its count n */
  const char *const *FeatureNames;         /* per field: feature path, or "0" */
  const char *const *FeaturePrefixes;      /* per field: text before the value */
  const char *const *FeatureSuffixes;      /* per field: text after the value */
  int32_t FeatureCount;                    /* label fields */
} DTree;

/* Builds a tree set on the image at *image holding `tree_count` trees
 * (0 .. DTREE_MAX_TREES) and advances *image to the first byte after the
 * last padded tree. The feature tables (each `feature_count` entries; null
 * when the count is 0) name the label fields. Returns null, leaving *image
 * alone, for a null argument, a tree count out of range or exhausted memory.
 * The image is trusted: check images from outside with DTree_Check first. */
UTILS_API DTree *DTree_Create(const void **image, int tree_count, const char *const *feature_names,
                              const char *const *feature_prefixes,
                              const char *const *feature_suffixes, int feature_count);

/* The leaf (> 0) that tree `tree_index` gives for item `i`: from the root,
 * each node's patterns are tried in order against the item's label field
 * until one matches, and Yes or No leads on. Returns 0 for a null tree or
 * a tree index out of range. Allocates nothing for fields up to a few
 * hundred bytes. */
UTILS_API int32_t DTree_Lookup(const DTree *tree, int tree_index, const item *i);

/* Frees the pattern and question tables and the object; the image and the
 * feature tables are the caller's. Null is ignored. */
UTILS_API void DTree_Destroy(DTree *tree);

/* Checks an image of `size` bytes holding `tree_count` trees before
 * DTree_Create trusts it: every count, string and pattern index inside the
 * size, node sizes whole, question indexes in the table, every child stored
 * after its parent in the same tree, a root in every tree. Nothing outside
 * [image, image + size) is read. Returns 0 for a sound image, else the byte
 * offset of the first fault: the field whose value is wrong, or where a
 * read would pass the end. A null image or a tree count out of 0 .. 16
 * returns 1 (0 always means sound). Bytes after the last tree are allowed. */
UTILS_API size_t DTree_Check(const void *image, size_t size, int tree_count);

/* Builds into `out` the one label field that `pattern` asks about.
 * `cache` (256 entries, or null for none) holds the fields already built
 * for the current node as tts_strdup copies: a cached field is copied as it
 * is, marks included, else the field is written ("!" when the pattern
 * starts with "*", the prefix, the value, the suffix, "!" when the pattern
 * ends with "*") and a copy stored (fields from 256 on are not cached).
 * Release the cache entries with bsr_free. The value is "0" for a feature
 * name "0", else GetFeature(i, name) printed as MakeFeatureLabel does.
 * `out` must hold strlen(prefix) + strlen(suffix) + 130 bytes.
 * Returns 0; -1 with out = "" when no prefix starting with "[" starts the
 * pattern (such a pattern never matches) or an argument is null. */
UTILS_API int MakeFeatureLabel2(const item *i, const char *pattern, const char *const *names,
                                const char *const *prefixes, const char *const *suffixes, int count,
                                char *out, char **cache);

/* 1 when `label` matches the wildcard pattern: "*" any run of characters,
 * "?" any one character, anchored at the start of the label but not at its
 * end. An empty label matches nothing, not even "*", and a trailing "*"
 * needs at least one character. 0 otherwise, and for null arguments. */
UTILS_API int PatternMatch(const char *label, const char *pattern);

/* ---- Classification trees over values ---------------------------------- */

/* A question node asks about feature `feature` with `op`: 0 equal to value,
 * 1 member of the list value, 2 less than, 3 greater than; any other op is
 * false. A node whose op is CART_LEAF is a leaf answering `value`. When the
 * question holds the walk goes on at the next node in the array, else at
 * `no_node`. */
#define CART_LEAF 255

typedef struct cart_node {
  uint8_t feature;  /* index into feature_names */
  uint8_t op;       /* question, or CART_LEAF */
  uint16_t no_node; /* node taken when the question fails */
  val *value;       /* operand, or the answer at a leaf */
} cart_node;

struct cart {
  cart_node *nodes;
  const char **feature_names;
};

/* Walks `c` from node `start` for item `i` and returns the leaf's value,
 * owned by the tree (not a copy). Each feature is read with GetFeature once
 * per call. Null for a null cart. */
UTILS_API const val *cart_interpret_questions(const item *i, const cart *c, int start);

UTILS_END_DECLS

#endif /* UTILS_DTREE_H */
