// Start tags: where they end, how unknown names are read, and the "/" after a name.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/parser/reader_kit.h"
#include "tests/support/golden.h"
#include "tests/support/tree_check.h"

namespace test {
namespace {

/// A text with zero units in it.
template <std::size_t Size>
ustring units(const char16_t (&text)[Size]) {
  return ustring(text, Size - 1);
}

std::string invalid_tag(unsigned line = 1) { return message(line, "Invalid Tag"); }
std::string invalid_slash(unsigned line = 1) { return message(line, "Invalid />"); }

TEST(StartTag, SlashAfterEmptyElementNeedsNothing) {
  EXPECT_EQ(in_div(u"<br/>"), "br");
  EXPECT_EQ(in_div(u"<br/>x"), "br 'x'");
  EXPECT_EQ(messages_of(u"<br/>", 1), "");
}

TEST(StartTag, SlashAfterElementWithContentIsReportedAndLeavesItOpen) {
  EXPECT_EQ(in_div(u"<p/>"), "p");
  EXPECT_EQ(in_div(u"<p/>a</p>b"), "p('a') 'b'");
  EXPECT_EQ(messages_of(u"<p/>", 1), invalid_slash());
  EXPECT_EQ(messages_of(u"<p/>a</p>b", 15),
            invalid_slash() + message(1, "p encountered.\n") + message(1, "</p> encountered.\n"));
}

TEST(StartTag, SlashAfterWhiteSpaceIsIgnored) {
  EXPECT_EQ(in_div(u"<div />a</div>b"), "div('a') 'b'");
  EXPECT_EQ(in_div(u"<p class='a'/>x</p>y"), "p[class=\"a\"]('x') 'y'");
  EXPECT_EQ(in_div(u"<br />x"), "br 'x'");
  EXPECT_EQ(messages_of(u"<div /><p class='a'/></p></div><br />", 3), "");
}

TEST(StartTag, WhatFollowsTheSlashIsIgnored) {
  EXPECT_EQ(in_div(u"<p/class='a'>x</p>"), "p('x')");
  EXPECT_EQ(in_div(u"<br/class='a'>x"), "br 'x'");
  EXPECT_EQ(in_div(u"<p//>x</p>"), "p('x')");
  EXPECT_EQ(messages_of(u"<p/class='a'>", 1), invalid_slash());
  EXPECT_EQ(messages_of(u"<br/class='a'><br//>", 1), "");
  EXPECT_EQ(messages_of(u"<p//>", 1), invalid_slash());
}

TEST(StartTag, SlashBeforeWhiteSpaceBelongsToTheName) {
  EXPECT_EQ(in_div(u"<br/ >x"), "'<br/  >x'");
  EXPECT_EQ(in_div(u"<p/ class='a'>"), "'<p/  class='a'>'");
  EXPECT_EQ(messages_of(u"<br/ ><p/ >", 3), "");
}

// Void elements, among them two that Strict lacks, need no end tag.
TEST(StartTag, OnlyVoidElementsTakeTheSlash) {
  for (const ustring name : {u"area", u"base", u"basefont", u"br", u"col", u"hr", u"img", u"input",
                             u"link", u"meta", u"noframes", u"param"}) {
    parser_on<> parser(name + u"/>");
    delete parser->read_start_tag(nullptr);
    EXPECT_EQ(parser.messages(), "") << printable(name);
  }
  for (const ustring name :
       {u"a",        u"abbr",     u"applet", u"body",     u"button", u"center", u"colgroup",
        u"dir",      u"dl",       u"font",   u"form",     u"frame",  u"h1",     u"head",
        u"html",     u"iframe",   u"ins",    u"isindex",  u"li",     u"map",    u"menu",
        u"optgroup", u"option",   u"pre",    u"s",        u"script", u"select", u"strike",
        u"style",    u"table",    u"tbody",  u"textarea", u"title",  u"tr",     u"u",
        u"ul",       u"frameset", u"object", u"dd",       u"var"}) {
    parser_on<> parser(name + u"/>");
    delete parser->read_start_tag(nullptr);
    EXPECT_EQ(parser.messages(), invalid_slash()) << printable(name);
  }
}

TEST(StartTag, EndsAtTheFirstGreaterThanAlsoInQuotes) {
  EXPECT_EQ(in_div(u"<a href=\"b>c\">"), "a[href=\"\"]('c\">')");
  // The text after it is in a quote by then, which hides tags.
  EXPECT_EQ(in_div(u"<a href=\"b>c\">x</a>y\"z</a>w"), "a[href=\"\"]('c\">x</a>y\"z') 'w'");
  EXPECT_EQ(in_div(u"<p class='a' title='>'>x</p>"), "p[class=\"a\" title=\"\"](''>x')");
}

TEST(StartTag, UnknownNameWithAttributesIsText) {
  EXPECT_EQ(in_div(u"<foo bar=\"1\">x</foo>"), "'<foo  bar=\"1\">x'");
  EXPECT_EQ(messages_of(u"<foo bar=\"1\">x</foo>", 3),
            message(1, "Expecting end tag </div>.  Encountered </foo>\nSkipping </foo> tag.\n"));
}

TEST(StartTag, UnknownNameAloneIsReportedAndItsTagIsLost) {
  EXPECT_EQ(in_div(u"<foo>x</foo>"), "'x'");
  EXPECT_EQ(messages_of(u"<foo>x</foo>", 1), invalid_tag());
  EXPECT_EQ(
      messages_of(u"<foo>x</foo>", 3),
      invalid_tag() +
          message(1, "Expecting end tag </div>.  Encountered </foo>\nSkipping </foo> tag.\n"));
  EXPECT_EQ(messages_of(u"<foo/><pp></x>", 1), invalid_tag() + invalid_tag());
}

TEST(StartTag, NamesAreReadWithoutCase) {
  EXPECT_EQ(in_div(u"<P CLASS=\"a\">x</P>y"), "p[class=\"a\"]('x') 'y'");
  EXPECT_EQ(in_div(u"<Br><sPaN>x</SpAn>"), "br span('x')");
  EXPECT_EQ(in_div(u"<BR\nID='a'>"), "br[id=\"a\"]");
}

TEST(StartTag, LessThanAndWhiteSpaceIsText) {
  EXPECT_EQ(in_p(u"a < b"), "'a ' '<  b'");
  EXPECT_EQ(in_p(u"a <\tb"), "'a ' '<\\u0009\\u0009b'");
  EXPECT_EQ(in_p(u"a <\n b"), "'a ' '< b'");
  EXPECT_EQ(in_p(u"< "), "'< '");
  EXPECT_EQ(in_p(u"< < <"), "'< ' '< '");
  EXPECT_EQ(messages_of(u"a < b", 15), "");
}

TEST(StartTag, NoNameMakesAnElementThatIsDroppedInSilence) {
  for (const ustring tag : {u"<>", u"<=>", u"<$>", u"<'b'>", u"<=/>", u"<-->", u"<:a>"})
    EXPECT_EQ(in_div(tag + u"x"), "'x'") << printable(tag);
  EXPECT_EQ(messages_of(u"<><=><$><'b'><=/>", 3), "");
  // With white space in it the tag is text.
  EXPECT_EQ(in_div(u"<$a b>"), "'<$a  b>'");
  EXPECT_EQ(in_div(u"<= >"), "'<=  >'");
}

TEST(StartTag, SecondLessThanIsPartOfTheTag) {
  EXPECT_EQ(in_div(u"<<p>x"), "'x'");
  EXPECT_EQ(messages_of(u"<<p>x", 3), "");
  EXPECT_EQ(in_div(u"<p<b>x"), "p('x')");
  EXPECT_EQ(in_div(u"<<p >x"), "'<<p  >x'");
  EXPECT_EQ(in_div(u"<p <b class='a'>x"), "p('x')");
}

TEST(StartTag, NameEndsAtTheFirstUnitThatIsNoLetterOrDigit) {
  EXPECT_EQ(in_div(u"<b:c>x"), "b('x')");
  EXPECT_EQ(in_div(u"<p\"x\">y"), "p('y')");
  EXPECT_EQ(in_div(u"<b-c>x</b>"), "b('x')");
  EXPECT_EQ(in_div(u"<b=c>x"), "b('x')");
  EXPECT_EQ(in_div(u"<h1>x"), "h1('x')");
  EXPECT_EQ(in_div(u"<h1_>x"), "h1('x')");
  EXPECT_EQ(messages_of(u"<b:c>", 1), "");
  EXPECT_EQ(messages_of(u"<h7><h11>", 1), invalid_tag() + invalid_tag());
}

TEST(StartTag, NameWithAPrefixAndWhiteSpaceIsText) {
  EXPECT_EQ(in_div(u"<a:b c='d'>x"), "'<a:b  c='d'>x'");
  EXPECT_EQ(in_div(u"<p: >x"), "'<p:  >x'");
}

TEST(StartTag, RowAboveHtmlHasABlankInItsNameAndIsReadByNoTag) {
  EXPECT_EQ(in_div(u"<doc root>x"), "'<doc  root>x'");
  EXPECT_EQ(in_div(u"<invalid tag>x"), "'<invalid  tag>x'");
}

TEST(StartTag, CutOffTagIsAnElement) {
  EXPECT_EQ(in_div(u"<p"), "p");
  EXPECT_EQ(in_div(u"<p "), "p");
  EXPECT_EQ(in_div(u"<p/"), "p");
  EXPECT_EQ(in_div(u"<p class"), "p");
  EXPECT_EQ(in_div(u"<p class="), "p[class=\"\"]");
  EXPECT_EQ(in_div(u"<p class='a"), "p[class=\"\"]");
  EXPECT_EQ(in_div(u"<p class='a'"), "p[class=\"a\"]");
  EXPECT_EQ(in_div(u"<foo"), "");
  EXPECT_EQ(in_div(u"<foo "), "'<foo '");
  EXPECT_EQ(messages_of(u"<p class='a'", 3), "");
  EXPECT_EQ(messages_of(u"<p/", 3), invalid_slash());
  EXPECT_EQ(messages_of(u"<foo", 3), invalid_tag());
  EXPECT_EQ(messages_of(u"<foo ", 3), "");
}

TEST(StartTag, LessThanAtTheEndIsReported) {
  EXPECT_EQ(in_div(u"a<"), "'a'");
  EXPECT_EQ(messages_of(u"a<", 1), message(1, "Invalid end of document."));
  EXPECT_EQ(messages_of(u"a<", 14), "");
}

TEST(StartTag, AnyWhiteSpaceEndsTheName) {
  for (const char16_t space : {u' ', u'\t', u'\n', u'\v', u'\f', u'\r'})
    EXPECT_EQ(in_div(ustring(u"<p") + space + u"class='a'>x"), "p[class=\"a\"]('x')")
        << static_cast<int>(space);
  EXPECT_EQ(in_div(u"<p \n\t \r\n class='a' >x"), "p[class=\"a\"]('x')");
}

TEST(StartTag, WhiteSpaceUnitAfterUnknownNameIsDoubled) {
  EXPECT_EQ(in_div(u"<foo\tx>"), "'<foo\\u0009\\u0009x>'");
  EXPECT_EQ(in_div(u"<foo   x>"), "'<foo    x>'");
  // The white space around a newline is dropped.
  EXPECT_EQ(in_div(u"<foo\nx>"), "'<foo x>'");
  EXPECT_EQ(in_div(u"<foo\n\n  x>"), "'<foo x>'");
  EXPECT_EQ(in_div(u"<foo \n x>"), "'<foo x>'");
  parse_case kept;
  kept.preserve_newlines = true;
  EXPECT_EQ(parse(u"<foo\nx>", kept).children, "'<foo\n\nx>'");
  EXPECT_EQ(parse(u"<foo\n  x>", kept).children, "'<foo\n\nx>'");
}

// The name is looked up as far as its first zero unit.
TEST(StartTag, NameIsCutAtAZeroUnit) {
  EXPECT_EQ(in_div(units(u"<p\0>x")), "p('x')");
  EXPECT_EQ(in_div(units(u"<p\0zzz>x")), "p('x')");
  // White space after it doesn't follow the name, so the rest is ignored.
  EXPECT_EQ(in_div(units(u"<p\0 class='a'>x")), "p('x')");
  EXPECT_EQ(in_div(units(u"<p\0q class='a'>x")), "p('x')");
  EXPECT_EQ(in_div(units(u"<BR\0\0 class='a'>x")), "br 'x'");
  EXPECT_EQ(in_div(units(u"<\0>x")), "'x'");
  EXPECT_EQ(in_div(units(u"<\0p >x")), "'<\\u0000p  >x'");
  EXPECT_EQ(in_div(units(u"<foo\0p >x")), "'<foo\\u0000p  >x'");
  EXPECT_EQ(messages_of(units(u"<p\0 class='a'></p><\0>"), 3), "");
  EXPECT_EQ(messages_of(units(u"<foo\0>"), 3), invalid_tag());
}

TEST(StartTag, UnitsOutsideAscii) {
  EXPECT_EQ(in_div(u"<p\u00E9>x"), "p('x')");
  EXPECT_EQ(in_div(u"<p\u00E9 class='a'>x"), "'<p\\u00E9  class='a'>x'");
  EXPECT_EQ(in_div(u"<\u00E9>x"), "'x'");
  EXPECT_EQ(in_div(u"<\u0170>x"), "'x'");  // its low byte is that of "p"
  EXPECT_EQ(in_div(u"<p\u0120class='a'>x"), "p('x')");
  EXPECT_EQ(in_div(u"<p\u00A0class='a'>x"), "p('x')");
  EXPECT_EQ(in_div(u"<p\U0001F600>x"), "p('x')");
  EXPECT_EQ(in_div(u"<\U0001F600 a>"), "'<\\uD83D\\uDE00  a>'");
  EXPECT_EQ(messages_of(u"<\u00E9><\u0170><\U0001F600>", 3), "");
  EXPECT_EQ(in_div(u"<p title='\u00E9\xD83D\uFFFE'>"), "p[title=\"\\u00E9\\uD83D\\uFFFE\"]");
}

TEST(StartTag, UnitFFFFEndsTheTagAndTheInput) {
  EXPECT_EQ(in_div(u"<p\uFFFFx>y"), "p");
  EXPECT_EQ(in_div(u"<\uFFFFp>y"), "");
  EXPECT_EQ(in_div(u"<p class='a\uFFFF'>y"), "p[class=\"\"]");
  EXPECT_EQ(in_div(u"<p class='a'\uFFFF>y"), "p[class=\"a\"]");
  EXPECT_EQ(in_div(u"<p \uFFFF class='a'>y"), "p");
  EXPECT_EQ(in_div(u"<foo \uFFFFbar>"), "'<foo '");
  EXPECT_EQ(messages_of(u"<\uFFFFp>", 1), message(1, "Invalid end of document."));
}

// Elements that Strict lacks have a number, so no message is written, but no rules.
TEST(StartTag, ElementsThatStrictLacksAreDroppedInSilence) {
  EXPECT_EQ(in_div(u"<font>x</font>y"), "'x' 'y'");
  EXPECT_EQ(in_div(u"<font color='red'>x"), "'x'");
  EXPECT_EQ(in_div(u"<center><p>x</p></center>"), "p('x')");
  EXPECT_EQ(messages_of(u"<font color='red'><center><basefont/><noframes/>", 3), "");
  EXPECT_EQ(messages_of(u"<font/>", 3), invalid_slash());
  EXPECT_EQ(messages_of(u"<center/>", 3), invalid_slash());
  EXPECT_EQ(messages_of(u"</font>", 3),
            message(1, "Expecting end tag </div>.  Encountered </font>\nSkipping </font> tag.\n"));
}

TEST(StartTag, ElementThatStrictLacksKeepsItsAttributes) {
  parser_on<> parser(u"font color='red' style='color:red'>x");
  const std::unique_ptr<xhtml_markup> node(parser->read_start_tag(nullptr));
  EXPECT_EQ(outline_of_one(*node), "[color=\"red\"]{color:red;}");
  EXPECT_EQ(node->tag(), tag_id::invalid_tag);
  EXPECT_EQ(node->category_flags(), 1u);
  EXPECT_TRUE(same_units(node->end_tag_text(), u"</>"));
  EXPECT_EQ(parser->last_tag, tag_id::invalid_tag);
  EXPECT_EQ(parser.messages(), "");
  EXPECT_EQ(parser.rest(), "x");
}

TEST(StartTag, InAnUnlikelyPlaceTooItIsRead) {
  EXPECT_EQ(in_root(u"<html><head><title>x</title></head></html>"), "html(head(title('x')))");
  EXPECT_EQ(in_body(u"<table><tr><td colspan='2'>x"), "table(tr(td[colspan=\"2\"]('x')))");
}

TEST(StartTag, LongName) {
  const ustring name(1'000'000, u'p');
  EXPECT_EQ(messages_of(u"<" + name + u">", 3), invalid_tag());
  EXPECT_EQ(in_div(u"<" + name + u">x"), "'x'");
  EXPECT_EQ(in_div(u"<" + name + u" >").size(), name.size() + 6);  // '<  >'
}

TEST(StartTag, LongRunOfUnitsAfterTheName) {
  const ustring run(1'000'000, u'/');
  EXPECT_EQ(in_div(u"<p/" + run + u">x"), "p('x')");
  EXPECT_EQ(in_div(u"<p " + run + u">x"), "p('x')");
  EXPECT_EQ(in_div(u"<p" + ustring(1'000'000, u' ') + u"class='a'>x"), "p[class=\"a\"]('x')");
}

TEST(StartTag, ReadAloneReturnsAnElementOnTheHeap) {
  parser_on<> parser(u"p class='a'>x");
  const std::unique_ptr<xhtml_markup> node(parser->read_start_tag(nullptr));
  EXPECT_EQ(outline_of_one(*node), "p[class=\"a\"]");
  EXPECT_EQ(node->parent(), nullptr);
  EXPECT_EQ(parser->last_tag, tag_id::p);
  EXPECT_EQ(parser.messages(), "");
  EXPECT_EQ(parser.rest(), "x");
}

TEST(StartTag, ReadAloneOfUnknownNameReturnsTextForTheParent) {
  xhtml_element div(tag_id::div, {}, {});
  parser_on<> parser(u"foo x>y<");
  EXPECT_EQ(shown(parser->read_start_tag(&div)), "'<foo  x>y'");
  EXPECT_EQ(parser->last_tag, tag_id::invalid_tag);
  EXPECT_EQ(parser.rest(), "<");
}

TEST(StartTag, ReadAloneOfUnknownNameInPreIsLostToItsContent) {
  xhtml_element pre(tag_id::pre, {}, {});
  parser_on<> parser(u"foo x>y</pre>z");
  EXPECT_EQ(shown(parser->read_start_tag(&pre)), "' x>y'");
  EXPECT_EQ(parser.rest(), "z");
}

TEST(StartTag, ReadAloneAtTheEnd) {
  parser_on<> parser(u"");
  const std::unique_ptr<xhtml_markup> node(parser->read_start_tag(nullptr));
  EXPECT_EQ(node->node_kind(), 2);
  EXPECT_EQ(node->tag(), tag_id::invalid_tag);
  EXPECT_EQ(parser->last_tag, tag_id::invalid_tag);
  EXPECT_EQ(parser.messages(), "");
}

TEST(StartTag, NodeThatWasReadAloneCanBeAdopted) {
  xhtml_doc doc(0);
  xhtml_element div(tag_id::div, {}, {});
  for (xhtml_element* parent : {&div, doc.root()}) {
    parser_on<> parser(u"p title='a long enough value for a block of its own'>");
    xhtml_markup* const node = parser->read_start_tag(parent);
    ASSERT_EQ(&*parent->adopt_child(node), node);
    EXPECT_TRUE(is_intact(*parent));
  }
}

}  // namespace
}  // namespace test
