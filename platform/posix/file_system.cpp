#include "platform/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/posix/utf8.h"

namespace platform {

namespace {

class posix_output final : public Xport::byte_output {
 public:
  posix_output() = default;
  ~posix_output() override {
    if (descriptor_ >= 0) close();
  }

  bool open(const char* path) {
    do {
      descriptor_ = ::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    } while (descriptor_ < 0 && errno == EINTR);
    return descriptor_ >= 0;
  }

  bool write(const void* bytes, std::size_t size) override {
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

  bool close() override {
    // After EINTR the descriptor is gone on Linux: closing again could hit
    // another thread's file.
    const int result = ::close(descriptor_);
    descriptor_ = -1;
    return result == 0 || errno == EINTR;
  }

 private:
  int descriptor_ = -1;
};

class posix_file_system final : public file_system {
 public:
  bool exists(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    return native && ::access(native->c_str(), F_OK) == 0;
  }

  folder_result create_directory(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    if (!native) return folder_result::failed;
    if (::mkdir(native->c_str(), 0777) == 0) return folder_result::created;
    return errno == EEXIST ? folder_result::already_exists : folder_result::failed;
  }

  std::unique_ptr<Xport::byte_output> open_for_writing(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    if (!native) return nullptr;
    auto file = std::make_unique<posix_output>();
    if (!file->open(native->c_str())) return nullptr;
    return file;
  }
};

}  // namespace

file_system::~file_system() = default;

file_system& file_system::native() {
  static posix_file_system files;
  return files;
}

}  // namespace platform
