// Loading a template deletes the page with what is open on it.
#include "tests/report/templates/template_page.h"

namespace test {
namespace {

class Positions : public template_test {
 protected:
  // What Save makes of the first table of a section.
  static ustring placed(const ustring& rows) { return block() + block() + rows + block(); }
};

TEST_F(Positions, TextAfterALoadStartsABlock) {
  report.AddText(u"old", false);
  load(two_fields());
  report.AddText(u"new", false);
  report.AddText(u"more", false);
  EXPECT_TRUE(same_units(body(), block({u"new", u"more"}) + shown(u"x") + block()));
}

TEST_F(Positions, TextAfterALoadStartsABlockOnAFreshReportToo) {
  load(two_fields());
  report.AddText(u"new", false);
  EXPECT_TRUE(same_units(body(), block({u"new"}) + shown(u"x") + block()));
}

TEST_F(Positions, AHeadingAfterALoadComesFirst) {
  report.AddText(u"old", false);
  load(two_fields());
  report.AddHeading(u"h", 1);
  EXPECT_TRUE(same_units(body(), heading(u'1', u"h") + shown(u"x") + block()));
}

// The table is deleted, but the report counts on: cells are dropped.
TEST_F(Positions, CellsOfADeletedTableAreDropped) {
  report.OpenTable(2);
  report.AddText(u"old", false);
  load(two_fields());
  add_texts(report, {u"a", u"b", u"c", u"d"});
  report.SetFirstCellRows(3);
  report.AddLink(u"e", u"f");
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"g", false);
  report.CloseTable();
  report.AddText(u"text", false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + block({u"text"}) + shown(u"y") + block()));
}

// A cell doesn't need a block, so none replaces the one that the load deleted.
TEST_F(Positions, ACellAfterALoadStartsNoBlock) {
  report.AddText(u"old", false);
  load(u"");
  report.OpenTable(2);
  report.AddText(u"a", false);
  EXPECT_TRUE(same_units(body(), table(u"a") + block()));
}

TEST_F(Positions, ALinkOrAHeadingThatBecomesACellStartsNoBlock) {
  report.AddText(u"old", false);
  load(u"");
  report.OpenTable(2);
  report.AddHeading(u"a", 5);
  report.AddLink(u"b", nullptr);
  EXPECT_TRUE(same_units(body(), table({{u"a", u"b"}}) + block()));
}

// A report that has never had a block starts one even for a cell.
TEST_F(Positions, TheFirstCellOfAFreshReportStartsABlock) {
  load(u"");
  report.OpenTable(2);
  report.AddText(u"a", false);
  report.AddText(u"b", false);
  EXPECT_TRUE(same_units(body(), table({{u"a", u"b"}}) + block() + block()));
}

TEST_F(Positions, ATableOpenedAfterALoadIsFilled) {
  report.OpenTable(3);
  report.AddText(u"old", false);
  load(two_fields());
  report.OpenTable(2);
  add_texts(report, {u"a", u"b", u"c"});
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), table({{u"a", u"b"}, {u"c"}}) + block() + shown(u"x") + block()));
}

TEST_F(Positions, AClosedTableLeavesNothing) {
  report.OpenTable(2);
  report.AddText(u"old", false);
  report.CloseTable();
  load(two_fields());
  report.AddText(u"text", false);
  EXPECT_TRUE(same_units(body(), block({u"text"}) + shown(u"x") + block()));
}

TEST_F(Positions, PiecesAreAddedAfterAnOpenTableAndCellsToIt) {
  load(two_fields());
  report.OpenTable(2);
  report.AddText(u"a", false);
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"b", false);
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), table({{u"a", u"b"}}) + block() + shown(u"x") + block() + block() +
                                     shown(u"y") + block()))
      << "the first cell started a block for text after the table";
}

TEST_F(Positions, SectionsOutliveALoad) {
  add_section(report, {u"H"}, u"", {u"one"});
  report.SetSectionMode(true);
  report.AddText(u"two", false);
  load(content(u"x") + marker(u"A") + content(u"y"));
  report.AddText(u"three", false);
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"four", false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block() +
                                     heading(u'1', u"H") +
                                     block({u"one", u"two", u"three", u"four"})));
}

TEST_F(Positions, ATableInASectionOutlivesALoad) {
  add_section(report, {}, u"", {});
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.AddText(u"a", false);
  load(content(u"x"));
  report.AddText(u"b", false);
  report.AddText(u"c", false);
  report.CloseTable();
  report.SetSectionMode(false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + placed(table({{u"a", u"b"}, {u"c"}}))));
}

// The table of the page, which waits until that of the section is closed, is deleted.
TEST_F(Positions, ATableThatWaitsForASectionTableIsDeleted) {
  add_section(report, {}, u"", {});
  report.AddText(u"old", false);
  report.OpenTable(2);
  report.AddText(u"old", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.AddText(u"a", false);
  load(content(u"x"));
  report.AddText(u"b", false);
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"nowhere", false);
  report.CloseTable();
  report.AddText(u"text", false);
  EXPECT_TRUE(
      same_units(body(), block({u"text"}) + shown(u"x") + block() + placed(table({{u"a", u"b"}}))));
}

