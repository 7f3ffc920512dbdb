// mlpg_plan.h - the windows of a stream turned into a list of the non-zero
// products that build one row of W'U^-1 W, so the per-frame loop does no window
// search.
#ifndef UTILS_HMM_MLPG_PLAN_H
#define UTILS_HMM_MLPG_PLAN_H

#include "hts_pstream.h"

namespace utils::hmm {

// One (window, shift s) pair whose centre coefficient c(-s) is non-zero:
// frame t takes statistics from frame t + s. Its band terms are the j with
// j - s inside the window and c(j - s) != 0, in increasing j.
struct Shift {
  int entry;       // index into a frame's mean/ivar row: w * vector_length + m
  int s;           // frame offset
  float centre;    // c(-s)
  int first_term;  // first of this shift's band terms
  int end_term;    // one past its last
};

struct BandTerm {
  int j;    // band column, 0 <= j < width
  float c;  // c(j - s)
};

// The same terms gathered by band column: column j's sum takes, in shift
// order, c times the weighted inverse variance of shift `shift`.
struct ColumnTerm {
  int shift;
  float c;
};

// Fixed room, enough for any usual window set (three windows of half-width
// up to 4 need at most 27 shifts and 243 terms). Larger sets are generated
// by the plain loop instead.
constexpr int kMaxShifts = 48;
constexpr int kMaxTerms = 256;
constexpr int kMaxColumns = 48;

struct Plan {
  Shift shifts[kMaxShifts];
  BandTerm terms[kMaxTerms];      // by shift
  ColumnTerm columns[kMaxTerms];  // by column
  int column_begin[kMaxColumns + 1];
  int num_shifts;
  int num_columns;  // columns up to the last one any term reaches
  int min_s;        // smallest frame offset of any shift (0 when none)
  int max_reach;    // largest frame offset read or written: max(s, j)
};

// Fills the plan for dimension m. Both term lists keep the order in which
// the row sums accumulate: window by window, shift from left to right.
// Returns false when the windows need more room than the plan has.
bool make_plan(const PStream *ps, int m, Plan *plan);

// Coefficient of window w at offset k; 0 outside the window.
inline float window_coefficient(const PStream *ps, int w, int k) {
  int left = ps->win_l_width[w];
  if (k < left || k > ps->win_r_width[w]) return 0.0f;
  return ps->win_coefficient[w][k - left];
}

}  // namespace utils::hmm

#endif  // UTILS_HMM_MLPG_PLAN_H
