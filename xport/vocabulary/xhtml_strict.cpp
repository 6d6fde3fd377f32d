#include "xport/vocabulary/xhtml_strict.h"

#include <bit>
#include <cwctype>
#include <initializer_list>

namespace Xport {

namespace {

using detail::name_row;

enum class capitals { included, left_out };

constexpr bool has_capital(ustring_view name) {
  for (const char16 unit : name)
    if (unit >= u'A' && unit <= u'Z') return true;
  return false;
}

// Finds the rows of one table by name: a hash table with open addressing, filled at compile
// time and at most a quarter full, so that a search takes few steps.
template <class Id, std::size_t Count>
class name_index {
 public:
  // Refers to `rows`. Rows that hold capitals can be left out.
  constexpr name_index(const name_row<Id> (&rows)[Count], capitals with_capitals) : rows_(rows) {
    for (std::size_t number = 0; number < Count; ++number) {
      const ustring_view name = rows[number].name;
      if (with_capitals == capitals::left_out && has_capital(name)) continue;
      std::size_t slot = first_slot(name);
      while (slots_[slot] != 0) slot = (slot + 1) % slot_count;
      slots_[slot] = static_cast<std::uint16_t>(number + 1);
      if (name.size() > longest_) longest_ = name.size();
    }
  }

  // The length of the longest name in the index.
  constexpr std::size_t longest() const { return longest_; }

  // The id of the row whose name is `name`, or `otherwise` if there is none.
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

  // Where the search for `name`, which isn't empty, begins. The length and three of the units
  // scatter the rows well enough, and cost the same for a name of any length.
  static constexpr std::size_t first_slot(ustring_view name) {
    std::size_t hash = name.size();
    for (char16 unit : {name.front(), name[name.size() / 2], name.back()}) hash = hash * 31 + unit;
    return hash % slot_count;
  }

  const name_row<Id> (&rows_)[Count];
  std::size_t longest_ = 0;
  std::uint16_t slots_[slot_count] = {};  // row number + 1; 0 is an empty slot
};

constexpr name_index tag_index(detail::tag_rows, capitals::left_out);
constexpr name_index attribute_index(detail::attribute_rows, capitals::left_out);
constexpr name_index css_property_index(detail::css_property_rows, capitals::included);

// Lower-cases one unit with towlower(). ASCII units other than capitals are lower case in
// every locale, so they skip the call. Capitals need it: in a Turkish locale `I` becomes a
// dotless i. So do units beyond ASCII: the kelvin sign becomes `k` in any Unicode locale.
char16 lower_case(char16 unit) noexcept {
  if (unit < 0x80 && (unit < u'A' || unit > u'Z')) return unit;
  return static_cast<char16>(std::towlower(static_cast<std::wint_t>(unit)));
}

// Lower-cases `name` unit by unit into `buffer` and returns the part before the first zero
// unit. Returns an empty text, which matches no row, if that part is longer than the buffer.
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

// Finds `name` in lower case, up to its first zero unit. As `index` holds no capitals, a name
// that matches unchanged is in lower case already. Most names do, and skip the conversion.
template <const auto& index, class Id>
Id find_lower_case(ustring_view name, Id otherwise) noexcept {
  const Id unchanged = index.find(name, otherwise);
  if (unchanged != otherwise) return unchanged;
  char16 buffer[index.longest()];
  return index.find(lower_case_name(name, buffer), otherwise);
}

}  // namespace

tag_id xhtml_strict::tag_from_name(ustring_view name) noexcept {
  return find_lower_case<tag_index>(name, tag_id::invalid_tag);
}

attr_id xhtml_strict::attribute_from_name(ustring_view name) noexcept {
  return find_lower_case<attribute_index>(name, attr_id::not_found);
}

css_property_id xhtml_strict::css_property_from_name(ustring_view name) noexcept {
  return css_property_index.find(name, css_property_id::not_found);
}

}  // namespace Xport
