#include "platform/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>

#include "platform/posix/byte_file.h"
#include "platform/posix/copy_file.h"
#include "platform/posix/utf8.h"

namespace platform {

namespace {

class posix_file_system final : public file_system {
 public:
  bool exists(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    return native && ::access(native->c_str(), F_OK) == 0;
  }

  bool is_file(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    struct stat status;
    return native && ::stat(native->c_str(), &status) == 0 && S_ISREG(status.st_mode);
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
    auto file = std::make_unique<posix::output_file>();
    if (!file->open(native->c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) return nullptr;
    return file;
  }

  std::unique_ptr<Xport::byte_input> open_for_reading(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    if (!native) return nullptr;
    auto file = std::make_unique<posix::input_file>();
    if (!file->open(native->c_str())) return nullptr;
    return file;
  }

  bool copy_file(const Xport::ustring& source, const Xport::ustring& target) override {
    const std::optional<std::string> from = posix::to_native_path(source);
    const std::optional<std::string> to = posix::to_native_path(target);
    return from && to && posix::copy_file(*from, *to);
  }

  bool remove_file(const Xport::ustring& path) override {
    const std::optional<std::string> native = posix::to_native_path(path);
    return native && ::unlink(native->c_str()) == 0;
  }
};

// Never destroyed: hosts may save pages from the destructors of their globals.
constinit posix_file_system native_files;
static_assert(std::is_trivially_destructible_v<posix_file_system>);

}  // namespace

file_system& file_system::native() { return native_files; }

}  // namespace platform
