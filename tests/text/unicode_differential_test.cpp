// unicode_differential_test.cpp - compares both converters with small, plainly
// written strict converters on many random inputs, most of them valid or nearly
// valid, and random targets.
#include <gtest/gtest.h>

#include <random>

#include "text/unicode_guard.h"

namespace {

// Length of the well-formed sequence at s[pos..n) and its value, or 0.
int reference_sequence(const std::string &s, size_t pos, size_t n, uint32_t &cp) {
  static const uint32_t kMin[] = {0, 0, 0x80, 0x800, 0x10000};
  const unsigned lead = static_cast<unsigned char>(s[pos]);
  const int len = lead < 0x80   ? 1
                  : lead < 0xC2 ? 0
                  : lead < 0xE0 ? 2
                  : lead < 0xF0 ? 3
                  : lead < 0xF5 ? 4
                                : 0;
  if (len == 0 || pos + len > n) return 0;
  cp = lead & (0x7Fu >> (len - 1));
  for (int k = 1; k < len; ++k) {
    const unsigned b = static_cast<unsigned char>(s[pos + k]);
    if ((b & 0xC0) != 0x80) return 0;
    cp = cp << 6 | (b & 0x3F);
  }
  return cp < kMin[len] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF) ? 0 : len;
}

void append16(std::u16string &out, uint32_t cp) {
  if (cp < 0x10000) return out.push_back(char16_t(cp));
  out.push_back(char16_t(0xD800 + ((cp - 0x10000) >> 10)));
  out.push_back(char16_t(0xDC00 + ((cp - 0x10000) & 0x3FF)));
}

// Any value spelled with `len` bytes the UTF-8 way, well-formed or not.
std::string utf8_as(uint32_t v, int len) {
  if (len == 1) return std::string(1, char(v));
  std::string out(len, 0);
  for (int k = len - 1; k > 0; --k, v >>= 6) out[k] = char(0x80 | (v & 0x3F));
  out[0] = char((0xFF00 >> len) | v);
  return out;
}

std::string utf8(uint32_t cp) {
  return utf8_as(cp, cp < 0x80 ? 1 : cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4);
}

// The longest prefix of whole, well-formed characters that fits in size-1 units.
std::u16string reference_decode(const std::string &src, size_t n, size_t size) {
  std::u16string out, one;
  uint32_t cp = 0;
  for (size_t pos = 0, len; pos < n && (len = reference_sequence(src, pos, n, cp)) != 0;
       pos += len) {
    one.clear();
    append16(one, cp);
    if (out.size() + one.size() > size - 1) break;
    out += one;
  }
  return out;
}

std::string reference_encode(const std::u16string &src, size_t n, size_t size) {
  std::string out;
  for (size_t i = 0; i < n; ++i) {
    uint32_t cp = src[i];
    if (cp >= 0xDC00 && cp <= 0xDFFF) break;
    if (cp >= 0xD800 && cp <= 0xDBFF) {
      if (i + 1 >= n || src[i + 1] < 0xDC00 || src[i + 1] > 0xDFFF) break;
      cp = 0x10000 + ((cp - 0xD800) << 10) + (src[++i] - 0xDC00);
    }
    const std::string b = utf8(cp);
    if (out.size() + b.size() > size - 1) break;
    out += b;
  }
  return out;
}

struct Random {
  std::mt19937 gen;
  uint32_t below(uint32_t n) { return gen() % n; }
  uint32_t in(uint32_t lo, uint32_t hi) { return lo + below(hi - lo + 1); }
};

// A scalar value, often at the edge of an encoding length.
uint32_t random_scalar(Random &r) {
  static const uint32_t kEdges[] = {0x7F,   0x80,   0x7FF,  0x800,   0xD7FF,
                                    0xE000, 0xFFFD, 0xFFFF, 0x10000, 0x10FFFF};
  switch (r.below(6)) {
    case 0:
      return kEdges[r.below(10)];
    case 1:
      return r.in(0x80, 0x7FF);
    case 2:
      return r.in(0x4E00, 0x9FFF);
    case 3: {
      const uint32_t v = r.in(0x800, 0xF7FF);
      return v >= 0xD800 ? v + 0x800 : v;
    }
    case 4:
      return r.in(0x10000, 0x10FFFF);
    default:
      return r.in(0x20, 0x7E);
  }
}

