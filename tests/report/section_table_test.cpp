#include <initializer_list>
#include <stdexcept>
#include <string>

#include "tests/report/report_page.h"

namespace test {
namespace {

// Tables in section mode as far as they show without a section: by what
// they leave of the page's table.
class SectionTable : public report_test {
 protected:
};

TEST_F(SectionTable, OpeningReturnsTrueAndLeavesThePageAlone) {
  report.SetSectionMode(true);
  EXPECT_TRUE(report.OpenTable(2));
  cells({u"a", u"b"});
  EXPECT_EQ(thrown_by_close(report), "");
  EXPECT_EQ(thrown_by_close(report), "invalid vector subscript");
  EXPECT_TRUE(same_units(body(), u""));
}

TEST_F(SectionTable, EveryOpeningNeedsAClosing) {
  report.SetSectionMode(true);
  for (int depth = 0; depth < 100; ++depth) EXPECT_TRUE(report.OpenTable(depth));
  for (int depth = 0; depth < 100; ++depth) EXPECT_EQ(thrown_by_close(report), "");
  EXPECT_EQ(thrown_by_close(report), "invalid vector subscript");
}

TEST_F(SectionTable, ClosingStartsNoBlock) {
  report.AddText(u"before", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), block({u"before", u"after"})));
}

// The saved block is restored, even if another one was begun meanwhile.
TEST_F(SectionTable, ClosingBringsTheBlockBack) {
  report.AddText(u"first", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.NewParagraph();
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"second", false);
  EXPECT_TRUE(same_units(body(), block({u"first", u"second"}) + block()));
}

// There was no block to restore, so the next line begins one.
TEST_F(SectionTable, ClosingToNoBlockMakesANewOne) {
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.NewParagraph();
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"line", false);
  EXPECT_TRUE(same_units(body(), block() + block({u"line"})));
}

TEST_F(SectionTable, DirectTextWithNoTableOnThePageIsDropped) {
  report.SetSectionMode(true);
  report.BeginDirectLinks();
  report.OpenTable(2);
  cells({u"a", u"b", u"c"});
  report.AddLink(u"text", u"target");
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), block()));
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
  EXPECT_EQ(thrown_by_close(report), "");
  EXPECT_EQ(thrown_by_close(report), "invalid vector subscript");
  EXPECT_TRUE(same_units(body(), block() + block({u"line"})));
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
}  // namespace test
