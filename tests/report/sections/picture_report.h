#ifndef TESTS_REPORT_SECTIONS_PICTURE_REPORT_H
#define TESTS_REPORT_SECTIONS_PICTURE_REPORT_H

#include <sys/types.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/report/sections/section_page.h"

namespace sections_test {

/// A picture in a block, and the line end behind it.
inline ustring image(ustring_view link) {
  return u"      <img src='" + ustring(link) + u"'/>\n      <br/>\n";
}

/// A line of text in a block.
inline ustring text_line(ustring_view text) {
  return u"      <a>" + ustring(text) + u"</a><br/>\n";
}

/// A block with this content.
inline ustring paragraph(ustring_view content) {
  return u"    <p>\n" + ustring(content) + u"    </p>\n";
}

/// The names in a folder; empty if it isn't there.
inline std::set<std::string> names_in(const std::filesystem::path& folder) {
  std::set<std::string> names;
  std::error_code ignored;
  for (const auto& each : std::filesystem::directory_iterator(folder, ignored))
    names.insert(each.path().filename().string());
  return names;
}

/// Lays down the rights of an administrator, whom no permission of a file stops.
class without_privileges {
 public:
  without_privileges() {
    if (::geteuid() == 0) changed_ = ::setresuid(nobody, nobody, 0) == 0;
  }
  without_privileges(const without_privileges&) = delete;
  without_privileges& operator=(const without_privileges&) = delete;
  ~without_privileges() {
    if (changed_ && ::setresuid(0, 0, 0) != 0) ADD_FAILURE() << "the rights don't come back";
  }

  /// Lets the user without rights have a file or a folder.
  static void give(const std::filesystem::path& path) {
    if (::geteuid() != 0) return;
    EXPECT_EQ(::chown(path.c_str(), nobody, nobody), 0);
  }

 private:
  static constexpr uid_t nobody = 65534;
  bool changed_ = false;
};

/// Makes a folder the working folder for a while.
class working_folder {
 public:
  explicit working_folder(const std::filesystem::path& path)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  working_folder(const working_folder&) = delete;
  working_folder& operator=(const working_folder&) = delete;
  ~working_folder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }

 private:
  std::filesystem::path before_;
};

/// A report on the disk with pictures beside its folder of pages.
class picture_test : public section_test {
 protected:
  /// Makes the file `name` and gives the text that names it as a picture.
  ustring make_picture(ustring_view name, const std::string& bytes) {
    test::make_file(folder.path() / std::filesystem::path(name), bytes);
    return folder.text(ustring(u"\\").append(name));
  }

  /// Adds a nameless section of one line.
  void add_line(const ustring& text) { add_section(report, {}, u"", {text.c_str()}); }

  std::filesystem::path source(ustring_view name) const {
    return folder.path() / std::filesystem::path(name);
  }

  std::filesystem::path pictures() const { return pages() / "page_files"; }
};

}  // namespace sections_test

#endif
