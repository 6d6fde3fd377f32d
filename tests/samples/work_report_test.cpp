#include <set>
#include <vector>

#include "tests/samples/sample_files.h"

namespace test {
namespace {

using vellomark::CreateWorkVellomark;

std::size_t count(ustring_view text, ustring_view part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != ustring::npos; at = text.find(part, at + 1)) ++found;
  return found;
}

// The text between each `opening` and the next quote.
std::vector<ustring> values(ustring_view text, ustring_view opening) {
  std::vector<ustring> found;
  for (std::size_t at = text.find(opening); at != ustring::npos; at = text.find(opening, at + 1)) {
    const std::size_t from = at + opening.size();
    found.emplace_back(text.substr(from, text.find(u'\'', from) - from));
  }
  return found;
}

class WorkReport : public SampleFiles {
 protected:
  ustring text() const {
    EXPECT_TRUE(CreateWorkVellomark(path("page.htm").c_str()));
    return page("page.htm");
  }
};

// With any string table.
TEST_F(WorkReport, WritesTheKeptPage) { EXPECT_TRUE(is_golden(text(), "work_report.xhtml")); }

TEST_F(WorkReport, WritesTheSamePageAgain) {
  const ustring first = text();
  EXPECT_TRUE(same_units(text(), first));
}

TEST_F(WorkReport, ReplacesAFile) {
  make_file("page.htm", std::string(1000000, 'x'));
  EXPECT_TRUE(is_golden(text(), "work_report.xhtml"));
}

// In the inline style it would follow all other attributes.
TEST_F(WorkReport, WritesTheStyleOfTheControlAsAnAttribute) {
  EXPECT_EQ(count(text(), u" name='atltest' style='border: 1px solid #000;' title='Once "), 1u);
  EXPECT_EQ(count(text(), u" style="), 1u);
}

TEST_F(WorkReport, HasIdsWithBlanksThatItsLinksMatch) {
  EXPECT_EQ(count(text(), u"<h1 id='Result Table'>"), 1u);
  EXPECT_EQ(count(text(), u"<h1 id='Total solution'>"), 1u);
  const std::vector<ustring> targets = values(text(), u" href='#");
  EXPECT_EQ(targets, (std::vector<ustring>{u"Picture", u"Decription", u"Result Table", u"Results",
                                           u"Total solution"}));
  EXPECT_EQ(values(text(), u"<h1 id='"), targets);
}

// Rows one level below their table, and no element between.
TEST_F(WorkReport, HasRowsDirectlyBelowItsTables) {
  EXPECT_EQ(count(text(), u"tbody"), 0u);
  EXPECT_EQ(count(text(), u"\n    <table "), 2u);
  EXPECT_EQ(count(text(), u"<table "), 2u);
  EXPECT_EQ(count(text(), u"\n      <tr>\n"), 4u + 7u);
  EXPECT_EQ(count(text(), u"<tr>"), 4u + 7u);
}

TEST_F(WorkReport, HasOneStylesheetOfElevenRules) {
  EXPECT_EQ(count(text(), u"<style type='text/css'>"), 1u);
  EXPECT_EQ(count(text(), u"<style"), 1u);
  EXPECT_EQ(count(text(), u" { \n"), 11u);
}

// The log of a debugger: 24 different modules, each with one of three remarks.
TEST_F(WorkReport, IsFilledWithLinesOfALog) {
  const ustring page = text();
  EXPECT_EQ(count(page, u"': Loaded 'C:\\WINDOWS\\system32\\"), 24u);
  EXPECT_EQ(count(page, u".dll', No symbols loaded.") + count(page, u".dll', Symbols loaded.") +
                count(page, u".dll', Binary was not built with debug information."),
            24u);
  const std::vector<ustring> modules = values(page, u": Loaded '");
  EXPECT_EQ(std::set<ustring>(modules.begin(), modules.end()).size(), 24u);
  EXPECT_EQ(count(page, u"\n    <p>\n      '"), 4u);
  EXPECT_EQ(count(page, u"<p id='abzac'>\n      '"), 1u);
}

TEST_F(WorkReport, ReturnsFalseWithoutAPageThatCanBeOpened) {
  expect_unwritable(folder_, CreateWorkVellomark);
}

// Only the opening counts.
TEST_F(WorkReport, DoesNotNoticeAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  EXPECT_TRUE(CreateWorkVellomark(u"/dev/full"));
}

}  // namespace
}  // namespace test
