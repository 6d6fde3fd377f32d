// Comments, processing instructions and declarations: where they end, and how broken ones are read.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/parser/reader_kit.h"
#include "tests/support/golden.h"
#include "xport/markup/leaf_nodes.h"

namespace test {
namespace {

// --- Comments ---

TEST(Comment, LosesWhiteSpaceAtBothEnds) {
  EXPECT_EQ(in_div(u"<!-- a -->"), "#a#");
  EXPECT_EQ(in_div(u"<!--a-->"), "#a#");
  EXPECT_EQ(in_div(u"<!--\n\t a\n  b \r\n-->"), "#a\n  b#");
  EXPECT_EQ(in_div(u"<!---->"), "##");
  EXPECT_EQ(in_div(u"<!-- \n -->"), "##");
}

TEST(Comment, IsAcceptedInAnyElement) {
  EXPECT_EQ(in_root(u"<!--a--><html><!--b--></html>"), "#a# html(#b#)");
  EXPECT_EQ(in_body(u"<!--a--><ul><!--b--><li>c<!--d--></li></ul>"), "#a# ul(#b# li('c' #d#))");
}

TEST(Comment, HoldsWhatElsewhereIsMarkup) {
  EXPECT_EQ(in_div(u"<!--<p>\"'</p> > <!x> <?a?> &amp;-->b"),
            "#<p>\"'</p> > <!x> <?a?> &amp;# 'b'");
  EXPECT_EQ(in_div(u"<!-- <!-- a -->b"), "#<!-- a# 'b'");
}

TEST(Comment, DashesInside) {
  EXPECT_EQ(in_div(u"<!-- a - b -->c"), "#a - b# 'c'");
  EXPECT_EQ(in_div(u"<!-- a -- b -->c"), "#a -- b# 'c'");
  EXPECT_EQ(in_div(u"<!--a-b--c---d-->e"), "#a-b--c---d# 'e'");
  EXPECT_EQ(in_div(u"<!--a->b-->c"), "#a->b# 'c'");
  EXPECT_EQ(in_div(u"<!-->a-->b"), "#>a# 'b'");
  EXPECT_EQ(in_div(u"<!--->a-->b"), "#->a# 'b'");
}

// Any unit after two dashes is consumed with them.
TEST(Comment, ThreeDashesDontEndIt) {
  EXPECT_EQ(in_div(u"<!-- a --->b-->"), "#a --->b#");
  EXPECT_EQ(in_div(u"<!-- a --->b-->c"), "#a --->b# 'c'");
  EXPECT_EQ(in_div(u"<!-- a ---->b-->c"), "#a ---->b# 'c'");
  EXPECT_EQ(in_div(u"<!-- a ----->b"), "#a ---# 'b'");  // three dashes, then the end
  EXPECT_EQ(in_div(u"<!-- a --- -->b"), "#a ---# 'b'");
  // Without another end it continues to the end of the input.
  EXPECT_EQ(in_div(u"<!-- a --->b<p>c"), "#a --->b<p>c#");
  EXPECT_EQ(in_div(u"<!----->b"), "#--->b#");
}

TEST(Comment, CutOffEndsWithTheInput) {
  EXPECT_EQ(in_div(u"<!--"), "##");
  EXPECT_EQ(in_div(u"<!-- a"), "#a#");
  EXPECT_EQ(in_div(u"<!-- a > <p>"), "#a > <p>#");
  EXPECT_EQ(messages_of(u"<!-- a", 15), "");
}

// The last dash that was read counts once more.
TEST(Comment, CutOffAfterDashes) {
  EXPECT_EQ(in_div(u"<!-- a -"), "#a ---#");
  EXPECT_EQ(in_div(u"<!-- a --"), "#a ---#");
  EXPECT_EQ(in_div(u"<!-- a ---"), "#a ---#");
  EXPECT_EQ(in_div(u"<!-- a ----"), "#a ------#");
  EXPECT_EQ(in_div(u"<!---"), "#---#");
  EXPECT_EQ(in_div(u"<!-- a -\uFFFF->"), "#a ---#");
  EXPECT_EQ(in_div(u"<!-- a --\uFFFF>"), "#a ---#");
  EXPECT_EQ(messages_of(u"<!-- a -", 15), "");
}

TEST(Comment, EndOfInputAfterTheFirstDash) {
  EXPECT_EQ(in_div(u"a<!-"), "'a'");
  EXPECT_EQ(in_div(u"a<!-\uFFFF-b-->"), "'a'");
  EXPECT_EQ(messages_of(u"a<!-", 1), message(1, "Invalid end of document."));
  EXPECT_EQ(messages_of(u"a\n<!-\uFFFF", 15), message(2, "Invalid end of document."));
  EXPECT_EQ(messages_of(u"a<!-", 14), "");
}

TEST(Comment, OneDashMakesTextWithoutTheMark) {
  EXPECT_EQ(in_div(u"<!-x"), "'<-x'");
  EXPECT_EQ(in_div(u"<!-x -->y<b>"), "'<-x -->y' b");
  EXPECT_EQ(in_div(u"<!->"), "'<->'");
  EXPECT_EQ(in_div(u"<!-<p>"), "'<-' p");
  EXPECT_EQ(in_div(u"<!- x"), "'<- x'");
  EXPECT_EQ(in_div(u"<!-\n x"), "'<- x'");
  EXPECT_EQ(in_div(u"<!-\n"), "'<- '");
  EXPECT_EQ(in_div(u"<!-\"a<b\"<p>"), "'<-\"a<b\"' p");
  EXPECT_EQ(messages_of(u"<!-x", 15), "");
}

TEST(Comment, OneDashWhereNoTextMayStandIsDropped) { EXPECT_EQ(in_body(u"<!-x<p>y"), "p('y')"); }

// The node's constructor reads them so.
TEST(Comment, DelimitersInsideAreReadAsThoseOfAToken) {
  EXPECT_EQ(in_div(u"<!--<--x-->"), "#x#");
  EXPECT_EQ(in_div(u"<!--<----->"), "#-#");
  EXPECT_EQ(in_div(u"<!--<---->"), "#-->#");  // what is left is too short to lose its end
  EXPECT_EQ(in_div(u"<!--abc--->-->"), "#abc-#");
  EXPECT_EQ(in_div(u"<!----->"), "#--->#");  // too short to lose its end
  EXPECT_EQ(in_div(u"<!-- <--x-->"), "#<--x#");
}

TEST(Comment, AnyUnitMayStandInIt) {
  EXPECT_EQ(in_div(ustring(u"<!--a\0b-->", 10)), "#a\\u0000b#");
  EXPECT_EQ(in_div(u"<!--\u00E9\xD83D\uFFFE\u2028-->"), "#\\u00E9\\uD83D\\uFFFE\\u2028#");
  EXPECT_EQ(in_div(u"<!--a\uFFFFb-->c"), "#a#");
}

TEST(Comment, IsNotRewritten) {
  parse_case how;
  how.normalize_text = true;
  EXPECT_EQ(parse(u"<!-- a & \" b -->", how).children, "#a & \" b#");
}

TEST(Comment, MillionDashes) {
  const auto text_of_dashes = [](std::size_t count, ustring_view tail) {
    parser_on<> parser(u"--" + ustring(count, u'-').append(tail));
    const std::unique_ptr<xhtml_markup> node(parser->read_comment(nullptr));
    EXPECT_EQ(node->node_kind(), 3);
    return ustring(node->as_text()->text());
  };
  // Dashes are consumed by threes, and the end is found where two are left.
  EXPECT_TRUE(same_units(text_of_dashes(1'000'001, u">"), ustring(999'999, u'-')));
  // Otherwise the comment continues; the node then drops "-->" from its end.
  EXPECT_TRUE(same_units(text_of_dashes(1'000'000, u">"), ustring(999'998, u'-')));
  EXPECT_TRUE(same_units(text_of_dashes(1'000'002, u">"), ustring(1'000'000, u'-')));
  EXPECT_TRUE(same_units(text_of_dashes(1'000'000, u""), ustring(1'000'002, u'-')));
  EXPECT_EQ(in_div(u"<!--" + ustring(1'000'001, u'-') + u">x"),
            "#" + std::string(999'999, '-') + "# 'x'");
}

TEST(Comment, LongOne) {
  const ustring text(1'000'000, u'c');
  EXPECT_EQ(in_div(u"<!--" + text + u"-->x"), "#" + printable(text) + "# 'x'");
}

TEST(Comment, ReadAlone) {
  xhtml_element div(tag_id::div, {}, {});
  parser_on<> parser(u"-- a -->b");
  EXPECT_EQ(shown(parser->read_comment(&div)), "#a#");
  EXPECT_EQ(parser.rest(), "b");

  parser_on<> text(u"-a<");
  EXPECT_EQ(shown(text->read_comment(&div)), "'<-a'");
  EXPECT_EQ(text.rest(), "<");
}

TEST(Comment, ReadAloneAtTheEnd) {
  parser_on<> parser(u"");
  EXPECT_EQ(shown(parser->read_comment(nullptr)), "null");
  EXPECT_EQ(parser.messages(), message(1, "Invalid end of document."));
  parser_on<> dash(u"-");
  EXPECT_EQ(shown(dash->read_comment(nullptr)), "null");
  EXPECT_EQ(dash.messages(), message(1, "Invalid end of document."));
}

TEST(Comment, OneDashInPreLeadsToItsContent) {
  xhtml_element pre(tag_id::pre, {}, {});
  parser_on<> parser(u"-a<b></pre>c");
  EXPECT_EQ(shown(parser->read_comment(&pre)), "'a<b>'");
  EXPECT_EQ(parser.rest(), "c");
}

// --- Processing instructions ---

TEST(ProcessingInstruction, BodyIsNotLookedAt) {
  EXPECT_EQ(in_root(u"<?xml version=\"1.0\"?><html></html>"), "?xml version=\"1.0\"? html");
  EXPECT_EQ(in_div(u"<?php if (a > b) \"<p>\" & 'c' ?>d"), "?php if (a > b) \"<p>\" & 'c'? 'd'");
  EXPECT_EQ(messages_of(u"<?xml version=\"1.0\"?>", 15), "");
}

TEST(ProcessingInstruction, LosesWhiteSpaceAtBothEnds) {
  EXPECT_EQ(in_div(u"<? \n a\n b\t?>"), "?a\n b?");
  EXPECT_EQ(in_div(u"<?\?>"), "??");
  EXPECT_EQ(in_div(u"<? ?>x"), "?? 'x'");
}

TEST(ProcessingInstruction, IsAcceptedInAnyElement) {
  EXPECT_EQ(in_body(u"<?a?><ul><?b?><li>c<?d?></li></ul>"), "?a? ul(?b? li('c' ?d?))");
}

// Any unit after a question mark is consumed with it.
TEST(ProcessingInstruction, TwoQuestionMarksDontEndIt) {
  EXPECT_EQ(in_div(u"<?a?\?>b?>c"), "?a?\?>b? 'c'");
  EXPECT_EQ(in_div(u"<?a??\?>b"), "?a??? 'b'");  // two, then the end
  EXPECT_EQ(in_div(u"<?a??"), "?a???");
  EXPECT_EQ(in_div(u"<??\?>b?>c"), "??\?>b? 'c'");
  EXPECT_EQ(in_div(u"<?a?b?>c"), "?a?b? 'c'");
  EXPECT_EQ(in_div(u"<?a? >b?>c"), "?a? >b? 'c'");
}

TEST(ProcessingInstruction, GreaterThanAtItsBeginningIsABody) {
  EXPECT_EQ(in_div(u"<?>x?>y"), "?>x? 'y'");
}

TEST(ProcessingInstruction, CutOffEndsWithTheInput) {
  EXPECT_EQ(in_div(u"<?"), "??");
  EXPECT_EQ(in_div(u"<?a"), "?a?");
  EXPECT_EQ(in_div(u"<?a > <p>"), "?a > <p>?");
  EXPECT_EQ(messages_of(u"<?a", 15), "");
}

// The last question mark that was read counts once more.
TEST(ProcessingInstruction, CutOffAfterAQuestionMark) {
  EXPECT_EQ(in_div(u"<?a?"), "?a???");
  EXPECT_EQ(in_div(u"<?a???"), "?a?????");
  EXPECT_EQ(in_div(u"<?a?\uFFFF>"), "?a???");
}

// The node's constructor reads them so.
TEST(ProcessingInstruction, DelimitersInsideAreReadAsThoseOfAToken) {
  EXPECT_EQ(in_div(u"<?<?a?>"), "?a?");
  EXPECT_EQ(in_div(u"<?abc?\?>?>"), "?abc??");
  EXPECT_EQ(in_div(u"<?a?\?>?>"), "?a?\?>?");  // too short to lose its end
}

TEST(ProcessingInstruction, AnyUnitMayStandInIt) {
  EXPECT_EQ(in_div(ustring(u"<?a\0b?>", 7)), "?a\\u0000b?");
  EXPECT_EQ(in_div(u"<?\u00E9\xD83D\uFFFE?>"), "?\\u00E9\\uD83D\\uFFFE?");
  EXPECT_EQ(in_div(u"<?a\uFFFFb?>c"), "?a?");
}

TEST(ProcessingInstruction, IsNotRewritten) {
  parse_case how;
  how.normalize_text = true;
  EXPECT_EQ(parse(u"<?a & \" b?>", how).children, "?a & \" b?");
}

TEST(ProcessingInstruction, MillionQuestionMarks) {
  const auto text_of_marks = [](std::size_t count, ustring_view tail) {
    parser_on<> parser(ustring(count, u'?').append(tail));
    const std::unique_ptr<xhtml_markup> node(parser->read_processing_instruction());
    EXPECT_EQ(node->node_kind(), 4);
    return ustring(node->as_text()->text());
  };
  EXPECT_TRUE(same_units(text_of_marks(1'000'001, u">"), ustring(1'000'000, u'?')));
  // It continues after an even number; the node then drops "?>" from its end.
  EXPECT_TRUE(same_units(text_of_marks(1'000'000, u">"), ustring(999'999, u'?')));
  EXPECT_TRUE(same_units(text_of_marks(1'000'000, u""), ustring(1'000'000, u'?')));
  EXPECT_TRUE(same_units(text_of_marks(1'000'001, u""), ustring(1'000'002, u'?')));
}

TEST(ProcessingInstruction, ReadAlone) {
  parser_on<> parser(u"a ?>b");
  parser->last_tag = tag_id::pre;
  EXPECT_EQ(shown(parser->read_processing_instruction()), "?a?");
  EXPECT_EQ(parser->last_tag, tag_id::invalid_tag);
  EXPECT_EQ(parser.rest(), "b");
  EXPECT_EQ(shown(parser->read_processing_instruction()), "??");
}

// --- Declarations: all of them are read as a document type and end at the first ">" ---

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
