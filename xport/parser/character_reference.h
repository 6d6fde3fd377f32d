#ifndef XPORT_PARSER_CHARACTER_REFERENCE_H
#define XPORT_PARSER_CHARACTER_REFERENCE_H

#include <cstddef>
#include <cstdint>
#include <set>

#include "xport/text/char16.h"

namespace Xport {

class xhtml_parser;

/// How a character is to be spelled in text.
enum class reference_form : std::uint32_t {
  form_none = 0,       ///< the entry takes no part in rewriting
  form_character = 1,  ///< the plain character
  form_numeric = 2,    ///< "&#", the code in decimal, ";"
  form_named = 3       ///< "&", the name, ";"
};

/// A character that may be spelled in several ways, and the preferred one.
struct character_reference {
  reference_form form;
  char16 character;
  ustring name;       ///< without "&" and ";"
  std::int16_t code;  ///< the number of a numeric reference
};

/// Order entries by one of their fields. Names are compared unit by unit, with a
/// shorter name in front of those that it begins.
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

/// Sets of entries with one entry at most for a key: an entry with a key that is
/// there already isn't stored.
using references_by_character = std::set<character_reference, character_order>;
using references_by_code = std::set<character_reference, code_order>;
using references_by_name = std::set<character_reference, name_order>;

/// Inserts the 38 entries that every parser begins with: the named characters of
/// XHTML 1.0 up to U+00BF without the soft hyphen, and the signs for multiplying and
/// dividing. All are preferred by name, but for `nbsp`: it stands for a blank and takes
/// no part.
void load_default_references(references_by_code& references);

/// Fills the parser's three indexes anew from its master table, each with the
/// entries for which its key isn't the preferred spelling; of entries with equal
/// keys the one with the lowest code is taken. To be called after the table or a
/// `form` in it was changed, for which the entry is taken out (`extract`) and put back.
void rebuild_reference_indexes(xhtml_parser& parser);

/// Appends the preferred spelling of `entry` to `text`; nothing for form_none and for
/// numbers outside the enumeration.
void append_spelling(ustring& text, const character_reference& entry);

/// Puts the preferred spelling of `entry`, nothing for form_none, in the place of
/// the `count` units of `text` from `position` on, which must be there. Returns the
/// index of the last unit of the spelling (position - 1 for an empty one, which
/// wraps at position 0).
std::size_t apply_reference(ustring& text, std::size_t position, std::size_t count,
                            const character_reference& entry);

}  // namespace Xport

#endif
