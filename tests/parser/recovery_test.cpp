// Every recovery with every set of levels: the tree is the same, and only the messages
// of the requested levels are written.

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "tests/parser/parse_kit.h"

namespace test {
namespace {

constexpr std::uint32_t structure = 1;
constexpr std::uint32_t end_tags = 2;
constexpr std::uint32_t trace_elements = 4;
constexpr std::uint32_t trace_end_tags = 8;

struct report {
  std::uint32_t level;
  std::string text;
};

struct recovery {
  std::string name;
  std::vector<tag_id> path;
  const char16_t* text;
  std::string children;
  std::vector<report> reports;  // all in line 1

  friend void PrintTo(const recovery& r, std::ostream* out) { *out << r.name; }
};

report element(const std::string& name) { return {trace_elements, name + " encountered.\n"}; }

report end_tag(const std::string& source) { return {trace_end_tags, source + " encountered.\n"}; }

const std::vector<tag_id> in_root;
const std::vector<tag_id> in_body = {tag_id::html, tag_id::body};
const std::vector<tag_id> in_div = {tag_id::html, tag_id::body, tag_id::div};
const std::vector<tag_id> in_p = {tag_id::html, tag_id::body, tag_id::p};

const recovery recoveries[] = {
    {"RefusedAndTakenAbove",
     in_body,
     u"<p>a<p>b",
     "p('a') p('b')",
     {element("p"),
      element("p"),
      {structure, "Couldn't insert <p> into <p>.\nEnding <p> element.\n"},
      element("p")}},
    {"RefusedTwiceAndTakenAbove",
     in_body,
     u"<ul><div>x</div></ul>",
     "ul div('x')",
     {element("ul"),
      element("div"),
      {structure, "Couldn't insert <div> into <ul>.\nEnding <ul> element.\n"},
      element("div"),
      end_tag("</div>"),
      end_tag("</ul>"),
      {end_tags, "Expecting end tag </body>.  Encountered </ul>\nSkipping </ul> tag.\n"}}},
    {"RefusedAboveAsWell",
     in_body,
     u"<p><li>x</p>",
     "p('x')",
     {element("p"),
      element("li"),
      {structure, "Couldn't insert <li> into <p>.\nSkipping <li> tag.\n"},
      end_tag("</p>")}},
    {"RefusedWhereNothingIsAbove",
     in_root,
     u"<td>x",
     "'x'",
     {element("td"),
      {structure, "Couldn't insert <td> into <document root>.\nSkipping <td> tag.\n"}}},
    {"RefusedEmptyElementTakenAbove",
     in_div,
     u"<ul><br>x",
     "ul br 'x'",
     {element("ul"),
      element("br"),
      {structure, "Couldn't insert <br> into <ul>.\nEnding <ul> element.\n"},
      element("br")}},
    {"RefusedText", in_body, u"<ul>x</ul>", "ul", {element("ul"), end_tag("</ul>")}},
    {"RefusedDoctype", in_div, u"<!DOCTYPE html>", "", {}},
    {"UnknownElement",
     in_div,
     u"<foo>x</foo>",
     "'x'",
     {{structure, "Invalid Tag"},
      element("invalid tag"),
      end_tag("</foo>"),
      {end_tags, "Expecting end tag </div>.  Encountered </foo>\nSkipping </foo> tag.\n"}}},
    {"ElementWithoutRules",
     in_div,
     u"<center>x</center>",
     "'x'",
     {element(""),
      end_tag("</center>"),
      {end_tags, "Expecting end tag </div>.  Encountered </center>\nSkipping </center> tag.\n"}}},
    // Of the rows without rules some count as void, others don't.
    {"ElementsWithoutRulesAndSlashes",
     in_div,
     u"<center/><basefont/>",
     "",
     {{structure, "Invalid />"}, element(""), element("")}},
    {"SlashBehindAName",
     in_body,
     u"<div/>x</div><hr/>",
     "div('x') hr",
     {{structure, "Invalid />"}, element("div"), end_tag("</div>"), element("hr")}},
    {"EndTagOfTheParent",
     in_p,
     u"<b><i>x</b>y",
     "b(i('x')) 'y'",
     {element("b"),
      element("i"),
      end_tag("</b>"),
      {end_tags, "Expecting end tag </i>.  Encountered </b>\nEnding <7> element.\n"},
      end_tag("</b>")}},
    {"EndTagOfTheParentsParent",
     in_body,
     u"<div><b><i>x</div>",
     "div(b(i('x')))",
     {element("div"),
      element("b"),
      element("i"),
      end_tag("</div>"),
      {end_tags, "Expecting end tag </i>.  Encountered </div>\nSkipping </div> tag.\n"}}},
    {"EndTagOfNoOpenElement",
     in_p,
     u"<b>x</i></b>",
     "b('x')",
     {element("b"),
      end_tag("</i>"),
      {end_tags, "Expecting end tag </b>.  Encountered </i>\nSkipping </i> tag.\n"},
      end_tag("</b>")}},
    {"EndTagWhereNothingIsAbove",
     in_root,
     u"x</html>",
     "'x'",
     {end_tag("</html>"),
      {end_tags,
       "Expecting end tag </document root>.  Encountered </html>\nSkipping </html> tag.\n"}}},
    {"EndTagOfTheRootFromBelow",
     in_root,
     u"<p>x</doc root>",
     "p('x')",
     {element("p"),
      end_tag("</doc root>"),
      {end_tags, "Expecting end tag </p>.  Encountered </doc root>\nEnding <0> element.\n"},
      end_tag("</doc root>")}},
    {"MadeUpEndTag", in_div, u"<pre>a</pre>", "pre('a')", {element("pre"), end_tag("<pre>")}},
    {"NoRowIsMadeUp",
     in_body,
     u"<table><td>x</td></table>",
     "table",
     {element("table"),
      element("td"),
      {structure, "Couldn't insert <td> into <table>.\nSkipping <td> tag.\n"},
      end_tag("</td>"),
      {end_tags, "Expecting end tag </table>.  Encountered </td>\nSkipping </td> tag.\n"},
      end_tag("</table>")}},
    {"EndOfTheInputBehindTheSign", in_p, u"a<", "'a'", {{structure, "Invalid end of document."}}},
    {"EndOfTheInputInAComment", in_p, u"a<!-", "'a'", {{structure, "Invalid end of document."}}},
    {"EndOfTheInputInAnEndTag", in_p, u"<b>a</b", "b('a')", {element("b")}},
    // A leftover is handled again at each level that it reaches.
    {"LeftoverThatEndsTwoElements",
     in_body,
     u"<dl><dd>a<dt>b</dl>",
     "dl(dd('a') dt('b'))",
     {element("dl"),
      element("dd"),
      element("dt"),
      {structure, "Couldn't insert <dt> into <dd>.\nEnding <dd> element.\n"},
      element("dt"),
      end_tag("</dl>"),
      {end_tags, "Expecting end tag </dt>.  Encountered </dl>\nEnding <27> element.\n"},
      end_tag("</dl>")}},
    // The tr refuses the i, and so does the table.
    {"RecoveriesOneBehindTheOther",
     in_body,
     u"<table><tr><i>x<td>y</i></tr></table>",
     "table(tr(td('y')))",
     {element("table"),
      element("tr"),
      element("i"),
      {structure, "Couldn't insert <i> into <tr>.\nSkipping <i> tag.\n"},
      element("td"),
      end_tag("</i>"),
      {end_tags, "Expecting end tag </td>.  Encountered </i>\nSkipping </i> tag.\n"},
      end_tag("</tr>"),
      {end_tags, "Expecting end tag </td>.  Encountered </tr>\nEnding <87> element.\n"},
      end_tag("</tr>"),
      end_tag("</table>")}},
};

class Recovery : public ::testing::TestWithParam<recovery> {};

TEST_P(Recovery, ReportsTheRequestedLevels) {
  for (std::uint32_t mask = 0; mask != 16; ++mask) {
    parse_case how;
    how.path = GetParam().path;
    how.message_mask = mask;
    std::string messages;
    for (const report& r : GetParam().reports)
      if ((r.level & mask) != 0) messages += message(1, r.text);
    const parse_result result = parse(GetParam().text, how);
    EXPECT_EQ(result.children, GetParam().children) << mask;
    EXPECT_EQ(result.messages, messages) << mask;
    EXPECT_EQ(result.returned, "") << mask;
  }
}

INSTANTIATE_TEST_SUITE_P(Levels, Recovery, ::testing::ValuesIn(recoveries),
                         [](const auto& tested) { return tested.param.name; });

TEST(RecoveryLine, EachElementAndEndTagOfAPageUnderItsLine) {
  EXPECT_EQ(messages_of(u"<html>\n<head>\n<title>T</title></head>\n<body>\n<p>a<br/>\nb</p>\n"
                        u"</body>\n</html>\n",
                        12, {}),
            message(1, "html encountered.\n") + message(2, "head encountered.\n") +
                message(3, "title encountered.\n") + message(3, "</title> encountered.\n") +
                message(3, "</head> encountered.\n") + message(4, "body encountered.\n") +
                message(5, "p encountered.\n") + message(5, "br encountered.\n") +
                message(6, "</p> encountered.\n") + message(7, "</body> encountered.\n") +
                message(8, "</html> encountered.\n"));
}

// The line is that after the construct that is reported.
TEST(RecoveryLine, AfterTheStartTag) {
  EXPECT_EQ(messages_of(u"a\n\n<li\nclass='x'\n>", 1),
            message(5, "Couldn't insert <li> into <div>.\nSkipping <li> tag.\n"));
}

TEST(RecoveryLine, NewlineAfterTheSignCountsTwice) {
  EXPECT_EQ(messages_of(u"<\n></foo>", 2),
            message(3, "Expecting end tag </div>.  Encountered </foo>\nSkipping </foo> tag.\n"));
}

TEST(RecoveryLine, NewlinesInEndTagsDoNotCount) {
  EXPECT_EQ(
      messages_of(u"</p\n></p\n>", 2),
      message(1, "Expecting end tag </div>.  Encountered </p\n>\nSkipping </p\n> tag.\n") +
          message(1, "Expecting end tag </div>.  Encountered </p\n>\nSkipping </p\n> tag.\n"));
}

TEST(RecoveryLine, NewlinesInPreformattedTextDoNotCount) {
  EXPECT_EQ(messages_of(u"\n<pre>\n\n</pre>\n<li>", 9),
            message(2, "<pre> encountered.\n") +
                message(3, "Couldn't insert <li> into <div>.\nSkipping <li> tag.\n"));
}

TEST(RecoveryLine, EndTagFromTheLevelAboveIsReportedInOneLine) {
  EXPECT_EQ(messages_of(u"\n<b>\n<i>\nx</b>\n", 10),
            message(4, "</b> encountered.\n") +
                message(4, "Expecting end tag </i>.  Encountered </b>\nEnding <7> element.\n") +
                message(4, "</b> encountered.\n"));
}

}  // namespace
}  // namespace test
