/* ssml_tags.h - the fixed SSML tag schema: element names, and for the main
 * structural elements the tags that may enclose them and that they enclose.
 *
 * Every function returns a pointer to a constant, zero-terminated UTF-16
 * string in read-only data. The caller never frees or modifies it. The
 * functions keep no state and may be called from any thread at any time.
 *
 * A tag name is the bare, lower-case element name ("p", "say-as").
 * A tag list holds tag names (mostly in alphabetical order), each separated
 * by one space, with one space before the first and one after the last:
 *     " audio lang lookup prosody speak voice "
 * so that a name is a member exactly when " name " occurs in the list ("s"
 * is not found inside "speak"). An empty list is "" with no spaces at all.
 * These lists are what AddTag (ssml_io.h) takes as its child and parent
 * lists. */
#ifndef UTILS_SSML_TAGS_H
#define UTILS_SSML_TAGS_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* Paragraph: "p". */
UTILS_API const bsr_wchar *ParaTagName(void);
UTILS_API const bsr_wchar *ParaParentTag(void);
UTILS_API const bsr_wchar *ParaChildTag(void);

/* Sentence: "s". Its children are those of a paragraph less "s". */
UTILS_API const bsr_wchar *SentenceTagName(void);
UTILS_API const bsr_wchar *SentenceParentTag(void);
UTILS_API const bsr_wchar *SentenceChildTag(void);

/* Token: "token". */
UTILS_API const bsr_wchar *TokenTagName(void);
UTILS_API const bsr_wchar *TokenParentTag(void);
UTILS_API const bsr_wchar *TokenChildTag(void);

/* Word: "word". Unlike a token, a word may enclose "prosody". */
UTILS_API const bsr_wchar *WordTagName(void);
UTILS_API const bsr_wchar *WordParentTag(void);
UTILS_API const bsr_wchar *WordChildTag(void);

/* Language span: "lang". It may enclose "p", "s" and "w", but not "word". */
UTILS_API const bsr_wchar *LangTagName(void);
UTILS_API const bsr_wchar *LangParentTag(void);
UTILS_API const bsr_wchar *LangChildTag(void);

/* Break: "break". Its child list is empty (""): a break encloses nothing. */
UTILS_API const bsr_wchar *BreakTagName(void);
UTILS_API const bsr_wchar *BreakParentTag(void);
UTILS_API const bsr_wchar *BreakChildTag(void);

/* Names only: "sub", "phoneme", "say-as", "syllable", "phone", "prosody",
 * "voice". */
UTILS_API const bsr_wchar *SubTagName(void);
UTILS_API const bsr_wchar *PhonemeTagName(void);
UTILS_API const bsr_wchar *SayAsTagName(void);
UTILS_API const bsr_wchar *SyllableTagName(void);
UTILS_API const bsr_wchar *PhoneTagName(void);
UTILS_API const bsr_wchar *ProsodyTagName(void);
UTILS_API const bsr_wchar *VoiceTagName(void);

UTILS_END_DECLS

#endif /* UTILS_SSML_TAGS_H */
