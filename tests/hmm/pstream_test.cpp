// Tests of stream creation and release: the record's fields, zero-filled
// per-frame rows, and the arguments no stream can be made from.
#include <gtest/gtest.h>

#include "stream_fixture.h"

namespace {

using hmm_test::Windows;

TEST(PStreamCreate, FieldsFollowTheArguments) {
  Windows win = Windows::usual();
  PStream *ps = PStream_Create(3, win.left.data(), win.right.data(), win.pointers.data(),
                               7, 2, 11);
  ASSERT_NE(ps, nullptr);
  EXPECT_EQ(ps->vector_size, 7);
  EXPECT_EQ(ps->vector_length, 2);  // 7 / 3, rounded down
  EXPECT_EQ(ps->length, 11);
  EXPECT_EQ(ps->alloc_length, 11);
  EXPECT_EQ(ps->width, 5);
  EXPECT_EQ(ps->num_windows, 3);
  // The windows are the caller's, held by pointer.
  EXPECT_EQ(ps->win_l_width, win.left.data());
  EXPECT_EQ(ps->win_r_width, win.right.data());
  EXPECT_EQ(ps->win_coefficient, win.pointers.data());
  PStream_Destroy(ps);
}

TEST(PStreamCreate, EveryArrayIsZeroFilledAndSeparate) {
  Windows win = Windows::usual();
  const int frames = 9, size = 12, width = 3;
  PStream *ps = PStream_Create(3, win.left.data(), win.right.data(), win.pointers.data(),
                               size, 1, frames);
  ASSERT_NE(ps, nullptr);
  for (int t = 0; t < frames; ++t) {
    EXPECT_EQ(ps->par[t], 0.0f);
    EXPECT_EQ(ps->g[t], 0.0f);
    EXPECT_EQ(ps->wum[t], 0.0f);
    for (int i = 0; i < size; ++i) {
      EXPECT_EQ(ps->mean[t][i], 0);
      EXPECT_EQ(ps->ivar[t][i], 0);
    }
    for (int i = 0; i < width; ++i) EXPECT_EQ(ps->wuw[t][i], 0.0f);
  }
  // Writing every row in full must not spill into another (ASan checks the
  // bounds; the read-back checks the rows do not share storage).
  for (int t = 0; t < frames; ++t)
    for (int i = 0; i < size; ++i) {
      ps->mean[t][i] = static_cast<int16_t>(-(t * size + i));
      ps->ivar[t][i] = static_cast<uint16_t>(t * size + i + 40000);
    }
  for (int t = 0; t < frames; ++t)
    for (int i = 0; i < size; ++i) {
      EXPECT_EQ(ps->mean[t][i], -(t * size + i));
      EXPECT_EQ(ps->ivar[t][i], t * size + i + 40000);
    }
  PStream_Destroy(ps);
}

TEST(PStreamCreate, EmptyStreamsAreValid) {
  Windows win = Windows::usual();
  PStream *no_frames = PStream_Create(3, win.left.data(), win.right.data(),
                                      win.pointers.data(), 6, 1, 0);
  ASSERT_NE(no_frames, nullptr);
  EXPECT_EQ(no_frames->length, 0);
  HTS_PStream_mlpg(no_frames, 0);  // nothing to generate
  PStream_Destroy(no_frames);

  PStream *no_dims = PStream_Create(3, win.left.data(), win.right.data(),
                                    win.pointers.data(), 0, 1, 4);
  ASSERT_NE(no_dims, nullptr);
  EXPECT_EQ(no_dims->vector_length, 0);
  HTS_PStream_mlpg(no_dims, 0);  // no dimension 0
  for (int t = 0; t < 4; ++t) EXPECT_EQ(no_dims->par[t], 0.0f);
  PStream_Destroy(no_dims);
}

TEST(PStreamCreate, RejectsArgumentsNoStreamCanBeMadeFrom) {
  Windows win = Windows::usual();
  int *l = win.left.data(), *r = win.right.data();
  float **c = win.pointers.data();
  EXPECT_EQ(PStream_Create(0, l, r, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(-3, l, r, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, nullptr, r, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, nullptr, c, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, nullptr, 6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, -6, 1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, 6, -1, 5), nullptr);
  EXPECT_EQ(PStream_Create(3, l, r, c, 6, 1, -5), nullptr);
  float *missing[3] = {c[0], nullptr, c[2]};
  EXPECT_EQ(PStream_Create(3, l, r, missing, 6, 1, 5), nullptr);
  int runaway_right[3] = {0, 1, 2147483647};
  EXPECT_EQ(PStream_Create(3, l, runaway_right, c, 6, 1, 5), nullptr);
  int runaway_left[3] = {0, -1, -2147483647 - 1};
  EXPECT_EQ(PStream_Create(3, runaway_left, r, c, 6, 1, 5), nullptr);
}

TEST(PStreamCreate, SizesBeyondTheAllocatorFailCleanly) {
  Windows win = Windows::usual();
  // 2^30 frames of row pointers do not fit a 32-bit allocation size.
  EXPECT_EQ(PStream_Create(3, win.left.data(), win.right.data(), win.pointers.data(), 3, 1,
                           1 << 30),
            nullptr);
}

TEST(PStreamDestroy, IgnoresNull) { PStream_Destroy(nullptr); }

}  // namespace
