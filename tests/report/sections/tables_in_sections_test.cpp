#include <stdexcept>
#include <string>

#include "tests/report/report_page.h"

namespace test {
namespace {

class TablesInSections : public disk_test {
 protected:
  TablesInSections() { report.SetSectionMode(true); }

  // A table of one cell.
  void add_table(const char16_t* cell) {
    EXPECT_TRUE(report.OpenTable(2));
    report.AddText(cell, false);
    report.CloseTable();
  }
};

TEST_F(TablesInSections, TableIsAtItsPlaceBetweenBlocks) {
  report.BeginSection(u"S", nullptr);
  report.AddText(u"above", false);
  report.OpenTable(2);
  add_texts(report, {u"a", u"b", u"c"});
  report.CloseTable();
  report.AddText(u"below", false);
  EXPECT_TRUE(same_units(saved(), section(u"S") + block({u"above"}) + block() +
                                      table({{u"a", u"b"}, {u"c"}}) + block({u"below"})));
}

TEST_F(TablesInSections, EachTableHasItsOwnRows) {
  report.BeginSection(u"", nullptr);
  add_table(u"one");
  add_table(u"two");
  EXPECT_TRUE(same_units(
      saved(), block() + block() + table(u"one") + block() + block() + table(u"two") + block()));
}

TEST_F(TablesInSections, TableIsTheLastSections) {
  report.BeginSection(u"one", nullptr);
  report.OpenTable(2);
  report.AddText(u"cell", false);
  report.BeginSection(u"two", nullptr);
  report.CloseTable();
  EXPECT_TRUE(same_units(saved(), section(u"one") + block() + section(u"two") + block() + block() +
                                      table(u"cell") + block()));
}

// All of them share one element: the inner table deletes the outer one's rows,
// and the outer one continues with the inner one's.
TEST_F(TablesInSections, TableOpenedInATableClearsItsRows) {
  report.BeginSection(u"", nullptr);
  report.OpenTable(2);
  report.AddText(u"lost", false);
  report.OpenTable(2);
  report.AddText(u"inner", false);
  report.CloseTable();
  // The outer table's row is deleted; its next cell begins a new row.
  report.AddText(u"outer", false);
  report.CloseTable();
  EXPECT_EQ(thrown_by_close(report), "invalid vector subscript");
  const ustring both = table({{u"inner"}, {u"outer"}});
  EXPECT_TRUE(same_units(saved(),
                         block() + block() + table(u"inner") + block() + block() + both + block()));
}

TEST_F(TablesInSections, SpanAndLineFeedsWorkAsOnThePage) {
  report.BeginSection(u"", nullptr);
  report.OpenTable(2);
  report.SetFirstCellRows(2);
  add_texts(report, {u"g", u"1\n2", u"3", u"next"});
  report.CloseTable();
  EXPECT_TRUE(same_units(
      saved(),
      block() + block() + table({{{u"g", u"2"}, u"1<BR>2"}, {u"3"}, {u"next"}}) + block()));
}

TEST_F(TablesInSections, EmptyTableIsPlaced) {
  report.BeginSection(u"", nullptr);
  report.OpenTable(3);
  report.CloseTable();
  EXPECT_TRUE(same_units(saved(), block() + block() + table({}) + block()));
}

// The table of the page continues where it was, and the text for the section is a
// cell of the section's table even outside section mode. The blocks after the
// page's table are those of its first text, of its end, of Save, of the section and
// of the section's table.
TEST_F(TablesInSections, TableOfThePageContinuesAfterATableOfASection) {
  report.BeginSection(u"", nullptr);
  report.SetSectionMode(false);
  report.OpenTable(2);
  report.AddText(u"p1", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.SetSectionMode(false);
  report.AddText(u"s1", true);
  report.SetSectionMode(true);
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"p2", false);
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), table({{u"p1", u"p2"}}) + block() + block() + block() + block() +
                                     block() + table(u"s1") + block()));
}

