#include <cstddef>
#include <string>
#include <vector>

#include "tests/report/report_page.h"
#include "xport/text/number_format.h"

namespace test {
namespace {

using call = memory_files::call;

class Save : public report_test {
 protected:
  // The calls without the writes, whose number depends on the page.
  std::vector<call> calls_but_writes() const {
    std::vector<call> found;
    for (const call& made : files.calls)
      if (made.what != file_call::write) found.push_back(made);
    return found;
  }

  void make_page(const ustring& path) { files.contents[path] = "of others"; }

  void make_report_folder() {
    files.folders.insert(u"/out");
    files.folders.insert(u"/out/Vellomark");
  }
};

TEST_F(Save, MakesBothFoldersAndThePage) {
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  EXPECT_EQ(calls_but_writes(),
            (std::vector<call>{{file_call::exists, u"/out"},
                               {file_call::create, u"/out"},
                               {file_call::create, u"/out/Vellomark/"},
                               {file_call::open, u"/out/Vellomark/page.htm"},
                               {file_call::close, u"/out/Vellomark/page.htm"}}));
  EXPECT_EQ(files.open_files, 0u);
}

TEST_F(Save, AFolderThatIsThereIsNotMade) {
  files.folders.insert(u"/out");
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  EXPECT_EQ(calls_but_writes(),
            (std::vector<call>{{file_call::exists, u"/out"},
                               {file_call::create, u"/out/Vellomark/"},
                               {file_call::open, u"/out/Vellomark/page.htm"},
                               {file_call::close, u"/out/Vellomark/page.htm"}}));
}

TEST_F(Save, AReportFolderThatIsThereIsAccepted) {
  make_report_folder();
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
}

// Somebody else makes the folder between the check and the call.
TEST_F(Save, AFolderThatAppearsMeanwhileIsAccepted) {
  files.folders.insert(u"/out");
  files.fail(file_call::exists, 1);
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  EXPECT_EQ(files.count(file_call::create), 2u);
}

TEST_F(Save, FolderThatCannotBeMadeEndsTheCall) {
  files.fail(file_call::create, 1);
  EXPECT_FALSE(report.Save(u"/out", nullptr));
  EXPECT_EQ(calls_but_writes(),
            (std::vector<call>{{file_call::exists, u"/out"}, {file_call::create, u"/out"}}));
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(Save, ReportFolderThatCannotBeMadeEndsTheCall) {
  files.folders.insert(u"/out");
  files.fail(file_call::create, 1);
  EXPECT_FALSE(report.Save(u"/out", nullptr));
  EXPECT_EQ(calls_but_writes(), (std::vector<call>{{file_call::exists, u"/out"},
                                                   {file_call::create, u"/out/Vellomark/"}}));
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(Save, EveryCallStartsABlockEvenIfItFailsEarly) {
  report.AddText(u"line", false);
  files.fail(file_call::create, 1);
  EXPECT_FALSE(report.Save(u"/out", u"page.htm"));
  files.fail(file_call::create, 2);
  EXPECT_FALSE(report.Save(u"/out", u"page.htm"));
  files.fail(file_call::open, 1);
  EXPECT_FALSE(report.Save(u"/out", u"page.htm"));
  EXPECT_TRUE(same_units(body(), block({u"line"}) + block() + block() + block()));
}

TEST_F(Save, TextAfterASaveIsAddedToTheBlockThatItStarted) {
  report.AddText(u"before", false);
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  report.AddText(u"after", false);
  EXPECT_TRUE(same_units(body(), block({u"before"}) + block({u"after"})));
}

TEST_F(Save, AnOpenTableStaysOpen) {
  report.OpenTable(2);
  report.AddText(u"a", false);
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  report.AddText(u"b", false);
  const ustring page = saved_page();
  EXPECT_LT(page.find(u"          b\n"), page.find(u"      </tr>"));
}

TEST_F(Save, PageThatCannotBeOpenedIsFalse) {
  files.fail(file_call::open, 1);
  EXPECT_FALSE(report.Save(u"/out", u"page.htm"));
  EXPECT_EQ(files.count(file_call::write), 0u);
  EXPECT_EQ(files.count(file_call::close), 0u);
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(Save, BrowserIsSentToAPageThatCouldNotBeOpened) {
  files.fail(file_call::open, 1);
  EXPECT_FALSE(report.Save(u"/out", nullptr));
  EXPECT_EQ(browser.urls, std::vector<ustring>{u"file:////out/Vellomark/Report1.htm"});
}

TEST_F(Save, BrowserGetsThePathUnchanged) {
  files.folders.insert(u"C:/a b");
  EXPECT_TRUE(report.Save(u"C:\\a b", nullptr));
  EXPECT_TRUE(report.Save(u"C:\\a b", nullptr));
  EXPECT_EQ(browser.urls, (std::vector<ustring>{u"file:///C:\\a b/Vellomark/Report1.htm",
                                                u"file:///C:\\a b/Vellomark/Report2.htm"}));
}

TEST_F(Save, NamedPagesAreNeverShown) {
  for (const char16_t* const name :
       {u"page.htm", u"page", u".htm", u"a.b.htm", u"", u"no/page.htm"})
    report.Save(u"/out", name);
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(Save, WritingThatFailsIsStillTrue) {
  for (int row = 0; row < 20000; ++row) report.AddText(u"a line of the page", false);
  ASSERT_TRUE(report.Save(u"/out", u"whole.htm"));
  const std::size_t writes = files.count(file_call::write);
  ASSERT_GT(writes, 3u);
  for (std::size_t failing = 1; failing <= writes; ++failing) {
    files.calls.clear();
    files.fail(file_call::write, failing);
    EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
    EXPECT_EQ(files.count(file_call::write), failing) << "nothing is written after a failure";
    EXPECT_EQ(files.count(file_call::close), 1u);
    EXPECT_EQ(files.open_files, 0u);
    const std::string& part = files.contents.at(u"/out/Vellomark/page.htm");
    EXPECT_EQ(part, files.contents.at(u"/out/Vellomark/whole.htm").substr(0, part.size()));
  }
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(Save, WritingThatFailsStillShowsThePage) {
  files.fail(file_call::write, 1);
  EXPECT_TRUE(report.Save(u"/out", nullptr));
  EXPECT_EQ(browser.urls.size(), 1u);
}

TEST_F(Save, ClosingThatFailsIsStillTrue) {
  files.fail(file_call::close, 1);
  EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
  EXPECT_TRUE(same_units(files.units(u"/out/Vellomark/page.htm"),
                         u"\uFEFF" + page_head() + block() + page_tail()));
}

TEST_F(Save, WritesComeByBlocksAndNotByElements) {
  for (int row = 0; row < 20000; ++row) report.AddText(u"line", false);
  ASSERT_TRUE(report.Save(u"/out", u"page.htm"));
  const std::size_t bytes = files.contents.at(u"/out/Vellomark/page.htm").size();
  EXPECT_LE(files.count(file_call::write), bytes / 65536 + 1);
}

TEST_F(Save, SavingTwiceWritesThePageAgainWithOneMoreBlock) {
  report.AddHeading(u"title", 1);
  const ustring first = saved_page();
  const ustring second = saved_page();
  EXPECT_TRUE(same_units(
      second, first.substr(0, first.size() - page_tail().size()) + block() + page_tail()));
}

TEST_F(Save, AShorterPageReplacesALongerOne) {
  VellomarkObj longer(files, browser);
  for (int row = 0; row < 1000; ++row) longer.AddText(u"line", false);
  ASSERT_TRUE(longer.Save(u"/out", u"page.htm"));
  EXPECT_TRUE(same_units(saved_page(), page_head() + block() + page_tail()));
}

TEST_F(Save, SameCallsGiveSameBytes) {
  for (const char16_t* const name : {u"one.htm", u"two.htm"}) {
    VellomarkObj one(files, browser);
    one.AddHeading(u"title", 2);
    one.OpenTable(3);
    for (int cell = 0; cell < 100; ++cell) one.AddText(u"cell", false);
    one.CloseTable();
    ASSERT_TRUE(one.Save(u"/out", name));
  }
  EXPECT_EQ(files.contents.at(u"/out/Vellomark/one.htm"),
            files.contents.at(u"/out/Vellomark/two.htm"));
}

TEST_F(Save, NamesAreUsedAsTheyAre) {
  for (const ustring name :
       {u"page", u"page.htm", u"a.b.htm", u".htm", u"..htm", u"page.", u"p q"}) {
    EXPECT_TRUE(report.Save(u"/out", name.c_str()));
    EXPECT_EQ(files.contents.count(u"/out/Vellomark/" + name), 1u) << printable(name);
  }
}

TEST_F(Save, EmptyNameIsTheFolderAndCannotBeOpened) {
  EXPECT_FALSE(report.Save(u"/out", u""));
  EXPECT_EQ(files.calls.back(), (call{file_call::open, u"/out/Vellomark/"}));
  EXPECT_TRUE(files.contents.empty());
}

TEST_F(Save, NamesWithSeparatorsLeadIntoFolders) {
  EXPECT_FALSE(report.Save(u"/out", u"sub/page.htm"));
  EXPECT_FALSE(report.Save(u"/out", u"sub\\page.htm"));
  files.folders.insert(u"/out/Vellomark/sub");
  EXPECT_TRUE(report.Save(u"/out", u"sub/page.htm"));
  EXPECT_TRUE(report.Save(u"/out", u"sub\\page.htm"));
  EXPECT_EQ(files.contents.size(), 1u);
}

TEST_F(Save, LibraryChoosesTheNextFreeNumber) {
  for (int number = 1; number <= 3; ++number) EXPECT_TRUE(report.Save(u"/out", nullptr));
  EXPECT_EQ(files.contents.count(u"/out/Vellomark/Report1.htm"), 1u);
  EXPECT_EQ(files.contents.count(u"/out/Vellomark/Report2.htm"), 1u);
  EXPECT_EQ(files.contents.count(u"/out/Vellomark/Report3.htm"), 1u);
  EXPECT_EQ(files.contents.size(), 3u);
}

TEST_F(Save, NamesStartAfterABackslash) {
  make_report_folder();
  make_page(u"/out/Vellomark/Report1.htm");
  EXPECT_TRUE(report.Save(u"/out", nullptr));
  EXPECT_EQ(calls_but_writes(),
            (std::vector<call>{{file_call::exists, u"/out"},
                               {file_call::create, u"/out/Vellomark/"},
                               {file_call::exists, u"/out/Vellomark/\\Report1.htm"},
                               {file_call::exists, u"/out/Vellomark/\\Report2.htm"},
                               {file_call::open, u"/out/Vellomark/Report2.htm"},
                               {file_call::close, u"/out/Vellomark/Report2.htm"}}));
}

TEST_F(Save, GapsInTheNumbersAreFilledAndOthersStay) {
  make_report_folder();
  for (const char16_t* const name : {u"Report.htm", u"Report1.htm", u"Report2.htm", u"Report4.htm"})
    make_page(ustring(u"/out/Vellomark/") + name);
  EXPECT_TRUE(report.Save(u"/out", nullptr));
  EXPECT_TRUE(report.Save(u"/out", nullptr));
  EXPECT_EQ(browser.urls, (std::vector<ustring>{u"file:////out/Vellomark/Report3.htm",
                                                u"file:////out/Vellomark/Report5.htm"}));
  for (const char16_t* const name : {u"Report.htm", u"Report1.htm", u"Report2.htm", u"Report4.htm"})
    EXPECT_EQ(files.contents.at(ustring(u"/out/Vellomark/") + name), "of others");
}

TEST_F(Save, NumbersGrowDigits) {
  make_report_folder();
  for (int number = 1; number <= 1234; ++number)
    make_page(u"/out/Vellomark/Report" + to_ustring(number) + u".htm");
  EXPECT_TRUE(report.Save(u"/out", nullptr));
  EXPECT_EQ(browser.urls, std::vector<ustring>{u"file:////out/Vellomark/Report1235.htm"});
}

// A path is looked up as long as it has at most 259 units; a longer one counts as free.
class ReportNumber : public Save {
 protected:
  // A folder below which the path looked up for Report1.htm has that many units.
  static ustring folder_for(std::size_t path_units) {
    const std::size_t rest = ustring(u"/Vellomark/\\Report1.htm").size();
    return u"/" + ustring(path_units - rest - 1, u'f');
  }

  ustring saved_name(const ustring& folder) {
    browser.urls.clear();
    EXPECT_TRUE(report.Save(folder.c_str(), nullptr));
    const ustring& url = browser.urls.at(0);
    return url.substr(url.rfind(u'/') + 1);
  }
};

class ReportNumberInPathOf : public ReportNumber,
                             public ::testing::WithParamInterface<std::size_t> {};

TEST_P(ReportNumberInPathOf, IsLookedForUpTo259Units) {
  const ustring folder = folder_for(GetParam());
  const bool looked_up = GetParam() <= 259;
  EXPECT_EQ(saved_name(folder), u"Report1.htm");
  EXPECT_EQ(saved_name(folder), looked_up ? u"Report2.htm" : u"Report1.htm");
  EXPECT_EQ(saved_name(folder), looked_up ? u"Report3.htm" : u"Report1.htm");
}

INSTANTIATE_TEST_SUITE_P(Units, ReportNumberInPathOf,
                         ::testing::Values(257, 258, 259, 260, 261, 300));

TEST_F(ReportNumber, ThatMakesThePathTooLongCountsAsFree) {
  const ustring folder = folder_for(259);
  for (int number = 1; number <= 9; ++number) saved_name(folder);
  EXPECT_EQ(saved_name(folder), u"Report10.htm");
  EXPECT_EQ(saved_name(folder), u"Report10.htm");
  EXPECT_EQ(files.contents.size(), 10u);
}

}  // namespace
}  // namespace test
