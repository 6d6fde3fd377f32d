#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/report/report_page.h"
#include "tests/support/temp_folder.h"
#include "tests/support/without_privileges.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class SaveOnDisk : public ::testing::Test {
 protected:
  static bool is_page(const fs::path& file) {
    const std::string bytes = bytes_of(file);
    return bytes.substr(0, 4) == std::string("\xFF\xFE<\0", 4) && bytes.size() % 2 == 0;
  }

  bool save(const ustring& folder, const char16_t* name) {
    return report.Save(folder.c_str(), name);
  }

  temp_folder temp;
  recording_opener browser;
  VellomarkObj report{platform::file_system::native(), browser};
};

TEST_F(SaveOnDisk, BothFoldersAndThePageAreMade) {
  EXPECT_TRUE(save(temp.text(u"/new"), u"page.htm"));
  const fs::path page = temp.path() / "new" / "Vellomark" / "page.htm";
  ASSERT_TRUE(is_page(page));
  EXPECT_TRUE(same_units(page_text(page), page_head() + block() + page_tail()));
}

TEST_F(SaveOnDisk, FirstBytesAreTheMarkAndLinesEndInALineFeed) {
  report.AddHeading(u"title", 1);
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  const std::string bytes = bytes_of(temp.path() / "Vellomark" / "page.htm");
  ASSERT_GT(bytes.size(), 4u);
  EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
  EXPECT_EQ(bytes.substr(bytes.size() - 4), std::string(">\0\n\0", 4));
  for (const char16_t unit : page_text(temp.path() / "Vellomark" / "page.htm"))
    ASSERT_NE(unit, u'\r');
}

TEST_F(SaveOnDisk, FoldersThatAreThereAreUsed) {
  fs::create_directories(temp.path() / "Vellomark");
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  EXPECT_TRUE(save(temp.text(u"/"), u"other.htm"));
  EXPECT_TRUE(is_page(temp.path() / "Vellomark" / "page.htm"));
  EXPECT_TRUE(is_page(temp.path() / "Vellomark" / "other.htm"));
}

TEST_F(SaveOnDisk, BackslashesSeparate) {
  EXPECT_TRUE(save(temp.text(u"\\new"), u"page.htm"));
  EXPECT_TRUE(is_page(temp.path() / "new" / "Vellomark" / "page.htm"));
}

