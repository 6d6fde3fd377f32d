// Character data: white space, newlines and quotes, and how elements change them.

#include <gtest/gtest.h>

#include <locale>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/parser/reader_kit.h"
#include "tests/support/golden.h"
#include "xport/parser/text_reader.h"
#include "xport/text/character_class.h"

namespace test {
namespace {

parse_case case_in(tag_id tag) {
  parse_case how;
  if (tag == tag_id::style || tag == tag_id::title)
    how.path = {tag_id::html, tag_id::head, tag};
  else
    how.path = {tag_id::html, tag_id::body, tag_id::form, tag};
  return how;
}

std::string in_script(ustring_view text) { return parse(text, case_in(tag_id::script)).children; }
std::string in_style(ustring_view text) { return parse(text, case_in(tag_id::style)).children; }

std::string preserved(ustring_view text) {
  parse_case how;
  how.preserve_newlines = true;
  return parse(text, how).children;
}

std::string normalized(ustring_view text, tag_id tag = tag_id::p) {
  parse_case how = case_in(tag);
  how.normalize_text = true;
  return parse(text, how).children;
}

TEST(Text, NewlineWithTheWhiteSpaceAroundItBecomesABlank) {
  EXPECT_EQ(in_p(u"one\n   two"), "'one two'");
  EXPECT_EQ(in_p(u"one\ntwo"), "'one two'");
  EXPECT_EQ(in_p(u"one \t\n \n\n\t two\nthree"), "'one two three'");
  EXPECT_EQ(in_p(u"one\r\ntwo\r\n\r\nthree"), "'one two three'");
  EXPECT_EQ(in_p(u"one\v\f\r\n\v\f\rtwo"), "'one two'");
  EXPECT_EQ(in_p(u"\"one\n  <b>\n two\""), "'\"one <b> two\"'");
}

TEST(Text, OtherWhiteSpaceInsideStays) {
  EXPECT_EQ(in_p(u"one   two"), "'one   two'");
  EXPECT_EQ(in_p(u"one\t \rtwo"), "'one\\u0009 \\u000Dtwo'");
  EXPECT_EQ(in_p(u"one\u2028\u0085two"), "'one\\u2028\\u0085two'");
}

TEST(Text, LeadingWhiteSpaceBecomesABlankUnlessANewlineIsInIt) {
  EXPECT_EQ(in_p(u" a"), "' a'");
  EXPECT_EQ(in_p(u"   a"), "' a'");
  EXPECT_EQ(in_p(u"\ta"), "' a'");
  EXPECT_EQ(in_p(u"\r\va"), "' a'");
  EXPECT_EQ(in_p(u"\na"), "'a'");
  EXPECT_EQ(in_p(u" \n a"), "'a'");
  EXPECT_EQ(in_p(u"\r\n\r\n  a"), "'a'");
}

// The blank or newline furthest to the left decides; other white space leaves nothing.
TEST(Text, WhiteSpaceAtTheEnd) {
  EXPECT_EQ(in_p(u"a "), "'a '");
  EXPECT_EQ(in_p(u"a   "), "'a '");
  EXPECT_EQ(in_p(u"a\t"), "'a'");
  EXPECT_EQ(in_p(u"a\r"), "'a'");
  EXPECT_EQ(in_p(u"a\t\r\v"), "'a'");
  EXPECT_EQ(in_p(u"a\t "), "'a '");
  EXPECT_EQ(in_p(u"a \t"), "'a '");
  EXPECT_EQ(in_p(u"a\t \r"), "'a '");
  for (const ustring tail : {u" ", u"  ", u" \t", u"\t ", u" \r", u"\r ", u"\n", u"\r\n", u"\n  ",
                             u" \n", u"\t\n\t", u"\n\n"})
    EXPECT_EQ(in_p(u"a" + tail + u"<b>c"), "'a ' b('c')") << printable(tail);
  for (const ustring tail : {u"", u"\t", u"\r", u"\t\r", u"\v\f"})
    EXPECT_EQ(in_p(u"a" + tail + u"<b>c"), "'a' b('c')") << printable(tail);
}

TEST(Text, WhiteSpaceAtTheEndWhereNewlinesAreKept) {
  EXPECT_EQ(preserved(u"a\n<b>c"), "'a' b('c')");
  EXPECT_EQ(preserved(u"a \n<b>c"), "'a ' b('c')");
  EXPECT_EQ(preserved(u"a\t\n<b>c"), "'a' b('c')");
  EXPECT_EQ(preserved(u"a\n \t<b>c"), "'a' b('c')");
  EXPECT_EQ(preserved(u"a\t \n<b>c"), "'a ' b('c')");
  EXPECT_EQ(in_script(u"a \n"), "'a '");
  EXPECT_EQ(in_script(u"a\n "), "'a'");
}

TEST(Text, TextBeforeAnEndTagLosesTheWhiteSpaceAtItsEnd) {
  EXPECT_EQ(in_div(u"<p>a \n </p>"), "p('a')");
  EXPECT_EQ(in_div(u"<p>a\n</p> b"), "p('a') ' b'");
}

TEST(Text, OnlyBlanksAreOneBlank) {
  EXPECT_EQ(in_p(u"<b>a</b> <b>c</b>"), "b('a') ' ' b('c')");
  EXPECT_EQ(in_p(u"<b>a</b>  \t <b>c</b>"), "b('a') ' ' b('c')");
  EXPECT_EQ(in_p(u"<b>a</b>\t<b>c</b>"), "b('a') ' ' b('c')");
  EXPECT_EQ(in_p(u" "), "' '");
  EXPECT_EQ(in_p(u"\r"), "' '");
}

TEST(Text, WhiteSpaceWithANewlineIsNoNode) {
  EXPECT_EQ(in_p(u"<b>a</b>\n<b>c</b>"), "b('a') b('c')");
  EXPECT_EQ(in_p(u"<b>a</b> \t\r\n\n <b>c</b>"), "b('a') b('c')");
  EXPECT_EQ(in_p(u"\n"), "");
  EXPECT_EQ(in_p(u" \n "), "");
  EXPECT_EQ(preserved(u"\n \n<b>c"), "b('c')");
  EXPECT_EQ(in_script(u"\n"), "");
  EXPECT_EQ(in_style(u" \n "), "");
}

TEST(Text, BlanksBeforeAnEndTagStayAsAnEmptyText) {
  EXPECT_EQ(in_div(u"<p> </p>"), "p('')");
  EXPECT_EQ(in_div(u"<p>\t</p>"), "p('')");
  EXPECT_EQ(in_div(u"<p>\n</p>"), "p");
  EXPECT_EQ(in_div(u"<p></p>"), "p");
}

TEST(Text, OneDoubleQuoteHidesTagsUpToTheNext) {
  EXPECT_EQ(in_body(u"<p>a 5\" disk</p><p>b</p>"), "p('a 5\" disk</p><p>b</p>')");
  EXPECT_EQ(in_body(u"<p>a 5\" disk</p><p>b</p> 3\" c</p><p>d"),
            "p('a 5\" disk</p><p>b</p> 3\" c') p('d')");
  EXPECT_EQ(messages_of(u"<p>a 5\" disk</p><foo>b", 3), "");
}

TEST(Text, QuotedTagsAreText) {
  EXPECT_EQ(in_p(u"a \"<b>\" c<b>d"), "'a \"<b>\" c' b('d')");
  EXPECT_EQ(in_p(u"\"\"<b>d"), "'\"\"' b('d')");
  EXPECT_EQ(in_p(u"\"a\"<b>d"), "'\"a\"' b('d')");
  EXPECT_EQ(in_p(u"\"<!--a--><?b?></p>\"<!--c-->"), "'\"<!--a--><?b?></p>\"' #c#");
  EXPECT_EQ(in_p(u"\"a\"\"<b>d"), "'\"a\"\"<b>d'");
}

TEST(Text, EveryTextBeginsOutsideQuotes) {
  EXPECT_EQ(in_p(u"\"a\" <b>\"c\"</b>\"d\"<b>e"), "'\"a\" ' b('\"c\"') '\"d\"' b('e')");
  // The prefix that was read before doesn't matter.
  EXPECT_EQ(in_p(u"<a\"b c>d<i>e"), "'<a\"b  c>d' i('e')");
  EXPECT_EQ(in_p(u"<x\"y\" \"z<i>\"<i>e"), "'<x\"y\"  \"z<i>\"' i('e')");
}

TEST(Text, ApostropheHidesNothingOutsideScripts) {
  EXPECT_EQ(in_p(u"it's <b>'x'</b>"), "'it's ' b(''x'')");
  EXPECT_EQ(in_p(u"\"it's\"<b>x"), "'\"it's\"' b('x')");
  EXPECT_EQ(in_style(u"a'b<!--c-->"), "'' #c#");
}

TEST(Text, InScriptsApostrophesHideTagsToo) {
  EXPECT_EQ(in_script(u"a = '<b>';<!--c-->"), "'a = '<b>';' #c#");
  EXPECT_EQ(in_script(u"'a\"b'<!--c-->"), "''a\"b'' #c#");    // a quote in apostrophes
  EXPECT_EQ(in_script(u"\"a'b\"<!--c-->"), "'\"a'b\"' #c#");  // and the other way
  EXPECT_EQ(in_script(u"'a\"<!--b-->"), "''a\"<!--b-->'");
  EXPECT_EQ(in_script(u"\"a'<!--b-->\"'c'<!--d-->"), "'\"a'<!--b-->\"'c'' #d#");
  EXPECT_EQ(in_div(u"<script>// it's\n</script><p>a"), "script('// it's\n</script><p>a')");
}

TEST(Text, InScriptsNewlinesStay) {
  EXPECT_EQ(in_script(u"one\n   two"), "'one\ntwo'");
  EXPECT_EQ(in_script(u"one \t\n \n\n\t two"), "'one \\u0009\ntwo'");
  EXPECT_EQ(in_script(u"one   two"), "'one   two'");
  EXPECT_EQ(in_script(u"\n  one"), "'one'");
  EXPECT_EQ(in_script(u"  one"), "' one'");
  EXPECT_EQ(in_script(u"one\r\ntwo"), "'one\\u000D\ntwo'");
  EXPECT_EQ(in_script(u"'a\n  b'"), "''a\nb''");
}

TEST(Text, NewlinesCanBePreserved) {
  EXPECT_EQ(preserved(u"one\n   two"), "'one\ntwo'");
  EXPECT_EQ(preserved(u"one \n\n two\n"), "'one \ntwo'");
  EXPECT_EQ(preserved(u"\n one"), "'one'");
  EXPECT_EQ(preserved(u"\"a\n  <b>\"<b>c"), "'\"a\n<b>\"' b('c')");
}

TEST(Text, OtherElementsThatTakeTextOnlyFoldNewlines) {
  for (const tag_id tag : {tag_id::textarea, tag_id::title}) {
    EXPECT_EQ(parse(u"one\n  two 'a<!--b-->'", case_in(tag)).children, "'one two 'a' #b# '''");
  }
}

TEST(Text, ReferencesAreLeftAlone) {
  EXPECT_EQ(in_p(u"a & b &copy; &#169; \u00A9 &unknown; &"),
            "'a & b &copy; &#169; \\u00A9 &unknown; &'");
}

TEST(Text, ReferencesAreRewrittenOnDemand) {
  EXPECT_EQ(normalized(u"a & b"), "'a &amp; b'");
  EXPECT_EQ(normalized(u"&#169; \u00A9 &copy; &unknown;"), "'&copy; &copy; &copy; &unknown;'");
  EXPECT_EQ(normalized(u"say \"<b>\"<b>x"), "'say &quot;&lt;b&gt;&quot;' b('x')");
  EXPECT_EQ(normalized(u"<foo a>\n b&"), "'&lt;foo  a&gt; b&amp;'");
  EXPECT_EQ(normalized(u"a & b", tag_id::textarea), "'a &amp; b'");
  EXPECT_EQ(normalized(u"a & b", tag_id::title), "'a &amp; b'");
}

TEST(Text, ReferencesInScriptsAndStylesAreNotRewritten) {
  EXPECT_EQ(normalized(u"a & b \"<c>\"", tag_id::script), "'a & b \"<c>\"'");
  EXPECT_EQ(normalized(u"a&b{}", tag_id::style), "'a&b { \n}\n\n'");
}

/// Rewrites every text to nothing.
class erasing_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  void normalize_references(ustring& text) override { text.clear(); }
};

TEST(Text, RewrittenToNothingItStaysAnEmptyText) {
  xhtml_element p(tag_id::p, {}, {});
  parser_on<erasing_parser> parser(u"a<b>");
  parser->normalize_text = true;
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "''");
  EXPECT_EQ(parser->last_tag, tag_id::invalid_tag);
  EXPECT_EQ(parser.rest(), "<b>");
}

