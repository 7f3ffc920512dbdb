// image_text.cpp - words, quotes, numbers and bytes of the readable tree and
// model forms.
#include "utts/image_text.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace utts {

namespace {

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::string at_line(int number, const std::string &message) {
  return "line " + std::to_string(number) + ": " + message;
}

bool split_lines(const std::string &text, std::vector<TextLine> &lines, std::string &error) {
  lines.clear();
  int number = 1;
  size_t k = 0;
  while (k <= text.size()) {
    TextLine line{number, {}};
    while (k < text.size() && text[k] != '\n') {
      const char c = text[k];
      if (c == ' ' || c == '\t' || c == '\r') {
        ++k;
      } else if (c == '#') {
        while (k < text.size() && text[k] != '\n') ++k;
      } else if (c == '"') {
        std::string word;
        ++k;
        for (;;) {
          if (k >= text.size() || text[k] == '\n') {
            error = at_line(number, "unterminated quote");
            return false;
          }
          const char q = text[k++];
          if (q == '"') break;
          if (q != '\\') {
            word += q;
            continue;
          }
          const char e = k < text.size() ? text[k++] : '\0';
          if (e == '\\' || e == '"') {
            word += e;
          } else if (e == 'n') {
            word += '\n';
          } else if (e == 't') {
            word += '\t';
          } else if (e == 'x' && k + 1 < text.size() && hex_digit(text[k]) >= 0 &&
                     hex_digit(text[k + 1]) >= 0 &&
                     (hex_digit(text[k]) | hex_digit(text[k + 1])) != 0) {
            word += static_cast<char>(hex_digit(text[k]) * 16 + hex_digit(text[k + 1]));
            k += 2;
          } else {
            error =
                at_line(number, "bad escape in a quoted word (\\\\ \\\" \\n \\t \\xHH, not \\x00)");
            return false;
          }
        }
        line.words.push_back(word);
      } else {
        const size_t start = k;
        while (k < text.size() && text[k] != ' ' && text[k] != '\t' && text[k] != '\r' &&
               text[k] != '\n' && text[k] != '#' && text[k] != '"')
          ++k;
        line.words.push_back(text.substr(start, k - start));
      }
    }
    if (!line.words.empty()) lines.push_back(line);
    ++k;
    ++number;
  }
  return true;
}

std::string quote(const std::string &s) {
  std::string out = "\"";
  for (const char c : s) {
    const auto u = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (u < 0x20 || u == 0x7F) {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02x", u);
      out += hex;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

bool parse_int(const std::string &word, long long min, long long max, long long &out) {
  if (word.empty()) return false;
  const char *s = word.c_str();
  char *end = nullptr;
  errno = 0;
  const bool hex = (word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X'));
  const long long v = std::strtoll(s, &end, hex ? 16 : 10);
  if (errno != 0 || *end != '\0' || end == s) return false;
  if (v < min || v > max) return false;
  out = v;
  return true;
}

std::string format_float(float f) {
  char text[32];
  if (!std::isfinite(f)) {
    uint32_t bits;
    std::memcpy(&bits, &f, sizeof bits);
    std::snprintf(text, sizeof text, "0x%08x", bits);
  } else {
    std::snprintf(text, sizeof text, "%.9g", static_cast<double>(f));
  }
  return text;
}

bool parse_float(const std::string &word, float &out) {
  if (word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) {
    long long bits = 0;
    if (!parse_int(word, 0, 0xFFFFFFFFLL, bits)) return false;
    const auto u = static_cast<uint32_t>(bits);
    std::memcpy(&out, &u, sizeof out);
    return true;
  }
  if (word.empty()) return false;
  char *end = nullptr;
  out = std::strtof(word.c_str(), &end);
  return *end == '\0' && std::isfinite(out);
}

std::string hex_bytes(const unsigned char *data, size_t size) {
  static const char kDigits[] = "0123456789abcdef";
  std::string out;
  for (size_t k = 0; k < size; ++k) {
    out += kDigits[data[k] >> 4];
    out += kDigits[data[k] & 15];
  }
  return out;
}

bool parse_hex(const std::string &word, std::string &bytes) {
  if (word.size() % 2 != 0) return false;
  for (size_t k = 0; k < word.size(); k += 2) {
    const int hi = hex_digit(word[k]), lo = hex_digit(word[k + 1]);
    if (hi < 0 || lo < 0) return false;
    bytes += static_cast<char>(hi * 16 + lo);
  }
  return true;
}

}  // namespace utts
