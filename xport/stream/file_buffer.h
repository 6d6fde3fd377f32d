#ifndef XPORT_STREAM_FILE_BUFFER_H
#define XPORT_STREAM_FILE_BUFFER_H

#include <cstddef>
#include <memory>
#include <streambuf>
#include <vector>

#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace Xport {

/// A stream buffer that writes code units to a file unchanged, least significant
/// byte first on every machine. The standard library's file buffer can't be used
/// for this: it sends units through a conversion.
///
/// The file sees blocks of 64 KiB or more and one smaller rest. Synchronising
/// doesn't write: what is written reaches the file when the buffer is full, is
/// closed or dies, so that a page costs writes by its bytes and not by its
/// elements.
///
/// Write runs of units (`write`, `sputn`, `<<`). Single units through `put` pass
/// through `std::char_traits<char16_t>`, which can't tell U+FFFF from the end.
class file_output_buffer : public std::basic_streambuf<char16> {
 public:
  /// Units that are gathered before the file is asked to write.
  static constexpr std::size_t block_units = 32 * 1024;

  /// Takes over `file`, which must not be null.
  explicit file_output_buffer(std::unique_ptr<byte_output> file);

  /// Writes what is left and closes the file; failures go unnoticed. Use close().
  ~file_output_buffer() override;

  /// Writes what is left and closes the file. False if any write since the
  /// beginning or the closing failed, or if it was closed before.
  bool close();

 protected:
  int_type overflow(int_type unit) override;
  std::streamsize xsputn(const char16* units, std::streamsize count) override;

 private:
  bool write_pending();
  bool write_units(const char16* units, std::size_t count);

  std::unique_ptr<byte_output> file_;
  std::vector<char16> block_;
  bool failed_ = false;
};

}  // namespace Xport

#endif
