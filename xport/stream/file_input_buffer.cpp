#include "xport/stream/file_input_buffer.h"

#include <bit>
#include <utility>

namespace Xport {

namespace {

void from_little_endian(char16* units, std::size_t count) {
  if constexpr (std::endian::native == std::endian::big)
    for (char16* unit = units; unit != units + count; ++unit)
      *unit = static_cast<char16>((*unit << 8) | (*unit >> 8));
}

}  // namespace

file_input_buffer::file_input_buffer(std::unique_ptr<byte_input> file)
    : file_(std::move(file)), block_(block_units) {}

file_input_buffer::int_type file_input_buffer::underflow() {
  if (gptr() == egptr() && !read_block()) return traits_type::eof();
  return traits_type::to_int_type(*gptr());
}

file_input_buffer::pos_type file_input_buffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                                       std::ios_base::openmode mode) {
  const bool to_beginning = offset == 0 && from == std::ios_base::beg;
  if (!to_beginning || (mode & std::ios_base::in) == 0 || !rewind()) return pos_type(off_type(-1));
  return pos_type(off_type(0));
}

file_input_buffer::pos_type file_input_buffer::seekpos(pos_type position,
                                                       std::ios_base::openmode mode) {
  return seekoff(off_type(position), std::ios_base::beg, mode);
}

bool file_input_buffer::read_block() {
  if (is_last_) return false;
  is_first_ = eback() == nullptr;
  const std::size_t bytes = file_->read(block_.data(), block_.size() * sizeof(char16));
  const std::size_t count = bytes / sizeof(char16);
  is_last_ = count != block_.size();
  from_little_endian(block_.data(), count);
  setg(block_.data(), block_.data(), block_.data() + count);
  return count != 0;
}

bool file_input_buffer::rewind() {
  if (is_first_) {
    setg(eback(), eback(), egptr());
    return true;
  }
  if (!file_->rewind()) return false;
  setg(nullptr, nullptr, nullptr);
  is_first_ = true;
  is_last_ = false;
  return true;
}

}  // namespace Xport
