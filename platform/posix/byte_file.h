#ifndef PLATFORM_POSIX_BYTE_FILE_H
#define PLATFORM_POSIX_BYTE_FILE_H

#include <sys/types.h>

#include <cstddef>

#include "xport/stream/byte_file.h"

namespace platform::posix {

/// open(2), repeated if a signal interrupts it. The descriptor isn't inherited by programs
/// that the process starts. Returns the descriptor, negative on failure.
int open_file(const char* path, int flags, mode_t mode);

/// A file that is open for reading.
class input_file final : public Xport::byte_input {
 public:
  /// A file that isn't open yet.
  input_file() = default;
  ~input_file() override;

  /// Opens `path`; returns false on failure, and if `path` is a folder. Call it only once.
  bool open(const char* path);

  std::size_t read(void* bytes, std::size_t size) override;
  bool rewind() override;

 private:
  int descriptor_ = -1;
};

/// A file that is open for writing.
class output_file final : public Xport::byte_output {
 public:
  /// A file that isn't open yet.
  output_file() = default;

  /// Takes ownership of `descriptor`, which must be open for writing.
  explicit output_file(int descriptor) : descriptor_(descriptor) {}
  ~output_file() override;

  /// Opens `path` as open_file() does; returns false on failure. Call it only once.
  bool open(const char* path, int flags, mode_t mode) {
    descriptor_ = open_file(path, flags, mode);
    return descriptor_ >= 0;
  }

  bool write(const void* bytes, std::size_t size) override;
  bool close() override;

 private:
  int descriptor_ = -1;
};

}  // namespace platform::posix

#endif
