#ifndef XPORT_PARSER_TEXT_READER_H
#define XPORT_PARSER_TEXT_READER_H

#include <cstddef>
#include <cstdint>

#include "xport/parser/shortcuts.h"
#include "xport/stream/unit_input.h"
#include "xport/text/char16.h"
#include "xport/text/character_class.h"

namespace Xport {

/// The white space at the beginning of a text. A newline counts as white space in every
/// locale: a text that folds newlines would never end otherwise.
struct leading_space {
  std::size_t count;       ///< its units
  std::uint32_t newlines;  ///< the newlines among them
};

/// Finds the white space at the beginning of `text`, up to a unit U+FFFF at most.
inline leading_space find_leading_space(ustring_view text, const character_classes& classes) {
  leading_space found{0, 0};
  for (; found.count < text.size(); ++found.count) {
    const char16 unit = text[found.count];
    if (unit == u' ' && has_plain_blanks(classes))
      found.count +=
          count_leading({text.data() + found.count, text.size() - found.count}, u' ') - 1;
    else if (unit == u'\n')
      ++found.newlines;
    else if (unit == end_unit || !classes.is_space(unit))
      break;
  }
  return found;
}

/// What stays of a text whose trailing white space is removed: the first `kept` units,
/// followed by one blank if `blank`.
struct trailing_space {
  std::size_t kept;
  bool blank;
};

/// Finds the white space at the end of `text`. A blank replaces it if it holds a blank
/// and no newline comes before that blank.
trailing_space find_trailing_space(ustring_view text, const character_classes& classes);

/// Applies find_trailing_space to `text` in place.
void normalize_trailing_space(ustring& text, const character_classes& classes);

/// Removes the white space at the end of `text`.
void trim_right(ustring& text, const character_classes& classes);

}  // namespace Xport

#endif
