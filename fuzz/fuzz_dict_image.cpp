// fuzz_dict_image.cpp - arbitrary bytes as a dictionary image: the checker
// must stay inside the image, and every image it accepts must be created and
// segment texts in both modes with a path that spells the text.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "guarded_input.h"
#include "nlp_dict.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

// The words of the chosen path, joined.
std::u16string spelled(NLPDIC_Node *head, const char16_t *separator) {
  std::u16string out;
  int guard = 0;
  for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link) {
    check(++guard < 100000);
    check(n->Word != nullptr);
    check(n->Length == static_cast<int32_t>(std::u16string(n->Word).size()));
    if (!out.empty()) out += separator;
    out += n->Word;
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > (1u << 20)) return 0;
  const unsigned char *image = fuzz::guarded_bytes(data, size);
  const size_t fault = NLPDIC_Check(image, size);
  check(fault <= (size == 0 ? 1 : size));
  if (fault != 0) return 0;
  NLPDIC *dict = NLPDIC_Create(image);
  if (dict == nullptr) return 0;
  NLPDIC_GetDefaultID(dict);
  const char16_t *texts[] = {u"a", u"ab", u"abcdefgh", u"\u4EAC\u5317\u6211\u7231", u"zz a zz"};
  for (const char16_t *text : texts) {
    NLPDIC_Node *head = NLPDIC_DictBreak(dict, text, 1);
    check(head != nullptr);
    const std::u16string words = spelled(head, u"");
    // A path that kept an earlier predecessor may skip text, never add any.
    check(words.size() <= std::u16string(text).size());
    NLPDIC_DeleNode(head);
    head = NLPDIC_DictBreak(dict, text, 0);
    check(head != nullptr);
    spelled(head, u" ");
    NLPDIC_DeleNode(head);
  }
  NLPDIC_Destroy(dict);
  return 0;
}
