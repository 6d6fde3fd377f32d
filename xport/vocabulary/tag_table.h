#ifndef XPORT_VOCABULARY_TAG_TABLE_H
#define XPORT_VOCABULARY_TAG_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"
#include "xport/text/fixed_run.h"
#include "xport/vocabulary/id_set.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

/// The number of rule records: one for each element and one for `invalid_tag`.
inline constexpr std::size_t tag_record_count = element_count + 1;

using tag_set = id_set<tag_id, tag_record_count>;
using attribute_set = id_set<attr_id, attribute_count>;

/// Values of Tag_trait::category_flags: where an element may be placed.
enum category : std::uint32_t { category_none = 0, category_block = 1, category_inline = 2 };

/// Bits of Tag_trait::content_flags: which kinds of content an element accepts.
enum content : std::uint32_t {
  content_none = 0,
  content_block = 1,
  content_inline = 2,  ///< inline elements and character data
  content_text = 4     ///< character data only
};

/// The rule record of one kind of element, after XHTML 1.0 Strict.
struct Tag_trait {
  tag_id id;                     ///< its own number; `invalid_tag` where the row can't be used
  std::uint32_t category_flags;  ///< one value of `category`
  std::uint32_t content_flags;   ///< bits of `content`
  ustring_view name;             ///< as written in tags
  tag_set allowed_children;      ///< accepted in addition to what content_flags accepts
  tag_set excluded_children;     ///< refused although content_flags accepts them
  attribute_set allowed_attributes;
  tag_set spare_ids;    ///< unused: empty in every record
  fixed_run start_run;  ///< "<" and the name; never empty in the table
  fixed_run end_run;    ///< the end tag, likewise
};

/// Whether an element with the rules `parent` accepts character data.
constexpr bool takes_text(const Tag_trait& parent) {
  return (parent.content_flags & (content_inline | content_text)) != 0;
}

/// Whether an element with the rules `parent` accepts no content at all.
constexpr bool takes_nothing(const Tag_trait& parent) {
  return parent.content_flags == content_none && parent.allowed_children.empty();
}

/// Whether an element with the rules `parent` accepts the element `child` of the category
/// `category_flags`. If `parent` accepts the category, it accepts every element of it except
/// those in `excluded_children`. Otherwise it accepts only the elements in `allowed_children`.
/// `invalid_tag` is accepted nowhere.
constexpr bool takes_element(const Tag_trait& parent, tag_id child, std::uint32_t category_flags) {
  if (child == tag_id::invalid_tag) return false;
  const bool by_category = (parent.content_flags & (content_block | content_inline)) != 0 &&
                           (parent.content_flags & category_flags) != 0;
  if (by_category) return !parent.excluded_children.contains(child);
  return parent.allowed_children.contains(child);
}

/// Whether an element with the rules `parent` accepts one with the rules `child`.
constexpr bool takes_element(const Tag_trait& parent, const Tag_trait& child) {
  return takes_element(parent, child.id, child.category_flags);
}

namespace detail {

// The rows of tag_table. The last one, beyond the table, is "invalid tag" again, for handles
// without a record.
extern const std::array<Tag_trait, tag_record_count + 1> tag_records;

}  // namespace detail

/// The rule records by number: the document root, the elements, "invalid tag". Constant
/// data, ready before any code runs.
class Tag_table {
 public:
  static constexpr std::size_t size() { return tag_record_count; }

  /// The record of a number; null for numbers below 0 and from size() on.
  const Tag_trait* operator[](tag_id id) const {
    const auto row = static_cast<std::uint32_t>(id);
    return row < size() ? &detail::tag_records[row] : nullptr;
  }
};

inline constexpr Tag_table tag_table;

/// An element's reference to the rule record that it shares with all elements of its kind.
/// Null for an element created with a number outside the table. It holds the number of the row,
/// which takes half the memory of a pointer.
class Tag_trait_handle {
 public:
  /// `record` is a row of tag_table or null.
  explicit Tag_trait_handle(const Tag_trait* record)
      : row_(record != nullptr ? static_cast<std::uint32_t>(record - tag_table[tag_id::doc_root])
                               : Tag_table::size()) {}

  const Tag_trait* get() const { return row_ < Tag_table::size() ? &rules() : nullptr; }

  /// The record; that of "invalid tag" if the handle is null.
  const Tag_trait& rules() const { return detail::tag_records[row_]; }

 private:
  std::uint32_t row_;
};

}  // namespace Xport

#endif
