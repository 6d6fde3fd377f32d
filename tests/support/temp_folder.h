#ifndef TESTS_SUPPORT_TEMP_FOLDER_H
#define TESTS_SUPPORT_TEMP_FOLDER_H

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace test {

/// A new, empty folder. The destructor deletes it with everything in it.
class temp_folder {
 public:
  /// Makes the folder in `parent`. Throws std::system_error if it can't.
  explicit temp_folder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string name = (parent / "vellomark-XXXXXX").string();
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

  /// The folder's path followed by `rest`, in the form that the library accepts.
  std::u16string text(std::u16string_view rest = {}) const {
    return path_.u16string().append(rest);
  }

 private:
  std::filesystem::path path_;
};

/// The bytes of a file; empty if it can't be read.
inline std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

/// Makes or replaces a file. Throws std::ios_base::failure if it can't.
inline void make_file(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream out;
  out.exceptions(std::ios::failbit | std::ios::badbit);
  out.open(file, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
}

}  // namespace test

#endif
