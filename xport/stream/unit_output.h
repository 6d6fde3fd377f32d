#ifndef XPORT_STREAM_UNIT_OUTPUT_H
#define XPORT_STREAM_UNIT_OUTPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <ostream>

#include "xport/text/char16.h"
#include "xport/text/fixed_run.h"

namespace Xport {

/// Puts units directly into the put area of a stream's buffer, the counterpart of
/// unit_input. A buffer that has no put area receives its units in blocks.
///
/// Units are stored after the stream's current position, which moves past them when commit()
/// is called or the put area is full. Until then nobody else may use the stream: their output
/// would overwrite these units. The rest of a put area that isn't ours is never changed.
///
/// Failures set the stream's state; whether they also throw depends on the stream's
/// exceptions(). A failed stream accepts nothing and needs no memory. Only allocating a block
/// throws std::bad_alloc. If a function of this class throws, nothing is left to commit.
///
/// In the put area of a file_output_stream and in memory of our own, short runs are copied in moves
/// of a fixed size, which write beyond the end of the run.
class unit_output {
 public:
  using stream_type = std::basic_ostream<char16>;

  /// The units of a block for a buffer without a put area, 64 KiB.
  static constexpr std::size_t block_units = 32 * 1024;

  /// Writes to the stream that the variable `stream` points to at the time of the call. The
  /// variable must outlive this object.
  explicit unit_output(stream_type* const& stream) : stream_(stream) {}
  explicit unit_output(stream_type* const&& stream) = delete;
  unit_output(const unit_output&) = delete;
  unit_output& operator=(const unit_output&) = delete;

  void put(char16 unit) {
    if (next_ == end_) make_room();
    *next_++ = unit;
  }

  void put(ustring_view run) {
    if (static_cast<std::size_t>(end_ - next_) < run.size()) return put_in_parts(run);
    copy(next_, run.data(), run.size());
    next_ += run.size();
  }

  /// Puts a literal without its closing zero.
  template <std::size_t Size>
  void put(const char16 (&literal)[Size]) {
    if (end_ - next_ < static_cast<std::ptrdiff_t>(Size)) return put_in_parts({literal, Size - 1});
    std::memcpy(next_, literal, (Size - 1) * sizeof(char16));
    next_ += Size - 1;
  }

  void put(const fixed_run& run) {
    if (spare_end_ - next_ < static_cast<std::ptrdiff_t>(fixed_run::most_units))
      return put(run.text());
    std::memcpy(next_, run.units, sizeof(run.units));
    next_ += run.size;
  }

  /// Puts `count` blanks; none for a negative number.
  void put_blanks(std::int64_t count) {
    if (count <= 0) return;
    if (count > most_blanks_at_once || count > end_ - next_) return put_many_blanks(count);
    if (spare_end_ - next_ >= most_blanks_at_once)
      std::memcpy(next_, blanks, sizeof(blanks));
    else
      copy(next_, blanks, static_cast<std::size_t>(count));
    next_ += count;
  }

  /// Makes everything that was put part of the stream's output.
  void commit();

 private:
  static constexpr std::int64_t most_blanks_at_once = 32;
  static const char16 blanks[most_blanks_at_once];

  // Most runs are names and short texts, for which a call of memcpy costs more than the
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

  void put_in_parts(ustring_view run);
  void put_many_blanks(std::int64_t count);
  void make_room();
  void open(char16* units, std::ptrdiff_t count, bool spare);

  stream_type* const& stream_;
  std::basic_streambuf<char16>* buffer_ = nullptr;  // the owner of the open room; null if we are
  char16* start_ = nullptr;                         // the first unit that isn't committed
  char16* next_ = nullptr;
  char16* end_ = nullptr;
  char16* spare_end_ =
      nullptr;  // end_ if what follows next_ may be overwritten, else next_ at most
  std::unique_ptr<char16[]> block_;  // allocated once, for a buffer without a put area

  // Room for the one unit after a full put area, and for output to a failed stream.
  static constexpr std::ptrdiff_t scratch_units = 64;
  char16 scratch_[scratch_units];
};

}  // namespace Xport

#endif
