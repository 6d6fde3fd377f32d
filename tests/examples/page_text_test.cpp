#include "examples/support/page_text.h"

#include <gtest/gtest.h>

#include "examples/support/unicode.h"

namespace test {
namespace {

using namespace examples;

TEST(ToUtf16, ConvertsTheFirstAndLastNumberOfEachLength) {
  EXPECT_EQ(to_utf16(std::string_view("\0\x7F", 2)), std::u16string({0x0000, 0x007F}));
  EXPECT_EQ(to_utf16("\xC2\x80\xDF\xBF"), std::u16string({0x0080, 0x07FF}));
  EXPECT_EQ(to_utf16("\xE0\xA0\x80\xEF\xBF\xBF"), std::u16string({0x0800, 0xFFFF}));
  EXPECT_EQ(to_utf16("\xED\x9F\xBF\xEE\x80\x80"), std::u16string({0xD7FF, 0xE000}));
  EXPECT_EQ(to_utf16("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
            std::u16string({0xD800, 0xDC00, 0xDBFF, 0xDFFF}));
  EXPECT_EQ(to_utf16(""), u"");
}

TEST(ToUtf16, RefusesEverythingElse) {
  for (const char* text : {
           "\x80",
           "\xBF",  // no beginning
           "\xC0\x80",
           "\xC1\xBF",  // overlong
           "\xE0\x9F\xBF",
           "\xF0\x8F\xBF\xBF",  // overlong
           "\xED\xA0\x80",
           "\xED\xBF\xBF",  // surrogates
           "\xF4\x90\x80\x80",
           "\xF5\x80\x80\x80",  // too large
           "\xF8\x88\x80\x80\x80",
           "\xFE",
           "\xFF",  // no such form
           "\xC3",
           "\xE4\xB8",
           "\xF0\x9F\x8C",  // cut off by the end
           "\xC3(",
           "\xE4\xB8(",
           "\xF0\x9F\x8C(",  // cut off by a character
           "\xC3\xC3\xA9",
       }) {
    try {
      to_utf16(std::string("ab") + text);
      ADD_FAILURE() << "accepted: " << testing::PrintToString(text);
    } catch (const invalid_utf8& error) {
      EXPECT_EQ(error.offset(), 2u) << testing::PrintToString(text);
    }
  }
}

TEST(Escape, WritesMarkupCharactersAsReferences) {
  EXPECT_EQ(escape(u"a < b && c > d"), u"a &lt; b &amp;&amp; c &gt; d");
  EXPECT_EQ(escape(u"&amp;"), u"&amp;amp;");
  EXPECT_EQ(escape(u"'\" \u00E9 \U00010348"), u"'\" \u00E9 \U00010348");
}

TEST(Escape, BreaksLines) { EXPECT_EQ(escape(u"a\nb\r\nc\rd\r"), u"a<br/>b<br/>c<br/>d<br/>"); }

TEST(Escape, ReplacesWhatXmlDoesNotAllow) {
  EXPECT_EQ(
      escape(std::u16string({0x0000, 0x0001, 0x0009, 0x001F, 0x0020, 0xFFFD, 0xFFFE, 0xFFFF})),
      std::u16string({0xFFFD, 0xFFFD, 0x0009, 0xFFFD, 0x0020, 0xFFFD, 0xFFFD, 0xFFFD}));
}

TEST(Titled, BeginsWithACapitalLetter) {
  EXPECT_EQ(titled(u"a b"), u"A b");
  EXPECT_EQ(titled(u"zoo"), u"Zoo");
  EXPECT_EQ(titled(u"\u00E9 {1"), u"\u00E9 {1");
  EXPECT_EQ(titled(u"Ab"), u"Ab");
  EXPECT_EQ(titled(u""), u"");
}

TEST(Counted, HasAWordForOneAndOneForMany) {
  EXPECT_EQ(counted(0, u"row", u"rows"), u"0 rows");
  EXPECT_EQ(counted(1, u"row", u"rows"), u"1 row");
  EXPECT_EQ(counted(1234, u"row", u"rows"), u"1234 rows");
}

TEST(AnchorNames, AreNamesInXml) {
  anchor_names names;
  EXPECT_EQ(names.make(u"Northern Africa"), u"Northern-Africa");
  EXPECT_EQ(names.make(u" A & B! "), u"A-B");
  EXPECT_EQ(names.make(u"2024"), u"group-2024");
  EXPECT_EQ(names.make(u""), u"group");
  EXPECT_EQ(names.make(u"\u4E2D\u6587"), u"group-2");
}

TEST(AnchorNames, AreGivenOnce) {
  anchor_names names;
  EXPECT_EQ(names.make(u"a"), u"a");
  EXPECT_EQ(names.make(u"a"), u"a-2");
  EXPECT_EQ(names.make(u"a-2"), u"a-2-2");
  EXPECT_EQ(names.make(u"a"), u"a-3");
}

TEST(AnchorNames, AreShort) {
  anchor_names names;
  EXPECT_EQ(names.make(std::u16string(500, u'x')), std::u16string(100, u'x'));
}

TEST(Anchored, IsASpanWithTheNameAsItsId) {
  EXPECT_EQ(anchored(u"a-b", u"a & b"), u"<span id='a-b'>a &amp; b</span>");
  EXPECT_EQ(strong(u"<"), u"<strong>&lt;</strong>");
}

}  // namespace
}  // namespace test
