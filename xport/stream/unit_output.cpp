#include "xport/stream/unit_output.h"

#include <algorithm>

namespace Xport {

const char16 unit_output::blanks[blanks_at_once] = {
    u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ',
    u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' ', u' '};

unit_output::unit_output(stream_type* const& stream)
    : stream_(stream),
      block_(std::make_unique_for_overwrite<char16[]>(block_units)),
      next_(block_.get()),
      end_(next_ + block_units) {}

void unit_output::drain() {
  const std::streamsize count = next_ - block_.get();
  next_ = block_.get();
  if (count != 0) stream_->write(next_, count);
}

void unit_output::put_long(ustring_view run) {
  drain();
  if (run.size() < block_units) {
    std::memcpy(next_, run.data(), run.size() * sizeof(char16));
    next_ += run.size();
  } else {
    stream_->write(run.data(), static_cast<std::streamsize>(run.size()));
  }
}

void unit_output::put_many_blanks(std::int64_t count) {
  while (count > 0) {
    if (next_ == end_) drain();
    const std::int64_t part = std::min<std::int64_t>(count, end_ - next_);
    next_ = std::fill_n(next_, part, u' ');
    count -= part;
  }
}

}  // namespace Xport
