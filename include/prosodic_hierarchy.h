/* prosodic_hierarchy.h - building the prosodic hierarchy of an utterance:
 * syllable and phone elements from pronunciation strings, the grouping of
 * words into prosodic words and phrases ("focus_phrase"), and one phrase at
 * a time the relations that context labels are read from: the tree
 * "Phrase" (phrase, prosodic word, word, syllable, phone) and the flat
 * "PWord", "Word", "Syllable" and "Phone".
 *
 * Items of all these relations share their contents with the SSML elements
 * ("ssml" relation), so a feature set through one is seen through all.
 *
 * A pronunciation string is a run of IPA symbols, its syllables separated by
 * "." and each syllable optionally ending in one ASCII digit, its tone:
 * u"ni3.hau3". A phone begins at every symbol of the IPA inventory;
 * anything else (length marks, diacritics) stays with the phone before it.
 * */
#ifndef UTILS_PROSODIC_HIERARCHY_H
#define UTILS_PROSODIC_HIERARCHY_H

#include "utterance.h"

UTILS_BEGIN_DECLS

/* Longest syllable of a pronunciation string, its tone digit included, and
 * longest phone within it. */
#define UTILS_PRON_SYLLABLE_MAX 31
#define UTILS_PRON_PHONE_MAX 7
/* Longest phone within a syllable element's "name" (ParseSylName). */
#define UTILS_SYLNAME_PHONE_MAX 31

/* Adds under `word` one "syllable" element per non-empty syllable of
 * `pron` (empty ones, from leading, doubled or trailing dots, are skipped),
 * its tone digit removed into a one-character "tone", and under each
 * syllable one "phone" element per phone with its text in "name". Returns
 * the number of syllables added: 0 for a null or empty string or a null
 * word; -1, with nothing added, when a syllable or phone is longer than
 * the limits above; -1 also when memory runs out (part may be built). */
UTILS_API int CreatePhonemeWord(item *word, const bsr_wchar *pron);

/* For every "syllable" element below `top` with a non-empty "name", adds its
 * phones as "phone" elements (no tone digit is removed). Returns the number
 * of phones added, or -1 when some syllable was refused (a phone longer
 * than UTILS_SYLNAME_PHONE_MAX; that syllable gets no phones, the others
 * are still split) or memory ran out. */
UTILS_API int ParseSylName(item *top);

/* Deletes "focus_phrase", "focus_pword", "focus_word", "focus_syllable" and
 * "focus_phone"; returns what the last deletion returned (1 when
 * "focus_phone" existed, else 0). */
UTILS_API int FocusPhraseDestroy(utterance *u);

/* Rebuilds "focus_phrase" over the word elements below the "ssml" view of
 * the item in the utterance feature "focus": phrases of prosodic words of
 * words (sharing the elements' contents) of their syllables and phones. A
 * word whose "break" reads as 1 or more ends its prosodic word; a word with
 * a "delay" feature ends its phrase. Returns 1 when some phone was placed;
 * 0 otherwise, without the relation when "focus" or its "ssml" view is
 * missing, and also when memory runs out. */
UTILS_API int FocusPhraseCreate(utterance *u);

/* Builds "Phrase", "PWord", "Word", "Syllable" and "Phone" (replacing any
 * earlier ones) for the "focus_phrase" item in the utterance feature of
 * that name, in the language `lang`. The build is chosen by the document:
 * when `lang` equals the root element's "xml:lang", words of other
 * languages are stood in for by a placeholder word (CreateFakeWord) and the
 * "Phone" relation is framed by one "pau" item at each end; otherwise only
 * words of `lang` are kept, a word of another language ends the phrase, and
 * a "pau" item opens "Phone" and follows the last phone of each phrase. In
 * the second build, the first kept word's prosodic word holds every later
 * kept word, so phrases opened after a foreign word stay empty. Phones get
 * "pho-pos", their index among all real phones of the focus text; syllables
 * with "stress" get it as "tone". Languages compare as wide strings do
 * (bsr_wcscmp): a null `lang` matches a root without "xml:lang".
 * Nothing is reported: when memory runs out, the relations hold the phrase
 * as far as it was built, every "Phone" item named and every real phone
 * in the tree with its "pho-pos". */
UTILS_API void PhraseCreate(utterance *u, const bsr_wchar *lang);

/* Adds the placeholder for a word of another language under `word` (a word
 * of the "Phrase" tree): one syllable (appended to `syllables`; "tone" "1",
 * "vowel" "a") with the phones "s" ("voiced" "0") and "a" ("voiced" "1")
 * appended to `phones`. `lang` is not used. When memory runs out, nothing
 * of the placeholder is left behind. */
UTILS_API void CreateFakeWord(const bsr_wchar *lang, relation *syllables, relation *phones,
                              item *word);

UTILS_END_DECLS

#endif /* UTILS_PROSODIC_HIERARCHY_H */
