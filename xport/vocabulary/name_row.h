#ifndef XPORT_VOCABULARY_NAME_ROW_H
#define XPORT_VOCABULARY_NAME_ROW_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"

// Each list of names is a macro with a line `row(number, identifier)` or
// `row(number, identifier, "name")` for each name. These two, passed as `row`, turn a line
// into an enumerator and into a row of the name table. They stay defined because every
// header with such a list uses them.
#define XPORT_ENUMERATOR(number, identifier, ...) identifier = number,
#define XPORT_NAME_ROW(number, identifier, ...) {number, u"" #identifier, u"" __VA_ARGS__},

namespace Xport::detail {

/// One row of a name table.
template <class Id>
struct name_row {
  /// The name is `other_name`, or `identifier` if `other_name` is empty. The row refers to
  /// the text, so both must be string literals.
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
