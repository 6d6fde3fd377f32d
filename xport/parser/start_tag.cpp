#include "xport/parser/start_tag.h"

#include <algorithm>
#include <array>
#include <span>

#include "xport/markup/xhtml_element.h"
#include "xport/parser/attribute_text.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stylesheet/style_attribute.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

start_tag_name::start_tag_name(ustring_view text, const character_classes& classes)
    : length(classes.count_plain_letters(text)), tag(tag_id::invalid_tag), slash(false) {
  while (length < text.size() && classes.is_alnum(text[length])) ++length;
  if (length == 0) return;
  tag = xhtml_strict::tag_from_name(text.substr(0, length));
  slash = length < text.size() && text[length] == u'/';
}

void report_start_tag(const start_tag_name& name, const xhtml_element& element,
                      xhtml_parser& parser) {
  if (name.length == 0) return;
  if (name.tag == tag_id::invalid_tag)
    parser.report_message(u"Invalid Tag", level_structure);
  else if (name.slash && !takes_nothing(element.rules()))
    parser.report_message(u"Invalid />", level_structure);
}

xhtml_element::xhtml_element(ustring_view start_tag_text, xhtml_parser& parser)
    : xhtml_element(tag_id::invalid_tag, {}, {}) {
  if (start_tag_text.starts_with(u'<')) start_tag_text.remove_prefix(1);
  const character_classes classes;
  const start_tag_name name(start_tag_text, classes);
  trait_ = Tag_trait_handle(tag_table[name.tag]);
  report_start_tag(name, *this, parser);
  const ustring_view rest = start_tag_text.substr(name.length);
  if (name.tag != tag_id::invalid_tag && !rest.empty() && classes.is_space(rest.front()))
    parse_attributes(rest, classes);
}

void xhtml_element::parse_attributes(ustring_view text) {
  parse_attributes(text, character_classes());
}

void xhtml_element::parse_attributes(ustring_view text, const character_classes& classes) {
  if (trait_.get() == nullptr) return;
  // The map is filled by a few attributes at a time, since each change remakes it.
  std::array<attribute_map::value_type, 8> gathered;
  std::size_t count = 0;
  const auto store = [&] {
    attributes_.insert_missing(std::span(gathered).first(count));
    count = 0;
  };
  while (!text.empty()) {
    const auto [name, value] = next_attribute(text, classes);
    if (name == u"style") {
      parse_style_attribute(*this, value, classes);
      continue;
    }
    const attr_id id = xhtml_strict::attribute_from_name(name);
    if (id == attr_id::not_found) continue;
    if (count == gathered.size()) store();
    gathered[count++] = {id, value};
  }
  store();
}

}  // namespace Xport
