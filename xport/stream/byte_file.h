#ifndef XPORT_STREAM_BYTE_FILE_H
#define XPORT_STREAM_BYTE_FILE_H

#include <cstddef>

namespace Xport {

/// A file that is open for writing. The platform layer and the tests implement it.
class byte_output {
 public:
  byte_output() = default;
  byte_output(const byte_output&) = delete;
  byte_output& operator=(const byte_output&) = delete;

  /// Closes the file if close() wasn't called.
  virtual ~byte_output() = default;

  /// Writes all `size` bytes. False if not all of them could be written.
  virtual bool write(const void* bytes, std::size_t size) = 0;

  /// Closes the file. False if that fails. Nothing may be written afterwards.
  virtual bool close() = 0;
};

/// A file that is open for reading.
class byte_input {
 public:
  byte_input() = default;
  byte_input(const byte_input&) = delete;
  byte_input& operator=(const byte_input&) = delete;

  /// Closes the file.
  virtual ~byte_input() = default;

  /// Reads the next `size` bytes into `bytes` and returns how many it read. Fewer than
  /// `size` only at the end of the file and after an error; 0 if nothing is left.
  virtual std::size_t read(void* bytes, std::size_t size) = 0;

  /// Returns to the first byte. False if the file can't be rewound, for example a pipe.
  virtual bool rewind() = 0;
};

}  // namespace Xport

#endif
