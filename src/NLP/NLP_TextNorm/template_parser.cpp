// A recursive-descent reader of rewrite templates. Every failure unwinds by
// deleting the partly built tree, so a rejected template leaks nothing.
#include "NLP/NLP_TextNorm/template_parser.h"

#include <memory>

namespace textnorm {

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}
bool isDigit(char c) { return c >= '0' && c <= '9'; }

class TemplateParser {
 public:
  TemplateParser(re2::StringPiece text, int groupCount)
      : at_(text.data()), end_(text.data() + text.size()), groupCount_(groupCount) {}

  ElementTemplate *parse() {
    skipBlanks();
    if (atEnd()) return nullptr;
    std::unique_ptr<ElementTemplate> root;
    if (*at_ == '"') {
      root.reset(new ElementTemplate("x"));
      if (!root || !readQuotedBody(*root)) return nullptr;
    } else {
      root.reset(readElement());
      if (!root) return nullptr;
    }
    // Only white space may follow the template: anything else is most
    // likely a typing error in the rule set, so the line is rejected.
    skipBlanks();
    return atEnd() ? root.release() : nullptr;
  }

 private:
  bool atEnd() const { return at_ >= end_; }
  void skipBlanks() {
    while (!atEnd() && isBlank(*at_)) ++at_;
  }

  // name{ children }, the cursor on the first character of the name.
  ElementTemplate *readElement() {
    const char *name = at_;
    while (!atEnd() && !isBlank(*at_) && *at_ != '{') ++at_;
    if (at_ == name) return nullptr;
    std::unique_ptr<ElementTemplate> element(new ElementTemplate(std::string(name, at_)));
    if (!element) return nullptr;
    skipBlanks();
    if (atEnd() || *at_ != '{') return nullptr;
    ++at_;
    for (;;) {
      skipBlanks();
      if (atEnd()) return nullptr;
      if (*at_ == '}') {
        ++at_;
        return element.release();
      }
      if (*at_ == '"') {
        if (!readQuotedBody(*element)) return nullptr;
      } else {
        ElementTemplate *child = readElement();
        if (child == nullptr) return nullptr;
        element->addChild(child);
      }
    }
  }

  // A decimal N naming capture group N+1, which the pattern must have.
  bool readGroup(int &group) {
    if (atEnd() || !isDigit(*at_)) return false;
    long n = 0;
    while (!atEnd() && isDigit(*at_)) {
      n = n * 10 + (*at_++ - '0');
      if (n >= groupCount_) {
        // Too large already; finish the number so the error is the group.
        while (!atEnd() && isDigit(*at_)) ++at_;
        return false;
      }
    }
    group = static_cast<int>(n) + 1;
    return true;
  }

  // Hands the text template being built to `element` when it holds pieces.
  static bool closeText(ElementTemplate &element, std::unique_ptr<TextTemplate> &text) {
    if (!text->empty()) element.addChild(text.release());
    text.reset(new TextTemplate());
    return text != nullptr;
  }

  // "?name:N": an element `name` holding the text of capture group N+1.
  bool readNamedGroup(ElementTemplate &element) {
    const char *name = at_;
    while (!atEnd() && *at_ != ':' && *at_ != '"') ++at_;
    if (atEnd() || *at_ != ':' || at_ == name) return false;
    std::unique_ptr<ElementTemplate> child(new ElementTemplate(std::string(name, at_)));
    ++at_;
    int group = 0;
    if (!child || !readGroup(group)) return false;
    NodeTemplate *groupText = new GroupText(group);
    if (groupText == nullptr) return false;
    child->addChild(groupText);
    element.addChild(child.release());
    return true;
  }

  // From the opening quote to the closing one; the nodes go to `element`.
  bool readQuotedBody(ElementTemplate &element) {
    ++at_;
    std::unique_ptr<TextTemplate> text(new TextTemplate());
    if (!text) return false;
    while (!atEnd()) {
      char c = *at_++;
      if (c == '"') return closeText(element, text);
      if (c == '\\') {
        if (atEnd()) return false;
        if (!text->appendLiteral(*at_++)) return false;
      } else if (c == '?') {
        if (!atEnd() && isDigit(*at_)) {
          int group = 0;
          if (!readGroup(group) || !text->appendGroup(group)) return false;
        } else {
          if (!closeText(element, text) || !readNamedGroup(element)) return false;
        }
      } else if (!text->appendLiteral(c)) {
        return false;
      }
    }
    return false;
  }

  const char *at_;
  const char *end_;
  int groupCount_;
};

}  // namespace

ElementTemplate *parseTemplate(re2::StringPiece text, int groupCount) {
  return TemplateParser(text, groupCount).parse();
}

}  // namespace textnorm
