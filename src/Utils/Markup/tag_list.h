// tag_list.h - internal helpers over the space-separated tag lists of the
// SSML schema: the membership test and the schema entries not exported.
#ifndef UTILS_MARKUP_TAG_LIST_H
#define UTILS_MARKUP_TAG_LIST_H

#include "utils_types.h"

namespace utils::markup {

// True when `name` is a member of `list`, that is when " name " occurs in
// it. Exact and case-sensitive; false for a null or empty name and for a
// null list.
bool tag_in_list(const bsr_wchar *list, const bsr_wchar *name);

// The "mark" element of the schema and its parent list (not exported).
const bsr_wchar *mark_tag_name();
const bsr_wchar *mark_parent_tag();

}  // namespace utils::markup

#endif  // UTILS_MARKUP_TAG_LIST_H
