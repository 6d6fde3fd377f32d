#ifndef XPORT_MARKUP_LAYOUT_TABLE_H
#define XPORT_MARKUP_LAYOUT_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "xport/vocabulary/tag_id.h"

namespace Xport {

/// Where the writer breaks lines around a node's tags.
enum layout_flags : std::uint32_t {
  layout_inline = 0,
  layout_break_before_start = 1,
  layout_break_behind_start = 2,
  layout_break_before_end = 4,
  layout_break_behind_end = 8,
  layout_block = 15,        ///< all four
  layout_preformatted = 32  ///< has no break bit, and its content stays untouched
};

/// Values of `layout_flags` by element number, 0 to 91.
using layout_flags_table = std::array<std::uint32_t, 92>;

/// The layout that every writer starts with: elements that flow in the text are
/// inline, `br` breaks behind itself, `pre` is preformatted, all others, the
/// document root included, are blocks.
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
  table[static_cast<std::size_t>(tag_id::br)] = layout_break_behind_start | layout_break_behind_end;
  table[static_cast<std::size_t>(tag_id::pre)] = layout_preformatted;
  return table;
}

}  // namespace Xport

#endif
