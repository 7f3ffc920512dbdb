// Compares both converters with small, plainly written strict converters on
// many random inputs, most of them valid or nearly valid, and random targets.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "bsr_unicode.h"
#include "text/unicode_guard.h"

namespace {

using Bytes = std::vector<unsigned char>;
using Units = std::vector<bsr_wchar>;

// ---- Reference converters -----------------------------------------------

// The well-formed UTF-8 byte sequences as the Unicode Standard tables them:
// lead byte range, the range allowed for the second byte, total length.
struct SequenceRow {
  unsigned lead_lo, lead_hi, second_lo, second_hi, length;
};
constexpr SequenceRow kWellFormed[] = {
    {0x00, 0x7F, 0, 0, 1},          {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

const SequenceRow *row_for(unsigned lead) {
  for (const SequenceRow &row : kWellFormed)
    if (lead >= row.lead_lo && lead <= row.lead_hi) return &row;
  return nullptr;
}

// The longest prefix of src made of whole, well-formed characters whose
// UTF-16 form fits in size-1 units.
Units reference_decode(const Bytes &src, size_t n, size_t size) {
  Units out;
  size_t pos = 0;
  while (pos < n) {
    const SequenceRow *row = row_for(src[pos]);
    if (row == nullptr || pos + row->length > n) break;
    bool ok = true;
    for (unsigned k = 1; k < row->length; ++k) {
      const unsigned b = src[pos + k];
      const unsigned lo = k == 1 ? row->second_lo : 0x80, hi = k == 1 ? row->second_hi : 0xBF;
      ok = ok && b >= lo && b <= hi;
    }
    if (!ok) break;
    static const unsigned kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    uint32_t cp = src[pos] & kLeadBits[row->length];
    for (unsigned k = 1; k < row->length; ++k) cp = cp * 64 + (src[pos + k] - 0x80);
    const size_t need = cp >= 0x10000 ? 2 : 1;
    if (out.size() + need > size - 1) break;
    if (need == 1) {
      out.push_back(static_cast<bsr_wchar>(cp));
    } else {
      out.push_back(static_cast<bsr_wchar>(0xD800 + (cp - 0x10000) / 0x400));
      out.push_back(static_cast<bsr_wchar>(0xDC00 + (cp - 0x10000) % 0x400));
    }
    pos += row->length;
  }
  return out;
}

Bytes utf8_of(uint32_t cp) {
  if (cp < 0x80) return {static_cast<unsigned char>(cp)};
  int length = cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4;
  Bytes out(length);
  for (int k = length - 1; k > 0; --k) {
    out[k] = static_cast<unsigned char>(0x80 + cp % 64);
    cp /= 64;
  }
  static const unsigned kMarks[] = {0, 0, 0xC0, 0xE0, 0xF0};
  out[0] = static_cast<unsigned char>(kMarks[length] + cp);
  return out;
}

// The longest prefix of src made of whole characters (surrogates paired)
// whose UTF-8 form fits in size-1 bytes.
Bytes reference_encode(const Units &src, size_t n, size_t size) {
  Bytes out;
  size_t i = 0;
  while (i < n) {
    const uint32_t u = src[i];
    uint32_t cp = u;
    size_t used = 1;
    if (u >= 0xDC00 && u <= 0xDFFF) break;
    if (u >= 0xD800 && u <= 0xDBFF) {
      if (i + 1 >= n || src[i + 1] < 0xDC00 || src[i + 1] > 0xDFFF) break;
      cp = 0x10000 + (u - 0xD800) * 0x400 + (src[i + 1] - 0xDC00);
      used = 2;
    }
    const Bytes b = utf8_of(cp);
    if (out.size() + b.size() > size - 1) break;
    out.insert(out.end(), b.begin(), b.end());
    i += used;
  }
  return out;
}

// ---- Random input -------------------------------------------------------

class Random {
 public:
  explicit Random(uint32_t seed) : gen_(seed) {}
  uint32_t below(uint32_t n) { return std::uniform_int_distribution<uint32_t>(0, n - 1)(gen_); }
  uint32_t in(uint32_t lo, uint32_t hi) { return lo + below(hi - lo + 1); }
  bool chance(uint32_t percent) { return below(100) < percent; }

 private:
  std::mt19937 gen_;
};

// A scalar value, often at the edge of an encoding length.
uint32_t random_scalar(Random &r) {
  static const uint32_t kEdges[] = {0x7F,   0x80,   0x7FF,   0x800,   0xD7FF,   0xE000,
                                    0xFFFD, 0xFFFF, 0x10000, 0x1F600, 0x10FFFF, 0xE9};
  switch (r.below(6)) {
    case 0: return kEdges[r.below(sizeof kEdges / sizeof kEdges[0])];
    case 1: return r.in(0x80, 0x7FF);
    case 2: return r.in(0x4E00, 0x9FFF);
    case 3: {
      uint32_t v = r.in(0x800, 0xFFFF);
      return (v >= 0xD800 && v <= 0xDFFF) ? v - 0x800 : v;
    }
    case 4: return r.in(0x10000, 0x10FFFF);
    default: return r.in(0x20, 0x7E);
  }
}

// Byte values that sit on the edges of the well-formedness table.
unsigned char edge_byte(Random &r) {
  static const unsigned char kBytes[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                                         0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xED, 0xEF,
                                         0xF0, 0xF4, 0xF5, 0xF7, 0xF8, 0xFB, 0xFC, 0xFF};
  return r.chance(70) ? kBytes[r.below(sizeof kBytes)] : static_cast<unsigned char>(r.below(256));
}

// One nearly valid sequence: a damaged, cut, overlong, surrogate, too large
// or obsolete five/six-byte form.
Bytes broken_sequence(Random &r) {
  Bytes b = utf8_of(random_scalar(r));
  switch (r.below(7)) {
    case 0: b[r.below(static_cast<uint32_t>(b.size()))] = edge_byte(r); return b;
    case 1:
      if (b.size() > 1) b.resize(r.in(1, static_cast<uint32_t>(b.size()) - 1));
      return b;
    case 2: {  // overlong: a small value spelled with too many bytes
      const uint32_t v = r.below(0x800);
      if (r.chance(50)) return {static_cast<unsigned char>(0xC0 | (v >> 6 & 1)), static_cast<unsigned char>(0x80 | (v & 0x3F))};
      return {0xE0, static_cast<unsigned char>(0x80 | (v >> 6 & 0x1F)), static_cast<unsigned char>(0x80 | (v & 0x3F))};
    }
    case 3: {  // a surrogate code point spelled as three bytes
      const uint32_t v = r.in(0xD800, 0xDFFF);
      return {0xED, static_cast<unsigned char>(0x80 | (v >> 6 & 0x3F)), static_cast<unsigned char>(0x80 | (v & 0x3F))};
    }
    case 4: {  // a value past U+10FFFF
      const uint32_t v = r.in(0x110000, 0x1FFFFF);
      return {static_cast<unsigned char>(0xF0 | (v >> 18)), static_cast<unsigned char>(0x80 | (v >> 12 & 0x3F)),
              static_cast<unsigned char>(0x80 | (v >> 6 & 0x3F)), static_cast<unsigned char>(0x80 | (v & 0x3F))};
    }
    case 5: {  // five- or six-byte form
      Bytes old = {static_cast<unsigned char>(r.chance(50) ? 0xF8 | r.below(4) : 0xFC | r.below(4))};
      const size_t trail = old[0] >= 0xFC ? 5 : 4;
      for (size_t k = 0; k < trail; ++k) old.push_back(static_cast<unsigned char>(r.in(0x80, 0xBF)));
      return old;
    }
    default: return {edge_byte(r)};
  }
}

Bytes random_utf8(Random &r, bool allow_broken) {
  Bytes out;
  const uint32_t pieces = r.below(24);
  for (uint32_t p = 0; p < pieces; ++p) {
    const uint32_t kind = r.below(100);
    if (kind < 20) {
      const uint32_t run = r.below(40);
      for (uint32_t k = 0; k < run; ++k) out.push_back(static_cast<unsigned char>(r.in(0x20, 0x7E)));
    } else if (kind < 30) {  // a run of one length, as in a monolingual text
      const uint32_t run = r.below(24);
      const uint32_t base = random_scalar(r);
      for (uint32_t k = 0; k < run; ++k) {
        const Bytes b = utf8_of(base);
        out.insert(out.end(), b.begin(), b.end());
      }
    } else if (kind < 33) {
      out.push_back(0);
    } else if (kind < 36 && allow_broken) {
      const Bytes b = broken_sequence(r);
      out.insert(out.end(), b.begin(), b.end());
    } else {
      const Bytes b = utf8_of(random_scalar(r));
      out.insert(out.end(), b.begin(), b.end());
    }
  }
  return out;
}

Units random_utf16(Random &r, bool allow_broken) {
  Units out;
  const uint32_t pieces = r.below(40);
  for (uint32_t p = 0; p < pieces; ++p) {
    const uint32_t kind = r.below(100);
    if (kind < 20) {
      const uint32_t run = r.below(40);
      for (uint32_t k = 0; k < run; ++k) out.push_back(static_cast<bsr_wchar>(r.in(0x20, 0x7E)));
    } else if (kind < 30) {
      const uint32_t run = r.below(24);
      const uint32_t base = random_scalar(r);
      for (uint32_t k = 0; k < run && base < 0x10000; ++k) out.push_back(static_cast<bsr_wchar>(base));
    } else if (kind < 33) {
      out.push_back(0);
    } else if (kind < 38 && allow_broken) {
      switch (r.below(3)) {
        case 0: out.push_back(static_cast<bsr_wchar>(r.in(0xD800, 0xDBFF))); break;
        case 1: out.push_back(static_cast<bsr_wchar>(r.in(0xDC00, 0xDFFF))); break;
        default:  // a pair in the wrong order
          out.push_back(static_cast<bsr_wchar>(r.in(0xDC00, 0xDFFF)));
          out.push_back(static_cast<bsr_wchar>(r.in(0xD800, 0xDBFF)));
      }
    } else {
      const uint32_t v = random_scalar(r);
      if (v < 0x10000) {
        out.push_back(static_cast<bsr_wchar>(v));
      } else {
        out.push_back(static_cast<bsr_wchar>(0xD800 + ((v - 0x10000) >> 10)));
        out.push_back(static_cast<bsr_wchar>(0xDC00 + ((v - 0x10000) & 0x3FF)));
      }
    }
  }
  return out;
}

// How much of the source the converter is told about: all of it, a cut, or
// "zero-terminated" (the source then ends at its first zero unit).
struct SourceLength {
  uint32_t arg;
  size_t effective;
};

template <typename Unit>
SourceLength random_length(Random &r, const std::vector<Unit> &src) {
  switch (r.below(4)) {
    case 0: {
      size_t n = 0;
      while (n < src.size() && src[n] != 0) ++n;
      return {BSR_ZERO_TERMINATED, n};
    }
    case 1: {
      const uint32_t cut = src.empty() ? 0 : r.below(static_cast<uint32_t>(src.size()) + 1);
      return {cut, cut};
    }
    default: return {static_cast<uint32_t>(src.size()), src.size()};
  }
}

// Mostly cramped targets, where the stopping rules matter; sometimes ample.
uint32_t random_size(Random &r, size_t full) {
  if (r.chance(30)) return static_cast<uint32_t>(full + 1 + r.below(8));
  return 1 + r.below(static_cast<uint32_t>(full + 4));
}

constexpr int kCases = 40000;

TEST(UnicodeDifferential, DecoderMatchesReferenceOnRandomBytes) {
  Random r(0x5eed0001);
  for (int i = 0; i < kCases; ++i) {
    Bytes src = random_utf8(r, r.chance(60));
    const auto len = random_length(r, src);
    src.push_back(0);  // the zero-terminated form needs its terminator
    const uint32_t size = random_size(r, len.effective);
    const Units expected = reference_decode(src, len.effective, size);
    GuardedBuffer<bsr_wchar> out(size);
    bsr_UTF8ToUTF16(reinterpret_cast<const char *>(src.data()), len.arg, out.data(), size);
    SCOPED_TRACE("case " + std::to_string(i) + ", size " + std::to_string(size) + ", bytes " +
                 ::testing::PrintToString(src));
    out.expect_text(expected);
    if (::testing::Test::HasFatalFailure()) return;
  }
}

TEST(UnicodeDifferential, EncoderMatchesReferenceOnRandomUnits) {
  Random r(0x5eed0002);
  for (int i = 0; i < kCases; ++i) {
    Units src = random_utf16(r, r.chance(60));
    const auto len = random_length(r, src);
    src.push_back(0);
    const uint32_t size = random_size(r, len.effective * 3);
    const Bytes expected = reference_encode(src, len.effective, size);
    GuardedBuffer<char> out(size);
    bsr_UTF16ToUTF8(src.data(), len.arg, out.data(), size);
    SCOPED_TRACE("case " + std::to_string(i) + ", size " + std::to_string(size) + ", units " +
                 ::testing::PrintToString(src));
    out.expect_text(std::vector<char>(expected.begin(), expected.end()));
    if (::testing::Test::HasFatalFailure()) return;
  }
}

// Valid text survives UTF-8 -> UTF-16 -> UTF-8 unchanged when both targets
// are ample.
TEST(UnicodeDifferential, ValidTextRoundTrips) {
  Random r(0x5eed0003);
  for (int i = 0; i < kCases / 4; ++i) {
    const Bytes src = random_utf8(r, false);
    std::vector<bsr_wchar> wide(src.size() + 1);
    bsr_UTF8ToUTF16(reinterpret_cast<const char *>(src.data()), static_cast<uint32_t>(src.size()),
                    wide.data(), static_cast<uint32_t>(wide.size()));
    const Units expected_wide = reference_decode(src, src.size(), wide.size());
    ASSERT_TRUE(std::equal(expected_wide.begin(), expected_wide.end(), wide.begin())) << i;
    std::vector<char> back(src.size() + 1);
    bsr_UTF16ToUTF8(wide.data(), static_cast<uint32_t>(expected_wide.size()), back.data(),
                    static_cast<uint32_t>(back.size()));
    ASSERT_EQ(Bytes(back.begin(), back.end() - 1), src) << "case " << i;
    ASSERT_EQ(back.back(), 0);
  }
}

}  // namespace
