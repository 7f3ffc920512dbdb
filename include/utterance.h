/* utterance.h - utterances, their named relations, and the items linked into
 * relations as lists or trees, with contents shared between relations.
 *
 * An item's features live in its contents record; items of several relations
 * that stand for the same object share one contents record, so a feature set
 * through one is seen through all, and item_as moves between them. Contents
 * live until the last item sharing them is deleted.
 *
 * Memory: the utterance record is on the local allocator; it owns a private
 * heap from which every relation, item, contents record and feature set of
 * the utterance is carved, so delete_utterance ends with one heap
 * destruction. Names (of relations and features) stay on the local
 * allocator and are freed one by one.
 *
 * Every reader accepts null and returns null or 0. An utterance and all it
 * holds belong to one thread at a time; different utterances are independent.
 * */
#ifndef UTILS_UTTERANCE_H
#define UTILS_UTTERANCE_H

#include "utt_features.h"

UTILS_BEGIN_DECLS

struct utterance {
  struct features *features;   /* features of the whole utterance */
  struct features *ffunctions; /* feature-function name -> "ffunc" value */
  struct features *relations;  /* relation name -> "relation" value */
  bsr_heap *heap;              /* private heap of every record below */
};

struct relation {
  char *name;                  /* owned, local allocator */
  struct features *features;   /* on the utterance's heap */
  struct utterance *utterance; /* owner */
  struct item *head;           /* first top-level item, or null */
  struct item *tail;           /* last top-level item, or null */
};

/* What the items of one object share across relations. */
typedef struct item_contents {
  struct features *features;  /* the object's features */
  struct features *relations; /* relation name -> "item" value: its item there */
} item_contents;

struct item {
  item_contents *contents;
  struct relation *relation;
  struct item *next;
  struct item *prev;
  struct item *up;   /* the parent, on a first daughter only */
  struct item *down; /* first daughter */
};

/* ---- Utterances -------------------------------------------------------- */

/* A new utterance with its heap and three empty sets. Not checked. */
UTILS_API utterance *new_utterance(void);
/* Deletes the features, the feature functions, every relation, the relation
 * table, then destroys the heap and frees the record. Null is ignored. */
UTILS_API void delete_utterance(utterance *u);
/* Replaces any relation called `name` with a new empty one and returns it. */
UTILS_API relation *utt_relation_create(utterance *u, const char *name);
/* Deletes the relation called `name`; 1 if it existed, else 0. */
UTILS_API int utt_relation_delete(utterance *u, const char *name);
/* 1 if a relation called `name` exists, else 0. */
UTILS_API int utt_relation_present(const utterance *u, const char *name);
/* The relation called `name`, or null. */
UTILS_API relation *utt_relation(const utterance *u, const char *name);

/* ---- Relations --------------------------------------------------------- */

/* A new empty relation on u's heap (local allocator for a null u), not
 * entered in u's table (utt_relation_create does that). */
UTILS_API relation *new_relation(const char *name, utterance *u);
/* Deletes every item (with daughters), the features, the name and the
 * record. Null is ignored. The relation table is not touched. */
UTILS_API void delete_relation(relation *r);
/* The name, or "NoName" for null. */
UTILS_API const char *relation_name(const relation *r);
UTILS_API item *relation_head(const relation *r);
UTILS_API item *relation_tail(const relation *r);
/* A new last / first top-level item, sharing the contents of `shared` (an
 * item of another relation) or with fresh contents when it is null. */
UTILS_API item *relation_append(relation *r, const item *shared);
UTILS_API item *relation_prepend(relation *r, const item *shared);
/* A new unlinked item of r with the contents of `shared` (fresh when null).
 * Null when the item cannot be allocated. */
UTILS_API item *new_item_relation(relation *r, const item *shared);

/* ---- Items ------------------------------------------------------------- */

UTILS_API item *item_next(const item *i);
UTILS_API item *item_prev(const item *i);
/* First daughter. */
UTILS_API item *item_daughter(const item *i);
/* The parent (found through the first sibling); null at the top level. */
UTILS_API item *item_parent(const item *i);
/* The daughter at 0-based position n, or null. */
UTILS_API item *item_nth_daughter(const item *i, int n);
UTILS_API item *item_last_daughter(const item *i);

/* A new item linked directly after / before i in i's relation, contents from
 * `shared` (fresh when null). A prepend before a first daughter makes the new
 * item the first daughter. Null, with nothing changed, when `shared` is an
 * item of i's relation itself (contents appear at most once per relation)
 * or i is null. */
UTILS_API item *item_append(item *i, const item *shared);
UTILS_API item *item_prepend(item *i, const item *shared);
/* A new last daughter of i (see item_append for `shared`). */
UTILS_API item *item_add_daughter(item *i, const item *shared);

/* The item sharing i's contents in the relation called relname, or null. */
UTILS_API item *item_as(const item *i, const char *relname);
/* The utterance of i's relation. */
UTILS_API utterance *item_utt(const item *i);
/* 1 when a and b are the same item or views of the same contents, else 0. */
UTILS_API int item_equal(const item *a, const item *b);
/* Unlinks i (a following sibling inherits a first daughter's parent link),
 * deletes its daughters, detaches its contents (freeing them with the last
 * item sharing them) and frees it. Null is ignored. */
UTILS_API void delete_item(item *i);

/* ---- Item features (the contents' set; a null item reads as a null set;
 * the setters need an item) ---------------------------------------------- */

UTILS_API features *item_feats(const item *i);
UTILS_API const val *item_feat(const item *i, const char *name);
UTILS_API int item_feat_present(const item *i, const char *name);
UTILS_API int item_feat_remove(item *i, const char *name);
UTILS_API int32_t item_feat_int(const item *i, const char *name);
UTILS_API float item_feat_float(const item *i, const char *name);
UTILS_API const bsr_wchar *item_feat_wstring(const item *i, const char *name);
UTILS_API void item_set(item *i, const char *name, const val *v);
UTILS_API void item_set_int(item *i, const char *name, int32_t n);
UTILS_API void item_set_float(item *i, const char *name, float x);
UTILS_API void item_set_wstring(item *i, const char *name, const bsr_wchar *s);

UTILS_END_DECLS

#endif /* UTILS_UTTERANCE_H */
