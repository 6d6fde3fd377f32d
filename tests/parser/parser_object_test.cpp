// The parser as an object: what a new one holds, what it owns, and how it reads the next
// node of an input.

#include <gtest/gtest.h>

#include <ios>
#include <istream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <type_traits>

#include "tests/support/text.h"
#include "tests/support/unit_buffers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

using text_input = std::basic_istringstream<char16>;
using owned_node = std::unique_ptr<xhtml_markup>;

TEST(NewParser, HasItsValues) {
  text_input input(u"<p>");
  const xhtml_parser parser(&input);
  EXPECT_FALSE(parser.normalize_text);
  EXPECT_EQ(parser.message_mask, 0u);
  EXPECT_FALSE(parser.preserve_newlines);
  EXPECT_FALSE(parser.owns_input);
  EXPECT_EQ(parser.line, 1u);
  EXPECT_EQ(parser.last_tag, tag_id::doc_root);
  EXPECT_EQ(parser.input, &input);
  EXPECT_EQ(parser.messages, nullptr);
  EXPECT_TRUE(parser.by_character.empty());
  EXPECT_TRUE(parser.by_code.empty());
  EXPECT_TRUE(parser.by_name.empty());
  EXPECT_TRUE(parser.references.empty());
  EXPECT_EQ(input.tellg(), std::streampos(0));
}

TEST(NewParser, IsNoCopyOfAnother) {
  EXPECT_TRUE(std::has_virtual_destructor_v<xhtml_parser>);
  EXPECT_FALSE(std::is_copy_constructible_v<xhtml_parser>);
  EXPECT_FALSE(std::is_copy_assignable_v<xhtml_parser>);
}

TEST(ParserInput, OwnedInputIsFreedWithTheParser) {
  int deaths = 0;
  {
    xhtml_parser parser(new mortal_input(u"x", deaths));
    parser.owns_input = true;
    EXPECT_EQ(deaths, 0);
  }
  EXPECT_EQ(deaths, 1);
}

TEST(ParserInput, ForeignInputOutlivesTheParser) {
  int deaths = 0;
  mortal_input input(u"x", deaths);
  { const xhtml_parser parser(&input); }
  EXPECT_EQ(deaths, 0);
  EXPECT_EQ(input.get(), u'x');
}

TEST(ParserInput, OnlyTheInputOwnedAtTheEndIsFreed) {
  int deaths = 0;
  mortal_input first(u"x", deaths);
  {
    xhtml_parser parser(&first);
    parser.owns_input = true;
    parser.input = nullptr;
  }
  EXPECT_EQ(deaths, 0);
}

TEST(ParserInput, MessagesOutliveTheParser) {
  ustring_stream messages;
  {
    xhtml_parser parser(nullptr);
    parser.owns_input = true;
    parser.messages = &messages;
    parser.message_mask = 1;
  }
  messages.put(u'x');
  EXPECT_EQ(messages.str(), u"x");
}

TEST(ParserInput, NullIsAnEmptyInput) {
  xhtml_parser parser(nullptr);
  xhtml_element div(tag_id::div, {}, {});
  EXPECT_EQ(parser.read_next(&div), nullptr);
  EXPECT_EQ(parser.parse_children(&div), nullptr);
  EXPECT_TRUE(div.begin() == div.end());
}

TEST(ParserInput, StreamWithoutABuffer) {
  std::basic_istream<char16> input(nullptr);
  xhtml_parser parser(&input);
  xhtml_element div(tag_id::div, {}, {});
  EXPECT_EQ(parser.read_next(&div), nullptr);
  EXPECT_EQ(parser.parse_children(&div), nullptr);
}

TEST(ReadNext, StreamInAnyStateButGoodReadsNothing) {
  for (const auto state : {std::ios_base::eofbit, std::ios_base::failbit, std::ios_base::badbit}) {
    text_input input(u"<p>");
    input.setstate(state);
    xhtml_parser parser(&input);
    xhtml_element div(tag_id::div, {}, {});
    EXPECT_EQ(parser.read_next(&div), nullptr);
    EXPECT_EQ(parser.parse_children(&div), nullptr);
    EXPECT_TRUE(div.begin() == div.end());
    EXPECT_EQ(input.rdbuf()->sgetc(), u'<');
  }
}

TEST(ReadNext, StateOfTheStreamIsNotTouched) {
  text_input input(u"<p>a</p>");
  xhtml_parser parser(&input);
  xhtml_element div(tag_id::div, {}, {});
  EXPECT_EQ(parser.parse_children(&div), nullptr);
  EXPECT_TRUE(input.good());
  EXPECT_EQ(input.get(), std::char_traits<char16>::eof());
}

