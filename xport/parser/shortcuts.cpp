#include "xport/parser/shortcuts.h"

#include "xport/parser/text_reader.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/find_any.h"

namespace Xport {

std::optional<plain_text> find_plain_text(ustring_view text, const character_classes& classes,
                                          bool folds_newlines) {
  std::size_t count = find_any<u'<', u'"', u'\n', end_unit>(text);
  if (count == text.size()) return {};
  const trailing_space end = find_trailing_space(text.substr(0, count), classes);
  plain_text found{count, 0, end.kept, end.blank};
  if (text[count] == u'\n' && folds_newlines) {
    const leading_space space = find_leading_space(text.substr(count), classes);
    found.count += space.count;
    if (found.count == text.size() || text[found.count] != u'<') return {};
    found.newlines = space.newlines;
    found.blank = true;
  } else if (text[count] != u'<') {
    return {};
  }
  return found;
}

ustring_view plain_text::text_in(ustring_view text, ustring& gathered) const {
  if (!blank) return text.substr(0, kept);
  if (kept < count && text[kept] == u' ') return text.substr(0, kept + 1);
  gathered = text.substr(0, kept);
  return gathered += u' ';
}

std::optional<ustring_view> xhtml_parser::take_plain_text() {
  if (!use_shortcuts) return {};
  unit_input in = units();
  const ustring_view window = in.window();
  const auto found = find_plain_text(window, *classes_, folds_newlines());
  if (!found) return {};
  line += found->newlines;
  in.advance(found->count);
  return found->text_in(window, text_);
}

}  // namespace Xport
