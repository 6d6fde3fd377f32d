#ifndef XPORT_STREAM_UNIT_INPUT_H
#define XPORT_STREAM_UNIT_INPUT_H

#include <cstddef>
#include <limits>
#include <streambuf>

#include "xport/text/char16.h"
#include "xport/text/find_any.h"

namespace Xport {

/// What a stream buffer returns at its end. A unit of that value in the input can't be
/// distinguished from the end, so it ends the input: nothing ever moves past it.
inline constexpr char16 end_unit = 0xFFFF;

/// Reads units directly from a stream buffer, without the stream and its state. Its position
/// is always the buffer's position, so others may read from the buffer in between.
///
/// Exceptions of the buffer reach the caller.
class unit_input {
 public:
  using buffer_type = std::basic_streambuf<char16>;

  /// Reads from `buffer`, which must outlive this object. Null is an empty input.
  explicit unit_input(buffer_type* buffer) : buffer_(buffer) {}

  /// The next unit; `end_unit` at the end.
  char16 peek() const {
    if (buffer_ == nullptr) return end_unit;
    if (access::count(*buffer_) == 0) return look();
    return *access::next(*buffer_);
  }

  bool at_end() const { return peek() == end_unit; }

  /// The units that the buffer already holds, from the next one on: at least one, or none at
  /// the end. Any but the first may be `end_unit`. Valid until the buffer is read further,
  /// and no longer than this object.
  ustring_view window() const {
    const char16 next = peek();
    if (next == end_unit) return {};
    const std::size_t count = access::count(*buffer_);
    if (count != 0) return {access::next(*buffer_), count};
    lone_ = next;
    return {&lone_, 1};
  }

  /// The same without asking the buffer for more: empty if it holds no units.
  ustring_view window_at_hand() const {
    if (buffer_ == nullptr) return {};
    return {access::next(*buffer_), access::count(*buffer_)};
  }

  /// Moves past `count` units of the window.
  void advance(std::size_t count) {
    if (count == 0) return;
    if (access::count(*buffer_) == 0) return advance();  // a window of one unit
    for (; count > most_at_once; count -= most_at_once)
      access::bump(*buffer_, static_cast<int>(most_at_once));
    access::bump(*buffer_, static_cast<int>(count));
  }

  /// Moves past the next unit. Does nothing at the end.
  void advance() {
    if (at_end()) return;
    if (access::count(*buffer_) != 0)
      access::bump(*buffer_, 1);
    else
      buffer_->sbumpc();
  }

 private:
  static constexpr std::size_t most_at_once = std::numeric_limits<int>::max();

  // A stream buffer shows its get area to derived classes only. Pointers to its members
  // reach the get area of any buffer.
  struct access : buffer_type {
    static const char16* next(const buffer_type& buffer) { return (buffer.*&access::gptr)(); }
    static std::size_t count(const buffer_type& buffer) {
      return static_cast<std::size_t>((buffer.*&access::egptr)() - next(buffer));
    }
    static void bump(buffer_type& buffer, int count) { (buffer.*&access::gbump)(count); }
  };

  // The standard library's sgetc() may return another unit for U+FFFF, to distinguish it
  // from the end. So the unit is read from the get area if there is one.
  char16 look() const {
    const auto unit = buffer_->sgetc();
    if (access::count(*buffer_) != 0) return *access::next(*buffer_);
    return static_cast<char16>(unit);
  }

  buffer_type* buffer_;
  mutable char16 lone_ = end_unit;  // the window of a buffer that has none
};

/// Reads all units that are left, in time linear in their number.
inline ustring take_rest(unit_input input) {
  ustring rest;
  for (ustring_view window = input.window(); !window.empty(); window = input.window()) {
    const std::size_t count = find_unit(window, end_unit);
    rest += window.substr(0, count);
    input.advance(count);
  }
  return rest;
}

}  // namespace Xport

#endif
