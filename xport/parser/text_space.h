#ifndef XPORT_PARSER_TEXT_SPACE_H
#define XPORT_PARSER_TEXT_SPACE_H

#include <cstddef>

#include "xport/text/char16.h"
#include "xport/text/character_class.h"

namespace Xport {

/// What becomes of a text's end: its first `kept` units stay, and one blank behind them
/// if `blank`.
struct trailing_space {
  std::size_t kept;
  bool blank;
};

/// All white space at the end goes. A blank comes in its place where a blank stands
/// further to the left in it than any newline.
trailing_space find_trailing_space(ustring_view text, const character_classes& classes);

/// Does so.
void normalize_trailing_space(ustring& text, const character_classes& classes);

/// Cuts white space from the end of `text`.
void trim_right(ustring& text, const character_classes& classes);

}  // namespace Xport

#endif
