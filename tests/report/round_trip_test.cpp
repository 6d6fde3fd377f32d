// Pages of reports, read back: the tree is the page's and is written to the same bytes, but
// for a few contents that the text of a page can't carry.

#include <string>

#include "tests/report/report_page.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tree_check.h"
#include "tests/support/tree_outline.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"

namespace test {
namespace {

const ustring saved_path = u"/out/Vellomark/page.htm";
const ustring second_path = u"/out/second.htm";
const ustring third_path = u"/out/third.htm";

class RoundTrip : public report_test {
 protected:
  /// Saves the report, reads the file, and writes what was read to a second file. Returns the
  /// children of the body that was read.
  std::string body_read_back() {
    EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
    return copied(saved_path, second_path);
  }

  /// Reads a file and writes another one.
  std::string copied(const ustring& from, const ustring& to) {
    xhtml_doc doc(1);
    EXPECT_TRUE(read_document(doc, files.open_for_reading(from)));
    EXPECT_TRUE(is_intact(*doc.root()));
    EXPECT_TRUE(write_document(doc, files.open_for_writing(to)));
    if (doc.head() == nullptr || doc.body() == nullptr) return "no page";
    head = outline_of_children(*doc.head());
    return outline_of_children(*doc.body());
  }

  /// Whether the second file is the saved one.
  testing::AssertionResult is_same_file() {
    return same_units(files.units(second_path), files.units(saved_path));
  }

  /// Whether reading and writing the second file changes nothing more.
  testing::AssertionResult is_settled() {
    copied(second_path, third_path);
    return same_units(files.units(third_path), files.units(second_path));
  }

