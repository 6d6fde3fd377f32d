#include <cstddef>

#include "tests/report/report_page.h"

namespace test {
namespace {

class Link : public report_test {
 protected:
  // A block with these links, each on a line.
  static ustring links(std::initializer_list<ustring_view> anchors) {
    ustring content;
    for (const ustring_view anchor : anchors) content += u"      " + ustring(anchor) + u"<br/>\n";
    return paragraph(content);
  }
};

TEST_F(Link, TargetAloneIsALineWithTheTargetAsItsText) {
  report.AddLink(nullptr, u"place");
  EXPECT_TRUE(same_units(body(), links({u"<a href='#place'>place</a>"})));
}

TEST_F(Link, TextDoesNotAppearOutsideTables) {
  report.AddLink(u"text", u"place");
  EXPECT_TRUE(same_units(body(), links({u"<a href='#place'>place</a>"})));
}

TEST_F(Link, TextAloneOutsideTablesLeavesAnEmptyAnchor) {
  report.AddLink(u"text", nullptr);
  EXPECT_TRUE(same_units(body(), links({u"<a></a>"})));
}

TEST_F(Link, TextAloneShowsTheTargetOfAnEarlierLink) {
  report.AddLink(nullptr, u"place");
  report.AddLink(u"text", nullptr);
  EXPECT_TRUE(same_units(body(), links({u"<a href='#place'>place</a>", u"<a href='#place'></a>"})));
}

TEST_F(Link, ALaterTargetOverwritesTheEarlierOne) {
  report.AddLink(nullptr, u"one");
  report.AddLink(nullptr, u"two");
  EXPECT_TRUE(same_units(body(), links({u"<a href='#one'>one</a>", u"<a href='#two'>two</a>"})));
}

TEST_F(Link, NothingAtAllEmptiesThePreparedLinkAndAddsNothing) {
  report.AddLink(u"text", u"place");
  report.AddLink(nullptr, nullptr);
  report.AddText(nullptr, false);
  report.OpenTable(2);
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), links({u"<a href='#place'>place</a>", u"<a href='#place'></a>"}) +
                                     lines({u"    <table border='1' class='main' width='100%'>",
                                            u"      <tr>", u"        <td valign='top'>",
                                            u"        </td>", u"      </tr>", u"    </table>"})));
}

TEST_F(Link, NothingAtAllOnAFreshReportMakesNoBlock) {
  report.AddLink(nullptr, nullptr);
  EXPECT_TRUE(same_units(body(), u""));
}

TEST_F(Link, NullTextRepeatsThePreparedAnchor) {
  report.AddLink(nullptr, u"place");
  report.AddText(nullptr, false);
  EXPECT_TRUE(
      same_units(body(), links({u"<a href='#place'>place</a>", u"<a href='#place'>place</a>"})));
}

TEST_F(Link, NullTextBeforeAnyLinkIsAnEmptyAnchor) {
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), links({u"<a></a>"})));
}

TEST_F(Link, EmptyTargetIsALinkToTheNumberSign) {
  report.AddLink(nullptr, u"");
  EXPECT_TRUE(same_units(body(), links({u"<a href='#'></a>"})));
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
  EXPECT_TRUE(same_units(
      body(), block() +
                  table({{u"text <a href='#place'>place</a>", u"<a href='#other'>other</a>"},
                         {u"text", u"<a href='#'></a>"},
                         {u"<a href='#'></a>"}}) +
                  block()));
}

TEST_F(Link, ACellOfASpanGetsItsRowspan) {
  report.NewParagraph();
  report.OpenTable(2);
  report.SetFirstCellRows(2);
  report.AddLink(u"", u"g");
  report.AddText(u"1", false);
  EXPECT_TRUE(same_units(body(), block() + table({{{u"<a href='#g'>g</a>", u"2"}, u"1"}})));
}

// Only a line feed in the text of a cell becomes a break, not one in a link.
TEST_F(Link, LineFeedsInLinksAreNotTurnedIntoBreaks) {
  report.NewParagraph();
  report.OpenTable(2);
  report.AddLink(u"a\nb", u"c\nd");
  EXPECT_TRUE(same_units(
      body(), block() + lines({u"    <table border='1' class='main' width='100%'>", u"      <tr>",
                               u"        <td valign='top'>", u"          a",
                               u"          b<a href='#c", u"d'>c", u"          d</a>",
                               u"        </td>", u"      </tr>", u"    </table>"})));
}

TEST_F(Link, SectionModeDropsLinksButKeepsThemPrepared) {
  report.SetSectionMode(true);
  report.AddLink(u"text", u"place");
  report.SetSectionMode(false);
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), links({u"<a href='#place'>place</a>"})));
}

TEST_F(Link, DirectLinksKeepLinksOnThePageInSectionMode) {
  report.SetSectionMode(true);
  report.BeginDirectLinks();
  report.AddLink(u"text", u"place");
  EXPECT_TRUE(same_units(body(), links({u"<a href='#place'>place</a>"})));
}

TEST_F(Link, TargetOf253UnitsIsTheLongest) {
  const ustring target(253, u't');
  report.AddLink(nullptr, target.c_str());
  EXPECT_TRUE(same_units(body(), links({u"<a href='#" + target + u"'>" + target + u"</a>"})));
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
  EXPECT_TRUE(same_units(body(), links({u"<a href='#kept'>kept</a>", u"<a href='#kept'>kept</a>"}) +
                                     table(u"kept<a href='#kept'>kept</a>")));
}

}  // namespace
}  // namespace test
