#ifndef XPORT_MARKUP_XHTML_WRITER_H
#define XPORT_MARKUP_XHTML_WRITER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "xport/stream/unit_output.h"
#include "xport/text/char16.h"
#include "xport/text/character_class.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

class text_leaf;
class xhtml_element;
class xhtml_markup;

/// Where the writer breaks lines around a node's tags.
enum layout_flags : std::uint32_t {
  layout_inline = 0,
  layout_break_before_start = 1,
  layout_break_after_start = 2,
  layout_break_before_end = 4,
  layout_break_after_end = 8,
  layout_block = 15,        ///< all four
  layout_preformatted = 32  ///< has no break bit; its text isn't re-flowed
};

/// Values of `layout_flags` by element number.
using layout_flags_table = std::array<std::uint32_t, element_count>;

/// The layout that every writer starts with. Elements that flow in the text are inline.
/// `br` breaks the line after itself. `pre` is preformatted. All others, including the
/// document root, are blocks. The layout is independent of `category`: `img`, `input`,
/// `select`, `map`, `label`, `object`, `script` and `textarea` are inline by category but laid
/// out as blocks. Entries of elements that Strict lacks apply only to nodes of derived classes
/// whose tag() returns them. Other nodes have no entry: see layout_of_kind() in the source.
constexpr layout_flags_table default_layout() {
  layout_flags_table table{};
  table.fill(layout_block);
  for (tag_id tag :
       {tag_id::a,        tag_id::abbr,  tag_id::acronym, tag_id::applet, tag_id::b,
        tag_id::basefont, tag_id::bdo,   tag_id::big,     tag_id::button, tag_id::cite,
        tag_id::code,     tag_id::del,   tag_id::dfn,     tag_id::em,     tag_id::font,
        tag_id::i,        tag_id::ins,   tag_id::kbd,     tag_id::q,      tag_id::s,
        tag_id::samp,     tag_id::small, tag_id::span,    tag_id::strike, tag_id::strong,
        tag_id::sub,      tag_id::sup,   tag_id::tt,      tag_id::u,      tag_id::var})
    table[static_cast<std::size_t>(tag)] = layout_inline;
  table[static_cast<std::size_t>(tag_id::br)] = layout_break_after_start | layout_break_after_end;
  table[static_cast<std::size_t>(tag_id::pre)] = layout_preformatted;
  return table;
}

/// Writes a markup tree as text on a stream of code units. This class defines the output
/// form: a pretty printer driven by a table of break flags. Blocks are on lines of their
/// own with their content indented, inline elements flow in the text, `br` breaks the line
/// after itself, `pre` keeps its text. Comments flow in the text, instructions and the
/// doctype end their lines. Lines end in one line feed.
///
/// Nothing is escaped, decoded or checked: texts and attribute values reach the stream unit
/// by unit as the nodes hold them. Time is linear in the tree and the output.
///
/// A writer is made for one output. Its options are its fields, to be set before the first
/// write. Units are written directly into the put area of the stream's buffer, or in blocks of
/// 64 KiB to a buffer that has none; they are part of the stream's output when write() returns.
/// Failures set the stream's state; whether they also throw depends on the stream's
/// exceptions(). Wrapping and blocks need memory and throw std::bad_alloc. White space is what
/// the global locale classifies as such at the start of the outermost write(); facets of that
/// locale must not use the stream.
///
/// A node of a derived class is written by its own `write`. It sees the current
/// `indent_level` and `column`, and everything written before it is on the stream. It may
/// write to the stream itself and call write() for other nodes. Memory and machine stack
/// don't grow with the depth of a tree of our own classes; each node of a derived class on
/// the way down uses a few hundred bytes of the stack.
class xhtml_writer {
 public:
  using stream_type = unit_output::stream_type;

  /// A writer with the default options on `stream_to`, which must outlive it.
  explicit xhtml_writer(stream_type& stream_to);
  xhtml_writer(const xhtml_writer&) = delete;
  xhtml_writer& operator=(const xhtml_writer&) = delete;

  /// Deletes the stream unless `stream_mode` is 1.
  ~xhtml_writer();

  std::uint32_t stream_mode = 1;                       ///< 1: the stream is borrowed, else owned
  std::int32_t indent_step = 2;                        ///< blanks for each level of indentation
  std::int16_t indent_level = 0;                       ///< the current level; wraps at 16 bits
  std::uint64_t max_line_length = 0;                   ///< units; 0: never wrap
  std::uint64_t column = 0;                            ///< the writer's count of the current column
  layout_flags_table layout_table = default_layout();  ///< break flags by element
  stream_type* stream;                                 ///< the target; must not be null
  bool double_quotes = false;                          ///< attribute values in " and not in '
  bool spaced_equals = false;                          ///< " = " and not "=" after attribute names
  std::uint32_t byte_order_mark = 2;                   ///< 2: U+FEFF; 3: U+0000 U+FEFF; else none

  /// Writes `node` and all below it; for an element, then flushes the stream. The `write`
  /// operations of the nodes call this.
  void write(const xhtml_markup& node);

  /// Writes the mark that `byte_order_mark` selects.
  void write_byte_order_mark();

 private:
  // The tree.
  tag_id tag_of_parent(const xhtml_markup& node);
  std::uint32_t layout_of(const xhtml_markup& node);
  std::uint32_t layout_of(const Tag_trait& rules) const;
  std::uint32_t asked_layout(const xhtml_markup& node);
  void shift_level(std::uint32_t parent_layout, int by) {
    if (parent_layout == layout_block) indent_level = static_cast<std::int16_t>(indent_level + by);
  }
  void write_tree(const xhtml_element& top);
  bool write_start(const xhtml_element& element, const Tag_trait& rules, std::uint32_t layout);
  void write_attributes(const xhtml_element& element);
  void write_style(const xhtml_element& element);
  void write_lead_in(std::uint32_t parent_layout, std::uint32_t child_layout, bool at_line_start);
  void write_end(const xhtml_element& element, const Tag_trait& rules, std::uint32_t layout,
                 bool at_line_start);
  void write_leaf(const xhtml_markup& node);
  void write_text(const text_leaf& node);
  void write_comment(ustring_view text);

  // The units.
  std::int64_t blanks_at(std::int64_t level) const { return level * indent_step; }
  bool exceeds_line(std::uint64_t units) const {
    return max_line_length != 0 && column + units > max_line_length;
  }
  void put_lines(ustring_view text, std::int64_t blanks);
  void put_wrapped(ustring_view text, std::int64_t blanks);
  void break_line() {
    output_.put(u'\n');
    column = 0;
  }

  // A negative number becomes a huge column, which affects where lines wrap.
  void indent(std::int64_t blanks) {
    output_.put_blanks(blanks);
    column = static_cast<std::uint64_t>(blanks);
  }
  void wrap(std::int64_t blanks);
  char16 quote() const { return double_quotes ? u'"' : u'\''; }
  std::size_t equals_length() const { return spaced_equals ? 3 : 1; }
  void put_equals_and_quote() {
    if (spaced_equals)
      output_.put(u" = ");
    else
      output_.put(u'=');
    output_.put(quote());
  }

  std::optional<character_classes> classes_;  // during the outermost write
  unit_output output_;
};

}  // namespace Xport

#endif