// A nearly valid sequence: damaged, cut, overlong, surrogate, too large, five or six bytes, or one
// odd byte.
std::string broken_utf8(Random &r) {
  static const unsigned char kOdd[] = {0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                                       0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xED,
                                       0xEF, 0xF0, 0xF4, 0xF5, 0xF8, 0xFC, 0xFF};
  std::string b = utf8(random_scalar(r));
  const char odd = char(r.below(3) ? kOdd[r.below(sizeof kOdd)] : r.below(256));
  switch (r.below(7)) {
    case 0:
      b[r.below(uint32_t(b.size()))] = odd;
      return b;
    case 1:
      return b.size() > 1 ? b.substr(0, r.in(1, uint32_t(b.size()) - 1)) : b;
    case 2: {
      const int len = r.in(2, 4);
      return utf8_as(r.below(len == 2 ? 0x80 : len == 3 ? 0x800 : 0x10000), len);
    }
    case 3:
      return utf8_as(r.in(0xD800, 0xDFFF), 3);
    case 4:
      return utf8_as(r.in(0x110000, 0x1FFFFF), 4);
    case 5:
      return utf8_as(r.below(1u << 31), r.in(5, 6));
    default:
      return std::string(1, odd);
  }
}

// Pieces: runs of ASCII or of one character (as in monolingual text), zeros,
// characters, and broken bits (in UTF-16 one or two surrogates, in any order).
std::string random_utf8(Random &r, bool broken) {
  std::string out;
  for (uint32_t p = r.below(24); p > 0; --p) {
    const uint32_t kind = r.below(100), cp = random_scalar(r);
    for (uint32_t k = kind < 30 ? r.below(40) : 1; k > 0; --k)
      out += kind < 20             ? utf8(r.in(0x20, 0x7E))
             : kind < 30           ? utf8(cp)
             : kind < 33           ? std::string(1, '\0')
             : kind < 36 && broken ? broken_utf8(r)
                                   : utf8(cp);
  }
  return out;
}

std::u16string random_utf16(Random &r, bool broken) {
  std::u16string out;
  for (uint32_t p = r.below(40); p > 0; --p) {
    const uint32_t kind = r.below(100), cp = random_scalar(r);
    for (uint32_t k = kind < 30 ? r.below(40) : kind < 38 ? r.in(1, 2) : 1; k > 0; --k)
      append16(out, kind < 20             ? r.in(0x20, 0x7E)
                    : kind < 30           ? cp
                    : kind < 33           ? 0
                    : kind < 38 && broken ? r.in(0xD800, 0xDFFF)
                                          : cp);
  }
  return out;
}

// The length argument (all, a cut, or zero-terminated) and how much of src it covers.
template <typename Str>
std::pair<uint32_t, size_t> random_length(Random &r, const Str &src) {
  const uint32_t kind = r.below(4), cut = r.below(uint32_t(src.size()) + 1);
  if (kind == 0)
    return {BSR_ZERO_TERMINATED, std::min(src.size(), src.find(typename Str::value_type(0)))};
  if (kind == 1) return {cut, cut};
  return {uint32_t(src.size()), src.size()};
}

// Mostly cramped targets, where the stopping rules matter; sometimes ample.
uint32_t random_size(Random &r, size_t full) {
  return uint32_t(r.below(100) < 30 ? full + 1 + r.below(8) : 1 + r.below(uint32_t(full + 4)));
}

constexpr int kCases = 40000;

TEST(UnicodeDifferential, DecoderMatchesReferenceOnRandomBytes) {
  Random r{std::mt19937(0x5eed0001)};
  for (int i = 0; i < kCases; ++i) {
    const std::string src = random_utf8(r, r.below(100) < 60);
    const auto len = random_length(r, src);
    const uint32_t size = random_size(r, len.second);
    ASSERT_TRUE(to16(src, size, reference_decode(src, len.second, size), len.first))
        << "case " << i << ", len " << len.first << ", bytes " << ::testing::PrintToString(src);
  }
}

TEST(UnicodeDifferential, EncoderMatchesReferenceOnRandomUnits) {
  Random r{std::mt19937(0x5eed0002)};
  for (int i = 0; i < kCases; ++i) {
    const std::u16string src = random_utf16(r, r.below(100) < 60);
    const auto len = random_length(r, src);
    const uint32_t size = random_size(r, len.second * 3);
    ASSERT_TRUE(to8(src, size, reference_encode(src, len.second, size), len.first))
        << "case " << i << ", len " << len.first << ", units " << ::testing::PrintToString(src);
  }
}

}  // namespace
