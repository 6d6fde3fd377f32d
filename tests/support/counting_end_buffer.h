#ifndef TESTS_SUPPORT_COUNTING_END_BUFFER_H
#define TESTS_SUPPORT_COUNTING_END_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <ios>
#include <streambuf>

#include "xport/stream/unit_input.h"
#include "xport/text/char16.h"

namespace test {

/// What a counting_end_buffer raises. Of no standard type, so that nothing else is
/// taken for it.
struct looked_too_often {};

/// A stream buffer on a text that counts the looks at its end and, when there were more
/// than a limit, raises looked_too_often: who reads it goes round for ever. U+FFFF ends
/// the text, as it does for every reader. It can go back to where a seek says.
class counting_end_buffer : public std::basic_streambuf<Xport::char16> {
 public:
  /// On a copy of `text`, of which `window` units at most are at hand at a time.
  explicit counting_end_buffer(Xport::ustring_view text, std::size_t limit = 1'000'000,
                               std::size_t window = static_cast<std::size_t>(-1))
      : text_(text.substr(0, text.find(Xport::end_unit))), limit_(limit), window_(window) {
    go_to(0);
  }

  /// The looks at the end so far.
  std::size_t looks() const { return looks_; }

  /// The units that are still to be read.
  Xport::ustring_view rest() const { return Xport::ustring_view(text_).substr(position()); }

 protected:
  int_type underflow() override {
    if (gptr() == egptr()) go_to(position());
    if (gptr() != egptr()) return traits_type::to_int_type(*gptr());
    if (++looks_ > limit_) throw looked_too_often();
    return traits_type::eof();
  }

  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override {
    if (from == std::ios_base::cur) offset += static_cast<off_type>(position());
    if (from == std::ios_base::end) offset += static_cast<off_type>(text_.size());
    if (offset < 0 || offset > static_cast<off_type>(text_.size())) return off_type(-1);
    go_to(static_cast<std::size_t>(offset));
    return offset;
  }

  pos_type seekpos(pos_type position, std::ios_base::openmode mode) override {
    return seekoff(position, std::ios_base::beg, mode);
  }

 private:
  std::size_t position() const { return static_cast<std::size_t>(gptr() - text_.data()); }

  void go_to(std::size_t position) {
    Xport::char16* const next = text_.data() + position;
    setg(next, next, next + std::min(window_, text_.size() - position));
  }

  Xport::ustring text_;
  std::size_t limit_;
  std::size_t window_;
  std::size_t looks_ = 0;
};

}  // namespace test

#endif
