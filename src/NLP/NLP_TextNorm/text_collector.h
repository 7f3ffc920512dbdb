// Finding the text a replacer may rewrite: the text nodes under a node,
// in document order, outside protected elements.
#ifndef NLP_TEXTNORM_TEXT_COLLECTOR_H
#define NLP_TEXTNORM_TEXT_COLLECTOR_H

#include <mxml.h>

#include <cstddef>
#include <deque>

namespace textnorm {

// A text node waiting for the rules, with its text and length noted once so
// that each pass need not touch the node or measure the text again.
struct QueuedText {
  mxml_node_t *node;
  const char *text;
  size_t length;
};

using TextQueue = std::deque<QueuedText>;

// Queues `node` (an opaque text node) at the back.
void pushText(TextQueue &queue, mxml_node_t *node);

// True for element names whose text is never rewritten: names beginning with
// 'x' (made by rules) and exactly "sub" or "say-as" (already spoken forms).
bool isProtectedElement(const char *name);

// True when `text` is white space only (or empty).
bool isBlankText(const char *text);

// Appends to `queue`, in document order, every text node below `top` that is
// not blank and not inside a protected element. `top` itself is not looked at.
void collectText(mxml_node_t *top, TextQueue &queue);

}  // namespace textnorm

#endif
