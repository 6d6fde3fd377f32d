#include "tests/report/report_page.h"

namespace test {
namespace {

// Whole pages; the files are written by hand from the rules.
class GoldenPage : public report_test {};

TEST_F(GoldenPage, Empty) { EXPECT_TRUE(is_golden(saved_page(), "report_empty.xhtml")); }

TEST_F(GoldenPage, Styles) {
  report.AddHeading(u"A title in the middle", 1);
  report.AddHeading(u"A chapter", 2);
  report.AddHeading(u"A bold heading", 3);
  report.AddText(u"a line below it", false);
  report.AddHeading(u"A bold and slanting heading", 4);
  report.AddHeading(u"Plain text by style 5", 5);
  report.AddText(u"a line behind it", false);
  report.AddHeading(u"A heading without a style", 0);
  report.AddText(
      u"Gr\u00F6\u00DFe, \u03A9\u03BC\u03AD\u03B3\u03B1, \u05E9\u05DC\u05D5\u05DD, "
      u"\u6F22\u5B57, \U0001F600",
      false);
  report.AddText(u"a < b && c > d is written as it stands", false);
  report.NewParagraph();
  report.AddText(u"first of two\nlines", false);
  report.AddText(u"", false);
  report.AddLink(u"not seen", u"chapter");
  EXPECT_TRUE(is_golden(saved_page(), "report_styles.xhtml"));
}

TEST_F(GoldenPage, Tables) {
  report.AddText(u"Three columns and seven cells", false);
  report.OpenTable(3);
  cells({u"a", u"b", u"c", u"d", u"e", u"f", u"g"});
  report.CloseTable();
  report.AddText(u"Two columns, the first cell over three rows", false);
  report.OpenTable(2);
  report.SetFirstCellRows(3);
  cells({u"group", u"1", u"2", u"3", u"next", u"one\ntwo\nthree"});
  report.AddLink(u"see ", u"place");
  report.CloseTable();
  report.AddText(u"Three columns, the first cell over two rows", false);
  report.OpenTable(3);
  report.SetFirstCellRows(2);
  cells({u"group", u"1", u"2", u"3", u"next"});
  report.CloseTable();
  report.AddText(u"One column", false);
  report.OpenTable(1);
  cells({u"x", u"y", u"z"});
  report.CloseTable();
  EXPECT_TRUE(is_golden(saved_page(), "report_tables.xhtml"));
}

TEST_F(GoldenPage, OpenTable) {
  report.OpenTable(2);
  report.AddText(u"a", false);
  report.AddHeading(u"behind the open table", 3);
  report.AddText(u"b", false);
  report.OpenTable(2);
  EXPECT_TRUE(is_golden(saved_page(), "report_open_table.xhtml"));
}

}  // namespace
}  // namespace test
