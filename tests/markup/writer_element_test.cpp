#include <gtest/gtest.h>

#include "tests/markup/writer_kit.h"

namespace test {
namespace {

TEST(WriterElement, TextIsWrittenAsItIs) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a<b & c>\u00E9\u4E2D&lt;\xD83D")),
                         u"<p>\n  a<b & c>\u00E9\u4E2D&lt;\xD83D\n</p>\n"));
}

TEST(WriterElement, AttributeValuesAreWrittenAsTheyAre) {
  xhtml_element p = make(tag_id::p);
  p.set_attribute(attr_id::title, u"it's <&\u20AC\n\"");
  EXPECT_TRUE(same_units(written(p), u"<p title='it's <&\u20AC\n\"'>\n</p>\n"));
}

TEST(WriterElement, TextInADivOfLevel3HasEightBlanksAfterEachLineFeed) {
  const auto out =
      write_with(make(tag_id::div, u"a\nb\n\nc"), [](xhtml_writer& w) { w.indent_level = 3; });
  EXPECT_TRUE(same_units(out.text,
                         u"<div>\n"
                         u"        a\n"
                         u"        b\n"
                         u"        \n"
                         u"        c\n"
                         u"      </div>\n"));
}

TEST(WriterElement, BlanksFollowALineFeedAtTheEndOfTheText) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a\n")), u"<p>\n  a\n  \n</p>\n"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"\n", u"b")), u"<p>\n  \n  b\n</p>\n"));
}

TEST(WriterElement, TextLineFeedsInInlineElementsHaveTheLevelOfTheBlock) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::b, u"a\nb"))),
                         u"<p>\n  <b>a\n  b</b>\n</p>\n"));
}

TEST(WriterElement, AttributesInNumericOrderThenTheStyle) {
  xhtml_element p = make(tag_id::p);
  p.set_style(css_property_id::color, u"red");
  p.set_attribute(attr_id::id, u"y");
  p.set_attribute(attr_id::class_, u"x");
  EXPECT_TRUE(same_units(written(p), u"<p class='x' id='y' style='color: red;'>\n</p>\n"));
}

TEST(WriterElement, StylePropertiesInNumericOrder) {
  xhtml_element b = make(tag_id::b);
  b.set_style(css_property_id::margin, u"0");
  b.set_style(css_property_id::color, u"red");
  EXPECT_TRUE(same_units(written(b), u"<b style='color: red; margin: 0;'></b>"));
}

TEST(WriterElement, AnAttributeStyleIsNotMergedWithTheStyle) {
  xhtml_element b = make(tag_id::b);
  b.set_attribute(attr_id::style, u"top: 0;");
  b.set_style(css_property_id::color, u"red");
  EXPECT_TRUE(same_units(written(b), u"<b style='top: 0;' style='color: red;'></b>"));
}

TEST(WriterElement, EmptyValuesAreWritten) {
  xhtml_element b = make(tag_id::b);
  b.set_attribute(attr_id::title, u"");
  b.set_style(css_property_id::color, u"");
  EXPECT_TRUE(same_units(written(b), u"<b title='' style='color: ;'></b>"));
}

TEST(WriterElement, AttributeNamesAreThoseOfTheTable) {
  xhtml_element td = make(tag_id::td);
  td.set_attribute(attr_id::char_attr, u".");
  td.set_attribute(attr_id::xml_lang, u"de");
  EXPECT_TRUE(same_units(written(td), u"<td char-attr='.' xml:lang='de'>\n</td>\n"));
}

TEST(WriterElement, BrInSpan) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, make(tag_id::span, u"a", make(tag_id::br), u"b"))),
                 u"<div>\n  <span>a<br/>\n  b</span>\n</div>\n"));
}

TEST(WriterElement, AnEndTagAfterBrIsIndented) {
  EXPECT_TRUE(same_units(written(make(tag_id::div, make(tag_id::span, u"a", make(tag_id::br)))),
                         u"<div>\n  <span>a<br/>\n  </span>\n</div>\n"));
}

