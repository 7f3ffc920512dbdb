/* sentence_stress.h - sentence stress of every word, predicted phrase by
 * phrase over the prosodic hierarchy by the dictionary's stress model.
 *
 * Usage:
 *   Stress_Process(NLPDIC_GetStressPointer(dict), focus_item, language);
 * then each word of the relation "Word" of the last phrase built carries
 * "stress" ("0" .. "60"). */
#ifndef UTILS_SENTENCE_STRESS_H
#define UTILS_SENTENCE_STRESS_H

#include "nlp_dict.h"
#include "utterance.h"

UTILS_BEGIN_DECLS

/* Sets the utterance features "focus" (to `focus`) and, for each focus
 * phrase in turn, "focus_phrase"; builds the phrase (PhraseCreate with
 * `text`, the language) and gives each of its words "stress" = the stress
 * tree's leaf - 1, kept to 0 .. 60. Returns 0, or -1 for a null holder or
 * item. */
UTILS_API int Stress_Process(void *holder, item *focus, const bsr_wchar *text);

UTILS_END_DECLS

#endif /* UTILS_SENTENCE_STRESS_H */
