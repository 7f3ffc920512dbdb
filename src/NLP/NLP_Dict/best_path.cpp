// best_path.cpp - the search of one node through the pair table itself, for
// dictionaries without a score square and end columns too long to gather.
#include "NLP/NLP_Dict/best_path.h"

namespace utils::nlpdict {
namespace {

float transition(const NLPDIC *dict, const NLPDIC_Node *p, const NLPDIC_Node *n) {
  if (p->ClassId <= -1 || n->ClassId <= -1) return kSentinelPair;
  const uint8_t *entry = pair_entry(dict->Bigram, static_cast<uint16_t>(p->ClassId),
                                    static_cast<uint16_t>(n->ClassId));
  return entry == nullptr ? kMissingPair : read_f32(entry + 4);
}

}  // namespace

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

}  // namespace utils::nlpdict
