#ifndef XPORT_VOCABULARY_XHTML_STRICT_H
#define XPORT_VOCABULARY_XHTML_STRICT_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"
#include "xport/vocabulary/attr_id.h"
#include "xport/vocabulary/css_property_id.h"
#include "xport/vocabulary/name_row.h"
#include "xport/vocabulary/tag_id.h"

namespace Xport {

/// The document type: the names of XHTML 1.0 Strict and their numbers.
///
/// The tables are constant data: every operation may be called from any thread and at any
/// time, even before main(). None throws. A search costs time linear in the length of the
/// name, whatever the size of the table.
struct xhtml_strict {
  /// The element called `name`, or `tag_id::invalid_tag` if there is none. Before the search
  /// `name` is lower-cased unit by unit with the C library's `towlower` and cut at its first
  /// zero unit. The name of row 0 is "doc root".
  static tag_id tag_from_name(ustring_view name) noexcept;

  /// The attribute called `name`, or `attr_id::not_found` if there is none. `name` is treated
  /// as by tag_from_name(). Rows that hold capitals (`DOMActivate` and its kind, `xmlspaceL`)
  /// are therefore never found; they are reached by number only.
  static attr_id attribute_from_name(ustring_view name) noexcept;

  /// The property called `name`, or `css_property_id::not_found` if there is none. All of
  /// `name` is compared, and case matters.
  static css_property_id css_property_from_name(ustring_view name) noexcept;

  /// The name of an attribute as documents use it; empty for a number outside the table.
  /// The units are static, and a zero unit follows them. Constant time.
  static ustring_view attribute_name(attr_id id) noexcept {
    return name_at(detail::attribute_rows, id);
  }

  /// The name of a property as documents use it; empty for a number outside the table.
  /// The units are static, and a zero unit follows them. Constant time.
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
