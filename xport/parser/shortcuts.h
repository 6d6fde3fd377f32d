#ifndef XPORT_PARSER_SHORTCUTS_H
#define XPORT_PARSER_SHORTCUTS_H

#include <cstddef>

#include "xport/text/char16.h"
#include "xport/text/character_class.h"
#include "xport/text/find_any.h"

namespace Xport {

/// The parser's shortcuts. Each handles the most frequent form of something that the
/// readers can read anyway, and saves work:
///
/// | shortcut | saves |
/// | --- | --- |
/// | count_plain_letters | looking up the class of each letter of a name |
/// | count_plain_blanks | looking up the class of each blank of an indentation |
/// | xhtml_parser::take_plain_text | gathering a text that stands whole in the input's window |
/// | xhtml_parser::take_plain_end_tag | making a node for the end tag of the innermost element |
///
/// A reader tries its shortcut first. If the shortcut doesn't apply, it has changed nothing,
/// and the reader continues as if there were none.
///
/// Trees, messages and line numbers are the same without shortcuts. To check that, build with
/// VELLOMARK_SHORTCUTS=OFF, which leaves them out, and run the tests.
#ifdef XPORT_NO_SHORTCUTS
inline constexpr bool use_shortcuts = false;
#else
inline constexpr bool use_shortcuts = true;
#endif

/// Counts the small letters of ASCII at the beginning of `text`, which are `alnum` and no
/// white space. Returns 0 if `classes` aren't standard: a letter can then be anything.
inline std::size_t count_plain_letters(ustring_view text, const character_classes& classes) {
  if (!use_shortcuts || !classes.are_standard()) return 0;
  std::size_t count = 0;
  while (count < text.size() && text[count] >= u'a' && text[count] <= u'z') ++count;
  return count;
}

/// Counts the blanks at the beginning of `text`, which are white space. Returns 0 if
/// `classes` aren't standard: a blank can then be anything.
inline std::size_t count_plain_blanks(ustring_view text, const character_classes& classes) {
  if (!use_shortcuts || !classes.are_standard()) return 0;
  return count_leading(text, u' ');
}

}  // namespace Xport

#endif