  std::string head;
};

TEST_F(RoundTrip, EmptyReport) {
  EXPECT_EQ(body_read_back(), "p");
  EXPECT_EQ(head,
            "title('Report') style[type=\"text/css\"]('"
            ".Style1 { \n   text-align: center;\n}\n\n"
            ".Style2 { \n   text-align: left;\n}\n\n"
            ".Style3 { \n   text-align: left;\n   font-weight: bold;\n}\n\n"
            ".Style4 { \n   text-align: left;\n   font-weight: bold;\n   font-style: italic;\n"
            "}\n\n"
            "table.main { \n   width: 100%;\n}\n\n"
            ".main td { \n   width: 10%;\n}\n\n')");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, LinesAndBlocks) {
  report.AddText(u"one", false);
  report.AddText(u"two   words", false);
  report.NewParagraph();
  report.NewParagraph();
  report.AddText(u"", false);
  report.AddText(u" behind a blank", false);
  EXPECT_EQ(body_read_back(),
            "p(a('one') br a('two   words') br) p p(a br a(' behind a blank') br) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, HeadingsOfEachStyle) {
  for (std::int32_t style = 0; style <= 6; ++style) report.AddHeading(u"h", style);
  EXPECT_EQ(body_read_back(),
            "h5[class=\"\"]('h') p h1[class=\"Style1\"]('h') p h2[class=\"Style2\"]('h') p "
            "h3[class=\"Style3\"]('h') p h4[class=\"Style4\"]('h') p(a('h') br a('h') br) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, UnitsOfAllKinds) {
  report.AddText(u"Gr\u00F6\u00DFe \u6F22\u5B57 \xD83D\xDE00 \xDE00\xD83D \u0001\u007F", false);
  EXPECT_EQ(body_read_back(),
            "p(a('Gr\\u00F6\\u00DFe \\u6F22\\u5B57 \\uD83D\\uDE00 \\uDE00\\uD83D "
            "\\u0001\\u007F') br) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, SignsThatAreNoMarkup) {
  report.AddText(u"a & b > c &amp; &#62; &nbsp; ' -- ] /> \"quoted\"", false);
  EXPECT_EQ(body_read_back(), "p(a('a & b > c &amp; &#62; &nbsp; ' -- ] /> \"quoted\"') br) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, TablesWithLinksAndSpans) {
  report.AddText(u"above", false);
  report.OpenTable(2);
  report.SetFirstCellRows(2);
  add_texts(report, {u"group", u"1", u"2", u"next"});
  report.AddLink(u"see ", u"place");
  report.CloseTable();
  report.AddLink(u"not seen", u"place");
  EXPECT_EQ(body_read_back(),
            "p(a('above') br) "
            "table[border=\"1\" class=\"main\" width=\"100%\"]("
            "tr(td[rowspan=\"2\" valign=\"top\"]('group') td[valign=\"top\"]('1')) "
            "tr(td[valign=\"top\"]('2')) "
            "tr(td[valign=\"top\"]('next') "
            "td[valign=\"top\"]('see ' a[href=\"#place\"]('place')))) "
            "p(a[href=\"#place\"]('place') br) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, TableThatIsStillOpen) {
  report.OpenTable(3);
  report.AddText(u"a", false);
  EXPECT_EQ(body_read_back(),
            "table[border=\"1\" class=\"main\" width=\"100%\"](tr(td[valign=\"top\"]('a'))) p p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, LargeTable) {
  report.OpenTable(10);
  std::string row = "tr(";
  for (int column = 0; column != 10; ++column)
    row += column == 0 ? "td[valign=\"top\"]('x y')" : " td[valign=\"top\"]('x y')";
  row += ")";
  std::string rows = row;
  for (int i = 0; i != 10'000; ++i) {
    report.AddText(u"x y", false);
    if (i % 10 == 9 && i != 9) rows += " " + row;
  }
  const std::string body = "table[border=\"1\" class=\"main\" width=\"100%\"](" + rows + ") p p";
  EXPECT_TRUE(body_read_back() == body);
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, Sections) {
  report.AddSectionHeading(u"Part", 1);
  report.AddSectionHeading(u"Chapter", 2);
  report.BeginSection(u"first", nullptr);
  report.AddText(u"line", true);
  report.AddSectionHeading(u"Part", 1);
  report.BeginSection(u"second", nullptr);
  report.SetSectionMode(true);
  report.OpenTable(1);
  report.AddText(u"cell", false);
  report.CloseTable();
  report.SetSectionMode(false);
  report.AddText(u"page", false);
  EXPECT_EQ(body_read_back(),
            "p(a('page') br) p "
            "h1[class=\"Style1\"]('Part') p h2[class=\"Style2\"]('Chapter') p p "
            "h4[class=\"Style4\" id=\"#first\"]('first') p(a('line') br) p "
            "h4[class=\"Style4\" id=\"#second\"]('second') p p "
            "table[border=\"1\" class=\"main\" width=\"100%\"](tr(td[valign=\"top\"]('cell'))) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, SavedTwice) {
  report.AddText(u"one", false);
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  report.AddText(u"two", false);
  EXPECT_EQ(body_read_back(), "p(a('one') br) p(a('two') br) p");
  EXPECT_TRUE(is_same_file());
}

TEST_F(RoundTrip, OnTheDisk) {
  const temp_folder folder;
  platform::file_system& disk = platform::file_system::native();
  VellomarkObj on_disk(disk, browser);
  on_disk.AddText(u"one", false);
  ASSERT_TRUE(on_disk.Save(folder.text(u"/out").c_str(), u"page.htm"));
  xhtml_doc doc(0);
  ASSERT_TRUE(read_document(doc, disk.open_for_reading(folder.text(u"/out/Vellomark/page.htm"))));
  ASSERT_TRUE(write_document(doc, disk.open_for_writing(folder.text(u"/second.htm"))));
  EXPECT_EQ(outline_of_children(*doc.body()), "p(a('one') br) p");
  EXPECT_EQ(bytes_of(folder.path() / "second.htm"),
            bytes_of(folder.path() / "out" / "Vellomark" / "page.htm"));
  EXPECT_FALSE(read_document(doc, disk.open_for_reading(folder.text(u"/none.htm"))));
  EXPECT_FALSE(read_document(doc, disk.open_for_reading(folder.text(u"/out"))));
  EXPECT_EQ(outline_of_children(*doc.body()), "p(a('one') br) p");
}

// Markup in a text is written unchanged, and is markup when it's read.
TEST_F(RoundTrip, MarkupInATextKeepsTheBytes) {
  report.AddText(u"a<b class='x'>c</b>d<!-- e -->", false);
  EXPECT_EQ(body_read_back(), "p(a('a' b[class=\"x\"]('c') 'd' #e#) br) p");
  EXPECT_TRUE(is_same_file());
}

// --- What a page can't carry ---

// The writer indents after a line feed in a text; one blank is read back.
TEST_F(RoundTrip, LineFeedInATextBecomesABlank) {
  report.AddText(u"first of two\nlines", false);
  EXPECT_EQ(body_read_back(), "p(a('first of two lines') br) p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// The line feed in a cell becomes markup, which the writer spells in another way.
TEST_F(RoundTrip, LineFeedInACellBecomesAnElement) {
  report.OpenTable(1);
  report.AddText(u"one\ntwo", false);
  EXPECT_EQ(body_read_back(),
            "table[border=\"1\" class=\"main\" width=\"100%\"]("
            "tr(td[valign=\"top\"]('one' br 'two'))) p p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// An empty text in a block is a line of blanks, which is read as no text.
TEST_F(RoundTrip, EmptyTextInACellIsLost) {
  report.OpenTable(1);
  report.AddText(u"", false);
  EXPECT_EQ(body_read_back(),
            "table[border=\"1\" class=\"main\" width=\"100%\"](tr(td[valign=\"top\"])) p p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// Text before an end tag loses its white space, and so does text after the start tag of a block.
TEST_F(RoundTrip, BlanksAtTheEndsOfTextsAreLost) {
  report.AddText(u" a ", false);
  report.AddHeading(u" b ", 1);
  EXPECT_EQ(body_read_back(), "p(a(' a') br) h1[class=\"Style1\"]('b') p p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// From a double quote to the next one there are no tags.
TEST_F(RoundTrip, DoubleQuotesHideWhatIsBetweenThem) {
  report.AddText(u"5\" disk", false);
  report.AddText(u"3\" disk", false);
  EXPECT_EQ(body_read_back(), "p(a('5\" disk</a><br/> <a>3\" disk') br) p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

TEST_F(RoundTrip, LoneDoubleQuoteHidesTheRestOfThePage) {
  report.AddText(u"5\" disk", false);
  EXPECT_EQ(body_read_back(), "p(a('5\" disk</a><br/> </p> <p> </p> </body> </html> '))");
  EXPECT_FALSE(is_same_file());
}

// A "<" that begins no known name is text, in which the white space after it is doubled.
TEST_F(RoundTrip, WhiteSpaceAfterALessThanSignIsDoubled) {
  report.AddText(u"a < b", false);
  EXPECT_EQ(body_read_back(), "p(a('a ' '<  b') br) p");
  EXPECT_FALSE(is_same_file());
  EXPECT_FALSE(is_settled()) << "each time once more";
}

// A tag of an unknown name is dropped.
TEST_F(RoundTrip, UnknownTagInATextIsLost) {
  report.AddText(u"vector<T>", false);
  EXPECT_EQ(body_read_back(), "p(a('vector') br) p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// Attribute values are written in apostrophes, unchanged.
TEST_F(RoundTrip, ApostropheEndsTheTargetOfALink) {
  report.AddLink(u"", u"it's");
  EXPECT_EQ(body_read_back(), "p(a[href=\"#it\"]('it's') br) p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// An anchor accepts no anchor.
TEST_F(RoundTrip, AnchorInATextEndsTheAnchorOfTheLine) {
  report.AddText(u"a<a>b</a>c", false);
  EXPECT_EQ(body_read_back(), "p(a('a') a('b') 'c' br) p");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

// The highest unit reads like the end of the file.
TEST_F(RoundTrip, HighestUnitEndsThePage) {
  report.AddText(u"a\uFFFFb", false);
  EXPECT_EQ(body_read_back(), "p(a('a'))");
  EXPECT_FALSE(is_same_file());
  EXPECT_TRUE(is_settled());
}

}  // namespace
}  // namespace test