TEST(StyleText, IsTheSheetAsItsWriterPutsIt) {
  EXPECT_EQ(in_style(u"p{color:red;}"), "'p { \n   color: red;\n}\n\n'");
  EXPECT_EQ(in_style(u"\n p {\n  color: red;\n  nothing: blue;\n }\n/* c */\n"),
            "'p { \n   color: red;\n}\n\n/* c */\n'");
  EXPECT_EQ(in_style(u"@import url(a.css);"), "'@import url(a.css);\n'");
}

TEST(StyleText, WithoutASheetItIsEmpty) {
  EXPECT_EQ(in_style(u"a b c"), "''");
  EXPECT_EQ(in_style(u" "), "''");
  EXPECT_EQ(in_style(u""), "");
}

TEST(StyleText, KeepsItsEndBeforeAnEndTag) {
  parse_case how;
  how.path = {tag_id::html, tag_id::head};
  EXPECT_EQ(parse(u"<style type='text/css'>p{}</style>", how).children,
            "style[type=\"text/css\"]('p { \n}\n\n')");
}

TEST(StyleText, CommentMarksMakeAComment) {
  parse_case how;
  how.path = {tag_id::html, tag_id::head};
  EXPECT_EQ(parse(u"<style><!-- p { } --></style>", how).children, "style(#p { }#)");
}

