#ifndef XPORT_PARSER_SHORTCUTS_H
#define XPORT_PARSER_SHORTCUTS_H

#include <algorithm>
#include <cstddef>

#include "xport/parser/xhtml_parser.h"
#include "xport/text/char16.h"
#include "xport/text/character_class.h"
#include "xport/text/find_any.h"

namespace Xport {

/// The parser's shortcuts. The two that are members of xhtml_parser are declared in
/// xhtml_parser.h. Each handles the most frequent form of something that the readers can read
/// anyway, and saves work:
///
/// | shortcut | saves |
/// | --- | --- |
/// | count_plain_letters | looking up the class of each letter of a name |
/// | has_plain_blanks | looking up the class of each blank of an indentation |
/// | xhtml_parser::take_plain_text | gathering a text that is complete in the input's window |
/// | xhtml_parser::take_plain_end_tag | making a node for the end tag of the innermost element |
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

/// Takes the end tag of the element with `rules` if it comes next, is spelled as the name in
/// `rules` and is whole in the input's window.
inline bool xhtml_parser::take_plain_end_tag(const Tag_trait& rules) {
  if (!use_shortcuts || reports(level_trace_end_tags) || !input->good()) return false;
  if (rules.id == tag_id::pre) return false;
  unit_input in = units();
  const ustring_view window = in.window();
  const std::size_t length = rules.name.size() + 3;
  if (window.size() < length || window[0] != u'<' || window[1] != u'/' ||
      window[length - 1] != u'>' ||
      !std::equal(rules.name.begin(), rules.name.end(), window.begin() + 2))
    return false;
  in.advance(length);
  last_tag = rules.id;
  return true;
}

}  // namespace Xport

#endif
