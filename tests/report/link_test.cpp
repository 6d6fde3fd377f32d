#include <cstddef>

#include "tests/report/report_page.h"

namespace report_test {

namespace {

class Link : public report_test {
 protected:
  // The page's body if all that happened was one line with `content` in a block.
  static ustring one_line(const ustring& content) {
    return lines({u"    <p>", u"      " + content, u"    </p>"});
  }
};

TEST_F(Link, TargetAloneIsALineWithTheTargetAsItsText) {
  report.AddLink(nullptr, u"place");
  EXPECT_TRUE(same_units(body(), one_line(u"<a href='#place'>place</a><br/>")));
}

TEST_F(Link, TextDoesNotAppearOutsideTables) {
  report.AddLink(u"text", u"place");
  EXPECT_TRUE(same_units(body(), one_line(u"<a href='#place'>place</a><br/>")));
}

TEST_F(Link, TextAloneOutsideTablesLeavesAnEmptyAnchor) {
  report.AddLink(u"text", nullptr);
  EXPECT_TRUE(same_units(body(), one_line(u"<a></a><br/>")));
}

TEST_F(Link, TextAloneShowsTheTargetOfAnEarlierLink) {
  report.AddLink(nullptr, u"place");
  report.AddLink(u"text", nullptr);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a href='#place'>place</a><br/>",
                                     u"      <a href='#place'></a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Link, ALaterTargetOverwritesTheEarlierOne) {
  report.AddLink(nullptr, u"one");
  report.AddLink(nullptr, u"two");
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a href='#one'>one</a><br/>",
                                     u"      <a href='#two'>two</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Link, NothingAtAllEmptiesThePreparedLinkAndAddsNothing) {
  report.AddLink(u"text", u"place");
  report.AddLink(nullptr, nullptr);
  report.AddText(nullptr, false);
  report.OpenTable(2);
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a href='#place'>place</a><br/>",
                                     u"      <a href='#place'></a><br/>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                 })));
}

TEST_F(Link, NothingAtAllOnAFreshReportMakesNoBlock) {
  report.AddLink(nullptr, nullptr);
  EXPECT_TRUE(same_units(body(), u""));
}

TEST_F(Link, NullTextRepeatsThePreparedAnchor) {
  report.AddLink(nullptr, u"place");
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a href='#place'>place</a><br/>",
                                     u"      <a href='#place'>place</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Link, NullTextBeforeAnyLinkIsAnEmptyAnchor) {
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), one_line(u"<a></a><br/>")));
}

TEST_F(Link, EmptyTargetIsALinkToTheNumberSign) {
  report.AddLink(nullptr, u"");
  EXPECT_TRUE(same_units(body(), one_line(u"<a href='#'></a><br/>")));
}

TEST_F(Link, ACellHoldsTextAndAnchor) {
  report.NewParagraph();
  report.OpenTable(2);
  report.AddLink(u"text ", u"place");
  report.AddLink(nullptr, u"other");
  report.AddLink(u"text", nullptr);
  report.AddLink(u"", u"");
  report.AddText(nullptr, false);
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          text <a href='#place'>place</a>",
                                     u"        </td>",
                                     u"        <td valign='top'>",
                                     u"          <a href='#other'>other</a>",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          text",
                                     u"        </td>",
                                     u"        <td valign='top'>",
                                     u"          <a href='#'></a>",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          <a href='#'></a>",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                     u"    <p>",
                                     u"    </p>",
                                 })));
}

TEST_F(Link, ACellOfASpanGetsItsRowspan) {
  report.NewParagraph();
  report.OpenTable(2);
  report.SetFirstCellRows(2);
  report.AddLink(u"", u"g");
  report.AddText(u"1", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td rowspan='2' valign='top'>",
                                     u"          <a href='#g'>g</a>",
                                     u"        </td>",
                                     u"        <td valign='top'>",
                                     u"          1",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                 })));
}

// A line feed breaks a cell's text, and a link's texts are not that.
TEST_F(Link, LineFeedsInLinksAreNotTurnedIntoBreaks) {
  report.NewParagraph();
  report.OpenTable(2);
  report.AddLink(u"a\nb", u"c\nd");
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          a",
                                     u"          b<a href='#c",
                                     u"d'>c",
                                     u"          d</a>",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                 })));
}

TEST_F(Link, SectionModeDropsLinksButKeepsThemPrepared) {
  report.SetSectionMode(true);
  report.AddLink(u"text", u"place");
  report.SetSectionMode(false);
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), one_line(u"<a href='#place'>place</a><br/>")));
}

TEST_F(Link, DirectLinksKeepLinksOnThePageInSectionMode) {
  report.SetSectionMode(true);
  report.BeginDirectLinks();
  report.AddLink(u"text", u"place");
  EXPECT_TRUE(same_units(body(), one_line(u"<a href='#place'>place</a><br/>")));
}

TEST_F(Link, TargetOf253UnitsIsTheLongest) {
  const ustring target(253, u't');
  report.AddLink(nullptr, target.c_str());
  EXPECT_TRUE(same_units(body(), one_line(u"<a href='#" + target + u"'>" + target + u"</a><br/>")));
}

TEST_F(Link, LongerTargetsChangeNothing) {
  report.AddLink(u"kept", u"kept");
  for (const std::size_t length : {254u, 255u, 256u, 65536u, 100000u}) {
    const ustring target(length, u't');
    report.AddLink(u"lost", target.c_str());
    report.AddLink(nullptr, target.c_str());
  }
  report.AddText(nullptr, false);
  report.OpenTable(2);
  report.AddLink(u"lost", ustring(254, u't').c_str());
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a href='#kept'>kept</a><br/>",
                                     u"      <a href='#kept'>kept</a><br/>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          kept<a href='#kept'>kept</a>",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                 })));
}

}  // namespace

}  // namespace report_test
