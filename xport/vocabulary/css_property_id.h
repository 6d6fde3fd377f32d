#ifndef XPORT_VOCABULARY_CSS_PROPERTY_ID_H
#define XPORT_VOCABULARY_CSS_PROPERTY_ID_H

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "xport/vocabulary/name_row.h"

// The style properties by number: first those of CSS 2, from 94 on those of its paged media.
// The name is given where it differs from the identifier. A new property is a row with the
// next number at the end of this list.
// clang-format off
#define XPORT_CSS_PROPERTIES(row) \
  row(0, background) \
  row(1, background_attachment, "background-attachment") \
  row(2, background_color, "background-color") \
  row(3, background_image, "background-image") \
  row(4, background_position, "background-position") \
  row(5, background_repeat, "background-repeat") \
  row(6, border) \
  row(7, border_bottom, "border-bottom") \
  row(8, border_bottom_color, "border-bottom-color") \
  row(9, border_bottom_style, "border-bottom-style") \
  row(10, border_bottom_width, "border-bottom-width") \
  row(11, border_collapse, "border-collapse") \
  row(12, border_color, "border-color") \
  row(13, border_left, "border-left") \
  row(14, border_left_color, "border-left-color") \
  row(15, border_left_style, "border-left-style") \
  row(16, border_left_width, "border-left-width") \
  row(17, border_right, "border-right") \
  row(18, border_right_color, "border-right-color") \
  row(19, border_right_style, "border-right-style") \
  row(20, border_right_width, "border-right-width") \
  row(21, border_spacing, "border-spacing") \
  row(22, border_style, "border-style") \
  row(23, border_top, "border-top") \
  row(24, border_top_color, "border-top-color") \
  row(25, border_top_style, "border-top-style") \
  row(26, border_top_width, "border-top-width") \
  row(27, border_width, "border-width") \
  row(28, bottom) \
  row(29, caption_side, "caption-side") \
  row(30, clear) \
  row(31, clip) \
  row(32, color) \
  row(33, content) \
  row(34, counter_increment, "counter-increment") \
  row(35, counter_reset, "counter-reset") \
  row(36, cursor) \
  row(37, direction) \
  row(38, display) \
  row(39, empty_cells, "empty-cells") \
  row(40, float_, "float") \
  row(41, font) \
  row(42, font_family, "font-family") \
  row(43, font_size, "font-size") \
  row(44, font_size_adjust, "font-size-adjust") \
  row(45, font_stretch, "font-stretch") \
  row(46, font_style, "font-style") \
  row(47, font_variant, "font-variant") \
  row(48, font_weight, "font-weight") \
  row(49, height) \
  row(50, left) \
  row(51, letter_spacing, "letter-spacing") \
  row(52, line_height, "line-height") \
  row(53, list_style, "list-style") \
  row(54, list_style_image, "list-style-image") \
  row(55, list_style_position, "list-style-position") \
  row(56, list_style_type, "list-style-type") \
  row(57, margin) \
  row(58, margin_bottom, "margin-bottom") \
  row(59, margin_left, "margin-left") \
  row(60, margin_right, "margin-right") \
  row(61, margin_top, "margin-top") \
  row(62, marker_offset, "marker-offset") \
  row(63, max_height, "max-height") \
  row(64, max_width, "max-width") \
  row(65, min_height, "min-height") \
  row(66, min_width, "min-width") \
  row(67, outline) \
  row(68, outline_color, "outline-color") \
  row(69, outline_style, "outline-style") \
  row(70, outline_width, "outline-width") \
  row(71, overflow) \
  row(72, padding) \
  row(73, padding_bottom, "padding-bottom") \
  row(74, padding_left, "padding-left") \
  row(75, padding_right, "padding-right") \
  row(76, padding_top, "padding-top") \
  row(77, position) \
  row(78, quotes) \
  row(79, right) \
  row(80, table_layout, "table-layout") \
  row(81, text_align, "text-align") \
  row(82, text_decoration, "text-decoration") \
  row(83, text_indent, "text-indent") \
  row(84, text_shadow, "text-shadow") \
  row(85, text_transform, "text-transform") \
  row(86, top) \
  row(87, unicode_bidi, "unicode-bidi") \
  row(88, vertical_align, "vertical-align") \
  row(89, visibility) \
  row(90, white_space, "white-space") \
  row(91, width) \
  row(92, word_spacing, "word-spacing") \
  row(93, z_index, "z-index") \
  /* paged media */ \
  row(94, marks) \
  row(95, orphans) \
  row(96, page) \
  row(97, page_break_after, "page-break-after") \
  row(98, page_break_before, "page-break-before") \
  row(99, page_break_inside, "page-break-inside") \
  row(100, size) \
  row(101, widowsL)
// clang-format on

namespace Xport {

/// The number of a style property. Every name outside the table resolves to `not_found`.
enum class css_property_id : std::int32_t {
  not_found = -1,
  XPORT_CSS_PROPERTIES(XPORT_ENUMERATOR)
};

namespace detail {

/// The property names by number.
inline constexpr name_row<css_property_id> css_property_rows[] = {
    XPORT_CSS_PROPERTIES(XPORT_NAME_ROW)};
static_assert(rows_in_order(css_property_rows));

}  // namespace detail

/// The number of style properties.
inline constexpr std::size_t css_property_count = std::size(detail::css_property_rows);

}  // namespace Xport

#undef XPORT_CSS_PROPERTIES

#endif
