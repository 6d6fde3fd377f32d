#ifndef XPORT_PARSER_TAG_READER_H
#define XPORT_PARSER_TAG_READER_H

#include <utility>

#include "xport/text/char16.h"
#include "xport/text/character_class.h"

// Cuts the text of a start tag into attributes. The readers of whole tags are members of
// xhtml_parser, declared in xhtml_parser.h.

namespace Xport {

/// Cuts the first attribute off the front of `text` and returns its name and value, which
/// are parts of `text`. A name without "=" ends the attributes: the name, the value and
/// `text` are then empty.
std::pair<ustring_view, ustring_view> next_attribute(ustring_view& text,
                                                     const character_classes& classes);

/// Cuts an attribute value off the front of `text` and returns it without its quotes. If
/// the first unit is no quote, it is dropped all the same and the value ends at the next
/// blank (U+0020). A value without an end is empty, and `text` is then empty too.
ustring_view read_attribute_value(ustring_view& text, const character_classes& classes);

}  // namespace Xport

#endif
