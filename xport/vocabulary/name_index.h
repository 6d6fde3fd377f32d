#ifndef XPORT_VOCABULARY_NAME_INDEX_H
#define XPORT_VOCABULARY_NAME_INDEX_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cwctype>
#include <initializer_list>

#include "xport/text/char16.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace Xport::detail {

/// Whether each row of a table holds the id of its own number and a name.
template <class Id, std::size_t Count>
constexpr bool rows_in_order(const name_row<Id> (&rows)[Count]) {
  for (std::size_t number = 0; number < Count; ++number)
    if (static_cast<std::size_t>(rows[number].id) != number || rows[number].name.empty())
      return false;
  return true;
}

/// Whether there is a capital of ASCII in `name`.
constexpr bool has_capital(ustring_view name) {
  for (const char16 unit : name)
    if (unit >= u'A' && unit <= u'Z') return true;
  return false;
}

/// Finds the rows of one table by name: a hash table with open addressing, filled at
/// compile time and at most a quarter full, so that a search takes few steps.
template <class Id, std::size_t Count>
class name_index {
 public:
  /// `rows` must outlive the index. Rows that hold capitals can be left out.
  constexpr name_index(const name_row<Id> (&rows)[Count], bool with_capitals) : rows_(rows) {
    for (std::size_t number = 0; number < Count; ++number) {
      if (!with_capitals && has_capital(rows[number].name)) continue;
      std::size_t slot = first_slot(rows[number].name);
      while (slots_[slot] != 0) slot = (slot + 1) % slot_count;
      slots_[slot] = static_cast<std::uint16_t>(number + 1);
      if (rows[number].name.size() > longest_) longest_ = rows[number].name.size();
    }
  }

  /// The length of the longest name in the table.
  constexpr std::size_t longest() const { return longest_; }

  /// The id of the row that equals `name` in length and in every unit, else `otherwise`.
  constexpr Id find(ustring_view name, Id otherwise) const {
    if (name.empty() || name.size() > longest_) return otherwise;
    for (std::size_t slot = first_slot(name); slots_[slot] != 0; slot = (slot + 1) % slot_count) {
      const name_row<Id>& row = rows_[slots_[slot] - 1];
      if (row.name == name) return row.id;
    }
    return otherwise;
  }

 private:
  static constexpr std::size_t slot_count = std::bit_ceil(4 * Count);

  /// Where the search for `name`, which isn't empty, begins. Its length and three of its
  /// units scatter the rows well enough, and cost the same for a name of any length.
  static constexpr std::size_t first_slot(ustring_view name) {
    std::size_t hash = name.size();
    for (char16 unit : {name.front(), name[name.size() / 2], name.back()}) hash = hash * 31 + unit;
    return hash % slot_count;
  }

  const name_row<Id> (&rows_)[Count];
  std::size_t longest_ = 0;
  std::uint16_t slots_[slot_count] = {};  // row number + 1; 0 is an empty slot
};

/// `unit` lower-cased by `towlower`. What ASCII has besides capitals is the same in lower
/// case in every locale, so it isn't asked about. Capitals are: in a Turkish locale `I`
/// becomes a dotless i, and the kelvin sign becomes a `k` in any Unicode locale.
inline char16 lower_case(char16 unit) noexcept {
  if (unit < 0x80 && (unit < u'A' || unit > u'Z')) return unit;
  return static_cast<char16>(std::towlower(static_cast<std::wint_t>(unit)));
}

/// Lower-cases `name` unit by unit into `buffer` and returns the part before the first
/// zero unit. Empty, which no row is, if that part is longer than the buffer.
template <std::size_t Size>
ustring_view lower_case_name(ustring_view name, char16 (&buffer)[Size]) noexcept {
  std::size_t length = 0;
  for (char16 unit : name) {
    const char16 lower = lower_case(unit);
    if (lower == 0) break;
    if (length == Size) return {};
    buffer[length++] = lower;
  }
  return {buffer, length};
}

/// The row that `name` equals in lower case, up to its first zero unit. `index` must hold
/// rows in lower case alone: then a name that equals one needn't be changed, which spares
/// most names the work.
template <const auto& index, class Id>
Id find_lower_case(ustring_view name, Id otherwise) noexcept {
  const Id as_it_is = index.find(name, otherwise);
  if (as_it_is != otherwise) return as_it_is;
  char16 buffer[index.longest()];
  return index.find(lower_case_name(name, buffer), otherwise);
}

}  // namespace Xport::detail

#endif
