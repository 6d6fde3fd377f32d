#include <filesystem>
#include <string>

#include "tests/report/report_page.h"

namespace test {
namespace {

class Order : public disk_test {};

TEST_F(Order, SectionsThatShareHeadingsComeTogether) {
  add_section(report, {u"A", u"B"}, u"first", {u"1"});
  add_section(report, {u"C"}, u"second", {u"2"});
  add_section(report, {u"A", u"D"}, u"third", {u"3"});
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + heading(u'2', u"B") + section(u"first") +
                                      block({u"1"}) + heading(u'2', u"D") + section(u"third") +
                                      block({u"3"}) + heading(u'1', u"C") + section(u"second") +
                                      block({u"2"})));
}

TEST_F(Order, OfTwoWithTheSamePathTheFirstMadeComesFirstUnderOneHeading) {
  add_section(report, {u"A"}, u"one");
  add_section(report, {u"B"}, u"other");
  add_section(report, {u"A"}, u"two");
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + section(u"one") + block() +
                                      section(u"two") + block() + heading(u'1', u"B") +
                                      section(u"other") + block()));
}

TEST_F(Order, NoNameAndNoHeadingsPutOnlyTheElementsOnThePage) {
  add_section(report, {}, u"", {u"only", u"these"});
  EXPECT_TRUE(same_units(saved(), block({u"only", u"these"})));
}

TEST_F(Order, EverySectionBeginsWithABlockEvenWithoutNameAndContent) {
  report.AddText(u"page", false);
  add_section(report, {}, u"");
  add_section(report, {}, u"");
  add_section(report, {u"A"}, u"");
  EXPECT_TRUE(same_units(
      body(), block({u"page"}) + block() + block() + block() + heading(u'1', u"A") + block()));
}

TEST_F(Order, NameIsAHeadingOfStyleFourWithTheNumberSignInItsId) {
  add_section(report, {}, u"name");
  EXPECT_TRUE(same_units(saved(), section(u"name") + block()));
}

// Only one heading has the id, not a later one of the host.
TEST_F(Order, IdIsUsedOnce) {
  add_section(report, {u"A"}, u"name");
  ASSERT_TRUE(save());
  report.AddHeading(u"later", 4);
  ASSERT_TRUE(save());
  EXPECT_EQ(count_of(u" id=", saved_page()), 1u);
}

TEST_F(Order, SectionWithoutHeadingsWaitsUntilNoOtherMatches) {
  add_section(report, {u"A"}, u"", {u"first"});
  add_section(report, {}, u"", {u"bare"});
  add_section(report, {u"A", u"B"}, u"", {u"second"});
  add_section(report, {u"C"}, u"", {u"last"});
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + block({u"first"}) + heading(u'2', u"B") +
                                      block({u"second"}) + block({u"bare"}) + heading(u'1', u"C") +
                                      block({u"last"})));
}

TEST_F(Order, LongestSharedPathComesBeforeWhatWasMadeEarlier) {
  add_section(report, {u"A", u"B", u"C"}, u"", {u"1"});
  add_section(report, {u"A"}, u"", {u"2"});
  add_section(report, {u"A", u"B"}, u"", {u"3"});
  add_section(report, {u"A", u"B", u"C", u"D"}, u"", {u"4"});
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + heading(u'2', u"B") + heading(u'3', u"C") +
                                      block({u"1"}) + heading(u'4', u"D") + block({u"4"}) +
                                      block({u"3"}) + block({u"2"})));
}

// Headings are compared place by place: C is at the third place of both paths.
TEST_F(Order, HeadingAtTheSamePlaceIsLeftOutThoughOneAboveItDiffers) {
  add_section(report, {u"A", u"B", u"C"}, u"", {u"1"});
  add_section(report, {u"A", u"X", u"C"}, u"", {u"2"});
  add_section(report, {u"A", u"X", u"C", u"D"}, u"", {u"3"});
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + heading(u'2', u"B") + heading(u'3', u"C") +
                                      block({u"1"}) + heading(u'2', u"X") + block({u"2"}) +
                                      heading(u'4', u"D") + block({u"3"})));
}

// The page still has A and B after the section under A, so B isn't repeated.
TEST_F(Order, PrefixOfThePathLeavesThePathAsItIs) {
  add_section(report, {u"A", u"B", u"C"}, u"", {u"1"});
  add_section(report, {u"A"}, u"", {u"2"});
  add_section(report, {u"A", u"Y", u"C"}, u"", {u"3"});
  // After 1 both others share one heading; 2 was made first. The path is still A, B, C.
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + heading(u'2', u"B") + heading(u'3', u"C") +
                                      block({u"1"}) + block({u"2"}) + heading(u'2', u"Y") +
                                      block({u"3"})));
}

