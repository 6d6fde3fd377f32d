// Loading a template takes the page away from under whatever is open on it.
#include "tests/report/templates/template_page.h"

namespace templates_test {

namespace {

class Positions : public template_test {
 protected:
  static ustring row(std::initializer_list<ustring_view> cells) {
    ustring written = u"      <tr>\n";
    for (const ustring_view cell : cells)
      ((written += u"        <td valign='top'>\n          ") += cell) += u"\n        </td>\n";
    return written += u"      </tr>\n";
  }

  static ustring table(std::initializer_list<ustring> rows) {
    ustring written = u"    <table border='1' class='main' width='100%'>\n";
    for (const ustring& each : rows) written += each;
    return written += u"    </table>\n";
  }

  // What Save makes of the first table of a section.
  static ustring placed(const ustring& rows) { return block() + block() + rows + block(); }
};

TEST_F(Positions, TextBehindALoadStartsABlock) {
  report.AddText(u"old", false);
  load(two_fields());
  report.AddText(u"new", false);
  report.AddText(u"more", false);
  EXPECT_TRUE(same_units(saved(), block({u"new", u"more"}) + shown(u"x") + block()));
}

TEST_F(Positions, TextBehindALoadStartsABlockOnAFreshReportToo) {
  load(two_fields());
  report.AddText(u"new", false);
  EXPECT_TRUE(same_units(saved(), block({u"new"}) + shown(u"x") + block()));
}

TEST_F(Positions, AHeadingBehindALoadStandsInFront) {
  report.AddText(u"old", false);
  load(two_fields());
  report.AddHeading(u"h", 1);
  EXPECT_TRUE(same_units(saved(), sections_test::heading(u'1', u"h") + shown(u"x") + block()));
}

// The table is gone, but the report counts on: cells go nowhere.
TEST_F(Positions, CellsOfATableThatIsGoneGoNowhere) {
  report.OpenTable(2);
  report.AddText(u"old", false);
  load(two_fields());
  for (const char16_t* const cell : {u"a", u"b", u"c", u"d"}) report.AddText(cell, false);
  report.SetFirstCellRows(3);
  report.AddLink(u"e", u"f");
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"g", false);
  report.CloseTable();
  report.AddText(u"text", false);
  EXPECT_TRUE(
      same_units(saved(), shown(u"x") + block() + block({u"text"}) + shown(u"y") + block()));
}

// A cell doesn't need a block, so none replaces the one that the load deleted.
TEST_F(Positions, ACellAfterALoadStartsNoBlock) {
  report.AddText(u"old", false);
  load(u"");
  report.OpenTable(2);
  report.AddText(u"a", false);
  EXPECT_TRUE(same_units(saved(), table({row({u"a"})}) + block()));
}

TEST_F(Positions, ALinkOrAHeadingThatBecomesACellStartsNoBlock) {
  report.AddText(u"old", false);
  load(u"");
  report.OpenTable(2);
  report.AddHeading(u"a", 5);
  report.AddLink(u"b", nullptr);
  EXPECT_TRUE(same_units(saved(), table({row({u"a", u"b"})}) + block()));
}

// A report that has never had a block starts one even for a cell.
TEST_F(Positions, TheFirstCellOfAFreshReportStartsABlock) {
  load(u"");
  report.OpenTable(2);
  report.AddText(u"a", false);
  report.AddText(u"b", false);
  EXPECT_TRUE(same_units(saved(), table({row({u"a", u"b"})}) + block() + block()));
}

TEST_F(Positions, ATableOpenedBehindALoadIsFilled) {
  report.OpenTable(3);
  report.AddText(u"old", false);
  load(two_fields());
  report.OpenTable(2);
  for (const char16_t* const cell : {u"a", u"b", u"c"}) report.AddText(cell, false);
  report.CloseTable();
  EXPECT_TRUE(same_units(
      saved(), table({row({u"a", u"b"}), row({u"c"})}) + block() + shown(u"x") + block()));
}

TEST_F(Positions, ATableThatWasClosedLeavesNothingBehind) {
  report.OpenTable(2);
  report.AddText(u"old", false);
  report.CloseTable();
  load(two_fields());
  report.AddText(u"text", false);
  EXPECT_TRUE(same_units(saved(), block({u"text"}) + shown(u"x") + block()));
}

TEST_F(Positions, PiecesGoBehindATableThatIsOpenAndCellsIntoIt) {
  load(two_fields());
  report.OpenTable(2);
  report.AddText(u"a", false);
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"b", false);
  report.CloseTable();
  EXPECT_TRUE(same_units(saved(), table({row({u"a", u"b"})}) + block() + shown(u"x") + block() +
                                      block() + shown(u"y") + block()))
      << "the first cell started a block for text behind the table";
}

TEST_F(Positions, SectionsOutliveALoad) {
  sections_test::add_section(report, {u"H"}, u"", {u"one"});
  report.SetSectionMode(true);
  report.AddText(u"two", false);
  load(content(u"x") + marker(u"A") + content(u"y"));
  report.AddText(u"three", false);
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"four", false);
  EXPECT_TRUE(same_units(saved(), shown(u"x") + block() + shown(u"y") + block() +
                                      sections_test::heading(u'1', u"H") +
                                      block({u"one", u"two", u"three", u"four"})));
}

