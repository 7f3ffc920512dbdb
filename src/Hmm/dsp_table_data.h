// dsp_table_data.h - the constant data behind the DSP lookup accessors. The
// definitions are written by make_dsp_tables at build time into the build tree.
#ifndef UTILS_HMM_DSP_TABLE_DATA_H
#define UTILS_HMM_DSP_TABLE_DATA_H

#include <stdint.h>

namespace utils::hmm {

constexpr unsigned kCosEntries = 4096;
constexpr unsigned kExpIntEntries = 20;
constexpr unsigned kExpFracEntries = 2048;
constexpr unsigned kRandPhaseEntries = 4096;

extern const int16_t kCosTable[kCosEntries];
extern const int32_t kExpIntTable[kExpIntEntries];
extern const uint8_t kExpShiftTable[kExpIntEntries];
extern const uint16_t kExpFracTable[kExpFracEntries];
extern const uint16_t kRandPhaseTable[kRandPhaseEntries];

}  // namespace utils::hmm

#endif  // UTILS_HMM_DSP_TABLE_DATA_H
