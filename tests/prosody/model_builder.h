// model_builder.h - model sections with one decision tree and no
// statistics, written byte by byte, and the model bodies and dictionary
// sections that embed them.
#ifndef UTILS_PROSODY_MODEL_BUILDER_H
#define UTILS_PROSODY_MODEL_BUILDER_H

#include <cstdint>
#include <string>
#include <vector>

#include "dict/dict_image_builder.h"

namespace prosody_test {

using dict_test::Bytes;

struct Field {
  std::string name, prefix, suffix;
};
// A node: Id, question, No, Yes (a next value above 0 is a leaf).
struct Node {
  int16_t id, question, no, yes;
};

inline void put_string(Bytes &b, const std::string &s) {
  b.insert(b.end(), s.begin(), s.end());
  b.push_back(0);
}
inline void put_i16(Bytes &b, int v) { dict_test::put_u16(b, static_cast<uint16_t>(v)); }

// A model section: the fields, no windows, one tree over `questions` (each
// a list of patterns), no statistics.
inline Bytes model_section(const std::vector<Field> &fields,
                           const std::vector<std::vector<std::string>> &questions,
                           const std::vector<Node> &nodes) {
  Bytes b;
  dict_test::put_u32(b, static_cast<uint32_t>(fields.size()));
  for (const Field &f : fields) {
    put_string(b, f.name);
    put_string(b, f.prefix);
    put_string(b, f.suffix);
  }
  dict_test::pad4(b);
  dict_test::put_u32(b, 0);  // no windows
  dict_test::put_u32(b, 0);  // stream value
  dict_test::put_u32(b, 1);  // one tree
  dict_test::put_u32(b, 0);  // its value
  dict_test::put_u32(b, 0);  // no statistics rows
  // The tree image.
  std::vector<std::string> patterns;
  for (const auto &q : questions) patterns.insert(patterns.end(), q.begin(), q.end());
  dict_test::put_u32(b, 1);
  dict_test::put_u32(b, static_cast<uint32_t>(patterns.size()));
  for (const std::string &p : patterns) put_string(b, p);
  dict_test::pad4(b);
  dict_test::put_u32(b, static_cast<uint32_t>(questions.size()));
  int index = 0;
  for (const auto &q : questions) {
    put_i16(b, static_cast<int>(q.size()));
    for (size_t k = 0; k < q.size(); ++k) put_i16(b, index++);
    dict_test::pad4(b);
  }
  dict_test::put_u32(b, static_cast<uint32_t>(nodes.size() * 8));
  for (const Node &n : nodes) {
    put_i16(b, n.id);
    put_i16(b, n.question);
    put_i16(b, n.no);
    put_i16(b, n.yes);
  }
  dict_test::put_u32(b, 0);  // no trailing block: the section ends
  return b;
}

// A model body: the unread word, three strings, the model under `keyword`,
// then "end".
inline Bytes model_body(const Bytes &model, const char *keyword) {
  Bytes b;
  dict_test::put_u32(b, 0);
  for (const char *s : {"test", "1", ""}) put_string(b, s);
  dict_test::pad4(b);
  dict_test::put_keyword(b, keyword);
  b.insert(b.end(), model.begin(), model.end());
  dict_test::pad4(b);
  dict_test::put_keyword(b, "end");
  return b;
}

// The dictionary section ("PHRASEBREAK" or "STRESS") holding a body.
inline Bytes model_dict_section(const char *section, const Bytes &body) {
  Bytes b;
  dict_test::put_keyword(b, section);
  dict_test::put_u32(b, static_cast<uint32_t>(4 + body.size()));
  b.insert(b.end(), body.begin(), body.end());
  return b;
}

}  // namespace prosody_test

#endif  // UTILS_PROSODY_MODEL_BUILDER_H
