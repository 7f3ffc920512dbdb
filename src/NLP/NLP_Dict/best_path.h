// best_path.h - the class-pair Viterbi search over a segmentation lattice:
// for each node, the predecessor (a node ending just before it starts) with
// the best path score plus transition, and that score.
//
// The best predecessor is deliberately not reset between nodes: a node that
// no predecessor scores above the starting best keeps the one chosen for the
// node searched before it, in column order across the whole lattice. Both
// ways of searching a node here (through the score square, or through the
// pair table itself) do the same single-precision arithmetic,
// (PathScore + Score) + transition, so both give the same result.
#ifndef UTILS_NLP_DICT_BEST_PATH_H
#define UTILS_NLP_DICT_BEST_PATH_H

#include <cstdint>

#include "NLP/NLP_Dict/dict_image.h"
#include "NLP/NLP_Dict/lattice_pool.h"

namespace utils::nlpdict {

inline constexpr float kNoPath = -500000.0f;  // the starting best of each node

// The row (and column) of a class in the score square of `pairs`.
inline uint32_t square_row(const NLPDIC_PairTable *pairs, int32_t class_id) {
  if (class_id <= -1) return pairs->dense_count + 1;
  const uint16_t code = static_cast<uint16_t>(class_id);
  return code < pairs->code_limit ? pairs->dense_of[code] : 0;
}

// The nodes of one end column, which are the predecessors of the nodes of
// the start column after it, with their path scores and score-square rows,
// gathered in list order. `count` is kTooMany when the column holds more
// nodes than the arrays.
inline constexpr uint32_t kGathered = 16;
inline constexpr uint32_t kTooMany = UINT32_MAX;
struct Predecessors {
  uint32_t count;
  NLPDIC_Node *node[kGathered];
  float reached[kGathered];
  const float *row[kGathered];
};

// Adds node `p`, whose path score is found and which carries its row in the
// score square of `pairs`, to the end of `preds`.
inline void add_predecessor(const NLPDIC_PairTable *pairs, Predecessors &preds, NLPDIC_Node *p) {
  if (preds.count >= kGathered) {
    preds.count = kTooMany;
    return;
  }
  preds.node[preds.count] = p;
  preds.reached[preds.count] = p->PathScore + p->Score;
  preds.row[preds.count] =
      pairs->scores + reinterpret_cast<const LatticeNode *>(p)->row * (pairs->dense_count + 2);
  ++preds.count;
}

// Searches node `n` (whose row is set) among gathered predecessors. The
// loop works on locals: `best_pred` and `preds` may live in one record,
// and a store to the one would make the compiler reload the other.
inline void score_gathered(const Predecessors &preds, NLPDIC_Node *n, NLPDIC_Node *&best_pred) {
  const uint32_t column = reinterpret_cast<const LatticeNode *>(n)->row;
  const uint32_t count = preds.count;
  float best = kNoPath;
  NLPDIC_Node *chosen = nullptr;
  for (uint32_t j = 0; j < count; ++j) {
    const float x = preds.reached[j] + preds.row[j][column];
    if (x > best) {
      best = x;
      chosen = preds.node[j];
    }
  }
  if (chosen != nullptr) best_pred = chosen;
  n->PathScore = best;
  n->Link = best_pred;
}

// Searches node `n` among the list `enders`, asking the pair table for each
// transition.
void score_listed(const NLPDIC *dict, NLPDIC_Node *enders, NLPDIC_Node *n, NLPDIC_Node *&best_pred);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_BEST_PATH_H
