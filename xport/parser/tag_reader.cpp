#include "xport/parser/tag_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"
#include "xport/parser/shortcuts.h"
#include "xport/parser/take_until.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stylesheet/style_attribute.h"
#include "xport/text/find_any.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

namespace {

// The name in a start tag. It ends at the first unit that isn't `alnum`.
struct start_tag_name {
  // `text` is what follows the "<". It may go on after the name.
  start_tag_name(ustring_view text, const character_classes& classes)
      : length(count_plain_letters(text, classes)), tag(tag_id::invalid_tag), slash(false) {
    while (length < text.size() && classes.is_alnum(text[length])) ++length;
    if (length == 0) return;
    tag = xhtml_strict::tag_from_name(text.substr(0, length));
    slash = length < text.size() && text[length] == u'/';
  }

  std::size_t length;  // 0 if there is no name
  tag_id tag;          // invalid_tag if the name is unknown or missing
  bool slash;          // whether "/" follows the name
};

// Reports an unknown name, and a "/" after the name of an element that takes content. A
// missing name isn't reported.
void report_start_tag(const start_tag_name& name, const xhtml_element& element,
                      xhtml_parser& parser) {
  if (name.length == 0) return;
  if (name.tag == tag_id::invalid_tag)
    parser.report_message(u"Invalid Tag", level_structure);
  else if (name.slash && !takes_nothing(element.rules()))
    parser.report_message(u"Invalid />", level_structure);
}

void skip_space(ustring_view& text, const character_classes& classes) {
  while (!text.empty() && classes.is_space(text.front())) text.remove_prefix(1);
}

}  // namespace

// The tag ends at the first ">", even inside a quoted value.
xhtml_markup* xhtml_parser::read_start_tag(xhtml_markup* parent) {
  const operation_classes scope(classes_);
  unit_input in = units();
  const ustring_view text = take_until(in, gathered_, [this](ustring_view window) {
    std::size_t at = count_plain_letters(window, *classes_);
    while (at < window.size() && window[at] != u'>' && window[at] != end_unit &&
           !classes_->is_space(window[at]))
      ++at;
    return at;
  });
  const char16 next = in.peek();
  const bool spaced = next != u'>' && next != end_unit;
  const start_tag_name name(text, *classes_);
  if (spaced) {
    last_tag = name.length == text.size() ? name.tag : xhtml_strict::tag_from_name(text);
    if (last_tag == tag_id::invalid_tag)
      return read_pcdata(parent, ustring(u"<").append(text) + next);
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

xhtml_element::xhtml_element(ustring_view start_tag_text, xhtml_parser& parser)
    : xhtml_element(tag_id::invalid_tag, {}, {}) {
  if (start_tag_text.starts_with(u'<')) start_tag_text.remove_prefix(1);
  const character_classes classes;
  const start_tag_name name(start_tag_text, classes);
  set_trait(Tag_trait_handle(tag_table[name.tag]));
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
  // Each change of the map remakes it, so attributes are stored several at a time.
  std::array<attribute_map::value_type, attribute_map::most_additions> gathered;
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

std::pair<ustring_view, ustring_view> next_attribute(ustring_view& text,
                                                     const character_classes& classes) {
  skip_space(text, classes);
  std::size_t length = count_plain_letters(text, classes);
  while (length < text.size() && text[length] != u'=' && !classes.is_space(text[length])) ++length;
  const ustring_view name = text.substr(0, length);
  text.remove_prefix(length);
  skip_space(text, classes);
  if (name.empty() || !text.starts_with(u'=')) {
    text = {};
    return {};
  }
  text.remove_prefix(1);
  return {name, read_attribute_value(text, classes)};
}

ustring_view read_attribute_value(ustring_view& text, const character_classes& classes) {
  skip_space(text, classes);
  if (text.empty()) return {};
  const bool quoted = text.front() == u'"' || text.front() == u'\'';
  const char16 delimiter = quoted ? text.front() : u' ';
  const std::size_t length = find_unit(text.substr(1), delimiter);
  if (1 + length == text.size()) {
    text = {};
    return {};
  }
  const ustring_view value = text.substr(1, length);
  text.remove_prefix(1 + length + 1);
  return value;
}

}  // namespace Xport
