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

/// Whether an element with the rules `child` may stand in one with the rules
/// `parent`: by its category, unless it is excluded by name, or else by its name.
/// Unusable rows may stand nowhere.
constexpr bool takes_element(const Tag_trait& parent, const Tag_trait& child) {
  if (child.id == tag_id::invalid_tag) return false;
  const std::uint32_t by_category = parent.content_flags & (content_block | content_inline);
  if ((by_category & child.category_flags) != 0)
    return !parent.excluded_children.contains(child.id);
  return parent.allowed_children.contains(child.id);
}

}  // namespace Xport

#endif
