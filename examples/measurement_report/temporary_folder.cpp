#include "temporary_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

namespace measurement_report {

namespace fs = std::filesystem;

temporary_folder::temporary_folder() {
  std::error_code no_folder;
  std::string name = fs::absolute(fs::temp_directory_path(no_folder) / "charts-XXXXXX").string();
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

}  // namespace measurement_report
