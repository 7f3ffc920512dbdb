// template_parser.cpp - a recursive-descent reader of rewrite templates. Every
// failure unwinds by deleting the partly built tree, so a rejected template
// leaks nothing.
#include "NLP/NLP_TextNorm/template_parser.h"

#include <memory>

namespace utils::textnorm {

namespace {

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}
bool is_digit(char c) { return c >= '0' && c <= '9'; }

class TemplateParser {
 public:
  TemplateParser(re2::StringPiece text, int group_count)
      : at_(text.data()), end_(text.data() + text.size()), group_count_(group_count) {}

  ElementTemplate *parse() {
    skip_blanks();
    if (at_end()) return nullptr;
    std::unique_ptr<ElementTemplate> root;
    if (*at_ == '"') {
      root.reset(new ElementTemplate("x"));
      if (!root || !read_quoted_body(*root)) return nullptr;
    } else {
      root.reset(read_element());
      if (!root) return nullptr;
    }
    // Only white space may follow the template: anything else is most
    // likely a typing error in the rule set, so the line is rejected.
    skip_blanks();
    return at_end() ? root.release() : nullptr;
  }

 private:
  bool at_end() const { return at_ >= end_; }
  void skip_blanks() {
    while (!at_end() && is_blank(*at_)) ++at_;
  }

  // name{ children }, the cursor on the first character of the name.
  ElementTemplate *read_element() {
    const char *name = at_;
    while (!at_end() && !is_blank(*at_) && *at_ != '{') ++at_;
    if (at_ == name) return nullptr;
    std::unique_ptr<ElementTemplate> element(new ElementTemplate(std::string(name, at_)));
    if (!element) return nullptr;
    skip_blanks();
    if (at_end() || *at_ != '{') return nullptr;
    ++at_;
    for (;;) {
      skip_blanks();
      if (at_end()) return nullptr;
      if (*at_ == '}') {
        ++at_;
        return element.release();
      }
      if (*at_ == '"') {
        if (!read_quoted_body(*element)) return nullptr;
      } else {
        ElementTemplate *child = read_element();
        if (child == nullptr) return nullptr;
        element->add_child(child);
      }
    }
  }

  // A decimal N naming capture group N+1, which the pattern must have.
  bool read_group(int &group) {
    if (at_end() || !is_digit(*at_)) return false;
    long n = 0;
    while (!at_end() && is_digit(*at_)) {
      n = n * 10 + (*at_++ - '0');
      if (n >= group_count_) {
        // Too large already; finish the number so the error is the group.
        while (!at_end() && is_digit(*at_)) ++at_;
        return false;
      }
    }
    group = static_cast<int>(n) + 1;
    return true;
  }

  // Hands the text template being built to `element` when it holds pieces.
  static bool close_text(ElementTemplate &element, std::unique_ptr<TextTemplate> &text) {
    if (!text->empty()) element.add_child(text.release());
    text.reset(new TextTemplate());
    return text != nullptr;
  }

  // "?name:N": an element `name` holding the text of capture group N+1.
  bool read_named_group(ElementTemplate &element) {
    const char *name = at_;
    while (!at_end() && *at_ != ':' && *at_ != '"') ++at_;
    if (at_end() || *at_ != ':' || at_ == name) return false;
    std::unique_ptr<ElementTemplate> child(new ElementTemplate(std::string(name, at_)));
    ++at_;
    int group = 0;
    if (!child || !read_group(group)) return false;
    NodeTemplate *group_text = new GroupText(group);
    if (group_text == nullptr) return false;
    child->add_child(group_text);
    element.add_child(child.release());
    return true;
  }

  // From the opening quote to the closing one; the nodes go to `element`.
  bool read_quoted_body(ElementTemplate &element) {
    ++at_;
    std::unique_ptr<TextTemplate> text(new TextTemplate());
    if (!text) return false;
    while (!at_end()) {
      char c = *at_++;
      if (c == '"') return close_text(element, text);
      if (c == '\\') {
        if (at_end()) return false;
        if (!text->append_literal(*at_++)) return false;
      } else if (c == '?') {
        if (!at_end() && is_digit(*at_)) {
          int group = 0;
          if (!read_group(group) || !text->append_group(group)) return false;
        } else {
          if (!close_text(element, text) || !read_named_group(element)) return false;
        }
      } else if (!text->append_literal(c)) {
        return false;
      }
    }
    return false;
  }

  const char *at_;
  const char *end_;
  int group_count_;
};

}  // namespace

ElementTemplate *parse_template(re2::StringPiece text, int group_count) {
  return TemplateParser(text, group_count).parse();
}

}  // namespace utils::textnorm
