// Reading the rewrite-template language of rule sets into a template tree:
//   "...?0..?name:1.."  or  name{ "..." child{...} ... }
#ifndef NLP_TEXTNORM_TEMPLATE_PARSER_H
#define NLP_TEXTNORM_TEMPLATE_PARSER_H

#include <re2/re2.h>

#include "NLP/NLP_TextNorm/node_template.h"

namespace textnorm {

// Parses `text` for a pattern with `groupCount` capture groups. Returns the
// root element template (owned by the caller), or null when the text does not
// parse, names a capture group the pattern lacks, or memory runs out.
ElementTemplate *parseTemplate(re2::StringPiece text, int groupCount);

}  // namespace textnorm

#endif