TEST(WriterElement, BrIsFollowedAndNotPrecededByALineBreak) {
  EXPECT_TRUE(same_units(
      written(make(tag_id::p, u"a", make(tag_id::br), make(tag_id::br), u"b", make(tag_id::br))),
      u"<p>\n  a<br/>\n  <br/>\n  b<br/>\n</p>\n"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::br))), u"<p>\n  <br/>\n</p>\n"));
}

TEST(WriterElement, InlineElementsHaveNothingBetweenThem) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::b, u"x"), make(tag_id::i, u"y"))),
                         u"<p>\n  <b>x</b><i>y</i>\n</p>\n"));
}

TEST(WriterElement, AnInstructionHasALineOfItsOwnAndACommentFlows) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, u"a", instruction(u"php x"), u"b", comment(u"c"), u"d")),
                 u"<div>\n  a\n  <?php x ?>\n  b<!-- c -->d\n</div>\n"));
}

TEST(WriterElement, InstructionsAtSeveralDepths) {
  const xhtml_element inner =
      make(tag_id::div, instruction(u"x"), make(tag_id::p, instruction(u"y"), instruction(u"z")));
  EXPECT_TRUE(same_units(written(make(tag_id::doc_root, instruction(u"w"), inner)),
                         u"<?w ?>\n"
                         u"<div>\n"
                         u"  <?x ?>\n"
                         u"  <p>\n"
                         u"    <?y ?>\n"
                         u"    <?z ?>\n"
                         u"  </p>\n"
                         u"</div>\n"));
}

// An inline element adds no level, and its end tag is where the instruction's line
// feed ended, as the column doesn't count it.
TEST(WriterElement, AnInstructionInAnInlineElement) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::b, u"a", instruction(u"x")))),
                         u"<p>\n  <b>a\n  <?x ?>\n</b>\n</p>\n"));
}

TEST(WriterElement, InstructionTextIsUnchangedAndTheColumnStays) {
  const auto out = write_with(instruction(u"a\n  b"), [](xhtml_writer& writer) {
    writer.column = 3;
    writer.indent_level = 2;
  });
  EXPECT_TRUE(is_outcome(out, u"<?a\n  b ?>\n", 3));
}

TEST(WriterElement, EmptyElementsAreOneTag) {
  xhtml_element img = make(tag_id::img);
  img.set_attribute(attr_id::src, u"a.png");
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"x", img, u"y")),
                         u"<p>\n  x\n  <img src='a.png'/>\n  y\n</p>\n"));
}

TEST(WriterElement, ACommentInAnEmptyElementFollowsTheTag) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::img, comment(u"n")))),
                         u"<p>\n  <img/>\n    <!-- n -->\n</p>\n"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::img, instruction(u"n")))),
                         u"<p>\n  <img/>\n    <?n ?>\n</p>\n"));
}

// `br` has the flag of a break after its end, so its parent treats the line as fresh.
TEST(WriterElement, ACommentInBrLeavesTheLineOpen) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, make(tag_id::p, make(tag_id::br, comment(u"n"))))),
                 u"<div>\n  <p>\n    <br/>\n    <!-- n -->  </p>\n</div>\n"));
}

TEST(WriterElement, InlineKindsWithBlockLayoutStandOnTheirOwn) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", make(tag_id::label, u"b"), u"c")),
                         u"<p>\n  a\n  <label>\n    b\n  </label>\n  c\n</p>\n"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, make(tag_id::span, make(tag_id::label, u"b")))),
                         u"<p>\n  <span>\n  <label>\n    b\n  </label>\n  </span>\n</p>\n"));
}

TEST(WriterElement, TableCells) {
  const xhtml_element row = make(tag_id::tr, make(tag_id::td, u"1"), make(tag_id::th));
  EXPECT_TRUE(same_units(written(make(tag_id::table, row)),
                         u"<table>\n"
                         u"  <tr>\n"
                         u"    <td>\n"
                         u"      1\n"
                         u"    </td>\n"
                         u"    <th>\n"
                         u"    </th>\n"
                         u"  </tr>\n"
                         u"</table>\n"));
}

TEST(WriterElement, AnEmptyTextIsOnItsLineAllTheSame) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"")), u"<p>\n  \n</p>\n"));
}

TEST(WriterElement, AnEndTagWritesNothing) { EXPECT_EQ(written(xhtml_markup()).size(), 0u); }

}  // namespace
}  // namespace test
