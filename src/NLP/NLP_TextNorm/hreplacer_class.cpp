// Loading rules into a replacer and running them over a document.
#include "NLP/NLP_TextNorm/hreplacer_class.h"

#include "NLP/NLP_TextNorm/rule_pass.h"
#include "NLP/NLP_TextNorm/rule_set_reader.h"
#include "NLP/NLP_TextNorm/text_collector.h"

using textnorm::ReplaceRule;

HReplacer::HReplacer() { rules_.prev = rules_.next = &rules_; }

HReplacer::~HReplacer() {
  ReplaceRule *rule = rules_.next;
  while (rule != &rules_) {
    ReplaceRule *next = rule->next;
    delete rule;
    rule = next;
  }
}

int HReplacer::addRule(re2::StringPiece pattern, re2::StringPiece rewrite) {
  ReplaceRule *rule = ReplaceRule::make(pattern, rewrite);
  if (rule == nullptr) return 0;
  rule->prev = rules_.prev;
  rule->next = &rules_;
  rules_.prev->next = rule;
  rules_.prev = rule;
  ++count_;
  return 1;
}

int HReplacer::addRule(const char *pattern, const char *rewrite) {
  return addRule(re2::StringPiece(pattern ? pattern : ""), re2::StringPiece(rewrite ? rewrite : ""));
}

int HReplacer::addRuleSet(const char *text, int length) {
  return textnorm::readRuleSet(text, length, [this](re2::StringPiece p, re2::StringPiece r) {
    return addRule(p, r) == 1;
  });
}

void HReplacer::applyAll(textnorm::TextQueue &queue) const {
  for (const ReplaceRule *rule = rules_.next; rule != &rules_ && !queue.empty(); rule = rule->next)
    textnorm::applyRule(*rule, queue);
}

void HReplacer::replace(mxml_node_t *node) {
  textnorm::TextQueue queue;
  textnorm::collectText(node, queue);
  applyAll(queue);
}

mxml_node_t *HReplacer::replaceText(const char *text) {
  mxml_node_t *document = mxmlNewXML("1.0");
  if (document == nullptr) return nullptr;
  mxml_node_t *speak = mxmlNewElement(document, "speak");
  if (speak != nullptr && text != nullptr) {
    textnorm::TextQueue queue;
    if (mxml_node_t *child = mxmlNewOpaque(speak, text)) textnorm::pushText(queue, child);
    applyAll(queue);
  }
  return document;
}
