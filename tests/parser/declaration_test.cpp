// Declarations: all of them are taken for a document type, and cut at the first ">".

#include <gtest/gtest.h>

#include <string>

#include "tests/parser/reader_kit.h"
#include "tests/support/golden.h"

namespace test {
namespace {

TEST(Declaration, BecomesAnEmptyDoctype) {
  EXPECT_EQ(in_root(u"<!DOCTYPE html PUBLIC \"a\" \"b\"><html></html>"), "!! html");
  EXPECT_EQ(in_root(u"<!ELEMENT x>"), "!!");
  EXPECT_EQ(in_root(u"<!>"), "!!");
  EXPECT_EQ(in_root(u"<! -- a -->b"), "!! 'b'");
  EXPECT_EQ(in_root(u"<!x-- a -->b"), "!! 'b'");
  EXPECT_EQ(in_root(u"<!DOCTYPE a><!DOCTYPE b>"), "!! !!");
}

TEST(Declaration, BelowTheRootItIsDroppedInSilence) {
  EXPECT_EQ(in_div(u"a<!ELEMENT x>b"), "'a' 'b'");
  EXPECT_EQ(messages_of(u"a<!ELEMENT x>b", 15), "");
}

TEST(Declaration, EndsAtTheFirstGreaterThan) {
  EXPECT_EQ(in_root(u"<!DOCTYPE html [ <!ENTITY a 'b'> ]>x"), "!! ' ]>x'");
  EXPECT_EQ(in_root(u"<!DOCTYPE html \">\" 'a'>x"), "!! '\" 'a'>x'");
  EXPECT_EQ(in_root(u"<![CDATA[a>b]]>"), "!! 'b]]>'");
  EXPECT_EQ(in_root(u"<![CDATA[<b>c]]>"), "!! 'c]]>'");
}

TEST(Declaration, CutOffIsADoctypeToo) {
  EXPECT_EQ(in_root(u"<!"), "!!");
  EXPECT_EQ(in_root(u"<!D"), "!!");
  EXPECT_EQ(in_root(u"<!DOCTYPE html\uFFFF>x"), "!!");
  EXPECT_EQ(in_root(u"<!\uFFFF>x"), "!!");
  EXPECT_EQ(messages_of(u"<!D", 15, {}), "");
}

TEST(Declaration, LongOne) {
  EXPECT_EQ(in_root(u"<!" + ustring(1'000'000, u'<') + u">x"), "!! 'x'");
}

TEST(ReadDeclaration, ReturnsThePrefixAndTheTextThroughGreaterThan) {
  parser_on<> parser(u"DOCTYPE\nhtml\n>x>");
  parser->last_tag = tag_id::pre;
  EXPECT_TRUE(same_units(parser->read_declaration(u"<"), u"<DOCTYPE\nhtml\n>"));
  EXPECT_EQ(parser->line, 3u);
  EXPECT_EQ(parser->last_tag, tag_id::pre);
  EXPECT_TRUE(same_units(parser->read_declaration({}), u"x>"));
  EXPECT_TRUE(same_units(parser->read_declaration(u"abc"), u"abc"));
  EXPECT_TRUE(same_units(parser->read_declaration({}), u""));
  EXPECT_EQ(parser.messages(), "");
}

TEST(ReadDeclaration, NewlinesOfThePrefixArentCounted) {
  parser_on<> parser(ustring(u"a\0\n", 3));
  EXPECT_TRUE(same_units(parser->read_declaration(u"<\n\n"), ustring(u"<\n\na\0\n", 6)));
  EXPECT_EQ(parser->line, 2u);
}

}  // namespace
}  // namespace test
