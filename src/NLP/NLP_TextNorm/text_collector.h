// text_collector.h - finding the text a replacer may rewrite: the text nodes
// under a node, in document order, outside protected elements.
#ifndef UTILS_NLP_TEXTNORM_TEXT_COLLECTOR_H
#define UTILS_NLP_TEXTNORM_TEXT_COLLECTOR_H

#include <mxml.h>

#include <cstddef>
#include <deque>

namespace utils::textnorm {

// A text node waiting for the rules, with its text and length noted once so
// that each pass need not touch the node or measure the text again.
struct QueuedText {
  mxml_node_t *node;
  const char *text;
  size_t length;
};

using TextQueue = std::deque<QueuedText>;

// Queues `node` (an opaque text node) at the back.
void push_text(TextQueue &queue, mxml_node_t *node);

// True for element names whose text is never rewritten: names beginning with
// 'x' (made by rules) and exactly "sub" or "say-as" (already spoken forms).
bool is_protected_element(const char *name);

// True when `text` is white space only (or empty).
bool is_blank_text(const char *text);

// Appends to `queue`, in document order, every text node below `top` that is
// not blank and not inside a protected element. `top` itself is not looked at.
void collect_text(mxml_node_t *top, TextQueue &queue);

}  // namespace utils::textnorm

#endif  // UTILS_NLP_TEXTNORM_TEXT_COLLECTOR_H
