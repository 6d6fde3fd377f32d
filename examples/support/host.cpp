#include "host.h"

#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "unicode.h"

namespace examples {
namespace {

namespace fs = std::filesystem;

// The name that the library chooses for a page.
std::string next_report_name(const fs::path& folder) {
  for (int number = 1;; ++number) {
    const std::string name = "Report" + std::to_string(number) + ".htm";
    std::error_code ignored;
    if (!fs::exists(folder / name, ignored)) return name;
  }
}

// Whether the file ends as a page does. Save doesn't report a full disk.
bool is_complete(const fs::path& page) {
  const std::string end("<\0/\0h\0t\0m\0l\0>\0\n\0", 16);
  std::ifstream file(page, std::ios::binary);
  std::string found(end.size(), ' ');
  file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
  return file.read(found.data(), static_cast<std::streamsize>(found.size())) && found == end;
}

}  // namespace

int run_host(const std::string& program, const std::vector<std::string>& arguments,
             const std::function<void(const options&)>& work) {
  try {
    work(parse_options(program, arguments));
    return 0;
  } catch (const usage_error& error) {
    std::cerr << program << ": " << error.what() << '\n';
    return 2;
  } catch (const std::exception& error) {
    std::cerr << program << ": " << error.what() << '\n';
    return 1;
  }
}

std::string read_file(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file || fs::is_directory(path)) throw std::runtime_error("cannot open " + path);
  std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (file.bad()) throw std::runtime_error("cannot read " + path);
  return bytes;
}

csv_table read_table(const std::string& path, std::size_t columns) {
  try {
    csv_table table = read_csv(read_file(path));
    if (table.header.size() < columns) {
      throw csv_error(1, "the header has fewer than " + std::to_string(columns) + " columns");
    }
    return table;
  } catch (const csv_error& error) {
    throw std::runtime_error(path + ":" + std::to_string(error.line()) + ": " + error.what());
  }
}

std::u16string name_to_utf16(const std::string& name) {
  try {
    return to_utf16(name);
  } catch (const invalid_utf8&) {
    throw std::runtime_error("a name is not UTF-8: " + name);
  }
}

fs::path save_page(IVellomark& report, const options& chosen) {
  // The browser needs an absolute path, and the library treats a backslash as a separator.
  std::string folder = fs::absolute(chosen.folder).lexically_normal().string();
  std::replace(folder.begin(), folder.end(), '\\', '/');
  const fs::path report_folder = fs::path(folder) / "Vellomark";
  const bool library_chooses = chosen.name.empty();
  fs::path page = report_folder / (library_chooses ? next_report_name(report_folder) : chosen.name);
  const std::u16string given_name = name_to_utf16(chosen.name);
  if (!report.Save(name_to_utf16(folder).c_str(), library_chooses ? nullptr : given_name.c_str()))
    throw std::runtime_error("cannot write the page " + page.string());
  if (!is_complete(page)) throw std::runtime_error("the page is incomplete: " + page.string());
  return page;
}

void print_result(const std::string& message, const fs::path& page) {
  std::cout << message << '\n' << page.string() << std::endl;
  if (!std::cout) throw std::runtime_error("cannot print the path of the page " + page.string());
}

temporary_folder::temporary_folder(const std::string& purpose) {
  std::error_code no_folder;
  std::string name =
      fs::absolute(fs::temp_directory_path(no_folder) / (purpose + "-XXXXXX")).string();
  if (no_folder) throw std::runtime_error("there is no folder for temporary files, see TMPDIR");
  if (::mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("cannot make the temporary folder " + name + ": " +
                             std::generic_category().message(errno));
  }
  path_ = name;
}

temporary_folder::~temporary_folder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace examples
