#ifndef XPORT_STREAM_UNIT_OUTPUT_H
#define XPORT_STREAM_UNIT_OUTPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <ostream>

#include "xport/text/char16.h"

namespace Xport {

/// Gathers units for a stream, which then gets them in blocks. The stream isn't
/// looked at: a failed one takes nothing. What its exceptions throw passes
/// through, and the block that was on its way is dropped.
class unit_output {
 public:
  using stream_type = std::basic_ostream<char16>;

  /// The units of a block, 64 KiB.
  static constexpr std::size_t block_units = 32 * 1024;

  /// Hands its blocks to the stream that the variable `stream`, which must outlive
  /// this object, leads to at that time.
  explicit unit_output(stream_type* const& stream);
  explicit unit_output(stream_type* const&& stream) = delete;
  unit_output(const unit_output&) = delete;
  unit_output& operator=(const unit_output&) = delete;

  void put(char16 unit) {
    if (next_ == end_) drain();
    *next_++ = unit;
  }

  void put(ustring_view run) {
    if (static_cast<std::size_t>(end_ - next_) < run.size()) return put_long(run);
    copy(next_, run.data(), run.size());
    next_ += run.size();
  }

  /// A literal, without its closing zero.
  template <std::size_t Size>
  void put(const char16 (&literal)[Size]) {
    if (end_ - next_ < static_cast<std::ptrdiff_t>(Size)) drain();
    std::memcpy(next_, literal, (Size - 1) * sizeof(char16));
    next_ += Size - 1;
  }

  /// `count` blanks; none for a negative number.
  void put_blanks(std::int64_t count) {
    if (count <= 0) return;
    if (count > blanks_at_once || end_ - next_ < blanks_at_once) return put_many_blanks(count);
    std::memcpy(next_, blanks, sizeof(blanks));
    next_ += count;
  }

  /// Hands what is gathered to the stream.
  void drain();

 private:
  static constexpr std::ptrdiff_t blanks_at_once = 32;
  static const char16 blanks[blanks_at_once];

  // Most runs are names and short texts, for which a call costs more than the
  // copying: two overlapping moves of a fixed size do.
  static void copy(char16* to, const char16* from, std::size_t count) {
    if (count > 16) {
      std::memcpy(to, from, count * sizeof(char16));
    } else if (count >= 8) {
      copy_both_ends<8>(to, from, count);
    } else if (count >= 4) {
      copy_both_ends<4>(to, from, count);
    } else if (count >= 2) {
      copy_both_ends<2>(to, from, count);
    } else if (count == 1) {
      *to = *from;
    }
  }

  template <std::size_t Units>
  static void copy_both_ends(char16* to, const char16* from, std::size_t count) {
    char16 head[Units];
    char16 tail[Units];
    std::memcpy(head, from, sizeof(head));
    std::memcpy(tail, from + count - Units, sizeof(tail));
    std::memcpy(to, head, sizeof(head));
    std::memcpy(to + count - Units, tail, sizeof(tail));
  }

  void put_long(ustring_view run);
  void put_many_blanks(std::int64_t count);

  stream_type* const& stream_;
  std::unique_ptr<char16[]> block_;
  char16* next_;
  char16* end_;
};

}  // namespace Xport

#endif
