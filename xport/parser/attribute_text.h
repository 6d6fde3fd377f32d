#ifndef XPORT_PARSER_ATTRIBUTE_TEXT_H
#define XPORT_PARSER_ATTRIBUTE_TEXT_H

#include <utility>

#include "xport/text/char16.h"
#include "xport/text/character_class.h"

namespace Xport {

/// Cuts the first attribute off the front of `text` and returns its name and its
/// value, parts of `text`. A name without "=" ends the attributes: `text` is then empty
/// and so are name and value.
std::pair<ustring_view, ustring_view> next_attribute(ustring_view& text,
                                                     const character_classes& classes);

/// Cuts a value off the front of `text` and returns it. Its first unit is the quote, and
/// is lost where it is none: then the value goes up to the next blank (U+0020). Without
/// an end the value is empty and nothing is left of `text`.
ustring_view read_attribute_value(ustring_view& text, const character_classes& classes);

}  // namespace Xport

#endif
