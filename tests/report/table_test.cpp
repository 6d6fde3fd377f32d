#include <cstddef>
#include <initializer_list>

#include "tests/report/page_tables.h"
#include "tests/report/report_page.h"

namespace report_test {

namespace {

class Table : public report_test {
 protected:
  void cells(std::initializer_list<const char16_t*> texts) {
    for (const char16_t* const text : texts) report.AddText(text, false);
  }

  // The one cell of a table into which `text` was put.
  ustring cell_with(const ustring& text) {
    VellomarkObj one(files, browser);
    one.NewParagraph();
    one.OpenTable(2);
    one.AddText(text.c_str(), false);
    EXPECT_TRUE(one.Save(u"/out", u"cell.htm"));
    const ustring page = files.units(u"/out/Vellomark/cell.htm");
    const ustring_view before = u"        <td valign='top'>\n          ";
    const std::size_t from = page.find(before) + before.size();
    return page.substr(from, page.find(u"\n        </td>", from) - from);
  }

  page_tables tables() { return tables_of(body()); }
};

TEST_F(Table, SevenCellsInThreeColumnsAreRowsOfThreeThreeAndOne) {
  EXPECT_TRUE(report.OpenTable(3));
  cells({u"a", u"b", u"c", u"d", u"e", u"f", u"g"});
  report.CloseTable();
  EXPECT_EQ(tables(),
            (page_tables{{{{u"a"}, {u"b"}, {u"c"}}, {{u"d"}, {u"e"}, {u"f"}}, {{u"g"}}}}));
}

TEST_F(Table, AnEmptyTableHasNoRows) {
  EXPECT_TRUE(report.OpenTable(3));
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"    </table>",
                                     u"    <p>",
                                     u"    </p>",
                                 })));
}

TEST_F(Table, ATableStandsAtTheEndOfThePageAndNotInTheBlock) {
  report.AddText(u"before", false);
  report.OpenTable(2);
  cells({u"a"});
  report.CloseTable();
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"      <a>before</a><br/>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          a",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                     u"    <p>",
                                     u"      <a>after</a><br/>",
                                     u"    </p>",
                                 })));
}

TEST_F(Table, SpanOfThreeRowsInTwoColumns) {
  report.OpenTable(2);
  report.SetFirstCellRows(3);
  cells({u"group", u"1", u"2", u"3", u"next", u"4"});
  EXPECT_EQ(tables(),
            (page_tables{{{{u"group", u"3"}, {u"1"}}, {{u"2"}}, {{u"3"}}, {{u"next"}, {u"4"}}}}));
}

TEST_F(Table, SpanOfTwoRowsInTwoColumnsIsOverAfterTwoFurtherCells) {
  report.OpenTable(2);
  report.SetFirstCellRows(2);
  cells({u"group", u"1", u"2", u"next", u"3"});
  EXPECT_EQ(tables(), (page_tables{{{{u"group", u"2"}, {u"1"}}, {{u"2"}}, {{u"next"}, {u"3"}}}}));
}

TEST_F(Table, SpanOfOneRowIsNone) {
  report.OpenTable(2);
  report.SetFirstCellRows(1);
  cells({u"a", u"b", u"c"});
  EXPECT_EQ(tables(), (page_tables{{{{u"a"}, {u"b"}}, {{u"c"}}}}));
  EXPECT_EQ(saved_page().find(u"rowspan"), ustring::npos);
}

TEST_F(Table, SpansFollowEachOther) {
  report.OpenTable(2);
  for (int group = 0; group < 2; ++group) {
    report.SetFirstCellRows(2);
    cells({u"g", u"1", u"2"});
  }
  EXPECT_EQ(tables(),
            (page_tables{{{{u"g", u"2"}, {u"1"}}, {{u"2"}}, {{u"g", u"2"}, {u"1"}}, {{u"2"}}}}));
}

// With more than two columns a group has span_rows + columns cells in one row fewer.
TEST_F(Table, SpanOfTwoRowsInFourColumnsHasMoreRowsThanItCovers) {
  report.OpenTable(4);
  report.SetFirstCellRows(2);
  cells({u"g", u"1", u"2", u"3", u"4", u"next", u"5", u"6", u"7", u"8"});
  EXPECT_EQ(tables(), (page_tables{{{{u"g", u"2"}, {u"1"}},
                                    {{u"2"}},
                                    {{u"3"}},
                                    {{u"4"}},
                                    {{u"next"}, {u"5"}, {u"6"}, {u"7"}},
                                    {{u"8"}}}}));
}

// The first two cells of a row land in one row whatever the number of columns is.
TEST_F(Table, OneColumnAndFewerTakeTwoCells) {
  for (const int columns : {1, 0, -1, -3}) {
    VellomarkObj one(files, browser);
    one.OpenTable(columns);
    for (const char16_t* const text : {u"a", u"b", u"c", u"d", u"e"}) one.AddText(text, false);
    ASSERT_TRUE(one.Save(u"/out", u"narrow.htm"));
    EXPECT_EQ(tables_of(files.units(u"/out/Vellomark/narrow.htm")),
              (page_tables{{{{u"a"}, {u"b"}}, {{u"c"}, {u"d"}}, {{u"e"}}}}))
        << columns;
  }
}

