#ifndef XPORT_VOCABULARY_TAG_TABLE_H
#define XPORT_VOCABULARY_TAG_TABLE_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"
#include "xport/vocabulary/id_set.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

using tag_set = id_set<tag_id, 93>;
using attribute_set = id_set<attr_id, 244>;

/// Values of Tag_trait::category_flags: how an element may stand inside others.
enum category : std::uint32_t { category_none = 0, category_block = 1, category_inline = 2 };

/// Bits of Tag_trait::content_flags: what an element takes freely.
enum content : std::uint32_t {
  content_none = 0,
  content_block = 1,
  content_inline = 2,  ///< inline elements and character data
  content_text = 4     ///< character data only
};

/// The rule record of one kind of element, after XHTML 1.0 Strict.
struct Tag_trait {
  tag_id id;                     ///< its own row, 92 where the row can't be used
  std::uint32_t category_flags;  ///< one value of `category`
  std::uint32_t content_flags;   ///< bits of `content`
  ustring_view name;             ///< as written in tags
  tag_set allowed_children;      ///< admitted besides what content_flags admits
  tag_set excluded_children;     ///< refused although content_flags admits them
  attribute_set allowed_attributes;
  tag_set spare_ids;  ///< empty in every record, read by nothing
};

/// The 93 rule records by number: row 0 the document root, rows 1 to 91 the
/// elements, row 92 "invalid tag". Constant data, ready before any code runs.
class Tag_table {
 public:
  static constexpr std::size_t size() { return 93; }

  /// The record of a number, null for numbers below 0 and from 93 on.
  const Tag_trait* operator[](tag_id id) const {
    return static_cast<std::uint32_t>(id) < size() ? rows_ + static_cast<std::uint32_t>(id)
                                                   : nullptr;
  }

  explicit constexpr Tag_table(const Tag_trait* rows) : rows_(rows) {}

 private:
  const Tag_trait* rows_;
};

extern const Tag_table tag_table;

/// An element's small cell that points to its shared rule record. Null for an
/// element made with a number outside the table.
class Tag_trait_handle {
 public:
  explicit Tag_trait_handle(const Tag_trait* record) : record_(record) {}
  const Tag_trait* get() const { return record_; }

 private:
  const Tag_trait* record_;
};

}  // namespace Xport

#endif
