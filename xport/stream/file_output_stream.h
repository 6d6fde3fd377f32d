#ifndef XPORT_STREAM_FILE_OUTPUT_STREAM_H
#define XPORT_STREAM_FILE_OUTPUT_STREAM_H

#include <cstddef>
#include <memory>
#include <ostream>
#include <streambuf>

#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace Xport {

/// A stream buffer that writes code units to a file unchanged, least significant byte
/// first on every machine. The standard library's file buffer can't do that: it passes
/// units through a conversion.
///
/// The file is written in blocks of exactly 64 KiB and one smaller rest. Synchronising
/// writes nothing, so the number of writes grows with the bytes of a page and not with
/// its elements.
///
/// Write runs of units (`write`, `sputn`, `<<`) or use unit_output. `put` and `sputc` use
/// `std::char_traits<char16_t>`, which can't distinguish U+FFFF from the end.
class file_output_buffer : public std::basic_streambuf<char16> {
 public:
  /// The units of a block.
  static constexpr std::size_t block_units = 32 * 1024;

  /// Takes ownership of `file`, which must not be null.
  explicit file_output_buffer(std::unique_ptr<byte_output> file);

  /// Writes the rest and closes the file. Call close() to learn of failures.
  ~file_output_buffer() override;

  /// Writes the rest and closes the file. False if that or any earlier write failed, or
  /// if the file was closed before. No write follows a failed one.
  bool close();

 protected:
  /// Writes the block, so that there is room for another one.
  int_type overflow(int_type unit) override;
  std::streamsize xsputn(const char16* units, std::streamsize count) override;

 private:
  bool write_block();

  std::unique_ptr<byte_output> file_;
  std::unique_ptr<char16[]> block_;
  bool failed_ = false;
};

/// An output stream of code units to a file. It is constructed without a file.
class file_output_stream : public std::basic_ostream<char16> {
 public:
  file_output_stream() : std::basic_ostream<char16>(nullptr) {}

  /// Takes ownership of `file`, closes the file that was open before, and makes the
  /// stream good. Null means that the file couldn't be opened: it sets failbit and
  /// changes nothing else.
  void open(std::unique_ptr<byte_output> file);

  /// Writes the rest and closes the file. Sets failbit if no file is open, or if this or
  /// an earlier write failed.
  void close();

 private:
  std::unique_ptr<file_output_buffer> buffer_;
};

}  // namespace Xport

#endif
