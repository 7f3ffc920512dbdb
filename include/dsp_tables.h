/* dsp_tables.h - constant fixed-point tables for the waveform generator:
 * cosine, exponential/logarithm helpers and random phases.
 *
 * Each accessor is one indexed load from read-only data: no state, no
 * bounds check. An index outside the stated range is undefined behaviour;
 * callers keep within it. The tables may be shared by any number of threads.
 * */
#ifndef UTILS_DSP_TABLES_H
#define UTILS_DSP_TABLES_H

#include "utils_types.h"

UTILS_BEGIN_DECLS

/* index 0..4095 stands for the angle 2*pi*index/4096. Returns
 * round(32767 * cos(angle)) in Q15, -32767..32767. Entry 3375, whose exact
 * value is 14687.50014, holds 14687 (the table was computed in single
 * precision); its mirror entry 721 holds 14688. */
UTILS_API int LookupCosTable(unsigned int index);

/* index 0..19. Returns round(e^index): 1, 3, 7, 20, ..., 178482301. */
UTILS_API int LookupExpTableIn(unsigned int index);

/* index 0..19. Returns the smallest s for which LookupExpTableIn(index) >> s
 * is below 2^20 (0 up to index 13), so that a Q10 fraction times the shifted
 * integer part stays within 32 bits. */
UTILS_API int LookupExpTableShift(unsigned int index);

/* index 0..2047, Q10 (1024 = 1.0).
 *   0..1023:    round(1024 * e^(index/1024)), 1024 up to 2781: e^x for x in
 *               [0, 1), so that e^(n + x) = LookupExpTableIn(n) * this / 1024;
 *   1024..2047: round(1024 * log2(1 + j/1024)) with j = index - 1024,
 *               0 up to 1023: log2 of a mantissa in [1, 2). */
UTILS_API int LookupExpTableFr(unsigned int index);

/* index 0..4095. A fixed pseudo-random even value in 2..65512, the same in
 * every run and every build. */
UTILS_API int LookupRandPhase(unsigned int index);

UTILS_END_DECLS

#endif /* UTILS_DSP_TABLES_H */
