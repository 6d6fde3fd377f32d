#include "temporary_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace examples {

namespace fs = std::filesystem;

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
