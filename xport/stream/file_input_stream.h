#ifndef XPORT_STREAM_FILE_INPUT_STREAM_H
#define XPORT_STREAM_FILE_INPUT_STREAM_H

#include <cstddef>
#include <ios>
#include <istream>
#include <memory>
#include <streambuf>

#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace Xport {

/// A stream buffer that reads code units from a file unchanged, least significant byte
/// first on every machine. The odd last byte of a file is ignored.
///
/// The file is read in blocks, the first one when the first unit is requested. A block
/// that isn't full is the last one, whether the file ends there or can't be read: the
/// file isn't read again.
///
/// The only seek that works is to the first unit. The current position can't be queried.
///
/// U+FFFF is a unit like any other, although `std::char_traits<char16_t>` can't distinguish
/// it from the end: looking at one neither moves the buffer nor reads the file.
class file_input_buffer : public std::basic_streambuf<char16> {
 public:
  /// The units of a block, 64 KiB.
  static constexpr std::size_t block_units = 32 * 1024;

  /// Takes ownership of `file`, which must be at its first byte and not null.
  explicit file_input_buffer(std::unique_ptr<byte_input> file);

 protected:
  int_type underflow() override;

  /// Rewinds the file unless its first block is still in memory. If the file can't be
  /// rewound, the position doesn't change.
  pos_type seekoff(off_type offset, std::ios_base::seekdir from,
                   std::ios_base::openmode mode) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode mode) override;

 private:
  bool read_block();
  bool rewind();

  std::unique_ptr<byte_input> file_;
  std::unique_ptr<char16[]> block_;
  bool is_first_ = true;  // the block in memory is the first one, or none was read yet
  bool is_last_ = false;  // no block follows the one in memory
};

/// An input stream of code units from a file. It is constructed without a file.
class file_input_stream : public std::basic_istream<char16> {
 public:
  file_input_stream() : std::basic_istream<char16>(nullptr) {}

  /// Takes ownership of `file`, closes the file that was open before, and makes the
  /// stream good. Null means that the file couldn't be opened: it sets failbit and
  /// changes nothing else.
  void open(std::unique_ptr<byte_input> file);

 private:
  std::unique_ptr<file_input_buffer> buffer_;
};

}  // namespace Xport

#endif
