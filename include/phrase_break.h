/* phrase_break.h - prosodic-word and phrase breaks between the words of an
 * utterance, and the break marks of phonetic strings.
 *
 * Words are the items of the relation "_Word_", each with the integer
 * features "pos" (its class code, nlp_dict.h), "name_Len" (its length in
 * characters) and "break" (-1: a boundary that must not be changed).
 *
 * Usage:
 *   PWordBreak(dict, u);                         prosodic words: "break" "1"
 *   PhraseBreak_Process(NLPDIC_GetPhraseBreakPointer(dict), u);
 *                                                phrases: "break" "3", "delay"
 * A holder made with PhraseBreak_Create from a model body is released with
 * PhraseBreak_Destroy; the dictionary's own holder goes with the dictionary. */
#ifndef UTILS_PHRASE_BREAK_H
#define UTILS_PHRASE_BREAK_H

#include "nlp_dict.h"
#include "utterance.h"

UTILS_BEGIN_DECLS

/* One-character zero-terminated marks: U+2223, U+2225, U+2215. */
UTILS_API extern const bsr_wchar g_pmWordBreak[2];
UTILS_API extern const bsr_wchar g_pmTokenBreak[2];
UTILS_API extern const bsr_wchar g_pmPhraseBreak[2];

/* Reads a phrase-break model body (a header, then "phrase_break" model
 * sections up to another keyword) in place; null for a null body or
 * exhausted memory. The body must outlive the holder. */
UTILS_API void *PhraseBreak_Create(const void *body);
/* Releases the holder and its model; null is ignored. Returns 0. */
UTILS_API int PhraseBreak_Destroy(void *holder);

/* Sets "MI" (the class pair's association, 0 without a dictionary) on every
 * word but the last, and "break" "1" where the association is negative,
 * except between two one-character words and on words whose "break" is -1.
 * The dictionary may be null. Returns 1. */
UTILS_API int PWordBreak(const NLPDIC *dict, utterance *u);

/* Places "break" "3" and "delay" "short" at the best-scoring words of long
 * stretches: never within the first and last three words, none in an
 * utterance of fewer than 13 words. Returns 0. */
UTILS_API int PhraseBreak_Process(void *holder, utterance *u);

UTILS_END_DECLS

#endif /* UTILS_PHRASE_BREAK_H */
