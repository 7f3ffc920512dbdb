// mxml_safe.h - hands document text to Mini-XML only in a form its string
// reader cannot run past the end of.
#ifndef UTILS_MARKUP_MXML_SAFE_H
#define UTILS_MARKUP_MXML_SAFE_H

#include <mxml.h>

namespace utils::markup {

// The error callback the library's loads set: parse errors are reported
// through results alone.
void quiet_parse_errors(const char *message);

// Whether Mini-XML may read `text` as a zero-terminated string. Mini-XML's
// string reader switches to UTF-16 wherever it meets a byte-order mark (the
// bytes FE FF or FF FE), even in the middle of a document, and in UTF-16 it
// reads past the terminating zero. Neither byte ever occurs in UTF-8, and a
// UTF-16 document cannot be passed as a zero-terminated byte string, so
// text holding either is not a document we can load and is refused.
bool safe_for_mxml(const char *text);

// mxmlLoadString under `holder`, after safe_for_mxml; null when the text is
// refused or Mini-XML rejects it.
mxml_node_t *load_string_safely(mxml_node_t *holder, const char *text, mxml_load_cb_t cb);

// Mini-XML copies every element name, attribute and text with strdup and
// does not check that copy: a null name is dereferenced at once. The
// library's own strdup (which Mini-XML, linked into the library, calls)
// hands out an empty string from a small per-thread reserve of real blocks
// when memory runs out, and notes that it did; Mini-XML later frees it like
// any other copy. A function that builds Mini-XML nodes refills the reserve
// first, where running out can still be reported, and afterwards asks
// whether a copy was lost.
//
// Refills the calling thread's reserve and clears its note; false when
// memory ran out (nothing should then be handed to Mini-XML).
bool prepare_mxml_copies();
// Whether a copy was replaced by an empty string since prepare_mxml_copies.
bool mxml_copy_lost();

}  // namespace utils::markup

#endif  // UTILS_MARKUP_MXML_SAFE_H
