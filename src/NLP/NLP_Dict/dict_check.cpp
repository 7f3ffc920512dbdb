// dict_check.cpp - NLPDIC_Check: an image validated against its byte size
// before NLPDIC_Create, which trusts it, ever sees it.
//
// Sound means: every section starts 4-aligned with a known keyword whose
// field is zero-padded; every size and count keeps its section and the
// image inside `size`; the class names are complete strings; the class-pair
// records fit; "word-table" comes once, before every "WordClass", with a
// maximum of at most kMaxWordLength; every word length is 1..maximum and
// comes once; words are sorted strictly ascending and hold no zero unit;
// multi-reading indexes are strictly ascending, below the word count, with
// at least one reading each; the reading records fit; score bounds are
// finite; the model sections' bodies have their header and end in a keyword;
// a "MONOGRAM" section is present and the image ends with "NLP_END".
#include <cmath>

#include "NLP/NLP_Dict/dict_image.h"
#include "NLP/NLP_Dict/model_holder.h"
#include "bsr_string.h"

namespace utils::nlpdict {
namespace {

// Longest word length an image may declare; a dictionary of longer words
// is not one this library was made for, and the slot table stays small.
constexpr uint32_t kMaxWordLength = 4096;

class Checker {
 public:
  Checker(const uint8_t *image, uint64_t size) : image_(image), size_(size) {}

  // 0 when sound, else the fault's offset (0 reported as 1).
  size_t run() {
    const uint64_t fault = walk();
    if (fault == kSound) return 0;
    return fault == 0 ? 1 : static_cast<size_t>(fault);
  }

 private:
  static constexpr uint64_t kSound = UINT64_MAX;

  bool fits(uint64_t at, uint64_t bytes) const { return at <= size_ && bytes <= size_ - at; }
  uint32_t u32(uint64_t at) const { return read_u32(image_ + at); }

  // The keyword at `at` and the offset after its padded field, or false.
  bool keyword(uint64_t at, const char **word, uint64_t *after) const {
    uint64_t k = at;
    while (k < size_ && image_[k] != 0) ++k;
    if (k >= size_) return false;
    const uint64_t field = at + ((k - at + 1 + 3) & ~uint64_t{3});
    if (field > size_) return false;
    for (uint64_t z = k; z < field; ++z)
      if (image_[z] != 0) return false;
    *word = reinterpret_cast<const char *>(image_ + at);
    *after = field;
    return true;
  }

  uint64_t walk() {
    if (image_ == nullptr) return 0;
    uint64_t at = 0;
    bool classes = false, table = false;
    uint32_t max_length = 0;
    bool seen_length[kMaxWordLength + 1] = {};
    uint64_t total_words = 0;
    for (;;) {
      const char *word = nullptr;
      uint64_t s = 0;
      if (at % 4 != 0 || !keyword(at, &word, &s)) return at;
      if (bsr_strcmp(word, "NLP_END") == 0) return classes ? kSound : at;
      if (bsr_strcmp(word, "MONOGRAM") == 0) {
        if (!fits(s, 4)) return s;
        const uint64_t body = s + 4, bytes = u32(s);
        if (!fits(body, bytes)) return s;
        if (const uint64_t f = class_table(body, bytes); f != kSound) return f;
        classes = true;
        at = body + bytes;
      } else if (bsr_strcmp(word, "BIGRAM") == 0) {
        if (!fits(s, 4)) return s;
        const uint64_t body = s + 4, bytes = u32(s);
        if (!fits(body, bytes)) return s;
        if (bytes < 4 || 4 + uint64_t{u32(body)} * 12 > bytes) return body;
        at = body + bytes;
      } else if (bsr_strcmp(word, "word-table") == 0) {
        if (!fits(s, 4)) return s;
        if (table) return at;
        max_length = u32(s);
        if (max_length > kMaxWordLength) return s;
        table = true;
        at = s + 4;
      } else if (bsr_strcmp(word, "WordClass") == 0) {
        if (!fits(s, 8)) return s;
        const uint32_t length = u32(s);
        if (!table || length == 0 || length > max_length || seen_length[length]) return s;
        seen_length[length] = true;
        const uint64_t body = s + 8, bytes = u32(s + 4);
        if (!fits(body, bytes)) return s + 4;
        if (const uint64_t f = word_list(length, body, bytes, &total_words); f != kSound) return f;
        at = body + bytes;
      } else if (bsr_strcmp(word, "PHRASEBREAK") == 0 || bsr_strcmp(word, "STRESS") == 0) {
        if (!fits(s, 4)) return s;
        const uint32_t bytes = u32(s);
        if (bytes < 4 || !fits(s, bytes)) return s;
        const char *sub = bsr_strcmp(word, "STRESS") == 0 ? kStressKeyword : kPhraseBreakKeyword;
        if (const uint64_t f = model_body(s + 4, bytes - 4, sub); f != kSound) return f;
        at = s + bytes;
      } else {
        return at;
      }
    }
  }

