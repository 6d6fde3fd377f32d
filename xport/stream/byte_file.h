#ifndef XPORT_STREAM_BYTE_FILE_H
#define XPORT_STREAM_BYTE_FILE_H

#include <cstddef>

namespace Xport {

/// A file opened for writing, as the streams of code units need it. Whoever
/// opens files (the operating system's layer, a test) implements it.
class byte_output {
 public:
  byte_output() = default;
  byte_output(const byte_output&) = delete;
  byte_output& operator=(const byte_output&) = delete;

  /// Closes the file if close() wasn't called.
  virtual ~byte_output();

  /// Writes all of `size` bytes. False if not all could be written.
  virtual bool write(const void* bytes, std::size_t size) = 0;

  /// Closes the file; false if that failed. Nothing may be written afterwards.
  virtual bool close() = 0;
};

/// A file opened for reading, in the same way.
class byte_input {
 public:
  byte_input() = default;
  byte_input(const byte_input&) = delete;
  byte_input& operator=(const byte_input&) = delete;

  /// Closes the file.
  virtual ~byte_input();

  /// Reads the next `size` bytes into `bytes` and gives their number, which is
  /// smaller at the end of the file and where it can't be read only; 0 if there is
  /// nothing.
  virtual std::size_t read(void* bytes, std::size_t size) = 0;

  /// Goes back to the first byte; false if that can't be done, as in a pipe.
  virtual bool rewind() = 0;
};

}  // namespace Xport

#endif
