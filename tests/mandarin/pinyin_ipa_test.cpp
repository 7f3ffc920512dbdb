// pinyin_ipa_test.cpp - the pinyin-to-IPA table and converter.
#include <gtest/gtest.h>

#include "utts/pinyin_ipa.h"

namespace {

TEST(PinyinIpa, TableLoads) { EXPECT_EQ(utts::mandarin::pinyin_table_errors(), ""); }

}  // namespace
