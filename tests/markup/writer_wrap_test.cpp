#include <gtest/gtest.h>

#include <cstdint>

#include "tests/markup/writer_kit.h"

// The expected columns aren't the true ones: lines break by a count that
// departs from the text in known places.

namespace test {
namespace {

outcome wrapped(const xhtml_markup& node, std::uint64_t length, std::int16_t level = 0,
                std::uint64_t column = 0) {
  return write_with(node, [=](xhtml_writer& writer) {
    writer.max_line_length = length;
    writer.indent_level = level;
    writer.column = column;
  });
}

outcome flowed(ustring_view text, std::uint64_t length, std::int16_t level = 0,
               std::uint64_t column = 0) {
  return wrapped(xhtml_pcdata(text), length, level, column);
}

xhtml_element with_attributes(tag_id tag) {
  xhtml_element element = make(tag);
  element.set_attribute(attr_id::class_, u"x");
  element.set_attribute(attr_id::id, u"abc");
  return element;
}

xhtml_element with_style() {
  xhtml_element element = make(tag_id::b);
  element.set_style(css_property_id::color, u"red");
  element.set_style(css_property_id::margin, u"0");
  return element;
}

TEST(WriterWrap, AttributesOfABlock) {
  EXPECT_TRUE(is_outcome(wrapped(with_attributes(tag_id::p), 20, 1),
                         u"<p class='x'\n   id='abc'>\n  </p>\n", 0));
  EXPECT_TRUE(is_outcome(wrapped(with_attributes(tag_id::p), 21, 1),
                         u"<p class='x' id='abc'>\n  </p>\n", 0));
}

TEST(WriterWrap, AttributesOfAnInlineElement) {
  // 2 + 10 + 9 = 21 > 20; after the break 2 + 9 + 1, and 4 for the end tag.
  EXPECT_TRUE(is_outcome(wrapped(with_attributes(tag_id::b), 20, 1),
                         u"<b class='x'\n   id='abc'></b>", 16));
  EXPECT_TRUE(
      is_outcome(wrapped(with_attributes(tag_id::b), 0, 1), u"<b class='x' id='abc'></b>", 26));
}

TEST(WriterWrap, EachAttributeOnItsOwnLine) {
  EXPECT_TRUE(is_outcome(wrapped(with_attributes(tag_id::b), 1, 1),
                         u"<b\n   class='x'\n   id='abc'>\n  </b>", 6));
}

TEST(WriterWrap, SpacedEqualsCountInAttributes) {
  const auto out = [](std::uint64_t length) {
    return write_with(with_attributes(tag_id::p), [length](xhtml_writer& writer) {
      writer.max_line_length = length;
      writer.spaced_equals = true;
    });
  };
  // 2 + 12 + 11 = 25.
  EXPECT_TRUE(is_outcome(out(25), u"<p class = 'x' id = 'abc'>\n</p>\n", 0));
  EXPECT_TRUE(is_outcome(out(24), u"<p class = 'x'\n id = 'abc'>\n</p>\n", 0));
}

TEST(WriterWrap, TheEndTagOfAnInlineElement) {
  EXPECT_TRUE(is_outcome(wrapped(with_attributes(tag_id::b), 15, 1),
                         u"<b class='x'\n   id='abc'>\n  </b>", 6));
  EXPECT_TRUE(is_outcome(wrapped(make(tag_id::b), 7), u"<b></b>", 7));
  EXPECT_TRUE(is_outcome(wrapped(make(tag_id::b), 6), u"<b>\n</b>", 4));
}

// 2, then 7 without the quote, each piece with one unit too many, the quote, ">": the
// column is 39 after 38 units.
TEST(WriterWrap, StyleColumn) {
  EXPECT_TRUE(is_outcome(wrapped(with_style(), 0), u"<b style='color: red; margin: 0;'></b>", 39));
}

TEST(WriterWrap, SpacedStyleColumn) {
  const auto out =
      write_with(with_style(), [](xhtml_writer& writer) { writer.spaced_equals = true; });
  EXPECT_TRUE(is_outcome(out, u"<b style = 'color: red; margin: 0;'></b>", 41));
}

TEST(WriterWrap, StylePieces) {
  // 9 + 11 = 20 fits; then 21 + 11 = 32.
  EXPECT_TRUE(
      is_outcome(wrapped(with_style(), 31), u"<b style='color: red;\n margin: 0;'></b>", 18));
  EXPECT_TRUE(
      is_outcome(wrapped(with_style(), 32), u"<b style='color: red; margin: 0;'>\n</b>", 4));
  EXPECT_TRUE(is_outcome(wrapped(with_style(), 39), u"<b style='color: red; margin: 0;'></b>", 39));
}

TEST(WriterWrap, TheFirstStylePieceMayGoToTheNextLine) {
  // 9 + 11 > 19; then 2 + 12 = 14, and 14 + 11 > 19 again; 2 + 12 + 1 + 1 = 16, and the
  // end tag doesn't fit.
  EXPECT_TRUE(is_outcome(wrapped(with_style(), 19, 1),
                         u"<b style='\n  color: red;\n   margin: 0;'>\n  </b>", 6));
}

TEST(WriterWrap, WordsOfAText) {
  EXPECT_TRUE(is_outcome(flowed(u" aaa bbb  ccc ddd", 10, 1), u" aaa bbb \n  ccc ddd", 10));
}

TEST(WriterWrap, ABlankAtTheEndStaysWhereTheTextEndsInWhiteSpace) {
  EXPECT_TRUE(is_outcome(flowed(u"aaa\t", 10), u"aaa ", 4));
  EXPECT_TRUE(is_outcome(flowed(u"aaa \n ", 10), u"aaa ", 4));
  EXPECT_TRUE(is_outcome(flowed(u"aaa", 10), u"aaa", 4));
}

TEST(WriterWrap, OneLeadingBlankStaysAndOtherWhiteSpaceIsRemoved) {
  EXPECT_TRUE(is_outcome(flowed(u" a", 10), u" a", 2));
  EXPECT_TRUE(is_outcome(flowed(u"   a", 10), u" a", 2));
  EXPECT_TRUE(is_outcome(flowed(u"\n a", 10), u"a", 2));
  EXPECT_TRUE(is_outcome(flowed(u"\t\na", 10), u"a", 2));
}

TEST(WriterWrap, WhiteSpaceAlone) {
  EXPECT_TRUE(is_outcome(flowed(u" ", 10, 1), u" ", 0));
  EXPECT_TRUE(is_outcome(flowed(u"   ", 10, 1), u" ", 0));
  EXPECT_TRUE(is_outcome(flowed(u"\n\t", 10, 1), u"", 0));
  EXPECT_TRUE(is_outcome(flowed(u" ", 10, 1, 11), u" \n  ", 2));
}

TEST(WriterWrap, ALineThatIsTooLongIsBrokenFirst) {
  EXPECT_TRUE(is_outcome(flowed(u"x", 10, 1, 11), u"\n  x", 4));
  EXPECT_TRUE(is_outcome(flowed(u" x", 10, 1, 11), u" \n  x", 4));
  EXPECT_TRUE(is_outcome(flowed(u"x", 10, 1, 10), u"\n  x", 4));
  EXPECT_TRUE(is_outcome(flowed(u"x", 10, 1, 9), u"x", 11));
}

TEST(WriterWrap, AnEmptyTextBreaksALineThatIsTooLong) {
  EXPECT_TRUE(is_outcome(flowed(u"", 10, 1, 11), u"\n  ", 2));
  EXPECT_TRUE(is_outcome(flowed(u"", 10, 1, 10), u"", 10));
}

TEST(WriterWrap, AWordThatIsLongerThanTheLine) {
  EXPECT_TRUE(is_outcome(flowed(u"abcdef g", 3), u"\nabcdef \ng", 2));
  EXPECT_TRUE(is_outcome(flowed(u"abcdef g", 3, 2), u"\n    abcdef \n    g", 6));
}

TEST(WriterWrap, ALineMayBeOneUnitLongerByItsLastBlank) {
  // "aaa" and "bbb" are 4 + 3; the blank after "bbb" isn't counted.
  EXPECT_TRUE(is_outcome(flowed(u"aaa bbb ccc", 7), u"aaa bbb \nccc", 4));
  EXPECT_TRUE(is_outcome(flowed(u"aaa bbb ccc", 6), u"aaa \nbbb \nccc", 4));
}

TEST(WriterWrap, ANegativeLevelCountsAsZero) {
  EXPECT_TRUE(is_outcome(flowed(u"aa bb", 3, -5), u"aa \nbb", 3));
}

TEST(WriterWrap, TextInABlock) {
  EXPECT_TRUE(
      is_outcome(wrapped(make(tag_id::p, u"aaa bbb"), 8), u"<p>\n  aaa \n  bbb\n</p>\n", 0));
  EXPECT_TRUE(is_outcome(wrapped(make(tag_id::p, u"aaa bbb"), 9), u"<p>\n  aaa bbb\n</p>\n", 0));
}

// After `br` in an inline element two blanks are written and four counted.
TEST(WriterWrap, AChildOfAnInlineElementIsCountedOneLevelTooDeep) {
  const xhtml_element div = make(tag_id::div, make(tag_id::span, u"a", make(tag_id::br), u"bb cc"));
  EXPECT_TRUE(is_outcome(wrapped(div, 8),
                         u"<div>\n  <span>\n  a<br/>\n  bb \n  cc\n  </span>\n</div>\n", 0));
}

TEST(WriterWrap, InPreAnEndTagStartsALine) {
  EXPECT_TRUE(is_outcome(wrapped(make(tag_id::pre, make(tag_id::b, u"x")), 3, 1),
                         u"<pre><b>\n  x\n</b>\n  </pre>", 8));
}

TEST(WriterWrap, MixedContent) {
  // "<p>" 0; two blanks 2; "one " 6; "<b>" 9; "two " 13; "</b>" 17; " three": the blank
  // isn't counted, 17 + 5 = 22.
  const xhtml_element p = make(tag_id::p, u"one", make(tag_id::b, u"two"), u" three");
  EXPECT_TRUE(is_outcome(wrapped(p, 22), u"<p>\n  one<b>two</b> three\n</p>\n", 0));
  EXPECT_TRUE(is_outcome(wrapped(p, 21), u"<p>\n  one<b>two</b> \n  three\n</p>\n", 0));
  EXPECT_TRUE(is_outcome(wrapped(p, 16), u"<p>\n  one<b>two\n  </b> three\n</p>\n", 0));
}

TEST(WriterWrap, ALimitThatNothingReachesChangesOnlyWhiteSpace) {
  const xhtml_element p = make(tag_id::p, u"a \n b", make(tag_id::b, u"c"));
  EXPECT_TRUE(is_outcome(wrapped(p, UINT64_MAX), u"<p>\n  a b<b>c</b>\n</p>\n", 0));
}

}  // namespace
}  // namespace test
