#ifndef XPORT_PARSER_CHARACTER_REFERENCE_H
#define XPORT_PARSER_CHARACTER_REFERENCE_H

#include <cstddef>
#include <cstdint>
#include <set>

#include "xport/text/char16.h"

namespace Xport {

class xhtml_parser;

/// How a character is spelled in text.
enum class reference_form : std::uint32_t {
  form_none = 0,       ///< the entry is never used for rewriting
  form_character = 1,  ///< the plain character
  form_numeric = 2,    ///< "&#", the code in decimal, ";"
  form_named = 3       ///< "&", the name, ";"
};

/// A character that can be spelled in several ways, and the preferred spelling.
struct character_reference {
  reference_form form;
  char16 character;
  ustring name;       ///< without "&" and ";"
  std::int16_t code;  ///< the number of a numeric reference
};

/// Order entries by one of their fields. Names are compared unit by unit; a name comes
/// before the longer names that begin with it.
struct character_order {
  using is_transparent = void;
  bool operator()(const character_reference& a, const character_reference& b) const {
    return a.character < b.character;
  }
  bool operator()(const character_reference& a, char16 b) const { return a.character < b; }
  bool operator()(char16 a, const character_reference& b) const { return a < b.character; }
};
struct code_order {
  using is_transparent = void;
  bool operator()(const character_reference& a, const character_reference& b) const {
    return a.code < b.code;
  }
  bool operator()(const character_reference& a, std::int16_t b) const { return a.code < b; }
  bool operator()(std::int16_t a, const character_reference& b) const { return a < b.code; }
};
struct name_order {
  using is_transparent = void;
  bool operator()(const character_reference& a, const character_reference& b) const {
    return a.name < b.name;
  }
  bool operator()(const character_reference& a, ustring_view b) const { return a.name < b; }
  bool operator()(ustring_view a, const character_reference& b) const { return a < b.name; }
};

/// Sets of entries, with at most one entry for each key: inserting an entry with a key
/// that the set already holds changes nothing.
using references_by_character = std::set<character_reference, character_order>;
using references_by_code = std::set<character_reference, code_order>;
using references_by_name = std::set<character_reference, name_order>;

/// Inserts the 38 entries that every parser starts with: the named characters of
/// XHTML 1.0 up to U+00BF except the soft hyphen, and the multiplication and division
/// signs. Their preferred spelling is the name. The exception is `nbsp`, whose character
/// is a blank and whose form is form_none, so it is never used for rewriting.
void load_default_references(references_by_code& references);

/// Rebuilds the parser's three indexes from its master table. Each index gets the entries
/// for which its key isn't the preferred spelling; of entries with equal keys it gets the
/// one with the lowest code. Call it after each change of the table. To change the `form`
/// of an entry, extract() the entry and insert it again.
void rebuild_reference_indexes(xhtml_parser& parser);

/// Appends the preferred spelling of `entry` to `text`; nothing for form_none and for
/// values outside the enumeration.
void append_spelling(ustring& text, const character_reference& entry);

/// Replaces `count` units of `text` from `position` on, which must exist, by the preferred
/// spelling of `entry`, which is empty for form_none. Returns the index of the spelling's
/// last unit. For an empty spelling that is position - 1, which wraps at position 0.
std::size_t apply_reference(ustring& text, std::size_t position, std::size_t count,
                            const character_reference& entry);

}  // namespace Xport

#endif
