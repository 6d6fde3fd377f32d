#ifndef TESTS_EXAMPLES_PAGE_FILE_H
#define TESTS_EXAMPLES_PAGE_FILE_H

#include <filesystem>
#include <string>
#include <string_view>

namespace examples_test {

/// A new empty folder, removed with all that it holds at the end of its life.
class scratch_folder {
 public:
  scratch_folder();
  ~scratch_folder();
  scratch_folder(const scratch_folder&) = delete;
  scratch_folder& operator=(const scratch_folder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// Every byte of the file; raises std::runtime_error if it can't be read.
std::string read_bytes(const std::filesystem::path& path);

/// Makes or replaces the file.
void write_bytes(const std::filesystem::path& path, std::string_view bytes);

/// The page, without its byte-order mark, in UTF-8. Raises std::runtime_error if
/// the file isn't UTF-16LE with a mark, has an odd size or a lone surrogate.
std::string page_as_utf8(const std::filesystem::path& path);

/// The line that ends `text`, without its line feed.
std::string last_line(const std::string& text);

}  // namespace examples_test

#endif
