#include <algorithm>

#include "xport/markup/xhtml_writer.h"

namespace Xport {

void xhtml_writer::drain() {
  const std::streamsize count = next_ - buffer_.get();
  next_ = buffer_.get();
  if (count != 0) stream->write(next_, count);
}

void xhtml_writer::put_long(ustring_view run) {
  drain();
  if (run.size() < buffer_units)
    next_ = std::copy(run.begin(), run.end(), next_);
  else
    stream->write(run.data(), static_cast<std::streamsize>(run.size()));
}

void xhtml_writer::put_blanks(std::int64_t count) {
  while (count > 0) {
    if (next_ == end_) drain();
    const std::int64_t part = std::min<std::int64_t>(count, end_ - next_);
    next_ = std::fill_n(next_, part, u' ');
    count -= part;
  }
}

void xhtml_writer::indent(std::int64_t blanks) {
  put_blanks(blanks);
  column = static_cast<std::uint64_t>(std::max<std::int64_t>(blanks, 0));
}

void xhtml_writer::wrap(std::int64_t blanks) {
  put(u'\n');
  indent(blanks);
}

// Text as it stands, with the indentation behind each line feed. The column
// isn't changed.
void xhtml_writer::put_lines(ustring_view text, std::int64_t blanks) {
  while (true) {
    const std::size_t line_feed = text.find(u'\n');
    if (line_feed == ustring_view::npos || blanks <= 0) break;
    put(text.substr(0, line_feed + 1));
    put_blanks(blanks);
    text.remove_prefix(line_feed + 1);
  }
  put(text);
}

// Text re-flowed into lines: each word is followed by one blank. A leading blank
// stays and isn't counted in the column; the blank behind the last word goes,
// unless the text ends in white space, and stays counted.
void xhtml_writer::put_wrapped(ustring_view text, std::int64_t blanks) {
  if (text.empty()) return;
  const bool ends_in_space = classes_.is_space(text.back());
  if (text.front() == u' ') {
    put(u' ');
    text.remove_prefix(1);
  }
  if (column > max_line_length) wrap(blanks);

  ustring line;
  while (true) {
    while (!text.empty() && classes_.is_space(text.front())) text.remove_prefix(1);
    if (text.empty()) break;
    std::size_t length = 1;
    while (length < text.size() && !classes_.is_space(text[length])) ++length;
    if (exceeds_line(line.size() + length)) {
      put(line);
      line.clear();
      wrap(blanks);
    }
    line += text.substr(0, length);
    line += u' ';
    text.remove_prefix(length);
  }
  column += line.size();
  if (!ends_in_space) line.pop_back();
  put(line);
}

}  // namespace Xport
