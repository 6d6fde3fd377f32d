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

/// Reads the options and does the `work`. What either of them raises becomes one
/// line on stderr that begins with the name of the program. Returns the exit
/// code: 0, 2 for wrong arguments, or 1 for all else.
int run_host(const std::string& program, const std::vector<std::string>& arguments,
             const std::function<void(const options&)>& work);

/// All bytes of the file. Raises std::runtime_error with the path if it can't be read.
std::string read_file(const std::string& path);

/// The table in the file, whose header must have `columns` fields or more. Raises
/// std::runtime_error with the path, and the line if the content is at fault.
csv_table read_table(const std::string& path, std::size_t columns);

/// Names go to the library as UTF-16, so they have to be UTF-8; raises
/// std::runtime_error if `name` isn't.
std::u16string name_to_utf16(const std::string& name);

/// Saves the report as `chosen` says and returns the absolute path of the page.
/// Raises std::runtime_error if the page isn't there in full.
std::filesystem::path save_page(IVellomark& report, const options& chosen);

/// Prints what was done, `message`, and the path of the page as the last line.
/// Raises std::runtime_error if stdout doesn't take it.
void print_result(const std::string& message, const std::filesystem::path& page);

}  // namespace examples

#endif
