// cstr_size_test.cpp - the exported data symbol CStr holds the record size the
// library was built with. It shares its name with the record type, so this file
// reads it alone.
#include <gtest/gtest.h>

#include <cstdint>

extern "C" const uint32_t CStr;

TEST(CStrTest, ExportedRecordSizeMatchesTheHeaderLayout) {
  EXPECT_EQ(CStr, sizeof(char *) + 2 * sizeof(uint32_t));
}
