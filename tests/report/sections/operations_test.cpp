#include <string>

#include "tests/report/report_page.h"

namespace test {
namespace {

// Which of the two switches are on.
enum class mode { page, page_direct, section, section_direct };

class Operations : public disk_test {
 protected:
  void set(mode both) {
    report.SetSectionMode(both == mode::section || both == mode::section_direct);
    if (both == mode::page_direct || both == mode::section_direct)
      report.BeginDirectLinks();
    else
      report.EndDirectLinks();
  }

  // The body after Save with `page` in the blocks of the page, which come first,
  // and `content` in the one section.
  static ustring page_and_section(ustring_view page, ustring_view content) {
    const ustring of_page = page.empty() ? ustring() : paragraph(page);
    return of_page + block() + paragraph(content);
  }
};

constexpr ustring_view line = u"      <a>t</a><br/>\n";
constexpr ustring_view link_line = u"      <a href='#t'>t</a><br/>\n";

TEST_F(Operations, TextForThePage) {
  report.BeginSection(u"", nullptr);
  report.AddText(u"t", false);
  EXPECT_TRUE(same_units(body(), page_and_section(line, u"")));
}

TEST_F(Operations, TextForThePageWithDirectLinksOnly) {
  report.BeginSection(u"", nullptr);
  set(mode::page_direct);
  report.AddText(u"t", false);
  EXPECT_TRUE(same_units(body(), page_and_section(line, u"")));
}

TEST_F(Operations, TextInSectionModeIsTheSections) {
  report.BeginSection(u"", nullptr);
  set(mode::section);
  report.AddText(u"t", false);
  EXPECT_TRUE(same_units(body(), page_and_section(u"", line)));
}

TEST_F(Operations, TextInSectionModeWithDirectLinksIsThePages) {
  report.BeginSection(u"", nullptr);
  set(mode::section_direct);
  report.AddText(u"t", false);
  EXPECT_TRUE(same_units(body(), page_and_section(line, u"")));
}

TEST_F(Operations, TextForTheSectionIsTheSectionsInEveryMode) {
  report.BeginSection(u"", nullptr);
  ustring four;
  for (const mode each : {mode::page, mode::page_direct, mode::section, mode::section_direct}) {
    set(each);
    report.AddText(u"t", true);
    four += line;
  }
  EXPECT_TRUE(same_units(body(), page_and_section(u"", four)));
}

TEST_F(Operations, LinkIsOnThePageButInSectionModeAlone) {
  report.BeginSection(u"", nullptr);
  set(mode::page);
  report.AddLink(u"n", u"t");
  set(mode::page_direct);
  report.AddLink(u"n", u"t");
  set(mode::section_direct);
  report.AddLink(u"n", u"t");
  set(mode::section);
  report.AddLink(u"n", u"lost");
  EXPECT_TRUE(same_units(
      body(), page_and_section(ustring(link_line) + ustring(link_line) + ustring(link_line), u"")));
}

TEST_F(Operations, NullTextForASectionIsNothing) {
  report.BeginSection(u"", nullptr);
  report.AddText(nullptr, true);
  set(mode::section);
  report.AddText(nullptr, false);
  EXPECT_TRUE(same_units(body(), page_and_section(u"", u"")));
}

TEST_F(Operations, EmptyTextIsALine) {
  report.BeginSection(u"", nullptr);
  report.AddText(u"", true);
  EXPECT_TRUE(same_units(body(), page_and_section(u"", u"      <a></a><br/>\n")));
}

// The writer indents after a line feed; the text itself isn't changed.
TEST_F(Operations, LineFeedsOfALineStay) {
  report.BeginSection(u"", nullptr);
  report.AddText(u"a\nb", true);
  EXPECT_TRUE(same_units(body(), page_and_section(u"", u"      <a>a\n      b</a><br/>\n")));
}

TEST_F(Operations, TextIsAddedToTheLastSection) {
  report.BeginSection(u"one", nullptr);
  report.BeginSection(u"two", nullptr);
  report.AddText(u"t", true);
  EXPECT_TRUE(same_units(saved(), section(u"one") + block() + section(u"two") + block({u"t"})));
}

TEST_F(Operations, TextBeforeTheFirstSectionIsDropped) {
  report.AddText(u"lost", true);
  set(mode::section);
  report.AddText(u"lost", false);
  report.BeginSection(u"", nullptr);
  report.AddText(u"t", false);
  EXPECT_TRUE(same_units(body(), page_and_section(u"", line)));
}

TEST_F(Operations, TextAfterSaveHasNoSection) {
  report.BeginSection(u"", nullptr);
  ASSERT_TRUE(save());
  report.AddText(u"lost", true);
  EXPECT_TRUE(same_units(body(), block() + block() + block()));
}

TEST_F(Operations, HeadingsAndBlocksAreThePagesInSectionMode) {
  report.BeginSection(u"", nullptr);
  set(mode::section);
  report.AddHeading(u"H", 2);
  report.NewParagraph();
  EXPECT_TRUE(same_units(body(), heading(u'2', u"H") + block() + block() + block()));
}

TEST_F(Operations, SectionIsNamedByItsName) {
  set(mode::page);
  report.BeginSection(u"one", u"unused");
  set(mode::section);
  report.BeginSection(u"two", nullptr);
  EXPECT_TRUE(same_units(saved(), section(u"one") + block() + section(u"two") + block()));
}

TEST_F(Operations, DirectLinkNamesTheSectionByItsTargetAndLinksToIt) {
  report.AddText(u"see", false);
  set(mode::page_direct);
  report.BeginSection(u"name", u"t");
  EXPECT_TRUE(same_units(body(), u"    <p>\n      <a>see</a><br/>\n" + ustring(link_line) +
                                     u"    </p>\n" + block() + section(u"t") + block()));
}

// The first content begins a block, even if it is a cell.
TEST_F(Operations, DirectLinkInAnOpenTableIsACellWithNameAndLink) {
  report.OpenTable(2);
  set(mode::page_direct);
  report.BeginSection(u"name", u"t");
  report.CloseTable();
  ASSERT_TRUE(save());
  EXPECT_TRUE(same_units(body_of(saved_page()), table(u"name<a href='#t'>t</a>") + block() +
                                                    block() + block() + section(u"t") + block()));
}

TEST_F(Operations, BeginSectionDoesNothingWithBothSwitchesOn) {
  report.AddSectionHeading(u"A", 1);
  set(mode::section_direct);
  report.BeginSection(u"name", u"t");
  EXPECT_TRUE(same_units(saved(), u""));
  set(mode::page);
  report.BeginSection(u"", nullptr);  // gets the queue, which stayed
  EXPECT_TRUE(same_units(saved(), block() + heading(u'1', u"A") + block()));
}

TEST_F(Operations, NullNameChangesNothing) {
  report.AddSectionHeading(u"A", 1);
  for (const mode each : {mode::page, mode::page_direct, mode::section, mode::section_direct}) {
    set(each);
    report.BeginSection(nullptr, u"t");
    report.BeginSection(nullptr, nullptr);
  }
  EXPECT_TRUE(same_units(saved(), u""));
  set(mode::page);
  report.BeginSection(u"", nullptr);
  EXPECT_TRUE(same_units(saved(), block() + heading(u'1', u"A") + block()));
}

// Null is no defined input for a target that is read.
TEST_F(Operations, NullTargetOfADirectLinkChangesNothing) {
  report.AddSectionHeading(u"A", 1);
  set(mode::page_direct);
  report.BeginSection(u"name", nullptr);
  EXPECT_TRUE(same_units(saved(), u""));
  report.BeginSection(u"name", u"");
  // An empty target is a link to "#" and a section without a heading of its own.
  EXPECT_TRUE(same_units(body(), paragraph(u"      <a href='#'></a><br/>\n") + block() +
                                     heading(u'1', u"A") + block()));
}

TEST_F(Operations, LongestTargetIsLinked) {
  const ustring target(253, u'x');
  set(mode::page_direct);
  report.BeginSection(u"n", target.c_str());
  EXPECT_TRUE(same_units(body(), u"    <p>\n      <a href='#" + target + u"'>" + target +
                                     u"</a><br/>\n    </p>\n" + block() + section(target) +
                                     block()));
}

TEST_F(Operations, LongerTargetMakesTheSectionWithoutALink) {
  const ustring target(254, u'x');
  set(mode::page_direct);
  report.BeginSection(u"n", target.c_str());
  EXPECT_TRUE(same_units(body(), block() + section(target) + block()));
}

TEST_F(Operations, QueueGrowsOverOtherCallsUntilASectionUsesIt) {
  report.AddSectionHeading(u"A", 1);
  report.AddText(u"page", false);
  set(mode::section);
  report.AddSectionHeading(nullptr, 2);  // nothing to queue
  report.AddSectionHeading(u"B", 2);
  set(mode::page);
  report.BeginSection(u"", nullptr);
  report.BeginSection(u"", nullptr);  // the queue is empty again
  report.AddText(u"t", true);
  // The second section, without a path, comes when no other is left.
  EXPECT_TRUE(same_units(body(), block({u"page"}) + block() + heading(u'1', u"A") +
                                     heading(u'2', u"B") + block() + block({u"t"})));
}

TEST_F(Operations, DirectLinksAreASwitch) {
  report.EndDirectLinks();
  report.BeginDirectLinks();
  report.BeginDirectLinks();
  report.EndDirectLinks();
  report.BeginSection(u"name", u"t");
  EXPECT_TRUE(same_units(saved(), section(u"name") + block()));
}

TEST_F(Operations, ReleaseWithSectionsWaitingWritesNothing) {
  {
    VellomarkObj other(platform::file_system::native(), browser);
    add_section(other, {u"A", u"B"}, u"name", {u"1", u"2"});
    other.SetSectionMode(true);
    other.OpenTable(2);
    other.AddSectionHeading(u"queued", 1);
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace test
