// Tests of the DSP lookup tables: every entry against the formula that
// defines it, plus the values engines depend on by number.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "dsp_tables.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

TEST(CosTable, EveryEntryIsTheRoundedQ15Cosine) {
  for (unsigned i = 0; i < 4096; ++i) {
    long exact = std::lround(32767.0 * std::cos(2.0 * kPi * i / 4096.0));
    if (i == 3375) exact = 14687;  // 14687.50014, held rounded down
    ASSERT_EQ(LookupCosTable(i), exact) << "entry " << i;
  }
}

TEST(CosTable, QuarterTurnsAndTheSignExtension) {
  EXPECT_EQ(LookupCosTable(0), 32767);
  EXPECT_EQ(LookupCosTable(1024), 0);
  EXPECT_EQ(LookupCosTable(2048), -32767);
  EXPECT_EQ(LookupCosTable(3072), 0);
  EXPECT_EQ(LookupCosTable(3375), 14687);
  EXPECT_EQ(LookupCosTable(721), 14688);  // same exact value, rounded up
  EXPECT_EQ(LookupCosTable(2047), -32767);
  EXPECT_LT(LookupCosTable(1025), 0);  // negative entries come back negative
}

TEST(ExpTables, IntegerPartIsRoundedPowersOfE) {
  const int expected[20] = {1,       3,       7,        20,       55,       148,     403,
                            1097,    2981,    8103,     22026,    59874,    162755,  442413,
                            1202604, 3269017, 8886111,  24154953, 65659969, 178482301};
  for (unsigned i = 0; i < 20; ++i) {
    EXPECT_EQ(LookupExpTableIn(i), expected[i]) << i;
    EXPECT_EQ(LookupExpTableIn(i), std::lround(std::exp(static_cast<double>(i)))) << i;
  }
}

TEST(ExpTables, ShiftIsTheSmallestThatFitsTwentyBits) {
  const int expected[20] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 4, 5, 6, 8};
  for (unsigned i = 0; i < 20; ++i) {
    int s = LookupExpTableShift(i);
    EXPECT_EQ(s, expected[i]) << i;
    EXPECT_LT(LookupExpTableIn(i) >> s, 1 << 20) << i;
    if (s > 0) {
      EXPECT_GE(LookupExpTableIn(i) >> (s - 1), 1 << 20) << i;
    }
  }
}

TEST(ExpTables, FractionHalvesAreExpAndLog2InQ10) {
  for (unsigned i = 0; i < 1024; ++i)
    ASSERT_EQ(LookupExpTableFr(i), std::lround(1024.0 * std::exp(i / 1024.0))) << i;
  for (unsigned j = 0; j < 1024; ++j)
    ASSERT_EQ(LookupExpTableFr(1024 + j), std::lround(1024.0 * std::log2(1.0 + j / 1024.0)))
        << j;
  EXPECT_EQ(LookupExpTableFr(0), 1024);
  EXPECT_EQ(LookupExpTableFr(1023), 2781);
  EXPECT_EQ(LookupExpTableFr(1024), 0);
  EXPECT_EQ(LookupExpTableFr(2047), 1023);
}

TEST(ExpTables, ShiftedProductStaysWithin32Bits) {
  // e^(n + x) as integer part >> shift times the Q10 fraction, unsigned.
  for (unsigned n = 0; n < 20; ++n) {
    long long product = static_cast<long long>(LookupExpTableIn(n) >> LookupExpTableShift(n)) *
                        LookupExpTableFr(1023);
    EXPECT_LE(product, 0xffffffffLL) << n;
  }
}

TEST(RandPhaseTable, FixedEvenValuesOverTheWholeRange) {
  std::set<int> distinct;
  int low = 1 << 20, high = -1;
  for (unsigned i = 0; i < 4096; ++i) {
    int v = LookupRandPhase(i);
    ASSERT_EQ(v % 2, 0) << i;
    ASSERT_GE(v, 2) << i;
    ASSERT_LE(v, 65512) << i;
    distinct.insert(v);
    low = std::min(low, v);
    high = std::max(high, v);
  }
  EXPECT_EQ(low, 2);
  EXPECT_EQ(high, 65512);
  EXPECT_EQ(distinct.size(), 3822u);
  // The same table in every build: a few pinned entries catch a change of
  // the generator or its seed.
  EXPECT_EQ(LookupRandPhase(0), 3278);
  EXPECT_EQ(LookupRandPhase(1), 21494);
  EXPECT_EQ(LookupRandPhase(4095), 42438);
}

}  // namespace
