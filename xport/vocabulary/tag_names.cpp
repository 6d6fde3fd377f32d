#include "xport/vocabulary/tag_names.h"

#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

namespace {

constexpr detail::name_index index(detail::tag_rows, false);

}  // namespace

tag_id xhtml_strict::tag_from_name(ustring_view name) noexcept {
  return detail::find_lower_case<index>(name, tag_id::invalid_tag);
}

}  // namespace Xport