TEST(StyleText, UnknownTagIsPartOfASheetToo) {
  EXPECT_EQ(in_style(u"p{}<foo x>{}"), "'p { \n}\n\n' '<foo  x> { \n}\n\n'");
}

TEST(StyleText, DoubleQuotesHideTags) {
  EXPECT_EQ(in_style(u"a\"b<!--c-->\"{}<!--d-->"), "'a\"b<!--c-->\" { \n}\n\n' #d#");
}

TEST(Text, AnyUnitMayStandInIt) {
  EXPECT_EQ(in_p(ustring(u"a\0\0b", 4)), "'a\\u0000\\u0000b'");
  EXPECT_EQ(in_p(ustring(u"\0 \n", 3)), "'\\u0000 '");
  EXPECT_EQ(in_p(u"\u00E9\xDE00\xD83D\uFFFE>]]>"), "'\\u00E9\\uDE00\\uD83D\\uFFFE>]]>'");
}

TEST(Text, UnitFFFFEndsIt) {
  EXPECT_EQ(in_p(u"a\uFFFFb"), "'a'");
  EXPECT_EQ(in_p(u"a \uFFFF b"), "'a '");
  EXPECT_EQ(in_p(u"a\n\uFFFF\nb"), "'a '");
  EXPECT_EQ(in_p(u" \uFFFF "), "' '");
  EXPECT_EQ(in_p(u"\n\uFFFFa"), "");
  EXPECT_EQ(in_p(u"\"a<\uFFFF\""), "'\"a<'");
  EXPECT_EQ(in_p(u"\uFFFFa"), "");
}

