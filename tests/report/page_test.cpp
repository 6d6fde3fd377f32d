#include <cstdint>
#include <limits>

#include "tests/report/report_page.h"

namespace test {
namespace {

class Page : public report_test {};

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();

TEST_F(Page, SaveAloneWritesTitleStylesheetAndOneEmptyBlock) {
  EXPECT_TRUE(same_units(saved_page(), page_head() + block() + page_tail()));
}

TEST_F(Page, StylesAreSixRulesInTheirOrder) {
  const ustring page = saved_page();
  std::size_t from = 0;
  for (const ustring_view selector :
       {u".Style1 {", u".Style2 {", u".Style3 {", u".Style4 {", u"table.main {", u".main td {"}) {
    const std::size_t at = page.find(selector, from);
    ASSERT_NE(at, ustring::npos) << printable(selector);
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
  EXPECT_TRUE(same_units(body(), heading(u'1', u"one") + heading(u'2', u"two") +
                                     heading(u'3', u"three") + heading(u'4', u"four")));
}

TEST_F(Page, HeadingStyleBelowOneIsH5WithAnEmptyClass) {
  for (const std::int32_t style : {0, -1, smallest}) {
    VellomarkObj one(files, browser);
    one.AddHeading(u"low", style);
    ASSERT_TRUE(one.Save(u"/out", u"low.htm"));
    EXPECT_TRUE(same_units(files.units(u"/out/Vellomark/low.htm"),
                           u"\uFEFF" + page_head() +
                               lines({u"    <h5 class=''>", u"      low", u"    </h5>"}) + block() +
                               block() + page_tail()))
        << style;
  }
}

TEST_F(Page, HeadingStyleFiveAndAboveIsPlainText) {
  report.AddHeading(u"five", 5);
  report.AddHeading(u"six", 6);
  report.AddHeading(u"many", largest);
  EXPECT_TRUE(same_units(body(), block({u"five", u"six", u"many"})));
}

TEST_F(Page, HeadingOfStyleFiveWithATableOpenIsACell) {
  report.OpenTable(2);
  report.AddHeading(u"cell", 5);
  EXPECT_TRUE(same_units(body(), table(u"cell") + block()));
}

TEST_F(Page, HeadingWithATableOpenLandsAfterItAndTheTableContinues) {
  report.OpenTable(2);
  report.AddText(u"a", false);
  report.AddHeading(u"title", 2);
  report.AddText(u"b", false);
  report.AddText(u"c", false);
  report.CloseTable();
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), table({{u"a", u"b"}, {u"c"}}) + block() + heading(u'2', u"title") +
                                     block({u"after"})));
}

TEST_F(Page, HeadingIgnoresSectionMode) {
  report.SetSectionMode(true);
  report.AddHeading(u"title", 1);
  EXPECT_TRUE(same_units(body(), title(u'1', u"title") + block()));
}

TEST_F(Page, FirstTextMakesTheFirstBlock) {
  report.AddText(u"first", false);
  report.AddText(u"second", false);
  EXPECT_TRUE(same_units(body(), block({u"first", u"second"})));
}

TEST_F(Page, TextAfterAHeadingIsAddedToItsBlock) {
  report.AddHeading(u"title", 1);
  report.AddText(u"line", false);
  EXPECT_TRUE(same_units(body(), title(u'1', u"title") + block({u"line"})));
}

TEST_F(Page, NewParagraphsStayEvenIfEmpty) {
  report.NewParagraph();
  report.NewParagraph();
  report.AddText(u"line", false);
  report.NewParagraph();
  EXPECT_TRUE(same_units(body(), block() + block({u"line"}) + block()));
}

TEST_F(Page, NewParagraphWithATableOpenLeavesTheTableOpen) {
  report.OpenTable(3);
  report.NewParagraph();
  report.AddText(u"cell", false);
  EXPECT_TRUE(same_units(body(), table(u"cell") + block()));
}

// Where AddText puts a text. Without a section a text for one is dropped.
TEST_F(Page, ModeDirectLinksAndTargetDecideWhereTextIsAdded) {
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
  EXPECT_TRUE(same_units(body(), block({u"kept", u"kept too"})));
}

TEST_F(Page, LineFeedsOutsideCellsStayAndAreIndentedByTheLayout) {
  report.AddText(u"a\nb\r\nc", false);
  report.AddHeading(u"h\ni", 3);
  EXPECT_TRUE(same_units(
      body(), paragraph(lines({u"      <a>a", u"      b\r", u"      c</a><br/>"})) +
                  lines({u"    <h3 class='Style3'>", u"      h", u"      i", u"    </h3>"}) +
                  block()));
}

}  // namespace
}  // namespace test
