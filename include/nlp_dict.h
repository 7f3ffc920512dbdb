/* nlp_dict.h - the NLP dictionary (word classes, class-pair scores, words
 * with their readings, the embedded phrase-break and stress models) read in
 * place from a memory image, and word segmentation with class tagging over
 * it.
 *
 * Usage:
 *   if (NLPDIC_Check(image, size) != 0) reject the image;
 *   NLPDIC *d = NLPDIC_Create(image);          (the image must outlive d)
 *   NLPDIC_Node *head = NLPDIC_DictBreak(d, text, 1);   (1: characters, 0: tokens)
 *   for (n = NLPDIC_GetNodeInfo(head, 7); n != NULL && n->ClassId != -1;
 *        n = NLPDIC_GetNodeInfo(n, 7))
 *     use n->Word, n->ClassName, n->ClassId;
 *   NLPDIC_DeleNode(head);                     (the whole lattice)
 *   NLPDIC_Destroy(d);
 *
 * Image integers and floats are little-endian; text in the image is UTF-16.
 * NLPDIC_Create trusts the image: check images that come from outside first.
 * One dictionary is used by one thread at a time (it caches its last lookup
 * and the results of its recent word searches, and holds the working
 * columns of a segmentation). */
#ifndef UTILS_NLP_DICT_H
#define UTILS_NLP_DICT_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* A node of the segmentation lattice. Word and ClassName are the node's own
 * copies. After NLPDIC_DictBreak, Link leads from the "BEGTOK" node through
 * the chosen words to the "ENDTOK" node, whose own Link points back at the
 * last word: stop at ClassId -1. */
typedef struct NLPDIC_Node {
  bsr_wchar *Word;                  /* surface form */
  bsr_wchar *ClassName;             /* name of the class, or null */
  int32_t ClassId;                  /* class code; -1 for "BEGTOK" and "ENDTOK" */
  int32_t Length;                   /* code units of Word */
  float Score;                      /* the reading's score; -100 for an unknown word */
  float PathScore;                  /* best accumulated score of a path into the node */
  float Mark;                       /* -1 for an unknown word, else 0 */
  struct NLPDIC_Node *NextColumn;   /* first node of a start position: the next one's */
  struct NLPDIC_Node *NextInColumn; /* next node starting at the same position */
  void *Spare;                      /* always null */
  struct NLPDIC_Node *NextEnding;   /* next node ending at the same position */
  struct NLPDIC_Node *Link;         /* the next node on the chosen path */
} NLPDIC_Node;

/* Section descriptors; they point into the image. */
struct NLPDIC_ClassTable;
struct NLPDIC_PairTable;
struct NLPDIC_WordList;

typedef struct NLPDIC {
  struct NLPDIC_ClassTable *Monogram; /* class inventory, or null */
  struct NLPDIC_PairTable *Bigram;    /* class-pair table, or null */
  struct NLPDIC_WordList **WordTable; /* MaxWordLength + 1 slots, by word length */
  void *PhraseBreakModel;             /* phrase-break model holder, or null */
  void *StressModel;                  /* stress model holder, or null */
  int32_t MaxWordLength;
  bsr_wchar LastWord[256];    /* the word of the last lookup */
  int32_t LastId;             /* its identifier, or -1 */
  NLPDIC_Node **BeginColumns; /* working columns of a segmentation; null between calls */
  NLPDIC_Node **EndColumns;
} NLPDIC;

/* Validates an image of `size` bytes before NLPDIC_Create sees it: every
 * section, size, count, string, order and offset, no read past the end, a
 * class inventory and the "NLP_END" keyword present. Returns 0 for a sound
 * image, else the byte offset of the first fault. Offset 0 cannot be told
 * from soundness, so a fault there (a null or empty image, an unknown first
 * keyword) is reported as 1. */
UTILS_API size_t NLPDIC_Check(const void *image, size_t size);

/* Parses the image in place. Null for a null image or exhausted memory. */
UTILS_API NLPDIC *NLPDIC_Create(const void *image);
UTILS_API void NLPDIC_Destroy(NLPDIC *dict);

/* The class given to words not in the dictionary; -1 without an inventory. */
UTILS_API int32_t NLPDIC_GetDefaultID(const NLPDIC *dict);
/* The model holders of the phrase-break and stress models, or null. */
UTILS_API void *NLPDIC_GetPhraseBreakPointer(const NLPDIC *dict);
UTILS_API void *NLPDIC_GetStressPointer(const NLPDIC *dict);

/* Segments `text` (mode non-zero: runs of characters, candidates of 1 to 6
 * units; mode 0: tokens separated by spaces) and returns the "BEGTOK" node
 * of the lattice, or null for an empty text, a token split that yields no
 * token or more than 256, or exhausted memory. */
UTILS_API NLPDIC_Node *NLPDIC_DictBreak(NLPDIC *dict, const bsr_wchar *text, int32_t mode);

/* Selectors: 0 Word, 1 &Length, 2 ClassName, 3 &ClassId, 4 &Mark, 5 &Score,
 * 6 &PathScore, 7 Link. Null for a null node or another selector. */
UTILS_API void *NLPDIC_GetNodeInfo(NLPDIC_Node *node, uint32_t selector);

/* Frees the lattice that `node` heads (the node NLPDIC_DictBreak returned).
 * Every node of a lattice is released with it, so a call on another node of
 * the lattice does nothing. Null is ignored. */
UTILS_API void NLPDIC_DeleNode(NLPDIC_Node *node);

UTILS_END_DECLS

#endif /* UTILS_NLP_DICT_H */
