// hreplacer_class.h - the replacer object behind the exported HReplacer_*
// functions: an ordered list of rules and the operations that load and apply
// them.
#ifndef UTILS_NLP_TEXTNORM_HREPLACER_CLASS_H
#define UTILS_NLP_TEXTNORM_HREPLACER_CLASS_H

#include <mxml.h>
#include <re2/re2.h>

#include "NLP/NLP_TextNorm/local_object.h"
#include "NLP/NLP_TextNorm/replace_rule.h"
#include "NLP/NLP_TextNorm/text_collector.h"

// Declared in the global namespace to match the opaque type of hreplacer.h.
struct HReplacer : utils::textnorm::LocalObject {
  HReplacer();
  HReplacer(const HReplacer &) = delete;
  HReplacer &operator=(const HReplacer &) = delete;

  // Compiles and appends one rule; 1 on success, 0 when the pattern or the
  // template is rejected.
  virtual int add_rule(re2::StringPiece pattern, re2::StringPiece rewrite);
  // Same for zero-terminated strings; null reads as empty.
  virtual int add_rule(const char *pattern, const char *rewrite);
  // Loads a rule-set text; returns the number of rejected lines.
  virtual int add_rule_set(const char *text, int length);
  // Applies every rule in order to the text under `node`.
  virtual void replace(mxml_node_t *node);
  // A new document <?xml?><speak>text</speak> with the rules applied to the
  // text; the caller frees it with mxmlDelete.
  virtual mxml_node_t *replace_text(const char *text);
  virtual ~HReplacer();

 private:
  void apply_all(utils::textnorm::TextQueue &queue) const;

  utils::textnorm::ReplaceRule rules_;  // sentinel: rules_.next is the first rule
  int count_ = 0;
};

#endif  // UTILS_NLP_TEXTNORM_HREPLACER_CLASS_H
