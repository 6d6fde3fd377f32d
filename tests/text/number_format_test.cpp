#include "xport/text/number_format.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/support/golden.h"

namespace test {
namespace {

TEST(NumberFormat, Decimal) {
  EXPECT_TRUE(same_units(to_ustring(0), u"0"));
  EXPECT_TRUE(same_units(to_ustring(7), u"7"));
  EXPECT_TRUE(same_units(to_ustring(10), u"10"));
  EXPECT_TRUE(same_units(to_ustring(1234567890), u"1234567890"));
  EXPECT_TRUE(same_units(to_ustring(-1), u"-1"));
}

TEST(NumberFormat, Limits) {
  EXPECT_TRUE(same_units(to_ustring(INT32_MAX), u"2147483647"));
  EXPECT_TRUE(same_units(to_ustring(INT32_MIN), u"-2147483648"));
}

TEST(NumberFormat, EachNumberOfDigits) {
  std::int32_t number = 1;
  std::u16string digits = u"1";
  for (int length = 1; length <= 10; ++length) {
    EXPECT_TRUE(same_units(to_ustring(number), digits));
    EXPECT_TRUE(same_units(to_ustring(-number), u'-' + digits));
    if (length < 10) number *= 10;
    digits += u'0';
  }
}

}  // namespace
}  // namespace test
