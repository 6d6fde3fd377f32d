#include "platform/posix/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/output_file.h"

namespace platform::posix {

input_file::~input_file() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool input_file::open(const char* path) {
  descriptor_ = open_file(path, O_RDONLY, 0);
  struct stat status;
  return descriptor_ >= 0 && ::fstat(descriptor_, &status) == 0 && !S_ISDIR(status.st_mode);
}

std::size_t input_file::read(void* bytes, std::size_t size) {
  char* const start = static_cast<char*>(bytes);
  std::size_t done = 0;
  while (done != size) {
    const ssize_t got = ::read(descriptor_, start + done, size - done);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

bool input_file::rewind() { return ::lseek(descriptor_, 0, SEEK_SET) == 0; }

}  // namespace platform::posix
