#ifndef XPORT_PARSER_PLAIN_READER_H
#define XPORT_PARSER_PLAIN_READER_H

#include <cstddef>

#include "xport/markup/node_memory.h"
#include "xport/markup/text_map.h"
#include "xport/markup/xhtml_element.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/char16.h"

namespace Xport {

/// The shortcut for whole elements, see shortcuts.h: reads plain tags and texts in one pass over
/// the input's window, without the calls, checks and copies that the parser needs for other nodes.
/// A plain node is whole in the window, is accepted where it stands, and gives rise to no message.
///
/// xhtml_parser::fill() makes one for its `receiver` and for the place where it makes nodes.
class xhtml_parser::plain_reader {
 public:
  plain_reader(xhtml_parser& parser, const xhtml_element& receiver, const node_place& where)
      : parser_(parser), receiver_(receiver), where_(where), last_attributes_(where.pool()) {}

  /// Reads the plain nodes that come next into `parent`, the innermost open element, and into the
  /// elements that they open. Returns the innermost element then: `receiver` or one below it.
  xhtml_element* read(xhtml_element* parent);

 private:
  bool read_node();
  bool read_start_tag(ustring_view text);
  bool read_end_tag(ustring_view text);
  bool read_text(ustring_view text);
  bool is_end_tag_next(ustring_view text) const;
  void set_attributes(xhtml_element& element, ustring_view text);

  xhtml_parser& parser_;
  const xhtml_element& receiver_;
  const node_place& where_;

  // During a call of read().
  xhtml_element* parent_ = nullptr;
  ustring_view window_;
  std::size_t used_ = 0;  // the units of the window that were read
  ustring gathered_;      // a text with a blank before it

  // Attributes that were read before, and their text. Elements in a row often have the same.
  char16 last_text_[100];
  std::size_t last_text_size_ = 0;  // 0 if there are none
  attribute_map last_attributes_;
};

}  // namespace Xport

#endif
