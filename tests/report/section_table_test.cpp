#include <initializer_list>
#include <stdexcept>
#include <string>

#include "tests/report/page_tables.h"
#include "tests/report/report_page.h"

namespace report_test {

namespace {

// Tables in section mode as far as they can be seen without a section: by what
// they leave of the page's table.
class SectionTable : public report_test {
 protected:
  void cells(std::initializer_list<const char16_t*> texts) {
    for (const char16_t* const text : texts) report.AddText(text, false);
  }

  // What CloseTable raised, empty if nothing.
  std::string raised_by_close() {
    try {
      report.CloseTable();
    } catch (const std::out_of_range& error) {
      return error.what();
    }
    return {};
  }
};

TEST_F(SectionTable, ClosingWithAnEmptyStackRaisesAndChangesNothing) {
  report.OpenTable(3);
  report.SetFirstCellRows(2);
  cells({u"g", u"1"});
  report.SetSectionMode(true);
  EXPECT_EQ(raised_by_close(), "invalid vector subscript");
  EXPECT_EQ(raised_by_close(), "invalid vector subscript");
  report.SetSectionMode(false);
  cells({u"2", u"3", u"next"});
  EXPECT_EQ(tables_of(body()),
            (page_tables{{{{u"g", u"2"}, {u"1"}}, {{u"2"}}, {{u"3"}}, {{u"next"}}}}));
}

TEST_F(SectionTable, OpeningAnswersTrueAndLeavesThePageAlone) {
  report.SetSectionMode(true);
  EXPECT_TRUE(report.OpenTable(2));
  cells({u"a", u"b"});
  EXPECT_EQ(raised_by_close(), "");
  EXPECT_EQ(raised_by_close(), "invalid vector subscript");
  EXPECT_TRUE(same_units(body(), u""));
}

TEST_F(SectionTable, EveryOpeningNeedsAClosing) {
  report.SetSectionMode(true);
  for (int depth = 0; depth < 100; ++depth) EXPECT_TRUE(report.OpenTable(depth));
  for (int depth = 0; depth < 100; ++depth) EXPECT_EQ(raised_by_close(), "");
  EXPECT_EQ(raised_by_close(), "invalid vector subscript");
}

TEST_F(SectionTable, ClosingBringsThePagesTableBack) {
  report.OpenTable(3);
  report.SetFirstCellRows(3);
  cells({u"g", u"1"});
  report.SetSectionMode(true);
  report.OpenTable(5);
  report.SetFirstCellRows(4);
  cells({u"x", u"y", u"z"});
  report.CloseTable();
  report.SetSectionMode(false);
  cells({u"2", u"3", u"4", u"next"});
  EXPECT_EQ(tables_of(body()),
            (page_tables{{{{u"g", u"3"}, {u"1"}}, {{u"2"}}, {{u"3"}}, {{u"4"}}, {{u"next"}}}}));
}

TEST_F(SectionTable, ClosingStartsNoBlock) {
  report.AddText(u"before", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>before</a><br/>",
                                     u"      <a>after</a><br/>",
                                     u"    </p>",
                                 })));
}

// The saved block comes back, even if another one was begun meanwhile.
TEST_F(SectionTable, ClosingBringsTheBlockBack) {
  report.AddText(u"first", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.NewParagraph();
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"second", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>first</a><br/>",
                                     u"      <a>second</a><br/>",
                                     u"    </p>",
                                     u"    <p>",
                                     u"    </p>",
                                 })));
}

// There was no block to come back, so the next line begins one.
TEST_F(SectionTable, ClosingToNoBlockMakesANewOne) {
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.NewParagraph();
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"line", false);
  EXPECT_TRUE(same_units(
      body(), empty_block() + lines({u"    <p>", u"      <a>line</a><br/>", u"    </p>"})));
}

// The counters are those of the inner table while the row is still the page's.
TEST_F(SectionTable, DirectTextOfAnOpenSectionTableGoesToThePagesTable) {
  report.OpenTable(3);
  cells({u"a"});
  report.SetSectionMode(true);
  report.BeginDirectLinks();
  report.OpenTable(2);
  cells({u"b", u"c", u"d"});
  report.CloseTable();
  cells({u"e", u"f"});
  // b and d start rows; e continues the row of a, which was saved, and ends with f.
  EXPECT_EQ(tables_of(body()),
            (page_tables{{{{u"a"}, {u"e"}, {u"f"}}, {{u"b"}, {u"c"}}, {{u"d"}}}}));
}

TEST_F(SectionTable, DirectTextWithNoTableOnThePageGoesNowhere) {
  report.SetSectionMode(true);
  report.BeginDirectLinks();
  report.OpenTable(2);
  cells({u"a", u"b", u"c"});
  report.AddLink(u"text", u"target");
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), empty_block()));
}

// The page's table loses its row to the inner one, whose rows are then cleared.
TEST_F(SectionTable, AClearedRowIsReplacedByANewOne) {
  report.OpenTable(4);
  cells({u"a"});
  report.SetSectionMode(true);
  report.BeginDirectLinks();
  report.OpenTable(4);
  report.AddText(u"inner", true);
  report.OpenTable(4);  // clears the row of "inner", which the saved state points to
  report.CloseTable();  // back to a row that is gone
  cells({u"b"});
  report.CloseTable();
  cells({u"c"});
  EXPECT_EQ(tables_of(body()), (page_tables{{{{u"a"}, {u"c"}}, {{u"b"}}}}));
}

TEST_F(SectionTable, TextsForSectionsWithoutASectionGoNowhere) {
  report.AddText(u"a", true);
  report.SetSectionMode(true);
  report.AddText(u"b", false);
  report.AddText(nullptr, false);
  report.OpenTable(2);
  report.AddText(u"c", true);
  report.AddText(nullptr, true);
  report.SetSectionMode(false);
  report.AddText(u"d", true);
  EXPECT_TRUE(same_units(body(), u""));
}

// Leaving section mode closes nothing: the table counts as open on the page.
TEST_F(SectionTable, AbandonedTableIsClosedOnThePage) {
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.SetSectionMode(false);
  cells({u"nowhere"});
  report.CloseTable();
  cells({u"line"});
  report.SetSectionMode(true);
  EXPECT_EQ(raised_by_close(), "");
  EXPECT_EQ(raised_by_close(), "invalid vector subscript");
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <p>",
                                     u"      <a>line</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(SectionTable, ReleasingWithOpenTablesWritesNothing) {
  {
    VellomarkObj one(files, browser);
    one.OpenTable(2);
    one.AddText(u"a", false);
    one.SetSectionMode(true);
    one.OpenTable(2);
    one.AddText(u"b", false);
    one.OpenTable(2);
  }
  EXPECT_TRUE(files.calls.empty());
  EXPECT_TRUE(browser.urls.empty());
}

}  // namespace

}  // namespace report_test
