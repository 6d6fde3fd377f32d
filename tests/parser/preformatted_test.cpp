// The content of `pre`, which is one text up to "</pre>".

#include <gtest/gtest.h>

#include <string>

#include "tests/parser/reader_kit.h"

namespace test {
namespace {

TEST(Preformatted, EndTagIsFoundInAnyCase) {
  EXPECT_EQ(in_div(u"<pre>a</PRE>b"), "pre('a') 'b'");
  EXPECT_EQ(in_div(u"<PRE>a</pRe>b"), "pre('a') 'b'");
  EXPECT_EQ(messages_of(u"<pre>a</PRE>", 3), "");
}

TEST(Preformatted, EndTagWithWhiteSpaceIsText) {
  EXPECT_EQ(in_div(u"<pre>a</pre >b</div><p>c"), "pre('a</pre >b</div><p>c')");
  EXPECT_EQ(in_div(u"<pre>a</ pre></pre>b"), "pre('a</ pre>') 'b'");
}

TEST(Preformatted, MarkupIsText) {
  EXPECT_EQ(in_div(u"<pre><b>a</b><!--</p>--><?c?><!d></pre>e"),
            "pre('<b>a</b><!--</p>--><?c?><!d>') 'e'");
  EXPECT_EQ(in_div(u"<pre><!-- </pre> -->"), "pre('<!--') ' -->'");
  EXPECT_EQ(in_div(u"<pre>\"a'</pre>b"), "pre('\"a'') 'b'");
  EXPECT_EQ(in_div(u"<pre><pre>a</pre>b"), "pre('<pre>a') 'b'");
}

TEST(Preformatted, WhiteSpaceStaysButForTheEnd) {
  EXPECT_EQ(in_div(u"<pre> a\n\n  b\t\r\n c</pre>"), "pre(' a\n\n  b\\u0009\\u000D\n c')");
  EXPECT_EQ(in_div(u"<pre>\n\ta \n</pre>b"), "pre('\n\\u0009a') 'b'");
  EXPECT_EQ(in_div(u"<pre> \n </pre>b"), "pre('') 'b'");
  EXPECT_EQ(in_div(u"<pre>a "), "pre('a')");
}

TEST(Preformatted, NothingInItIsAnEmptyText) { EXPECT_EQ(in_div(u"<pre></pre>b"), "pre('') 'b'"); }

TEST(Preformatted, AtTheEndOfTheInputThereIsNoText) {
  EXPECT_EQ(in_div(u"<pre>"), "pre");
  EXPECT_EQ(in_div(u"<pre"), "pre");
  EXPECT_EQ(in_div(u"<pre>\uFFFFa"), "pre");
}

TEST(Preformatted, WithoutAnEndTagAllIsText) {
  EXPECT_EQ(in_div(u"<pre>a<p>b</p>\n</div>"), "pre('a<p>b</p>\n</div>')");
  EXPECT_EQ(messages_of(u"<pre>a<foo></x></div>", 3), "");
}

TEST(Preformatted, BeginningOfAnEndTagIsText) {
  EXPECT_EQ(in_div(u"<pre><</pre>b"), "pre('<') 'b'");
  EXPECT_EQ(in_div(u"<pre></</pre>b"), "pre('</') 'b'");
  EXPECT_EQ(in_div(u"<pre></p</pre>b"), "pre('</p') 'b'");
  EXPECT_EQ(in_div(u"<pre></P></pre>b"), "pre('</P>') 'b'");
  EXPECT_EQ(in_div(u"<pre></PR</pR</Pre>b"), "pre('</PR</pR') 'b'");
  EXPECT_EQ(in_div(u"<pre></pre</pre>b"), "pre('</pre') 'b'");
  EXPECT_EQ(in_div(u"<pre></prex></pre>b"), "pre('</prex>') 'b'");
  EXPECT_EQ(in_div(u"<pre><<<//</pre>b"), "pre('<<<//') 'b'");
}

TEST(Preformatted, EndTagThatIsCutOffIsText) {
  EXPECT_EQ(in_div(u"<pre>a<"), "pre('a<')");
  EXPECT_EQ(in_div(u"<pre>a</"), "pre('a</')");
  EXPECT_EQ(in_div(u"<pre>a</PR"), "pre('a</PR')");
  EXPECT_EQ(in_div(u"<pre>a</pre"), "pre('a</pre')");
  EXPECT_EQ(in_div(u"<pre>a</pre\uFFFF>"), "pre('a</pre')");
  EXPECT_EQ(messages_of(u"<pre>a</pre", 3), "");
}

TEST(Preformatted, OnlyTheEndTagOfPreEndsIt) {
  const parse_result result = parse(u"<pre class='a'>b</div></pre>c</div>d");
  EXPECT_EQ(result.children, "pre[class=\"a\"]('b</div>') 'c'");
  EXPECT_EQ(result.rest, "d");
}

TEST(Preformatted, OptionsMakeNoDifference) {
  parse_case how;
  how.normalize_text = true;
  how.preserve_newlines = true;
  EXPECT_EQ(parse(u"<pre>a & b\n  \"c\u00A9\"</pre>", how).children,
            "pre('a & b\n  \"c\\u00A9\"')");
}

TEST(Preformatted, AnyUnitMayStandInIt) {
  EXPECT_EQ(in_div(ustring(u"<pre>a\0b</pre>", 14)), "pre('a\\u0000b')");
  EXPECT_EQ(in_div(ustring(u"<pre></pr\0e></pre>", 18)), "pre('</pr\\u0000e>')");
  EXPECT_EQ(in_div(u"<pre>\u00E9\xD83D\uFFFE</pre>"), "pre('\\u00E9\\uD83D\\uFFFE')");
  EXPECT_EQ(in_div(u"<pre>\u013C\u012F\u0170</pre>"), "pre('\\u013C\\u012F\\u0170')");
}

TEST(Preformatted, MadeUpEndTagIsTraced) {
  EXPECT_EQ(messages_of(u"<pre>a</pre>", 12),
            message(1, "pre encountered.\n") + message(1, "<pre> encountered.\n"));
}

TEST(Preformatted, LongOnes) {
  EXPECT_EQ(in_div(u"<pre>" + ustring(1'000'000, u'<') + u"</pre>b"),
            "pre('" + std::string(1'000'000, '<') + "') 'b'");
  EXPECT_EQ(in_div(u"<pre>" + ustring(1'000'000, u'a')),
            "pre('" + std::string(1'000'000, 'a') + "')");
  ustring text = u"<pre>";
  std::string kept;
  for (int count = 0; count < 200'000; ++count) {
    text += u"</pre";
    kept += "</pre";
  }
  EXPECT_EQ(in_div(text + u"</pre>b"), "pre('" + kept + "') 'b'");
}

TEST(Preformatted, ParsedIntoAPreItself) {
  parse_case how;
  how.path = {tag_id::html, tag_id::body, tag_id::pre};
  const parse_result result = parse(u"a<b></pre>c", how);
  EXPECT_EQ(result.children, "'a<b>'");
  EXPECT_EQ(result.returned, "");
  EXPECT_EQ(result.rest, "c");
}

TEST(Preformatted, ReadAlone) {
  parser_on<> parser(u" a\n\n</pre>b</Pre>c");
  parser->last_tag = tag_id::p;
  EXPECT_EQ(shown(parser->read_preformatted()), "' a\n\n'");
  EXPECT_EQ(parser->last_tag, tag_id::doc_root);
  EXPECT_EQ(parser->line, 1u);
  EXPECT_EQ(shown(parser->read_preformatted()), "'b'");
  EXPECT_EQ(shown(parser->read_preformatted()), "'c'");
  EXPECT_EQ(shown(parser->read_preformatted()), "''");
  EXPECT_EQ(parser.messages(), "");
}

}  // namespace
}  // namespace test
