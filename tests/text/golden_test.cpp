#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace test {
namespace {

TEST(Golden, Utf8OfEachLength) {
  const ustring text = u"a\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF";
  const std::string bytes =
      "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  EXPECT_EQ(to_utf8(text), bytes);
  EXPECT_TRUE(same_units(from_utf8(bytes), text));
}

TEST(Golden, BrokenUtf8IsRefused) {
  for (const char* const bytes : {"\x80", "\xC3",
                                  "\xC3"
                                  "a",
                                  "\xE4\xB8"})
    EXPECT_THROW(from_utf8(bytes), std::runtime_error);
}

TEST(Golden, TheFirstDifferenceIsShown) {
  EXPECT_TRUE(same_units(u"", u""));
  const testing::AssertionResult result = same_units(u"one\ntwo\nthrEe", u"one\ntwo\nthree");
  ASSERT_FALSE(result);
  const std::string message = result.message();
  EXPECT_NE(message.find("line 3, column 4 (unit 11)"), std::string::npos) << message;
  EXPECT_NE(message.find("thr[here]Ee"), std::string::npos) << message;
  EXPECT_NE(message.find("thr[here]ee"), std::string::npos) << message;
}

TEST(Golden, AMissingEndIsADifference) {
  EXPECT_FALSE(same_units(u"ab", u"abc"));
  EXPECT_FALSE(same_units(u"abc", u"ab"));
  EXPECT_FALSE(is_golden(u"", "no_such_file.xhtml"));
}

}  // namespace
}  // namespace test
