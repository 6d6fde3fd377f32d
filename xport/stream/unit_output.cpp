#include "xport/stream/unit_output.h"

#include <algorithm>
#include <limits>
#include <streambuf>
#include <typeinfo>

#include "xport/stream/file_output_stream.h"

namespace Xport {

namespace {

// A stream buffer shows its put area to derived classes only. Pointers to its members
// reach the put area of any buffer.
struct access : std::basic_streambuf<char16> {
  using buffer_type = std::basic_streambuf<char16>;

  static char16* next(const buffer_type& buffer) { return (buffer.*&access::pptr)(); }
  static char16* end(const buffer_type& buffer) { return (buffer.*&access::epptr)(); }
  static void bump(buffer_type& buffer, std::ptrdiff_t count) {
    constexpr std::ptrdiff_t most_at_once = std::numeric_limits<int>::max();
    for (; count > most_at_once; count -= most_at_once)
      (buffer.*&access::pbump)(static_cast<int>(most_at_once));
    (buffer.*&access::pbump)(static_cast<int>(count));
  }
};

}  // namespace

const char16 unit_output::blanks[most_blanks_at_once] = {
    u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ',
    u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' '};

void unit_output::commit() {
  const char16* const units = start_;
  const std::ptrdiff_t count = next_ - start_;
  std::basic_streambuf<char16>* const buffer = buffer_;
  buffer_ = nullptr;
  open(nullptr, 0, false);
  if (count == 0) return;
  if (buffer == nullptr) {
    stream_->write(units, count);
    return;
  }
  access::bump(*buffer, count);
  if ((stream_->flags() & std::ios_base::unitbuf) != 0) stream_->flush();
}

void unit_output::put_in_parts(ustring_view run) {
  while (true) {
    const std::size_t count = run.copy(next_, static_cast<std::size_t>(end_ - next_));
    next_ += count;
    run.remove_prefix(count);
    if (run.empty()) return;
    make_room();
  }
}

void unit_output::put_many_blanks(std::int64_t count) {
  while (count > 0) {
    if (next_ == end_) make_room();
    const std::int64_t part = std::min<std::int64_t>(count, end_ - next_);
    next_ = std::fill_n(next_, part, u' ');
    count -= part;
  }
}

// When a put area is full, the next unit is written by the stream's own write(), which makes
// the buffer empty its area or provide another one. If it does neither, the units are
// gathered in a block, as for a buffer without an area.
void unit_output::make_room() {
  const bool was_spill = start_ == scratch_;
  commit();
  if (stream_->good() && stream_->tie() != nullptr) stream_->tie()->flush();
  if (!stream_->good()) return open(scratch_, scratch_units, true);
  std::basic_streambuf<char16>* const buffer = stream_->rdbuf();
  char16* const next = access::next(*buffer);
  const std::ptrdiff_t room = access::end(*buffer) - next;
  if (room != 0) {
    buffer_ = buffer;
    return open(next, room, typeid(*buffer) == typeid(file_output_buffer));
  }
  if (next != nullptr && !was_spill) return open(scratch_, 1, false);
  if (!block_) block_ = std::make_unique_for_overwrite<char16[]>(block_units);
  open(block_.get(), block_units, true);
}

void unit_output::open(char16* units, std::ptrdiff_t count, bool spare) {
  start_ = next_ = units;
  end_ = units + count;
  spare_end_ = spare ? end_ : units;
}

}  // namespace Xport
