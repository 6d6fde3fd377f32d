#include "platform/posix/output_file.h"

#include <fcntl.h>
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
  // After EINTR the descriptor is gone on Linux: closing again could hit another
  // thread's file.
  const int result = ::close(descriptor_);
  descriptor_ = -1;
  return result == 0 || errno == EINTR;
}

}  // namespace platform::posix
