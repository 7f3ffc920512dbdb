// hreplacer_class.cpp - loading rules into a replacer and running them over a
// document.
#include "NLP/NLP_TextNorm/hreplacer_class.h"

#include "NLP/NLP_TextNorm/rule_pass.h"
#include "NLP/NLP_TextNorm/rule_set_reader.h"
#include "NLP/NLP_TextNorm/text_collector.h"
#include "Utils/Markup/ssml_names.h"

using utils::textnorm::ReplaceRule;

HReplacer::HReplacer() { rules_.prev = rules_.next = &rules_; }

HReplacer::~HReplacer() {
  ReplaceRule *rule = rules_.next;
  while (rule != &rules_) {
    ReplaceRule *next = rule->next;
    delete rule;
    rule = next;
  }
}

int HReplacer::add_rule(re2::StringPiece pattern, re2::StringPiece rewrite) {
  ReplaceRule *rule = ReplaceRule::make(pattern, rewrite);
  if (rule == nullptr) return 0;
  rule->prev = rules_.prev;
  rule->next = &rules_;
  rules_.prev->next = rule;
  rules_.prev = rule;
  ++count_;
  return 1;
}

int HReplacer::add_rule(const char *pattern, const char *rewrite) {
  return add_rule(re2::StringPiece(pattern != nullptr ? pattern : ""),
                  re2::StringPiece(rewrite != nullptr ? rewrite : ""));
}

int HReplacer::add_rule_set(const char *text, int length) {
  return utils::textnorm::read_rule_set(
      text, length, [this](re2::StringPiece p, re2::StringPiece r) { return add_rule(p, r) == 1; });
}

void HReplacer::apply_all(utils::textnorm::TextQueue &queue) const {
  for (const ReplaceRule *rule = rules_.next; rule != &rules_ && !queue.empty(); rule = rule->next)
    utils::textnorm::apply_rule(*rule, queue);
}

void HReplacer::replace(mxml_node_t *node) {
  utils::textnorm::TextQueue queue;
  utils::textnorm::collect_text(node, queue);
  apply_all(queue);
}

mxml_node_t *HReplacer::replace_text(const char *text) {
  mxml_node_t *document = mxmlNewXML("1.0");
  if (document == nullptr) return nullptr;
  mxml_node_t *speak = mxmlNewElement(document, utils::markup::kRootElement);
  if (speak != nullptr && text != nullptr) {
    utils::textnorm::TextQueue queue;
    if (mxml_node_t *child = mxmlNewOpaque(speak, text); child != nullptr)
      utils::textnorm::push_text(queue, child);
    apply_all(queue);
  }
  return document;
}
