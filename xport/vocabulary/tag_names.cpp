#include "xport/vocabulary/tag_names.h"

#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

namespace {

constexpr detail::name_index index(detail::tag_rows);

}  // namespace

tag_id xhtml_strict::tag_from_name(ustring_view name) noexcept {
  char16 buffer[index.longest()];
  return index.find(detail::lower_case_name(name, buffer), tag_id::invalid_tag);
}

}  // namespace Xport
