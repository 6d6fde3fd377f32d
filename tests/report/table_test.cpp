#include <cstddef>
#include <string>

#include "tests/report/report_page.h"

namespace test {
namespace {

class Table : public report_test {
 protected:
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

  std::string tables() { return tables_of(body()); }
};

TEST_F(Table, AnEmptyTableHasNoRows) {
  EXPECT_TRUE(report.OpenTable(3));
  report.CloseTable();
  EXPECT_TRUE(same_units(body(), table({}) + block()));
}

TEST_F(Table, ATableIsAtTheEndOfThePageAndNotInTheBlock) {
  report.AddText(u"before", false);
  report.OpenTable(2);
  cells({u"a"});
  report.CloseTable();
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), block({u"before"}) + table(u"a") + block({u"after"})));
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
    EXPECT_NE(tag.find(u" valign='top'"), ustring::npos) << printable(tag);
  }
  EXPECT_EQ(cells_found, 6u);
}

TEST_F(Table, ClosingWithoutATableOnlyAddsABlock) {
  report.CloseTable();
  report.CloseTable();
  report.AddText(u"line", false);
  EXPECT_TRUE(same_units(body(), block() + block({u"line"})));
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
  EXPECT_TRUE(same_units(body(), block() + table({{u"", u"b"}})));
}

}  // namespace
}  // namespace test
