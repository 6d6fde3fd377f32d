#include "tests/markup/plain_writer.h"

#include <cstddef>
#include <locale>

#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

enum : int { pre = 66, script = 70, style = 76, no_element = invalid_number };

bool is_space(char16 unit) {
  const std::locale global;
  return std::use_facet<std::ctype<wchar_t>>(global).is(std::ctype_base::space,
                                                        static_cast<wchar_t>(unit));
}

// A negative number of blanks is none.
ustring spaces(std::int64_t count) {
  return count > 0 ? ustring(static_cast<std::size_t>(count), u' ') : ustring();
}

int tag_number(const xhtml_markup* node) {
  return node == nullptr ? no_element : static_cast<int>(node->tag());
}

}  // namespace

void plain_writer::set_column(std::int64_t blanks) { column = static_cast<std::uint64_t>(blanks); }

std::uint32_t plain_writer::layout_of(const xhtml_markup& node) const {
  const int tag = tag_number(&node);
  if (tag != no_element) return layout_table.at(static_cast<std::size_t>(tag));
  if (node.node_kind() == 3 || node.node_kind() == 5) return 0;
  if (node.node_kind() == 1) return 2;
  return 15;
}

void plain_writer::write(const xhtml_markup& node) {
  const auto text = [&node] { return ustring(node.as_text()->text()); };
  switch (node.node_kind()) {
    case 1:
      output += u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n";
      output += u"     \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n";
      break;
    case 2:
      write_element(node);
      break;
    case 3:
      write_comment(text());
      break;
    case 4:
      output += u"<?" + text() + u" ?>\n";
      break;
    case 5:
      write_text(text(), node.parent());
      break;
    default:
      break;
  }
}

void plain_writer::write_element(const xhtml_markup& element) {
  const std::uint32_t layout = layout_of(element);
  const bool is_root = tag_number(&element) == 0;
  bool at_line_start = false;
  if (is_root) {
    indent_level = -1;
    at_line_start = true;
  } else {
    if (indent_level < 0) indent_level = 0;
    write_start_tag(element);
    if ((layout & 2) != 0) {
      output += u'\n';
      column = 0;
      at_line_start = true;
    }
  }
  for (const xhtml_markup& child : element) {
    write_child(child, layout, at_line_start);
    at_line_start = (layout_of(child) & 8) != 0;
  }
  if (is_root) return;
  if (!at_line_start && ((layout & 4) != 0 || layout == 32)) {
    output += u'\n';
    column = 0;
  }
  if (!element.is_empty_element()) write_end_tag(element, layout);
}

void plain_writer::write_start_tag(const xhtml_markup& element) {
  output += u'<' + element.tag_name();
  column += 1 + element.tag_name().size();
  const ustring equals = spaced_equals ? u" = " : u"=";
  const ustring quote = double_quotes ? u"\"" : u"'";
  for (const auto& [attribute, value] : *element.attributes()) {
    const ustring name(xhtml_strict::attribute_name(attribute));
    const ustring piece = u' ' + name + equals + quote + ustring(value) + quote;
    write_piece(piece);
    column += piece.size();
  }
  if (!element.style_properties()->empty()) {
    output += u" style" + equals + quote;
    column += spaced_equals ? 9 : 7;
    ustring blank;
    for (const auto& [property, value] : *element.style_properties()) {
      const ustring name(xhtml_strict::css_property_name(property));
      const ustring piece = blank + name + u": " + ustring(value) + u';';
      write_piece(piece);
      column += piece.size() + 1;
      blank = u" ";
    }
    output += quote;
    column += 1;
  }
  output += element.is_empty_element() ? u"/>" : u">";
  column += element.is_empty_element() ? 2 : 1;
}

// The wrap test and the piece; the caller counts the piece.
void plain_writer::write_piece(const ustring& piece) {
  if (max_line_length != 0 && column + piece.size() > max_line_length) {
    output += u'\n' + spaces(std::int64_t{indent_level} * indent_step);
    set_column(std::int64_t{indent_level} * indent_step);
  }
  output += piece;
}

void plain_writer::write_child(const xhtml_markup& child, std::uint32_t layout,
                               bool at_line_start) {
  const bool breaks_before = (layout_of(child) & 1) != 0;
  const int d = layout == 15 ? 1 : 0;
  if (!at_line_start && breaks_before) {
    output += u'\n';
    column = 0;
  }
  if (breaks_before || (at_line_start && layout != 32)) {
    output += spaces((std::int64_t{indent_level} + d) * indent_step);
    column += static_cast<std::uint64_t>((std::int64_t{indent_level} + 1) * indent_step);
  }
  indent_level = static_cast<std::int16_t>(indent_level + d);
  write(child);
  indent_level = static_cast<std::int16_t>(indent_level - d);
}

void plain_writer::write_end_tag(const xhtml_markup& element, std::uint32_t layout) {
  const std::int64_t blanks = std::int64_t{indent_level} * indent_step;
  const ustring end_tag = element.end_tag_text();
  if ((layout & 4) != 0 || layout == 32) {
    output += spaces(blanks);
    set_column(blanks);
  } else {
    if (max_line_length != 0 && column + end_tag.size() > max_line_length) {
      output += u'\n';
      column = 0;
    }
    if (column == 0 && tag_number(element.parent()) != pre) {
      output += spaces(blanks);
      set_column(blanks);
    }
  }
  output += end_tag;
  column += end_tag.size();
  if ((layout & 8) != 0) {
    output += u'\n';
    column = 0;
  }
}

void plain_writer::write_text(const ustring& text, const xhtml_markup* parent) {
  const int tag = tag_number(parent);
  const std::int64_t level = tag == pre || indent_level < 0 ? 0 : indent_level;
  const bool in_preformatted = parent != nullptr && layout_of(*parent) == 32;
  if (max_line_length != 0 && !in_preformatted && tag != script && tag != style) {
    output += flow(text, level * indent_step);
    return;
  }
  for (const char16 unit : text) {
    output += unit;
    if (unit == u'\n') output += spaces(level * indent_step);
  }
}

ustring plain_writer::flow(const ustring& text, std::int64_t blanks) {
  ustring out;
  ustring line;
  ustring word;
  const auto take_word = [&] {
    if (word.empty()) return;
    if (line.size() + word.size() + column > max_line_length) {
      out += line + u'\n' + spaces(blanks);
      set_column(blanks);
      line.clear();
    }
    line += word + u' ';
    word.clear();
  };
  ustring rest = text;
  if (!rest.empty() && rest.front() == u' ') {
    out += u' ';
    rest.erase(0, 1);
  }
  if (column > max_line_length) {
    out += u'\n' + spaces(blanks);
    set_column(blanks);
  }
  for (const char16 unit : rest) {
    if (is_space(unit))
      take_word();
    else
      word += unit;
  }
  take_word();
  column += line.size();
  out += line;
  if (!text.empty() && !is_space(text.back())) out.pop_back();
  return out;
}

void plain_writer::write_comment(const ustring& text) {
  output += u"<!-- ";
  column += 5;
  std::size_t i = 0;
  while (i < text.size()) {
    output += text[i];
    column += 1;
    if (!is_space(text[i])) {
      ++i;
      continue;
    }
    for (; i < text.size() && is_space(text[i]); ++i) {
      if (text[i] != u'\n') continue;
      output += spaces(std::int64_t{indent_level} * indent_step);
      set_column(std::int64_t{indent_level} * indent_step);
    }
  }
  output += u" -->";
  column += 4;
}

}  // namespace test
