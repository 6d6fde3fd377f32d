#include <cstdint>
#include <limits>

#include "tests/report/report_page.h"

namespace report_test {

namespace {

class Page : public report_test {};

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();

TEST_F(Page, SaveAloneGivesTitleStylesheetAndOneEmptyBlock) {
  EXPECT_TRUE(same_units(saved_page(), page_head() + empty_block() + page_tail()));
}

TEST_F(Page, StylesAreSixRulesInTheirOrder) {
  const ustring page = saved_page();
  std::size_t from = 0;
  for (const ustring_view selector :
       {u".Style1 {", u".Style2 {", u".Style3 {", u".Style4 {", u"table.main {", u".main td {"}) {
    const std::size_t at = page.find(selector, from);
    ASSERT_NE(at, ustring::npos) << test::printable(selector);
    from = at + selector.size();
  }
  EXPECT_EQ(std::count(page.begin(), page.end(), u'{'), 6);
  EXPECT_EQ(std::count(page.begin(), page.end(), u'}'), 6);
  EXPECT_LT(from, page.find(u"</head>"));
  EXPECT_EQ(page.find(u"h5"), ustring::npos);
}

TEST_F(Page, HeadingsOneToFourHaveTheirClassAndLeaveABlock) {
  report.AddHeading(u"one", 1);
  report.AddHeading(u"two", 2);
  report.AddHeading(u"three", 3);
  report.AddHeading(u"four", 4);
  EXPECT_TRUE(same_units(
      body(), lines({
                  u"    <h1 class='Style1'>", u"      one",   u"    </h1>", u"    <p>", u"    </p>",
                  u"    <h2 class='Style2'>", u"      two",   u"    </h2>", u"    <p>", u"    </p>",
                  u"    <h3 class='Style3'>", u"      three", u"    </h3>", u"    <p>", u"    </p>",
                  u"    <h4 class='Style4'>", u"      four",  u"    </h4>", u"    <p>", u"    </p>",
              })));
}

TEST_F(Page, HeadingStyleBelowOneIsH5WithAnEmptyClass) {
  for (const std::int32_t style : {0, -1, smallest}) {
    VellomarkObj one(files, browser);
    one.AddHeading(u"low", style);
    ASSERT_TRUE(one.Save(u"/out", u"low.htm"));
    EXPECT_TRUE(same_units(files.units(u"/out/Vellomark/low.htm"),
                           u"\uFEFF" + page_head() +
                               lines({u"    <h5 class=''>", u"      low", u"    </h5>"}) +
                               empty_block() + empty_block() + page_tail()))
        << style;
  }
}

TEST_F(Page, HeadingStyleFiveAndAboveIsPlainText) {
  report.AddHeading(u"five", 5);
  report.AddHeading(u"six", 6);
  report.AddHeading(u"many", largest);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>five</a><br/>",
                                     u"      <a>six</a><br/>",
                                     u"      <a>many</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Page, HeadingOfStyleFiveWithATableOpenIsACell) {
  report.OpenTable(2);
  report.AddHeading(u"cell", 5);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          cell",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                     u"    <p>",
                                     u"    </p>",
                                 })));
}

TEST_F(Page, HeadingWithATableOpenLandsBehindItAndTheTableGoesOn) {
  report.OpenTable(2);
  report.AddText(u"a", false);
  report.AddHeading(u"title", 2);
  report.AddText(u"b", false);
  report.AddText(u"c", false);
  report.CloseTable();
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          a",
                                     u"        </td>",
                                     u"        <td valign='top'>",
                                     u"          b",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          c",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <h2 class='Style2'>",
                                     u"      title",
                                     u"    </h2>",
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <p>",
                                     u"      <a>after</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Page, HeadingIgnoresSectionMode) {
  report.SetSectionMode(true);
  report.AddHeading(u"title", 1);
  EXPECT_TRUE(same_units(
      body(), lines({u"    <h1 class='Style1'>", u"      title", u"    </h1>"}) + empty_block()));
}

TEST_F(Page, FirstTextMakesTheFirstBlock) {
  report.AddText(u"first", false);
  report.AddText(u"second", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>first</a><br/>",
                                     u"      <a>second</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Page, TextBehindAHeadingGoesIntoItsBlock) {
  report.AddHeading(u"title", 1);
  report.AddText(u"line", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <h1 class='Style1'>",
                                     u"      title",
                                     u"    </h1>",
                                     u"    <p>",
                                     u"      <a>line</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Page, NewParagraphsStayEvenIfEmpty) {
  report.NewParagraph();
  report.NewParagraph();
  report.AddText(u"line", false);
  report.NewParagraph();
  EXPECT_TRUE(same_units(body(), empty_block() +
                                     lines({
                                         u"    <p>",
                                         u"      <a>line</a><br/>",
                                         u"    </p>",
                                     }) +
                                     empty_block()));
}

TEST_F(Page, NewParagraphWithATableOpenLeavesTheTableOpen) {
  report.OpenTable(3);
  report.NewParagraph();
  report.AddText(u"cell", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          cell",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                     u"    <p>",
                                     u"    </p>",
                                 })));
}

// Where AddText puts a text. Without a section a text for one goes nowhere.
TEST_F(Page, TextTakesItsPathByModeDirectLinksAndTarget) {
  struct row {
    bool section_mode;
    bool direct_links;
    bool to_section;
    bool on_page;
  };
  for (const row& path :
       {row{true, false, false, false}, row{true, false, true, false}, row{true, true, true, false},
        row{true, true, false, true}, row{false, false, true, false}, row{false, true, true, false},
        row{false, false, false, true}, row{false, true, false, true}}) {
    VellomarkObj one(files, browser);
    one.SetSectionMode(path.section_mode);
    if (path.direct_links) one.BeginDirectLinks();
    one.AddText(u"text", path.to_section);
    ASSERT_TRUE(one.Save(u"/out", u"path.htm"));
    const ustring page = files.units(u"/out/Vellomark/path.htm");
    EXPECT_EQ(page.find(u"<a>text</a><br/>") != ustring::npos, path.on_page)
        << path.section_mode << path.direct_links << path.to_section;
    EXPECT_EQ(page.find(u"text</a>") != ustring::npos, path.on_page);
  }
}

TEST_F(Page, DirectLinksIsOneFlag) {
  report.SetSectionMode(true);
  report.EndDirectLinks();
  report.EndDirectLinks();
  report.AddText(u"lost", false);
  report.BeginDirectLinks();
  report.BeginDirectLinks();
  report.AddText(u"kept", false);
  report.EndDirectLinks();
  report.AddText(u"lost too", false);
  report.BeginDirectLinks();
  report.AddText(u"kept too", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>kept</a><br/>",
                                     u"      <a>kept too</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Page, LineFeedsOutsideCellsStayAndAreIndentedByTheLayout) {
  report.AddText(u"a\nb\r\nc", false);
  report.AddHeading(u"h\ni", 3);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>a",
                                     u"      b\r",
                                     u"      c</a><br/>",
                                     u"    </p>",
                                     u"    <h3 class='Style3'>",
                                     u"      h",
                                     u"      i",
                                     u"    </h3>",
                                     u"    <p>",
                                     u"    </p>",
                                 })));
}

}  // namespace

}  // namespace report_test
