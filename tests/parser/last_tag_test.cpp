// What the readers store in last_tag, and the newlines of text after a stray tag of `pre`.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/parser/reader_kit.h"

namespace test {
namespace {

/// last_tag after a call of `read` on `text`, if it was `br` before.
template <class Read>
tag_id tag_after(ustring_view text, Read read) {
  parser_on<> parser(text);
  parser->last_tag = tag_id::br;
  const std::unique_ptr<xhtml_markup> node(read(*parser));
  return parser->last_tag;
}

TEST(LastTag, OfANewParserIsRowZero) {
  EXPECT_EQ(parser_on<>(u"")->last_tag, tag_id::doc_root);
  EXPECT_EQ(parse(u"").last_tag, tag_id::doc_root);
}

TEST(LastTag, StartTagStoresTheTagOfTheElement) {
  xhtml_element div(tag_id::div, {}, {});
  const auto read = [&div](auto& parser) { return parser.read_start_tag(&div); };
  EXPECT_EQ(tag_after(u"p>", read), tag_id::p);
  EXPECT_EQ(tag_after(u"PRE class='a'>", read), tag_id::pre);
  EXPECT_EQ(tag_after(u"p", read), tag_id::p);
  EXPECT_EQ(tag_after(u"foo>", read), tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u">", read), tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"", read), tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"foo bar>", read), tag_id::invalid_tag);
  // An element that Strict lacks has a number but no tag.
  EXPECT_EQ(tag_after(u"font>", read), tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"font color='red'>", read), tag_id::invalid_tag);
}

TEST(LastTag, EndTagStoresItsTag) {
  const auto read = [](auto& parser) { return parser.read_end_tag(); };
  EXPECT_EQ(tag_after(u"/PRE>", read), tag_id::pre);
  EXPECT_EQ(tag_after(u"/font>", read), tag_id::font);
  EXPECT_EQ(tag_after(u"/doc root>", read), tag_id::doc_root);
  EXPECT_EQ(tag_after(u"/foo>", read), tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"/pre", read), tag_id::invalid_tag);
}

TEST(LastTag, PreformattedTextStoresRowZero) {
  const auto read = [](auto& parser) { return parser.read_preformatted(); };
  EXPECT_EQ(tag_after(u"a</pre>", read), tag_id::doc_root);
  EXPECT_EQ(tag_after(u"a", read), tag_id::doc_root);
  EXPECT_EQ(tag_after(u"", read), tag_id::doc_root);
}

TEST(LastTag, TextAndInstructionStoreTheInvalidRow) {
  xhtml_element div(tag_id::div, {}, {});
  xhtml_element style(tag_id::style, {}, {});
  EXPECT_EQ(tag_after(u"a", [&div](auto& parser) { return parser.read_pcdata(&div, {}); }),
            tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"a", [&style](auto& parser) { return parser.read_pcdata(&style, {}); }),
            tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"", [&div](auto& parser) { return parser.read_pcdata(&div, {}); }),
            tag_id::invalid_tag);
  EXPECT_EQ(tag_after(u"a?>", [](auto& parser) { return parser.read_processing_instruction(); }),
            tag_id::invalid_tag);
}

TEST(LastTag, CommentAndDeclarationLeaveIt) {
  EXPECT_EQ(tag_after(u"--a-->", [](auto& parser) { return parser.read_comment(nullptr); }),
            tag_id::br);
  EXPECT_EQ(tag_after(u"-", [](auto& parser) { return parser.read_comment(nullptr); }), tag_id::br);
  EXPECT_EQ(tag_after(u"<!a>", [](auto& parser) { return parser.read_markup(nullptr); }),
            tag_id::br);
  EXPECT_EQ(tag_after(u"<", [](auto& parser) { return parser.read_markup(nullptr); }), tag_id::br);
  EXPECT_EQ(tag_after(u"", [](auto& parser) { return parser.read_next(nullptr); }), tag_id::br);
}

TEST(LastTag, AfterAnEndTagOfPreTextKeepsItsNewlines) {
  EXPECT_EQ(in_div(u"a</pre>x\n  y"), "'a' 'x\ny'");
  EXPECT_EQ(in_div(u"</PRE>\nx \n\n y \n"), "'x \ny '");
  EXPECT_EQ(in_div(u"</pre >x\ny"), "'x y'");
  EXPECT_EQ(in_div(u"</pre"), "");
}

TEST(LastTag, AfterAnElementPreThatIsDroppedTextKeepsItsNewlines) {
  parse_case how;
  how.path = {tag_id::html, tag_id::body, tag_id::p, tag_id::b};
  EXPECT_EQ(parse(u"<pre>x\ny", how).children, "'x\ny'");
  EXPECT_EQ(parse(u"<pre class='a'>x\ny<i>x\ny", how).children, "'x\ny' i('x y')");
}

TEST(LastTag, KeepingEndsWithTheText) {
  EXPECT_EQ(in_div(u"</pre>x\ny<b>x\ny"), "'x\ny' b('x y')");
  EXPECT_EQ(in_div(u"</pre><b>x\ny"), "b('x y')");
  EXPECT_EQ(in_div(u"</pre></b>x\ny"), "'x y'");
  EXPECT_EQ(in_div(u"</pre><?a?>x\ny"), "?a? 'x y'");
  EXPECT_EQ(in_div(u"</pre><foo>x\ny"), "'x y'");
  EXPECT_EQ(in_div(u"</pre><foo\na>x\ny"), "'<foo a>x y'");
  // White space that makes no node ends it as well.
  EXPECT_EQ(in_div(u"</pre>\n<!--a-->x\ny"), "#a# 'x y'");
}

TEST(LastTag, KeepingContinuesAfterCommentsAndDeclarations) {
  EXPECT_EQ(in_div(u"</pre><!--a-->x\ny"), "#a# 'x\ny'");
  EXPECT_EQ(in_div(u"</pre><!a>x\ny"), "'x\ny'");
  EXPECT_EQ(in_div(u"</pre><!-x\ny"), "'<-x\ny'");
}

TEST(LastTag, AfterAPreThatWasReadTextIsFolded) {
  EXPECT_EQ(in_div(u"<pre>a\nb</pre>x\ny"), "pre('a\nb') 'x y'");
  EXPECT_EQ(in_div(u"<pre>a\nb</pre></pre>x\ny"), "pre('a\nb') 'x\ny'");
}

}  // namespace
}  // namespace test
