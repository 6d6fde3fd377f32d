#include <gtest/gtest.h>

#include <iterator>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/stylesheet/xhtml_stylesheet.h"

namespace test {
namespace {

ustring_view only_text(const xhtml_markup& style) {
  EXPECT_EQ(std::distance(style.begin(), style.end()), 1);
  EXPECT_EQ(style.begin()->node_kind(), 5);
  return style.begin()->as_text()->text();
}

TEST(AddStylesheet, AStyleElementWithTheText) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_import(u"a.css"));
  sheet.add_item(xhtml_stylesheet_comment(u"c"));
  xhtml_stylesheet_rule rule(u"h1");
  rule.push_declaration({css_property_id::text_align, u"center"});
  sheet.add_item(rule);
  sheet.add_item(xhtml_stylesheet_rule(u"p"));
  xhtml_doc doc(1);
  const markup_iterator style = doc.add_stylesheet(sheet);
  ASSERT_NE(style.cell(), nullptr);
  EXPECT_EQ(style->tag(), tag_id::style);
  EXPECT_EQ(style->attributes()->size(), 1u);
  EXPECT_TRUE(same_units(style->get_attribute(attr_id::type), u"text/css"));
  EXPECT_EQ(style->parent(), doc.head());
  EXPECT_TRUE(same_units(only_text(*style),
                         u"@import url(a.css);\n"
                         u"/* c */\n"
                         u"h1 { \n"
                         u"   text-align: center;\n"
                         u"}\n"
                         u"\n"
                         u"p { \n"
                         u"}\n"
                         u"\n"));
}

TEST(AddStylesheet, WithoutAHeadNothingChanges) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_rule(u"p"));
  xhtml_doc doc(0);
  EXPECT_EQ(doc.add_stylesheet(sheet), doc.root()->end());
  EXPECT_EQ(doc.root()->begin(), doc.root()->end());
}

TEST(AddStylesheet, AHeadThatWasReadIsFoundAfterReindex) {
  xhtml_doc doc(0);
  const auto html = doc.root()->append_element(tag_id::html);
  html->append_copy(xhtml_element(tag_id::head, {}, {}));
  const xhtml_stylesheet sheet;
  EXPECT_EQ(doc.add_stylesheet(sheet), doc.root()->end());
  doc.reindex();
  EXPECT_EQ(doc.add_stylesheet(sheet)->parent(), doc.head());
}

TEST(AddStylesheet, OrderOfTheChildrenOfHead) {
  xhtml_doc doc(1);
  doc.head()->append_copy(xhtml_element(tag_id::meta, {}, {}));
  xhtml_stylesheet first;
  first.add_item(xhtml_stylesheet_comment(u"1"));
  xhtml_stylesheet second;
  second.add_item(xhtml_stylesheet_comment(u"2"));
  doc.add_stylesheet(first);
  doc.head()->append_copy(xhtml_element(tag_id::base, {}, {}));
  doc.add_stylesheet(second);
  doc.add_stylesheet(first);

  auto child = doc.head()->begin();
  EXPECT_EQ((child++)->tag(), tag_id::title);
  EXPECT_EQ((child++)->tag(), tag_id::meta);
  EXPECT_TRUE(same_units(only_text(*child++), u"/* 1 */\n"));
  EXPECT_EQ((child++)->tag(), tag_id::base);
  EXPECT_TRUE(same_units(only_text(*child++), u"/* 2 */\n"));
  EXPECT_TRUE(same_units(only_text(*child++), u"/* 1 */\n"));
  EXPECT_EQ(child, doc.head()->end());
}

TEST(AddStylesheet, AnEmptySheetIsAnEmptyText) {
  xhtml_doc doc(1);
  const markup_iterator style = doc.add_stylesheet(xhtml_stylesheet());
  EXPECT_TRUE(same_units(style->get_attribute(attr_id::type), u"text/css"));
  EXPECT_TRUE(same_units(only_text(*style), u""));
  EXPECT_TRUE(same_units(written(*style), u"<style type='text/css'>\n  \n</style>\n"));
}

TEST(AddStylesheet, TheDocumentKeepsTextOnly) {
  xhtml_doc doc(1);
  {
    xhtml_stylesheet sheet;
    const auto rule = sheet.add_item(xhtml_stylesheet_rule(u"p"));
    doc.add_stylesheet(sheet);
    rule->push_declaration({css_property_id::color, u"red"});
  }
  EXPECT_TRUE(same_units(only_text(*--doc.head()->end()), u"p { \n}\n\n"));
}

TEST(AddStylesheet, InThePage) {
  xhtml_doc doc(1);
  xhtml_stylesheet sheet;
  xhtml_stylesheet_rule rule(u"body");
  rule.push_declaration({css_property_id::font_family, u"\"Caf\u00E9\", serif"});
  rule.push_declaration({css_property_id::margin, u"0"});
  sheet.add_item(rule);
  sheet.add_item(xhtml_stylesheet_comment(u"\u4E2D\xD83D\xDE00"));
  doc.add_stylesheet(sheet);
  ustring_stream stream;
  xhtml_writer writer(stream);
  writer.byte_order_mark = 0;
  ASSERT_TRUE(doc.write(writer));
  EXPECT_TRUE(is_golden(stream.str(), "stylesheet_page.xhtml"));
}

}  // namespace
}  // namespace test
