#include "xport/stream/file_buffer.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace Xport {

namespace {

// Big-endian machines swap in place: the units are the buffer's own by then.
void to_little_endian(char16* units, std::size_t count) {
  if constexpr (std::endian::native == std::endian::big)
    for (char16* unit = units; unit != units + count; ++unit)
      *unit = static_cast<char16>((*unit << 8) | (*unit >> 8));
}

}  // namespace

file_output_buffer::file_output_buffer(std::unique_ptr<byte_output> file)
    : file_(std::move(file)), block_(block_units) {
  setp(block_.data(), block_.data() + block_.size());
}

file_output_buffer::~file_output_buffer() { close(); }

bool file_output_buffer::close() {
  if (!file_) return false;
  write_pending();
  const bool closed = file_->close();
  file_.reset();
  setp(nullptr, nullptr);
  return closed && !failed_;
}

file_output_buffer::int_type file_output_buffer::overflow(int_type unit) {
  if (!file_ || !write_pending()) return traits_type::eof();
  if (!traits_type::eq_int_type(unit, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(unit);
    pbump(1);
  }
  return traits_type::not_eof(unit);
}

std::streamsize file_output_buffer::xsputn(const char16* units, std::streamsize count) {
  if (!file_ || failed_) return 0;
  std::size_t left = static_cast<std::size_t>(std::max<std::streamsize>(count, 0));
  // A block that finds nothing in front of it needs no copy.
  if constexpr (std::endian::native == std::endian::little)
    if (pptr() == pbase() && left >= block_.size()) {
      const std::size_t whole = left - left % block_.size();
      if (!write_units(units, whole)) return 0;
      units += whole;
      left -= whole;
    }
  while (left != 0) {
    if (pptr() == epptr() && !write_pending()) break;
    const std::size_t part = std::min(left, static_cast<std::size_t>(epptr() - pptr()));
    traits_type::copy(pptr(), units, part);
    pbump(static_cast<int>(part));
    units += part;
    left -= part;
  }
  return std::max<std::streamsize>(count, 0) - static_cast<std::streamsize>(left);
}

bool file_output_buffer::write_pending() {
  const auto count = static_cast<std::size_t>(pptr() - pbase());
  setp(block_.data(), block_.data() + block_.size());
  if (count == 0) return !failed_;
  to_little_endian(block_.data(), count);
  return write_units(block_.data(), count);
}

bool file_output_buffer::write_units(const char16* units, std::size_t count) {
  if (!failed_ && !file_->write(units, count * sizeof(char16))) failed_ = true;
  return !failed_;
}

}  // namespace Xport
