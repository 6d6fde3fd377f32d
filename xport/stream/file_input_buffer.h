#ifndef XPORT_STREAM_FILE_INPUT_BUFFER_H
#define XPORT_STREAM_FILE_INPUT_BUFFER_H

#include <cstddef>
#include <ios>
#include <memory>
#include <streambuf>
#include <vector>

#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace Xport {

/// A stream buffer that takes code units from a file unchanged, least significant
/// byte first on every machine. The odd last byte of a file is ignored.
///
/// The file is read in blocks, the first one when the first unit is asked for. A
/// block that isn't full, because the file ends or can't be read, is the last one:
/// the file isn't asked again.
///
/// It can be sent back to its first unit, and nowhere else; it doesn't tell where
/// it stands.
///
/// U+FFFF is a unit like any other here, though `std::char_traits<char16_t>` can't
/// tell it from the end. Looking at one, whatever the look answers, neither moves
/// the buffer nor makes it read.
class file_input_buffer : public std::basic_streambuf<char16> {
 public:
  /// Units that the file is asked for at a time.
  static constexpr std::size_t block_units = 32 * 1024;

  /// Takes over `file`, which stands on its first byte and must not be null.
  explicit file_input_buffer(std::unique_ptr<byte_input> file);

 protected:
  int_type underflow() override;

  /// The file is left alone while the first block is still at hand, and otherwise
  /// goes back. If it can't, the buffer stays where it is.
  pos_type seekoff(off_type offset, std::ios_base::seekdir from,
                   std::ios_base::openmode mode) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode mode) override;

 private:
  bool read_block();
  bool rewind();

  std::unique_ptr<byte_input> file_;
  std::vector<char16> block_;
  bool is_first_ = true;  // the block at hand is the first, or none was read yet
  bool is_last_ = false;  // no block follows the one at hand
};

}  // namespace Xport

#endif
