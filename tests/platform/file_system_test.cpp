#include "platform/file_system.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/support/temp_folder.h"

namespace test {
namespace {

namespace fs = std::filesystem;
using platform::file_system;
using platform::folder_result;
using Xport::ustring;

class FileSystem : public ::testing::Test {
 protected:
  temp_folder temp;
  file_system& files = file_system::native();
  const ustring lone = ustring(1, char16_t(0xD800));
};

TEST_F(FileSystem, ExistsIsTrueForFilesAndFolders) {
  make_file(temp.path() / "file", "x");
  EXPECT_TRUE(files.exists(temp.text()));
  EXPECT_TRUE(files.exists(temp.text(u"/file")));
  EXPECT_TRUE(files.exists(temp.text(u"\\file")));
  EXPECT_TRUE(files.exists(temp.text(u"/\\file")));
  EXPECT_TRUE(files.exists(u"/dev/null"));
}

TEST_F(FileSystem, ExistsIsFalseForWhatIsNotThere) {
  make_file(temp.path() / "file", "x");
  EXPECT_FALSE(files.exists(u""));
  EXPECT_FALSE(files.exists(temp.text(u"/none")));
  EXPECT_FALSE(files.exists(temp.text(u"/none/none")));
  EXPECT_FALSE(files.exists(temp.text(u"/file/below")));
  EXPECT_FALSE(files.exists(temp.text(u"/" + ustring(300, u'n'))));
  EXPECT_FALSE(files.exists(temp.text(u"/" + lone)));
}

TEST_F(FileSystem, CreatesTheLastLevel) {
  EXPECT_EQ(files.create_directory(temp.text(u"/new")), folder_result::created);
  EXPECT_EQ(files.create_directory(temp.text(u"/new\\below/")), folder_result::created);
  EXPECT_TRUE(fs::is_directory(temp.path() / "new" / "below"));
  EXPECT_EQ(files.create_directory(temp.text(u"/none/below")), folder_result::failed);
  EXPECT_FALSE(fs::exists(temp.path() / "none"));
}

TEST_F(FileSystem, CreatingWhatIsThereSaysSo) {
  make_file(temp.path() / "file", "x");
  EXPECT_EQ(files.create_directory(temp.text()), folder_result::already_exists);
  EXPECT_EQ(files.create_directory(temp.text(u"/")), folder_result::already_exists);
  EXPECT_EQ(files.create_directory(temp.text(u"/file")), folder_result::already_exists);
  EXPECT_EQ(files.create_directory(temp.text(u"/file/")), folder_result::already_exists);
  EXPECT_EQ(files.create_directory(temp.text(u"/file/below")), folder_result::failed);
  EXPECT_EQ(bytes_of(temp.path() / "file"), "x");
}

TEST_F(FileSystem, CreatingFailsForImpossiblePaths) {
  EXPECT_EQ(files.create_directory(u""), folder_result::failed);
  EXPECT_EQ(files.create_directory(temp.text(u"/" + ustring(300, u'n'))), folder_result::failed);
  EXPECT_EQ(files.create_directory(temp.text(u"/" + lone)), folder_result::failed);
  EXPECT_TRUE(fs::is_empty(temp.path()));
}

TEST_F(FileSystem, OpensNewAndOldFilesEmpty) {
  make_file(temp.path() / "old", "of before");
  for (const ustring name : {u"/old", u"/new"}) {
    const std::unique_ptr<Xport::byte_output> file = files.open_for_writing(temp.text(name));
    ASSERT_TRUE(file);
    EXPECT_EQ(fs::file_size(temp.path() / fs::path(name).filename()), 0u);
    EXPECT_TRUE(file->write("one ", 4));
    EXPECT_TRUE(file->write("", 0));
    EXPECT_TRUE(file->write("two", 3));
    EXPECT_TRUE(file->close());
    EXPECT_EQ(bytes_of(temp.path() / fs::path(name).filename()), "one two");
  }
}

TEST_F(FileSystem, ReadersSeeTheFileWhileItIsOpen) {
  const std::unique_ptr<Xport::byte_output> file = files.open_for_writing(temp.text(u"/page"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write("part", 4));
  EXPECT_EQ(bytes_of(temp.path() / "page"), "part");
  EXPECT_TRUE(files.open_for_writing(temp.text(u"/page"))) << "nobody is denied the file";
  EXPECT_TRUE(file->close());
}

TEST_F(FileSystem, FileIsClosedWithItsObject) {
  const auto open_files = [] {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd")) ++count;
    return count;
  };
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "no /proc";
  const std::size_t before = open_files();
  {
    const std::unique_ptr<Xport::byte_output> file = files.open_for_writing(temp.text(u"/page"));
    EXPECT_EQ(open_files(), before + 1);
  }
  EXPECT_EQ(open_files(), before);
  for (int round = 0; round < 3000; ++round) {  // more than a process may have open
    const std::unique_ptr<Xport::byte_output> file = files.open_for_writing(temp.text(u"/page"));
    ASSERT_TRUE(file);
    ASSERT_TRUE(file->close());
  }
  EXPECT_EQ(open_files(), before);
}

TEST_F(FileSystem, OpeningFailsWithNull) {
  EXPECT_FALSE(files.open_for_writing(u""));
  EXPECT_FALSE(files.open_for_writing(temp.text()));
  EXPECT_FALSE(files.open_for_writing(temp.text(u"/none/page")));
  EXPECT_FALSE(files.open_for_writing(temp.text(u"/page/")));
  EXPECT_FALSE(files.open_for_writing(temp.text(u"/" + ustring(300, u'n'))));
  EXPECT_FALSE(files.open_for_writing(temp.text(u"/" + lone)));
  EXPECT_TRUE(fs::is_empty(temp.path()));
}

TEST_F(FileSystem, WritingToAFullDiskFails) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  const std::unique_ptr<Xport::byte_output> file = files.open_for_writing(u"/dev/full");
  ASSERT_TRUE(file);
  EXPECT_FALSE(file->write("x", 1));
  EXPECT_TRUE(file->close());
}

TEST_F(FileSystem, ManyBytesAtOnceAreAllWritten) {
  const std::string bytes(50000000, 'b');
  const std::unique_ptr<Xport::byte_output> file = files.open_for_writing(temp.text(u"/large"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write(bytes.data(), bytes.size()));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(fs::file_size(temp.path() / "large"), bytes.size());
}

// The user's umask decides who may read a page.
TEST_F(FileSystem, PermissionsAreTheUsers) {
  const mode_t before = ::umask(027);
  files.create_directory(temp.text(u"/folder"));
  files.open_for_writing(temp.text(u"/page"));
  ::umask(before);
  EXPECT_EQ(fs::status(temp.path() / "folder").permissions(), static_cast<fs::perms>(0750));
  EXPECT_EQ(fs::status(temp.path() / "page").permissions(), static_cast<fs::perms>(0640));
}

}  // namespace
}  // namespace test
