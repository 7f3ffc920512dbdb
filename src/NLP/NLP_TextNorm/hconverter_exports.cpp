// hconverter_exports.cpp - the exported HConverter_* functions: each forwards to the converter object.
#include "hconverter.h"

#include "NLP/NLP_TextNorm/hconverter_class.h"

extern "C" {

UTILS_API HConverter *HConverter_create(void) { return new HConverter(); }

UTILS_API void HConverter_delete(HConverter *converter) { delete converter; }

UTILS_API int HConverter_add(HConverter *converter, const char *name, ConvertFunc func) {
  return converter != nullptr ? converter->add(name, func) : 0;
}

UTILS_API void HConverter_setSayAs(HConverter *converter, SayAsFunc func) {
  if (converter != nullptr) converter->set_say_as(func);
}

UTILS_API void HConverter_convert(HConverter *converter, mxml_node_t *node) {
  if (converter != nullptr) converter->convert(node);
}

}  // extern "C"