TEST_F(SaveOnDisk, OnlyTheLastLevelOfTheFolderIsMade) {
  EXPECT_FALSE(save(temp.text(u"/one/two"), nullptr));
  EXPECT_TRUE(fs::is_empty(temp.path()));
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(SaveOnDisk, FolderWithoutANameCannotBeMade) {
  EXPECT_FALSE(save(u"", nullptr));
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(SaveOnDisk, FolderThatIsAFileFails) {
  make_file(temp.path() / "file", "of others");
  EXPECT_FALSE(save(temp.text(u"/file"), nullptr));
  EXPECT_TRUE(browser.urls.empty());
  EXPECT_EQ(bytes_of(temp.path() / "file"), "of others");
}

// Something of that name is there, which is enough for the folder; the page then
// can't be opened.
TEST_F(SaveOnDisk, ReportFolderThatIsAFileCountsAsThere) {
  make_file(temp.path() / "Vellomark", "of others");
  EXPECT_FALSE(save(temp.text(), u"page.htm"));
  EXPECT_TRUE(browser.urls.empty());
  EXPECT_FALSE(save(temp.text(), nullptr));
  EXPECT_EQ(browser.urls, std::vector<ustring>{u"file:///" + temp.text(u"/Vellomark/Report1.htm")});
  EXPECT_EQ(bytes_of(temp.path() / "Vellomark"), "of others");
}

TEST_F(SaveOnDisk, PageThatIsAFolderFails) {
  fs::create_directories(temp.path() / "Vellomark" / "page.htm");
  EXPECT_FALSE(save(temp.text(), u"page.htm"));
  EXPECT_TRUE(fs::is_empty(temp.path() / "Vellomark" / "page.htm"));
}

// The system's own files let nobody make a folder, root included.
TEST_F(SaveOnDisk, FolderInWhichNothingCanBeMadeFails) {
  if (!fs::is_directory("/proc/self")) GTEST_SKIP() << "no /proc";
  EXPECT_FALSE(save(u"/proc/self", nullptr));
  EXPECT_FALSE(save(u"/proc/vellomark", nullptr));
  EXPECT_TRUE(browser.urls.empty());
}

TEST_F(SaveOnDisk, FolderWithoutPermissionFails) {
  const fs::path locked = temp.path() / "locked";
  fs::create_directory(locked);
  for (const fs::path& path : {temp.path(), locked}) without_privileges::give(path);
  fs::permissions(locked, fs::perms::owner_read | fs::perms::owner_exec);
  {
    const without_privileges plain_user;
    EXPECT_FALSE(save(temp.text(u"/locked"), nullptr));
  }
  EXPECT_TRUE(browser.urls.empty());
  fs::permissions(locked, fs::perms::owner_all);
  EXPECT_TRUE(fs::is_empty(locked));
}

TEST_F(SaveOnDisk, PageWithoutPermissionFails) {
  fs::create_directories(temp.path() / "Vellomark");
  const fs::path page = temp.path() / "Vellomark" / "page.htm";
  make_file(page, "of others");
  for (const fs::path& path : {temp.path(), page.parent_path(), page})
    without_privileges::give(path);
  fs::permissions(page, fs::perms::owner_read);
  {
    const without_privileges plain_user;
    EXPECT_FALSE(save(temp.text(), u"page.htm"));
  }
  EXPECT_EQ(bytes_of(page), "of others");
}

TEST_F(SaveOnDisk, NamesInAllScriptsWithBlanks) {
  // Latin, Greek, Hebrew, Chinese, an emoji, a combining mark.
  const ustring name =
      u"\u00C4 b \u03B1\u03C9 \u05D0 \u4E2D\u6587 \U0001F4C4 e\u0301 $(x) 'q' \"r\" %20 &;";
  EXPECT_TRUE(save(temp.text(u"/" + name), (name + u".htm").c_str()));
  EXPECT_TRUE(is_page(temp.path() / fs::path(name) / "Vellomark" / fs::path(name + u".htm")));
}

TEST_F(SaveOnDisk, NamesWithAndWithoutFullStops) {
  for (const std::string name : {"page", "page.htm", "a.b.htm", ".hidden", "...", "page."}) {
    EXPECT_TRUE(save(temp.text(), fs::path(name).u16string().c_str())) << name;
    EXPECT_TRUE(is_page(temp.path() / "Vellomark" / name)) << name;
  }
  for (const char16_t* const folder : {u"", u".", u"..", u"/"})
    EXPECT_FALSE(save(temp.text(), folder));
}

TEST_F(SaveOnDisk, NamesWithSeparators) {
  fs::create_directories(temp.path() / "Vellomark" / "sub");
  EXPECT_TRUE(save(temp.text(), u"sub/one.htm"));
  EXPECT_TRUE(save(temp.text(), u"sub\\two.htm"));
  EXPECT_TRUE(save(temp.text(), u"../three.htm"));
  EXPECT_FALSE(save(temp.text(), u"none/four.htm"));
  EXPECT_TRUE(is_page(temp.path() / "Vellomark" / "sub" / "one.htm"));
  EXPECT_TRUE(is_page(temp.path() / "Vellomark" / "sub" / "two.htm"));
  EXPECT_TRUE(is_page(temp.path() / "three.htm"));
}

TEST_F(SaveOnDisk, NameThatIsTooLongFails) {
  EXPECT_TRUE(save(temp.text(), ustring(255, u'n').c_str()));
  EXPECT_FALSE(save(temp.text(), ustring(256, u'n').c_str()));
  EXPECT_FALSE(save(temp.text(), ustring(100000, u'n').c_str()));
  EXPECT_FALSE(save(temp.text(u"/" + ustring(256, u'f')), u"page.htm"));
  EXPECT_FALSE(save(temp.text(u"/" + ustring(100000, u'f')), u"page.htm"));
}

TEST_F(SaveOnDisk, LoneSurrogatesFail) {
  const ustring lone(1, char16_t(0xD800));
  EXPECT_FALSE(save(temp.text(), (u"a" + lone + u".htm").c_str()));
  EXPECT_FALSE(save(temp.text(u"/" + lone), nullptr));
  EXPECT_FALSE(save(temp.text(u"/" + ustring(1, char16_t(0xDC00)) + u"a"), nullptr));
  EXPECT_TRUE(browser.urls.empty());
  EXPECT_TRUE(fs::is_empty(temp.path() / "Vellomark"));
}

TEST_F(SaveOnDisk, NumbersContinueAndFillGaps) {
  EXPECT_TRUE(save(temp.text(), nullptr));
  EXPECT_TRUE(save(temp.text(), nullptr));
  EXPECT_TRUE(save(temp.text(), nullptr));
  const fs::path folder = temp.path() / "Vellomark";
  fs::remove(folder / "Report2.htm");
  fs::create_directory(folder / "Report4.htm");  // a folder of that name is taken, too
  EXPECT_TRUE(save(temp.text(), nullptr));
  EXPECT_TRUE(save(temp.text(), nullptr));
  for (const char* const name : {"Report1.htm", "Report2.htm", "Report3.htm", "Report5.htm"})
    EXPECT_TRUE(is_page(folder / name)) << name;
  EXPECT_EQ(browser.urls.at(3), u"file:///" + temp.text(u"/Vellomark/Report2.htm"));
  EXPECT_EQ(browser.urls.at(4), u"file:///" + temp.text(u"/Vellomark/Report5.htm"));
}

TEST_F(SaveOnDisk, FilesOfOthersStay) {
  const fs::path folder = temp.path() / "Vellomark";
  fs::create_directories(folder);
  for (const char* const name : {"Report1.htm", "notes.txt", "Report.htm"})
    make_file(folder / name, name);
  make_file(temp.path() / "beside.txt", "beside");
  EXPECT_TRUE(save(temp.text(), nullptr));
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  for (const char* const name : {"Report1.htm", "notes.txt", "Report.htm"})
    EXPECT_EQ(bytes_of(folder / name), name);
  EXPECT_EQ(bytes_of(temp.path() / "beside.txt"), "beside");
  EXPECT_TRUE(is_page(folder / "Report2.htm"));
}

TEST_F(SaveOnDisk, AnOldPageIsReplacedAndReadersAreNotInTheWay) {
  fs::create_directories(temp.path() / "Vellomark");
  const fs::path page = temp.path() / "Vellomark" / "page.htm";
  make_file(page, std::string(1000000, 'x'));
  std::ifstream reader(page);
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  EXPECT_TRUE(same_units(page_text(page), page_head() + block() + page_tail()));
}

TEST_F(SaveOnDisk, FullDiskIsNotReported) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  fs::create_directories(temp.path() / "Vellomark");
  fs::create_symlink("/dev/full", temp.path() / "Vellomark" / "page.htm");
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  for (int row = 0; row < 100000; ++row) report.AddText(u"a line of the page", false);
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  EXPECT_TRUE(save(temp.text(), u"elsewhere.htm")) << "the page is still whole";
  EXPECT_GT(fs::file_size(temp.path() / "Vellomark" / "elsewhere.htm"), 100000u * 18 * 2);
}

TEST_F(SaveOnDisk, LargePageIsWhole) {
  ustring expected;
  for (int row = 0; row < 100000; ++row) {
    report.AddText(u"a line \u4E2D", false);
    expected += u"      <a>a line \u4E2D</a><br/>\n";
  }
  EXPECT_TRUE(save(temp.text(), u"page.htm"));
  EXPECT_TRUE(
      same_units(page_text(temp.path() / "Vellomark" / "page.htm"),
                 page_head() + u"    <p>\n" + expected + u"    </p>\n" + block() + page_tail()));
}

}  // namespace
}  // namespace test