  uint64_t class_table(uint64_t body, uint64_t bytes) const {
    if (bytes < 20) return body;
    const uint32_t count = u32(body);
    const uint64_t names = u32(body + 8), codes = u32(body + 12);
    if (names % 2 != 0 || 20 + names + codes > bytes) return body + 8;
    if (codes > count) return body + 12;
    // Every name a code byte can select must be complete inside the block.
    uint64_t p = body + 20;
    const uint64_t names_end = p + names;
    for (uint32_t j = 0; j < count; ++j) {
      while (p + 1 < names_end && read_u16(image_ + p) != 0) p += 2;
      if (p + 1 >= names_end) return p;
      p += 2;
    }
    return kSound;
  }

  uint64_t word_list(uint32_t length, uint64_t body, uint64_t bytes, uint64_t *total) const {
    const uint64_t end = body + bytes;
    if (!fits(body, 4) || body + 4 > end) return body;
    const uint32_t count = u32(body);
    const uint64_t words = body + 4;
    const uint64_t words_bytes = (uint64_t{count} * length * 2 + 3) & ~uint64_t{3};
    if (words + words_bytes + 4 > end) return body;
    *total += count;
    if (*total > INT32_MAX) return body;
    const uint64_t stride = uint64_t{length} * 2;
    for (uint64_t w = 0; w < count; ++w) {
      const uint64_t at = words + w * stride;
      for (uint32_t k = 0; k < length; ++k)
        if (read_u16(image_ + at + 2 * k) == 0) return at + 2 * k;
      if (w > 0 && !ascending(at - stride, at, length)) return at;
    }
    const uint64_t multi_at = words + words_bytes;
    const uint32_t multi = u32(multi_at);
    const uint64_t index = multi_at + 4;
    const uint64_t readings = index + uint64_t{multi} * 4;
    const uint64_t tail = readings + ((uint64_t{multi} + 3) & ~uint64_t{3});
    if (tail + 12 > end) return multi_at;
    uint64_t records = count;
    for (uint32_t m = 0; m < multi; ++m) {
      const uint32_t local = u32(index + 4 * uint64_t{m});
      if (local >= count || (m > 0 && local <= u32(index + 4 * uint64_t{m} - 4)))
        return index + 4 * uint64_t{m};
      if (image_[readings + m] == 0) return readings + m;
      records += image_[readings + m] - 1u;
    }
    if (!std::isfinite(read_f32(image_ + tail + 4))) return tail + 4;
    if (!std::isfinite(read_f32(image_ + tail + 8))) return tail + 8;
    if (tail + 12 + records * 4 > end) return tail + 12;
    return kSound;
  }

  bool ascending(uint64_t a, uint64_t b, uint32_t length) const {
    for (uint32_t k = 0; k < length; ++k) {
      const uint16_t x = read_u16(image_ + a + 2 * k), y = read_u16(image_ + b + 2 * k);
      if (x != y) return x < y;
    }
    return false;
  }

  // The body's header, then keyword sub-sections: the model keyword with a
  // model after it, until a keyword that is not the model's.
  uint64_t model_body(uint64_t body, uint32_t bytes, const char *model_keyword) const {
    const uint32_t header = model_body_header(image_ + body, bytes);
    if (header == 0) return body;
    const Checker inner(image_ + body, bytes);
    uint64_t at = header;
    for (;;) {
      const char *word = nullptr;
      uint64_t after = 0;
      if (!inner.keyword(at, &word, &after)) return body + at;
      if (bsr_strcmp(word, model_keyword) != 0) return kSound;
      const uint64_t used = model_size(image_ + body + after, bytes - after);
      if (used == 0) return body + after;
      at = after + used;
    }
  }

  // The bytes of a model that starts at `model` and is sound within
  // `bytes`, or 0.
  static uint64_t model_size(const uint8_t *model, uint64_t bytes) {
    return checked_model_size(model, static_cast<size_t>(bytes));
  }

  const uint8_t *image_;
  uint64_t size_;
};

}  // namespace
}  // namespace utils::nlpdict

extern "C" UTILS_API size_t NLPDIC_Check(const void *image, size_t size) {
  return utils::nlpdict::Checker(static_cast<const uint8_t *>(image), size).run();
}
