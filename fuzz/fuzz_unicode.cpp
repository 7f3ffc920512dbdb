// fuzz_unicode.cpp - fuzzes both Unicode converters with arbitrary input and
// target sizes: the output must end inside the target, stop where strict rules
// say, and round-trip back to the part of the input that was converted.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "bsr_unicode.h"

namespace {

constexpr size_t kGuard = 32;
constexpr uint16_t kMarker = 0xA5A5;

void check(bool ok) {
  if (!ok) std::abort();
}

// Length in bytes of the longest prefix of whole, well-formed UTF-8
// characters, and that prefix's length in UTF-16 units.
struct Prefix {
  size_t length;
  size_t units;
};

size_t utf8_length_at(const uint8_t *s, size_t n) {
  const unsigned b = s[0];
  unsigned len, lo = 0x80, hi = 0xBF;
  if (b < 0x80) return 1;
  if (b >= 0xC2 && b <= 0xDF)
    len = 2;
  else if (b >= 0xE0 && b <= 0xEF)
    len = 3;
  else if (b >= 0xF0 && b <= 0xF4)
    len = 4;
  else
    return 0;
  if (b == 0xE0) lo = 0xA0;
  if (b == 0xED) hi = 0x9F;
  if (b == 0xF0) lo = 0x90;
  if (b == 0xF4) hi = 0x8F;
  if (n < len || s[1] < lo || s[1] > hi) return 0;
  for (unsigned k = 2; k < len; ++k)
    if (s[k] < 0x80 || s[k] > 0xBF) return 0;
  return len;
}

// Converting src into `size` units stops after the character that makes
// this prefix: whole, well-formed characters whose units fit in size-1.
Prefix utf8_expected(const uint8_t *s, size_t n, size_t size) {
  Prefix p{0, 0};
  while (p.length < n) {
    const size_t len = utf8_length_at(s + p.length, n - p.length);
    if (len == 0) break;
    const size_t units = len == 4 ? 2 : 1;
    if (p.units + units > size - 1) break;
    p.length += len;
    p.units += units;
  }
  return p;
}

// The same for UTF-16 source: bytes of whole characters that fit.
Prefix utf16_expected(const bsr_wchar *s, size_t n, size_t size) {
  Prefix p{0, 0};  // length in units, `units` = UTF-8 bytes here
  while (p.length < n) {
    const uint32_t u = s[p.length];
    size_t used = 1, bytes = u < 0x80 ? 1 : u < 0x800 ? 2 : 3;
    if (u >= 0xDC00 && u <= 0xDFFF) break;
    if (u >= 0xD800 && u <= 0xDBFF) {
      if (p.length + 1 >= n || s[p.length + 1] < 0xDC00 || s[p.length + 1] > 0xDFFF) break;
      used = 2;
      bytes = 4;
    }
    if (p.units + bytes > size - 1) break;
    p.length += used;
    p.units += bytes;
  }
  return p;
}

// The buffer holds `text` units of converted text, then a terminator, and
// every unit after that is untouched.
template <typename Unit>
void check_terminated(const std::vector<Unit> &buf, size_t text) {
  check(buf[text] == 0);
  for (size_t i = text + 1; i < buf.size(); ++i) check(buf[i] == static_cast<Unit>(kMarker));
}

void fuzz_utf8_to_utf16(const uint8_t *src, size_t n, size_t size, bool zero_terminated) {
  std::vector<uint8_t> text(src, src + n);
  if (zero_terminated) {
    for (uint8_t &b : text)
      if (b == 0) b = 'z';
    text.push_back(0);
  }
  std::vector<bsr_wchar> out(size + kGuard, kMarker);
  bsr_UTF8ToUTF16(reinterpret_cast<const char *>(text.data()),
                  zero_terminated ? BSR_ZERO_TERMINATED : static_cast<uint32_t>(n), out.data(),
                  static_cast<uint32_t>(size));
  const Prefix want = utf8_expected(text.data(), n, size);
  check_terminated(out, want.units);

  // Back to UTF-8: exactly the converted part of the source.
  std::vector<char> back(n + 1 + kGuard, static_cast<char>(kMarker));
  bsr_UTF16ToUTF8(out.data(), static_cast<uint32_t>(want.units), back.data(),
                  static_cast<uint32_t>(n + 1));
  check(std::equal(text.begin(), text.begin() + want.length,
                   reinterpret_cast<const uint8_t *>(back.data())));
  check_terminated(back, want.length);
}

void fuzz_utf16_to_utf8(const uint8_t *data, size_t n_bytes, size_t size, bool zero_terminated) {
  std::vector<bsr_wchar> text(n_bytes / 2);
  for (size_t i = 0; i < text.size(); ++i)
    text[i] = static_cast<bsr_wchar>(data[2 * i] | data[2 * i + 1] << 8);
  const size_t n = text.size();
  if (zero_terminated) {
    for (bsr_wchar &u : text)
      if (u == 0) u = u'z';
    text.push_back(0);
  }
  std::vector<char> out(size + kGuard, static_cast<char>(kMarker));
  bsr_UTF16ToUTF8(text.data(), zero_terminated ? BSR_ZERO_TERMINATED : static_cast<uint32_t>(n),
                  out.data(), static_cast<uint32_t>(size));
  const Prefix want = utf16_expected(text.data(), n, size);
  check_terminated(out, want.units);

  std::vector<bsr_wchar> back(n + 1 + kGuard, kMarker);
  bsr_UTF8ToUTF16(out.data(), static_cast<uint32_t>(want.units), back.data(),
                  static_cast<uint32_t>(n + 1));
  check(std::equal(text.begin(), text.begin() + want.length, back.begin()));
  check_terminated(back, want.length);
}

}  // namespace

// The first three bytes choose the converter, how the source length is
// given, and the target size (small sizes more often); the rest is the text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  const unsigned mode = data[0];
  const size_t n = size - 3;
  const size_t full = (mode & 1) ? n * 3 + 1 : n + 1;  // ample for either direction
  const unsigned pick = data[1] | data[2] << 8;
  const size_t target = (mode & 4) ? full + pick % 8 : 1 + pick % (full + 8);
  if (mode & 1)
    fuzz_utf16_to_utf8(data + 3, n, target, (mode & 2) != 0);
  else
    fuzz_utf8_to_utf16(data + 3, n, target, (mode & 2) != 0);
  return 0;
}
