// hconverter_class.h - the converter object behind the exported HConverter_*
// functions: the callbacks by element name and the say-as callback, and the
// tree rewrite.
#ifndef UTILS_NLP_TEXTNORM_HCONVERTER_CLASS_H
#define UTILS_NLP_TEXTNORM_HCONVERTER_CLASS_H

#include <mxml.h>

#include <cstring>
#include <map>

#include "NLP/NLP_TextNorm/local_object.h"
#include "hconverter.h"

// Declared in the global namespace to match the opaque type of hconverter.h.
struct HConverter : utils::textnorm::LocalObject {
  HConverter() = default;
  HConverter(const HConverter &) = delete;
  HConverter &operator=(const HConverter &) = delete;

  // Registers `func` for `name` (kept by pointer); 1 when added, 0 when the
  // name is already present or an argument is null.
  virtual int add(const char *name, ConvertFunc func);
  // Replaces the say-as callback; null switches say-as handling off.
  virtual void set_say_as(SayAsFunc func);
  // Converts the elements below `node`, inner ones first.
  virtual void convert(mxml_node_t *node);
  virtual ~HConverter() = default;

 private:
  struct NameLess {
    bool operator()(const char *a, const char *b) const { return std::strcmp(a, b) < 0; }
  };

  void convert_element(mxml_node_t *element);
  void convert_rule_element(mxml_node_t *element, CStr *work);
  void convert_say_as(mxml_node_t *element, CStr *work);

  std::map<const char *, ConvertFunc, NameLess> callbacks_;
  SayAsFunc say_as_ = nullptr;
};

#endif  // UTILS_NLP_TEXTNORM_HCONVERTER_CLASS_H
