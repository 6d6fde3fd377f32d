#ifndef XPORT_TEXT_UNIT_INPUT_H
#define XPORT_TEXT_UNIT_INPUT_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <streambuf>

#include "xport/text/char16.h"

namespace Xport {

/// The unit that a stream buffer answers with at its end. A unit of that value in
/// the input can't be told from the end and so ends the input: nothing ever moves
/// over it.
inline constexpr char16 end_unit = 0xFFFF;

/// Takes units out of a stream buffer, past the stream and its state. It keeps
/// nothing of its own, so the buffer's position is always where this one is, and
/// whoever reads from the buffer in between goes on from there.
class unit_input {
 public:
  using buffer_type = std::basic_streambuf<char16>;

  /// On `buffer`, which must outlive this object; null is an input at its end.
  explicit unit_input(buffer_type* buffer) : buffer_(buffer) {}

  /// The next unit, `end_unit` at the end. What the buffer raises passes through.
  char16 peek() const {
    return buffer_ != nullptr ? static_cast<char16>(buffer_->sgetc()) : end_unit;
  }

  bool at_end() const { return peek() == end_unit; }

  /// The units that the buffer has at hand, from the next one on; empty at the end.
  /// `end_unit` may stand behind the first. Valid until more is asked for.
  ustring_view window() const {
    if (at_end()) return {};
    const char16* const next = access::next(*buffer_);
    return {next, static_cast<std::size_t>(access::end(*buffer_) - next)};
  }

  /// Moves over `count` units of the window.
  void advance(std::size_t count) {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    for (; count > most; count -= most) access::bump(*buffer_, static_cast<int>(most));
    access::bump(*buffer_, static_cast<int>(count));
  }

  /// Moves over the next unit, of which there must be one.
  void advance() { buffer_->sbumpc(); }

 private:
  // A stream buffer shows its window to derived classes only. Through pointers to
  // its members it can be had of any buffer, so that none has to be copied first.
  struct access : buffer_type {
    static const char16* next(const buffer_type& buffer) { return (buffer.*&access::gptr)(); }
    static const char16* end(const buffer_type& buffer) { return (buffer.*&access::egptr)(); }
    static void bump(buffer_type& buffer, int count) { (buffer.*&access::gbump)(count); }
  };

  buffer_type* buffer_;
};

}  // namespace Xport

#endif
