#include "platform/posix/byte_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace platform::posix {

int open_file(const char* path, int flags, mode_t mode) {
  int descriptor;
  do {
    descriptor = ::open(path, flags | O_CLOEXEC, mode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

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

output_file::~output_file() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool output_file::write(const void* bytes, std::size_t size) {
  const char* next = static_cast<const char*>(bytes);
  while (size != 0) {
    const ssize_t written = ::write(descriptor_, next, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    next += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

bool output_file::close() {
  // Linux closes the descriptor even on EINTR: closing it again could close another
  // thread's file.
  const int result = ::close(descriptor_);
  descriptor_ = -1;
  return result == 0 || errno == EINTR;
}

}  // namespace platform::posix
