#include "xport/stylesheet/stylesheet_writer.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"
#include "tests/support/vocabulary_numbers.h"

namespace test {
namespace {

xhtml_stylesheet_rule h1() {
  xhtml_stylesheet_rule rule(u"h1");
  rule.push_declaration({css_property_id::text_align, u"center"});
  return rule;
}

TEST(StylesheetWriter, Defaults) {
  ustring_stream stream;
  const stylesheet_writer writer(stream);
  EXPECT_TRUE(writer.rule_comment.empty());
  EXPECT_EQ(writer.spare, 0);
  EXPECT_FALSE(writer.selector_on_own_line);
  EXPECT_EQ(writer.rule_indent, 0);
  EXPECT_EQ(writer.declaration_indent, 3);
  EXPECT_EQ(writer.stream, &stream);
  EXPECT_EQ(writer.unused, 2);
}

TEST(StylesheetWriter, Rule) {
  EXPECT_TRUE(same_units(text_of(h1()), u"h1 { \n   text-align: center;\n}\n\n"));
}

TEST(StylesheetWriter, ARuleWithoutDeclarations) {
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_rule(u"p")), u"p { \n}\n\n"));
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_rule(u"")), u" { \n}\n\n"));
}

TEST(StylesheetWriter, DeclarationsInTheirOrderAndAsGiven) {
  xhtml_stylesheet_rule rule(u"a > b, *");
  rule.push_declaration({css_property_id::z_index, u"</style>;}"});
  rule.push_declaration({css_property_id::background, u""});
  rule.push_declaration({css_property_id::background, u"\u4E2D\xD83D\uFFFF"});
  EXPECT_TRUE(same_units(text_of(rule),
                         u"a > b, * { \n"
                         u"   z-index: </style>;};\n"
                         u"   background: ;\n"
                         u"   background: \u4E2D\xD83D\uFFFF;\n"
                         u"}\n\n"));
}

TEST(StylesheetWriter, ThePropertyWithACapital) {
  xhtml_stylesheet_rule rule(u"p");
  rule.push_declaration({css_property_id::widowsL, u"2"});
  EXPECT_TRUE(same_units(text_of(rule), u"p { \n   widowsL: 2;\n}\n\n"));
}

TEST(StylesheetWriter, PropertiesOutsideTheTableHaveNoName) {
  for (const std::int32_t number : {-1, property_end, 100'000, INT32_MAX, INT32_MIN}) {
    xhtml_stylesheet_rule rule(u"p");
    rule.push_declaration({static_cast<css_property_id>(number), u"v"});
    EXPECT_TRUE(same_units(text_of(rule), u"p { \n   : v;\n}\n\n")) << number;
  }
}

TEST(StylesheetWriter, TheIndentOfTheRuleIsNotRead) {
  xhtml_stylesheet_rule rule = h1();
  rule.indent = 20;
  EXPECT_TRUE(same_units(text_of(rule), text_of(h1())));
}

TEST(StylesheetWriter, Comment) {
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_comment(u"x")), u"/* x */\n"));
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_comment(u"")), u"/*  */\n"));
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_comment(u" a\n*/")), u"/*  a\n*/ */\n"));
}

TEST(StylesheetWriter, Import) {
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_import(u"a.css")), u"@import url(a.css);\n"));
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_import(u"'a b'")), u"@import url('a b');\n"));
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_import(u"")), u"@import url();\n"));
}

TEST(StylesheetWriter, SelectorOnItsOwnLine) {
  const auto set_up = [](stylesheet_writer& writer) { writer.selector_on_own_line = true; };
  EXPECT_TRUE(same_units(text_of(h1(), set_up), u"h1\n{ \n   text-align: center;\n}\n\n"));
}

TEST(StylesheetWriter, Indents) {
  const auto text = [](bool own_line, std::int16_t rule, std::int16_t declaration) {
    return text_of(h1(), [=](stylesheet_writer& writer) {
      writer.selector_on_own_line = own_line;
      writer.rule_indent = rule;
      writer.declaration_indent = declaration;
    });
  };
  // The brace has its spaces on the selector's line too.
  EXPECT_TRUE(same_units(text(false, 2, 4), u"  h1   { \n    text-align: center;\n  }\n\n"));
  EXPECT_TRUE(same_units(text(true, 2, 4), u"  h1\n  { \n    text-align: center;\n  }\n\n"));
  EXPECT_TRUE(same_units(text(false, 0, 0), u"h1 { \ntext-align: center;\n}\n\n"));
  EXPECT_TRUE(same_units(text(false, -1, -32768), u"h1 { \ntext-align: center;\n}\n\n"));
  const ustring many(32767, u' ');
  EXPECT_TRUE(same_units(text(true, 32767, 32767), many + u"h1\n" + many + u"{ \n" + many +
                                                       u"text-align: center;\n" + many + u"}\n\n"));
}

TEST(StylesheetWriter, OptionsDoNotTouchCommentsAndImports) {
  const auto set_up = [](stylesheet_writer& writer) {
    writer.rule_comment = u"r";
    writer.rule_indent = 5;
    writer.declaration_indent = 5;
    writer.selector_on_own_line = true;
  };
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_comment(u"x"), set_up), u"/* x */\n"));
  EXPECT_TRUE(same_units(text_of(xhtml_stylesheet_import(u"x"), set_up), u"@import url(x);\n"));
}

TEST(StylesheetWriter, AFailedStreamGetsNoText) {
  ustring_stream stream;
  stream.setstate(std::ios_base::failbit);
  stylesheet_writer writer(stream);
  EXPECT_NO_THROW(h1().write(writer));
  EXPECT_EQ(stream.str().size(), 0u);
}

}  // namespace
}  // namespace test
