#ifndef TESTS_SUPPORT_TEMP_FOLDER_H
#define TESTS_SUPPORT_TEMP_FOLDER_H

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

#include "xport/text/char16.h"

namespace test {

/// An empty folder of its own below the system's folder for temporary files,
/// deleted with all that is in it at the end.
class temp_folder {
 public:
  temp_folder() {
    std::string name = (std::filesystem::temp_directory_path() / "vellomark-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
      throw std::system_error(errno, std::generic_category(), name);
    path_ = name;
  }
  temp_folder(const temp_folder&) = delete;
  temp_folder& operator=(const temp_folder&) = delete;
  ~temp_folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }

  /// The folder's path, with `rest` behind it, as the library takes paths.
  Xport::ustring text(Xport::ustring_view rest = {}) const {
    return path_.u16string() + Xport::ustring(rest);
  }

 private:
  std::filesystem::path path_;
};

/// The bytes of a file; empty if it can't be read.
inline std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

/// Makes a file of these bytes.
inline void make_file(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace test

#endif
