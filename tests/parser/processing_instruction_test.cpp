// Processing instructions.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/parser/reader_kit.h"
#include "tests/support/golden.h"
#include "xport/markup/leaf_nodes.h"

namespace test {
namespace {

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

TEST(ProcessingInstruction, StandsInAnyElement) {
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

// The question mark that was looked at last counts once more.
TEST(ProcessingInstruction, CutOffAfterAQuestionMark) {
  EXPECT_EQ(in_div(u"<?a?"), "?a???");
  EXPECT_EQ(in_div(u"<?a???"), "?a?????");
  EXPECT_EQ(in_div(u"<?a?\uFFFF>"), "?a???");
}

// As the node's constructor takes tokens.
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

}  // namespace
}  // namespace test
