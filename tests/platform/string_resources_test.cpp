#include "platform/string_resources.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/posix/string_table.h"

// The table of this program.
namespace platform::posix {

std::span<const string_entry> string_table() {
  static const Xport::ustring longest(255, u'x');
  static const Xport::ustring too_long = longest + u"yz";
  static const string_entry table[] = {
      {7, u"seven"},
      {0, u"zero"},
      {7, u"seven again"},
      {8, longest},
      {9, too_long},
      {10, u""},
      {11, Xport::ustring_view(u"cut\0off", 7)},
      {4294967295u, u"\u4E2D\U0001F600"},
  };
  return table;
}

}  // namespace platform::posix

namespace {

using platform::string_resource;
using Xport::ustring;

TEST(StringResources, AreFoundByTheirNumber) {
  EXPECT_EQ(string_resource(7), u"seven");
  EXPECT_EQ(string_resource(0), u"zero");
  EXPECT_EQ(string_resource(4294967295u), u"\u4E2D\U0001F600");
}

TEST(StringResources, AreEmptyWhereThereIsNone) {
  EXPECT_EQ(string_resource(101), u"");
  EXPECT_EQ(string_resource(10), u"");
  EXPECT_EQ(string_resource(7 + 0x10000), u"");
  EXPECT_EQ(string_resource(0xFFFF), u"");
}

TEST(StringResources, EndBehindTheLongest) {
  EXPECT_EQ(string_resource(8), ustring(255, u'x'));
  EXPECT_EQ(string_resource(9), ustring(255, u'x'));
}

TEST(StringResources, EndAtAUnitZero) { EXPECT_EQ(string_resource(11), u"cut"); }

}  // namespace
