#include "xport/parser/shortcuts.h"

#include <optional>

#include "xport/parser/text_reader.h"
#include "xport/parser/xhtml_parser.h"

namespace Xport {

// Applies to a text that is whole in the input's window, has no double quote, and has newlines
// only where they fold: in the white space at its end. Returns a part of the window if
// possible, otherwise text_.
std::optional<ustring_view> xhtml_parser::take_plain_text() {
  if (!use_shortcuts) return {};
  unit_input in = units();
  const ustring_view window = in.window();
  std::size_t count = find_any<u'<', u'"', u'\n', end_unit>(window);
  if (count == window.size()) return {};
  const trailing_space end = find_trailing_space(window.substr(0, count), *classes_);
  bool blank = end.blank;
  if (window[count] == u'\n' && folds_newlines()) {
    const leading_space space = find_leading_space(window.substr(count), *classes_);
    count += space.count;
    if (count == window.size() || window[count] != u'<') return {};
    line += space.newlines;
    blank = true;
  } else if (window[count] != u'<') {
    return {};
  }
  in.advance(count);
  const ustring_view text = window.substr(0, end.kept);
  if (!blank) return text;
  if (end.kept < count && window[end.kept] == u' ') return window.substr(0, end.kept + 1);
  text_ = text;
  return text_ += u' ';
}

}  // namespace Xport
