#include "xport/stream/ustring_stream.h"

#include <gtest/gtest.h>

#include "tests/support/golden.h"

namespace test {
namespace {

TEST(UstringStream, StartsGoodAndEmpty) {
  const ustring_stream stream;
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(stream.str().size(), 0u);
}

TEST(UstringStream, KeepsAllUnitsOfARun) {
  ustring all;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) all += static_cast<char16_t>(unit);
  all += u"\uFFFF\uFFFF";
  ustring_stream stream;
  stream.write(all.data(), static_cast<std::streamsize>(all.size()));
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(stream.str(), all));
}

TEST(UstringStream, RunsAndSingleUnitsFollowEachOther) {
  ustring_stream stream;
  stream.put(u'a');
  stream << ustring(u"b\uFFFF");
  stream.put(u'\n');
  stream.write(u"cd", 0);
  stream.flush();
  stream << ustring(u"e");
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(stream.str(), u"ab\uFFFF\ne"));
}

TEST(UstringStream, AFailedStreamAcceptsNothing) {
  ustring_stream stream;
  stream << ustring(u"a");
  stream.setstate(std::ios_base::failbit);
  stream << ustring(u"b");
  EXPECT_TRUE(same_units(stream.str(), u"a"));
}

TEST(UstringStream, MayBeGivenItsOwnUnits) {
  ustring_stream stream;
  stream << ustring(u"abc");
  ustring expected = u"abc";
  for (int round = 0; round < 8; ++round) {
    stream << stream.view();
    expected += ustring(expected);
    ASSERT_TRUE(same_units(stream.view(), expected)) << round;
  }
}

}  // namespace
}  // namespace test
