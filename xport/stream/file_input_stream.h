#ifndef XPORT_STREAM_FILE_INPUT_STREAM_H
#define XPORT_STREAM_FILE_INPUT_STREAM_H

#include <istream>
#include <memory>
#include <utility>

#include "xport/stream/byte_file.h"
#include "xport/stream/file_input_buffer.h"
#include "xport/text/char16.h"

namespace Xport {

/// An input stream of code units from a file, made unopened.
class file_input_stream : public std::basic_istream<char16> {
 public:
  file_input_stream() : std::basic_istream<char16>(nullptr) {}

  /// Takes over `file`, in place of one that is open, and makes the stream good;
  /// null, the sign of a file that couldn't be opened, sets failbit.
  void open(std::unique_ptr<byte_input> file) {
    if (!file) {
      setstate(failbit);
      return;
    }
    auto buffer = std::make_unique<file_input_buffer>(std::move(file));
    rdbuf(buffer.get());
    buffer_ = std::move(buffer);
  }

 private:
  std::unique_ptr<file_input_buffer> buffer_;
};

}  // namespace Xport

#endif
