#ifndef TESTS_SUPPORT_DRIBBLE_BUFFER_H
#define TESTS_SUPPORT_DRIBBLE_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <streambuf>

#include "xport/text/char16.h"

namespace test {

/// A stream buffer on a text of its own that shows at most `at_once` units of it at a time,
/// each time in fresh memory, so that a look behind what is at hand is a look at freed memory.
class dribble_buffer : public std::basic_streambuf<Xport::char16> {
 public:
  dribble_buffer(Xport::ustring_view text, std::size_t at_once) : text_(text), at_once_(at_once) {}

 protected:
  int_type underflow() override {
    // A unit U+FFFF at hand answers like the end, and stays.
    if (gptr() != egptr()) return traits_type::to_int_type(*gptr());
    const std::size_t count = std::min(at_once_, text_.size() - taken_);
    if (count == 0) return traits_type::eof();
    piece_ = std::make_unique<Xport::char16[]>(count);
    std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(taken_), count, piece_.get());
    taken_ += count;
    setg(piece_.get(), piece_.get(), piece_.get() + count);
    return traits_type::to_int_type(*gptr());
  }

  // The start can be gone back to.
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override {
    if (offset != 0 || from != std::ios_base::beg) return pos_type(off_type(-1));
    taken_ = 0;
    setg(nullptr, nullptr, nullptr);
    return pos_type(0);
  }

 private:
  Xport::ustring text_;
  std::size_t at_once_;
  std::size_t taken_ = 0;
  std::unique_ptr<Xport::char16[]> piece_;
};

}  // namespace test

#endif
