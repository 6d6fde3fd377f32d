#include "platform/posix/utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tests/support/utf8.h"

namespace test {
namespace {

using platform::posix::to_native_path;
using platform::posix::to_utf8;

std::u16string unit(unsigned value) { return std::u16string(1, static_cast<char16_t>(value)); }

TEST(ToUtf8, KnownTexts) {
  EXPECT_EQ(to_utf8(u""), "");
  EXPECT_EQ(to_utf8(u"plain/\\ text"), "plain/\\ text");
  EXPECT_EQ(to_utf8(u"\u00E4"), "\xC3\xA4");
  EXPECT_EQ(to_utf8(u"\u20AC"), "\xE2\x82\xAC");
  EXPECT_EQ(to_utf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(to_utf8(u"a\u4E2D\U0001F600b"),
            "a\xE4\xB8\xAD\xF0\x9F\x98\x80"
            "b");
}

// The first and the last code point of each length.
TEST(ToUtf8, LimitsOfTheLengths) {
  EXPECT_EQ(to_utf8(unit(0x01)), "\x01");
  EXPECT_EQ(to_utf8(unit(0x7F)), "\x7F");
  EXPECT_EQ(to_utf8(unit(0x80)), "\xC2\x80");
  EXPECT_EQ(to_utf8(unit(0x7FF)), "\xDF\xBF");
  EXPECT_EQ(to_utf8(unit(0x800)), "\xE0\xA0\x80");
  EXPECT_EQ(to_utf8(unit(0xD7FF)), "\xED\x9F\xBF");
  EXPECT_EQ(to_utf8(unit(0xE000)), "\xEE\x80\x80");
  EXPECT_EQ(to_utf8(unit(0xFEFF)), "\xEF\xBB\xBF");
  EXPECT_EQ(to_utf8(unit(0xFFFE)), "\xEF\xBF\xBE");
  EXPECT_EQ(to_utf8(unit(0xFFFF)), "\xEF\xBF\xBF");
  EXPECT_EQ(to_utf8(unit(0xD800) + unit(0xDC00)), "\xF0\x90\x80\x80");
  EXPECT_EQ(to_utf8(unit(0xDBFF) + unit(0xDFFF)), "\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, LoneSurrogatesCannotBeExpressed) {
  for (const unsigned high : {0xD800u, 0xDABCu, 0xDBFFu}) {
    EXPECT_EQ(to_utf8(unit(high)), std::nullopt);
    EXPECT_EQ(to_utf8(u"a" + unit(high)), std::nullopt);
    EXPECT_EQ(to_utf8(unit(high) + u"a"), std::nullopt);
    EXPECT_EQ(to_utf8(unit(high) + unit(high)), std::nullopt);
    EXPECT_EQ(to_utf8(unit(high) + unit(0xE000)), std::nullopt);
    EXPECT_EQ(to_utf8(unit(high) + unit(high) + unit(0xDC00)), std::nullopt);
  }
  for (const unsigned low : {0xDC00u, 0xDEADu, 0xDFFFu}) {
    EXPECT_EQ(to_utf8(unit(low)), std::nullopt);
    EXPECT_EQ(to_utf8(u"a" + unit(low) + u"b"), std::nullopt);
    EXPECT_EQ(to_utf8(unit(low) + unit(0xD800)), std::nullopt);
    EXPECT_EQ(to_utf8(unit(0xD800) + unit(0xDC00) + unit(low)), std::nullopt);
  }
}

TEST(ToUtf8, AZeroUnitCannotBeExpressed) {
  EXPECT_EQ(to_utf8(std::u16string_view(u"a\0b", 3)), std::nullopt);
  EXPECT_EQ(to_utf8(std::u16string_view(u"\0", 1)), std::nullopt);
}

TEST(ToUtf8, EveryCodePointComesBack) {
  for (std::uint32_t point = 1; point <= 0x10FFFF; ++point) {
    if (point >= 0xD800 && point <= 0xDFFF) continue;
    char16_t units[2];
    const std::optional<std::string> bytes =
        to_utf8(std::u16string_view(units, put_utf16(point, units)));
    ASSERT_TRUE(bytes) << point;
    ASSERT_EQ(bytes->size(), point < 0x80 ? 1u : point < 0x800 ? 2u : point < 0x10000 ? 3u : 4u);
    const char* at = bytes->data();
    ASSERT_EQ(next_code_point(at, bytes->data() + bytes->size()), point);
    ASSERT_EQ(at, bytes->data() + bytes->size()) << point;
  }
}

TEST(ToNativePath, EachBackslashIsASlash) {
  EXPECT_EQ(to_native_path(u""), "");
  EXPECT_EQ(to_native_path(u"\\"), "/");
  EXPECT_EQ(to_native_path(u"a\\b/c\\\\d"), "a/b/c//d");
  EXPECT_EQ(to_native_path(u"/out/Vellomark/\\Report1.htm"), "/out/Vellomark//Report1.htm");
  EXPECT_EQ(to_native_path(u"C:\\\u00E4\\\U0001F600"), "C:/\xC3\xA4/\xF0\x9F\x98\x80");
}

// Units one byte of which is that of a backslash stay.
TEST(ToNativePath, OtherUnitsStay) {
  EXPECT_EQ(to_native_path(u"\u005B\u005D\u015C\u5C5C"), "[]\xC5\x9C\xE5\xB1\x9C");
}

TEST(ToNativePath, FailsLikeToUtf8) {
  EXPECT_EQ(to_native_path(u"a\\" + unit(0xD800)), std::nullopt);
  EXPECT_EQ(to_native_path(std::u16string_view(u"a\0", 2)), std::nullopt);
}

}  // namespace
}  // namespace test
