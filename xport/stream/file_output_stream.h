#ifndef XPORT_STREAM_FILE_OUTPUT_STREAM_H
#define XPORT_STREAM_FILE_OUTPUT_STREAM_H

#include <memory>
#include <ostream>
#include <utility>

#include "xport/stream/byte_file.h"
#include "xport/stream/file_buffer.h"
#include "xport/text/char16.h"

namespace Xport {

/// An output stream of code units to a file, made unopened.
class file_output_stream : public std::basic_ostream<char16> {
 public:
  file_output_stream() : std::basic_ostream<char16>(nullptr) {}

  /// Takes over `file`, in place of one that is open and now closed, and makes the
  /// stream good; null, the sign of a file that couldn't be opened, sets failbit.
  void open(std::unique_ptr<byte_output> file) {
    if (!file) {
      setstate(failbit);
      return;
    }
    auto buffer = std::make_unique<file_output_buffer>(std::move(file));
    rdbuf(buffer.get());
    buffer_ = std::move(buffer);
  }

  /// Writes what is left and closes the file. Sets failbit if the file isn't
  /// open, or if this or an earlier write failed.
  void close() {
    if (!buffer_ || !buffer_->close()) setstate(failbit);
  }

 private:
  std::unique_ptr<file_output_buffer> buffer_;
};

}  // namespace Xport

#endif
