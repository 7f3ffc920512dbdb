// A target buffer for the conversion tests that is pre-filled with a marker
// and followed by guard units, so that stray writes show up.
#ifndef TESTS_TEXT_UNICODE_GUARD_H
#define TESTS_TEXT_UNICODE_GUARD_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

template <typename Unit>
class GuardedBuffer {
 public:
  static constexpr size_t kGuard = 24;
  static constexpr Unit kMarker = static_cast<Unit>(0xA5A5);

  explicit GuardedBuffer(size_t size) : size_(size), units_(size + kGuard, kMarker) {}

  Unit *data() { return units_.data(); }
  uint32_t size() const { return static_cast<uint32_t>(size_); }
  const Unit &operator[](size_t i) const { return units_[i]; }

  // The buffer holds exactly `expected`, then a terminator, and every unit
  // after the terminator, guard included, is still the marker.
  void expect_text(const std::vector<Unit> &expected) const {
    ASSERT_LT(expected.size(), size_) << "expected text cannot fit";
    for (size_t i = 0; i < expected.size(); ++i)
      ASSERT_EQ(static_cast<uint32_t>(units_[i]), static_cast<uint32_t>(expected[i]))
          << "unit " << i;
    ASSERT_EQ(units_[expected.size()], Unit(0)) << "no terminator after the text";
    for (size_t i = expected.size() + 1; i < units_.size(); ++i)
      ASSERT_EQ(units_[i], kMarker) << "written behind the terminator at " << i
                                    << " (buffer size " << size_ << ")";
  }

  // Nothing at all was written.
  void expect_untouched() const {
    for (size_t i = 0; i < units_.size(); ++i) ASSERT_EQ(units_[i], kMarker) << "unit " << i;
  }

 private:
  size_t size_;
  std::vector<Unit> units_;
};

#endif  // TESTS_TEXT_UNICODE_GUARD_H
