#ifndef PLATFORM_POSIX_INPUT_FILE_H
#define PLATFORM_POSIX_INPUT_FILE_H

#include <cstddef>

#include "xport/stream/byte_file.h"

namespace platform::posix {

/// A file that is open for reading.
class input_file final : public Xport::byte_input {
 public:
  /// A file that isn't open yet.
  input_file() = default;
  ~input_file() override;

  /// Opens `path`, which mustn't lead to a folder; false if that fails. Only for a file
  /// that isn't open yet.
  bool open(const char* path);

  std::size_t read(void* bytes, std::size_t size) override;
  bool rewind() override;

 private:
  int descriptor_ = -1;
};

}  // namespace platform::posix

#endif
