#ifndef TESTS_SAMPLES_SAMPLE_FILES_H
#define TESTS_SAMPLES_SAMPLE_FILES_H

#include <gtest/gtest.h>
#include <unistd.h>
#include <vellomark/samples.h>

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <utility>

#include "tests/support/golden.h"
#include "tests/support/temp_folder.h"

namespace samples_test {

namespace fs = std::filesystem;
using test::same_units;
using Xport::ustring;
using Xport::ustring_view;

/// Whether the functions that are tested have a string table. The tests are built once with
/// each table, and once for the shared library with the table that it was configured with.
inline constexpr bool has_strings = VELLOMARK_TEST_STRINGS;

/// What the third sample adds at the end of `body`, by the layout rules.
inline ustring added_heading() {
  return ustring(u"    <h1>\n      ") + (has_strings ? u"Header of the changed page" : u"") +
         u"\n    </h1>\n";
}

/// The lines one below the other, each with its line feed.
inline ustring lines(std::initializer_list<ustring_view> all) {
  ustring text;
  for (const ustring_view line : all) (text += line) += u'\n';
  return text;
}

/// The units as they stand in a file, with a mark in front.
inline std::string little_endian(ustring_view text) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

/// The same file in the other byte order.
inline std::string swapped(std::string bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  return bytes;
}

/// While this lives the process has no rights to files of others, if it is root's.
class without_root {
 public:
  without_root() : user_(::geteuid()) {
    if (user_ == 0 && ::seteuid(65534) != 0) ADD_FAILURE() << "root's rights can't be dropped";
  }
  ~without_root() {
    if (user_ == 0 && ::seteuid(0) != 0) ADD_FAILURE() << "root's rights don't come back";
  }
  without_root(const without_root&) = delete;
  without_root& operator=(const without_root&) = delete;

 private:
  uid_t user_;
};

/// A folder on the disk and what is in it.
class SampleFiles : public testing::Test {
 protected:
  fs::path file(const std::string& name) const { return folder_.path() / name; }

  /// The path of a file as the functions take it.
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
    ustring text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
      text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                    static_cast<unsigned char>(bytes[i + 1]) << 8);
    return text;
  }

  test::temp_folder folder_;
};

/// The kept page of that name for the string table that there is.
inline std::string golden(const std::string& name) {
  return name + (has_strings ? "_strings" : "") + ".xhtml";
}

/// Calls `write` with paths at which no file can be opened, and looks whether it answers
/// false and leaves everything as it was.
template <class Write>
void expect_unwritable(const test::temp_folder& folder, Write write) {
  EXPECT_FALSE(write(nullptr)) << "null";
  const ustring lone(1, char16_t(0xD800));
  test::make_file(folder.path() / "file", "kept");
  fs::create_directory(folder.path() / "folder");
  for (const ustring& path : {ustring(), folder.text(), folder.text(u"/"), folder.text(u"/folder"),
                              folder.text(u"/none/page.htm"), folder.text(u"/file/page.htm"),
                              folder.text(u"/" + ustring(300, u'n')), folder.text(u"/" + lone)}) {
    EXPECT_FALSE(write(path.c_str())) << test::printable(path);
  }
  EXPECT_EQ(test::bytes_of(folder.path() / "file"), "kept");
  EXPECT_FALSE(fs::exists(folder.path() / "none"));
  EXPECT_TRUE(fs::is_empty(folder.path() / "folder"));

  fs::permissions(folder.path(), fs::perms(0755));
  fs::permissions(folder.path() / "file", fs::perms(0444));
  fs::permissions(folder.path() / "folder", fs::perms(0555));
  {
    const without_root plain_user;
    EXPECT_FALSE(write(folder.text(u"/file").c_str()));
    EXPECT_FALSE(write(folder.text(u"/folder/page.htm").c_str()));
  }
  EXPECT_EQ(test::bytes_of(folder.path() / "file"), "kept");
  EXPECT_TRUE(fs::is_empty(folder.path() / "folder"));
}

}  // namespace samples_test

#endif
