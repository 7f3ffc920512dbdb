// dsp_tables_test.cpp - the DSP lookup tables: every entry against the formula
// that defines it, and the random-phase table held fixed.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "dsp_tables.h"

namespace {

TEST(DspTables, CosineIsTheRoundedQ15Cosine) {
  for (unsigned i = 0; i < 4096; ++i) {
    long exact = std::lround(32767.0 * std::cos(2.0 * 3.14159265358979323846 * i / 4096.0));
    if (i == 3375) exact = 14687;  // 14687.50014, rounded down in single precision
    ASSERT_EQ(LookupCosTable(i), exact) << "entry " << i;
  }
}

TEST(DspTables, ExpTablesAreRoundedPowersShiftsAndQ10Fractions) {
  for (unsigned i = 0; i < 20; ++i) {
    const int in = LookupExpTableIn(i), s = LookupExpTableShift(i);
    EXPECT_EQ(in, std::lround(std::exp(static_cast<double>(i)))) << i;
    EXPECT_TRUE(in >> s < 1 << 20 && (s == 0 || in >> (s - 1) >= 1 << 20)) << "shift " << i;
  }
  for (unsigned i = 0; i < 1024; ++i) {
    ASSERT_EQ(LookupExpTableFr(i), std::lround(1024.0 * std::exp(i / 1024.0))) << i;
    ASSERT_EQ(LookupExpTableFr(1024 + i), std::lround(1024.0 * std::log2(1.0 + i / 1024.0))) << i;
  }
}

TEST(DspTables, RandomPhasesAreFixedEvenValuesInRange) {
  uint64_t hash = 14695981039346656037ull;  // FNV-1a over every entry
  for (unsigned i = 0; i < 4096; ++i) {
    const int v = LookupRandPhase(i);
    ASSERT_EQ(v % 2, 0) << i;
    ASSERT_GE(v, 2) << i;
    ASSERT_LE(v, 65512) << i;
    hash = (hash ^ static_cast<uint64_t>(v)) * 1099511628211ull;
  }
  EXPECT_EQ(hash, 1370208574532479299ull) << "the table changed";
}

}  // namespace
