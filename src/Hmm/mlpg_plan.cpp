// mlpg_plan.cpp - turns a stream's delta windows into the list of non-zero
// products that build a row of the MLPG band matrix (see mlpg_plan.h).
#include "Hmm/mlpg_plan.h"

namespace utils::hmm {

namespace {

// Appends the band terms of shift s of window w; false when out of room.
bool add_terms(const PStream *ps, int w, int s, Plan *plan, int *num_terms) {
  for (int j = 0; j < ps->width && j - s <= ps->win_r_width[w]; ++j) {
    float c = window_coefficient(ps, w, j - s);
    if (c == 0.0f) continue;
    if (*num_terms == kMaxTerms) return false;
    plan->terms[(*num_terms)++] = BandTerm{j, c};
    if (j > plan->max_reach) plan->max_reach = j;
  }
  return true;
}

// Regroups the shift-major terms by band column, keeping shift order
// within each column; false when a term lies beyond kMaxColumns.
bool gather_columns(Plan *plan) {
  plan->num_columns = 0;
  for (int n = 0; n < plan->num_shifts; ++n)
    for (int k = plan->shifts[n].first_term; k < plan->shifts[n].end_term; ++k)
      if (plan->terms[k].j >= plan->num_columns) plan->num_columns = plan->terms[k].j + 1;
  if (plan->num_columns > kMaxColumns) return false;
  int count = 0;
  for (int j = 0; j < plan->num_columns; ++j) {
    plan->column_begin[j] = count;
    for (int n = 0; n < plan->num_shifts; ++n)
      for (int k = plan->shifts[n].first_term; k < plan->shifts[n].end_term; ++k)
        if (plan->terms[k].j == j) plan->columns[count++] = ColumnTerm{n, plan->terms[k].c};
  }
  plan->column_begin[plan->num_columns] = count;
  return true;
}

}  // namespace

bool make_plan(const PStream *ps, int m, Plan *plan) {
  plan->num_shifts = 0;
  plan->min_s = 0;
  plan->max_reach = 0;
  int num_terms = 0;
  for (int w = 0; w < ps->num_windows; ++w) {
    for (int s = ps->win_l_width[w]; s <= ps->win_r_width[w]; ++s) {
      float centre = window_coefficient(ps, w, -s);
      if (centre == 0.0f) continue;
      if (plan->num_shifts == kMaxShifts) return false;
      Shift &shift = plan->shifts[plan->num_shifts++];
      shift.entry = w * ps->vector_length + m;
      shift.s = s;
      shift.centre = centre;
      shift.first_term = num_terms;
      if (!add_terms(ps, w, s, plan, &num_terms)) return false;
      shift.end_term = num_terms;
      if (s < plan->min_s) plan->min_s = s;
      if (s > plan->max_reach) plan->max_reach = s;
    }
  }
  return gather_columns(plan);
}

}  // namespace utils::hmm
