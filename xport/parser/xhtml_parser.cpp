#include "xport/parser/xhtml_parser.h"

#include "xport/markup/leaf_nodes.h"

namespace Xport {

xhtml_parser::~xhtml_parser() {
  if (owns_input) delete input;
}

xhtml_markup* xhtml_parser::read_next(xhtml_markup* parent) {
  if (input == nullptr || !input->good()) return nullptr;
  const char16 unit = units().peek();
  if (unit == end_unit) return nullptr;
  if (unit == u'<' && tag_of(*parent) != tag_id::pre) return read_markup(parent);
  return read_pcdata(parent, {});
}

xhtml_markup* xhtml_parser::read_markup(xhtml_markup* parent) {
  unit_input in = units();
  in.advance();
  switch (in.peek()) {
    case end_unit:
      report_message(u"Invalid end of document.", level_structure);
      return new xhtml_markup;
    case u'!':
      in.advance();
      if (in.peek() == u'-') return read_comment(parent);
      read_declaration(u"<");
      return nodes_->make_leaf<xhtml_doctype_declaration>({});
    case u'?':
      in.advance();
      return read_processing_instruction();
    case u'/':
      return read_end_tag();
    case u'\n':
      ++line;
      break;
    default:
      break;
  }
  return read_start_tag(parent);
}

bool xhtml_parser::is_matching_end_tag(const xhtml_markup* parent, const xhtml_markup* node) {
  return node->is_end_tag() && node->tag() == parent->tag();
}

}  // namespace Xport
