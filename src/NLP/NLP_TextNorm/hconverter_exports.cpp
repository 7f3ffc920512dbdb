// hconverter_exports.cpp - the exported HConverter_* functions: each
// forwards to the converter object; registering a callback may meet an
// exhausted-memory exception of the standard map, which becomes a 0.
#include "hconverter.h"

#include "NLP/NLP_TextNorm/hconverter_class.h"
#include "Utils/TextMemory/guarded.h"

extern "C" {

UTILS_API HConverter *HConverter_create(void) { return new HConverter(); }

UTILS_API void HConverter_delete(HConverter *converter) { delete converter; }

UTILS_API int HConverter_add(HConverter *converter, const char *name, ConvertFunc func) {
  if (converter == nullptr) return 0;
  return utils::guarded(0, [&] { return converter->add(name, func); });
}

UTILS_API void HConverter_setSayAs(HConverter *converter, SayAsFunc func) {
  if (converter != nullptr) converter->set_say_as(func);
}

UTILS_API void HConverter_convert(HConverter *converter, mxml_node_t *node) {
  if (converter != nullptr) converter->convert(node);
}

}  // extern "C"
