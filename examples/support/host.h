#ifndef EXAMPLES_SUPPORT_HOST_H
#define EXAMPLES_SUPPORT_HOST_H

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <vellomark/vellomark.h>

#include "csv_reader.h"
#include "options.h"

namespace examples {

/// Reads the options and calls `work`. Prints an exception of either as one line on stderr that
/// begins with the name of the program. Returns the exit code: 0, 2 for wrong arguments, or 1 for
/// any other failure.
int run_host(const std::string& program, const std::vector<std::string>& arguments,
             const std::function<void(const options&)>& work);

/// All bytes of the file. Throws std::runtime_error with the path if it can't be read.
std::string read_file(const std::string& path);

/// The table in the file, whose header must have `columns` fields or more. Throws
/// std::runtime_error with the path, and with the line if the content is wrong.
csv_table read_table(const std::string& path, std::size_t columns);

/// A name of a file, in UTF-8, in the form that the library accepts. Throws std::runtime_error if
/// `name` isn't UTF-8.
std::u16string name_to_utf16(const std::string& name);

/// Saves the report as `chosen` says and returns the absolute path of the page. Throws
/// std::runtime_error if the page isn't complete.
std::filesystem::path save_page(IVellomark& report, const options& chosen);

/// Prints `message`, and the path of the page as the last line. Throws std::runtime_error if stdout
/// can't be written to.
void print_result(const std::string& message, const std::filesystem::path& page);

/// A new folder where the system keeps temporary files, below TMPDIR if that is set. The destructor
/// deletes it with everything in it.
class temporary_folder {
 public:
  /// The name is `purpose`, "-" and six other characters. Throws std::runtime_error if the folder
  /// can't be made.
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
