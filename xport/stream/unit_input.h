#ifndef XPORT_STREAM_UNIT_INPUT_H
#define XPORT_STREAM_UNIT_INPUT_H

#include <cstddef>
#include <limits>
#include <streambuf>

#include "xport/text/char16.h"
#include "xport/text/find_any.h"

namespace Xport {

/// The unit that a stream buffer answers with at its end. A unit of that value in
/// the input can't be told from the end and so ends the input: nothing ever moves
/// over it.
inline constexpr char16 end_unit = 0xFFFF;

/// Takes units out of a stream buffer, past the stream and its state. What it shows
/// is still in the buffer, so the buffer's position is always where this one is, and
/// whoever reads from the buffer in between goes on from there.
///
/// What the buffer throws passes through.
class unit_input {
 public:
  using buffer_type = std::basic_streambuf<char16>;

  /// On `buffer`, which must outlive this object; null is an input at its end.
  explicit unit_input(buffer_type* buffer) : buffer_(buffer) {}

  /// The next unit, `end_unit` at the end.
  char16 peek() const {
    if (buffer_ == nullptr) return end_unit;
    if (access::count(*buffer_) == 0) return look();
    return *access::next(*buffer_);
  }

  bool at_end() const { return peek() == end_unit; }

  /// The units that can be seen from the next one on, at least one; empty at the end.
  /// `end_unit` may stand behind the first. Valid until more is asked for, at most as
  /// long as this object.
  ustring_view window() const {
    const char16 next = peek();
    if (next == end_unit) return {};
    const std::size_t count = access::count(*buffer_);
    if (count != 0) return {access::next(*buffer_), count};
    lone_ = next;
    return {&lone_, 1};
  }

  /// Moves over `count` units of the window.
  void advance(std::size_t count) {
    if (count == 0) return;
    if (access::count(*buffer_) == 0) return advance();  // a window of one unit
    for (; count > most_at_once; count -= most_at_once)
      access::bump(*buffer_, static_cast<int>(most_at_once));
    access::bump(*buffer_, static_cast<int>(count));
  }

  /// Moves over the next unit; at the end it stays.
  void advance() {
    if (at_end()) return;
    if (access::count(*buffer_) != 0)
      access::bump(*buffer_, 1);
    else
      buffer_->sbumpc();
  }

 private:
  static constexpr std::size_t most_at_once = std::numeric_limits<int>::max();

  // A stream buffer shows its window to derived classes only. Through pointers to
  // its members it can be had of any buffer, so that none has to be copied first.
  struct access : buffer_type {
    static const char16* next(const buffer_type& buffer) { return (buffer.*&access::gptr)(); }
    static std::size_t count(const buffer_type& buffer) {
      return static_cast<std::size_t>((buffer.*&access::egptr)() - next(buffer));
    }
    static void bump(buffer_type& buffer, int count) { (buffer.*&access::gbump)(count); }
  };

  // Where there is a window, the unit is taken from there: sgetc() of the standard
  // library may return another unit for U+FFFF, so that it isn't taken for the end.
  char16 look() const {
    const auto answer = buffer_->sgetc();
    if (access::count(*buffer_) != 0) return *access::next(*buffer_);
    return static_cast<char16>(answer);
  }

  buffer_type* buffer_;
  mutable char16 lone_ = end_unit;  // the window of a buffer that has none
};

/// Moves over all units that are left, and gives them.
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
