// cstr_layout.cpp - the exported data symbol `CStr`: the byte size of the CStr
// record that the library was built with, so an engine can check its header at
// start-up.
//
// This file must not see bsr_cstr.h: there `CStr` names the record type, and
// a type and an object cannot share a name in one translation unit.
#include "Utils/TextMemory/cstr_layout.h"
#include "utils_types.h"

extern "C" {
UTILS_API extern const uint32_t CStr;
const uint32_t CStr = utils::text::kCStrRecordSize;
}