// The row of the section table that waits outlives the page, on which a table is open.
TEST_F(Positions, ASectionTableThatWaitsOutlivesALoad) {
  add_section(report, {}, u"", {});
  report.SetSectionMode(true);
  report.OpenTable(3);
  report.AddText(u"a", false);
  report.SetSectionMode(false);
  report.OpenTable(2);
  report.AddText(u"old", false);
  load(content(u"x"));
  report.AddText(u"nowhere", false);
  report.SetSectionMode(true);
  report.AddText(u"b", false);
  report.CloseTable();
  report.SetSectionMode(false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + placed(table({{u"a"}, {u"b"}}))))
      << "the page's row was full by then, so the next cell starts one";
}

TEST_F(Positions, SectionTablesInSectionTablesOutliveALoad) {
  add_section(report, {}, u"", {});
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.AddText(u"lost", false);
  report.OpenTable(2);
  report.AddText(u"a", false);
  load(content(u"x"));
  report.AddText(u"b", false);
  report.CloseTable();
  report.CloseTable();
  report.SetSectionMode(false);
  const ustring both = table({{u"a", u"b"}});
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + placed(both) + block() + both + block()));
}

TEST_F(Positions, ALinkThatWasPreparedOutlivesALoad) {
  report.AddLink(nullptr, u"target");
  load(content(u"x"));
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), u"    <p>\n      <a href='#target'>target</a><br/>\n    </p>\n" +
                                     shown(u"x") + block()));
}

TEST_F(Positions, DirectLinksGoToTheNewPage) {
  report.AddText(u"old", false);
  report.BeginDirectLinks();
  load(content(u"x"));
  report.BeginSection(u"", u"S");
  report.EndDirectLinks();
  EXPECT_TRUE(same_units(body(), u"    <p>\n      <a href='#S'>S</a><br/>\n    </p>\n" +
                                     shown(u"x") + block() + section(u"S") + block()));
}

// What a load resets is the page alone: a table in a section continues with its columns and
// with the first cell that spans rows.
TEST_F(Positions, ASectionTableContinuesCountingAfterALoad) {
  add_section(report, {}, u"", {});
  report.SetSectionMode(true);
  report.OpenTable(3);
  report.SetFirstCellRows(2);
  report.AddText(u"a", false);
  load(content(u"x"));
  add_texts(report, {u"b", u"c", u"d", u"e"});
  report.CloseTable();
  report.SetSectionMode(false);
  const ustring page = body();
  EXPECT_EQ(count_of(u"<tr>", page), 4u) << printable(page);
}

TEST_F(Positions, HeadingsOfTheNextSectionOutliveALoad) {
  report.AddSectionHeading(u"H", 1);
  load(content(u"x"));
  report.BeginSection(u"", u"");
  report.AddText(u"one", true);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + heading(u'1', u"H") + block({u"one"})));
}

// New elements reuse the memory of the deleted page. These put one that accepts cells
// where the open table or its row was. The parameter is the number of other elements before it.
class ReusedMemory : public Positions, public ::testing::WithParamInterface<int> {
 protected:
  // Loads a page with tables of its own and places it.
  void place_tables() {
    ustring body;
    for (int i = 0; i < GetParam(); ++i) body += u"<hr/>";
    body += u"<table border='1'>";
    for (int i = 0; i < 5; ++i) body += u"<tr><td>x</td></tr>";
    load(body + u"</table>" + marker(u"A"));
    EXPECT_TRUE(set(u"A"));
  }

  void expect_nothing_in_tables() { EXPECT_EQ(count_of(u"nowhere", body()), 0u); }
};

TEST_P(ReusedMemory, NoRowGetsCellsOfADeletedTable) {
  report.OpenTable(3);
  report.AddText(u"old", false);
  place_tables();
  report.AddText(u"nowhere", false);
  report.CloseTable();
  expect_nothing_in_tables();
}

TEST_P(ReusedMemory, NoTableGetsRowsOfADeletedOne) {
  report.OpenTable(2);
  place_tables();
  report.AddText(u"nowhere", false);
  report.CloseTable();
  expect_nothing_in_tables();
}

TEST_P(ReusedMemory, NoRowGetsCellsOfADeletedTableThatWaited) {
  add_section(report, {}, u"", {});
  report.OpenTable(3);
  report.AddText(u"old", false);
  report.SetSectionMode(true);
  report.OpenTable(2);
  place_tables();
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"nowhere", false);
  report.CloseTable();
  expect_nothing_in_tables();
}

INSTANTIATE_TEST_SUITE_P(AfterLines, ReusedMemory, ::testing::Range(0, 8));

TEST_F(Positions, AReportMayBeDestroyedWithATemplateHalfPlaced) {
  load(two_fields());
  set(u"A");
  report.OpenTable(2);
  report.AddText(u"a", false);
  SUCCEED() << "the sanitizers look at what is left";
}

}  // namespace
}  // namespace test
