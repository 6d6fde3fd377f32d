#include "tests/markup/writer_random_tree.h"

#include <cstddef>
#include <iterator>

#include "tests/markup/writer_kit.h"
#include "tests/support/vocabulary_numbers.h"

namespace test {
namespace {

// Elements that accept much, so that trees get deep.
constexpr tag_id favourites[] = {tag_id::div,  tag_id::p,     tag_id::pre,    tag_id::span,
                                 tag_id::b,    tag_id::br,    tag_id::button, tag_id::object,
                                 tag_id::img,  tag_id::label, tag_id::script, tag_id::textarea,
                                 tag_id::form, tag_id::ul,    tag_id::table,  tag_id::doc_root};

constexpr char16 odd_units[] = {0x1,    0xA0,   0xE9,   0x2028, 0x3000,
                                0x4E2D, 0xD83D, 0xDE00, 0xFEFF, 0xFFFF};

template <class T, std::size_t Size>
T any_of(random_source& random, const T (&values)[Size]) {
  return values[random.below(Size)];
}

}  // namespace

ustring random_source::text() {
  ustring text;
  for (std::uint32_t parts = below(8); parts != 0; --parts) {
    switch (below(8)) {
      case 0:
        text += u'\n';
        break;
      case 1:
        text += u'\t';
        break;
      case 2:
      case 3:
        text += u' ';
        break;
      case 4:
        text += any_of(*this, odd_units);
        break;
      case 5:
        text += u"\r\n";
        break;
      default:
        text.append(1 + below(7), static_cast<char16>(u'a' + below(26)));
        break;
    }
  }
  if (one_in(20)) text += u"<&>\"'--";
  return text;
}

void random_source::decorate(xhtml_element& element) {
  for (std::uint32_t count = below(3); count != 0; --count) {
    const auto attribute = static_cast<attr_id>(below(attribute_end));
    if (one_in(2))
      element.set_attribute(attribute, text());
    else
      element.attributes()->insert_or_assign(attribute, text());
  }
  if (one_in(3))
    for (std::uint32_t count = below(4); count != 0; --count)
      element.set_style(static_cast<css_property_id>(below(property_end)), text());
}

tag_id random_source::tag_for(const xhtml_element& parent) {
  if (one_in(2)) return static_cast<tag_id>(below(invalid_number));
  if (parent.tag() == tag_id::ul) return tag_id::li;
  if (parent.tag() == tag_id::table) return one_in(2) ? tag_id::tr : tag_id::caption;
  if (parent.tag() == tag_id::tr) return tag_id::td;
  return any_of(*this, favourites);
}

void random_source::fill(xhtml_element& element, int depth, int& budget) {
  decorate(element);
  for (std::uint32_t tries = below(7); tries != 0 && budget > 0; --tries) {
    --budget;
    switch (below(10)) {
      case 0:
      case 1:
      case 2:
        element.append_text(text());
        break;
      case 3:
        element.append_copy(comment(text()));
        break;
      case 4:
        if (one_in(2))
          element.append_copy(instruction(text()));
        else
          element.append_copy(xhtml_doctype_declaration());
        break;
      default: {
        const markup_iterator child = element.append_element(tag_for(element));
        if (child.cell() != nullptr && depth < 9)
          fill(*child.cell()->as_element(), depth + 1, budget);
        break;
      }
    }
  }
}

xhtml_element random_source::tree() {
  const auto tag =
      one_in(3) ? static_cast<tag_id>(below(invalid_number)) : any_of(*this, favourites);
  xhtml_element element(tag, {}, {});
  int budget = 40;
  fill(element, 0, budget);
  return element;
}

void random_source::set_up(xhtml_writer& writer, plain_writer& plain) {
  static constexpr std::int32_t steps[] = {2, 2, 2, 0, 1, 3, 4, -1, -2};
  static constexpr std::int16_t levels[] = {0, 0, 0, 1, 5, -1, -7, 40, 32766, 32767, -32768};
  static constexpr std::uint64_t columns[] = {0, 0, 1, 9, 30, 200};
  static constexpr std::uint32_t layouts[] = {0, 1, 2, 4, 8, 5, 10, 15, 32, 32, 40, 47, 0xFFFFFFFF};
  writer.indent_step = any_of(*this, steps);
  writer.indent_level = any_of(*this, levels);
  if (writer.indent_level > 1000 || writer.indent_level < -1000)
    writer.indent_step = one_in(4) ? 1 : 0;
  if (one_in(2)) writer.max_line_length = 1 + below(60);
  writer.column = any_of(*this, columns);
  writer.double_quotes = one_in(2);
  writer.spaced_equals = one_in(2);
  if (one_in(3))
    for (std::uint32_t changes = below(40); changes != 0; --changes)
      writer.layout_table[below(invalid_number)] = any_of(*this, layouts);

  plain.indent_step = writer.indent_step;
  plain.indent_level = writer.indent_level;
  plain.max_line_length = writer.max_line_length;
  plain.column = writer.column;
  plain.double_quotes = writer.double_quotes;
  plain.spaced_equals = writer.spaced_equals;
  plain.layout_table = writer.layout_table;
}

}  // namespace test
