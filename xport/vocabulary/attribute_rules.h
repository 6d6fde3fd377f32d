#ifndef XPORT_VOCABULARY_ATTRIBUTE_RULES_H
#define XPORT_VOCABULARY_ATTRIBUTE_RULES_H

#include "xport/vocabulary/tag_table.h"

namespace Xport::detail {

/// The attributes of some elements: the groups that many elements share, and their own.
struct attribute_rule {
  tag_set elements;
  attribute_set groups;
  attribute_set own;
};

/// What one element accepts beyond its published list, and what it lacks from that list.
struct attribute_departure {
  tag_id element;
  attribute_set additions;
  attribute_set losses;
};

namespace attribute_rules {

using tag = tag_id;
using attr = attr_id;

constexpr attribute_set operator|(attribute_set left, const attribute_set& right) {
  left.insert(right);
  return left;
}

// The groups are named after the parameter entities of the published document type.
inline constexpr attribute_set no_group;
inline constexpr attribute_set coreattrs{attr::id, attr::class_, attr::style, attr::title};
inline constexpr attribute_set i18n{attr::lang, attr::xml_lang, attr::dir};
inline constexpr attribute_set events{
    attr::onclick,     attr::ondblclick, attr::onmousedown, attr::onmouseup, attr::onmouseover,
    attr::onmousemove, attr::onmouseout, attr::onkeypress,  attr::onkeydown, attr::onkeyup};
inline constexpr attribute_set attrs = coreattrs | i18n | events;
inline constexpr attribute_set focus{attr::accesskey, attr::tabindex, attr::onfocus, attr::onblur};
inline constexpr attribute_set cellhalign{attr::align, attr::char_attr, attr::charoff};
inline constexpr attribute_set cellvalign{attr::valign};

/// The attribute lists of XHTML 1.0 Strict. Each element belongs to one rule, except the
/// document root and the elements that Strict lacks, which belong to none.
inline constexpr attribute_rule rules[] = {
    // The document and its head.
    {{tag::html}, i18n, {attr::id, attr::xmlns}},
    {{tag::head}, i18n, {attr::id, attr::profile}},
    {{tag::title}, i18n, {attr::id}},
    {{tag::base}, no_group, {attr::href, attr::id}},
    {{tag::meta}, i18n, {attr::id, attr::http_equiv, attr::name, attr::content, attr::scheme}},
    {{tag::link},
     attrs,
     {attr::charset, attr::href, attr::hreflang, attr::type, attr::rel, attr::rev, attr::media}},
    {{tag::style}, i18n, {attr::id, attr::type, attr::media, attr::title, attr::xmlspaceL}},
    {{tag::script},
     no_group,
     {attr::id, attr::charset, attr::type, attr::src, attr::defer, attr::xmlspaceL}},
    {{tag::body}, attrs, {attr::onload, attr::onunload}},

    // Text.
    {{tag::abbr,     tag::acronym,  tag::address, tag::b,      tag::bdo, tag::big, tag::cite,
      tag::code,     tag::dd,       tag::dfn,     tag::div,    tag::dl,  tag::dt,  tag::em,
      tag::fieldset, tag::h1,       tag::h2,      tag::h3,     tag::h4,  tag::h5,  tag::h6,
      tag::hr,       tag::i,        tag::kbd,     tag::li,     tag::ol,  tag::p,   tag::samp,
      tag::small,    tag::noscript, tag::span,    tag::strong, tag::sub, tag::sup, tag::tt,
      tag::ul,       tag::var,      tag::caption},
     attrs,
     {}},
    {{tag::pre}, attrs, {attr::xmlspaceL}},
    {{tag::blockquote, tag::q}, attrs, {attr::cite}},
    {{tag::ins, tag::del}, attrs, {attr::cite, attr::datetime}},
    {{tag::br}, coreattrs, {}},

    // Links, objects and images.
    {{tag::a},
     attrs | focus,
     {attr::charset, attr::type, attr::name, attr::href, attr::hreflang, attr::rel, attr::rev,
      attr::shape, attr::coords}},
    {{tag::object},
     attrs,
     {attr::declare, attr::classid, attr::codebase, attr::data, attr::type, attr::codetype,
      attr::archive, attr::standby, attr::height, attr::width, attr::usemap, attr::name,
      attr::tabindex}},
    {{tag::param}, no_group, {attr::id, attr::name, attr::value, attr::valuetype, attr::type}},
    {{tag::img},
     attrs,
     {attr::src, attr::alt, attr::longdesc, attr::height, attr::width, attr::usemap, attr::ismap}},
    {{tag::map}, attrs, {attr::name}},
    {{tag::area}, attrs | focus, {attr::shape, attr::coords, attr::href, attr::nohref, attr::alt}},

    // Forms.
    {{tag::form},
     attrs,
     {attr::action, attr::method, attr::enctype, attr::onsubmit, attr::onreset, attr::accept,
      attr::accept_charset}},
    {{tag::label}, attrs, {attr::for_, attr::accesskey, attr::onfocus, attr::onblur}},
    {{tag::input},
     attrs | focus,
     {attr::type, attr::name, attr::value, attr::checked, attr::disabled, attr::readonly,
      attr::size, attr::maxlength, attr::src, attr::alt, attr::usemap, attr::onselect,
      attr::onchange, attr::accept}},
    {{tag::select},
     attrs,
     {attr::name, attr::size, attr::multiple, attr::disabled, attr::tabindex, attr::onfocus,
      attr::onblur, attr::onchange}},
    {{tag::optgroup}, attrs, {attr::disabled, attr::label}},
    {{tag::option}, attrs, {attr::selected, attr::disabled, attr::label, attr::value}},
    {{tag::textarea},
     attrs | focus,
     {attr::name, attr::rows, attr::cols, attr::disabled, attr::readonly, attr::onselect,
      attr::onchange}},
    {{tag::legend}, attrs, {attr::accesskey}},
    {{tag::button}, attrs | focus, {attr::name, attr::value, attr::type, attr::disabled}},

    // Tables.
    {{tag::table},
     attrs,
     {attr::summary, attr::width, attr::border, attr::frame, attr::rules, attr::cellspacing,
      attr::cellpadding}},
    {{tag::colgroup, tag::col}, attrs | cellhalign | cellvalign, {attr::span, attr::width}},
    {{tag::thead, tag::tfoot, tag::tbody, tag::tr}, attrs | cellhalign | cellvalign, {}},
    {{tag::th, tag::td},
     attrs | cellhalign | cellvalign,
     {attr::abbr, attr::axis, attr::headers, attr::scope, attr::rowspan, attr::colspan}},
};

/// Where the records differ from the published lists.
inline constexpr attribute_departure departures[] = {
    {tag::a, {attr::target}, {}},
    {tag::acronym, {}, {attr::dir}},
    {tag::base, {}, {attr::id}},
    {tag::col, {}, {attr::onkeypress, attr::onkeyup, attr::onmousedown}},
    {tag::form, {attr::target}, {}},
    {tag::head, {}, {attr::id}},
    {tag::html, {}, {attr::id}},
    {tag::img, {attr::align}, {}},
    {tag::input, {attr::align, attr::ismap}, {}},
    {tag::legend, {attr::align}, {}},
    {tag::meta, {}, {attr::id}},
    {tag::object, {attr::align, attr::border, attr::hspace, attr::vspace}, {}},
    {tag::optgroup, {attr::selected, attr::value}, {}},
    {tag::script, {attr::for_}, {attr::defer, attr::id}},
    {tag::select, {attr::datafld, attr::dataformatas, attr::datasrc}, {}},
    {tag::style, {}, {attr::id}},
    {tag::title, {attr::abbr}, {attr::id}},
};

}  // namespace attribute_rules

}  // namespace Xport::detail

#endif
