#ifndef XPORT_STYLESHEET_STYLE_ATTRIBUTE_H
#define XPORT_STYLESHEET_STYLE_ATTRIBUTE_H

#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"
#include "xport/text/character_class.h"

namespace Xport {

/// Reads the value of a `style` attribute into the style of `element`. A property that
/// already has a value, from before the call or from earlier in `text`, keeps it. Names
/// outside the table and names without a value are dropped. An element without a rule
/// record stores nothing.
///
/// The rules are simpler than those of a stylesheet. A name ends at white space or ":", and
/// the unit that ends it is skipped. A value ends at white space or ";", so it contains no
/// blank, and the unit that ends it is not skipped. A ";" therefore becomes part of the next
/// name, which then isn't in the table. Declarations must be separated by white space alone:
/// of `color: red; width: 2px` only the color is stored.
///
/// Throws std::bad_alloc, and std::length_error for a value of 2^32 units or more; the
/// style then holds part of what was read. `text` must not point into the element's style.
void parse_style_attribute(xhtml_element& element, ustring_view text,
                           const character_classes& classes = character_classes());

}  // namespace Xport

#endif
