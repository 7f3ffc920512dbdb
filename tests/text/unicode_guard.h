// unicode_guard.h - a target buffer for the conversion tests, followed by guard
// units so that stray writes show up, and checked conversions into it.
#ifndef UTILS_TEXT_UNICODE_GUARD_H
#define UTILS_TEXT_UNICODE_GUARD_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "bsr_unicode.h"

template <typename Unit>
struct Target {
  static constexpr Unit kMark = static_cast<Unit>(0xA5A5);
  explicit Target(size_t n) : size(n), buf(n + 24, kMark) {}
  Unit *data() { return buf.data(); }
  // `ret` is dst, which holds exactly `want` and a terminator; nothing
  // behind it was written.
  ::testing::AssertionResult holds(const std::basic_string<Unit> &want, const Unit *ret) const {
    const std::basic_string<Unit> got(buf.data(), std::min(want.size(), size));
    if (ret != buf.data()) return ::testing::AssertionFailure() << "did not return dst";
    if (want.size() >= size || got != want || buf[want.size()] != 0)
      return ::testing::AssertionFailure()
             << "size " << size << ", want " << ::testing::PrintToString(want) << ", got "
             << ::testing::PrintToString(std::basic_string<Unit>(buf.data(), size));
    for (size_t i = want.size() + 1; i < buf.size(); ++i)
      if (buf[i] != kMark)
        return ::testing::AssertionFailure()
               << "written behind the terminator at " << i << ", size " << size;
    return ::testing::AssertionSuccess();
  }
  size_t size;
  std::vector<Unit> buf;
};

constexpr uint32_t kWhole = 0xFFFFFFFE;  // counted source, all of it

inline ::testing::AssertionResult to16(const std::string &src, uint32_t size,
                                       const std::u16string &want, uint32_t len = kWhole) {
  Target<bsr_wchar> t(size);
  return t.holds(want, bsr_UTF8ToUTF16(src.c_str(), len == kWhole ? uint32_t(src.size()) : len,
                                       t.data(), size));
}

inline ::testing::AssertionResult to8(const std::u16string &src, uint32_t size,
                                      const std::string &want, uint32_t len = kWhole) {
  Target<char> t(size);
  return t.holds(want, bsr_UTF16ToUTF8(src.c_str(), len == kWhole ? uint32_t(src.size()) : len,
                                       t.data(), size));
}

#endif  // UTILS_TEXT_UNICODE_GUARD_H
