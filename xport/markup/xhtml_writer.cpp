#include "xport/markup/xhtml_writer.h"

#include <algorithm>

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"
#include "xport/text/find_any.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

xhtml_writer::xhtml_writer(stream_type& stream_to) : stream(&stream_to), output_(stream) {}

xhtml_writer::~xhtml_writer() {
  if (stream_mode != 1) delete stream;
}

namespace {

// The layout of a node that isn't an element of the table. `kind` may be any number. A leaf
// that breaks the line after itself writes the line feed itself, without resetting the column: the
// flag is only for its parent.
std::uint32_t layout_of_kind(std::int32_t kind) {
  switch (kind) {
    case static_cast<std::int32_t>(node_type::comment):
    case static_cast<std::int32_t>(node_type::pcdata):
      return layout_inline;
    case static_cast<std::int32_t>(node_type::doctype):
      return layout_break_after_start;
    default:
      return layout_block;
  }
}

// " name='" by the number of the attribute.
constexpr auto make_attribute_runs() {
  std::array<fixed_run, attribute_count> runs{};
  for (const auto& row : detail::attribute_rows)
    runs[static_cast<std::size_t>(row.id)] = {u" ", row.name, u"='"};
  return runs;
}
constexpr auto attributes = make_attribute_runs();

// Describes the tags of a derived element by a rule record with the results of its
// operations. The record refers to `name`, which receives the element's name.
Tag_trait asked_rules(const xhtml_element& element, ustring& name) {
  name = element.tag_name();
  Tag_trait rules{};
  rules.id = element.tag();
  rules.content_flags = element.is_empty_element() ? content_none : content_inline;
  rules.name = name;
  return rules;
}

}  // namespace

void xhtml_writer::write(const xhtml_markup& node) {
  const operation_classes scope(classes_);
  const xhtml_element* const element = node.as_element();
  try {
    if (element == nullptr)
      write_leaf(node);
    else if (!element->is_own_class() || element->xhtml_element::tag_trait()->get() != nullptr)
      write_tree(*element);
  } catch (...) {
    output_.commit();
    throw;
  }
  output_.commit();
  if (element != nullptr) stream->flush();
}

void xhtml_writer::write_byte_order_mark() {
  if (byte_order_mark == 2) output_.put(ustring_view(u"\uFEFF", 1));
  if (byte_order_mark == 3) output_.put(ustring_view(u"\0\uFEFF", 2));
  output_.commit();
}

// Derived classes may look at the stream in any of their operations.
inline tag_id xhtml_writer::tag_of_parent(const xhtml_markup& node) {
  const xhtml_markup* const parent = node.parent();
  if (parent == nullptr) return tag_id::invalid_tag;
  if (!parent->is_own_class()) output_.commit();
  return tag_of(*parent);
}

inline std::uint32_t xhtml_writer::layout_of(const Tag_trait& rules) const {
  return rules.id != tag_id::invalid_tag ? layout_table[static_cast<std::size_t>(rules.id)]
                                         : layout_block;
}

inline std::uint32_t xhtml_writer::layout_of(const xhtml_markup& node) {
  if (!node.is_own_class()) return asked_layout(node);
  const xhtml_element* const element = node.as_element();
  return element != nullptr ? layout_of(element->rules())
                            : layout_of_kind(static_cast<std::int32_t>(node.type()));
}

// Derived classes may return any numbers.
std::uint32_t xhtml_writer::asked_layout(const xhtml_markup& node) {
  output_.commit();
  const auto tag = static_cast<std::size_t>(node.tag());
  return tag < layout_table.size() ? layout_table[tag] : layout_of_kind(node.node_kind());
}

// Puts the line break and the blanks before a child. If the parent isn't a block, the column
// is increased by one level more than the blanks that are written.
inline void xhtml_writer::write_lead_in(std::uint32_t parent_layout, std::uint32_t child_layout,
                                        bool at_line_start) {
  const bool on_own_line = (child_layout & layout_break_before_start) != 0;
  if (!at_line_start && on_own_line) break_line();
  if (on_own_line || (at_line_start && parent_layout != layout_preformatted)) {
    output_.put_blanks(blanks_at(indent_level + (parent_layout == layout_block ? 1 : 0)));
    column += static_cast<std::uint64_t>(blanks_at(indent_level + 1));
  }
}