// What isn't white space in the C locale may be so in another.
TEST(Text, WhiteSpaceIsThatOfTheGlobalLocale) {
  EXPECT_EQ(in_p(u"a\u2003\n\u2003b\u2003"), "'a\\u2003 \\u2003b\\u2003'");
  std::locale other;
  try {
    other = std::locale("C.UTF-8");
  } catch (const std::runtime_error&) {
    GTEST_SKIP() << "no such locale";
  }
  const std::locale before = std::locale::global(other);
  const std::string text = in_p(u"a\u2003\n\u2003b\u2003<i\u2003class='c'>");
  std::locale::global(before);
  EXPECT_EQ(text, "'a b' i[class=\"c\"]");
}

TEST(Text, LongOnes) {
  const ustring letters(1'000'000, u'a');
  EXPECT_EQ(in_p(letters), "'" + printable(letters) + "'");
  EXPECT_EQ(in_p(ustring(1'000'000, u' ') + u"a"), "' a'");
  EXPECT_EQ(in_p(u"a" + ustring(1'000'000, u' ')), "'a '");
  EXPECT_EQ(in_p(u"a" + ustring(1'000'000, u'\n') + u"b"), "'a b'");
  EXPECT_EQ(in_p(ustring(1'000'000, u'"') + u"<b>c"),
            "'" + std::string(1'000'000, '"') + "' b('c')");
  EXPECT_EQ(in_p(u"\"" + ustring(1'000'000, u'<')), "'\"" + std::string(1'000'000, '<') + "'");
}

TEST(Text, ManyLines) {
  ustring text;
  std::string folded = "'";
  for (int line = 0; line < 200'000; ++line) {
    text += u"a \t\n  ";
    folded += "a ";
  }
  EXPECT_EQ(in_p(text), folded + "'");
}

