#ifndef PLATFORM_POSIX_OUTPUT_FILE_H
#define PLATFORM_POSIX_OUTPUT_FILE_H

#include <sys/types.h>

#include <cstddef>

#include "xport/stream/byte_file.h"

namespace platform::posix {

/// open(2), closed in programs that are started, and repeated after signals.
/// Returns the descriptor, negative if that fails.
int open_file(const char* path, int flags, mode_t mode);

/// A file that is open for writing.
class output_file final : public Xport::byte_output {
 public:
  /// A file that isn't open yet.
  output_file() = default;

  /// Takes over `descriptor`, which must be open for writing.
  explicit output_file(int descriptor) : descriptor_(descriptor) {}
  ~output_file() override;

  /// As open_file(); false if that fails.
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
