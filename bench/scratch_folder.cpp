#include "bench/scratch_folder.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace bench {

scratch_folder::scratch_folder(const std::string& parent, const std::string& program)
    : path_(parent + "/" + program + ".XXXXXX") {
  made_ = mkdtemp(path_.data()) != nullptr && mkdir((path_ + "/Vellomark").c_str(), 0777) == 0;
}

scratch_folder::~scratch_folder() {
  std::error_code ignored;
  if (made_) std::filesystem::remove_all(path_, ignored);
}

}  // namespace bench
