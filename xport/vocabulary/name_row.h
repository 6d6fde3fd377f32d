#ifndef XPORT_VOCABULARY_NAME_ROW_H
#define XPORT_VOCABULARY_NAME_ROW_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"

// The enumerator and the row of one `row(number, identifier)` or
// `row(number, identifier, "name")` in the lists of names.
#define XPORT_ENUMERATOR(number, identifier, ...) identifier = number,
#define XPORT_NAME_ROW(number, identifier, ...) {number, u"" #identifier, u"" __VA_ARGS__},

namespace Xport::detail {

/// One row of a name table.
template <class Id>
struct name_row {
  /// The name is `identifier` unless `other_name` says something else. Both are literals.
  constexpr name_row(std::int32_t number, ustring_view identifier, ustring_view other_name)
      : id(Id{number}), name(other_name.empty() ? identifier : other_name) {}

  Id id;
  ustring_view name;  ///< zero-terminated
};

/// Whether the numbers ascend from 0 without a gap, so that a number is the index of its row.
template <class Id, std::size_t Count>
constexpr bool rows_in_order(const name_row<Id> (&rows)[Count]) {
  for (std::size_t number = 0; number < Count; ++number)
    if (static_cast<std::size_t>(rows[number].id) != number) return false;
  return true;
}

}  // namespace Xport::detail

#endif
