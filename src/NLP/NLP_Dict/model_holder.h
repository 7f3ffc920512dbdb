// model_holder.h - the phrase-break and stress models embedded in a
// dictionary: a model body (a header, then keyword sub-sections holding
// models) read into a one-field holder.
#ifndef UTILS_NLP_DICT_MODEL_HOLDER_H
#define UTILS_NLP_DICT_MODEL_HOLDER_H

#include <cstddef>
#include <cstdint>

#include "hts_model.h"

namespace utils::nlpdict {

struct ModelHolder {
  HTSModel *model;  // the model of the body's last model sub-section, or null
};

inline constexpr const char *kPhraseBreakKeyword = "phrase_break";
inline constexpr const char *kStressKeyword = "SentenceStress";

// Reads a model body whose model sub-sections carry `keyword`. Null for a
// null body or exhausted memory.
ModelHolder *create_model_holder(const uint8_t *body, const char *keyword);
void destroy_model_holder(ModelHolder *holder);

// The byte length of the body's header (the unread word, three strings and
// the padding), from which its sub-sections start, for a body of `size`
// bytes; 0 when it does not fit.
uint32_t model_body_header(const uint8_t *body, uint32_t size);

// The bytes of the sound model section at `model` that HTSModel_Create
// would report consumed, found within `size` bytes; 0 when no prefix of
// them is a sound section.
size_t checked_model_size(const uint8_t *model, size_t size);

}  // namespace utils::nlpdict

#endif  // UTILS_NLP_DICT_MODEL_HOLDER_H
