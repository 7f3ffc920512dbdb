// A replacer that lives for one test, loaded from rule-set text.
#ifndef TESTS_TEXTNORM_REPLACER_FIXTURE_H
#define TESTS_TEXTNORM_REPLACER_FIXTURE_H

#include <string>

#include "hreplacer.h"
#include "textnorm/xml_fixture.h"

namespace textnorm_test {

class Replacer {
 public:
  Replacer() : r_(HReplacer_create()) {}
  explicit Replacer(const std::string &rules) : Replacer() { rejected_ = load(rules); }
  ~Replacer() { HReplacer_delete(r_); }
  Replacer(const Replacer &) = delete;
  Replacer &operator=(const Replacer &) = delete;

  int load(const std::string &rules) {
    return HReplacer_addRuleSet(r_, rules.data(), static_cast<int>(rules.size()));
  }
  int rejected() const { return rejected_; }
  HReplacer *get() const { return r_; }

  // The children of <speak> after running the rules over `ssml_body`.
  std::string run(const std::string &ssml_body) const {
    Doc doc("<speak>" + ssml_body + "</speak>");
    HReplacer_replace(r_, doc.tree());
    return doc.str();
  }

 private:
  HReplacer *r_;
  int rejected_ = 0;
};

}  // namespace textnorm_test

#endif
