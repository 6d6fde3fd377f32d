#ifndef XPORT_TEXT_FILE_OUTPUT_STREAM_H
#define XPORT_TEXT_FILE_OUTPUT_STREAM_H

#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "xport/text/byte_file.h"
#include "xport/text/char16.h"
#include "xport/text/file_buffer.h"

namespace Xport {

/// An output stream of code units to a file, made unopened.
class file_output_stream : public std::basic_ostream<char16> {
 public:
  file_output_stream() : std::basic_ostream<char16>(nullptr) {}

  /// Takes over `file` and makes the stream good; null, the sign of a file that
  /// couldn't be opened, sets failbit.
  void open(std::unique_ptr<byte_output> file) {
    if (!file) {
      setstate(failbit);
      return;
    }
    buffer_.emplace(std::move(file));
    rdbuf(&*buffer_);
  }

  /// Writes what is left and closes the file. Sets failbit if the file isn't
  /// open, or if this or an earlier write failed.
  void close() {
    if (!buffer_ || !buffer_->close()) setstate(failbit);
  }

 private:
  std::optional<file_output_buffer> buffer_;
};

}  // namespace Xport

#endif
