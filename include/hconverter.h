/* hconverter.h - the say-as converter: turns elements made by the replacer
 * (names beginning with x) and say-as elements into sub elements whose
 * "alias" attribute holds the spoken form, through callbacks of the caller.
 *
 * After conversion an element reads
 *     <sub alias="spoken form">written form</sub>
 * Elements are converted inner first, so an outer element's alias is built
 * from text that inner elements have already converted. */
#ifndef UTILS_HCONVERTER_H
#define UTILS_HCONVERTER_H

#include "bsr_cstr.h"
#include "utils_types.h"

UTILS_BEGIN_DECLS

/* Reads one x... element: `text` is its written text (null when the element
 * does not start with text). Appends the spoken form to `out` and returns 0,
 * or returns non-zero to leave the text as it is. */
typedef int (*ConvertFunc)(const char *text, CStr *out);

/* Reads one say-as element: `text` is its text; the three attributes are
 * passed as written, null when absent. Appends the spoken form to `out` and
 * returns 0, or non-zero to leave the element unchanged. */
typedef int (*SayAsFunc)(const char *text, CStr *out, const char *interpret_as, const char *format,
                         const char *detail);

typedef struct HConverter HConverter;

/* New converter with no callbacks, or null when memory is exhausted. */
UTILS_API HConverter *HConverter_create(void);

/* Frees the converter (not the names given to HConverter_add). Null is ignored. */
UTILS_API void HConverter_delete(HConverter *converter);

/* Registers `func` for elements named exactly `name`. The name is kept by
 * pointer, not copied: it must outlive the converter. A name already present
 * keeps its first callback. Returns 1 when registered, 0 when the name was
 * present or an argument is null. */
UTILS_API int HConverter_add(HConverter *converter, const char *name, ConvertFunc func);

/* Sets the say-as callback; null turns say-as handling off (the initial state). */
UTILS_API void HConverter_setSayAs(HConverter *converter, SayAsFunc func);

/* Converts every x... and say-as element below `node` (not `node` itself),
 * inner elements first, in place. Null arguments do nothing. */
UTILS_API void HConverter_convert(HConverter *converter, mxml_node_t *node);

/* Splits a written number into its parts for a reader: `sign` gets a leading
 * '+' or '-' (after blanks, TABs, CRs and LFs), `integer_digits` every ASCII
 * digit before the first occurrence of decimal_point[0], `fraction_digits`
 * every digit after it; all other bytes (group separators, spaces, letters,
 * further decimal points) are dropped. The three outputs are emptied first.
 *
 * Returns 0 on success (also for blank text: all outputs empty), -10 when an
 * argument is null or text, decimal_point or group_separator is empty
 * (nothing is written), or the CStr error code of a failed append. */
UTILS_API int SayAsCardinal(const char *text, const char *decimal_point,
                            const char *group_separator, CStr *sign, CStr *integer_digits,
                            CStr *fraction_digits);

UTILS_END_DECLS

#endif /* UTILS_HCONVERTER_H */
