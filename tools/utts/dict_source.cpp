// dict_source.cpp - dictionary text read, compiled to an image, and written
// back from one.
#include "utts/dict_source.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <sstream>

#include "nlp_dict.h"
#include "utts/image_kinds.h"
#include "utts/model_text.h"

namespace utts {

namespace {

void put_u32(std::vector<uint8_t> &b, uint32_t v) {
  for (int k = 0; k < 4; ++k) b.push_back(static_cast<uint8_t>(v >> (8 * k)));
}
void put_u16(std::vector<uint8_t> &b, uint32_t v) {
  b.push_back(static_cast<uint8_t>(v));
  b.push_back(static_cast<uint8_t>(v >> 8));
}
void put_f32(std::vector<uint8_t> &b, float f) {
  uint32_t v;
  std::memcpy(&v, &f, 4);
  put_u32(b, v);
}
void pad4(std::vector<uint8_t> &b) {
  while (b.size() % 4 != 0) b.push_back(0);
}
void put_keyword(std::vector<uint8_t> &b, const char *k) {
  b.insert(b.end(), k, k + std::strlen(k) + 1);
  pad4(b);
}
uint32_t get_u32(const std::vector<uint8_t> &b, size_t at) {
  return static_cast<uint32_t>(b[at]) | static_cast<uint32_t>(b[at + 1]) << 8 |
         static_cast<uint32_t>(b[at + 2]) << 16 | static_cast<uint32_t>(b[at + 3]) << 24;
}
float get_f32(const std::vector<uint8_t> &b, size_t at) {
  const uint32_t v = get_u32(b, at);
  float f;
  std::memcpy(&f, &v, 4);
  return f;
}
uint16_t get_u16(const std::vector<uint8_t> &b, size_t at) {
  return static_cast<uint16_t>(b[at] | b[at + 1] << 8);
}

std::vector<std::string> fields_of(const std::string &line) {
  std::vector<std::string> out;
  std::istringstream in(line);
  std::string f;
  while (in >> f) out.push_back(f);
  return out;
}

bool parse_float(const std::string &s, double &out) {
  char *end = nullptr;
  out = std::strtod(s.c_str(), &end);
  return end != s.c_str() && *end == 0 && std::isfinite(out);
}

bool parse_unsigned(const std::string &s, unsigned long max, unsigned &out) {
  char *end = nullptr;
  const unsigned long v = std::strtoul(s.c_str(), &end, 10);
  if (s.empty() || *end != 0 || s[0] == '-' || v > max) return false;
  out = static_cast<unsigned>(v);
  return true;
}

const char *const kBodyStrings[3] = {"utts", "1", ""};

// A model body: the unread word, three strings, the model under its keyword,
// and "end".
std::vector<uint8_t> model_body(const std::vector<uint8_t> &model, const char *keyword) {
  std::vector<uint8_t> body;
  put_u32(body, 0);
  for (const char *s : kBodyStrings) body.insert(body.end(), s, s + std::strlen(s) + 1);
  pad4(body);
  put_keyword(body, keyword);
  body.insert(body.end(), model.begin(), model.end());
  pad4(body);
  put_keyword(body, "end");
  return body;
}

}  // namespace

std::u16string utf8_to_utf16(const std::string &s) {
  std::u16string out;
  for (size_t i = 0; i < s.size();) {
    const unsigned char c = static_cast<unsigned char>(s[i]);
    uint32_t cp = 0xFFFD;
    size_t n = 1;
    if (c < 0x80) {
      cp = c;
    } else if ((c >> 5) == 6 && i + 1 < s.size()) {
      cp = (c & 0x1Fu) << 6 | (s[i + 1] & 0x3Fu);
      n = 2;
    } else if ((c >> 4) == 14 && i + 2 < s.size()) {
      cp = (c & 0x0Fu) << 12 | (s[i + 1] & 0x3Fu) << 6 | (s[i + 2] & 0x3Fu);
      n = 3;
    } else if ((c >> 3) == 30 && i + 3 < s.size()) {
      cp = (c & 0x07u) << 18 | (s[i + 1] & 0x3Fu) << 12 | (s[i + 2] & 0x3Fu) << 6 |
           (s[i + 3] & 0x3Fu);
      n = 4;
    }
    if (cp >= 0x10000) {
      cp -= 0x10000;
      out += static_cast<char16_t>(0xD800 + (cp >> 10));
      out += static_cast<char16_t>(0xDC00 + (cp & 0x3FF));
    } else {
      out += static_cast<char16_t>(cp);
    }
    i += n;
  }
  return out;
}

std::string utf16_to_utf8(const std::u16string &s) {
  std::string out;
  for (size_t i = 0; i < s.size(); ++i) {
    uint32_t cp = s[i];
    if (cp >= 0xD800 && cp < 0xDC00 && i + 1 < s.size() && s[i + 1] >= 0xDC00 && s[i + 1] < 0xE000)
      cp = 0x10000 + ((cp - 0xD800) << 10) + (s[++i] - 0xDC00);
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | cp >> 6);
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      out += static_cast<char>(0xE0 | cp >> 12);
      out += static_cast<char>(0x80 | (cp >> 6 & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | cp >> 18);
      out += static_cast<char>(0x80 | (cp >> 12 & 0x3F));
      out += static_cast<char>(0x80 | (cp >> 6 & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return out;
}

bool read_dict_source(const std::string &text, const std::string &where, std::string section,
                      DictSource &source, std::string &error) {
  std::istringstream in(text);
  std::string line;
  std::map<std::string, unsigned> code_of;
  for (const DictSource::Class &c : source.classes) code_of.emplace(c.name, c.code);
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::vector<std::string> f = fields_of(line);
    auto fail = [&](const std::string &why) {
      error = where + ":" + std::to_string(number) + ": " + why;
      return false;
    };
    if (f.size() == 1 && f[0].size() > 2 && f[0].front() == '[' && f[0].back() == ']') {
      section = f[0].substr(1, f[0].size() - 2);
      if (section != "classes" && section != "pairs" && section != "words" &&
          section != "phrase_break" && section != "stress")
        return fail("unknown section " + f[0]);
      continue;
    }
    // Model text keeps its own lexical rules; it is handed on line by line.
    if (section == "phrase_break" || section == "stress") {
      (section == "stress" ? source.stress_text : source.phrase_break_text) += line + "\n";
      continue;
    }
    if (f.empty() || f[0][0] == '#') continue;
    auto class_code = [&](const std::string &name, unsigned &code) {
      auto it = code_of.find(name);
      if (it == code_of.end()) return false;
      code = it->second;
      return true;
    };
    if (section == "classes") {
      if (f[0] == "default") {
        if (f.size() != 2) return fail("expected: default NAME");
        source.default_class = f[1];
        continue;
      }
      if (f.size() > 2) return fail("expected: NAME [CODE]");
      unsigned code = static_cast<unsigned>(source.classes.size());
      if (f.size() == 2 && !parse_unsigned(f[1], 255, code)) return fail("bad class code " + f[1]);
      if (code_of.count(f[0]) != 0) return fail("class " + f[0] + " listed twice");
      code_of.emplace(f[0], code);
      source.classes.push_back({f[0], code});
    } else if (section == "pairs") {
      unsigned a = 0, b = 0;
      double score = 0, assoc = 0;
      if (f.size() != 4) return fail("expected: EARLIER LATER SCORE ASSOCIATION");
      if (!class_code(f[0], a)) return fail("unknown class " + f[0]);
      if (!class_code(f[1], b)) return fail("unknown class " + f[1]);
      if (!parse_float(f[2], score) || !parse_float(f[3], assoc)) return fail("bad number");
      source.pairs.push_back({a, b, static_cast<float>(score), static_cast<float>(assoc)});
    } else if (section == "words") {
      if (f[0] == "range" && f.size() == 4) {
        unsigned length = 0;
        double max = 0, min = 0;
        if (!parse_unsigned(f[1], 4096, length) || length == 0) return fail("bad length " + f[1]);
        if (!parse_float(f[2], max) || !parse_float(f[3], min) || max < min)
          return fail("bad range");
        source.ranges[length] = {static_cast<float>(max), static_cast<float>(min)};
        continue;
      }
      if (f.size() != 3) return fail("expected: WORD CLASS SCORE");
      unsigned code = 0;
      double score = 0;
      if (!class_code(f[1], code)) return fail("unknown class " + f[1]);
      if (!parse_float(f[2], score)) return fail("bad score " + f[2]);
      const std::u16string word = utf8_to_utf16(f[0]);
      if (word.size() > 4096) return fail("word longer than 4096 units");
      std::vector<DictSource::Reading> &readings = source.words[word];
      if (readings.size() == 255) return fail("more than 255 readings of one word");
      readings.push_back({code, score});
    } else {
      return fail("a line outside [classes], [pairs] and [words]");
    }
  }
  if (!source.default_class.empty()) {
    unsigned code = 0;
    auto it = code_of.find(source.default_class);
    if (it == code_of.end()) {
      error = where + ": the default class " + source.default_class + " is not listed";
      return false;
    }
    code = it->second;
    source.default_code = code;
  }
  return true;
}

bool encode_models(DictSource &source, std::string &error) {
  const struct {
    const char *name;
    const std::string &text;
    std::vector<uint8_t> &image;
  } models[] = {{"phrase_break", source.phrase_break_text, source.phrase_break},
                {"stress", source.stress_text, source.stress}};
  for (const auto &m : models) {
    if (m.text.empty()) continue;
    ModelText model;
    std::string bytes;
    if (!parse_model(m.text, model, error) || !encode_model(model, bytes, error)) {
      error = std::string("[") + m.name + "] " + error;
      return false;
    }
    m.image.assign(bytes.begin(), bytes.end());
  }
  return true;
}

std::vector<uint8_t> compile_dict(const DictSource &source) {
  std::vector<uint8_t> image;
  {
    std::vector<uint8_t> names, codes, body;
    for (const DictSource::Class &c : source.classes) {
      for (char16_t u : utf8_to_utf16(c.name)) put_u16(names, u);
      put_u16(names, 0);
      codes.push_back(static_cast<uint8_t>(c.code));
    }
    put_u32(body, static_cast<uint32_t>(source.classes.size()));
    put_u32(body, source.default_code);
    put_u32(body, static_cast<uint32_t>(names.size()));
    put_u32(body, static_cast<uint32_t>(codes.size()));
    put_u32(body, 0);
    body.insert(body.end(), names.begin(), names.end());
    body.insert(body.end(), codes.begin(), codes.end());
    pad4(body);
    put_keyword(image, "MONOGRAM");
    put_u32(image, static_cast<uint32_t>(body.size()));
    image.insert(image.end(), body.begin(), body.end());
  }
  put_keyword(image, "BIGRAM");
  put_u32(image, static_cast<uint32_t>(4 + 12 * source.pairs.size()));
  put_u32(image, static_cast<uint32_t>(source.pairs.size()));
  for (const DictSource::Pair &p : source.pairs) {
    put_u16(image, p.prev);
    put_u16(image, p.next);
    put_f32(image, p.score);
    put_f32(image, p.association);
  }
  uint32_t max_length = 0;
  for (const auto &w : source.words)
    max_length = std::max<uint32_t>(max_length, static_cast<uint32_t>(w.first.size()));
  put_keyword(image, "word-table");
  put_u32(image, max_length);
  for (uint32_t length = 1; length <= max_length; ++length) {
    std::vector<const std::pair<const std::u16string, std::vector<DictSource::Reading>> *> words;
    for (const auto &w : source.words)
      if (w.first.size() == length) words.push_back(&w);
    if (words.empty()) continue;
    float max = 0, min = 0;
    if (auto r = source.ranges.find(length); r != source.ranges.end()) {
      max = r->second.max;
      min = r->second.min;
    } else {
      double hi = -HUGE_VAL, lo = HUGE_VAL;
      for (const auto *w : words)
        for (const DictSource::Reading &r : w->second) {
          hi = std::max(hi, r.score);
          lo = std::min(lo, r.score);
        }
      max = static_cast<float>(hi);
      min = static_cast<float>(lo);
    }
    std::vector<uint8_t> body;
    put_u32(body, static_cast<uint32_t>(words.size()));
    for (const auto *w : words)
      for (char16_t u : w->first) put_u16(body, u);
    pad4(body);
    std::vector<uint32_t> multi;
    for (size_t i = 0; i < words.size(); ++i)
      if (words[i]->second.size() > 1) multi.push_back(static_cast<uint32_t>(i));
    put_u32(body, static_cast<uint32_t>(multi.size()));
    for (uint32_t i : multi) put_u32(body, i);
    for (uint32_t i : multi) body.push_back(static_cast<uint8_t>(words[i]->second.size()));
    pad4(body);
    put_u32(body, 0);
    put_f32(body, max);
    put_f32(body, min);
    const double range = static_cast<double>(max) - static_cast<double>(min);
    for (const auto *w : words) {
      for (const DictSource::Reading &r : w->second) {
        double q = range > 0 ? (r.score - static_cast<double>(min)) / range * 255.0 : 0.0;
        q = std::floor(q + 0.5);
        body.push_back(0);
        body.push_back(static_cast<uint8_t>(r.cls));
        body.push_back(static_cast<uint8_t>(q < 0 ? 0 : (q > 255 ? 255 : q)));
        body.push_back(0);
      }
    }
    put_keyword(image, "WordClass");
    put_u32(image, length);
    put_u32(image, static_cast<uint32_t>(body.size()));
    image.insert(image.end(), body.begin(), body.end());
  }
  const struct {
    const char *section, *keyword;
    const std::vector<uint8_t> &model;
  } models[] = {{"PHRASEBREAK", "phrase_break", source.phrase_break},
                {"STRESS", "SentenceStress", source.stress}};
  for (const auto &m : models) {
    if (m.model.empty()) continue;
    const std::vector<uint8_t> body = model_body(m.model, m.keyword);
    put_keyword(image, m.section);
    put_u32(image, static_cast<uint32_t>(4 + body.size()));
    image.insert(image.end(), body.begin(), body.end());
  }
  put_keyword(image, "NLP_END");
  return image;
}

bool dump_dict(const std::vector<uint8_t> &image, std::string &text, std::string &error) {
  std::string classes = "[classes]\n", pairs = "[pairs]\n", words = "[words]\n", models;
  std::map<unsigned, std::string> name_of;
  size_t at = 0;
  auto keyword = [&](size_t &p) {
    std::string k(reinterpret_cast<const char *>(image.data() + p));
    p += (k.size() + 1 + 3) & ~size_t{3};
    return k;
  };
  for (;;) {
    const std::string k = keyword(at);
    if (k == "NLP_END") break;
    if (k == "MONOGRAM") {
      const size_t body = at + 4;
      const uint32_t count = get_u32(image, body);
      const uint32_t names = get_u32(image, body + 8);
      const uint32_t codes = get_u32(image, body + 12);
      if (codes != count) {
        error = "the class inventory has not one code per name";
        return false;
      }
      size_t p = body + 20;
      for (uint32_t j = 0; j < count; ++j) {
        std::u16string name;
        while (get_u16(image, p) != 0) {
          name += static_cast<char16_t>(get_u16(image, p));
          p += 2;
        }
        p += 2;
        const unsigned code = image[body + 20 + names + j];
        name_of.emplace(code, utf16_to_utf8(name));
        classes += utf16_to_utf8(name) + "\t" + std::to_string(code) + "\n";
      }
      const uint32_t def = get_u32(image, body + 4);
      if (name_of.count(def) == 0) {
        error = "the default class has no name";
        return false;
      }
      classes += "default\t" + name_of[def] + "\n";
      at = body + get_u32(image, at);
    } else if (k == "BIGRAM") {
      const size_t body = at + 4;
      const uint32_t count = get_u32(image, body);
      for (uint32_t e = 0; e < count; ++e) {
        const size_t p = body + 4 + 12 * size_t{e};
        const unsigned a = get_u16(image, p), b = get_u16(image, p + 2);
        if (name_of.count(a) == 0 || name_of.count(b) == 0) {
          error = "a class pair names a class the inventory lacks";
          return false;
        }
        pairs += name_of[a] + "\t" + name_of[b] + "\t" + format_float(get_f32(image, p + 4)) +
                 "\t" + format_float(get_f32(image, p + 8)) + "\n";
      }
      at = body + get_u32(image, at);
    } else if (k == "word-table") {
      at += 4;
    } else if (k == "WordClass") {
      const uint32_t length = get_u32(image, at);
      const size_t body = at + 8;
      const uint32_t count = get_u32(image, body);
      const size_t words_at = body + 4;
      size_t p = words_at + ((size_t{count} * length * 2 + 3) & ~size_t{3});
      const uint32_t multi = get_u32(image, p);
      std::map<uint32_t, unsigned> readings_of;
      for (uint32_t m = 0; m < multi; ++m)
        readings_of[get_u32(image, p + 4 + 4 * size_t{m})] = image[p + 4 + 4 * size_t{multi} + m];
      p += 4 + 4 * size_t{multi} + ((size_t{multi} + 3) & ~size_t{3});
      const float max = get_f32(image, p + 4), min = get_f32(image, p + 8);
      size_t record = p + 12;
      words += "range\t" + std::to_string(length) + "\t" + format_float(max) + "\t" +
               format_float(min) + "\n";
      for (uint32_t i = 0; i < count; ++i) {
        std::u16string w;
        for (uint32_t u = 0; u < length; ++u)
          w += static_cast<char16_t>(get_u16(image, words_at + (size_t{i} * length + u) * 2));
        const std::string word = utf16_to_utf8(w);
        const unsigned n = readings_of.count(i) != 0 ? readings_of[i] : 1;
        for (unsigned r = 0; r < n; ++r, record += 4) {
          const unsigned cls = image[record + 1];
          if (name_of.count(cls) == 0) {
            error = "a reading names a class the inventory lacks";
            return false;
          }
          const float score = min + (max - min) * (image[record + 2] * 0.003921569f);
          words += word + "\t" + name_of[cls] + "\t" + format_float(score) + "\n";
        }
      }
      at = body + get_u32(image, at + 4);
    } else if (k == "PHRASEBREAK" || k == "STRESS") {
      const uint32_t size = get_u32(image, at);
      const size_t end = at + size;
      // The body as this tool writes it: the header with its strings, one
      // model under its keyword, "end".
      const std::vector<uint8_t> written =
          model_body({}, k == "STRESS" ? "SentenceStress" : "phrase_break");
      const size_t header = written.size() - 4;  // up to the model
      if (size < 4 + header + 4 || std::memcmp(&image[at + 4], written.data(), header) != 0) {
        error = "a model section this tool could not have written";
        return false;
      }
      ModelText model;
      const size_t used = decode_model(&image[at + 4 + header], model);
      const size_t after = at + 4 + header + ((used + 3) & ~size_t{3});
      if (after + 4 != end || std::memcmp(&image[after], "end", 4) != 0) {
        error = "a model section this tool could not have written";
        return false;
      }
      models += (k == "STRESS" ? "[stress]\n" : "[phrase_break]\n") + print_model(model);
      at = end;
    } else {
      error = "unknown section " + k;
      return false;
    }
  }
  text = "# Dictionary written by utts dump\n" + classes + pairs + words + models;
  return true;
}

bool recognise_dict(const std::string &image) {
  return !image.empty() && NLPDIC_Check(image.data(), image.size()) == 0;
}

std::string dump_dict_image(const std::string &image) {
  std::string text, error;
  if (!dump_dict(std::vector<uint8_t>(image.begin(), image.end()), text, error))
    return "# not a dictionary this tool writes: " + error + "\n";
  return text;
}

}  // namespace utts
