#include "bench/reading/block_input.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench {

block_input::block_input(const std::string& path) : file_(open(path.c_str(), O_RDONLY)) {}

block_input::~block_input() {
  if (file_ >= 0) {
    ::close(file_);
  }
}

std::size_t block_input::size() const {
  struct stat about;
  return fstat(file_, &about) == 0 ? static_cast<std::size_t>(about.st_size) : 0;
}

std::u16string_view block_input::next() {
  // Files on a disk give a whole block at once, so a unit is never cut.
  const ssize_t got = ::read(file_, block_, sizeof block_);
  return {block_, got > 0 ? static_cast<std::size_t>(got) / sizeof(char16_t) : 0};
}

}  // namespace bench
