#include "xport/stream/file_input_stream.h"

#include <bit>
#include <span>
#include <utility>

#include "xport/stream/byte_order.h"

namespace Xport {

file_input_buffer::file_input_buffer(std::unique_ptr<byte_input> file)
    : file_(std::move(file)), block_(std::make_unique_for_overwrite<char16[]>(block_units)) {}

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
  const std::size_t bytes = file_->read(block_.get(), block_units * sizeof(char16));
  const std::span units(block_.get(), bytes / sizeof(char16));
  is_last_ = units.size() != block_units;
  if constexpr (std::endian::native == std::endian::big) swap_bytes(units);
  setg(units.data(), units.data(), units.data() + units.size());
  return !units.empty();
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

void file_input_stream::open(std::unique_ptr<byte_input> file) {
  if (!file) {
    setstate(failbit);
    return;
  }
  auto buffer = std::make_unique<file_input_buffer>(std::move(file));
  rdbuf(buffer.get());
  buffer_ = std::move(buffer);
}

}  // namespace Xport
