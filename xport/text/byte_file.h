#ifndef XPORT_TEXT_BYTE_FILE_H
#define XPORT_TEXT_BYTE_FILE_H

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

}  // namespace Xport

#endif
