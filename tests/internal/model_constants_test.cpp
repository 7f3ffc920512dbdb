// model_constants_test.cpp - inside the library image: the integer constants
// lie one after another, and the unexported string constants are what they say.
#include <gtest/gtest.h>

#include <string>

#include "Utils/Model/val_cell.h"

namespace {

TEST(ModelConstants, LayoutAndUnexportedConstants) {
  for (int n = 0; n <= 60; ++n) EXPECT_EQ(utils_val_int_table[n], &val_int_0 + n);
  EXPECT_EQ(std::u16string(val_wstring(&utils_val_string_x)), u"x");
  EXPECT_EQ(utils_val_string_x.c.atom.ref_count, -1);
  EXPECT_EQ(val_equal(&utils_val_ffeature_default, val_string_n(0)), 1);
  EXPECT_EQ(utils_val_string_table[33], val_string_n(33));
}

}  // namespace