TEST_F(TablesInSections, TableWithoutASectionIsDroppedAndTheStateIsRestored) {
  report.OpenTable(2);
  report.AddText(u"lost", false);
  EXPECT_EQ(thrown_by_close(report), "");
  report.BeginSection(u"", nullptr);
  report.AddText(u"line", false);  // a line and not a cell: no table is open
  EXPECT_TRUE(same_units(saved(), block({u"line"})));
}

TEST_F(TablesInSections, ClosingWithNothingOpenThrowsAndChangesNothing) {
  report.AddSectionHeading(u"A", 1);
  report.BeginSection(u"S", nullptr);
  report.AddText(u"before", false);
  report.AddSectionHeading(u"B", 1);
  EXPECT_EQ(thrown_by_close(report), "invalid vector subscript");
  EXPECT_EQ(thrown_by_close(report), "invalid vector subscript");
  report.AddText(u"behind", false);
  report.BeginSection(u"", nullptr);
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + section(u"S") +
                                      block({u"before", u"behind"}) + heading(u'1', u"B") +
                                      block()));
}

// The open table isn't placed. After Save it continues and is the next section's.
TEST_F(TablesInSections, TableLeftOpenOverSaveIsPlacedByTheNext) {
  report.BeginSection(u"", nullptr);
  report.AddText(u"line", false);
  report.OpenTable(2);
  report.AddText(u"a", false);
  EXPECT_TRUE(same_units(saved(), block({u"line"})));
  report.AddText(u"b", false);
  report.BeginSection(u"", nullptr);
  report.CloseTable();
  EXPECT_TRUE(same_units(
      saved(), block({u"line"}) + block() + block() + block() + table({{u"a", u"b"}}) + block()));
}

TEST_F(TablesInSections, TableLeftOpenOverSaveAndClosedWithoutASectionIsDropped) {
  report.BeginSection(u"", nullptr);
  report.OpenTable(2);
  report.AddText(u"a", false);
  ASSERT_TRUE(save());
  report.CloseTable();
  EXPECT_TRUE(same_units(saved(), block() + block()));
}

// The lines of sections go to the blocks of Save and not into the table. The first
// block is that of the table's first text.
TEST_F(TablesInSections, TableOfThePageLeftOpenOverSaveContinues) {
  report.SetSectionMode(false);
  report.OpenTable(2);
  report.AddText(u"a", false);
  add_section(report, {u"A"}, u"S", {u"line"});
  ASSERT_TRUE(save());
  report.AddText(u"b", false);
  EXPECT_TRUE(same_units(body(), table({{u"a", u"b"}}) + block() + block() + heading(u'1', u"A") +
                                     section(u"S") + block({u"line"}) + block()));
}

// The stack isn't empty but no table is open, so there is no place for such a text.
TEST_F(TablesInSections, TextIsLostWhenTheTableWasClosedOnThePage) {
  report.BeginSection(u"", nullptr);
  report.OpenTable(2);
  report.SetSectionMode(false);
  report.CloseTable();
  report.AddText(u"lost", true);
  report.SetSectionMode(true);
  EXPECT_EQ(thrown_by_close(report), "");
  report.AddText(u"line", false);
  // The block of the closing on the page, the one of Save, then the section: its
  // empty table and the line below it.
  EXPECT_TRUE(same_units(saved(), block() + block() + block() + table({}) + block({u"line"})));
}

// The path of a file in a cell is a text and no picture.
TEST_F(TablesInSections, CellIsNoPicture) {
  const std::filesystem::path picture = folder.path() / "x.tmp";
  make_file(picture, "picture");
  const ustring text = folder.text(u"\\x.tmp");
  report.BeginSection(u"", nullptr);
  add_table(text.c_str());
  EXPECT_TRUE(same_units(saved(), block() + block() + table(text) + block()));
  EXPECT_EQ(bytes_of(picture), "picture");
}

}  // namespace
}  // namespace test
