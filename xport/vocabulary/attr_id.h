#ifndef XPORT_VOCABULARY_ATTR_ID_H
#define XPORT_VOCABULARY_ATTR_ID_H

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "xport/vocabulary/name_row.h"

// The attributes by number: first those of XHTML and of the browsers of its time, from 153
// on the names of DOM events, from 163 on event handlers, from 241 on those of XML. The name
// is given where it differs from the identifier. A new attribute is a row with the next
// number at the end of this list; attribute_rules.h says which elements accept it.
// clang-format off
#define XPORT_ATTRIBUTES(row) \
  row(0, abbr) \
  row(1, above) \
  row(2, accept) \
  row(3, accept_charset, "accept-charset") \
  row(4, accesskey) \
  row(5, action) \
  row(6, align) \
  row(7, alink) \
  row(8, alt) \
  row(9, archive) \
  row(10, autocomplete) \
  row(11, axis) \
  row(12, background) \
  row(13, balance) \
  row(14, behavior) \
  row(15, below) \
  row(16, bgcolor) \
  row(17, bgproperties) \
  row(18, border) \
  row(19, border_color, "border-color") \
  row(20, bordercolordark) \
  row(21, bordercolorlight) \
  row(22, bottommargin) \
  row(23, cellpadding) \
  row(24, cellspacing) \
  row(25, challenge) \
  row(26, char_attr, "char-attr") \
  row(27, charoff) \
  row(28, charset) \
  row(29, checked) \
  row(30, cite) \
  row(31, class_, "class") \
  row(32, classid) \
  row(33, clear) \
  row(34, clip) \
  row(35, code) \
  row(36, codebase) \
  row(37, codetype) \
  row(38, color) \
  row(39, cols) \
  row(40, colspan) \
  row(41, compact) \
  row(42, content) \
  row(43, contenteditable) \
  row(44, coords) \
  row(45, data) \
  row(46, datafld) \
  row(47, dataformatas) \
  row(48, datapagesize) \
  row(49, datasrc) \
  row(50, datetime) \
  row(51, declare) \
  row(52, defer) \
  row(53, dir) \
  row(54, direction) \
  row(55, disabled) \
  row(56, dynsrc) \
  row(57, enctype) \
  row(58, event) \
  row(59, face) \
  row(60, for_, "for") \
  row(61, frame) \
  row(62, frameborder) \
  row(63, framespacing) \
  row(64, galleryimg) \
  row(65, gutter) \
  row(66, headers) \
  row(67, height) \
  row(68, hidden) \
  row(69, href) \
  row(70, hreflang) \
  row(71, hspace) \
  row(72, http_equiv, "http-equiv") \
  row(73, id) \
  row(74, ismap) \
  row(75, label) \
  row(76, lang) \
  row(77, language) \
  row(78, left) \
  row(79, left_margin, "left-margin") \
  row(80, link) \
  row(81, longdesc) \
  row(82, loop) \
  row(83, lowsrc) \
  row(84, marginheight) \
  row(85, marginwidth) \
  row(86, maxlength) \
  row(87, mayscript) \
  row(88, media) \
  row(89, method) \
  row(90, methods) \
  row(91, multiple) \
  row(92, name) \
  row(93, nohref) \
  row(94, noresize) \
  row(95, noshade) \
  row(96, nowrap) \
  row(97, object) \
  row(98, pagex) \
  row(99, pagey) \
  row(100, pluginspage) \
  row(101, pluginurl) \
  row(102, point_size, "point-size") \
  row(103, profile) \
  row(104, prompt) \
  row(105, rbspan) \
  row(106, readonly) \
  row(107, rel) \
  row(108, rev) \
  row(109, rightmargin) \
  row(110, rows) \
  row(111, rowspan) \
  row(112, rules) \
  row(113, scheme) \
  row(114, scope) \
  row(115, scroll) \
  row(116, scrollamount) \
  row(117, scrolldelay) \
  row(118, scrolling) \
  row(119, security) \
  row(120, selected) \
  row(121, shape) \
  row(122, size) \
  row(123, span) \
  row(124, src) \
  row(125, standby) \
  row(126, start) \
  row(127, style) \
  row(128, summary) \
  row(129, tabindex) \
  row(130, target) \
  row(131, text) \
  row(132, title) \
  row(133, top) \
  row(134, topmargin) \
  row(135, truespeed) \
  row(136, type) \
  row(137, units) \
  row(138, unselectable) \
  row(139, urn) \
  row(140, usemap) \
  row(141, valign) \
  row(142, value) \
  row(143, valuetype) \
  row(144, version) \
  row(145, visibility) \
  row(146, vlink) \
  row(147, volume) \
  row(148, vspace) \
  row(149, weight) \
  row(150, width) \
  row(151, wrap) \
  row(152, z_index, "z-index") \
  /* DOM events */ \
  row(153, DOMActivate) \
  row(154, DOMAttrModified) \
  row(155, DOMCharacterDataModified) \
  row(156, DOMFocusIn) \
  row(157, DOMFocusOut) \
  row(158, DOMNodeInserted) \
  row(159, DOMNodeInsertedIntoDocument) \
  row(160, DOMNodeRemoved) \
  row(161, DOMNodeRemovedFromDocument) \
  row(162, DOMSubtreeModified) \
  /* event handlers */ \
  row(163, onabort) \
  row(164, onactivate) \
  row(165, onafterprint) \
  row(166, onafterupdate) \
  row(167, onbeforeactivate) \
  row(168, onbeforecopy) \
  row(169, onbeforecut) \
  row(170, onbeforedeactivate) \
  row(171, onbeforeeditfocus) \
  row(172, onbeforepaste) \
  row(173, onbeforeprint) \
  row(174, onbeforeunload) \
  row(175, onbeforeupdate) \
  row(176, onblur) \
  row(177, onbounce) \
  row(178, oncellchange) \
  row(179, onchange) \
  row(180, onclick) \
  row(181, oncontextmenu) \
  row(182, oncontrolselect) \
  row(183, oncopy) \
  row(184, oncut) \
  row(185, ondataavailable) \
  row(186, ondatasetchanged) \
  row(187, ondatasetcomplete) \
  row(188, ondblclick) \
  row(189, ondeactivate) \
  row(190, ondrag) \
  row(191, ondragdrop) \
  row(192, ondragend) \
  row(193, ondragenter) \
  row(194, ondragleave) \
  row(195, ondragover) \
  row(196, ondragstart) \
  row(197, ondrop) \
  row(198, onerror) \
  row(199, onerrorupdate) \
  row(200, onfilterchange) \
  row(201, onfinish) \
  row(202, onfocus) \
  row(203, onfocusin) \
  row(204, onfocusout) \
  row(205, onhelp) \
  row(206, onkeydown) \
  row(207, onkeypress) \
  row(208, onkeyup) \
  row(209, onlayoutcomplete) \
  row(210, onload) \
  row(211, onlosecapture) \
  row(212, onmousedown) \
  row(213, onmouseenter) \
  row(214, onmouseleave) \
  row(215, onmousemove) \
  row(216, onmouseout) \
  row(217, onmouseover) \
  row(218, onmouseup) \
  row(219, onmousewheel) \
  row(220, onmove) \
  row(221, onmoveend) \
  row(222, onmovestart) \
  row(223, onpaste) \
  row(224, onpropertychange) \
  row(225, onreadystatechange) \
  row(226, onreset) \
  row(227, onresize) \
  row(228, onresizeend) \
  row(229, onresizestart) \
  row(230, onrowenter) \
  row(231, onrowexit) \
  row(232, onrowsdelete) \
  row(233, onrowsinserted) \
  row(234, onscroll) \
  row(235, onselect) \
  row(236, onselectionchange) \
  row(237, onselectstart) \
  row(238, onstart) \
  row(239, onsubmit) \
  row(240, onunload) \
  /* XML */ \
  row(241, xml_lang, "xml:lang") \
  row(242, xmlns) \
  row(243, xmlspaceL)
// clang-format on

namespace Xport {

/// The number of an attribute. Every name outside the table resolves to `not_found`.
enum class attr_id : std::int32_t { not_found = -1, XPORT_ATTRIBUTES(XPORT_ENUMERATOR) };

namespace detail {

/// The attribute names by number.
inline constexpr name_row<attr_id> attribute_rows[] = {XPORT_ATTRIBUTES(XPORT_NAME_ROW)};
static_assert(rows_in_order(attribute_rows));

}  // namespace detail

/// The number of attributes.
inline constexpr std::size_t attribute_count = std::size(detail::attribute_rows);

}  // namespace Xport

#undef XPORT_ATTRIBUTES

#endif
