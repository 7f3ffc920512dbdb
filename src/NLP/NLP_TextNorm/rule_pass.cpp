// rule_pass.cpp - cutting matches out of text nodes. For each match only the
// stretch from the first to the last non-empty capture group is replaced; text
// before it stays as text, and text after it is searched again by the same
// rule.
#include "NLP/NLP_TextNorm/rule_pass.h"

#include <string>
#include <vector>

namespace utils::textnorm {

namespace {

// The stretch of one match that its element replaces.
struct Cut {
  size_t start;  // first byte replaced
  size_t end;    // one past the last byte replaced; the search resumes here
};

Cut cut_of(const re2::StringPiece &text, const std::vector<re2::StringPiece> &groups) {
  bool any = false;
  size_t start = 0, end = 0;
  for (size_t k = 1; k < groups.size(); ++k) {
    const re2::StringPiece &g = groups[k];
    if (g.data() == nullptr || g.empty()) continue;  // empty counts as unmatched
    size_t from = static_cast<size_t>(g.data() - text.data());
    size_t to = from + g.size();
    if (!any || from < start) start = from;
    if (!any || to > end) end = to;
    any = true;
  }
  if (!any) {
    size_t match_end = static_cast<size_t>(groups[0].data() - text.data()) + groups[0].size();
    start = end = match_end;
  }
  return {start, end};
}

// Bytes in the UTF-8 character that starts at text[at] (1 for a stray byte).
size_t char_length(const re2::StringPiece &text, size_t at) {
  unsigned char lead = static_cast<unsigned char>(text[at]);
  size_t n = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  return at + n <= text.size() ? n : text.size() - at;
}

// Links a new text node holding text[from, to) before `anchor` and queues it.
void insert_text(mxml_node_t *anchor, const re2::StringPiece &text, size_t from, size_t to,
                 TextQueue &queue) {
  std::string copy(text.data() + from, to - from);
  mxml_node_t *node = mxmlNewOpaque(MXML_NO_PARENT, copy.c_str());
  if (node == nullptr) return;
  mxmlAdd(mxmlGetParent(anchor), MXML_ADD_BEFORE, anchor, node);
  queue.push_back({node, mxmlGetOpaque(node), copy.size()});
}

// Links the rule's element for one match before `anchor`, recording the
// text it replaces in "src". Nothing is linked when the template made nothing.
void insert_element(const ReplaceRule &rule, mxml_node_t *anchor, const re2::StringPiece &text,
                    const Cut &cut, const std::vector<re2::StringPiece> &groups) {
  // The copy first: it may throw, and the element must not exist unlinked then.
  const std::string src(text.data() + cut.start, cut.end - cut.start);
  mxml_node_t *made = rule.rewrite->generate(groups.data());
  if (made == nullptr) return;
  mxmlElementSetAttr(made, "src", src.c_str());
  mxmlAdd(mxmlGetParent(anchor), MXML_ADD_BEFORE, anchor, made);
}

// Rewrites one text node; returns false (and changes nothing) when the rule
// does not match it.
bool rewrite_node(const ReplaceRule &rule, const QueuedText &entry, TextQueue &queue,
                  std::vector<re2::StringPiece> &groups) {
  const re2::StringPiece text(entry.text, entry.length);
  // Most nodes do not match most rules. Asking only whether there is a match
  // lets RE2 skip the submatch machinery, which costs more than the search.
  if (!rule.pattern->Match(text, 0, text.size(), re2::RE2::UNANCHORED, nullptr, 0)) return false;
  mxml_node_t *node = entry.node;
  if (mxmlGetParent(node) == nullptr) return false;
  const int n = static_cast<int>(groups.size());
  size_t kept = 0;    // start of the text not yet placed
  size_t search = 0;  // where the next search begins
  bool matched = false;
  while (search <= text.size() &&
         rule.pattern->Match(text, search, text.size(), re2::RE2::UNANCHORED, groups.data(), n)) {
    matched = true;
    Cut cut = cut_of(text, groups);
    if (cut.start > kept) insert_text(node, text, kept, cut.start, queue);
    insert_element(rule, node, text, cut, groups);
    kept = cut.end;
    // After an empty match the resume point is the match itself, and a new
    // search from there would find it again: step over one character.
    if (groups[0].empty()) {
      if (cut.end >= text.size()) break;
      search = cut.end + char_length(text, cut.end);
    } else {
      search = cut.end;
    }
  }
  if (!matched) return false;
  if (kept < text.size()) insert_text(node, text, kept, text.size(), queue);
  mxmlDelete(node);
  return true;
}

}  // namespace

void apply_rule(const ReplaceRule &rule, TextQueue &queue) {
  // One submatch array per pass, shared by every node of the pass.
  std::vector<re2::StringPiece> groups(rule.pattern->NumberOfCapturingGroups() + 1);
  for (size_t left = queue.size(); left > 0; --left) {
    QueuedText entry = queue.front();
    queue.pop_front();
    if (!rewrite_node(rule, entry, queue, groups)) queue.push_back(entry);
  }
}

}  // namespace utils::textnorm