// Walks the tree along its own links: the state of a level after its child follows from the
// two nodes, so no stack is needed. Only `top` and leaves may be of derived classes: a derived
// element below `top` counts as a leaf, which writes its own content.
void xhtml_writer::write_tree(const xhtml_element& top) {
  ustring top_name;
  std::optional<Tag_trait> asked;
  if (!top.is_own_class()) asked = asked_rules(top, top_name);
  const Tag_trait& top_rules = asked ? *asked : top.rules();
  const std::uint32_t top_layout = layout_of(top);

  const xhtml_element* element = &top;
  std::uint32_t layout = top_layout;
  bool at_line_start = write_start(top, top_rules, layout);
  const xhtml_markup* child = top.first_child();
  while (true) {
    if (child != nullptr) {
      const bool own = child->is_own_class();
      const xhtml_element* const inner = own ? child->as_element() : nullptr;
      const std::uint32_t child_layout =
          inner != nullptr ? layout_of(inner->rules()) : layout_of(*child);
      write_lead_in(layout, child_layout, at_line_start);
      shift_level(layout, 1);
      if (inner != nullptr) {
        element = inner;
        layout = child_layout;
        at_line_start = write_start(*element, element->rules(), layout);
        child = element->first_child();
        continue;
      }
      if (own) {
        write_leaf(*child);
      } else {
        output_.commit();
        child->write(*this);
      }
      at_line_start = (child_layout & layout_break_after_end) != 0;
    } else {
      if (element == &top) return write_end(top, top_rules, layout, at_line_start);
      write_end(*element, element->rules(), layout, at_line_start);
      at_line_start = (layout & layout_break_after_end) != 0;
      child = element;
      element = element->parent()->as_element();
      layout = element == &top ? top_layout : layout_of(element->rules());
    }
    shift_level(layout, -1);
    child = child->next_sibling();
  }
}

// Returns whether the content starts on a line of its own. The document root has no tags.
inline bool xhtml_writer::write_start(const xhtml_element& element, const Tag_trait& rules,
                                      std::uint32_t layout) {
  if (rules.id == tag_id::doc_root) {
    indent_level = -1;
    return true;
  }
  if (indent_level < 0) indent_level = 0;
  if (rules.start_run.size != 0) {
    output_.put(rules.start_run);
  } else {
    output_.put(u'<');
    output_.put(rules.name);
  }
  column += 1 + rules.name.size();
  write_attributes(element);
  if (!element.xhtml_element::style_properties()->empty()) write_style(element);
  if (takes_nothing(rules)) {
    output_.put(u'/');
    ++column;
  }
  output_.put(u'>');
  ++column;
  if ((layout & layout_break_after_start) == 0) return false;
  break_line();
  return true;
}

inline void xhtml_writer::write_attributes(const xhtml_element& element) {
  const bool usual = !double_quotes && !spaced_equals;
  for (const auto& [attribute, value] : *element.xhtml_element::attributes()) {
    const auto number = static_cast<std::uint32_t>(attribute);
    const bool has_run = usual && number < attributes.size() && attributes[number].size != 0;
    const ustring_view name = has_run ? ustring_view() : xhtml_strict::attribute_name(attribute);
    const std::size_t before =
        has_run ? attributes[number].size : 2 + name.size() + equals_length();
    const std::size_t length = before + value.size() + 1;
    if (exceeds_line(length)) wrap(blanks_at(indent_level));
    if (has_run) {
      output_.put(attributes[number]);
    } else {
      output_.put(u' ');
      output_.put(name);
      put_equals_and_quote();
    }
    output_.put(value);
    output_.put(quote());
    column += length;
  }
}

// The column is deliberately wrong: the opening quote isn't counted, and each piece counts one
// unit too many. Where lines wrap depends on it.
void xhtml_writer::write_style(const xhtml_element& element) {
  output_.put(u" style");
  put_equals_and_quote();
  column += 6 + equals_length();
  bool first = true;
  for (const auto& [property, value] : *element.xhtml_element::style_properties()) {
    const ustring_view name = xhtml_strict::css_property_name(property);
    const std::size_t length = (first ? 0 : 1) + name.size() + 2 + value.size() + 1;
    if (exceeds_line(length)) wrap(blanks_at(indent_level));
    if (!first) output_.put(u' ');
    output_.put(name);
    output_.put(u": ");
    output_.put(value);
    output_.put(u';');
    column += length + 1;
    first = false;
  }
  output_.put(quote());
  ++column;
}

