// hconverter_exports.cpp - the exported HConverter_* functions: each
// forwards to the converter object, and those that reach the standard
// containers turn an exhausted-memory exception into their failure result.
#include "hconverter.h"

#include "NLP/NLP_TextNorm/hconverter_class.h"
#include "Utils/Markup/mxml_safe.h"
#include "Utils/TextMemory/guarded.h"

extern "C" {

// Making the converter may meet exhausted memory: null then.
UTILS_API HConverter *HConverter_create(void) {
  return utils::guarded(static_cast<HConverter *>(nullptr), [] { return new HConverter(); });
}

UTILS_API void HConverter_delete(HConverter *converter) { delete converter; }

UTILS_API int HConverter_add(HConverter *converter, const char *name, ConvertFunc func) {
  if (converter == nullptr) return 0;
  return utils::guarded(0, [&] { return converter->add(name, func); });
}

UTILS_API void HConverter_setSayAs(HConverter *converter, SayAsFunc func) {
  if (converter != nullptr) converter->set_say_as(func);
}

// When memory runs out part way, the elements converted so far keep their
// new form.
UTILS_API void HConverter_convert(HConverter *converter, mxml_node_t *node) {
  if (converter == nullptr || !utils::markup::prepare_mxml_copies()) return;
  utils::guarded_void([&] { converter->convert(node); });
}

}  // extern "C"
