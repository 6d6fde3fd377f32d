#include "xport/markup/xhtml_end_tag.h"

namespace Xport {

namespace {

ustring_view name_in(ustring_view token) {
  if (token.starts_with(u'<')) {
    token.remove_prefix(1);
    if (token.starts_with(u'/')) token.remove_prefix(1);
  }
  if (token.ends_with(u'>')) token.remove_suffix(1);
  return token;
}

}  // namespace

xhtml_end_tag::xhtml_end_tag(ustring_view token)
    : tag_(xhtml_strict::tag_from_name(name_in(token))), source_(token) {}

}  // namespace Xport
