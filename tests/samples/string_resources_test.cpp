#include "samples/string_resources.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/names.h"

namespace test {
namespace {

using samples::find_string;

const ustring longest(255, u'x');
const ustring too_long = longest + u"yz";

const samples::string_entry table[] = {
    {7, u"seven"},
    {0, u"zero"},
    {7, u"seven again"},
    {8, longest},
    {9, too_long},
    {10, u""},
    {11, ustring_view(u"cut\0off", 7)},
    {4294967295u, u"\u4E2D\U0001F600"},
};

TEST(StringResources, AreFoundByTheirNumber) {
  EXPECT_EQ(find_string(table, 7), u"seven");
  EXPECT_EQ(find_string(table, 0), u"zero");
  EXPECT_EQ(find_string(table, 4294967295u), u"\u4E2D\U0001F600");
}

TEST(StringResources, AreEmptyWhereThereIsNone) {
  EXPECT_EQ(find_string(table, 101), u"");
  EXPECT_EQ(find_string(table, 10), u"");
  EXPECT_EQ(find_string(table, 7 + 0x10000), u"");
  EXPECT_EQ(find_string(table, 0xFFFF), u"");
}

TEST(StringResources, AreCutAtTheLongestLength) {
  EXPECT_EQ(find_string(table, 8), ustring(255, u'x'));
  EXPECT_EQ(find_string(table, 9), ustring(255, u'x'));
}

TEST(StringResources, EndAtAUnitZero) { EXPECT_EQ(find_string(table, 11), u"cut"); }

}  // namespace
}  // namespace test