TEST_F(Table, SpanSetInTheMiddleOfARowStartsARow) {
  report.OpenTable(3);
  cells({u"a"});
  report.SetFirstCellRows(2);
  cells({u"b", u"c", u"d", u"e"});
  // b: 1 >= 1 stays and leaves 0; c: starts a row, column 2; d: starts one, column 3 ends the
  // group; e: starts one.
  EXPECT_EQ(tables(), (page_tables{{{{u"a"}, {u"b"}}, {{u"c"}}, {{u"d"}}, {{u"e"}}}}));
}

TEST_F(Table, SpanDoesNotOutliveOpenTable) {
  report.SetFirstCellRows(4);
  report.OpenTable(2);
  cells({u"a", u"b", u"c"});
  EXPECT_EQ(tables(), (page_tables{{{{u"a"}, {u"b"}}, {{u"c"}}}}));
}

TEST_F(Table, LongestRowspanIsWrittenWhole) {
  report.OpenTable(2);
  report.SetFirstCellRows(2147483647);
  cells({u"a", u"b"});
  EXPECT_EQ(tables(), (page_tables{{{{u"a", u"2147483647"}, {u"b"}}}}));
}

TEST_F(Table, EveryCellHasItsTextAtTheTop) {
  report.OpenTable(3);
  report.SetFirstCellRows(2);
  cells({u"a", u"", u"c", u"d"});
  report.AddLink(u"l", u"k");
  report.AddText(nullptr, false);
  const ustring page = saved_page();
  std::size_t cells_found = 0;
  for (std::size_t at = page.find(u"<td"); at != ustring::npos; at = page.find(u"<td", at + 1)) {
    ++cells_found;
    const ustring tag = page.substr(at, page.find(u'>', at) - at);
    EXPECT_NE(tag.find(u" valign='top'"), ustring::npos) << test::printable(tag);
  }
  EXPECT_EQ(cells_found, 6u);
}

TEST_F(Table, OpeningWithoutClosingStartsAnotherTable) {
  report.OpenTable(3);
  cells({u"a", u"b"});
  report.OpenTable(2);
  cells({u"c", u"d", u"e"});
  report.CloseTable();
  EXPECT_EQ(tables(), (page_tables{{{{u"a"}, {u"b"}}}, {{{u"c"}, {u"d"}}, {{u"e"}}}}));
}

TEST_F(Table, ClosingWithoutATableOnlyAddsABlock) {
  report.CloseTable();
  report.CloseTable();
  report.AddText(u"line", false);
  EXPECT_TRUE(same_units(
      body(), empty_block() + lines({u"    <p>", u"      <a>line</a><br/>", u"    </p>"})));
}

TEST_F(Table, LineFeedsInCellsBecomeBreaks) {
  EXPECT_EQ(cell_with(u"a\nb"), u"a<BR>b");
  EXPECT_EQ(cell_with(u"a\nb\nc").size(), ustring(u"a\nb\nc").size() + 6);
  EXPECT_EQ(cell_with(u"a\nb\nc"), u"a<BR>b<BR>c");
  EXPECT_EQ(cell_with(u"\na\n"), u"<BR>a<BR>");
  EXPECT_EQ(cell_with(u"\n\n\n"), u"<BR><BR><BR>");
  EXPECT_EQ(cell_with(u"\n"), u"<BR>");
  EXPECT_EQ(cell_with(u"no feed"), u"no feed");
}

TEST_F(Table, CarriageReturnsInCellsStay) {
  EXPECT_EQ(cell_with(u"a\r\nb"), u"a\r<BR>b");
  EXPECT_EQ(cell_with(u"a\rb"), u"a\rb");
}

TEST_F(Table, BreaksOfTheHostStay) { EXPECT_EQ(cell_with(u"a<BR>b\nc<br/>"), u"a<BR>b<BR>c<br/>"); }

TEST_F(Table, LongCellWithManyLineFeeds) {
  ustring text;
  ustring expected;
  for (int line = 0; line < 50000; ++line) {
    text += u"line\n";
    expected += u"line<BR>";
  }
  EXPECT_TRUE(same_units(cell_with(text), expected));
}

TEST_F(Table, EmptyTextIsACellOfItsOwn) {
  report.NewParagraph();
  report.OpenTable(2);
  cells({u"", u"b"});
  EXPECT_TRUE(same_units(body(), lines({
                                     u"    <p>",
                                     u"    </p>",
                                     u"    <table border='1' class='main' width='100%'>",
                                     u"      <tr>",
                                     u"        <td valign='top'>",
                                     u"          ",
                                     u"        </td>",
                                     u"        <td valign='top'>",
                                     u"          b",
                                     u"        </td>",
                                     u"      </tr>",
                                     u"    </table>",
                                 })));
}

}  // namespace

}  // namespace report_test