inline void xhtml_writer::write_end(const xhtml_element& element, const Tag_trait& rules,
                                    std::uint32_t layout, bool at_line_start) {
  if (rules.id == tag_id::doc_root) return;
  const bool on_own_line = (layout & layout_break_before_end) != 0 || layout == layout_preformatted;
  if (!at_line_start && on_own_line) break_line();
  if (takes_nothing(rules)) return;
  const auto put_end_tag = [&](std::size_t length, auto put_text) {
    if (on_own_line) {
      indent(blanks_at(indent_level));
    } else {
      if (exceeds_line(length)) break_line();
      if (column == 0 && tag_of_parent(element) != tag_id::pre) indent(blanks_at(indent_level));
    }
    put_text();
    column += length;
    if ((layout & layout_break_after_end) != 0) break_line();
  };
  if (element.is_own_class()) {
    put_end_tag(rules.end_run.size, [&] { output_.put(rules.end_run); });
  } else {
    output_.commit();
    const ustring text = element.end_tag_text();
    put_end_tag(text.size(), [&] { output_.put(text); });
  }
}

inline void xhtml_writer::write_text(const text_leaf& node) {
  const tag_id parent = tag_of_parent(node);
  const std::int64_t level = parent == tag_id::pre ? 0 : std::max<std::int64_t>(indent_level, 0);
  const bool unwrapped =
      max_line_length == 0 || parent == tag_id::script || parent == tag_id::style ||
      (node.parent() != nullptr && layout_of(*node.parent()) == layout_preformatted);
  if (unwrapped)
    put_lines(node.text(), blanks_at(level));
  else
    put_wrapped(node.text(), blanks_at(level));
}

void xhtml_writer::write_leaf(const xhtml_markup& node) {
  const auto text = [&node] { return node.as_text()->text(); };
  switch (node.type()) {
    case node_type::pcdata:
      write_text(*node.as_text());
      break;
    case node_type::comment:
      write_comment(text());
      break;
    case node_type::processing_instruction:
      output_.put(u"<?");
      output_.put(text());
      output_.put(u" ?>\n");
      break;
    case node_type::doctype:
      output_.put(
          u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n"
          u"     \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n");
      break;
    case node_type::element:
    case node_type::none:
      break;
  }
}

// A run of white space becomes its first unit, followed by the indentation once for each
// line feed in the run, even if that unit is a blank. Pages that are read and written again
// depend on it.
void xhtml_writer::write_comment(ustring_view text) {
  output_.put(u"<!-- ");
  column += 5;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t first = i++;
    output_.put(text[first]);
    ++column;
    if (!classes_->is_space(text[first])) continue;
    while (i < text.size() && classes_->is_space(text[i])) ++i;
    for (std::size_t k = first; k < i; ++k)
      if (text[k] == u'\n') indent(blanks_at(indent_level));
  }
  output_.put(u" -->");
  column += 4;
}

void xhtml_writer::wrap(std::int64_t blanks) {
  output_.put(u'\n');
  indent(blanks);
}

// Puts text unchanged, with the indentation after each line feed. Doesn't change the column.
void xhtml_writer::put_lines(ustring_view text, std::int64_t blanks) {
  while (true) {
    const std::size_t line_feed = find_unit(text, u'\n');
    if (line_feed == text.size()) break;
    output_.put(text.substr(0, line_feed + 1));
    output_.put_blanks(blanks);
    text.remove_prefix(line_feed + 1);
  }
  output_.put(text);
}

// Puts text re-flowed into lines, with one blank after each word. A leading blank stays and
// isn't counted in the column. The blank after the last word is removed, unless the text ends
// in white space, but stays counted.
void xhtml_writer::put_wrapped(ustring_view text, std::int64_t blanks) {
  const bool ends_in_word = !text.empty() && !classes_->is_space(text.back());
  if (text.starts_with(u' ')) {
    output_.put(u' ');
    text.remove_prefix(1);
  }
  if (column > max_line_length) wrap(blanks);

  ustring line;
  while (true) {
    while (!text.empty() && classes_->is_space(text.front())) text.remove_prefix(1);
    if (text.empty()) break;
    std::size_t length = 1;
    while (length < text.size() && !classes_->is_space(text[length])) ++length;
    if (exceeds_line(line.size() + length)) {
      output_.put(line);
      line.clear();
      wrap(blanks);
    }
    line += text.substr(0, length);
    line += u' ';
    text.remove_prefix(length);
  }
  column += line.size();
  if (ends_in_word && !line.empty()) line.pop_back();
  output_.put(line);
}

}  // namespace Xport
