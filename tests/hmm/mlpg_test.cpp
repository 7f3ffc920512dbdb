// Tests of parameter generation: tracks against an independent
// double-precision solver and, bit for bit, against the four steps run one
// after the other; gaps without statistics, window edges, degenerate sizes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "mlpg_reference.h"
#include "stream_fixture.h"

namespace {

using hmm_test::reference_track;
using hmm_test::stated_order_track;
using hmm_test::Stream;
using hmm_test::Windows;

// Largest difference from the double-precision solution, relative to the
// largest static mean magnitude (the scale the track lives on).
double worst_error(const std::vector<float> &got, const std::vector<double> &want) {
  double worst = 0.0;
  for (size_t t = 0; t < want.size(); ++t) worst = std::max(worst, std::fabs(got[t] - want[t]));
  return worst / 3000.0;
}

// Generates every dimension and checks each against both references.
void expect_matches_references(Stream &s, double tolerance) {
  for (int m = 0; m < s.ps->vector_length; ++m) {
    SCOPED_TRACE(testing::Message() << "frames " << s.frames() << ", dimension " << m);
    std::vector<float> before = s.track();
    std::vector<float> expected = stated_order_track(s.ps, m, before);
    std::vector<float> got = s.generate(m);
    for (int t = 0; t < s.frames(); ++t) ASSERT_EQ(got[t], expected[t]) << "frame " << t;
    std::vector<double> reference = reference_track(s.ps, m);
    ASSERT_EQ(reference.size(), got.size()) << "reference system not positive definite";
    EXPECT_LT(worst_error(got, reference), tolerance);
  }
}

constexpr double kSinglePrecision = 5e-6;

TEST(MlpgTrack, MatchesReferencesForManyLengths) {
  for (int frames : {1, 2, 3, 4, 5, 8, 31, 200, 1000}) {
    Stream s(Windows::usual(), 4, frames);
    ASSERT_NE(s.ps, nullptr);
    hmm_test::fill_random(s, 1000u + static_cast<uint32_t>(frames));
    expect_matches_references(s, kSinglePrecision);
  }
}

TEST(MlpgTrack, StaticWindowAloneReturnsTheMeans) {
  Windows one;
  one.add(0, {1.0f});
  Stream s(std::move(one), 2, 6);
  ASSERT_NE(s.ps, nullptr);
  ASSERT_EQ(s.ps->width, 1);
  const int16_t means[6] = {5, -7, 1200, 32767, -32768, 3};
  for (int t = 0; t < 6; ++t) {
    s.mean(t, 0, 1) = means[t];
    s.ivar(t, 0, 1) = static_cast<uint16_t>(1 + 97 * t);
  }
  std::vector<float> got = s.generate(1);
  for (int t = 0; t < 6; ++t) EXPECT_EQ(got[t], static_cast<float>(means[t])) << t;
}

TEST(MlpgTrack, WiderBandThanTheWindowsChangesNothing) {
  // Width 3 is the windows' own; 5 and 7 add band entries that stay 0.
  std::vector<std::vector<float>> tracks;
  for (int half : {1, 2, 3}) {
    Windows win = Windows::usual();
    PStream *ps = PStream_Create(3, win.left.data(), win.right.data(), win.pointers.data(),
                                 3, half, 40);
    ASSERT_NE(ps, nullptr);
    Stream holder(Windows::usual(), 1, 40);  // only for its random fill
    hmm_test::fill_random(holder, 77u);
    for (int t = 0; t < 40; ++t)
      for (int i = 0; i < 3; ++i) {
        ps->mean[t][i] = holder.ps->mean[t][i];
        ps->ivar[t][i] = holder.ps->ivar[t][i];
      }
    HTS_PStream_mlpg(ps, 0);
    tracks.emplace_back(ps->par, ps->par + 40);
    PStream_Destroy(ps);
  }
  EXPECT_EQ(tracks[0], tracks[1]);
  EXPECT_EQ(tracks[0], tracks[2]);
}

TEST(MlpgEdges, WindowsReachingOutsideTheFramesAreCut) {
  // Five-tap windows reach two frames past either end.
  Windows five;
  five.add(0, {1.0f});
  five.add(-2, {-0.2f, -0.1f, 0.0f, 0.1f, 0.2f});
  five.add(-2, {0.285714f, -0.142857f, -0.285714f, -0.142857f, 0.285714f});
  for (int frames : {1, 2, 3, 4, 5, 6, 50}) {
    Stream s(five, 3, frames);
    ASSERT_NE(s.ps, nullptr);
    ASSERT_EQ(s.ps->width, 5);
    hmm_test::fill_random(s, 500u + static_cast<uint32_t>(frames));
    expect_matches_references(s, kSinglePrecision);
  }
}

TEST(MlpgEdges, OneSidedWindowsPaddedToTheCentre) {
  // A forward difference written with a zero coefficient on the left, so
  // that its offsets are symmetric, gives the exact solution.
  Windows padded;
  padded.add(0, {1.0f});
  padded.add(-1, {0.0f, -1.0f, 1.0f});
  for (int frames : {1, 2, 7}) {
    Stream s(padded, 2, frames);
    ASSERT_NE(s.ps, nullptr);
    hmm_test::fill_random(s, 600u + static_cast<uint32_t>(frames));
    expect_matches_references(s, kSinglePrecision);
  }
}

TEST(MlpgEdges, UnpaddedOneSidedWindowsStillFollowTheSteps) {
  // Offsets 0..1 and -2..0: shifts whose centre coefficient lies outside
  // the window contribute nothing. Not a least-squares solution, but the
  // same arithmetic as the plain steps, and nothing read out of bounds.
  Windows lopsided;
  lopsided.add(0, {1.0f});
  lopsided.add(0, {-1.0f, 1.0f});
  lopsided.add(-2, {1.0f, -2.0f, 1.0f});
  for (int frames : {1, 2, 3, 9}) {
    Stream s(lopsided, 2, frames);
    ASSERT_NE(s.ps, nullptr);
    hmm_test::fill_random(s, 700u + static_cast<uint32_t>(frames));
    for (int m = 0; m < 2; ++m) {
      std::vector<float> expected = stated_order_track(s.ps, m, s.track());
      EXPECT_EQ(s.generate(m), expected) << frames << " frames, dimension " << m;
    }
  }
}

TEST(MlpgEdges, ThreeTapWindowsOfEveryShape) {
  // Windows within one frame either side, some one-sided, some with zero
  // coefficients: every shift and band term is taken or skipped as in the
  // plain steps, and the centred ones solve the least-squares system.
  Windows mixed;
  mixed.add(0, {1.0f});
  mixed.add(0, {-1.0f, 1.0f});          // one-sided, offsets 0..1
  mixed.add(-1, {1.0f, -1.0f});         // one-sided, offsets -1..0
  mixed.add(-1, {0.0f, -1.0f, 1.0f});   // the same difference, centred
  mixed.add(-1, {0.25f, 0.5f, 0.0f});   // zero on the right
  for (int frames : {1, 2, 3, 40}) {
    Stream s(mixed, 2, frames);
    ASSERT_NE(s.ps, nullptr);
    ASSERT_EQ(s.ps->width, 3);
    hmm_test::fill_random(s, 800u + static_cast<uint32_t>(frames));
    for (int m = 0; m < 2; ++m) {
      std::vector<float> expected = stated_order_track(s.ps, m, s.track());
      EXPECT_EQ(s.generate(m), expected) << frames << " frames, dimension " << m;
    }
  }
}

TEST(MlpgEdges, ManyWindowsOfThreeTaps) {
  // Nine centred three-tap windows: more windows than the three-tap fast
  // path keeps, still a band of width 3.
  Windows many;
  many.add(0, {1.0f});
  for (int w = 1; w < 9; ++w)
    many.add(-1, {0.1f * static_cast<float>(w), -0.3f, 0.05f * static_cast<float>(w)});
  for (int frames : {1, 3, 60}) {
    Stream s(many, 2, frames);
    ASSERT_NE(s.ps, nullptr);
    ASSERT_EQ(s.ps->width, 3);
    hmm_test::fill_random(s, 900u + static_cast<uint32_t>(frames));
    expect_matches_references(s, kSinglePrecision);
  }
}

TEST(MlpgEdges, BandNarrowerThanTheWindowsDropsTheOuterEntries) {
  // Five-tap windows solved in a band of width 3: the entries two frames
  // apart are never formed. Not the least-squares track, but the stated
  // arithmetic, and nothing written outside the rows.
  Windows five;
  five.add(0, {1.0f});
  five.add(-2, {-0.2f, -0.1f, 0.0f, 0.1f, 0.2f});
  for (int frames : {1, 4, 30}) {
    PStream *ps = PStream_Create(2, five.left.data(), five.right.data(), five.pointers.data(),
                                 2, 1, frames);
    ASSERT_NE(ps, nullptr);
    ASSERT_EQ(ps->width, 3);
    for (int t = 0; t < frames; ++t) {
      ps->mean[t][0] = static_cast<int16_t>(100 * t - 700);
      ps->mean[t][1] = static_cast<int16_t>(30 - 3 * t);
      ps->ivar[t][0] = static_cast<uint16_t>(5 + t % 7);
      ps->ivar[t][1] = static_cast<uint16_t>(40 + t % 3);
    }
    std::vector<float> expected = stated_order_track(ps, 0, std::vector<float>(frames, 0.0f));
    HTS_PStream_mlpg(ps, 0);
    EXPECT_EQ(std::vector<float>(ps->par, ps->par + frames), expected) << frames << " frames";
    PStream_Destroy(ps);
  }
}

TEST(MlpgEdges, SingleFrameUsesOnlyTheCentreCoefficients) {
  Stream s(Windows::usual(), 1, 1);
  ASSERT_NE(s.ps, nullptr);
  s.mean(0, 0, 0) = 100;  // static
  s.ivar(0, 0, 0) = 1;
  s.mean(0, 1, 0) = 999;  // delta: centre coefficient 0, so unused
  s.ivar(0, 1, 0) = 50;
  s.mean(0, 2, 0) = 10;  // acceleration: centre -2
  s.ivar(0, 2, 0) = 1;
  // (1 * 100 + (-2) * 10) / (1 + 4) = 16
  EXPECT_EQ(s.generate(0)[0], 16.0f);
}

TEST(MlpgEdges, LongWindowsTakeTheGeneralPath) {
  // Three 31-tap windows have about 60 shifts with a non-zero centre
  // coefficient, more than the fast path keeps room for; the general path
  // must give the same arithmetic.
  Windows wide;
  std::vector<float> slope(31), curve(31);
  for (int k = -15; k <= 15; ++k) {
    slope[k + 15] = static_cast<float>(k) / 2480.0f;
    curve[k + 15] = static_cast<float>(k * k - 80) / 30000.0f;
  }
  wide.add(0, {1.0f});
  wide.add(-15, slope);
  wide.add(-15, curve);
  for (int frames : {5, 40}) {
    Stream s(wide, 2, frames);
    ASSERT_NE(s.ps, nullptr);
    ASSERT_EQ(s.ps->width, 31);
    hmm_test::fill_random(s, 9u);
    expect_matches_references(s, kSinglePrecision);
  }
}

// Frames without statistics: all inverse variances 0.
TEST(MlpgGaps, ShortGapsAreInterpolatedThroughTheWindows) {
  for (int gap : {1, 2}) {
    Stream s(Windows::usual(), 2, 30);
    ASSERT_NE(s.ps, nullptr);
    hmm_test::fill_random(s, 31u + static_cast<uint32_t>(gap));
    for (int t = 12; t < 12 + gap; ++t) hmm_test::clear_frame(s, t);
    expect_matches_references(s, kSinglePrecision);
  }
}

TEST(MlpgGaps, GapBetweenTwoLevelsLiesBetweenThem) {
  // Level 100 before, 200 after, deltas asking for a flat track: the one
  // missing frame lands between the levels.
  Stream s(Windows::usual(), 1, 9);
  ASSERT_NE(s.ps, nullptr);
  for (int t = 0; t < 9; ++t) {
    s.mean(t, 0, 0) = t < 4 ? 100 : 200;
    for (int w = 0; w < 3; ++w) s.ivar(t, w, 0) = 10;
  }
  hmm_test::clear_frame(s, 4);
  std::vector<float> track = s.generate(0);
  EXPECT_TRUE(std::isfinite(track[4]));
  EXPECT_GT(track[4], track[3]);
  EXPECT_LT(track[4], track[5]);
}

TEST(MlpgGaps, FramesOutOfReachKeepTheirValueWithoutNaN) {
  // A 7-frame gap: its middle frames are reached by no window, so their
  // pivots are 0; nothing is divided and they keep what par held.
  Stream s(Windows::usual(), 2, 25);
  ASSERT_NE(s.ps, nullptr);
  hmm_test::fill_random(s, 4u);
  for (int t = 9; t < 16; ++t) hmm_test::clear_frame(s, t);
  std::vector<float> first = s.generate(0);
  for (float v : first) EXPECT_TRUE(std::isfinite(v));
  for (int t = 11; t <= 13; ++t) EXPECT_EQ(first[t], 0.0f) << "fresh stream, frame " << t;
  for (int t = 11; t <= 13; ++t) EXPECT_EQ(s.ps->wuw[t][0], 0.0f) << "pivot of frame " << t;

  std::vector<float> expected = stated_order_track(s.ps, 1, first);
  std::vector<float> second = s.generate(1);
  EXPECT_EQ(second, expected);
  for (int t = 11; t <= 13; ++t)
    EXPECT_EQ(second[t], first[t]) << "previous dimension's value kept at frame " << t;
}

TEST(MlpgGaps, ExactZeroAfterForwardSubstitutionKeepsThePreviousValue) {
  // Static window alone: g[t] = mean * ivar, exactly 0 for a zero mean even
  // with a non-zero pivot, so par[t] is not set from it.
  Windows one;
  one.add(0, {1.0f});
  Stream s(std::move(one), 2, 4);
  ASSERT_NE(s.ps, nullptr);
  for (int t = 0; t < 4; ++t) {
    s.mean(t, 0, 0) = 7;
    s.ivar(t, 0, 0) = 3;
    s.mean(t, 0, 1) = t == 2 ? 0 : 5;
    s.ivar(t, 0, 1) = 3;
  }
  EXPECT_EQ(s.generate(0), (std::vector<float>{7, 7, 7, 7}));
  EXPECT_EQ(s.generate(1), (std::vector<float>{5, 5, 7, 5}));

  // In a new stream the kept value is the zero it was created with.
  Windows again;
  again.add(0, {1.0f});
  Stream fresh(std::move(again), 2, 4);
  ASSERT_NE(fresh.ps, nullptr);
  for (int t = 0; t < 4; ++t) {
    fresh.mean(t, 0, 1) = t == 2 ? 0 : 5;
    fresh.ivar(t, 0, 1) = 3;
  }
  EXPECT_EQ(fresh.generate(1), (std::vector<float>{5, 5, 0, 5}));
}

TEST(MlpgArguments, OutOfRangeCallsLeaveTheTrackAlone) {
  Stream s(Windows::usual(), 2, 5);
  ASSERT_NE(s.ps, nullptr);
  hmm_test::fill_random(s, 2u);
  for (int t = 0; t < 5; ++t) s.ps->par[t] = 42.0f;
  HTS_PStream_mlpg(s.ps, -1);
  HTS_PStream_mlpg(s.ps, 2);  // vector_length is 2
  HTS_PStream_mlpg(nullptr, 0);
  EXPECT_EQ(s.track(), std::vector<float>(5, 42.0f));
}

TEST(MlpgArguments, LengthIsBoundedByTheRowsAllocated) {
  Stream s(Windows::usual(), 1, 6);
  ASSERT_NE(s.ps, nullptr);
  hmm_test::fill_random(s, 3u);
  s.ps->length = 1000;  // a caller's mistake; the rows are still 6
  HTS_PStream_mlpg(s.ps, 0);
  s.ps->length = 6;
  std::vector<double> reference = reference_track(s.ps, 0);
  ASSERT_EQ(reference.size(), 6u);
  EXPECT_LT(worst_error(s.track(), reference), kSinglePrecision);
}

}  // namespace
