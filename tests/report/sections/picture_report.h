#ifndef TESTS_REPORT_SECTIONS_PICTURE_REPORT_H
#define TESTS_REPORT_SECTIONS_PICTURE_REPORT_H

#include <filesystem>
#include <set>
#include <string>

#include "tests/report/report_page.h"
#include "tests/support/without_privileges.h"

namespace test {

/// The names in a folder; empty if it isn't there.
inline std::set<std::string> names_in(const std::filesystem::path& folder) {
  std::set<std::string> names;
  std::error_code ignored;
  for (const auto& each : std::filesystem::directory_iterator(folder, ignored))
    names.insert(each.path().filename().string());
  return names;
}

/// Makes a folder the working folder until the end of the scope.
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
class picture_test : public disk_test {
 protected:
  /// Makes the file `name` and returns the text that names it as a picture.
  ustring make_picture(ustring_view name, const std::string& bytes) {
    make_file(folder.path() / std::filesystem::path(name), bytes);
    return folder.text(ustring(u"\\").append(name));
  }

  /// Adds a nameless section of one line.
  void add_line(const ustring& text) { add_section(report, {}, u"", {text.c_str()}); }

  std::filesystem::path source(ustring_view name) const {
    return folder.path() / std::filesystem::path(name);
  }

  std::filesystem::path pictures() const { return pages() / "page_files"; }
};

}  // namespace test

#endif
