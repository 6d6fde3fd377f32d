#include "xport/vocabulary/xhtml_strict.h"

#include "xport/vocabulary/name_index.h"

namespace Xport {

namespace detail {

constexpr name_row<css_property_id> css_property_rows[] = {
    {css_property_id::background, u"background"},
    {css_property_id::background_attachment, u"background-attachment"},
    {css_property_id::background_color, u"background-color"},
    {css_property_id::background_image, u"background-image"},
    {css_property_id::background_position, u"background-position"},
    {css_property_id::background_repeat, u"background-repeat"},
    {css_property_id::border, u"border"},
    {css_property_id::border_bottom, u"border-bottom"},
    {css_property_id::border_bottom_color, u"border-bottom-color"},
    {css_property_id::border_bottom_style, u"border-bottom-style"},
    {css_property_id::border_bottom_width, u"border-bottom-width"},
    {css_property_id::border_collapse, u"border-collapse"},
    {css_property_id::border_color, u"border-color"},
    {css_property_id::border_left, u"border-left"},
    {css_property_id::border_left_color, u"border-left-color"},
    {css_property_id::border_left_style, u"border-left-style"},
    {css_property_id::border_left_width, u"border-left-width"},
    {css_property_id::border_right, u"border-right"},
    {css_property_id::border_right_color, u"border-right-color"},
    {css_property_id::border_right_style, u"border-right-style"},
    {css_property_id::border_right_width, u"border-right-width"},
    {css_property_id::border_spacing, u"border-spacing"},
    {css_property_id::border_style, u"border-style"},
    {css_property_id::border_top, u"border-top"},
    {css_property_id::border_top_color, u"border-top-color"},
    {css_property_id::border_top_style, u"border-top-style"},
    {css_property_id::border_top_width, u"border-top-width"},
    {css_property_id::border_width, u"border-width"},
    {css_property_id::bottom, u"bottom"},
    {css_property_id::caption_side, u"caption-side"},
    {css_property_id::clear, u"clear"},
    {css_property_id::clip, u"clip"},
    {css_property_id::color, u"color"},
    {css_property_id::content, u"content"},
    {css_property_id::counter_increment, u"counter-increment"},
    {css_property_id::counter_reset, u"counter-reset"},
    {css_property_id::cursor, u"cursor"},
    {css_property_id::direction, u"direction"},
    {css_property_id::display, u"display"},
    {css_property_id::empty_cells, u"empty-cells"},
    {css_property_id::float_, u"float"},
    {css_property_id::font, u"font"},
    {css_property_id::font_family, u"font-family"},
    {css_property_id::font_size, u"font-size"},
    {css_property_id::font_size_adjust, u"font-size-adjust"},
    {css_property_id::font_stretch, u"font-stretch"},
    {css_property_id::font_style, u"font-style"},
    {css_property_id::font_variant, u"font-variant"},
    {css_property_id::font_weight, u"font-weight"},
    {css_property_id::height, u"height"},
    {css_property_id::left, u"left"},
    {css_property_id::letter_spacing, u"letter-spacing"},
    {css_property_id::line_height, u"line-height"},
    {css_property_id::list_style, u"list-style"},
    {css_property_id::list_style_image, u"list-style-image"},
    {css_property_id::list_style_position, u"list-style-position"},
    {css_property_id::list_style_type, u"list-style-type"},
    {css_property_id::margin, u"margin"},
    {css_property_id::margin_bottom, u"margin-bottom"},
    {css_property_id::margin_left, u"margin-left"},
    {css_property_id::margin_right, u"margin-right"},
    {css_property_id::margin_top, u"margin-top"},
    {css_property_id::marker_offset, u"marker-offset"},
    {css_property_id::max_height, u"max-height"},
    {css_property_id::max_width, u"max-width"},
    {css_property_id::min_height, u"min-height"},
    {css_property_id::min_width, u"min-width"},
    {css_property_id::outline, u"outline"},
    {css_property_id::outline_color, u"outline-color"},
    {css_property_id::outline_style, u"outline-style"},
    {css_property_id::outline_width, u"outline-width"},
    {css_property_id::overflow, u"overflow"},
    {css_property_id::padding, u"padding"},
    {css_property_id::padding_bottom, u"padding-bottom"},
    {css_property_id::padding_left, u"padding-left"},
    {css_property_id::padding_right, u"padding-right"},
    {css_property_id::padding_top, u"padding-top"},
    {css_property_id::position, u"position"},
    {css_property_id::quotes, u"quotes"},
    {css_property_id::right, u"right"},
    {css_property_id::table_layout, u"table-layout"},
    {css_property_id::text_align, u"text-align"},
    {css_property_id::text_decoration, u"text-decoration"},
    {css_property_id::text_indent, u"text-indent"},
    {css_property_id::text_shadow, u"text-shadow"},
    {css_property_id::text_transform, u"text-transform"},
    {css_property_id::top, u"top"},
    {css_property_id::unicode_bidi, u"unicode-bidi"},
    {css_property_id::vertical_align, u"vertical-align"},
    {css_property_id::visibility, u"visibility"},
    {css_property_id::white_space, u"white-space"},
    {css_property_id::width, u"width"},
    {css_property_id::word_spacing, u"word-spacing"},
    {css_property_id::z_index, u"z-index"},
    {css_property_id::marks, u"marks"},
    {css_property_id::orphans, u"orphans"},
    {css_property_id::page, u"page"},
    {css_property_id::page_break_after, u"page-break-after"},
    {css_property_id::page_break_before, u"page-break-before"},
    {css_property_id::page_break_inside, u"page-break-inside"},
    {css_property_id::size, u"size"},
    {css_property_id::widowsL, u"widowsL"},
};

}  // namespace detail

namespace {

using detail::css_property_rows;
static_assert(detail::rows_in_order(css_property_rows));
constexpr detail::name_index index(css_property_rows, true);

}  // namespace

css_property_id xhtml_strict::css_property_from_name(ustring_view name) noexcept {
  return index.find(name, css_property_id::not_found);
}

}  // namespace Xport