TEST_F(Positions, ATableInASectionOutlivesALoad) {
  sections_test::add_section(report, {}, u"", {});
  report.SetSectionMode(true);
  report.OpenTable(2);
  report.AddText(u"a", false);
  load(content(u"x"));
  report.AddText(u"b", false);
  report.AddText(u"c", false);
  report.CloseTable();
  report.SetSectionMode(false);
  EXPECT_TRUE(
      same_units(saved(), shown(u"x") + block() + placed(table({row({u"a", u"b"}), row({u"c"})}))));
}

// The table of the page, which waits behind the one of the section, is gone.
TEST_F(Positions, ATableThatWaitsBehindASectionTableIsGone) {
  sections_test::add_section(report, {}, u"", {});
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
  EXPECT_TRUE(same_units(
      saved(), block({u"text"}) + shown(u"x") + block() + placed(table({row({u"a", u"b"})}))));
}

// The row of the section table that waits outlives the page, on which a table is open.
TEST_F(Positions, ASectionTableThatWaitsOutlivesALoad) {
  sections_test::add_section(report, {}, u"", {});
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
  EXPECT_TRUE(
      same_units(saved(), shown(u"x") + block() + placed(table({row({u"a"}), row({u"b"})}))))
      << "the page's row was full by then, so the next cell starts one";
}

TEST_F(Positions, SectionTablesInSectionTablesOutliveALoad) {
  sections_test::add_section(report, {}, u"", {});
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
  const ustring both = table({row({u"a", u"b"})});
  EXPECT_TRUE(same_units(saved(), shown(u"x") + block() + placed(both) + block() + both + block()));
}

TEST_F(Positions, ALinkThatWasPreparedOutlivesALoad) {
  report.AddLink(nullptr, u"target");
  load(content(u"x"));
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(saved(), u"    <p>\n      <a href='#target'>target</a><br/>\n    </p>\n" +
                                      shown(u"x") + block()));
}

TEST_F(Positions, DirectLinksGoToTheNewPage) {
  report.AddText(u"old", false);
  report.BeginDirectLinks();
  load(content(u"x"));
  report.BeginSection(u"", u"S");
  report.EndDirectLinks();
  EXPECT_TRUE(same_units(saved(), u"    <p>\n      <a href='#S'>S</a><br/>\n    </p>\n" +
                                      shown(u"x") + block() + sections_test::section(u"S") +
                                      block()));
}

// What a load resets is the page alone: a table in a section goes on with its columns and
// with the first cell that spans rows.
TEST_F(Positions, ASectionTableGoesOnCountingBehindALoad) {
  sections_test::add_section(report, {}, u"", {});
  report.SetSectionMode(true);
  report.OpenTable(3);
  report.SetFirstCellRows(2);
  report.AddText(u"a", false);
  load(content(u"x"));
  for (const char16_t* const cell : {u"b", u"c", u"d", u"e"}) report.AddText(cell, false);
  report.CloseTable();
  report.SetSectionMode(false);
  const ustring page = saved();
  EXPECT_EQ(count_of(u"<tr>", page), 4u) << test::printable(page);
}

TEST_F(Positions, HeadingsOfTheNextSectionOutliveALoad) {
  report.AddSectionHeading(u"H", 1);
  load(content(u"x"));
  report.BeginSection(u"", u"");
  report.AddText(u"one", true);
  EXPECT_TRUE(same_units(
      saved(), shown(u"x") + block() + sections_test::heading(u'1', u"H") + block({u"one"})));
}

// New elements take the memory of the page that is gone. These put one that takes cells
// where the open table or its row was, in front of which any number of others may lie.
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

  void expect_nothing_in_tables() { EXPECT_EQ(count_of(u"nowhere", saved()), 0u); }
};

TEST_P(ReusedMemory, NoRowTakesCellsOfATableThatIsGone) {
  report.OpenTable(3);
  report.AddText(u"old", false);
  place_tables();
  report.AddText(u"nowhere", false);
  report.CloseTable();
  expect_nothing_in_tables();
}

TEST_P(ReusedMemory, NoTableTakesRowsOfOneThatIsGone) {
  report.OpenTable(2);
  place_tables();
  report.AddText(u"nowhere", false);
  report.CloseTable();
  expect_nothing_in_tables();
}

TEST_P(ReusedMemory, NoRowTakesCellsOfATableThatWaitedAndIsGone) {
  sections_test::add_section(report, {}, u"", {});
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

INSTANTIATE_TEST_SUITE_P(Behind, ReusedMemory, ::testing::Range(0, 8));

TEST_F(Positions, AReportMayGoWithATemplateHalfPlaced) {
  load(two_fields());
  set(u"A");
  report.OpenTable(2);
  report.AddText(u"a", false);
  SUCCEED() << "the sanitizers look at what is left";
}

}  // namespace

}  // namespace templates_test
