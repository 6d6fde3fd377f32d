#ifndef XPORT_PARSER_SHORTCUTS_H
#define XPORT_PARSER_SHORTCUTS_H

#include <cstddef>
#include <cstdint>
#include <optional>

#include "xport/text/char16.h"
#include "xport/text/character_class.h"

namespace Xport {

/// The parser's shortcuts. Each handles the most frequent form of something that the readers can
/// read anyway, and saves work:
///
/// | shortcut | saves |
/// | --- | --- |
/// | count_plain_letters | looking up the class of each letter of a name |
/// | has_plain_blanks | looking up the class of each blank of an indentation |
/// | xhtml_parser::take_plain_text | gathering a text that is complete in the input's window |
/// | xhtml_parser::plain_reader | the calls, checks and copies between one tag and the next |
///
/// The parser tries a shortcut before the plain way. If the shortcut doesn't apply, it has
/// changed nothing.
///
/// Trees, messages and line numbers are the same without shortcuts. The tests check that: they
/// run a second time with the parser built without them. VELLOMARK_SHORTCUTS=OFF leaves them
/// out of the library.
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

/// Whether a run of blanks may be skipped as white space without looking up each of them.
/// Only if `classes` are standard: a blank can be anything otherwise.
inline bool has_plain_blanks(const character_classes& classes) {
  return use_shortcuts && classes.are_standard();
}

/// A text that is whole in a window of the input, has no double quote, and has newlines only where
/// they fold: in the white space at its end.
struct plain_text {
  /// What the parser makes of it, given the window that begins with it: a part of the window if
  /// possible, otherwise `gathered`, which receives a copy.
  ustring_view text_in(ustring_view window, ustring& gathered) const;

  std::size_t count;       ///< its units, white space included
  std::uint32_t newlines;  ///< the newlines among them
  std::size_t kept;        ///< its units without the white space at its end
  bool blank;              ///< whether a blank takes the place of that
};

/// Finds the plain text at the beginning of `window`, which doesn't begin with white space.
std::optional<plain_text> find_plain_text(ustring_view window, const character_classes& classes,
                                          bool folds_newlines);

}  // namespace Xport

#endif
