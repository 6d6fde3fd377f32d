// The shape of the tree that is read from pages, well-formed and not.

#include <gtest/gtest.h>

#include "tests/parser/parse_kit.h"
#include "xport/markup/leaf_nodes.h"

namespace test {
namespace {

const std::vector<tag_id> body_path = {tag_id::html, tag_id::body};
const std::vector<tag_id> html_path = {tag_id::html};
const std::vector<tag_id> p_path = {tag_id::html, tag_id::body, tag_id::p};

parse_result parse_in(const std::vector<tag_id>& path, ustring_view text) {
  parse_case how;
  how.path = path;
  return parse(text, how);
}

std::string in_html(ustring_view text) { return parse_in(html_path, text).children; }

TEST(TreeBuilding, EndTagClosesElement) {
  const parse_result result = parse_in(parse_case().path, u"<p>a</p>");
  EXPECT_EQ(result.children, "p('a')");
  EXPECT_EQ(result.returned, "");
  EXPECT_EQ(result.rest, "");
}

TEST(TreeBuilding, EmptyTextHasNoChildren) {
  EXPECT_EQ(in_root(u""), "");
  EXPECT_EQ(in_div(u""), "");
}

TEST(TreeBuilding, WhiteSpaceAlone) {
  EXPECT_EQ(in_div(u"  "), "' '");
  EXPECT_EQ(in_div(u" \n "), "");
  EXPECT_EQ(in_body(u"  "), "");
}

TEST(TreeBuilding, NodesOfEachKind) {
  EXPECT_EQ(in_root(u"<?xml version=\"1.0\"?><!DOCTYPE html><html><!-- c --></html>"),
            "?xml version=\"1.0\"? !! html(#c#)");
}

TEST(TreeBuilding, WholePage) {
  EXPECT_EQ(in_root(u"<!DOCTYPE html>\n"
                    u"<html lang='en'>\n"
                    u"  <head>\n    <title>\n      T\n    </title>\n  </head>\n"
                    u"  <body>\n    <p>\n      one<b>two</b> three\n    </p>\n"
                    u"    <pre>x\n    </pre>\n  </body>\n"
                    u"</html>\n"),
            "!! html[lang=\"en\"](head(title('T')) body(p('one' b('two') ' three') pre('x')))");
}

TEST(TreeBuilding, ContentIsAddedAfterWhatIsThere) {
  xhtml_element div(tag_id::div, {}, {});
  div << u"old  ";
  std::basic_istringstream<char16> input(u"</b>new<br>");
  xhtml_parser parser(&input);
  EXPECT_EQ(parser.parse_children(&div), nullptr);
  // Text before an end tag loses its white space, wherever it came from.
  EXPECT_EQ(outline_of_children(div), "'old' 'new' br");
}

TEST(TreeBuilding, InputEndsInOpenElements) {
  EXPECT_EQ(in_div(u"<p>a <b>c"), "p('a ' b('c'))");
  EXPECT_EQ(messages_of(u"<p>a <b>c", 3), "");
}

TEST(TreeBuilding, LastTextIsTrimmedByAnEndTagAlone) {
  EXPECT_EQ(in_div(u"<p>a <b>c  "), "p('a ' b('c '))");
  EXPECT_EQ(in_div(u"<p>a <b>c  </b>"), "p('a ' b('c'))");
  EXPECT_EQ(in_div(u"<p>a <b>c</b>  "), "p('a ' b('c') ' ')");
  EXPECT_EQ(in_div(u"<p>a <b>c</b>  </p>"), "p('a ' b('c') '')");
}

TEST(TreeBuilding, AnyEndTagTrimsTheTextBeforeIt) {
  EXPECT_EQ(in_p(u"a </b>b </foo>c </i>"), "'a' 'b' 'c'");
}

TEST(TreeBuilding, TextBeforeAnElementKeepsItsBlank) {
  EXPECT_EQ(in_p(u"a <br>b <!-- c -->d "), "'a ' br 'b ' #c# 'd '");
}

TEST(TreeBuilding, TextOfAStyleIsNotTrimmed) {
  // The writer of stylesheets ends a rule with a line feed.
  const std::string trimmed_less = in_html(u"<head><style>p { color: red; }</style></head>");
  EXPECT_EQ(trimmed_less, "head(style('p { \n   color: red;\n}\n\n'))");
}

TEST(TreeBuilding, TextIsTrimmedInTheElementThatTheEndTagMeets) {
  // The `b` is closed by the tag of the `i`'s parent; its own last child is the `i`.
  EXPECT_EQ(in_p(u"<b>x <i>y </b> z"), "b('x ' i('y')) ' z'");
}

TEST(TreeBuilding, EmptyElementEndsAtItsStartTag) {
  EXPECT_EQ(in_p(u"a<br>b<br/>c<br />d"), "'a' br 'b' br 'c' br 'd'");
  EXPECT_EQ(in_body(u"<hr><hr/><p>"), "hr hr p");
  EXPECT_EQ(messages_of(u"<br><br/><br />", 3), "");
}

TEST(TreeBuilding, EndTagOfAnEmptyElementIsSkipped) {
  EXPECT_EQ(in_p(u"<br></br>x"), "br 'x'");
  EXPECT_EQ(messages_of(u"<br></br>", 3, p_path),
            message(1, "Expecting end tag </p>.  Encountered </br>\nSkipping </br> tag.\n"));
}

TEST(TreeBuilding, AnyDeclarationIsADoctype) {
  EXPECT_EQ(in_root(u"<!ELEMENT x>"), "!!");
  EXPECT_EQ(in_root(u"<!>a<!DOCTYPE html><!x>"), "!! 'a' !! !!");
}

TEST(TreeBuilding, DoctypeBelowTheRootIsDroppedSilently) {
  EXPECT_EQ(in_div(u"a<!ELEMENT x>b"), "'a' 'b'");
  EXPECT_EQ(messages_of(u"a<!ELEMENT x>b", 15), "");
}

TEST(TreeBuilding, CommentsAndInstructionsStandAnywhere) {
  EXPECT_EQ(in_body(u"<ul><!--a--><li><?b?></li></ul><table><?c?></table>"),
            "ul(#a# li(?b?)) table(?c?)");
}

TEST(TreeBuilding, ParagraphEndsParagraph) {
  EXPECT_EQ(in_body(u"<p>a<p>b"), "p('a') p('b')");
  EXPECT_EQ(messages_of(u"<p>a<p>b", 1, body_path),
            message(1, "Couldn't insert <p> into <p>.\nEnding <p> element.\n"));
}

TEST(TreeBuilding, BlockEndsParagraph) {
  // The text after the div belongs to the body, which accepts none, and so does </p>.
  EXPECT_EQ(in_body(u"<p>a<div>b</div>c</p>"), "p('a') div('b')");
  EXPECT_EQ(messages_of(u"<p>a<div>b</div>c</p>", 3, body_path),
            message(1, "Couldn't insert <div> into <p>.\nEnding <p> element.\n") +
                message(1, "Expecting end tag </body>.  Encountered </p>\nSkipping </p> tag.\n"));
}

TEST(TreeBuilding, ListItemEndsListItem) {
  EXPECT_EQ(in_body(u"<ul><li>a<li>b</ul>"), "ul(li('a') li('b'))");
  EXPECT_EQ(messages_of(u"<ul><li>a<li>b</ul>", 3, body_path),
            message(1, "Couldn't insert <li> into <li>.\nEnding <li> element.\n") +
                message(1, "Expecting end tag </li>.  Encountered </ul>\nEnding <90> element.\n"));
}

TEST(TreeBuilding, NestedListsWithoutEndTagsOfItems) {
  EXPECT_EQ(in_body(u"<ul><li>a<ul><li>b</ul><li>c</ul>"), "ul(li('a' ul(li('b'))) li('c'))");
}

TEST(TreeBuilding, TermsAndDescriptionsEndEachOther) {
  EXPECT_EQ(in_body(u"<dl><dt>a<dd>b<dt>c</dl>"), "dl(dt('a') dd('b') dt('c'))");
}

TEST(TreeBuilding, CellEndsCellAndRowEndsRow) {
  EXPECT_EQ(in_body(u"<table><tr><td>1<td>2<th>3</th></tr><tr></table>"),
            "table(tr(td('1') td('2') th('3')) tr)");
  EXPECT_EQ(in_body(u"<table><tr><tr><td>1</table>"), "table(tr tr(td('1')))");
}

TEST(TreeBuilding, OnlyTheDirectParentIsAsked) {
  // A row in an open cell: the row above it accepts no row, the table would.
  EXPECT_EQ(in_body(u"<table><tr><td>1<tr><td>2</table>"), "table(tr(td('1') td('2')))");
  EXPECT_EQ(messages_of(u"<table><tr><td>1<tr><td>2</table>", 3, body_path),
            message(1, "Couldn't insert <tr> into <td>.\nSkipping <tr> tag.\n") +
                message(1, "Couldn't insert <td> into <td>.\nEnding <td> element.\n") +
                message(1,
                        "Expecting end tag </td>.  Encountered </table>\n"
                        "Skipping </table> tag.\n"));
}

TEST(TreeBuilding, NoElementIsMadeUp) {
  EXPECT_EQ(in_body(u"<table><td>x</td></table>"), "table");
  EXPECT_EQ(messages_of(u"<table><td>x</td></table>", 3, body_path),
            message(1, "Couldn't insert <td> into <table>.\nSkipping <td> tag.\n") +
                message(1,
                        "Expecting end tag </table>.  Encountered </td>\n"
                        "Skipping </td> tag.\n"));
}

TEST(TreeBuilding, RefusedByTheListAndAcceptedByTheBody) {
  EXPECT_EQ(in_body(u"<ul><div>x</div></ul>"), "ul div('x')");
  EXPECT_EQ(messages_of(u"<ul><div>x</div></ul>", 3, body_path),
            message(1, "Couldn't insert <div> into <ul>.\nEnding <ul> element.\n") +
                message(1, "Expecting end tag </body>.  Encountered </ul>\nSkipping </ul> tag.\n"));
}

TEST(TreeBuilding, ContentOfASkippedTagLandsInItsPlace) {
  EXPECT_EQ(in_p(u"a<li>b<i>c</i></li>d"), "'a' 'b' i('c') 'd'");
}

TEST(TreeBuilding, ElementsExcludedByName) {
  // a in a: the p above accepts the second one.
  EXPECT_EQ(in_p(u"<a>x<a>y</a>z"), "a('x') a('y') 'z'");
  EXPECT_EQ(in_body(u"<form><p>a</p><form><p>b</p></form>"), "form(p('a')) form(p('b'))");
  // The exclusion looks one level up alone.
  EXPECT_EQ(in_p(u"<a><b><a>y</a></b></a>"), "a(b(a('y')))");
}

TEST(TreeBuilding, EndTagOfTheParentEndsBoth) {
  EXPECT_EQ(in_p(u"<b><i>x</b>y"), "b(i('x')) 'y'");
  EXPECT_EQ(messages_of(u"<b><i>x</b>y", 3, p_path),
            message(1, "Expecting end tag </i>.  Encountered </b>\nEnding <7> element.\n"));
}

TEST(TreeBuilding, EndTagFromTwoLevelsUpIsSkipped) {
  EXPECT_EQ(in_body(u"<div><b><i>x</div>y"), "div(b(i('x' 'y')))");
  EXPECT_EQ(messages_of(u"<div><b><i>x</div>y", 3, body_path),
            message(1, "Expecting end tag </i>.  Encountered </div>\nSkipping </div> tag.\n"));
}

TEST(TreeBuilding, EndTagFromThreeLevelsUpIsSkipped) {
  EXPECT_EQ(in_body(u"<div><b><i><em>x</div></em></i></b></div><p>"), "div(b(i(em('x')))) p");
}

TEST(TreeBuilding, EndTagOfAnElementOfTheSameNameFurtherUp) {
  // </b> closes the inner b; the i stays open for the next one.
  EXPECT_EQ(in_p(u"<b>1<i>2<b>3</b>4</b>5"), "b('1' i('2' b('3') '4')) '5'");
}

TEST(TreeBuilding, EndTagsOfUnknownElements) {
  EXPECT_EQ(in_p(u"a</foo>b</>c</ p>d</p >e"), "'a' 'b' 'c' 'd' 'e'");
  EXPECT_EQ(messages_of(u"</></p >", 3, p_path),
            message(1, "Expecting end tag </p>.  Encountered </>\nSkipping </> tag.\n") +
                message(1, "Expecting end tag </p>.  Encountered </p >\nSkipping </p > tag.\n"));
}

TEST(TreeBuilding, NamesInAnyCase) {
  EXPECT_EQ(in_body(u"<P>a</p><DIV>b</Div>"), "p('a') div('b')");
  EXPECT_EQ(messages_of(u"<B><I>x</B></LI>", 2, p_path),
            message(1, "Expecting end tag </i>.  Encountered </B>\nEnding <7> element.\n") +
                message(1, "Expecting end tag </p>.  Encountered </LI>\nSkipping </LI> tag.\n"));
}

TEST(TreeBuilding, UnknownElement) {
  EXPECT_EQ(in_div(u"<foo>x</foo>"), "'x'");
  EXPECT_EQ(messages_of(u"<foo>", 3), message(1, "Invalid Tag"));
}

TEST(TreeBuilding, ElementsThatTheRulesLack) {
  // They have a number, but no rules: they are dropped without a message of their own.
  EXPECT_EQ(in_div(u"<center>x</center><font color='red'>y</font>"), "'x' 'y'");
  EXPECT_EQ(messages_of(u"<center>x</center>", 3),
            message(1,
                    "Expecting end tag </div>.  Encountered </center>\n"
                    "Skipping </center> tag.\n"));
}

TEST(TreeBuilding, StartTagWithoutAName) {
  EXPECT_EQ(in_div(u"a<>b<=>c"), "'a' 'b' 'c'");
  EXPECT_EQ(messages_of(u"a<>b<=>c", 15),
            message(1, "invalid tag encountered.\n") + message(1, "invalid tag encountered.\n"));
}

TEST(TreeBuilding, SlashAfterANameThatHasContent) {
  EXPECT_EQ(in_body(u"<div/>x"), "div('x')");
  EXPECT_EQ(messages_of(u"<div/>", 3, body_path), message(1, "Invalid />"));
  EXPECT_EQ(in_body(u"<div />x"), "div('x')");
  EXPECT_EQ(messages_of(u"<div />", 3, body_path), "");
}

TEST(TreeBuilding, TextInTheBodyIsDropped) {
  EXPECT_EQ(in_html(u"<body>hello<p>x</p></body>"), "body(p('x'))");
  EXPECT_EQ(messages_of(u"<body>hello<p>x</p></body>", 3, html_path), "");
}

TEST(TreeBuilding, LineBreakInTheBodyIsSkipped) {
  EXPECT_EQ(in_html(u"<body><br></body>"), "body");
  EXPECT_EQ(messages_of(u"<body><br></body>", 3, html_path),
            message(1, "Couldn't insert <br> into <body>.\nSkipping <br> tag.\n"));
}

TEST(TreeBuilding, WhiteSpaceBetweenBlocks) {
  EXPECT_EQ(in_body(u"<p>a</p> <p>b</p>\n <p>c</p>"), "p('a') p('b') p('c')");
  EXPECT_EQ(in_div(u"<p>a</p> <p>b</p>\n <p>c</p>"), "p('a') ' ' p('b') p('c')");
  EXPECT_EQ(in_body(u"<table> <tr> <td> x </td> </tr> </table>"), "table(tr(td(' x')))");
}

TEST(TreeBuilding, BlankBeforeAnEndTagStaysAsEmptyText) {
  EXPECT_EQ(in_body(u"<div><b>x</b> </div>"), "div(b('x') '')");
  EXPECT_EQ(in_body(u"<p> </p>"), "p('')");
  EXPECT_EQ(in_body(u"<p>\n</p>"), "p");
}

TEST(TreeBuilding, HtmlIsHeldToNoOrderAndNumber) {
  EXPECT_EQ(in_root(u"<html><body></body><head><title>a</title><title>b</title></head>"
                    u"<head></head><body></body></html><html></html>"),
            "html(body head(title('a') title('b')) head body) html");
}

TEST(TreeBuilding, HeadEndsAtNoBodyTag) {
  // The head doesn't accept the body, the html above it does.
  EXPECT_EQ(in_root(u"<html><head><title>t<body><p>x"), "html(head(title('t' 'x')))");
  EXPECT_EQ(in_root(u"<html><head><title>t</title><body><p>x"),
            "html(head(title('t')) body(p('x')))");
}

TEST(TreeBuilding, RefusedElementInTheRoot) {
  EXPECT_EQ(in_root(u"<li>x</li><p>y"), "'x' p('y')");
  EXPECT_EQ(messages_of(u"<li>x</li>", 3, {}),
            message(1, "Couldn't insert <li> into <document root>.\nSkipping <li> tag.\n") +
                message(1,
                        "Expecting end tag </document root>.  Encountered </li>\n"
                        "Skipping </li> tag.\n"));
}

TEST(TreeBuilding, SecondEndOfHtml) {
  EXPECT_EQ(in_root(u"<html></html></html><p>a"), "html p('a')");
  EXPECT_EQ(messages_of(u"<html></html></html>", 3, {}),
            message(1,
                    "Expecting end tag </document root>.  Encountered </html>\n"
                    "Skipping </html> tag.\n"));
}

TEST(TreeBuilding, EndTagOfTheRoot) {
  const parse_result result = parse_in({}, u"<p>a</p></doc root><p>b");
  EXPECT_EQ(result.children, "p('a')");
  EXPECT_EQ(result.returned, "");
  EXPECT_EQ(result.rest, "<p>b");
}

TEST(TreeBuilding, EndTagOfTheRootFromOneLevelDown) {
  const parse_result result = parse_in({}, u"<p>a </Doc Root>b");
  EXPECT_EQ(result.children, "p('a')");
  EXPECT_EQ(result.rest, "b");
  EXPECT_EQ(messages_of(u"<p>a</Doc Root>", 3, {}),
            message(1, "Expecting end tag </p>.  Encountered </Doc Root>\nEnding <0> element.\n"));
}

TEST(TreeBuilding, EndTagOfTheRootFromFurtherDownIsSkipped) {
  const parse_result result = parse_in(html_path, u"<body></doc root><p>b");
  EXPECT_EQ(result.children, "body(p('b'))");
  EXPECT_EQ(result.rest, "");
}

TEST(TreeBuilding, TheNameThatMessagesGiveTheRootIsNoTagName) {
  EXPECT_EQ(in_root(u"a</document root>b"), "'a' 'b'");
}

TEST(TreeBuilding, PreformattedText) {
  EXPECT_EQ(in_div(u"<pre> a\n  <b>c</b></pre>d"), "pre(' a\n  <b>c</b>') 'd'");
  EXPECT_EQ(in_div(u"<pre>a \n</pre>b"), "pre('a') 'b'");
}

TEST(TreeBuilding, PreformattedTextWithoutContent) {
  EXPECT_EQ(in_div(u"<pre></pre>a"), "pre('') 'a'");
  EXPECT_EQ(in_div(u"<pre>"), "pre");
}

TEST(TreeBuilding, PreformattedTextToTheEndOfTheInput) {
  const parse_result result = parse_in(parse_case().path, u"<pre>a </pre ><p>b ");
  EXPECT_EQ(result.children, "pre('a </pre ><p>b')");
  EXPECT_EQ(messages_of(u"<pre>a", 15),
            message(1, "pre encountered.\n") + message(1, "<pre> encountered.\n"));
}

TEST(TreeBuilding, PreformattedTextIsClosedByAMadeUpEndTag) {
  EXPECT_EQ(messages_of(u"<pre>a</PRE>b", 15),
            message(1, "pre encountered.\n") + message(1, "<pre> encountered.\n"));
}

TEST(TreeBuilding, ScriptIsInlineAndHoldsText) {
  EXPECT_EQ(in_html(u"<head><script>if (a < b) c();</script></head>"),
            "head(script('if (a ' '<  b) c();'))");
  EXPECT_EQ(in_body(u"<script>x</script>"), "script('x')");
}

TEST(TreeBuilding, UnknownTagWithAttributesIsText) {
  EXPECT_EQ(in_p(u"<foo bar='1'>x</foo>"), "'<foo  bar='1'>x'");
}

TEST(TreeBuilding, InputEndsAfterTheSign) {
  EXPECT_EQ(in_div(u"a <"), "'a '");
  EXPECT_EQ(messages_of(u"a <", 15), message(1, "Invalid end of document."));
  EXPECT_EQ(in_root(u"<"), "");
}

TEST(TreeBuilding, InputEndsInAComment) {
  EXPECT_EQ(in_div(u"<p>a<!-"), "p('a')");
  EXPECT_EQ(messages_of(u"<p>a<!-", 3), message(1, "Invalid end of document."));
  EXPECT_EQ(in_div(u"<p>a<!--b"), "p('a' #b#)");
  EXPECT_EQ(messages_of(u"<p>a<!--b", 3), "");
}

TEST(TreeBuilding, InputEndsInADeclaration) {
  EXPECT_EQ(in_root(u"<!"), "!!");
  EXPECT_EQ(in_root(u"<!DOCTYPE"), "!!");
  EXPECT_EQ(in_div(u"<!"), "");
  EXPECT_EQ(messages_of(u"<!", 15), "");
}

TEST(TreeBuilding, InputEndsInAnInstruction) {
  EXPECT_EQ(in_div(u"<?"), "??");
  EXPECT_EQ(in_div(u"<?php"), "?php?");
}

TEST(TreeBuilding, InputEndsInAnEndTag) {
  EXPECT_EQ(in_p(u"<b>x </b"), "b('x ')");
  EXPECT_EQ(messages_of(u"<b>x </b", 11, p_path), "");
  EXPECT_EQ(in_p(u"a </"), "'a '");
}

TEST(TreeBuilding, InputEndsInAStartTag) {
  EXPECT_EQ(in_div(u"<p"), "p");
  EXPECT_EQ(in_div(u"<p class='x' id='y"), "p[class=\"x\" id=\"\"]");
  EXPECT_EQ(messages_of(u"<p><p", 15),
            message(1, "p encountered.\n") + message(1, "p encountered.\n") +
                message(1, "Couldn't insert <p> into <p>.\nEnding <p> element.\n") +
                message(1, "p encountered.\n"));
}

TEST(TreeBuilding, NothingIsReadAfterTheHighestUnit) {
  const parse_result result = parse_in(parse_case().path, u"<p>a\uFFFF</p>b");
  EXPECT_EQ(result.children, "p('a')");
  EXPECT_EQ(result.rest, "");
}

}  // namespace
}  // namespace test
