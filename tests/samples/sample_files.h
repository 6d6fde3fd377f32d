#ifndef TESTS_SAMPLES_SAMPLE_FILES_H
#define TESTS_SAMPLES_SAMPLE_FILES_H

#include <gtest/gtest.h>
#include <vellomark/samples.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "tests/support/golden.h"
#include "tests/support/names.h"
#include "tests/support/temp_folder.h"
#include "tests/support/utf8.h"
#include "tests/support/without_privileges.h"

namespace test {

namespace fs = std::filesystem;

/// Whether the functions that are tested have a string table. The tests are built once with
/// each table, and once for the shared library with the table that it was configured with.
inline constexpr bool has_strings = VELLOMARK_TEST_STRINGS;

/// What the third sample adds at the end of `body`, by the layout rules.
inline ustring added_heading() {
  return ustring(u"    <h1>\n      ") + (has_strings ? u"Header of the changed page" : u"") +
         u"\n    </h1>\n";
}

/// A folder on the disk and what is in it.
class SampleFiles : public testing::Test {
 protected:
  fs::path file(const std::string& name) const { return folder_.path() / name; }

  /// The path of a file as the functions accept it.
  ustring path(const std::string& name) const { return file(name).u16string(); }

  void make_file(const std::string& name, const std::string& bytes) const {
    test::make_file(file(name), bytes);
  }

  std::string bytes_of(const std::string& name) const { return test::bytes_of(file(name)); }

  /// The units of a page, without its mark; a failure if there is none.
  ustring page(const std::string& name) const {
    const std::string bytes = bytes_of(name);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE") << name;
    EXPECT_EQ(bytes.size() % 2, 0u) << name;
    return file_units(bytes).substr(bytes.size() < 2 ? 0 : 1);
  }

  temp_folder folder_;
};

/// The kept page of that name for the string table that there is.
inline std::string golden(const std::string& name) {
  return name + (has_strings ? "_strings" : "") + ".xhtml";
}

/// Calls `write` with paths at which no file can be opened, and checks that it returns
/// false and leaves everything as it was.
template <class Write>
void expect_unwritable(const temp_folder& folder, Write write) {
  EXPECT_FALSE(write(nullptr)) << "null";
  const ustring lone(1, char16_t(0xD800));
  test::make_file(folder.path() / "file", "kept");
  fs::create_directory(folder.path() / "folder");
  for (const ustring& path : {ustring(), folder.text(), folder.text(u"/"), folder.text(u"/folder"),
                              folder.text(u"/none/page.htm"), folder.text(u"/file/page.htm"),
                              folder.text(u"/" + ustring(300, u'n')), folder.text(u"/" + lone)}) {
    EXPECT_FALSE(write(path.c_str())) << printable(path);
  }
  EXPECT_EQ(test::bytes_of(folder.path() / "file"), "kept");
  EXPECT_FALSE(fs::exists(folder.path() / "none"));
  EXPECT_TRUE(fs::is_empty(folder.path() / "folder"));

  fs::permissions(folder.path(), fs::perms(0755));
  fs::permissions(folder.path() / "file", fs::perms(0444));
  fs::permissions(folder.path() / "folder", fs::perms(0555));
  {
    const without_privileges plain_user;
    EXPECT_FALSE(write(folder.text(u"/file").c_str()));
    EXPECT_FALSE(write(folder.text(u"/folder/page.htm").c_str()));
  }
  EXPECT_EQ(test::bytes_of(folder.path() / "file"), "kept");
  EXPECT_TRUE(fs::is_empty(folder.path() / "folder"));
}

}  // namespace test

#endif