// A heading at another place isn't shared.
TEST_F(Order, SharedHeadingsHaveToLeadThePath) {
  add_section(report, {u"A", u"B"}, u"", {u"1"});
  add_section(report, {u"C"}, u"", {u"2"});
  add_section(report, {u"B", u"A"}, u"", {u"3"});
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + heading(u'2', u"B") + block({u"1"}) +
                                      heading(u'1', u"C") + block({u"2"}) + heading(u'1', u"B") +
                                      heading(u'2', u"A") + block({u"3"})));
}

TEST_F(Order, EqualHeadingsOfDifferentStylesAreTheSame) {
  report.AddSectionHeading(u"A", 1);
  report.BeginSection(u"", nullptr);
  report.AddSectionHeading(u"A", 3);
  report.AddSectionHeading(u"B", 0);
  report.BeginSection(u"", nullptr);
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + block() +
                                      lines({u"    <h5 class=''>", u"      B", u"    </h5>"}) +
                                      block() + block()));
}

// It becomes a line in the present block, which Save began at its start.
TEST_F(Order, HeadingOfStyleFiveOrMoreIsALineOfTheBlock) {
  report.AddSectionHeading(u"five", 5);
  report.AddSectionHeading(u"A", 1);
  report.AddSectionHeading(u"many", 2147483647);
  report.BeginSection(u"", nullptr);
  report.AddText(u"line", true);
  add_section(report, {u"five", u"B"}, u"");
  EXPECT_TRUE(same_units(body(), block({u"five"}) + title(u'1', u"A") + block({u"many"}) +
                                     block({u"line"}) + heading(u'2', u"B") + block()));
}

// Such a heading is added to an open table, but a line of a section isn't.
TEST_F(Order, HeadingOfStyleFiveIsACellOfAnOpenTable) {
  report.OpenTable(2);
  report.AddSectionHeading(u"cell", 5);
  report.BeginSection(u"", nullptr);
  report.AddText(u"line", true);
  EXPECT_TRUE(same_units(body(), table(u"cell") + block() + block({u"line"})));
}

TEST_F(Order, EmptyHeadingIsAHeading) {
  add_section(report, {u"", u"B"}, u"");
  add_section(report, {u""}, u"");
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"") + heading(u'2', u"B") + block() + block()));
}

TEST_F(Order, HeadingsWithoutASectionStayInTheQueueOverSave) {
  report.AddSectionHeading(u"A", 1);
  EXPECT_TRUE(same_units(saved(), u""));
  report.AddSectionHeading(u"B", 2);
  report.BeginSection(u"", nullptr);
  EXPECT_TRUE(same_units(saved(), block() + heading(u'1', u"A") + heading(u'2', u"B") + block()));
}

// The path of the first batch is forgotten: A is written again.
TEST_F(Order, LaterSectionsAreASecondBatchAtTheEnd) {
  add_section(report, {u"A"}, u"one", {u"1"});
  ASSERT_TRUE(save());
  report.AddText(u"between", false);
  add_section(report, {u"B"}, u"", {u"2"});
  add_section(report, {u"A"}, u"", {u"3"});
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + section(u"one") +
                                      block({u"1", u"between"}) + block() + heading(u'1', u"B") +
                                      block({u"2"}) + heading(u'1', u"A") + block({u"3"})));
  EXPECT_EQ(count_of(u"<h", saved()), 4u);  // nothing is left for a third
}

TEST_F(Order, NoFolderOfPicturesWithoutSections) {
  report.AddSectionHeading(u"queued", 1);
  ASSERT_TRUE(save());
  EXPECT_FALSE(std::filesystem::exists(pages() / "page_files"));
  add_section(report, {}, u"");
  ASSERT_TRUE(save());
  EXPECT_TRUE(std::filesystem::is_directory(pages() / "page_files"));
}

TEST_F(Order, FolderOfPicturesHasTheNameBeforeTheFirstFullStop) {
  add_section(report, {}, u"");
  ASSERT_TRUE(report.Save(folder.text(u"/out").c_str(), u"a.b.htm"));
  EXPECT_TRUE(std::filesystem::is_directory(pages() / "a_files"));
  add_section(report, {}, u"");
  ASSERT_TRUE(report.Save(folder.text(u"/out").c_str(), u"page"));
  EXPECT_TRUE(std::filesystem::is_directory(pages() / "_files"));
}

// The next Save places what a refused one didn't.
TEST_F(Order, SectionsStayWhenTheFolderCannotBeMade) {
  add_section(report, {u"A"}, u"name", {u"line"});
  EXPECT_FALSE(report.Save(folder.text(u"/not/there").c_str(), u"page.htm"));
  // The refused Save has begun a block all the same.
  EXPECT_TRUE(
      same_units(saved(), block() + heading(u'1', u"A") + section(u"name") + block({u"line"})));
}

}  // namespace
}  // namespace test
