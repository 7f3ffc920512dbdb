// best_path.cpp - the search of a finished lattice, column by column, through
// the score square when the dictionary has one and the pair table otherwise.
#include "NLP/NLP_Dict/best_path.h"

#include "bsr_string.h"

namespace utils::nlpdict {
namespace {

const bsr_wchar kEnd[] = u"ENDTOK";

float transition(const NLPDIC *dict, const NLPDIC_Node *p, const NLPDIC_Node *n) {
  if (p->ClassId <= -1 || n->ClassId <= -1) return kSentinelPair;
  const uint8_t *entry = pair_entry(dict->Bigram, static_cast<uint16_t>(p->ClassId),
                                    static_cast<uint16_t>(n->ClassId));
  return entry == nullptr ? kMissingPair : read_f32(entry + 4);
}

// A whole column through the score square. The predecessors are the outer
// loop, so that the comparisons of different nodes do not wait on each
// other; each node still sees its predecessors in list order. Returns false,
// having changed nothing, when the column has more nodes than the arrays
// hold or its predecessors could not be gathered.
bool search_column_square(NLPDIC_Node *first, const Predecessors &preds, NLPDIC_Node *&best_pred) {
  if (preds.count == kTooMany) return false;
  NLPDIC_Node *node[kGathered];
  uint32_t column[kGathered];
  float best[kGathered];
  int32_t chosen[kGathered];
  uint32_t nodes = 0;
  for (NLPDIC_Node *n = first; n != nullptr; n = n->NextInColumn) {
    if (nodes == kGathered) return false;
    node[nodes] = n;
    column[nodes] = reinterpret_cast<const LatticeNode *>(n)->row;
    best[nodes] = kNoPath;
    chosen[nodes] = -1;
    ++nodes;
  }
  for (uint32_t j = 0; j < preds.count; ++j) {
    const float from = preds.reached[j];
    const float *scores = preds.row[j];
    for (uint32_t i = 0; i < nodes; ++i) {
      const float x = from + scores[column[i]];
      if (x > best[i]) {
        best[i] = x;
        chosen[i] = static_cast<int32_t>(j);
      }
    }
  }
  for (uint32_t i = 0; i < nodes; ++i) {
    if (chosen[i] >= 0) best_pred = preds.node[chosen[i]];
    node[i]->PathScore = best[i];
    node[i]->Link = best_pred;
  }
  return true;
}

}  // namespace

void gather_predecessors(const NLPDIC_PairTable *pairs, NLPDIC_Node *enders, Predecessors *out) {
  out->count = 0;
  for (NLPDIC_Node *p = enders; p != nullptr && out->count != kTooMany; p = p->NextEnding)
    add_predecessor(pairs, *out, p);
}

void score_listed(const NLPDIC *dict, NLPDIC_Node *enders, NLPDIC_Node *n,
                  NLPDIC_Node *&best_pred) {
  float best = kNoPath;
  for (NLPDIC_Node *p = enders; p != nullptr; p = p->NextEnding) {
    const float reached = p->PathScore + p->Score;
    const float x = reached + transition(dict, p, n);
    if (x > best) {
      best = x;
      best_pred = p;
    }
  }
  n->PathScore = best;
  n->Link = best_pred;
}

void find_best_path(const NLPDIC *dict, NLPDIC_Node **begin, NLPDIC_Node **end, uint32_t last) {
  const NLPDIC_PairTable *pairs = dict->Bigram;
  const bool square = pairs != nullptr && pairs->scores != nullptr;
  NLPDIC_Node *best_pred = nullptr;
  Predecessors preds;
  for (uint32_t k = 1; k <= last; ++k) {
    NLPDIC_Node *first = begin[k];
    bool done = false;
    if (square) {
      gather_predecessors(pairs, end[k - 1], &preds);
      done = search_column_square(first, preds, best_pred);
    }
    if (!done)
      for (NLPDIC_Node *n = first; n != nullptr; n = n->NextInColumn)
        score_listed(dict, end[k - 1], n, best_pred);
    if (first != nullptr && first->Word[0] == kEnd[0] && bsr_wcscmp(first->Word, kEnd) == 0) break;
  }
}

}  // namespace utils::nlpdict
