// dsp_tables.cpp - the exported DSP lookup accessors: one load each from the
// constant tables that the build generates (see make_dsp_tables.cc).
#include "dsp_tables.h"

#include "Hmm/dsp_table_data.h"

extern "C" {

UTILS_API int LookupCosTable(unsigned int index) { return utils::hmm::kCosTable[index]; }

UTILS_API int LookupExpTableIn(unsigned int index) { return utils::hmm::kExpIntTable[index]; }

UTILS_API int LookupExpTableShift(unsigned int index) { return utils::hmm::kExpShiftTable[index]; }

UTILS_API int LookupExpTableFr(unsigned int index) { return utils::hmm::kExpFracTable[index]; }

UTILS_API int LookupRandPhase(unsigned int index) { return utils::hmm::kRandPhaseTable[index]; }

}  // extern "C"
