// End tags: what they name, and how those that are cut off are read.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/parser/reader_kit.h"

namespace test {
namespace {

/// What read_end_tag returns for an end tag after its "<", and last_tag.
std::string read(const ustring& text, tag_id& last_tag) {
  parser_on<> parser(text);
  const std::string node = shown(parser->read_end_tag());
  last_tag = parser->last_tag;
  EXPECT_EQ(parser.messages(), "");
  EXPECT_EQ(parser->line, 1u);
  return node + "|" + parser.rest();
}

tag_id tag_named_by(const ustring& text) {
  tag_id last_tag{};
  const ustring token = u"<" + text;
  EXPECT_EQ(read(text, last_tag), printable(token) + "|");
  return last_tag;
}

TEST(EndTag, ClosesTheElementInAnyCase) {
  EXPECT_EQ(in_div(u"<P>a</P>b"), "p('a') 'b'");
  EXPECT_EQ(in_div(u"<p>a</P>b"), "p('a') 'b'");
  EXPECT_EQ(in_div(u"<SPAN>a</span>b"), "span('a') 'b'");
  EXPECT_EQ(messages_of(u"<P>a</P><p>a</P>", 3), "");
}

TEST(EndTag, WhiteSpaceBelongsToTheName) {
  EXPECT_EQ(in_div(u"<p>a</p >b"), "p('a' 'b')");
  EXPECT_EQ(in_div(u"<p>a</ p>b"), "p('a' 'b')");
  EXPECT_EQ(in_div(u"<p>a</p\n>b"), "p('a' 'b')");
  EXPECT_EQ(messages_of(u"<p>a</p >b", 3),
            message(1, "Expecting end tag </p>.  Encountered </p >\nSkipping </p > tag.\n"));
  EXPECT_EQ(messages_of(u"</p\n>", 3),
            message(1, "Expecting end tag </div>.  Encountered </p\n>\nSkipping </p\n> tag.\n"));
}

TEST(EndTag, NameIsAllBetweenTheSlashAndTheFirstGreaterThan) {
  EXPECT_EQ(tag_named_by(u"/p>"), tag_id::p);
  EXPECT_EQ(tag_named_by(u"/P>"), tag_id::p);
  EXPECT_EQ(tag_named_by(u"/p/>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"//p>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/p class='a'>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/a:p>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/div >"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/p<b>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/foo>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/\u00E9>"), tag_id::invalid_tag);
  EXPECT_EQ(tag_named_by(u"/\u0170>"), tag_id::invalid_tag);  // its low byte is that of "p"
  EXPECT_EQ(tag_named_by(u"/p\u00A0>"), tag_id::invalid_tag);
}

TEST(EndTag, QuotesDontHideItsEnd) {
  tag_id last_tag{};
  EXPECT_EQ(read(u"/p \">\">", last_tag), "</p \">|\">");
  EXPECT_EQ(read(u"/p>>", last_tag), "</p>|>");
}

// The table has a name with a blank, and rows without rules.
TEST(EndTag, NamesThatNoStartTagHas) {
  EXPECT_EQ(tag_named_by(u"/doc root>"), tag_id::doc_root);
  EXPECT_EQ(tag_named_by(u"/font>"), tag_id::font);
  EXPECT_EQ(tag_named_by(u"/invalid tag>"), tag_id::invalid_tag);
}

TEST(EndTag, NameIsCutAtAZeroUnit) {
  EXPECT_EQ(tag_named_by(ustring(u"/p\0>", 4)), tag_id::p);
  EXPECT_EQ(tag_named_by(ustring(u"/p\0 zzz>", 8)), tag_id::p);
  EXPECT_EQ(tag_named_by(ustring(u"/\0p>", 4)), tag_id::invalid_tag);
  EXPECT_EQ(in_div(ustring(u"<p>a</p\0x>b", 11)), "p('a') 'b'");
}

TEST(EndTag, UnknownNameIsSkippedWithAMessage) {
  EXPECT_EQ(in_div(u"a</foo>b"), "'a' 'b'");
  EXPECT_EQ(messages_of(u"a</>b", 3),
            message(1, "Expecting end tag </div>.  Encountered </>\nSkipping </> tag.\n"));
}

TEST(EndTag, CutOffIsDroppedInSilence) {
  EXPECT_EQ(in_div(u"<p>a </p"), "p('a ')");
  EXPECT_EQ(in_div(u"<p>a </"), "p('a ')");
  EXPECT_EQ(in_div(u"<p>a </p \n class='b'"), "p('a ')");
  EXPECT_EQ(in_div(u"<p>a </p\uFFFF>"), "p('a ')");
  EXPECT_EQ(messages_of(u"<p>a </p", 3), "");
  tag_id last_tag{};
  EXPECT_EQ(read(u"/p", last_tag), "none|");
  EXPECT_EQ(last_tag, tag_id::invalid_tag);
  EXPECT_EQ(read(u"/", last_tag), "none|");
  EXPECT_EQ(last_tag, tag_id::invalid_tag);
  EXPECT_EQ(read(u"", last_tag), "none|");
  EXPECT_EQ(last_tag, tag_id::invalid_tag);
  EXPECT_EQ(read(u"/p\uFFFF>", last_tag), "none|");
  EXPECT_EQ(last_tag, tag_id::invalid_tag);
}

TEST(EndTag, LongOnes) {
  const ustring name(1'000'000, u'p');
  const std::string tag = "</" + printable(name) + ">";
  EXPECT_EQ(in_div(u"a</" + name + u">b"), "'a' 'b'");
  EXPECT_EQ(messages_of(u"</" + name + u">", 3),
            message(1, "Expecting end tag </div>.  Encountered " + tag + "\nSkipping " + tag +
                           " tag.\n"));
  EXPECT_EQ(in_div(u"a</" + name), "'a'");
}

TEST(EndTag, NodeOfItsOwnKind) {
  parser_on<> parser(u"/DIV>");
  const std::unique_ptr<xhtml_markup> node(parser->read_end_tag());
  EXPECT_TRUE(node->is_end_tag());
  EXPECT_EQ(node->node_kind(), 0);
  EXPECT_EQ(node->tag(), tag_id::div);
  EXPECT_EQ(printable(node->tag_name()), "</DIV>");
  EXPECT_EQ(node->parent(), nullptr);
}

TEST(EndTag, OneThatTheReceiverMatchesEndsTheReading) {
  const parse_result result = parse(u"a</div>b");
  EXPECT_EQ(result.children, "'a'");
  EXPECT_EQ(result.returned, "");
  EXPECT_EQ(result.rest, "b");
  EXPECT_EQ(result.last_tag, tag_id::div);
}

}  // namespace
}  // namespace test
