#include "xport/stream/file_output_stream.h"

#include <algorithm>
#include <bit>
#include <span>
#include <utility>

#include "xport/stream/byte_order.h"

namespace Xport {

file_output_buffer::file_output_buffer(std::unique_ptr<byte_output> file)
    : file_(std::move(file)), block_(std::make_unique_for_overwrite<char16[]>(block_units)) {
  setp(block_.get(), block_.get() + block_units);
}

file_output_buffer::~file_output_buffer() { close(); }

bool file_output_buffer::close() {
  if (!file_) return false;
  write_block();
  const bool closed = file_->close();
  file_.reset();
  setp(nullptr, nullptr);
  return closed && !failed_;
}

file_output_buffer::int_type file_output_buffer::overflow(int_type unit) {
  if (!file_ || !write_block()) return traits_type::eof();
  if (!traits_type::eq_int_type(unit, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(unit);
    pbump(1);
  }
  return traits_type::not_eof(unit);
}

std::streamsize file_output_buffer::xsputn(const char16* units, std::streamsize count) {
  if (!file_ || failed_) return 0;
  std::streamsize left = std::max<std::streamsize>(count, 0);
  while (left != 0) {
    if (pptr() == epptr() && !write_block()) break;
    const std::streamsize part = std::min<std::streamsize>(left, epptr() - pptr());
    traits_type::copy(pptr(), units, static_cast<std::size_t>(part));
    pbump(static_cast<int>(part));
    units += part;
    left -= part;
  }
  return std::max<std::streamsize>(count, 0) - left;
}

bool file_output_buffer::write_block() {
  const std::span units(pbase(), pptr());
  setp(block_.get(), block_.get() + block_units);
  if (units.empty() || failed_) return !failed_;
  if constexpr (std::endian::native == std::endian::big) swap_bytes(units);
  failed_ = !file_->write(units.data(), units.size_bytes());
  return !failed_;
}

void file_output_stream::open(std::unique_ptr<byte_output> file) {
  if (!file) {
    setstate(failbit);
    return;
  }
  auto buffer = std::make_unique<file_output_buffer>(std::move(file));
  rdbuf(buffer.get());
  buffer_ = std::move(buffer);
}

void file_output_stream::close() {
  if (!buffer_ || !buffer_->close()) setstate(failbit);
}

}  // namespace Xport
