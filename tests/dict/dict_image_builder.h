// dict_image_builder.h - dictionary images written byte by byte for the
// tests: the sections in any order, sizes that may be wrong on purpose.
#ifndef UTILS_DICT_DICT_IMAGE_BUILDER_H
#define UTILS_DICT_DICT_IMAGE_BUILDER_H

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace dict_test {

using Bytes = std::vector<uint8_t>;

inline void put_u32(Bytes &b, uint32_t v) {
  for (int k = 0; k < 4; ++k) b.push_back(static_cast<uint8_t>(v >> (8 * k)));
}
inline void put_u16(Bytes &b, uint16_t v) {
  b.push_back(static_cast<uint8_t>(v));
  b.push_back(static_cast<uint8_t>(v >> 8));
}
inline void put_f32(Bytes &b, float f) {
  uint32_t v;
  std::memcpy(&v, &f, 4);
  put_u32(b, v);
}
inline void pad4(Bytes &b) {
  while (b.size() % 4 != 0) b.push_back(0);
}
inline void put_keyword(Bytes &b, const char *k) {
  b.insert(b.end(), k, k + std::strlen(k) + 1);
  pad4(b);
}
inline void set_u32(Bytes &b, size_t at, uint32_t v) {
  for (int k = 0; k < 4; ++k) b[at + k] = static_cast<uint8_t>(v >> (8 * k));
}

struct ClassEntry {
  std::u16string name;
  uint8_t code;
};
struct PairEntry {
  uint16_t prev, next;
  float score, assoc;
};
struct ReadingEntry {
  uint8_t cls, quant;
};
// The words of one length in sorted order, each with its readings.
struct LengthEntry {
  std::vector<std::u16string> words;
  std::vector<std::vector<ReadingEntry>> readings;
  float max = 0.0f, min = -10.0f;
};

inline Bytes monogram(const std::vector<ClassEntry> &classes, uint32_t default_class) {
  Bytes body;
  Bytes names, codes;
  for (const ClassEntry &c : classes) {
    for (char16_t u : c.name) put_u16(names, u);
    put_u16(names, 0);
    codes.push_back(c.code);
  }
  put_u32(body, static_cast<uint32_t>(classes.size()));
  put_u32(body, default_class);
  put_u32(body, static_cast<uint32_t>(names.size()));
  put_u32(body, static_cast<uint32_t>(codes.size()));
  put_u32(body, 0);
  body.insert(body.end(), names.begin(), names.end());
  body.insert(body.end(), codes.begin(), codes.end());
  pad4(body);
  Bytes out;
  put_keyword(out, "MONOGRAM");
  put_u32(out, static_cast<uint32_t>(body.size()));
  out.insert(out.end(), body.begin(), body.end());
  return out;
}

inline Bytes bigram(const std::vector<PairEntry> &pairs) {
  Bytes out;
  put_keyword(out, "BIGRAM");
  put_u32(out, static_cast<uint32_t>(4 + 12 * pairs.size()));
  put_u32(out, static_cast<uint32_t>(pairs.size()));
  for (const PairEntry &p : pairs) {
    put_u16(out, p.prev);
    put_u16(out, p.next);
    put_f32(out, p.score);
    put_f32(out, p.assoc);
  }
  return out;
}

inline Bytes word_table(uint32_t max_length) {
  Bytes out;
  put_keyword(out, "word-table");
  put_u32(out, max_length);
  return out;
}

inline Bytes word_class(uint32_t length, const LengthEntry &e) {
  Bytes body;
  put_u32(body, static_cast<uint32_t>(e.words.size()));
  for (const std::u16string &w : e.words)
    for (char16_t u : w) put_u16(body, u);
  pad4(body);
  std::vector<uint32_t> multi;
  for (size_t i = 0; i < e.readings.size(); ++i)
    if (e.readings[i].size() > 1) multi.push_back(static_cast<uint32_t>(i));
  put_u32(body, static_cast<uint32_t>(multi.size()));
  for (uint32_t i : multi) put_u32(body, i);
  for (uint32_t i : multi) body.push_back(static_cast<uint8_t>(e.readings[i].size()));
  pad4(body);
  put_u32(body, 0);
  put_f32(body, e.max);
  put_f32(body, e.min);
  for (const auto &rs : e.readings) {
    for (const ReadingEntry &r : rs) {
      body.push_back(0);
      body.push_back(r.cls);
      body.push_back(r.quant);
      body.push_back(0);
    }
  }
  Bytes out;
  put_keyword(out, "WordClass");
  put_u32(out, length);
  put_u32(out, static_cast<uint32_t>(body.size()));
  out.insert(out.end(), body.begin(), body.end());
  return out;
}

inline Bytes end_keyword() {
  Bytes out;
  put_keyword(out, "NLP_END");
  return out;
}

inline Bytes join(std::initializer_list<Bytes> parts) {
  Bytes out;
  for (const Bytes &p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

}  // namespace dict_test

#endif  // UTILS_DICT_DICT_IMAGE_BUILDER_H