TEST(ReadNext, StreamThatFailsInBetweenEndsTheInput) {
  text_input input(u"a<br>b");
  xhtml_parser parser(&input);
  xhtml_element p(tag_id::p, {}, {});
  const owned_node text(parser.read_next(&p));
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->type(), node_type::pcdata);
  input.setstate(std::ios_base::eofbit);
  EXPECT_EQ(parser.read_next(&p), nullptr);
  input.clear();
  const owned_node br(parser.read_next(&p));
  ASSERT_NE(br, nullptr);
  EXPECT_EQ(br->tag(), tag_id::br);
}

TEST(ReadNext, EndOfTheInput) {
  text_input input(u"");
  xhtml_parser parser(&input);
  xhtml_element p(tag_id::p, {}, {});
  EXPECT_EQ(parser.read_next(&p), nullptr);
  EXPECT_EQ(parser.read_next(&p), nullptr);
}

TEST(ReadNext, MarkupAndTextByTurns) {
  for (const std::size_t at_once : {std::size_t{1}, std::size_t{2}, std::size_t{100}}) {
    dribble_buffer buffer(u"a<b>c<!--d--><?e?></f>", at_once);
    std::basic_istream<char16> input(&buffer);
    xhtml_parser parser(&input);
    xhtml_element p(tag_id::p, {}, {});
    std::string kinds;
    std::string names;
    while (const owned_node node{parser.read_next(&p)}) {
      kinds += std::to_string(node->node_kind());
      names += printable(node->tag_name());
    }
    EXPECT_EQ(kinds, "525340");
    EXPECT_EQ(names, "b</f>");
  }
}

TEST(ReadNext, EverythingIsTextInPre) {
  text_input input(u"<b>x</pre>y");
  xhtml_parser parser(&input);
  xhtml_element pre(tag_id::pre, {}, {});
  const owned_node text(parser.read_next(&pre));
  ASSERT_NE(text, nullptr);
  ASSERT_EQ(text->type(), node_type::pcdata);
  EXPECT_EQ(printable(text->as_text()->text()), "<b>x");
  EXPECT_EQ(input.rdbuf()->sgetc(), u'y');
}

/// What read_markup reads from a text in a div, and what it leaves of the text.
struct markup {
  explicit markup(const char16_t* text) : input(text), parser(&input) {
    parser.messages = &messages;
    parser.message_mask = 15;
    node.reset(parser.read_markup(&div));
    for (auto unit = input.get(); input.good(); unit = input.get())
      rest += static_cast<char16>(unit);
  }

  text_input input;
  ustring_stream messages;
  xhtml_element div{tag_id::div, {}, {}};
  xhtml_parser parser;
  owned_node node;
  ustring rest;
};

TEST(ReadMarkup, EndAfterTheSign) {
  const markup read(u"<");
  ASSERT_NE(read.node, nullptr);
  EXPECT_EQ(read.node->node_kind(), 0);
  EXPECT_FALSE(read.node->is_end_tag());
  EXPECT_EQ(read.node->tag(), tag_id::invalid_tag);
  EXPECT_EQ(printable(read.messages.str()), "line #1:\nInvalid end of document.\n");
  EXPECT_FALSE(read.div.can_contain(*read.node));
}

TEST(ReadMarkup, Comment) {
  const markup read(u"<!--c-->x");
  ASSERT_NE(read.node, nullptr);
  EXPECT_EQ(read.node->type(), node_type::comment);
  EXPECT_EQ(read.rest, u"x");
}

TEST(ReadMarkup, CommentThatEndsAfterItsFirstDash) {
  const markup read(u"<!-");
  EXPECT_EQ(read.node, nullptr);
  EXPECT_EQ(printable(read.messages.str()), "line #1:\nInvalid end of document.\n");
}

TEST(ReadMarkup, CommentOfOneDashIsText) {
  const markup read(u"<!-x<b>");
  ASSERT_NE(read.node, nullptr);
  ASSERT_EQ(read.node->type(), node_type::pcdata);
  EXPECT_EQ(printable(read.node->as_text()->text()), "<-x");
  EXPECT_EQ(read.rest, u"<b>");
}

TEST(ReadMarkup, EveryOtherDeclarationIsAnEmptyDoctype) {
  for (const char16_t* const text : {u"<!DOCTYPE html\n>x", u"<!>x", u"<! --y-->x", u"<!<a>x"}) {
    const markup read(text);
    ASSERT_NE(read.node, nullptr);
    ASSERT_EQ(read.node->type(), node_type::doctype);
    EXPECT_TRUE(read.node->as_text()->text().empty());
    EXPECT_EQ(read.rest, u"x");
  }
}

TEST(ReadMarkup, NewlinesOfADeclarationCount) {
  const markup read(u"<!\nDOCTYPE\n>");
  EXPECT_EQ(read.parser.line, 3u);
}

TEST(ReadMarkup, Instruction) {
  const markup read(u"<?a?>x");
  ASSERT_NE(read.node, nullptr);
  EXPECT_EQ(read.node->type(), node_type::processing_instruction);
  EXPECT_EQ(read.rest, u"x");
}

