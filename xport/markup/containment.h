#ifndef XPORT_MARKUP_CONTAINMENT_H
#define XPORT_MARKUP_CONTAINMENT_H

#include "xport/vocabulary/tag_table.h"

namespace Xport {

/// Whether an element with the rules `parent` takes character data.
constexpr bool takes_text(const Tag_trait& parent) {
  return (parent.content_flags & (content_inline | content_text)) != 0;
}

/// Whether an element with the rules `parent` takes no content at all.
constexpr bool takes_nothing(const Tag_trait& parent) {
  return parent.content_flags == content_none && parent.allowed_children.empty();
}

/// Whether an element `child` of the category `category_flags` may stand in one with the
/// rules `parent`: by its category, unless it is excluded by name, or else by its name.
/// What has no number may stand nowhere.
constexpr bool takes_element(const Tag_trait& parent, tag_id child, std::uint32_t category_flags) {
  if (child == tag_id::invalid_tag) return false;
  const bool by_category = (parent.content_flags & (content_block | content_inline)) != 0 &&
                           (parent.content_flags & category_flags) != 0;
  if (by_category) return !parent.excluded_children.contains(child);
  return parent.allowed_children.contains(child);
}

/// The same for an element with the rules `child`.
constexpr bool takes_element(const Tag_trait& parent, const Tag_trait& child) {
  return takes_element(parent, child.id, child.category_flags);
}

}  // namespace Xport

#endif
