// model_text.cpp - model sections between their readable form and their
// image.
#include "utts/model_text.h"

#include <cstring>

#include "hts_model.h"

namespace utts {

namespace {

constexpr int kRowValues = HTS_MODEL_ROW_VALUES;

uint32_t get_u32(const unsigned char *p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 |
         static_cast<uint32_t>(p[2]) << 16 | static_cast<uint32_t>(p[3]) << 24;
}

size_t padded_from(size_t origin, size_t at) { return origin + ((at - origin + 3) & ~size_t{3}); }

bool read_u32(const TextLine &line, uint32_t &out, std::string &error) {
  long long v = 0;
  if (line.words.size() != 2 || !parse_int(line.words[1], 0, UINT32_MAX, v)) {
    error = at_line(line.number, line.words[0] + " takes one 32-bit number");
    return false;
  }
  out = static_cast<uint32_t>(v);
  return true;
}

bool read_row(const TextLine &line, bool is_signed, std::map<uint32_t, std::vector<int32_t>> &table,
              std::string &error) {
  const std::vector<std::string> &w = line.words;
  long long row = 0;
  if (w.size() < 2 || !parse_int(w[1], 0, UINT32_MAX, row)) {
    error = at_line(line.number, w[0] + " takes a row number, then up to 256 values");
    return false;
  }
  if (w.size() - 2 > static_cast<size_t>(kRowValues)) {
    error = at_line(line.number, "a row holds 256 values");
    return false;
  }
  if (table.count(static_cast<uint32_t>(row)) != 0) {
    error = at_line(line.number, w[0] + " row " + w[1] + " is given twice");
    return false;
  }
  std::vector<int32_t> &values = table[static_cast<uint32_t>(row)];
  for (size_t k = 2; k < w.size(); ++k) {
    long long v = 0;
    if (!parse_int(w[k], is_signed ? INT16_MIN : 0, is_signed ? INT16_MAX : UINT16_MAX, v)) {
      error = at_line(line.number, "'" + w[k] + "' is not a " +
                                       (is_signed ? "signed" : "unsigned") + " 16-bit value");
      return false;
    }
    values.push_back(static_cast<int32_t>(v));
  }
  return true;
}

void put_rows(std::string &out, uint32_t rows, const std::map<uint32_t, std::vector<int32_t>> &t) {
  for (uint32_t r = 0; r < rows; ++r) {
    const auto found = t.find(r);
    for (int k = 0; k < kRowValues; ++k) {
      const int32_t v =
          found != t.end() && static_cast<size_t>(k) < found->second.size() ? found->second[k] : 0;
      put_i16(out, static_cast<int16_t>(static_cast<uint16_t>(v)));
    }
  }
}

void get_rows(const unsigned char *p, uint32_t rows, bool is_signed,
              std::map<uint32_t, std::vector<int32_t>> &t) {
  for (uint32_t r = 0; r < rows; ++r, p += 2 * kRowValues) {
    std::vector<int32_t> values;
    for (int k = 0; k < kRowValues; ++k) {
      const auto u = static_cast<uint16_t>(p[2 * k] | p[2 * k + 1] << 8);
      values.push_back(is_signed ? static_cast<int16_t>(u) : u);
    }
    while (!values.empty() && values.back() == 0) values.pop_back();
    if (!values.empty()) t[r] = values;
  }
}

std::string print_rows(const char *key, const std::map<uint32_t, std::vector<int32_t>> &t) {
  std::string out;
  for (const auto &[row, values] : t) {
    out += key;
    out += " " + std::to_string(row);
    for (const int32_t v : values) out += " " + std::to_string(v);
    out += "\n";
  }
  return out;
}

}  // namespace

bool parse_model(const std::string &text, ModelText &model, std::string &error) {
  std::vector<TextLine> lines;
  if (!split_lines(text, lines, error)) return false;
  TreeSetReader reader;
  bool rows_given = false;
  for (const TextLine &line : lines) {
    bool taken = false;
    if (!reader.read(line, model.trees, taken, error)) return false;
    if (taken) continue;
    const std::vector<std::string> &w = line.words;
    const std::string &key = w[0];
    if (key == "window") {
      long long left = 0, right = 0;
      if (w.size() < 3 || !parse_int(w[1], INT32_MIN, INT32_MAX, left) ||
          !parse_int(w[2], INT32_MIN, INT32_MAX, right) || right < left) {
        error = at_line(line.number, "window takes LEFT <= RIGHT, then its coefficients");
        return false;
      }
      if (w.size() - 3 != static_cast<size_t>(right - left + 1)) {
        error = at_line(line.number, "a window from " + w[1] + " to " + w[2] + " has " +
                                         std::to_string(right - left + 1) + " coefficients");
        return false;
      }
      WindowText window{static_cast<int32_t>(left), static_cast<int32_t>(right), {}};
      for (size_t k = 3; k < w.size(); ++k) {
        float f = 0;
        if (!parse_float(w[k], f)) {
          error = at_line(line.number, "'" + w[k] + "' is not a coefficient");
          return false;
        }
        window.coefficients.push_back(f);
      }
      model.windows.push_back(window);
    } else if (key == "window_value") {
      if (!read_u32(line, model.window_value, error)) return false;
    } else if (key == "stream_value") {
      if (!read_u32(line, model.stream_value, error)) return false;
    } else if (key == "rows") {
      if (!read_u32(line, model.rows, error)) return false;
      rows_given = true;
    } else if (key == "statistics") {
      if (!read_u32(line, model.has_ivar, error)) return false;
      model.statistics = true;
    } else if (key == "mean" || key == "ivar") {
      if (!read_row(line, key == "mean", key == "mean" ? model.mean : model.ivar, error))
        return false;
    } else if (key == "extra") {
      for (size_t k = 1; k < w.size(); ++k) {
        if (!parse_hex(w[k], model.extra)) {
          error = at_line(line.number, "extra takes bytes as pairs of hex digits");
          return false;
        }
      }
    } else {
      error = at_line(line.number, "unknown keyword '" + key + "'");
      return false;
    }
  }
  if (!reader.finish(error)) return false;
  if (model.windows.size() > HTS_MODEL_MAX_WINDOWS) {
    error = "at most 32 windows";
    return false;
  }
  if (!rows_given && (!model.mean.empty() || !model.ivar.empty())) {
    error = "mean and ivar rows need 'rows' (the number of rows)";
    return false;
  }
  for (const auto *table : {&model.mean, &model.ivar}) {
    if (!table->empty() && table->rbegin()->first >= model.rows) {
      error = "row " + std::to_string(table->rbegin()->first) + " is past the " +
              std::to_string(model.rows) + " rows";
      return false;
    }
  }
  if (!model.statistics && (!model.mean.empty() || !model.ivar.empty() || !model.extra.empty())) {
    error = "mean, ivar and extra need 'statistics' (which also says whether ivar rows follow)";
    return false;
  }
  if (model.statistics && model.extra.empty()) {
    error = "statistics need a trailing block of at least one byte ('extra')";
    return false;
  }
  if (model.has_ivar == 0 && !model.ivar.empty()) {
    error = "ivar rows given while 'statistics 0' says there are none";
    return false;
  }
  return true;
}

bool encode_model(const ModelText &model, std::string &out, std::string &error) {
  out.clear();
  put_u32(out, static_cast<uint32_t>(model.trees.fields.size()));
  for (const Field &f : model.trees.fields) {
    for (const std::string *s : {&f.name, &f.prefix, &f.suffix}) {
      if (s->find('\0') != std::string::npos) {
        error = "a field text holds a NUL byte";
        return false;
      }
      out += *s;
      out += '\0';
    }
  }
  pad4(out, 0);
  const size_t windows = out.size();
  put_u32(out, static_cast<uint32_t>(model.windows.size()));
  if (!model.windows.empty()) {
    for (const WindowText &w : model.windows) put_u32(out, static_cast<uint32_t>(w.left));
    for (const WindowText &w : model.windows) put_u32(out, static_cast<uint32_t>(w.right));
    for (const WindowText &w : model.windows) {
      for (const float f : w.coefficients) {
        uint32_t bits;
        std::memcpy(&bits, &f, sizeof bits);
        put_u32(out, bits);
      }
    }
    put_u32(out, model.window_value);
  }
  pad4(out, windows);
  put_u32(out, model.stream_value);
  if (model.trees.trees.size() > HTS_MODEL_MAX_TREES) {
    error = "at most 16 trees";
    return false;
  }
  put_u32(out, static_cast<uint32_t>(model.trees.trees.size()));
  for (const TreeText &t : model.trees.trees) put_u32(out, t.value);
  put_u32(out, model.rows);
  if (!encode_trees(model.trees, out, error)) return false;
  const size_t block = out.size();
  if (!model.statistics) {
    put_u32(out, 0);
    return true;
  }
  put_u32(out, static_cast<uint32_t>(model.extra.size()));
  put_u32(out, model.has_ivar);
  put_rows(out, model.rows, model.mean);
  if (model.has_ivar != 0) put_rows(out, model.rows, model.ivar);
  out += model.extra;
  pad4(out, block);
  return true;
}

size_t decode_model(const unsigned char *data, ModelText &model) {
  model = ModelText();
  size_t at = 0;
  const uint32_t fields = get_u32(data);
  at = 4;
  for (uint32_t f = 0; f < fields; ++f) {
    Field field;
    for (std::string *s : {&field.name, &field.prefix, &field.suffix}) {
      *s = reinterpret_cast<const char *>(data + at);
      at += s->size() + 1;
    }
    model.trees.fields.push_back(field);
  }
  at = padded_from(0, at);
  const size_t windows = at;
  const uint32_t window_count = get_u32(data + at);
  at += 4;
  if (window_count > 0) {
    const size_t left = at, right = at + 4 * window_count;
    at += 8 * window_count;
    for (uint32_t w = 0; w < window_count; ++w) {
      WindowText window;
      window.left = static_cast<int32_t>(get_u32(data + left + 4 * w));
      window.right = static_cast<int32_t>(get_u32(data + right + 4 * w));
      for (int64_t k = window.left; k <= window.right; ++k, at += 4) {
        const uint32_t bits = get_u32(data + at);
        float f;
        std::memcpy(&f, &bits, sizeof f);
        window.coefficients.push_back(f);
      }
      model.windows.push_back(window);
    }
    model.window_value = get_u32(data + at);
    at += 4;
  }
  at = padded_from(windows, at);
  model.stream_value = get_u32(data + at);
  const uint32_t tree_count = get_u32(data + at + 4);
  at += 8;
  std::vector<uint32_t> values;
  for (uint32_t t = 0; t < tree_count; ++t, at += 4) values.push_back(get_u32(data + at));
  model.rows = get_u32(data + at);
  at += 4;
  std::vector<Field> keep = model.trees.fields;
  at += decode_trees(data + at, static_cast<int>(tree_count), model.trees);
  model.trees.fields = keep;
  for (uint32_t t = 0; t < tree_count; ++t) {
    model.trees.trees[t].has_value = true;
    model.trees.trees[t].value = values[t];
  }
  const size_t block = at;
  const uint32_t extra_bytes = get_u32(data + at);
  at += 4;
  if (extra_bytes == 0) return at;
  model.statistics = true;
  model.has_ivar = get_u32(data + at);
  at += 4;
  get_rows(data + at, model.rows, true, model.mean);
  at += 2 * kRowValues * static_cast<size_t>(model.rows);
  if (model.has_ivar != 0) {
    get_rows(data + at, model.rows, false, model.ivar);
    at += 2 * kRowValues * static_cast<size_t>(model.rows);
  }
  model.extra.assign(reinterpret_cast<const char *>(data + at), extra_bytes);
  at += extra_bytes;
  return padded_from(block, at);
}

std::string print_model(const ModelText &model) {
  std::string out = "# label fields: feature path, prefix, suffix\n";
  out += print_fields(model.trees.fields);
  if (!model.windows.empty()) {
    out += "# delta windows: left, right, coefficients\n";
    for (const WindowText &w : model.windows) {
      out += "window " + std::to_string(w.left) + " " + std::to_string(w.right);
      for (const float f : w.coefficients) out += " " + format_float(f);
      out += "\n";
    }
    out += "window_value " + std::to_string(model.window_value) + "\n";
  }
  out += "stream_value " + std::to_string(model.stream_value) + "\n";
  out += "rows " + std::to_string(model.rows) + "\n";
  out += print_trees(model.trees, true);
  if (model.statistics) {
    out += "statistics " + std::to_string(model.has_ivar) + "\n";
    out += print_rows("mean", model.mean);
    out += print_rows("ivar", model.ivar);
    for (size_t k = 0; k < model.extra.size(); k += 32) {
      const size_t n = std::min<size_t>(32, model.extra.size() - k);
      out += "extra " +
             hex_bytes(reinterpret_cast<const unsigned char *>(model.extra.data()) + k, n) + "\n";
    }
  }
  return out;
}

}  // namespace utts
