// workload_text.cpp - text and memory: the local allocator, string copies,
// a growing CStr and Unicode conversion.
#include <cstdlib>

#include "bsr_cstr.h"
#include "bsr_string.h"
#include "bsr_unicode.h"
#include "workload.h"

namespace {

using alloc_test::kDone;
using alloc_test::kFailed;
using alloc_test::Outcome;
using alloc_test::Record;

Outcome grow_cstr(Record &out) {
  CStr *s = CStrCreate(4);
  if (s == nullptr) return kFailed;
  for (int k = 0; k < 300; ++k) {
    const int32_t r = (k % 3 == 0) ? CStrAppendC(s, 'x') : CStrAppend(s, "words ");
    if (r == CSTR_ENOMEM) {
      CStrDestroy(s);
      return kFailed;
    }
  }
  out.append_int(CStrLength(s));
  out.append(" ");
  CStrErase(s, 10);
  out.append(CStrStr(s));
  CStrDestroy(s);
  return kDone;
}

Outcome copy_strings(Record &out) {
  char *local = tts_strdup("gr\xC3\xBC\xC3\x9F dich");
  bsr_wchar *wide = tts_wcsdup(u"\x4E2D\x6587 text");
  char *runtime = bsr_strndup("abcdefgh", 5);
  bsr_wchar *runtime_wide = bsr_wcsdup(u"wide");
  const bool all =
      local != nullptr && wide != nullptr && runtime != nullptr && runtime_wide != nullptr;
  if (all) {
    char narrow[64];
    bsr_UTF16ToUTF8(wide, BSR_ZERO_TERMINATED, narrow, sizeof narrow);
    out.append(" ");
    out.append(local);
    out.append(narrow);
    out.append(runtime);
    out.append_int(bsr_wcslen(runtime_wide));
  }
  bsr_free(local);
  bsr_free(wide);
  free(runtime);
  free(runtime_wide);
  return all ? kDone : kFailed;
}

Outcome text_workload(Record &out) {
  if (grow_cstr(out) == kFailed) return kFailed;
  return copy_strings(out);
}

}  // namespace

UTILS_ALLOC_WORKLOAD(text, text_workload)
