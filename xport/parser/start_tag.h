#ifndef XPORT_PARSER_START_TAG_H
#define XPORT_PARSER_START_TAG_H

#include <cstddef>

#include "xport/text/char16.h"
#include "xport/text/character_class.h"
#include "xport/vocabulary/tag_id.h"

namespace Xport {

class xhtml_element;
class xhtml_parser;

/// What the name of a start tag says, as far as the first unit that isn't `alnum`.
struct start_tag_name {
  /// Of the units behind "<", which may go on behind the name.
  start_tag_name(ustring_view text, const character_classes& classes);

  std::size_t length;  ///< of the name; 0 if there is none
  tag_id tag;          ///< a number of a row, invalid_tag if the name is unknown or missing
  bool slash;          ///< whether "/" is the next unit
};

/// Tells `parser` what is wrong with the start tag of `element`: an unknown name, or a "/"
/// behind the name of an element that takes content. A missing name is passed over.
void report_start_tag(const start_tag_name& name, const xhtml_element& element,
                      xhtml_parser& parser);

}  // namespace Xport

#endif
