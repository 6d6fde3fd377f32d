#ifndef EXAMPLES_SUPPORT_TEMPORARY_FOLDER_H
#define EXAMPLES_SUPPORT_TEMPORARY_FOLDER_H

#include <filesystem>
#include <string>

namespace examples {

/// A new folder, removed with all that it holds at the end of its life. It is
/// made where the system keeps temporary files, below TMPDIR if that is set.
class temporary_folder {
 public:
  /// The name is `purpose`, "-" and six other characters. Raises std::runtime_error if the
  /// folder can't be made.
  explicit temporary_folder(const std::string& purpose);
  ~temporary_folder();
  temporary_folder(const temporary_folder&) = delete;
  temporary_folder& operator=(const temporary_folder&) = delete;

  /// An absolute path.
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace examples

#endif
