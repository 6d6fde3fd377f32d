#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "platform/file_system.h"
#include "tests/support/limited_file_size.h"
#include "tests/support/temp_folder.h"
#include "xport/text/char16.h"

namespace test {

namespace {

namespace fs = std::filesystem;

using Xport::ustring;
using Xport::ustring_view;

class CopyFile : public ::testing::Test {
 protected:
  fs::path file(const char* name) const { return folder.path() / name; }

  bool copy(ustring_view from, ustring_view to) {
    return files.copy_file(folder.text(from), folder.text(to));
  }

  std::set<std::string> names() const {
    std::set<std::string> all;
    for (const auto& each : fs::directory_iterator(folder.path()))
      all.insert(each.path().filename().string());
    return all;
  }

  temp_folder folder;
  platform::file_system& files = platform::file_system::native();
};

using name_set = std::set<std::string>;

TEST_F(CopyFile, MakesAFileOfTheSameContentAndMode) {
  std::string bytes;
  for (int i = 0; i < 300001; ++i) bytes += static_cast<char>(i % 251);
  make_file(file("a"), bytes);
  fs::permissions(file("a"), fs::perms(0604));
  EXPECT_TRUE(copy(u"/a", u"/b"));
  EXPECT_EQ(bytes_of(file("b")), bytes);
  EXPECT_EQ(bytes_of(file("a")), bytes);
  EXPECT_EQ(fs::status(file("b")).permissions(), fs::perms(0604));
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_F(CopyFile, BackslashesSeparate) {
  fs::create_directory(file("in"));
  make_file(file("a"), "bytes");
  EXPECT_TRUE(copy(u"\\a", u"/in\\b"));
  EXPECT_EQ(bytes_of(file("in") / "b"), "bytes");
}

TEST_F(CopyFile, ReplacesAnExistingFile) {
  make_file(file("a"), "new");
  make_file(file("b"), "old and longer");
  EXPECT_TRUE(copy(u"/a", u"/b"));
  EXPECT_EQ(bytes_of(file("b")), "new");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_F(CopyFile, MissingSourceOrFolderFails) {
  make_file(file("b"), "old");
  EXPECT_FALSE(copy(u"/missing", u"/b"));
  EXPECT_FALSE(copy(u"/missing", u"/c"));
  EXPECT_FALSE(copy(u"/b", u"/missing/c"));
  EXPECT_FALSE(copy(u"/b", u"/b/c"));
  EXPECT_FALSE(copy(u"", u"/c"));
  EXPECT_EQ(bytes_of(file("b")), "old");
  EXPECT_EQ(names(), name_set{"b"});
}

TEST_F(CopyFile, WhatIsNoFileIsNotCopied) {
  fs::create_directory(file("folder"));
  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(copy(u"/folder", u"/c"));
  EXPECT_FALSE(copy(u"/folder/", u"/c"));
  EXPECT_FALSE(copy(u"/pipe", u"/c"));  // and doesn't wait for a writer
  EXPECT_FALSE(files.copy_file(u"/dev/null", folder.text(u"/c")));
  EXPECT_EQ(names(), (name_set{"folder", "pipe"}));
}

TEST_F(CopyFile, WhatIsNoFileIsNotReplaced) {
  make_file(file("a"), "bytes");
  fs::create_directory(file("folder"));
  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(copy(u"/a", u"/folder"));
  EXPECT_FALSE(copy(u"/a", u"/folder/"));
  EXPECT_FALSE(copy(u"/a", u"/pipe"));
  EXPECT_TRUE(fs::is_fifo(file("pipe")));
  EXPECT_EQ(names(), (name_set{"a", "folder", "pipe"}));
}

TEST_F(CopyFile, FileIsNotCopiedOntoItself) {
  make_file(file("a"), "bytes");
  fs::create_symlink(file("a"), file("symbolic"));
  fs::create_hard_link(file("a"), file("hard"));
  fs::create_directory_symlink(folder.path(), file("folder"));
  for (const ustring_view other : {u"/a", u"//a", u"/./a", u"/symbolic", u"/hard", u"/folder/a"}) {
    EXPECT_FALSE(copy(u"/a", other));
    EXPECT_FALSE(copy(other, u"/a"));
    EXPECT_EQ(bytes_of(file("a")), "bytes");
  }
  EXPECT_EQ(names(), (name_set{"a", "symbolic", "hard", "folder"}));
  EXPECT_TRUE(fs::is_symlink(file("symbolic")));
}

TEST_F(CopyFile, LinkThatLeadsNowhereIsReplaced) {
  make_file(file("a"), "bytes");
  fs::create_symlink(file("nowhere"), file("b"));
  EXPECT_FALSE(copy(u"/b", u"/c"));
  EXPECT_TRUE(copy(u"/a", u"/b"));
  EXPECT_EQ(bytes_of(file("b")), "bytes");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_F(CopyFile, PathThatCannotBeExpressedFails) {
  make_file(file("a"), "bytes");
  EXPECT_FALSE(copy(u"/a", u"/\xD800"));
  EXPECT_FALSE(copy(u"/\xDC00", u"/b"));
  EXPECT_FALSE(files.is_file(folder.text(u"/\xD800")));
  EXPECT_FALSE(files.remove_file(folder.text(u"/\xD800")));
  EXPECT_EQ(names(), name_set{"a"});
}

TEST_F(CopyFile, NamesOfFullLength) {
  const ustring a = ustring(u"/").append(255, u'a');
  const ustring b = ustring(u"/").append(255, u'b');
  make_file(folder.path() / fs::path(a.substr(1)), "bytes");
  EXPECT_TRUE(copy(a, b));
  EXPECT_FALSE(copy(a, b + u"b"));
  EXPECT_EQ(names(), (name_set{std::string(255, 'a'), std::string(255, 'b')}));
}

TEST_F(CopyFile, FailureInTheMiddleLeavesNoHalfFileAndTheTargetAsItWas) {
  const std::string bytes(500000, 'x');
  make_file(file("a"), bytes);
  make_file(file("b"), "old");
  {
    const limited_file_size limit(300000);
    EXPECT_FALSE(copy(u"/a", u"/b"));
    EXPECT_FALSE(copy(u"/a", u"/c"));
  }
  EXPECT_EQ(bytes_of(file("a")), bytes);
  EXPECT_EQ(bytes_of(file("b")), "old");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

// Runs a part of a test without an administrator's rights, which would let it succeed.
template <class Action>
void without_privileges(Action action) {
  const bool changed = ::geteuid() == 0 && ::setresuid(65534, 65534, 0) == 0;
  action();
  if (changed) {
    ASSERT_EQ(::setresuid(0, 0, 0), 0);
  }
}

TEST_F(CopyFile, WantOfRightsLeavesAllAsItWas) {
  make_file(file("a"), "new");
  make_file(file("unreadable"), "secret");
  make_file(file("protected"), "old");
  fs::create_directory(file("locked"));
  fs::permissions(file("unreadable"), fs::perms(0));
  fs::permissions(file("protected"), fs::perms(0444));
  fs::permissions(file("locked"), fs::perms(0555));
  for (const fs::path& each :
       {folder.path(), file("a"), file("unreadable"), file("protected"), file("locked")})
    ASSERT_EQ(::geteuid() == 0 ? ::chown(each.c_str(), 65534, 65534) : 0, 0);
  without_privileges([this] {
    EXPECT_FALSE(copy(u"/unreadable", u"/c"));
    EXPECT_FALSE(copy(u"/a", u"/protected"));
    EXPECT_FALSE(copy(u"/a", u"/locked/c"));
    EXPECT_TRUE(files.is_file(folder.text(u"/unreadable")));
  });
  EXPECT_EQ(bytes_of(file("protected")), "old");
  EXPECT_TRUE(fs::is_empty(file("locked")));
  EXPECT_EQ(names(), (name_set{"a", "unreadable", "protected", "locked"}));
  fs::permissions(file("locked"), fs::perms(0755));
}

TEST_F(CopyFile, IsFile) {
  make_file(file("a"), "");
  fs::create_directory(file("folder"));
  fs::create_symlink(file("a"), file("to_a"));
  fs::create_symlink(file("folder"), file("to_folder"));
  fs::create_symlink(file("nowhere"), file("to_nowhere"));
  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  for (const ustring_view yes : {u"/a", u"\\a", u"/to_a", u"/folder/../a"})
    EXPECT_TRUE(files.is_file(folder.text(yes)));
  for (const ustring_view no : {u"/folder", u"/to_folder", u"/to_nowhere", u"/nowhere", u"/pipe",
                                u"/a/", u"", u"/a/b", u"/A"})
    EXPECT_FALSE(files.is_file(folder.text(no)));
  EXPECT_FALSE(files.is_file(u""));
  EXPECT_FALSE(files.is_file(u"/dev/null"));
}

TEST_F(CopyFile, RemoveFile) {
  make_file(file("a"), "bytes");
  make_file(file("b"), "bytes");
  fs::create_directory(file("folder"));
  fs::create_symlink(file("b"), file("to_b"));
  EXPECT_TRUE(files.remove_file(folder.text(u"\\a")));
  EXPECT_FALSE(files.remove_file(folder.text(u"/a")));
  EXPECT_FALSE(files.remove_file(folder.text(u"/folder")));
  EXPECT_FALSE(files.remove_file(u""));
  EXPECT_TRUE(files.remove_file(folder.text(u"/to_b")));
  EXPECT_EQ(names(), (name_set{"b", "folder"}));
}

}  // namespace

}  // namespace test
