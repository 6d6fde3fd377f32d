#include <algorithm>
#include <memory>

#include "xport/markup/leaf_nodes.h"
#include "xport/parser/start_tag.h"
#include "xport/parser/take_until.h"
#include "xport/parser/xhtml_parser.h"

namespace Xport {

// The tag ends at the first ">", inside a quoted value too.
xhtml_markup* xhtml_parser::read_start_tag(xhtml_markup* parent) {
  const operation_classes scope(classes_);
  unit_input in = units();
  const ustring_view text = take_until(in, gathered_, [this](ustring_view window) {
    std::size_t at = classes_->count_plain_letters(window);
    while (at < window.size() && window[at] != u'>' && window[at] != end_unit &&
           !classes_->is_space(window[at]))
      ++at;
    return at;
  });
  const char16 behind = in.peek();
  const bool spaced = behind != u'>' && behind != end_unit;
  const start_tag_name name(text, *classes_);
  if (spaced) {
    last_tag = name.length == text.size() ? name.tag : xhtml_strict::tag_from_name(text);
    if (last_tag == tag_id::invalid_tag)
      return read_pcdata(parent, ustring(u"<").append(text) + behind);
  }
  const bool has_attributes = spaced && name.length == text.size();
  std::unique_ptr<xhtml_element> element(nodes_->make<xhtml_element>(*tag_table[name.tag]));
  if (spaced) {
    const ustring_view rest = take_until(in, gathered_, any_of<u'>', end_unit>);
    line += static_cast<std::uint32_t>(std::count(rest.begin(), rest.end(), u'\n'));
    if (has_attributes) element->parse_attributes(rest, *classes_);
  }
  in.advance();
  report_start_tag(name, *element, *this);
  last_tag = element->tag();
  return element.release();
}

xhtml_markup* xhtml_parser::read_end_tag() {
  unit_input in = units();
  ustring token(u"<");
  token += take_until(in, gathered_, any_of<u'>', end_unit>);
  if (in.at_end()) {
    last_tag = tag_id::invalid_tag;
    return new xhtml_markup;
  }
  in.advance();
  token += u'>';
  xhtml_end_tag* const node = new xhtml_end_tag(token);
  last_tag = node->tag();
  return node;
}

}  // namespace Xport
