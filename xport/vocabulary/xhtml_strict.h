#ifndef XPORT_VOCABULARY_XHTML_STRICT_H
#define XPORT_VOCABULARY_XHTML_STRICT_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"
#include "xport/vocabulary/attr_id.h"
#include "xport/vocabulary/css_property_id.h"
#include "xport/vocabulary/tag_id.h"

namespace Xport {

namespace detail {

/// One row of a name table.
template <class Id>
struct name_row {
  Id id;
  ustring_view name;  ///< zero-terminated
};

/// The names of the attributes and properties by number.
extern const name_row<attr_id> attribute_rows[244];
extern const name_row<css_property_id> css_property_rows[102];

}  // namespace detail

/// The document type: the names of XHTML 1.0 Strict and the numbers they stand for.
/// The tables are constant data, so every operation may be called at any time from
/// any thread, none throws, and a name that isn't in the table is no error.
struct xhtml_strict {
  /// The element called `name`, else `tag_id::invalid_tag`. `name` is lower-cased unit
  /// by unit with the C library's `towlower` and cut at its first zero unit, and must
  /// then equal a row. Row 0 is found as "doc root".
  static tag_id tag_from_name(ustring_view name) noexcept;

  /// The attribute called `name`, else `attr_id::not_found`. `name` is treated as
  /// by `tag_from_name`; so the rows that hold capitals (`DOMActivate` and its kind,
  /// `xmlspaceL`) are found by no text and can be reached by number only.
  static attr_id attribute_from_name(ustring_view name) noexcept;

  /// The property called `name`, else `css_property_id::not_found`. The whole of `name`
  /// must equal a row, in case too.
  static css_property_id css_property_from_name(ustring_view name) noexcept;

  /// The name of an attribute as it is written into documents; empty for a number
  /// outside the table. The units are static and a zero unit follows them.
  static ustring_view attribute_name(attr_id id) noexcept {
    return name_at(detail::attribute_rows, id);
  }

  /// The name of a property as it is written into documents; empty for a number
  /// outside the table. The units are static and a zero unit follows them.
  static ustring_view css_property_name(css_property_id id) noexcept {
    return name_at(detail::css_property_rows, id);
  }

 private:
  template <class Id, std::size_t Count>
  static ustring_view name_at(const detail::name_row<Id> (&rows)[Count], Id id) noexcept {
    const auto number = static_cast<std::uint32_t>(id);
    return number < Count ? rows[number].name : ustring_view(u"");
  }
};

}  // namespace Xport

#endif