TEST(ReadMarkup, EndTag) {
  const markup read(u"</p>x");
  ASSERT_NE(read.node, nullptr);
  EXPECT_TRUE(read.node->is_end_tag());
  EXPECT_EQ(read.node->tag(), tag_id::p);
  EXPECT_EQ(read.rest, u"x");
  EXPECT_EQ(read.messages.str(), u"");
}

TEST(ReadMarkup, StartTag) {
  const markup read(u"<p>x");
  ASSERT_NE(read.node, nullptr);
  EXPECT_EQ(read.node->type(), node_type::element);
  EXPECT_EQ(read.node->tag(), tag_id::p);
  EXPECT_EQ(read.node->parent(), nullptr);
  EXPECT_EQ(read.rest, u"x");
  EXPECT_EQ(read.messages.str(), u"");
}

TEST(ReadMarkup, NewlineAfterTheSignCountsForItselfAndForTheTag) {
  const markup read(u"<\n>");
  EXPECT_EQ(read.parser.line, 3u);
  ASSERT_NE(read.node, nullptr);
  EXPECT_EQ(read.node->type(), node_type::pcdata);
}

TEST(MatchingEndTag, OfTheSameElement) {
  xhtml_parser parser(nullptr);
  const xhtml_element p(tag_id::p, {}, {});
  EXPECT_TRUE(parser.is_matching_end_tag(&p, std::make_unique<xhtml_end_tag>(u"</p>").get()));
  EXPECT_TRUE(parser.is_matching_end_tag(&p, std::make_unique<xhtml_end_tag>(u"</P>").get()));
  EXPECT_TRUE(parser.is_matching_end_tag(&p, std::make_unique<xhtml_end_tag>(u"<p>").get()));
  EXPECT_FALSE(parser.is_matching_end_tag(&p, std::make_unique<xhtml_end_tag>(u"</pre>").get()));
  EXPECT_FALSE(parser.is_matching_end_tag(&p, std::make_unique<xhtml_end_tag>(u"</p >").get()));
}

TEST(MatchingEndTag, IsAnEndTag) {
  xhtml_parser parser(nullptr);
  const xhtml_element p(tag_id::p, {}, {});
  EXPECT_FALSE(parser.is_matching_end_tag(&p, &p));
  EXPECT_FALSE(parser.is_matching_end_tag(&p, std::make_unique<xhtml_pcdata>(u"").get()));
}

TEST(MatchingEndTag, OfTheRoot) {
  xhtml_parser parser(nullptr);
  const xhtml_element root(tag_id::doc_root, {}, {});
  EXPECT_TRUE(
      parser.is_matching_end_tag(&root, std::make_unique<xhtml_end_tag>(u"</doc root>").get()));
}

// An unknown end tag and a node that is no element have the same number.
TEST(MatchingEndTag, OfNoElement) {
  xhtml_parser parser(nullptr);
  const xhtml_element unknown(tag_id::invalid_tag, {}, {});
  EXPECT_TRUE(
      parser.is_matching_end_tag(&unknown, std::make_unique<xhtml_end_tag>(u"</foo>").get()));
}

TEST(ParserTree, OutlivesTheParser) {
  xhtml_element div(tag_id::div, {}, {});
  {
    auto input = std::make_unique<text_input>(u"<p>a text of more than a few units</p>");
    xhtml_parser parser(input.get());
    EXPECT_EQ(parser.parse_children(&div), nullptr);
  }
  EXPECT_EQ(written(div), u"<div>\n  <p>\n    a text of more than a few units\n  </p>\n</div>\n");
}

TEST(ParserTree, NodesThatReadersGiveLaterAreNotOfIt) {
  text_input input(u"<b>x</doc root><i title='a value of more than a few units'>y");
  xhtml_parser parser(&input);
  {
    xhtml_doc doc(0);
    EXPECT_EQ(parser.parse_children(doc.root()), nullptr);
  }
  xhtml_element p(tag_id::p, {}, {});
  const owned_node element(parser.read_next(&p));
  const owned_node text(parser.read_next(&p));
  ASSERT_NE(element, nullptr);
  EXPECT_EQ(element->get_attribute(attr_id::title), u"a value of more than a few units");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->parent(), nullptr);
}

TEST(ParserLine, NothingResetsIt) {
  text_input input(u"<br>\n\n<li>");
  xhtml_element p(tag_id::p, {}, {});
  xhtml_parser parser(&input);
  EXPECT_EQ(parser.parse_children(&p), nullptr);
  EXPECT_EQ(parser.line, 3u);
  text_input more(u"\n");
  parser.input = &more;
  EXPECT_EQ(parser.parse_children(&p), nullptr);
  EXPECT_EQ(parser.line, 4u);
}

}  // namespace
}  // namespace test
