/* ipa_phoneme.h - the IPA phoneme inventory: 115 base symbols with their
 * articulatory classes, the diacritics, the special symbols for silence,
 * breaks and stress, and predicates over single symbols.
 *
 * A symbol is one UTF-16 code unit, passed as an unsigned 32-bit number; a
 * pronunciation is a wide string of base symbols, each optionally followed
 * by diacritics. Every predicate answers 1 or 0 and every field getter a
 * small number; a code unit outside the inventory answers 0 everywhere.
 * Each predicate is one indexed load from read-only data. The inventory is
 * constant and may be shared by any number of threads.
 * */
#ifndef UTILS_IPA_PHONEME_H
#define UTILS_IPA_PHONEME_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* One row of the inventory, 14 bytes, fields in this order. Class: 1 vowel,
 * 2 consonant, 0 silence. Height (vowels): 1 close .. 7 open. Backness
 * (vowels): 1 front .. 5 back. Rounding: 1 rounded, 2 unrounded, 0 not
 * given. Manner (consonants): 1 stop or nasal, 2 fricative, 3 approximant,
 * 4 trill, 5 tap or flap, 6 click, 7 affricate. Place: a bit mask, 1
 * bilabial, 2 labiodental, 4 dental, 8 alveolar, 16 postalveolar, 32
 * retroflex, 64 palatal, 128 velar, 256 uvular, 512 pharyngeal, 1024
 * epiglottal, 2048 glottal (a double articulation sets two bits). Voicing: 1
 * voiced, 2 voiceless, 0 not applicable. Nasality: 1 oral, 2 nasal, 3 click.
 * Laterality: 1 central, 2 lateral, 0 not applicable. Airstream: 1
 * pulmonic, 4 click, 6 implosive. The silence row ("#") is all zero but its
 * code point. */
typedef struct IPAPhonemeFeat {
  uint16_t CodePoint;
  int8_t Class;
  int8_t Height;
  int8_t Backness;
  int8_t Rounding;
  int8_t Manner;
  int8_t Reserved; /* always 0 */
  uint16_t Place;
  int8_t Voicing;
  int8_t Nasality;
  int8_t Laterality;
  int8_t Airstream;
} IPAPhonemeFeat;

/* The row of `c`: the silence row for "#", null when `c` is not in the
 * inventory. Rows are read-only. */
UTILS_API const IPAPhonemeFeat *GetIPAPhonemeFeat(uint32_t c);

/* A row exists for `c` ("#" included). */
UTILS_API int IsIPAPhoneme(uint32_t c);
/* `c` is "#" (U+0023). */
UTILS_API int IsIPASilence(uint32_t c);
/* `c` is one of the 36 diacritics. */
UTILS_API int IsIPADiacritics(uint32_t c);
/* Some character of the zero-terminated string `s` is a vowel (0 for null). */
UTILS_API int IsIPASyllable(const bsr_wchar *s);

/* Class 1 / Class 2. */
UTILS_API int IsIPAVowel(uint32_t c);
UTILS_API int IsIPAConsonant(uint32_t c);

/* The Height, Backness and Rounding fields (0 outside the inventory). */
UTILS_API int IPAVowelHeight(uint32_t c);
UTILS_API int IPAVowelBackness(uint32_t c);
UTILS_API int IPAVowelRoundedness(uint32_t c);

/* Height 1, 2, 3, 4, 5, 6 and 7 respectively. */
UTILS_API int IsIPAVowelClose(uint32_t c);
UTILS_API int IsIPAVowelNearClose(uint32_t c);
UTILS_API int IsIPAVowelCloseMid(uint32_t c);
UTILS_API int IsIPAVowelMid(uint32_t c);
UTILS_API int IsIPAVowelOpenMid(uint32_t c);
UTILS_API int IsIPAVowelNearOpen(uint32_t c);
UTILS_API int IsIPAVowelOpen(uint32_t c);

/* Manners. A stop is a nasal when its Nasality is 2 and a plosive
 * otherwise; clicks answer none of these. */
UTILS_API int IsIPANasal(uint32_t c);
UTILS_API int IsIPAPlosive(uint32_t c);
UTILS_API int IsIPAFricative(uint32_t c);
UTILS_API int IsIPAApproximant(uint32_t c);
UTILS_API int IsIPATrill(uint32_t c);
UTILS_API int IsIPATapOrFlap(uint32_t c);
UTILS_API int IsIPAAffricate(uint32_t c);
/* Laterality 2. */
UTILS_API int IsIPALateral(uint32_t c);

/* Whether the symbol that starts `s`, with the diacritics after it, is
 * voiced: 0 for null, empty, "#" and symbols outside the inventory; 0
 * unless the symbol is a vowel or has Voicing 1; then 1, except that a
 * voiceless diacritic (U+030A or U+0325) as the second unit gives 0. Only
 * the second unit is looked at. */
UTILS_API int IsIPAVoiced(const bsr_wchar *s);

/* The special symbols: U+0023, U+002E, U+2223, U+02C8 and U+02CC. */
UTILS_API uint32_t IPASilence(void);
UTILS_API uint32_t IPASyllableBreak(void);
UTILS_API uint32_t IPAWordBreak(void);
UTILS_API uint32_t IPAPrimaryStress(void);
UTILS_API uint32_t IPASecondaryStress(void);

/* 115: the rows of the inventory, silence not counted. */
UTILS_API int GetNumIPAPhoneme(void);
/* Writes the 115 code points in ascending order and a terminating 0 into
 * `buf`, which holds at least 116 units. Null is ignored. */
UTILS_API void GetIPAPhonemeSet(bsr_wchar *buf);

UTILS_END_DECLS

#endif /* UTILS_IPA_PHONEME_H */