TEST(Text, ReadAloneAfterAPrefix) {
  xhtml_element p(tag_id::p, {}, {});
  parser_on<> parser(u" \n a<");
  EXPECT_EQ(shown(parser->read_pcdata(&p, u"x")), "'x a'");
  EXPECT_EQ(parser->line, 2u);
  EXPECT_EQ(parser.rest(), "<");

  parser_on<> end(u"");
  EXPECT_EQ(shown(end->read_pcdata(&p, u"x \t")), "'x '");
  EXPECT_EQ(shown(end->read_pcdata(&p, u" \n ")), "' '");
  EXPECT_EQ(shown(end->read_pcdata(&p, u"\n ")), "null");
  EXPECT_EQ(shown(end->read_pcdata(&p, {})), "null");
}

TEST(Text, ReadAloneWhereThereIsNoneReturnsTheNextNode) {
  xhtml_element p(tag_id::p, {}, {});
  parser_on<> parser(u"<!--a-->\n</p>x");
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "#a#");
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "</p>");
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "'x'");
  EXPECT_EQ(parser->line, 2u);
}

TEST(Text, PrefixIsLostToTheContentOfPre) {
  xhtml_element pre(tag_id::pre, {}, {});
  parser_on<> parser(u" a</pre>");
  EXPECT_EQ(shown(parser->read_pcdata(&pre, u"x")), "' a'");
}

TEST(SkipLeadingSpace, ReportsWhiteSpaceWithoutANewline) {
  const auto skip = [](ustring_view text, const std::string& rest, unsigned line) {
    parser_on<> parser(text);
    const bool skipped = parser->skip_leading_space();
    EXPECT_EQ(parser.rest(), rest);
    EXPECT_EQ(parser->line, line);
    EXPECT_EQ(parser->last_tag, tag_id::doc_root);
    return skipped;
  };
  EXPECT_TRUE(skip(u" a", "a", 1));
  EXPECT_TRUE(skip(u"\t \r\v\fa ", "a ", 1));
  EXPECT_TRUE(skip(u"  ", "", 1));
  EXPECT_FALSE(skip(u"a ", "a ", 1));
  EXPECT_FALSE(skip(u"", "", 1));
  EXPECT_FALSE(skip(u"\n", "", 2));
  EXPECT_FALSE(skip(u" \n \n\n a\n", "a\n", 4));
  EXPECT_FALSE(skip(u"\u00A0 ", "\\u00A0 ", 1));
}

TEST(NormalizeTrailingSpace, BlankOrNewlineFurthestToTheLeftDecides) {
  const auto normalize = [](ustring text) {
    normalize_trailing_space(text, character_classes());
    return printable(text);
  };
  EXPECT_EQ(normalize(u""), "");
  EXPECT_EQ(normalize(u"a"), "a");
  EXPECT_EQ(normalize(u" a"), " a");
  EXPECT_EQ(normalize(u"a b"), "a b");
  EXPECT_EQ(normalize(u" "), " ");
  EXPECT_EQ(normalize(u"\n"), "");
  EXPECT_EQ(normalize(u"\t"), "");
  EXPECT_EQ(normalize(u" \n"), " ");
  EXPECT_EQ(normalize(u"\n "), "");
  EXPECT_EQ(normalize(u"\t \n"), " ");
  EXPECT_EQ(normalize(u"a\r\n "), "a");
  EXPECT_EQ(normalize(u"a\r \n "), "a ");
  EXPECT_EQ(normalize(u"a \r\n\t\n "), "a ");
  EXPECT_EQ(normalize(u"a\t\r\v\f"), "a");
  EXPECT_EQ(normalize(u"\u00A0 "), "\\u00A0 ");
  EXPECT_EQ(normalize(u"a" + ustring(1'000'000, u'\n')), "a");
}

TEST(TrimRight, CutsWhiteSpaceFromTheEnd) {
  const auto trim = [](ustring text) {
    trim_right(text, character_classes());
    return printable(text);
  };
  EXPECT_EQ(trim(u""), "");
  EXPECT_EQ(trim(u" \t\r\n"), "");
  EXPECT_EQ(trim(u" a b \t\r\v\f\n"), " a b");
  EXPECT_EQ(trim(u"a\u00A0"), "a\\u00A0");
}

}  // namespace
}  // namespace test
