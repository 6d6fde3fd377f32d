#include "xport/markup/xhtml_writer.h"
#include "xport/text/find_any.h"

namespace Xport {

void xhtml_writer::wrap(std::int64_t blanks) {
  output_.put(u'\n');
  indent(blanks);
}

// Text as it stands, with the indentation behind each line feed. The column
// isn't changed.
void xhtml_writer::put_lines(ustring_view text, std::int64_t blanks) {
  while (true) {
    const std::size_t line_feed = find_unit(text, u'\n');
    if (line_feed == text.size()) break;
    output_.put(text.substr(0, line_feed + 1));
    output_.put_blanks(blanks);
    text.remove_prefix(line_feed + 1);
  }
  output_.put(text);
}

// Text re-flowed into lines: each word is followed by one blank. A leading blank
// stays and isn't counted in the column; the blank behind the last word goes,
// unless the text ends in white space, and stays counted.
void xhtml_writer::put_wrapped(ustring_view text, std::int64_t blanks) {
  const bool ends_in_word = !text.empty() && !classes_->is_space(text.back());
  if (text.starts_with(u' ')) {
    output_.put(u' ');
    text.remove_prefix(1);
  }
  if (column > max_line_length) wrap(blanks);

  ustring line;
  while (true) {
    while (!text.empty() && classes_->is_space(text.front())) text.remove_prefix(1);
    if (text.empty()) break;
    std::size_t length = 1;
    while (length < text.size() && !classes_->is_space(text[length])) ++length;
    if (exceeds_line(line.size() + length)) {
      output_.put(line);
      line.clear();
      wrap(blanks);
    }
    line += text.substr(0, length);
    line += u' ';
    text.remove_prefix(length);
  }
  column += line.size();
  if (ends_in_word && !line.empty()) line.pop_back();
  output_.put(line);
}

}  // namespace Xport
