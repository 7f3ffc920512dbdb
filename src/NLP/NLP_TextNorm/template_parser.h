// template_parser.h - reading the rewrite-template language of rule sets into a
// template tree:
//   "...?0..?name:1.."  or  name{ "..." child{...} ... }
#ifndef UTILS_NLP_TEXTNORM_TEMPLATE_PARSER_H
#define UTILS_NLP_TEXTNORM_TEMPLATE_PARSER_H

#include <re2/re2.h>

#include "NLP/NLP_TextNorm/node_template.h"

namespace utils::textnorm {

// Parses `text` for a pattern with `group_count` capture groups. Returns the
// root element template (owned by the caller), or null when the text does not
// parse, names a capture group the pattern lacks, or memory runs out.
ElementTemplate *parse_template(re2::StringPiece text, int group_count);

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_TEMPLATE_PARSER_H
