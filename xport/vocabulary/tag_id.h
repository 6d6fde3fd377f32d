#ifndef XPORT_VOCABULARY_TAG_ID_H
#define XPORT_VOCABULARY_TAG_ID_H

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "xport/vocabulary/name_row.h"

// The elements of XHTML 1.0 by number, including those of its Transitional and Frameset
// forms. Row 0 is the pseudo-element above `html`. The name is given where it differs from
// the identifier.
//
// To add an element, add
// - a row with the next number at the end of this list, since the numbers are fixed,
// - the element to a rule in content_rules.h, without which it can't be used; an element with
//   `category_none` must also be named in the `allowed_children` of a parent, and one that a
//   parent of its category must not contain in the `excluded_children` of that parent,
// - the element to a rule in attribute_rules.h.
// All counts and tables of the library follow. The writer lays the element out as a block
// unless default_layout() in xport/markup/xhtml_writer.h lists it. These tests spell the list
// or the rules again: content_model.cpp and writer_break_flags_test.cpp in tests/markup/;
// tag_table_test.cpp, name_table_test.cpp and dtd_test.cpp in tests/vocabulary/. The last one
// compares the list with the published document type, so it fails for an element that Strict
// lacks; it is skipped where that isn't installed.
//
// Elements that Strict lacks, such as `center`, have a row here but no rule, so they can't be
// used. A rule in content_rules.h would allow them, but pages with them aren't valid.
// clang-format off
#define XPORT_ELEMENTS(row) \
  row(0, doc_root, "doc root") \
  row(1, a) \
  row(2, abbr) \
  row(3, acronym) \
  row(4, address) \
  row(5, applet) \
  row(6, area) \
  row(7, b) \
  row(8, base) \
  row(9, basefont) \
  row(10, bdo) \
  row(11, big) \
  row(12, blockquote) \
  row(13, body) \
  row(14, br) \
  row(15, button) \
  row(16, caption) \
  row(17, center) \
  row(18, cite) \
  row(19, code) \
  row(20, col) \
  row(21, colgroup) \
  row(22, dd) \
  row(23, del) \
  row(24, dfn) \
  row(25, dir) \
  row(26, div) \
  row(27, dl) \
  row(28, dt) \
  row(29, em) \
  row(30, fieldset) \
  row(31, font) \
  row(32, form) \
  row(33, frame) \
  row(34, frameset) \
  row(35, h1) \
  row(36, h2) \
  row(37, h3) \
  row(38, h4) \
  row(39, h5) \
  row(40, h6) \
  row(41, head) \
  row(42, hr) \
  row(43, html) \
  row(44, i) \
  row(45, iframe) \
  row(46, img) \
  row(47, input) \
  row(48, ins) \
  row(49, isindex) \
  row(50, kbd) \
  row(51, label) \
  row(52, legend) \
  row(53, li) \
  row(54, link) \
  row(55, map) \
  row(56, menu) \
  row(57, meta) \
  row(58, noframes) \
  row(59, noscript) \
  row(60, object) \
  row(61, ol) \
  row(62, optgroup) \
  row(63, option) \
  row(64, p) \
  row(65, param) \
  row(66, pre) \
  row(67, q) \
  row(68, s) \
  row(69, samp) \
  row(70, script) \
  row(71, select) \
  row(72, small) \
  row(73, span) \
  row(74, strike) \
  row(75, strong) \
  row(76, style) \
  row(77, sub) \
  row(78, sup) \
  row(79, table) \
  row(80, tbody) \
  row(81, td) \
  row(82, textarea) \
  row(83, tfoot) \
  row(84, th) \
  row(85, thead) \
  row(86, title) \
  row(87, tr) \
  row(88, tt) \
  row(89, u) \
  row(90, ul) \
  row(91, var)
// clang-format on

namespace Xport {

/// The number of an element. Every name outside the table resolves to `invalid_tag`, the
/// number after the last element.
enum class tag_id : std::int32_t { XPORT_ELEMENTS(XPORT_ENUMERATOR) invalid_tag };

namespace detail {

/// The element names by number. `invalid_tag` has no row.
inline constexpr name_row<tag_id> tag_rows[] = {XPORT_ELEMENTS(XPORT_NAME_ROW)};
static_assert(rows_in_order(tag_rows));

}  // namespace detail

/// The number of elements, including the pseudo-element and without `invalid_tag`.
inline constexpr std::size_t element_count = std::size(detail::tag_rows);

}  // namespace Xport

#undef XPORT_ELEMENTS

#endif
