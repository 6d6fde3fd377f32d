#include "xport/parser/text_space.h"

namespace Xport {

trailing_space find_trailing_space(ustring_view text, const character_classes& classes) {
  const std::size_t kept = classes.trim_right(text).size();
  const std::size_t first = text.find_first_of(u" \n", kept);
  return {kept, first != ustring_view::npos && text[first] == u' '};
}

void normalize_trailing_space(ustring& text, const character_classes& classes) {
  const trailing_space end = find_trailing_space(text, classes);
  text.resize(end.kept);
  if (end.blank) text += u' ';
}

void trim_right(ustring& text, const character_classes& classes) {
  text.resize(classes.trim_right(text).size());
}

}  // namespace Xport
